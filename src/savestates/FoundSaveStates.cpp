#include "savestates/FoundSaveStates.h"

namespace {

SaveStateItem Item(const EmulatorSaveFile& file, const QString& label) {
    if (file.Exists)
        return {label + QStringLiteral(" Used"), true, file.Path};
    return {label + QStringLiteral(" Empty"), false, QString()};
}

} // namespace

FoundEmulatorSaveStates BuildFoundSaveStates(const QString& emulator,
                                             const QList<EmulatorSaveFile>& files) {
    FoundEmulatorSaveStates menu;
    menu.Emulator = emulator;
    menu.Battery = {QStringLiteral("No SRAM File"), false, QString()};
    for (const EmulatorSaveFile& file : files) {
        switch (file.FileKind) {
        case EmulatorSaveFile::Kind::Slot:
            menu.States.append(Item(file, QStringLiteral("(%1)").arg(file.Slot)));
            break;
        case EmulatorSaveFile::Kind::Auto:
            menu.Others.append(Item(file, QStringLiteral("(Auto)")));
            break;
        case EmulatorSaveFile::Kind::AllSlots:
            menu.Others.append(Item(file, QStringLiteral("(All)")));
            break;
        case EmulatorSaveFile::Kind::Battery:
            if (file.Exists)
                menu.Battery = {QStringLiteral("SRAM File"), true, file.Path};
            break;
        }
    }
    return menu;
}
