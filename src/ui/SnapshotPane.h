#pragma once

#include <QLabel>
#include <QSize>

// How a picture is shown in a pane: by the largest whole step that fits, with sharp
// pixels (a 256x224 shot at 2x or 3x); a picture larger than the pane is scaled
// down smoothly. The picture keeps its aspect ratio.
struct PictureFit {
    QSize Size;
    bool Sharp = true;
};
PictureFit FitPicture(QSize picture, QSize pane);

// The snapshot pane of the main window: it takes the size the window gives it and
// decodes the picture at the size shown, after the window has first been painted,
// so that a huge picture never holds the first paint back.
class SnapshotPane final : public QLabel {
public:
    // One SNES screen: the pane's shape, and its size at 1x.
    static constexpr QSize ScreenSize{256, 224};

    explicit SnapshotPane(QWidget* parent);

    // False when the file is not a picture that can be read; otherwise it is shown
    // once the event loop runs.
    bool ShowPicture(const QString& path);
    void ShowText(const QString& text);
    // The pane's size within an area: the screen's shape, as large as fits.
    static QSize SizeWithin(QSize area);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ScheduleLoad();
    void Load();

    QString m_path;
    QSize m_pictureSize;
    bool m_painted = false;
    bool m_loadScheduled = false;
};
