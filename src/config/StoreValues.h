#pragma once

#include <QByteArray>
#include <QByteArrayView>
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

// A value as the store file writes it, escaped and quoted as QSettings does; and a
// value's bytes as QSettings reads them: escapes resolved, quotes removed, blanks
// around unquoted parts dropped, and unquoted commas splitting a list.
void AppendEscapedValue(const StoreValue& value, QByteArray& out);
StoreValue UnescapedValue(QByteArrayView bytes);

// A text as the value that QSettings would store for it, and the text a value
// reads as. A stored "@Invalid()" is a key without a value: it reads as absent.
StoreValue ValueOfText(const QString& text);
QString TextOfValue(const StoreValue& value);
bool IsAbsentValue(const StoreValue& value);
