#include "support/SnesImageBuilder.h"

QByteArray SnesImageBuilder::Build() const {
    const qint64 copier = m_copierHeader ? 512 : 0;
    QByteArray image(copier + 0x20000, '\0');
    QByteArray header = m_title.left(21).leftJustified(21, ' ');
    for (const int value : m_fields)
        header += static_cast<char>(value >= 0 ? value : (m_hiRom ? 0x21 : 0x20));
    for (const quint16 value : {m_pair.first, m_pair.second})
        header.append(static_cast<char>(value & 0xFF)).append(static_cast<char>(value >> 8));
    QList<std::pair<qint64, QByteArray>> patches = m_patches;
    patches.prepend({copier + (m_hiRom ? 0xFFC0 : 0x7FC0), header});
    for (const auto& [offset, bytes] : patches) {
        if (offset + bytes.size() > image.size())
            image.resize(offset + bytes.size(), '\0');
        image.replace(offset, bytes.size(), bytes);
    }
    return image;
}

QByteArray SnesImageBuilder::ValidLoRomWithCopierHeader(const QByteArray& title) {
    return SnesImageBuilder().Title(title).CopierHeader().Build();
}

QByteArray SnesImageBuilder::HeaderlessLoRom(const QByteArray& title) {
    return SnesImageBuilder().Title(title).Build();
}

QByteArray SnesImageBuilder::HiRomWithCopierHeader(const QByteArray& title) {
    return SnesImageBuilder().Title(title).HiRom().CopierHeader().Build();
}
