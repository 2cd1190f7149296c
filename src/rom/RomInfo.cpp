#include "rom/RomInfo.h"

#include "base/StringHelpers.h"
#include "platform/PathResolver.h"

#include <QFile>
#include <QIODevice>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif
#include <initializer_list>
#include <utility>

namespace {

// Header starts tried in order: LoROM behind a 512-byte copier header, LoROM
// without one, HiROM behind a copier header. A HiROM image without a copier
// header (0xFFC0) is not tried; it falls to the default, the first candidate.
constexpr std::array<qint64, 3> HeaderCandidates = {0x81C0, 0x7FC0, 0x101C0};

// Offsets from the header start.
constexpr int TitleLength = 21;
constexpr int MakeupOffset = 21;
constexpr int TypeOffset = 22;
constexpr int RomSizeOffset = 23;
constexpr int SramSizeOffset = 24;
constexpr int CountryOffset = 25;
constexpr int LicenseeOffset = 26;
constexpr int VersionOffset = 27;
// The probe reads the complement and checksum where the SNES layout puts them
// (+28 and +30). The decoder reads both one byte later (+29 and +31), so its
// checksum's low byte is the first byte after the header. Both are intended.
constexpr int ProbeChecksumOffset = 28;
constexpr int DecodedComplementOffset = 29;
constexpr int DecodedChecksumOffset = 31;
constexpr int DecodedLength = DecodedChecksumOffset + 2;

// Two bytes written as two hex digits each, one after the other, and read back
// as one hex number: the first byte becomes the high byte.
quint16 HexPair(quint8 first, quint8 second) {
    return static_cast<quint16>((first << 8) | second);
}

QString Unknown(int value) {
    return QStringLiteral("Unknown (%1)").arg(value);
}

using CodeTexts = std::initializer_list<std::pair<int, const char*>>;

QString Lookup(const CodeTexts& table, int code) {
    for (const auto& [key, text] : table) {
        if (key == code)
            return QString::fromLatin1(text);
    }
    return Unknown(code);
}

QString RomSpeedText(int digit) {
    return Lookup({{0, "SlowROM (200ns)"}, {3, "FastROM (120ns)"}}, digit);
}

QString BankSizeText(int digit) {
    return Lookup({{0, "LoROM (32kb banks)"}, {1, "HiROM (64kb banks)"}}, digit);
}

QString RomTypeText(int code) {
    return Lookup({{0, "ROM only"},
                   {1, "ROM and RAM"},
                   {2, "ROM and Save RAM"},
                   {3, "ROM and DSP1 chip"},
                   {4, "ROM, RAM and DSP1 chip"},
                   {5, "ROM, Save RAM and DSP1 chip"},
                   {19, "ROM and Super FX chip"},
                   {227, "ROM, RAM and GameBoy data"},
                   {246, "ROM and DSP2 chip"}},
                  code);
}

QString RomSizeText(int code) {
    return Lookup({{8, "2 MegaBits"},
                   {9, "4 MegaBits"},
                   {10, "8 MegaBits"},
                   {11, "16 MegaBits"},
                   {12, "32 MegaBits"}},
                  code);
}

QString SramSizeText(int code) {
    return Lookup({{0, "None"}, {1, "16 KiloBits"}, {2, "32 KiloBits"}, {3, "64 KiloBits"}}, code);
}

QString CountryText(int code) {
    return Lookup({{0, "Japan (NTSC)"},
                   {1, "USA (NTSC)"},
                   {2, "Australia, Europe, Oceania and Asia (PAL)"},
                   {3, "Sweden (PAL)"},
                   {4, "Finland (PAL)"},
                   {5, "Denmark (PAL)"},
                   {6, "France (PAL)"},
                   {7, "Holland (PAL)"},
                   {8, "Spain (PAL)"},
                   {9, "Germany, Austria and Switzerland (PAL)"},
                   {10, "Italy (PAL)"},
                   {11, "Hong Kong and China (PAL)"},
                   {12, "Indonesia (PAL)"},
                   {13, "Korea (PAL)"}},
                  code);
}

// The licensee names by code. Some companies hold several codes and some names
// repeat in other spellings; every entry is kept as listed. Unlisted codes are empty.
void FillLicenseeTable(std::array<QString, 256>& table) {
    static const CodeTexts names = {
        {1, "Nintendo"},
        {3, "Imagineer -Zoom"},
        {5, "Zamuse"},
        {6, "Falcom"},
        {8, "Capcom"},
        {9, "HOT -B"},
        {10, "Jaleco"},
        {11, "Coconuts"},
        {12, "Rage Software"},
        {14, "Technos"},
        {15, "Mebio Software"},
        {18, "Gremlin Graphics"},
        {19, "Electronic Arts"},
        {21, "COBRA Team"},
        {22, "Human/Field"},
        {23, "KOEI"},
        {24, "Hudson Soft"},
        {26, "Yanoman"},
        {28, "Tecmo"},
        {30, "Open System"},
        {31, "Virgin Games"},
        {32, "KSS"},
        {33, "Sunsoft"},
        {34, "POW"},
        {35, "Micro World"},
        {38, "Enix"},
        {39, "Loriciel/Electro Brain"},
        {40, "Kemco"},
        {41, "Seta Co.,Ltd."},
        {45, "Visit Co.,Ltd."},
        {49, "Carrozzeria"},
        {50, "Dynamic"},
        {51, "Nintendo"},
        {52, "Magifact"},
        {53, "Hect"},
        {60, "Empire Software"},
        {61, "Loriciel"},
        {64, "Seika Corp."},
        {65, "UBI Soft"},
        {70, "System 3"},
        {71, "Spectrum Holobyte"},
        {73, "Irem"},
        {75, "Raya Systems/Sculptured Software"},
        {76, "Renovation Products"},
        {77, "Malibu Games/Black Pearl"},
        {79, "U.S.Gold"},
        {80, "Absolute Entertainment"},
        {81, "Acclaim"},
        {82, "Activision"},
        {83, "American Sammy"},
        {84, "GameTek"},
        {85, "Hi Tech Expressions"},
        {86, "LJN Toys"},
        {90, "Mindscape"},
        {93, "Tradewest"},
        {95, "American Softworks Corp."},
        {96, "Titus"},
        {97, "Virgin Interactive Entertainment"},
        {98, "Maxis"},
        {103, "Ocean"},
        {105, "Electronic Arts"},
        {107, "Laser Beam"},
        {110, "Elite"},
        {111, "Electro Brain"},
        {112, "Infogrames"},
        {113, "Interplay"},
        {114, "LucasArts"},
        {115, "Parker Brothers"},
        {117, "STORM"},
        {120, "THQ Software"},
        {121, "Accolade Inc."},
        {122, "Triffix Entertainment"},
        {124, "Microprose"},
        {127, "Kemco"},
        {128, "Misawa"},
        {129, "Teichio"},
        {130, "Namco Ltd."},
        {131, "Lozc"},
        {132, "KOEI"},
        {134, "Tokuma Shoten Intermedia"},
        {136, "DATAM -Polystar"},
        {139, "Bullet-Proof Software"},
        {140, "Vic Tokai"},
        {142, "Character Soft"},
        {143, "I'Max"},
        {144, "Takara"},
        {145, "CHUN Soft"},
        {146, "Video System Co., Ltd."},
        {147, "BEC149 Varie"},
        {151, "Kaneco"},
        {153, "Pack in Video"},
        {154, "Nichibutsu"},
        {155, "TECMO"},
        {156, "Imagineer Co."},
        {160, "Telenet"},
        {164, "Konami"},
        {165, "K.Amusement Leasing Co."},
        {167, "Takara"},
        {169, "Technos Jap."},
        {170, "JVC"},
        {172, "Toei Animation"},
        {173, "Toho"},
        {175, "Namco Ltd."},
        {177, "ASCII Co.Activison"},
        {178, "BanDai America"},
        {180, "Enix"},
        {182, "Halken"},
        {186, "Culture Brain"},
        {187, "Sunsoft"},
        {188, "Toshiba EMI"},
        {189, "Sony Imagesoft"},
        {191, "Sammy"},
        {192, "Taito"},
        {194, "Kemco"},
        {195, "Square"},
        {196, "Tokuma Soft"},
        {197, "Data East"},
        {198, "Tonkin House"},
        {200, "KOEI"},
        {202, "Konami USA"},
        {203, "NTVIC"},
        {205, "Meldac"},
        {206, "Pony Canyon"},
        {207, "Sotsu Agency / Sunrise"},
        {208, "Disco/Taito"},
        {209, "Sofel"},
        {210, "Quest Corp."},
        {211, "Sigma"},
        {214, "Naxat"},
        {216, "Capcom Co., Ltd."},
        {217, "Banpresto"},
        {218, "Tomy"},
        {219, "Acclaim"},
        {221, "NCS"},
        {222, "Human Entertainment"},
        {223, "Altron"},
        {224, "Jaleco"},
        {226, "Yutaka"},
        {228, "T & ESoft"},
        {229, "EPOCH Co.,Ltd."},
        {231, "Athena"},
        {232, "Asmik"},
        {233, "Natsume"},
        {234, "King Records"},
        {235, "Atlus"},
        {236, "Sony Music Entertainment"},
        {238, "IGS"},
        {241, "Motown Software"},
        {242, "Left Field Entertainment"},
        {243, "Beam Software"},
        {244, "Tec Magik"},
        {249, "Cybersoft"},
        {255, "Hudson Soft"},
    };
    for (const auto& [code, name] : names)
        table[code] = QString::fromLatin1(name);
}

// Normal files only: an empty name or a folder is not a game file.
bool RomFileExists(const QString& filename, PathResolver& resolver) {
    return !filename.isEmpty() && resolver.IsFile(filename);
}

} // namespace

