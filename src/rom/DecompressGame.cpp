#include "rom/DecompressGame.h"

#include "app/AppState.h"
#include "app/EventLog.h"
#include "app/Prompts.h"
#include "app/StringHelpers.h"
#include "launch/PathResolver.h"
#include "rom/QzUnzipFiles.h"
#include "rom/UnzipState.h"

#include <QFile>
#include <QStringList>

namespace {

// The game image extensions, in the order they are tried.
const QStringList GameExtensions = {
    QStringLiteral("1"),   QStringLiteral("058"), QStringLiteral("078"), QStringLiteral("fig"),
    QStringLiteral("sfc"), QStringLiteral("smc"), QStringLiteral("swc")};

bool IsGameImage(const QString& name) {
    const int dot = InStrLast(name, QStringLiteral("."));
    if (dot == 0 || dot == name.size())
        return false;
    return GameExtensions.contains(name.mid(dot).toLower());
}

// Deletes every file the last extraction made; a file already gone is passed over.
void Flush(AppState& state) {
    const QString folder = AddBackslash(state.Options.UnzipFolder);
    for (const QString& name : state.Unzip.UnzippedFiles) {
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

    const QString game = FirstGameImage(state.Unzip);
    if (game.isEmpty())
        Flush(state);
    return game;
}
