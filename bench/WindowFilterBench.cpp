// The game filter in the main window: Lumbra started on the settings store as it
// is (bench/run.sh stores 1,000 scanned games, all "Ungrouped", the default group),
// and a player typing into the filter, keystroke by keystroke, each keystroke timed
// until the window has handled every event it caused (the list refilled, laid out
// and painted).
//
//   lumbra-bench-filter-window   prints the mean and the slowest keystroke
//
// The floor is the toolkit's: a bare QListWidget of the same size, refilled at each
// keystroke with the captions that Lumbra showed for it, taken beforehand.
#include "Keystrokes.h"
#include "catalogue/AppState.h"
#include "launch/Launcher.h"
#include "platform/RealShell.h"
#include "ui/QtPrompts.h"
#include "ui/StartLumbra.h"
#include "ui/frmMain.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>

namespace {

class NoLauncher final : public Launcher {
public:
    void LaunchEmu(int) override {}
};

QStringList Lines(const QListWidget* list) {
    QStringList lines;
    for (int row = 0; row < list->count(); ++row)
        lines.append(list->item(row)->text());
    return lines;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    AppState state;
    QtPrompts prompts;
    RealShell shell(prompts, [](const QString&) { return false; });
    NoLauncher launcher;
    const std::unique_ptr<frmMain> window =
        StartLumbra(state, prompts, shell, launcher, QStringList());
    window->show();
    auto* filter = window->findChild<QLineEdit*>(QStringLiteral("txtFilter"));
    auto* list = window->findChild<QListWidget*>(QStringLiteral("lstGameList"));
    QApplication::processEvents();
    const int games = list->count();

    // "bench game 1" keeps every game for ten keystrokes: the most a keystroke lists.
    const QStringList typed =
        Keystrokes::Typed({QStringLiteral("bench game 12"), QStringLiteral("game 6")});
    QMap<QString, QStringList> shown;
    for (const QString& text : typed) {
        filter->setText(text);
        shown.insert(text, Lines(list));
    }

    QListWidget floorList;
    floorList.setUniformItemSizes(true);
    floorList.resize(list->size());
    floorList.show();
    const auto [lumbra, floor] = Keystrokes::TakeTurns(
        typed,
        [&](const QString& text) {
            filter->setText(text);
            QApplication::processEvents();
        },
        [&](const QString& text) {
            floorList.clear();
            floorList.addItems(shown.value(text));
            QApplication::processEvents();
        });

    std::printf("The game filter in the main window: %d games listed, %lld keystrokes a run "
                "(\"bench game 12\", \"game 6\"), medians of %d runs.\n",
                games, static_cast<long long>(typed.size()), Keystrokes::Runs());
    Keystrokes::Report("window key", lumbra, floor, 5);
    return games > 0 ? 0 : 1;
}
