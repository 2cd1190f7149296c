#include "snapshots/SnapshotWizard.h"

#include "base/ErrorReport.h"
#include "base/EventLog.h"
#include "base/PictureTypes.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "platform/ShortPath.h"
#include "snapshots/ImageFiles.h"

#include <QDir>
#include <QSet>
#include <algorithm>

namespace {

const QString WindowName = QStringLiteral("frmSnapshotWizard");
constexpr qsizetype ListCapacity = 1000;

// Everything after the first ".", lower-cased.
QString ExtensionOf(const QString& image) {
    return image.mid(image.indexOf(QLatin1Char('.')) + 1).toLower();
}

// base + the counter in at least two digits + "." + extension.
QString NumberedName(const QString& base, int counter, const QString& extension) {
    return base + QStringLiteral("%1").arg(counter, 2, 10, QLatin1Char('0')) + QLatin1Char('.') +
           extension;
}

// The folder as a file list keeps it: no trailing separator but for a root.
QString ListingFolder(const QString& folder) {
    QString path = TrimBlanks(folder);
    while (path.size() > 1 && EndsWithSeparator(path))
        path.chop(1);
    return path;
}

} // namespace

SnapshotWizard::SnapshotWizard(AppState& state, Prompts& prompts)
    : m_state(state), m_prompts(prompts) {}

SnapshotWizard::~SnapshotWizard() {
    Unload();
}

QString SnapshotWizard::RomFilename() const {
    return m_romFilename;
}

void SnapshotWizard::SetRomFilename(const QString& fileName) {
    const qsizetype dot = fileName.indexOf(QLatin1Char('.'));
    m_romFilename = dot < 0 ? fileName : fileName.left(dot);
    Load();
}

int SnapshotWizard::ImageCount() const {
    return static_cast<int>(m_newImages.size());
}

QString SnapshotWizard::FilePath() const {
    return m_filePath;
}

void SnapshotWizard::SetImageFilter(std::function<bool(const QString&)> filter) {
    m_imageFilter = std::move(filter);
}

QStringList SnapshotWizard::ListedImages() const {
    QStringList images = ListImages(m_filePath, ListCapacity);
    if (m_imageFilter)
        images.removeIf([this](const QString& image) { return !m_imageFilter(image); });
    return images;
}

void SnapshotWizard::SetFilePath(const QString& folder) {
    Load();
    m_filePath = ListingFolder(folder);
    m_before = ListedImages();
}

void SnapshotWizard::SortForNewImages() {
    Load();
    const QStringList after = ListedImages();
    // The before list is searched no further than the number of images listed now.
    const QStringList searched = m_before.first(std::min(m_before.size(), after.size()));
    const QSet<QString> known(searched.begin(), searched.end());
    for (const QString& image : after) {
        if (!known.contains(image))
            m_newImages.append(image);
    }
    if (m_autoUseFirst && !m_newImages.isEmpty()) {
        UseSnapshot(0);
        m_firstPicUsed = true;
    }
}

bool SnapshotWizard::AutoUseFirst() const {
    return m_autoUseFirst;
}

void SnapshotWizard::SetAutoUseFirst(bool on) {
    m_autoUseFirst = on;
}

bool SnapshotWizard::AutoRenameAll() const {
    return m_autoRenameAll;
}

void SnapshotWizard::SetAutoRenameAll(bool on) {
    m_autoRenameAll = on;
}

bool SnapshotWizard::FirstPicUsed() const {
    return m_firstPicUsed;
}

bool SnapshotWizard::PicExists() const {
    return m_picExists;
}

QStringList SnapshotWizard::NewImages() const {
    return m_newImages;
}

bool SnapshotWizard::UseSnapshot(int index) {
    Load();
    if (index < 0 || index >= m_newImages.size())
        return false;
    if (!m_autoUseFirst && m_prompts.Message(QStringLiteral("Use this snapshot for ") +
                                                 m_romFilename + QLatin1Char('?'),
                                             PromptButtons::YesNo, PromptIcon::Question,
                                             QStringLiteral("Confirm")) != PromptAnswer::Yes) {
        Unload();
        return true;
    }
    const QString image = m_newImages.at(index);
    const QString target = m_romFilename.toLower() + QLatin1Char('.') + ExtensionOf(image);
    if (!MoveToSnapshotFolder(image, target))
        return false;
    m_newImages.removeAt(index);
    if (!m_autoUseFirst)
        m_prompts.Message(QStringLiteral("Image used as snapshot.") + QStringLiteral("\r\n") +
                          QStringLiteral("Filename: (") + target + QLatin1Char(')'));
    Unload();
    return true;
}

bool SnapshotWizard::MoveToSnapshotFolder(const QString& image, const QString& target) {
    QString& folder = m_state.Options.SnapshotFolder;
    if (!EndsWithSeparator(folder))
        folder += QDir::separator();
    const QString procedure = QStringLiteral("cmdUse_Click (frmSnapshotWizard)");
    for (;;) {
        std::optional<FileError> error =
            MoveImage(m_filePath + QDir::separator() + image, folder + target);
        if (!error)
            return true;
        if (error->Number == FileAlreadyExists) {
            if (m_prompts.Message(QStringLiteral("There's already a snapshot for this game, do you "
                                                 "want to replace it with this one?"),
                                  PromptButtons::YesNo,
                                  PromptIcon::Exclamation) != PromptAnswer::Yes)
                return false;
            error = RemoveImage(folder + target);
            if (!error)
                continue;
        }
        ShowErrorReport(m_prompts, error->Number, error->Description, procedure);
        return false;
    }
}

void SnapshotWizard::RenameRemainingImages() {
    const QString base =
        m_filePath + QDir::separator() + m_romFilename.toLower() + QLatin1Char('_');
    int counter = 0; // shared by every image: each takes the next free number
    for (const QString& image : std::as_const(m_newImages)) {
        const QString extension = ExtensionOf(image);
        QString target = NumberedName(base, counter, extension);
        while (!GetShortPath(target).isEmpty())
            target = NumberedName(base, ++counter, extension);
        if (const std::optional<FileError> error =
                MoveImage(m_filePath + QDir::separator() + image, target))
            LogError(error->Number, QStringLiteral("Form_Unload (frmSnapshotWizard)"));
    }
}

void SnapshotWizard::Load() {
    if (m_loaded)
        return;
    m_loaded = true;
    LogWindowLoaded(WindowName);
    const QString snapshot =
        AddBackslash(m_state.Options.SnapshotFolder) + m_romFilename.toLower() + QLatin1Char('.');
    m_picExists = false;
    for (const PictureType& type : FillPictureTypes()) {
        if (!GetShortPath(snapshot + type.Extension).isEmpty())
            m_picExists = true;
    }
}

void SnapshotWizard::Unload() {
    if (!m_loaded)
        return;
    if (m_autoRenameAll)
        RenameRemainingImages();
    m_newImages.clear();
    m_loaded = false;
    LogWindowUnloaded(WindowName);
}