QByteArray ReadBytesAt(QIODevice& file, qint64 offset, int count) {
    QByteArray bytes;
#ifdef Q_OS_UNIX
    // A game file is read with one pread() a field: no seek, no size check, no buffer.
    const auto* native = qobject_cast<const QFile*>(&file);
    if (native && native->handle() >= 0 && offset >= 0) {
        bytes.resize(count);
        const ssize_t got = ::pread(native->handle(), bytes.data(), static_cast<size_t>(count),
                                    static_cast<off_t>(offset));
        bytes.resize(got > 0 ? static_cast<qsizetype>(got) : 0);
    } else
#endif
        if (offset < file.size() && file.seek(offset)) {
        bytes = file.read(count);
    }
    bytes.append(count - bytes.size(), '\0');
    return bytes;
}

qint64 FindHeaderPosition(QIODevice& file) {
    return FindHeaderPosition(
        [&file](qint64 offset, int count) { return ReadBytesAt(file, offset, count); });
}

qint64 FindHeaderPosition(const std::function<QByteArray(qint64 offset, int count)>& readAt) {
    std::size_t i = 0;
    while (i < HeaderCandidates.size()) {
        const qint64 candidate = HeaderCandidates[i];
        const QByteArray pair = readAt(candidate + ProbeChecksumOffset, 4);
        const auto byteAt = [&pair](int index) { return static_cast<quint8>(pair[index]); };
        const quint16 complement = HexPair(byteAt(0), byteAt(1));
        const quint16 checksum = HexPair(byteAt(2), byteAt(3));
        if (complement == 0xFFFF && checksum == 0xFFFF) {
            // An erased or padded area. A blank first candidate skips the second.
            if (candidate == HeaderCandidates.back())
                return 0;
            i += 2;
        } else if ((complement | checksum) == 0xFFFF) {
            break;
        } else {
            ++i;
        }
    }
    if (i >= HeaderCandidates.size())
        i = 0;
    return HeaderCandidates[i] + 1;
}

