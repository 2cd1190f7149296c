#include "app/Startup.h"
#include "config/Profiles.h"
#include "support/FileSizeLimit.h"
#include "support/WidgetSteps.h"
#include "support/WindowTest.h"

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>

namespace {

class MainWindowTest : public WindowTest {
protected:
    // Four games in a folder, two groups, one game removed, stored as a last run left them.
    void SeedStore(const QString& defaultGroup = "Ungrouped") {
        const QString folder = MakeFolder("SNES Games") + '/';
        AppState seed;
        seed.GameFolders.AddGameFolder(folder);
        seed.Groups.AddGroup("RPG");
        seed.Groups.AddGroup("Action");
        seed.Options.DefaultGroup = defaultGroup;
        SaveEverything(seed);
        const QStringList games{
            "Zelda.SMC", "Zelda;RPG",      "Mario.sfc",  "Mario;Action",
            "Gone.smc",  "/invisible;RPG", "Tetris.smc", "Tetris;RPG;Snes9X;fast"};
        for (int i = 0; i < games.size(); i += 2) {
            WriteFile("SNES Games/" + games[i], "x");
            seed.Store.Write("Game List\\" + folder.toLower(), games[i].toLower(), games[i + 1]);
        }
        seed.Store.Sync();
    }

    QStringList Listed() const { return ItemTexts(Control<QListWidget>("lstGameList")); }
    void ChooseGroup(const QString& group) {
        PickFromList(Control<QComboBox>("cboGroupList"), group);
    }
    bool StoreHasSettings() const { return SettingsStore().Contains("Settings", "DefaultGroup"); }
};

TEST_F(MainWindowTest, StartsInOrderAndListsTheDefaultGroupOrUngrouped) {
    SeedStore("No Such Group");
    StartWindow({"/DEBUG"});
    EXPECT_TRUE(LogText().startsWith(QStringLiteral(
        "\r\n\r\n=== Loaded frmEventLog ===\r\nEmulator Defined: Nlke\r\nEmulator Defined: Snes9X"
        "\r\nEmulator Defined: ZSnes\r\nImporting Settings from: Registry...Done.\r\nImporting "
        "Game Folders from: Registry...Done.\r\n\r\n=== Loaded frmMain ===\r\nImporting GroupList "
        "from: Registry...Done.\r\nAdding groups to frmMain.cboGroupList...Done.(Loaded "
        "frmLoadGameList)...\r\nGameList array cleared.\r\nImporting files from: ")))
        << LogText().toStdString();
    EXPECT_TRUE(LogText().contains(
        QStringLiteral("Duplicates Found? False\r\n\r\n=== Unloaded frmLoadGameList ===\r\n"
                       "Adding games to list for group: Ungrouped...Done.")));
    EXPECT_TRUE(Control<QMenu>("mnuDevMenu")->menuAction()->isVisible());
    EXPECT_EQ(Control<QComboBox>("cboGroupList")->currentText(), "Ungrouped");
    EXPECT_EQ(Listed(), QStringList());

    ChooseGroup("RPG");
    EXPECT_EQ(Listed(), (QStringList{"Tetris", "Zelda"})); // the removed game stays hidden
    const qsizetype fills = LogText().count("Adding games to list for group");
    ChooseGroup("RPG");
    EXPECT_EQ(LogText().count("Adding games to list for group"), fills);

    // Enter and a double click launch the selected game.
    auto* list = Control<QListWidget>("lstGameList");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    const QPoint first = list->visualItemRect(list->item(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
    EXPECT_EQ(m_launcher.Requests, (QList<int>{m_state.Games.FindGame("title", "Zelda"),
                                               m_state.Games.FindGame("title", "Tetris")}));
}

TEST_F(MainWindowTest, DebugCloseAsksCancelKeepsRunningUnsavedAndYesShowsTheCloseReason) {
    SeedStore();
    m_state.Store.Clear();
    StartWindow({"/debug"});
    QSignalSpy closed(m_window.get(), &frmMain::Closed);

    m_prompts.AnswerMessage(PromptAnswer::Cancel);
    m_window->close();
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(frmEventLog::Instance()->isVisible());
    EXPECT_FALSE(StoreHasSettings());
    EXPECT_EQ(closed.count(), 0);

    m_prompts.AnswerMessage(PromptAnswer::Yes);
    QString logAtEnd;
    RunWhenModal([&logAtEnd](QWidget* log) {
        logAtEnd = frmEventLog::Instance()->Text();
        log->close();
    });
    m_window->close();
    EXPECT_TRUE(logAtEnd.contains(QStringLiteral(
        "\r\n\r\n=== Preparing to unload Lumbra===\r\nExporting Settings to: Registry...Done."
        "\r\nExporting Game Folder list to: Registry...Done.\r\nExporting GroupList to: Registry"
        "...Done.\r\nExporting GameList to: Registry...Done.\r\n\r\nWaiting to End Lumbra (Unload "
        "Mode 0)")))
        << logAtEnd.toStdString();
    EXPECT_EQ(closed.count(), 1);
    EXPECT_TRUE(StoreHasSettings());
    EXPECT_EQ(m_prompts.AskedTexts(), QStringList(2, "View the Event Log before Ending?"));
    EXPECT_EQ(m_prompts.Asked().first().buttons, PromptButtons::YesNoCancel);
    // Without debug mode, Options > Exit asks nothing and saves: the smoke test ends so.
}

TEST_F(MainWindowTest, ACloseThatCannotSaveOffersToTryAgainOrToQuitWithoutSaving) {
    SeedStore();
    StartWindow();
    QSignalSpy closed(m_window.get(), &frmMain::Closed);
    const QByteArray stored = ReadFile(m_state.Store.FilePath());
    {
        const FileSizeLimit fullDisk(0);
        m_prompts.AnswerMessage(PromptAnswer::Yes);    // try again
        m_prompts.AnswerMessage(PromptAnswer::Cancel); // keep Lumbra open
        m_window->close();
        EXPECT_TRUE(m_window->isVisible());
        EXPECT_EQ(closed.count(), 0);
        const QString failure =
            "Could not save the settings to " + m_state.Store.FilePath() + ": File too large";
        EXPECT_EQ(m_prompts.AskedTexts(),
                  QStringList(2, failure + "\r\n\r\nTry again? No quits without saving; "
                                           "Cancel keeps Lumbra open."));
        EXPECT_EQ(m_prompts.Asked().first().icon, PromptIcon::Critical);

        m_prompts.AnswerMessage(PromptAnswer::No);
        m_window->close();
        EXPECT_EQ(closed.count(), 1);
    }
    EXPECT_EQ(ReadFile(m_state.Store.FilePath()), stored);
}

TEST_F(MainWindowTest, LayoutFollowsTheSnapshotSettingAndShowsTheSnapshot) {
    SeedStore();
    m_state.Store.Write("Settings", "Snapshots_Show", "7");
    m_state.Store.Sync();
    StartWindow();

    // An unknown value keeps the layout with the picture; a resize lays the window out again.
    auto* picture = Control<QLabel>("picSnapshot");
    auto* list = Control<QListWidget>("lstGameList");
    const QWidget* inner = m_window->centralWidget();
    for (const QSize size : {QSize(700, 500), QSize(640, 420)}) {
        m_window->resize(size);
        QCoreApplication::processEvents();
        EXPECT_TRUE(picture->isVisible());
        EXPECT_EQ(picture->x(), inner->width() - picture->width() - 5);
        EXPECT_EQ(list->geometry(), QRect(5, 61, picture->x() - 10, inner->height() - 66));
        EXPECT_EQ(Control<QLineEdit>("txtFilter")->geometry().topLeft(), QPoint(5, 33));
    }
    m_state.Options.Snapshots_Show = 0;
    m_window->Form_Resize();
    EXPECT_FALSE(picture->isVisible());
    EXPECT_EQ(list->width(), inner->width() - 10);

    m_state.Options.Snapshots_Show = 1;
    m_window->Form_Resize();
    EXPECT_TRUE(picture->isVisible());
    m_state.Options.SnapshotFolder = MakeFolder("Shots");
    QImage shot(32, 28, QImage::Format_RGB32);
    shot.fill(Qt::red);
    ASSERT_TRUE(shot.save(TempPath("Shots/zelda.bmp")));
    ChooseGroup("RPG");
    EXPECT_TRUE(picture->pixmap().isNull()); // Tetris has no snapshot
    QTest::keyClick(list, Qt::Key_Down);
    // Decoded once the event loop runs, at a whole step of its size that fits the pane.
    ASSERT_TRUE(QTest::qWaitFor([picture] { return !picture->pixmap().isNull(); }, 60000));
    const QSize shown = picture->pixmap().size();
    EXPECT_EQ(shown.width() % 32, 0);
    EXPECT_EQ(shown.width() * 28, shown.height() * 32); // its own shape
    const QSize room = picture->contentsRect().size();
    EXPECT_TRUE(shown.width() <= room.width() && shown.height() <= room.height());
    EXPECT_TRUE(shown.width() + 32 > room.width() || shown.height() + 28 > room.height());

    // A larger window gives the pane, and the picture, more room.
    m_window->resize(m_window->size() + QSize(300, 300));
    ASSERT_TRUE(QTest::qWaitFor([&] { return picture->pixmap().width() > shown.width(); }, 60000));
}

TEST_F(MainWindowTest, AHugeCaptionAndAFullCatalogueLeaveAUsableWindow) {
    const QString folder = MakeFolder("Full") + '/';
    for (int i = 0; i <= GameList::Capacity; ++i)
        WriteFile(QStringLiteral("Full/g%1.smc").arg(i, 4, 10, QLatin1Char('0')));
    const QString huge(10 * 1024 * 1024, QLatin1Char('W'));
    m_state.Store.Write("Game List\\" + folder.toLower(), "g0001.smc", huge + ";Ungrouped");
    m_state.Store.Write("Folders\\Game Folders", "00", folder);
    m_state.Store.Sync();
    StartWindow();

    auto* list = Control<QListWidget>("lstGameList");
    // A caption of ten million characters is listed short (and last) and still finds its game.
    ASSERT_EQ(list->count(), GameList::Capacity);
    const int last = GameList::Capacity - 1;
    EXPECT_LT(list->item(last)->text().size(), 1000);
    EXPECT_TRUE(list->item(last)->text().startsWith("WWW"));
    list->scrollToBottom();
    ClickLine(list, last);
    const QString status = m_window->statusBar()->currentMessage();
    EXPECT_TRUE(status.endsWith(folder.toLower() + "g0001.smc   |   Never played"))
        << status.toStdString();

    // The file that found no place is named in the status bar.
    auto* report = Control<QLabel>("lblScanReport");
    EXPECT_TRUE(report->isVisible());
    EXPECT_EQ(report->text(), "The catalogue is full (1,000 games): 1 file left out.");
}

TEST_F(MainWindowTest, NormalPlacementSurvivesAMaximisedRun) {
    StartWindow();
    m_window->setGeometry(60, 75, 600, 450);
    m_window->close();
    EXPECT_EQ(SettingsStore().Read("Settings", "MainForm"), "900;1125;9000;6750;0");

    // The next run ends maximised, the one after starts so and ends normal.
    for (const QString state : {"2", "0"}) {
        m_window.reset();
        m_state.Options = Settings();
        StartWindow();
        EXPECT_EQ(m_window->normalGeometry().size(), QSize(600, 450));
        state == "2" ? m_window->showMaximized() : m_window->showNormal();
        QTest::qWait(20);
        m_window->close();
        EXPECT_EQ(SettingsStore().Read("Settings", "MainForm"), "900;1125;9000;6750;" + state);
    }
}

TEST_F(MainWindowTest, RomMenuStoresTheEmulatorAndListsProfilesSorted) {
    SeedStore();
    for (const char* profile : {"fast", "Basic", "clean"})
        WriteProfile(m_state.Store, "Snes9X", QString::fromLatin1(profile), "-x");
    StartWindow();
    ChooseGroup("RPG");
    auto* list = Control<QListWidget>("lstGameList");
    auto* menu = Control<QMenu>("mnuRomMenu");
    ClickLine(list, 0, Qt::RightButton);
    ASSERT_TRUE(menu->isVisible());
    menu->hide();

    QStringList profiles;
    for (QAction* item : Control<QMenu>("mnuRomMenu_Profile")->actions()) {
        if (item->objectName() == QLatin1String("mnuProfile_Item"))
            profiles << item->text() + (item->isChecked() ? "*" : QString());
    }
    EXPECT_EQ(profiles, (QStringList{"Basic", "clean", "fast*"}));

    for (QAction* item : Control<QMenu>("mnuRomMenu_LaunchUsing")->actions()) {
        if (item->text() == QLatin1String("ZSnes"))
            item->trigger();
    }
    const GameRecord& tetris = m_state.Games.Records[m_state.Games.FindGame("title", "Tetris")];
    EXPECT_EQ(tetris.Emulator, "ZSnes");

    // "New..." creates a profile for the game's emulator and gives it to the game.
    RunWhenModal([](QWidget* editor) {
        QTest::keyClicks(editor->findChild<QLineEdit*>("txtProfileName"), "  Speedy ");
        QTest::keyClicks(editor->findChild<QLineEdit*>("txtOptions"), "-m 2");
        QTest::mouseClick(editor->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    Control<QAction>("mnuProfile_New")->trigger();
    EXPECT_EQ(tetris.Profile, "Speedy");
    EXPECT_EQ(ReadProfile(m_state.Store, "ZSnes", "Speedy"), "-m 2");
}

} // namespace
