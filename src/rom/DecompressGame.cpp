#include "rom/DecompressGame.h"

#include "app/AppState.h"
#include "app/EventLog.h"
#include "app/Prompts.h"
#include "app/StringHelpers.h"
#include "launch/PathResolver.h"
#include "rom/GameImage.h"
#include "rom/QzUnzipFiles.h"

#include <QFile>
#include <QStringList>

namespace {

// Deletes every file the last extraction made; a file already gone is passed over.
void Flush(AppState& state) {
    const QString folder = AddBackslash(state.Options.UnzipFolder);
    for (const QString& name : state.Unzip.UnzippedFiles) {
        if (!name.isEmpty())
            QFile::remove(folder + name);
    }
}

} // namespace

QString DecompressGame(AppState& state, Prompts& prompts, const QString& argument) {
    if (argument.toLower() == QLatin1String("flush")) {
        Flush(state);
        return QString();
    }

    QString unzipped;
    {
        QzUnzipFiles unzip(state.Unzip, prompts);
        unzip.ZipFileName = PathResolver().ResolveOrKeep(argument);
        unzip.ExtractDir = state.Options.UnzipFolder;
        unzip.HonorDirectories = false;
        if (unzip.Unzip() != UnzipOk)
            prompts.Message(unzip.GetLastMessage());
        for (int index = 0; index < UnzipState::Capacity; ++index) {
            const QString name = unzip.FileList(index);
            if (!name.isEmpty())
                unzipped +=
                    QString::number(index) + QStringLiteral(") ") + name + QStringLiteral("\r\n");
        }
    }
    if (EventLog::DebugMode())
        prompts.Message(QStringLiteral("The following files were unzipped:\r\n\r\n") + unzipped);

    for (const QString& name : state.Unzip.UnzippedFiles) {
        if (!name.isEmpty() && IsGameImage(name))
            return name;
    }
    Flush(state);
    return QString();
}
