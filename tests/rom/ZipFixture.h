#pragma once

#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"

#include <QList>

// An entry written with libarchive's zip writer directly, for what QzZipFiles never
// makes: hostile names, links, huge or size-less entries, traditional encryption.
struct RawEntry {
    enum class Kind { File, SymbolicLink, HardLink };
    QByteArray Name{};
    QByteArray Data{};
    Kind Type = Kind::File;
    QByteArray Target{};      // a link's target
    qint64 Zeros = 0;         // that many zero bytes after Data
    bool SizeUnknown = false; // the local header gives no size
};

// A temporary folder with "unzip" (the unzip folder), "games" for archives and
// "outside" for files that no extraction may touch.
class ZipFixture : public LumbraTest {
protected:
    ZipFixture();

    // MakeZip into games/<name>.
    QString MakeZip(const QString& name, const Files& files, const QString& password = {}) {
        return LumbraTest::MakeZip("games/" + name, files, password);
    }
    QString MakeRawZip(const QString& name, const QList<RawEntry>& entries,
                       const char* options = "", const char* passphrase = nullptr);

    // The unzip folder's names, hidden ones included, sorted; or "name=bytes" for each.
    QStringList UnzipFolderNames() const;
    QStringList UnzipFolderFiles() const;
    QByteArray UnzipFile(const QString& name) const { return ReadFile(m_unzip + '/' + name); }
    void EmptyUnzipFolder();

    QString m_unzip;
    ScriptedPrompts m_prompts;
};
