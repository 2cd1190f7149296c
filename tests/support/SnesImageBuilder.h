#pragma once

#include <QByteArray>
#include <QList>
#include <QtGlobal>
#include <array>
#include <utility>

// Lays out an SNES game image for tests: 128 KB of zeros, behind a 512-byte copier
// header when asked, with the 32-byte internal header at 0x7FC0 of the image (LoROM),
// or at 0xFFC0 after HiRom(). Header layout: +0 title (21 bytes,
// blank padded), +21 makeup (0x20 LoROM, 0x21 HiROM unless set), +22 type, +23 ROM
// size, +24 SRAM size, +25 country, +26 licensee, +27 version, +28 checksum
// complement and +30 checksum, both little-endian (by default the valid pair
// 0xEDCB / 0x1234). Build() lays the header, then Blank() (0xFF) and Bytes() patches
// at file offsets in the order they were asked for; the image grows to fit them.
class SnesImageBuilder {
public:
    SnesImageBuilder& Title(const QByteArray& title) {
        m_title = title;
        return *this;
    }
    SnesImageBuilder& CopierHeader() {
        m_copierHeader = true;
        return *this;
    }
    SnesImageBuilder& HiRom() {
        m_hiRom = true;
        return *this;
    }
    SnesImageBuilder& Makeup(quint8 value) { return Field(0, value); }
    SnesImageBuilder& Type(quint8 value) { return Field(1, value); }
    SnesImageBuilder& RomSize(quint8 value) { return Field(2, value); }
    SnesImageBuilder& SramSize(quint8 value) { return Field(3, value); }
    SnesImageBuilder& Country(quint8 value) { return Field(4, value); }
    SnesImageBuilder& Licensee(quint8 value) { return Field(5, value); }
    SnesImageBuilder& Version(quint8 value) { return Field(6, value); }
    // The complement and checksum pair, valid or not.
    SnesImageBuilder& ChecksumFields(quint16 complement, quint16 checksum) {
        m_pair = {complement, checksum};
        return *this;
    }
    SnesImageBuilder& Blank(qint64 fileOffset, qint64 length) {
        return Bytes(fileOffset, QByteArray(length, '\xFF'));
    }
    SnesImageBuilder& Bytes(qint64 fileOffset, const QByteArray& bytes) {
        m_patches.append({fileOffset, bytes});
        return *this;
    }
    QByteArray Build() const;

    // Ready-made images with a valid header and the given title.
    static QByteArray ValidLoRomWithCopierHeader(const QByteArray& title = "LUMBRA TEST");
    static QByteArray HeaderlessLoRom(const QByteArray& title = "LUMBRA TEST");
    static QByteArray HiRomWithCopierHeader(const QByteArray& title = "LUMBRA TEST");

private:
    SnesImageBuilder& Field(int index, quint8 value) {
        m_fields[index] = value;
        return *this;
    }

    QByteArray m_title = "LUMBRA TEST";
    bool m_copierHeader = false;
    bool m_hiRom = false;
    // Makeup (-1: from the mapping), type, ROM size, SRAM size, country, licensee, version.
    std::array<int, 7> m_fields = {-1, 0, 8, 0, 1, 1, 0};
    std::pair<quint16, quint16> m_pair = {0xEDCB, 0x1234};
    QList<std::pair<qint64, QByteArray>> m_patches;
};
