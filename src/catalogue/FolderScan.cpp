#include "catalogue/FolderScan.h"

#include "base/EventLog.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "platform/PathResolver.h"

#include <QDir>
#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr int SubscriptOutOfRange = 9;

// The folder as a file list shows it: without trailing separators, except for a root.
QString ListingFolder(const QString& folder) {
    QString path = TrimBlanks(folder);
    while (path.size() > 1 && EndsWithSeparator(path))
        path.chop(1);
    return path;
}

// The patterns are all "*.extension": a suffix test is all they need.
bool IsGameFile(const QString& name, const QString& lowerName) {
    static const QStringList suffixes = [] {
        QStringList list = GameFilePatterns.split(QLatin1Char(';'));
        for (QString& pattern : list)
            pattern.remove(0, 1);
        return list;
    }();
    // A name that ends in ASCII compares in lower case; beyond ASCII, case folding
    // may match where lower case does not ("ſ" and "s").
    const bool asciiEnd = std::all_of(name.end() - std::min<qsizetype>(name.size(), 4), name.end(),
                                      [](QChar c) { return c.unicode() < 0x80; });
    return std::any_of(suffixes.begin(), suffixes.end(), [&](const QString& suffix) {
        return asciiEnd ? lowerName.endsWith(suffix) : name.endsWith(suffix, Qt::CaseInsensitive);
    });
}

struct FolderListing {
    QString Resolved;                // the folder as it exists, ending in a separator
    std::vector<QString> LowerNames; // of the game files, one for each set of case twins
    QStringList LeftOut;             // log lines, written after the folder's own line
    ScanReport Report;
};

// The folder's game files sorted by name without regard to case, hidden files left
// out. Of names that differ only in letter case, which the catalogue cannot tell
// apart, one stays: the file that the path resolver finds for them.
FolderListing ListGameFiles(const QString& folder, PathResolver& resolver) {
    FolderListing listing;
    listing.Resolved =
        resolver.Resolve(EndsWithSeparator(folder) ? folder : folder + QLatin1Char('/'));
    if (listing.Resolved.isEmpty())
        return listing;
    std::vector<std::pair<QString, QString>> games; // lower-case name, name
    for (const PathResolver::Entry& entry : resolver.Entries(listing.Resolved)) {
        if (!entry.IsFile || entry.IsHidden || !IsGameFile(entry.Name, entry.LowerName))
            continue;
        if (entry.IsUndecodable) {
            ++listing.Report.LeftOutNames;
            listing.LeftOut.append(
                QStringLiteral("Left out a file whose name is not valid UTF-8: ") + entry.Name);
            continue;
        }
        games.emplace_back(entry.LowerName, entry.Name);
    }
    std::sort(games.begin(), games.end());
    for (auto group = games.begin(); group != games.end();) {
        const auto end = std::find_if(
            group, games.end(), [&group](const auto& game) { return game.first != group->first; });
        // The one the resolver opens for the catalogue's lower-case name: that name
        // itself when it exists, otherwise the first in sorted order.
        const auto kept =
            std::find_if(group, end, [](const auto& game) { return game.first == game.second; });
        const QString& name = (kept != end ? kept : group)->second;
        listing.LowerNames.push_back(group->first);
        for (auto twin = group; twin != end; ++twin) {
            if (twin->second == name)
                continue;
            ++listing.Report.LeftOutCaseTwins;
            listing.LeftOut.append(QStringLiteral("Left out ") + twin->second +
                                   QStringLiteral(": same name as ") + name +
                                   QStringLiteral(" in other letter case"));
        }
        group = end;
    }
    return listing;
}

void LogLeftOut(const QStringList& lines) {
    for (const QString& line : lines)
        LogEvent(line);
}

} // namespace

ScanReport GameList_ImportFileList(AppState& state, const QString& folder, PathResolver& resolver) {
    LogEvent(QStringLiteral("Importing files from: ") + folder + QStringLiteral("..."));

    const QString listingFolder = ListingFolder(folder);
    FolderListing listing = ListGameFiles(listingFolder, resolver);
    const auto& files = listing.LowerNames;
    const int folderIndex = state.GameFolders.FindGameFolderIndex(folder);
    if (folderIndex >= 0)
        state.GameFolders.Entries[folderIndex].RomCount = static_cast<qint16>(files.size());
    const qsizetype fileCount = static_cast<qsizetype>(files.size());

    // The separator is appended unconditionally, so a root folder ends in two.
    const QString recordFolder = LowerCase(listingFolder) + QDir::separator();
    GameList& games = state.Games;
    int slot = games.Count(); // the list is packed: each file takes the next free slot
    for (qsizetype i = 0; i < fileCount; ++i, ++slot) {
        if (slot >= GameList::Capacity) {
            LogError(SubscriptOutOfRange, QStringLiteral("GameList_ImportFileList"));
            listing.Report.LeftOutFull = static_cast<int>(fileCount - i);
            LogLeftOut(listing.LeftOut);
            return listing.Report;
        }
        GameRecord& record = games.Records[slot];
        record.Group = FixedGroup;
        record.Folder = recordFolder;
        record.Filename = files[static_cast<std::size_t>(i)];
        record.Caption = record.Filename;
        record.Emulator = QStringLiteral("Default");
        record.Profile = QStringLiteral("Default");
        // Deliberately -1 (true), not the 1 that the settings dialog stores.
        if (state.Options.UseBaseFilenames == -1)
            record.Caption =
                record.Filename.left(InStrLast(record.Filename, QStringLiteral(".")) - 1);
    }
    LogEvent(QStringLiteral("Done."), true);
    LogLeftOut(listing.LeftOut);
    return listing.Report;
}

ScanReport GameList_ImportFileList(AppState& state, const QString& folder) {
    PathResolver resolver;
    return GameList_ImportFileList(state, folder, resolver);
}
