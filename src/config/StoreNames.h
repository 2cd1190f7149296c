#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// A section or key name as the store file writes it, percent-escaped as QSettings
// does ("/" as "\", "%XX" or "%UXXXX" for any character but letters, digits, "_",
// "-" and "."), and the name that such bytes stand for.
void AppendEscapedName(const QString& name, QByteArray& out);
QString UnescapedName(QByteArrayView bytes);
