#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

// One value of the store file, as QSettings keeps it: the unescaped text, whose
// leading "@" still marks a type ("@@" stands for a text that starts with "@").
// A value with an unquoted comma, which only an edited file holds, is a list.
struct StoreValue {
    QString Text;
    QStringList List;
    bool IsList = false;

    bool operator==(const StoreValue&) const = default;
};

// The file's sections by name, each with its keys by name. A key outside every
// section (the file's "[General]" part) stands in the section with the empty name.
using StoreSection = QHash<QString, StoreValue>;
using StoreContent = QHash<QString, StoreSection>;

// The INI text that QSettings reads and writes on Linux: sections and keys sorted,
// their names percent-escaped, values escaped and quoted as QSettings does, so that
// Lumbra and QSettings read each other's files and write the same bytes.
StoreContent ParseStoreText(const QByteArray& text);
QByteArray StoreText(const StoreContent& content);

// A text as the value that QSettings would store for it, and the text a value
// reads as. A stored "@Invalid()" is a key without a value: it reads as absent.
StoreValue ValueOfText(const QString& text);
QString TextOfValue(const StoreValue& value);
bool IsAbsentValue(const StoreValue& value);
