#include "ui/SnapshotPane.h"

#include <QImageReader>
#include <QPixmap>
#include <QTimer>
#include <algorithm>

PictureFit FitPicture(QSize picture, QSize pane) {
    if (picture.isEmpty() || pane.isEmpty())
        return {QSize(), true};
    const int step = std::min(pane.width() / picture.width(), pane.height() / picture.height());
    if (step >= 1)
        return {picture * step, true};
    return {picture.scaled(pane, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)), false};
}

SnapshotPane::SnapshotPane(QWidget* parent) : QLabel(parent) {
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
}

QSize SnapshotPane::SizeWithin(QSize area) {
    return ScreenSize.scaled(area.expandedTo(QSize(1, 1)), Qt::KeepAspectRatio);
}

bool SnapshotPane::ShowPicture(const QString& path) {
    QImageReader reader(path);
    if (!reader.canRead())
        return false;
    m_path = path;
    m_pictureSize = reader.size();
    ScheduleLoad();
    return true;
}

void SnapshotPane::ShowText(const QString& text) {
    m_path.clear();
    clear();
    setText(text);
}

void SnapshotPane::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!m_painted) {
        m_painted = true;
        if (!m_path.isEmpty())
            ScheduleLoad();
    }
}

void SnapshotPane::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (!m_path.isEmpty())
        ScheduleLoad();
}

// Many changes in a row (a resize drag, a run of arrow keys) decode once.
void SnapshotPane::ScheduleLoad() {
    if (!m_painted || m_loadScheduled)
        return;
    m_loadScheduled = true;
    QTimer::singleShot(0, this, [this] {
        m_loadScheduled = false;
        Load();
    });
}

void SnapshotPane::Load() {
    const QSize inside = contentsRect().size();
    if (m_path.isEmpty() || inside.isEmpty())
        return;
    QImageReader reader(m_path);
    PictureFit fit;
    QImage picture;
    if (m_pictureSize.isValid()) {
        fit = FitPicture(m_pictureSize, inside);
        if (!fit.Sharp)
            reader.setScaledSize(fit.Size);
        picture = reader.read();
    } else { // a format that tells its size only once decoded
        picture = reader.read();
        fit = FitPicture(picture.size(), inside);
    }
    if (picture.isNull() || fit.Size.isEmpty()) {
        ShowText(QStringLiteral("No snapshot"));
        return;
    }
    if (picture.size() != fit.Size)
        picture = picture.scaled(fit.Size, Qt::IgnoreAspectRatio,
                                 fit.Sharp ? Qt::FastTransformation : Qt::SmoothTransformation);
    setPixmap(QPixmap::fromImage(picture));
}
