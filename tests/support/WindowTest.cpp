#include "support/WindowTest.h"
#include "app/Startup.h"
#include "support/EnvironmentChange.h"
#include "support/StandInEmulator.h"
#include "support/WidgetSteps.h"

#include <QApplication>
#include <QComboBox>
#include <QMenu>

QString WindowTest::SeedGames(const QString& folderName, const Games& games,
                              const QString& defaultGroup, const QStringList& groups) {
    const QString folder = MakeFolder(folderName) + '/';
    AppState seed;
    seed.GameFolders.AddGameFolder(folder);
    for (const QString& group : groups)
        seed.Groups.AddGroup(group);
    seed.Options.DefaultGroup = defaultGroup;
    SaveEverything(seed);
    for (const auto& [file, line] : games) {
        WriteFile(folderName + '/' + file, "x");
        seed.Store.Write("Game List\\" + folder.toLower(), file.toLower(), line);
    }
    seed.Store.Sync();
    return folder;
}

QString WindowTest::WithMednafenOnPath(const std::function<void()>& steps) {
    const QString bin = MakeFolder("bin");
    WriteStandInScript(bin + "/mednafen", "exit 0");
    const EnvironmentChange onPath("PATH", bin);
    steps();
    return bin;
}

QStringList WindowTest::Listed() const {
    return ItemTexts(List());
}

QString WindowTest::Selected() const {
    return List()->currentItem() ? List()->currentItem()->text() : QString();
}

void WindowTest::ChooseGroup(const QString& group) {
    PickFromList(Control<QComboBox>("cboGroupList"), group);
}

void WindowTest::Type(const QString& text) {
    for (const QChar c : text)
        QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
}

void WindowTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void WindowTest::OpenGameMenu() {
    QTest::keyClick(List(), Qt::Key_Menu);
    EXPECT_TRUE(Control<QMenu>("mnuRomMenu")->isVisible());
    Control<QMenu>("mnuRomMenu")->hide();
}

void WindowTest::ChooseFromGameMenu(const QString& entry) {
    OpenGameMenu();
    for (QAction* action : m_window->findChildren<QAction*>()) {
        if (action->objectName() == entry || (action->isVisible() && action->data() == entry)) {
            ASSERT_TRUE(action->isEnabled()) << entry.toStdString();
            return action->trigger();
        }
    }
    ADD_FAILURE() << "no entry " << entry.toStdString();
}
