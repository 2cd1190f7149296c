#include "ZipFixture.h"

#include <QDir>
#include <QFile>
#include <archive.h>
#include <archive_entry.h>

ZipFixture::ZipFixture() {
    m_unzip = MakeFolder("unzip");
    MakeFolder("games");
    MakeFolder("outside");
    m_state.Options.UnzipFolder = m_unzip + QLatin1Char('/');
}

QString ZipFixture::MakeRawZip(const QString& name, const QList<RawEntry>& entries,
                               const char* options, const char* passphrase) {
    const QString path = TempPath("games/" + name);
    archive* writer = archive_write_new();
    archive_write_set_format_zip(writer);
    EXPECT_EQ(archive_write_set_options(writer, options), ARCHIVE_OK);
    if (passphrase)
        archive_write_set_passphrase(writer, passphrase);
    archive_write_open_filename(writer, QFile::encodeName(path).constData());
    const QByteArray zeros(1 << 20, '\0');
    for (const RawEntry& raw : entries) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, raw.Name.constData());
        archive_entry_set_perm(entry, 0644);
        archive_entry_set_filetype(entry, AE_IFREG);
        if (raw.Type == RawEntry::Kind::SymbolicLink) {
            archive_entry_set_filetype(entry, AE_IFLNK);
            archive_entry_set_symlink(entry, raw.Target.constData());
        } else if (raw.Type == RawEntry::Kind::HardLink) {
            archive_entry_set_hardlink(entry, raw.Target.constData());
        }
        if (!raw.SizeUnknown && raw.Type == RawEntry::Kind::File)
            archive_entry_set_size(entry, raw.Data.size() + raw.Zeros);
        EXPECT_EQ(archive_write_header(writer, entry), ARCHIVE_OK) << archive_error_string(writer);
        archive_entry_free(entry);
        archive_write_data(writer, raw.Data.constData(), raw.Data.size());
        for (qint64 left = raw.Zeros; left > 0; left -= zeros.size())
            archive_write_data(writer, zeros.constData(), std::min<qint64>(left, zeros.size()));
    }
    EXPECT_EQ(archive_write_close(writer), ARCHIVE_OK);
    archive_write_free(writer);
    return path;
}

QStringList ZipFixture::UnzipFolderNames() const {
    return QDir(m_unzip).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

QStringList ZipFixture::UnzipFolderFiles() const {
    QStringList files;
    for (const QString& name : UnzipFolderNames())
        files << name + QLatin1Char('=') + QString::fromLatin1(UnzipFile(name));
    return files;
}

void ZipFixture::EmptyUnzipFolder() {
    for (const QString& name : UnzipFolderNames())
        QFile::remove(m_unzip + QLatin1Char('/') + name);
}
