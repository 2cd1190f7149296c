#include "catalogue/GameFolderCommands.h"

#include "base/Progress.h"
#include "catalogue/AppState.h"
#include "catalogue/FolderScan.h"
#include "platform/PathResolver.h"

FolderAddResult AddGameFolderAndScan(AppState& state, const QString& folder, Progress& progress) {
    FolderAddResult result;
    if (!state.GameFolders.AddGameFolder(folder))
        return result;
    result.Index = state.GameFolders.FindGameFolderIndex(folder);
    if (result.Index < 0) {
        result.Result = FolderAddResult::LostAfterAdd;
        return result;
    }
    progress.Show();
    PathResolver resolver; // the new folder is listed once, for the scan and the import
    result.Report = GameList_ImportFileList(state, folder, resolver);
    ImportGameList(state, QStringLiteral("reg"), QString(), progress, resolver);
    state.Games.TagDuplicates();
    progress.Close();
    result.Result = FolderAddResult::Added;
    return result;
}

std::optional<ScanReport> RemoveGameFolderAndReload(AppState& state, const QString& folder,
                                                    Progress& progress) {
    if (!state.GameFolders.RemoveGameFolder(folder))
        return std::nullopt;
    return RebuildGameList(state, progress);
}