clsRomInfo::clsRomInfo() {
    FillLicenseeTable(m_licenseeTable);
}

bool clsRomInfo::ReadROM(const QString& filename) {
    PathResolver resolver;
    if (!RomFileExists(filename, resolver))
        return false;
    QFile file(resolver.ResolveOrKeep(filename));
    if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        ReadROM(file);
    return false;
}

void clsRomInfo::ReadROM(QIODevice& file) {
    DecodeHeader(file, FindHeaderPosition(file));
}

QString clsRomInfo::GameData(int field) const {
    if (field < 1 || field > static_cast<int>(m_header.Fields.size()))
        return QString();
    return m_header.Fields[field - 1];
}

void clsRomInfo::DecodeHeader(QIODevice& file, qint64 position) {
    if (position < 1)
        return;
    const QByteArray header = ReadBytesAt(file, position - 1, DecodedLength);
    const auto byteAt = [&header](int offset) { return static_cast<quint8>(header[offset]); };
    auto& fields = m_header.Fields;
    const auto set = [&fields](RomInfoField field, const QString& text) {
        fields[field - 1] = text;
    };

    set(InternalTitle, TrimBlanks(QString::fromLatin1(header.left(TitleLength))));
    const quint8 makeup = byteAt(MakeupOffset);
    set(RomSpeed, RomSpeedText(makeup >> 4));
    set(BankSize, BankSizeText(makeup & 0x0F));
    set(RomType, RomTypeText(byteAt(TypeOffset)));
    set(RomSize, RomSizeText(byteAt(RomSizeOffset)));
    set(SramSize, SramSizeText(byteAt(SramSizeOffset)));
    set(Country, CountryText(byteAt(CountryOffset)));
    set(License, m_licenseeTable[byteAt(LicenseeOffset)]);
    set(GameVersion, QStringLiteral("1.%1").arg(byteAt(VersionOffset)));
    set(InverseChecksum, QString::number(HexPair(byteAt(DecodedComplementOffset),
                                                 byteAt(DecodedComplementOffset + 1))));
    set(Checksum,
        QString::number(HexPair(byteAt(DecodedChecksumOffset), byteAt(DecodedChecksumOffset + 1))));
}
