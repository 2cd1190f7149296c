#include "rom/DecompressGame.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "platform/PathResolver.h"
#include "rom/GameImage.h"
#include "rom/QzUnzipFiles.h"
#include "rom/UnzipState.h"

#include <QFile>
#include <QStringList>

namespace {

// Deletes every file the last extraction made; a file already gone is passed over.
void Flush(const UnzipState& unzipState, const QString& unzipFolder) {
    const QString folder = AddBackslash(unzipFolder);
    for (const QString& name : unzipState.UnzippedFiles) {
        if (!name.isEmpty())
            QFile::remove(folder + name);
    }
}

} // namespace

QString FirstGameImage(const UnzipState& unzipped) {
    for (const QString& name : unzipped.UnzippedFiles) {
        if (!name.isEmpty() && IsGameImage(name))
            return name;
    }
    return QString();
}

void KeepExtractedFiles(UnzipState& unzipState) {
    for (const QString& name : unzipState.UnzippedFiles) {
        if (!name.isEmpty())
            unzipState.KeptForPlay.append(name);
    }
}

void FlushKeptFiles(UnzipState& unzipState, const QString& unzipFolder) {
    const QString folder = AddBackslash(unzipFolder);
    for (const QString& name : std::as_const(unzipState.KeptForPlay))
        QFile::remove(folder + name);
    unzipState.KeptForPlay.clear();
}

QString DecompressGame(UnzipState& unzipState, const QString& unzipFolder, Prompts& prompts,
                       const QString& argument) {
    if (argument.toLower() == QLatin1String("flush")) {
        Flush(unzipState, unzipFolder);
        return QString();
    }

    QString unzipped;
    {
        QzUnzipFiles unzip(unzipState, prompts);
        unzip.ZipFileName = PathResolver().ResolveOrKeep(argument);
        unzip.ExtractDir = unzipFolder;
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

    const QString game = FirstGameImage(unzipState);
    if (game.isEmpty())
        Flush(unzipState, unzipFolder);
    return game;
}
