#pragma once

#include <QString>
#include <QStringList>

struct CatalogueEntry;

// What is known of one core file of an emulator that takes cores.
struct CoreDescription {
    QString Name;    // readable: "bsnes-mercury Performance"
    QString Library; // the name the core gives itself, which names per-core folders
    bool IsSnes = false;
};

// From the core's .info file in the first of infoFolders that holds one (the text in
// the last parentheses of display_name, else corename; systemid), and from the
// catalogue's table of cores, which names the core when no .info file does and always
// gives the library name when it knows the core.
CoreDescription DescribeCore(const CatalogueEntry& entry, const QString& coreFile,
                             const QStringList& infoFolders);

struct FoundCore {
    QString Path;
    CoreDescription Description;
};

// The SNES cores in the folders, in folder order and by file name; a core file name
// found again in a later folder is passed over.
QList<FoundCore> FindSnesCores(const CatalogueEntry& entry, const QStringList& coreFolders,
                               const QStringList& infoFolders);
