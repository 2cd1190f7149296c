#include "rom/ZippedGame.h"

#include "rom/DecompressGame.h"
#include "rom/QzUnzipFiles.h"

ZippedGame::ZippedGame(const QString& archive, Prompts& prompts) {
    if (!m_folder.isValid()) {
        // An empty extract folder would mean the current one.
        m_result = UnzipNoFolder;
        m_unzipped.UnzipMessage = m_folder.errorString();
        return;
    }
    QzUnzipFiles unzip(m_unzipped, prompts);
    unzip.HonorDirectories = false;
    m_result = unzip.Unzip(archive, m_folder.path());
    m_game = FirstGameImage(m_unzipped);
}

bool ZippedGame::IsArchive(const QString& fileName) {
    return fileName.right(3).toLower() == QLatin1String("zip");
}

QString ZippedGame::GamePath() const {
    return m_game.isEmpty() ? QString() : m_folder.filePath(m_game);
}
