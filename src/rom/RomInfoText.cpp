#include "rom/RomInfoText.h"

#include "rom/FormatCaption.h"
#include "rom/RomInfo.h"

#include <utility>

RomInfoText ReadRomInfoText(const QString& path) {
    clsRomInfo rom;
    rom.ReadROM(path);
    static constexpr std::pair<const char*, RomInfoField> Lines[] = {
        {"ROM Size:  ", RomSize},  {"ROM Type:  ", RomType},  {"SRAM Size: ", SramSize},
        {"ROM Speed: ", RomSpeed}, {"Bank Size: ", BankSize}, {"Country:   ", Country},
        {"License:   ", License},  {"Checksum:  ", Checksum},
    };
    RomInfoText info;
    for (const auto& [label, field] : Lines)
        info.Text += QLatin1String(label) + rom.GameData(field) + QStringLiteral("\r\n");
    info.InternalCaption = FormatCaption(rom.GameData(InternalTitle));
    return info;
}
