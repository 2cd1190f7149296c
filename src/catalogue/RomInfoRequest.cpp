#include "catalogue/RomInfoRequest.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "catalogue/PlayStatistics.h"
#include "rom/DecompressGame.h"
#include "rom/GameImage.h"

RomInfoRequest PrepareRomInfo(AppState& state, Prompts& prompts, int index) {
    const GameRecord& game = state.Games.Records[index];
    const QString folder = AddBackslash(game.Folder);
    RomInfoRequest request{game.Filename, folder,     game.Filename, folder,
                           game.Caption,  game.Group, index};
    request.PlayStatistics = PlayStatisticsText(ReadPlayStatistics(state.Store, game));
    request.Zipped = IsZippedGame(game.Filename);
    if (!request.Zipped)
        return request;
    const PromptAnswer answer = prompts.Message(
        QStringLiteral("The file you are requesting information for is compressed.\r\n"
                       "Do you want to decompress it and retrieve the additional internal data?"),
        PromptButtons::YesNo, PromptIcon::Question);
    if (answer != PromptAnswer::Yes) {
        request.ExtractData = false;
        return request;
    }
    request.RomFilename =
        DecompressGame(state.Unzip, state.Options.UnzipFolder, prompts, folder + game.Filename);
    request.RomPath = AddBackslash(state.Options.UnzipFolder);
    LogEvent(QStringLiteral("Decompressed: ") + folder + game.Filename);
    return request;
}

void FinishRomInfo(AppState& state, Prompts& prompts, const RomInfoRequest& request) {
    if (request.Zipped)
        DecompressGame(state.Unzip, state.Options.UnzipFolder, prompts, QStringLiteral("flush"));
}
