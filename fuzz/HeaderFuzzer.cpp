#include "FuzzCheck.h"
#include "HeaderImage.h"
#include "TextChecks.h"
#include "base/StringHelpers.h"
#include "rom/RomInfo.h"

#include <QBuffer>
#include <QFile>
#include <climits>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr int TitleLength = 21;

bool IsHeaderPosition(qint64 position) {
    return position == 0 || position == 0x7FC1 || position == 0x81C1 || position == 0x101C1;
}

bool IsChecksumText(const QString& text) {
    bool ok = false;
    const uint value = text.toUInt(&ok);
    return ok && value <= 0xFFFF;
}

// ReadBytesAt gives exactly count bytes: the file's own, then zeros past its end.
void CheckReadBytesAt(QIODevice& file, const QByteArray& image, qint64 offset, int count) {
    QByteArray expected = offset < image.size() ? image.mid(offset, count) : QByteArray();
    expected.append(count - expected.size(), '\0');
    FUZZ_CHECK(ReadBytesAt(file, offset, count) == expected);
}

void CheckDecodedFields(const clsRomInfo& info, QIODevice& file, qint64 position) {
    if (position == 0) {
        for (int field = BankSize; field <= SramSize; ++field)
            FUZZ_CHECK(info.GameData(field).isEmpty());
        return;
    }
    const QByteArray title = ReadBytesAt(file, position - 1, TitleLength);
    FUZZ_CHECK(info.GameData(InternalTitle) == TrimBlanks(QString::fromLatin1(title)));
    // Every field but the title and the licensee, which may be unlisted, has a text.
    for (int field = BankSize; field <= SramSize; ++field) {
        if (field != InternalTitle && field != License)
            FUZZ_CHECK(!info.GameData(field).isEmpty());
    }
    FUZZ_CHECK(info.GameData(GameVersion).startsWith(QLatin1String("1.")));
    FUZZ_CHECK(IsChecksumText(info.GameData(Checksum)));
    FUZZ_CHECK(IsChecksumText(info.GameData(InverseChecksum)));
}

// The image as an open file that lives in memory: real files take the reader's
// pread() path, buffers its QIODevice path.
bool OpenInMemory(QFile& file, const QByteArray& image) {
    const int fd = memfd_create("header-fuzz", MFD_CLOEXEC);
    if (fd < 0)
        return false;
    qsizetype written = 0;
    while (written < image.size()) {
        const ssize_t got =
            ::write(fd, image.constData() + written, static_cast<size_t>(image.size() - written));
        if (got <= 0)
            break;
        written += got;
    }
    if (written == image.size() &&
        file.open(fd, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return true;
    ::close(fd);
    return false;
}

void CheckHeaderReader(const QByteArray& image, QIODevice& file) {
    const qint64 position = FindHeaderPosition(file);
    FUZZ_CHECK(IsHeaderPosition(position));
    for (const qint64 offset :
         {qint64(0), position - 1, image.size() - 1, image.size(), image.size() + 7}) {
        if (offset >= 0) {
            for (const int count : {0, 1, 33})
                CheckReadBytesAt(file, image, offset, count);
        }
    }

    clsRomInfo info;
    info.ReadROM(file);
    CheckDecodedFields(info, file, position);
    for (const int field : {INT_MIN, -1, 0, 12, INT_MAX})
        FUZZ_CHECK(info.GameData(field).isEmpty());
}

void CheckHeaderReader(const QByteArray& image) {
    QByteArray bytes = image;
    QBuffer buffer(&bytes);
    FUZZ_CHECK(buffer.open(QIODevice::ReadOnly));
    CheckHeaderReader(image, buffer);

    QFile file;
    FUZZ_CHECK(OpenInMemory(file, image));
    CheckHeaderReader(image, file);
}

// The text before the first "|" and the text after it.
std::pair<QString, QString> SplitAtBar(const QString& text) {
    const qsizetype bar = text.indexOf(QLatin1Char('|'));
    if (bar < 0)
        return {text, QString()};
    return {text.left(bar), text.mid(bar + 1)};
}

void CheckText(const QString& text) {
    CheckCaption(text);
    const auto [first, second] = SplitAtBar(text);
    CheckStringHelpers(first, second);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Raw data, not a copy: a read past the input's end then meets the sanitizer.
    const QByteArray input =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    CheckHeaderReader(input);
    CheckHeaderReader(SparseImage(input));
    CheckText(QString::fromLatin1(input));
    CheckText(QString::fromUtf8(input));
    return 0;
}
