#include "support/SnesImageBuilder.h"

namespace {

constexpr qint64 CopierHeaderSize = 512;
constexpr qint64 LoRomHeader = 0x7FC0;
constexpr qint64 HiRomHeader = 0xFFC0;
constexpr int TitleLength = 21;
constexpr int HeaderLength = 32;

void Put(QByteArray& image, qint64 offset, const QByteArray& bytes) {
    if (offset + bytes.size() > image.size())
        image.resize(offset + bytes.size(), '\0');
    image.replace(offset, bytes.size(), bytes);
}

char Low(quint16 value) {
    return static_cast<char>(value & 0xFF);
}
char High(quint16 value) {
    return static_cast<char>(value >> 8);
}

} // namespace

SnesImageBuilder& SnesImageBuilder::Size(qint64 bytes) {
    m_size = bytes;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::CopierHeader(bool present) {
    m_copierHeader = present;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::LoRom() {
    m_hiRom = false;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::HiRom() {
    m_hiRom = true;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::HeaderAt(qint64 fileOffset) {
    m_headerAt = fileOffset;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::NoHeader() {
    m_hasHeader = false;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Title(const QByteArray& title) {
    m_title = title;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Makeup(quint8 value) {
    m_makeup = value;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Type(quint8 value) {
    m_type = value;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::RomSize(quint8 value) {
    m_romSize = value;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::SramSize(quint8 value) {
    m_sramSize = value;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Country(quint8 value) {
    m_country = value;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Licensee(quint8 value) {
    m_licensee = value;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Version(quint8 value) {
    m_version = value;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Checksum(quint16 checksum) {
    return ChecksumFields(checksum ^ 0xFFFF, checksum);
}

SnesImageBuilder& SnesImageBuilder::ChecksumFields(quint16 complement, quint16 checksum) {
    m_complement = complement;
    m_checksum = checksum;
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Blank(qint64 fileOffset, qint64 length) {
    m_blanks.append({fileOffset, QByteArray(length, '\xFF')});
    return *this;
}

SnesImageBuilder& SnesImageBuilder::Bytes(qint64 fileOffset, const QByteArray& bytes) {
    m_patches.append({fileOffset, bytes});
    return *this;
}

qint64 SnesImageBuilder::HeaderOffset() const {
    if (m_headerAt)
        return *m_headerAt;
    return (m_copierHeader ? CopierHeaderSize : 0) + (m_hiRom ? HiRomHeader : LoRomHeader);
}

QByteArray SnesImageBuilder::HeaderBytes() const {
    QByteArray header = m_title.left(TitleLength).leftJustified(TitleLength, ' ');
    const quint8 makeup = m_makeup.value_or(m_hiRom ? 0x21 : 0x20);
    for (const quint8 value :
         {makeup, m_type, m_romSize, m_sramSize, m_country, m_licensee, m_version})
        header += static_cast<char>(value);
    header += Low(m_complement);
    header += High(m_complement);
    header += Low(m_checksum);
    header += High(m_checksum);
    Q_ASSERT(header.size() == HeaderLength);
    return header;
}

QByteArray SnesImageBuilder::Build() const {
    const qint64 prefix = m_copierHeader ? CopierHeaderSize : 0;
    QByteArray image(prefix + m_size, '\0');
    if (m_copierHeader) {
        // Image size in 8 KB blocks, little-endian, as the copier formats store it.
        const quint16 blocks = static_cast<quint16>(m_size / 0x2000);
        image[0] = Low(blocks);
        image[1] = High(blocks);
    }
    if (m_hasHeader)
        Put(image, HeaderOffset(), HeaderBytes());
    for (const Patch& blank : m_blanks)
        Put(image, blank.Offset, blank.Bytes);
    for (const Patch& patch : m_patches)
        Put(image, patch.Offset, patch.Bytes);
    return image;
}

QByteArray SnesImageBuilder::ValidLoRomWithCopierHeader(const QByteArray& title) {
    return SnesImageBuilder().Title(title).LoRom().CopierHeader().Build();
}

QByteArray SnesImageBuilder::HeaderlessLoRom(const QByteArray& title) {
    return SnesImageBuilder().Title(title).LoRom().Build();
}

QByteArray SnesImageBuilder::HiRomWithCopierHeader(const QByteArray& title) {
    return SnesImageBuilder().Title(title).HiRom().CopierHeader().Build();
}
