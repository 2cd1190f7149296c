#include "FuzzSeeds.h"

#include <cstdint>

namespace {

struct StoredEntry {
    std::string name;
    std::string data;
    std::uint32_t mode = 0100644; // a symbolic link is 0120777, its data the target
};

std::uint32_t Crc32(const std::string& bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const unsigned char byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    return ~crc;
}

void Put16(std::string& out, std::uint32_t value) {
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>((value >> 8) & 0xFF);
}

void Put32(std::string& out, std::uint32_t value) {
    Put16(out, value & 0xFFFF);
    Put16(out, value >> 16);
}

// A zip archive of stored (uncompressed) entries, made on a Unix system so that the
// entries' modes count, laid out field by field.
std::string Zip(const std::vector<StoredEntry>& entries) {
    std::string local;
    std::string central;
    for (const StoredEntry& entry : entries) {
        const auto offset = static_cast<std::uint32_t>(local.size());
        std::string common;  // version needed .. name length, shared by both headers
        Put16(common, 20);   // version needed: 2.0
        Put16(common, 0);    // flags
        Put16(common, 0);    // method: stored
        Put16(common, 0);    // time
        Put16(common, 0x21); // date: 1980-01-01
        Put32(common, Crc32(entry.data));
        Put32(common, static_cast<std::uint32_t>(entry.data.size())); // compressed
        Put32(common, static_cast<std::uint32_t>(entry.data.size())); // uncompressed
        Put16(common, static_cast<std::uint32_t>(entry.name.size()));
        Put16(common, 0); // extra field length

        Put32(local, 0x04034B50);
        local += common + entry.name + entry.data;

        Put32(central, 0x02014B50);
        Put16(central, 0x0314); // made by: Unix, 2.0
        central += common;
        Put16(central, 0); // comment length
        Put16(central, 0); // disk
        Put16(central, 0); // internal attributes
        Put32(central, entry.mode << 16);
        Put32(central, offset);
        central += entry.name;
    }
    std::string end;
    Put32(end, 0x06054B50);
    Put16(end, 0);
    Put16(end, 0);
    Put16(end, static_cast<std::uint32_t>(entries.size()));
    Put16(end, static_cast<std::uint32_t>(entries.size()));
    Put32(end, static_cast<std::uint32_t>(central.size()));
    Put32(end, static_cast<std::uint32_t>(local.size()));
    Put16(end, 0); // comment length
    return local + central + end;
}

// count one-byte entries: "f0.txt", "f1.txt", ... and a game last.
std::string ManyEntries(int count) {
    std::vector<StoredEntry> entries;
    for (int index = 0; index + 1 < count; ++index)
        entries.push_back({"f" + std::to_string(index) + ".txt", "x"});
    entries.push_back({"game.smc", std::string(64, '\x5A')});
    return Zip(entries);
}

} // namespace

// An archive may hold at most 100 entries: the seeds reach the limit and pass it (and
// so raise libFuzzer's guess of the longest input to their size, about 10 KiB).
std::vector<FuzzSeed> FuzzSeeds() {
    const std::string game(64, '\x5A');
    return {
        {"game", Zip({{"readme.txt", "Read me."}, {"game.smc", game}})},
        {"nested", Zip({{"roms/", "", 040755}, {"roms/snes/GAME.SFC", game}})},
        {"hostile-names", Zip({{"../evil.smc", game},
                               {"/tmp/abs.smc", game},
                               {"a/../../b.smc", game},
                               {"x/..", game},
                               {"dir\\..\\c.smc", game}})},
        {"links", Zip({{"link.smc", "/etc/passwd", 0120777}, {"link.smc", game}})},
        {"repeats", Zip({{"game.smc", "first"}, {"GAME.smc", game}, {"game.smc", game}})},
        {"controls", Zip({{"roms\x1b]0;title\x07/evil\x1b[2J.smc", game},
                          {"line\nbreak\r.txt", "text"},
                          {"a\x01.smc", "first"},
                          {"a\x02.smc", game}})},
        {"hundred", ManyEntries(100)},
        {"hundred-and-one", ManyEntries(101)},
        {"empty", Zip({})},
    };
}
