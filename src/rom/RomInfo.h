#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <array>
#include <functional>

class QIODevice;

// Field numbers of the decoded header; callers ask for fields by these numbers.
enum RomInfoField : qint16 {
    BankSize = 1,
    Checksum = 2,
    Country = 3,
    InternalTitle = 4,
    GameVersion = 5,
    InverseChecksum = 6,
    License = 7,
    RomSize = 8,
    RomSpeed = 9,
    RomType = 10,
    SramSize = 11,
};

// The eleven header texts, indexed by field number - 1.
struct RomHeaderInfo {
    std::array<QString, 11> Fields;
};

// Reads a game file's internal SNES header into display texts.
class clsRomInfo {
public:
    clsRomInfo();

    // Decodes the header of the file at filename (resolved case-insensitively).
    // Always returns false: callers judge success by the field texts. A missing
    // file leaves them as they were.
    bool ReadROM(const QString& filename);
    // Decodes the header of an open file or buffer.
    void ReadROM(QIODevice& file);

    // The text of field 1 to 11; empty for any other number.
    QString GameData(int field) const;

    const QString& Licensee(int code) const { return m_licenseeTable[code & 0xFF]; }

private:
    // Fills the fields from the header at the 1-based position; 0 changes nothing.
    void DecodeHeader(QIODevice& file, qint64 position);

    std::array<QString, 256> m_licenseeTable;
    RomHeaderInfo m_header;
};

// 1-based position of the first title byte, or 0 when the probe finds no header.
// Candidates 0x81C0, 0x7FC0 and 0x101C0; missing bytes of a short file read as 0.
qint64 FindHeaderPosition(QIODevice& file);
// The same probe over any reader of count bytes at offset (zeros past the end).
qint64 FindHeaderPosition(const std::function<QByteArray(qint64 offset, int count)>& readAt);

// count bytes from the 0-based offset; bytes past the end of the file read as 0.
QByteArray ReadBytesAt(QIODevice& file, qint64 offset, int count);
