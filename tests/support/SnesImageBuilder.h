#pragma once

#include <QByteArray>
#include <QList>
#include <QtGlobal>
#include <optional>

// Lays out an SNES game image byte by byte for tests:
//
//   QByteArray rom = SnesImageBuilder().Title("SUPER MARIOWORLD").LoRom().CopierHeader().Build();
//   WriteFile("roms/Super Mario World.smc", rom);
//
// The image is Size() bytes of zeros (128 KB unless set), preceded by a 512-byte
// copier header when asked. The 32-byte internal header sits at 0x7FC0 of the image
// for LoRom() (the default) and at 0xFFC0 for HiRom(), so at file offset 0x7FC0,
// 0x81C0, 0xFFC0 or 0x101C0; HeaderAt() puts it at any file offset instead.
// The header's fields are laid out as on a cartridge:
//   +0..+20 title (padded with blanks), +21 makeup (0x20 LoROM, 0x21 HiROM unless
//   set), +22 type, +23 ROM size, +24 SRAM size, +25 country, +26 licensee,
//   +27 version, +28..+29 checksum complement and +30..+31 checksum, both
//   little-endian. The default checksum 0x1234 with complement 0xEDCB is a valid pair.
// Build() writes the copier header, then the internal header, then Blank() areas
// (0xFF), then Bytes() patches, so later steps overwrite earlier ones.
class SnesImageBuilder {
public:
    // Image size without the copier header.
    SnesImageBuilder& Size(qint64 bytes);
    SnesImageBuilder& CopierHeader(bool present = true);
    SnesImageBuilder& LoRom();
    SnesImageBuilder& HiRom();
    SnesImageBuilder& HeaderAt(qint64 fileOffset);
    // Without a header the image is zeros (plus blanks and patches).
    SnesImageBuilder& NoHeader();

    SnesImageBuilder& Title(const QByteArray& title);
    SnesImageBuilder& Makeup(quint8 value);
    SnesImageBuilder& Type(quint8 value);
    SnesImageBuilder& RomSize(quint8 value);
    SnesImageBuilder& SramSize(quint8 value);
    SnesImageBuilder& Country(quint8 value);
    SnesImageBuilder& Licensee(quint8 value);
    SnesImageBuilder& Version(quint8 value);
    // A valid pair: the checksum and its complement (checksum XOR 0xFFFF).
    SnesImageBuilder& Checksum(quint16 checksum);
    // Any pair, valid or not.
    SnesImageBuilder& ChecksumFields(quint16 complement, quint16 checksum);

    // length bytes of 0xFF from fileOffset, as in an erased or padded area.
    SnesImageBuilder& Blank(qint64 fileOffset, qint64 length);
    // Raw bytes at fileOffset (the image grows if they reach past its end).
    SnesImageBuilder& Bytes(qint64 fileOffset, const QByteArray& bytes);

    // File offset of the header's first title byte.
    qint64 HeaderOffset() const;
    // The 32 header bytes alone, e.g. to patch a second header into an image.
    QByteArray HeaderBytes() const;
    QByteArray Build() const;

    // Ready-made images with a valid header and the given title.
    static QByteArray ValidLoRomWithCopierHeader(const QByteArray& title = "LUMBRA TEST");
    static QByteArray HeaderlessLoRom(const QByteArray& title = "LUMBRA TEST");
    static QByteArray HiRomWithCopierHeader(const QByteArray& title = "LUMBRA TEST");

private:
    struct Patch {
        qint64 Offset;
        QByteArray Bytes;
    };

    qint64 m_size = 0x20000;
    bool m_copierHeader = false;
    bool m_hiRom = false;
    bool m_hasHeader = true;
    std::optional<qint64> m_headerAt;
    QByteArray m_title = "LUMBRA TEST";
    std::optional<quint8> m_makeup;
    quint8 m_type = 0;
    quint8 m_romSize = 8;
    quint8 m_sramSize = 0;
    quint8 m_country = 1;
    quint8 m_licensee = 1;
    quint8 m_version = 0;
    quint16 m_complement = 0xEDCB;
    quint16 m_checksum = 0x1234;
    QList<Patch> m_blanks;
    QList<Patch> m_patches;
};
