#include "FuzzSeeds.h"
#include "HeaderImage.h"

#include <string_view>

using namespace header_image;

namespace {

// The first bytes of a sparse image recipe: its length and filler.
std::string Recipe(int length, bool blank = false) {
    const int extra = length - ImageBaseLength;
    return {static_cast<char>(extra & 0xFF), static_cast<char>(extra >> 8), blank ? '\1' : '\0'};
}

std::string ZeroWindow() {
    return std::string(WindowLength, '\0');
}

// A header as a cartridge holds it, one field at a time.
std::string HeaderWindow(std::string_view title, char makeup) {
    std::string window(title);
    window.resize(21, ' '); // +0  title, padded with blanks
    window += makeup;       // +21 speed (high digit) and bank size (low digit)
    window += '\x02';       // +22 ROM type: ROM and Save RAM
    window += '\x09';       // +23 ROM size: 4 megabits
    window += '\x01';       // +24 Save RAM size: 16 kilobits
    window += '\x01';       // +25 country: USA
    window += '\x33';       // +26 licensee: Nintendo
    window += '\x00';       // +27 version 1.0
    window += "\x5A\xA5";   // +28 checksum complement, high byte first
    window += "\xA5\x5A";   // +30 checksum: together with the complement every bit is set
    window.resize(WindowLength, '\0');
    return window;
}

} // namespace

std::vector<FuzzSeed> FuzzSeeds() {
    const char slowLoRom = '\x00';
    const char fastHiRom = '\x31';
    return {
        {"lorom", Recipe(0x8000) + HeaderWindow("LUMBRA LOROM", slowLoRom)},
        {"lorom-copier",
         Recipe(0x8200) + ZeroWindow() + HeaderWindow("LUMBRA LOROM COPIER", slowLoRom)},
        {"hirom-copier", Recipe(0x10200) + ZeroWindow() + ZeroWindow() +
                             HeaderWindow("LUMBRA HIROM COPIER", fastHiRom)},
        {"cut-short", Recipe(0x7FC0 + 30) + HeaderWindow("LUMBRA CUT SHORT", slowLoRom)},
        {"blank", Recipe(0x10200, true)},
        {"caption", "super_mario world (u) [!] ff-iii don't 3rd x-men\t\tNHL '94"},
        {"caption-utf8", "\xC5\xBFuper \xC7\x86 \xC4\xB1\xC4\xB1 stra\xC3\x9F"
                         "e \xCE\xA3\xCE\xAF\xCF\x83"},
        {"path", " C:\\Games/snes/Super_Game.v1.smc |sfc"},
        {"record", "Game One;Game Two;;Game Four |;"},
    };
}
