#include "catalogue/PlayStatistics.h"
#include "catalogue/GameListing.h"
#include "support/TestFixtures.h"

namespace {

class PlayStatisticsTest : public LumbraTest {
protected:
    GameRecord& Add(int index, const QString& folder, const QString& file) {
        GameRecord& game = m_state.Games.Records[index];
        game.Caption = file;
        game.Folder = folder;
        game.Filename = file;
        return game;
    }
};

TEST_F(PlayStatisticsTest, StartsAndPlayTimesAddUpPerGameInASectionOfTheirOwn) {
    const GameRecord& zelda = Add(0, "/games/snes/", "zelda.smc");
    const GameRecord& twin = Add(1, "/games/more/", "zelda.smc"); // same name, other folder
    EXPECT_EQ(PlayStatisticsText(ReadPlayStatistics(m_state.Store, zelda)), "Never played");

    const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1);
    QElapsedTimer clock = StartPlay(m_state.Store, zelda);
    EXPECT_TRUE(clock.isValid());
    StartPlay(m_state.Store, zelda);
    AddPlayTime(m_state.Store, zelda, 1499);
    AddPlayTime(m_state.Store, zelda, 5400 * 1000 + 500);

    const PlayStatistics played = ReadPlayStatistics(m_state.Store, zelda);
    EXPECT_EQ(played.PlayCount, 2);
    EXPECT_EQ(played.PlaySeconds, 1 + 5401);
    EXPECT_GE(played.LastPlayed, before);
    EXPECT_EQ(ReadPlayStatistics(m_state.Store, twin).PlayCount, 0);
    // The game records' own section is left as it was.
    EXPECT_EQ(m_state.Store.Sections(), QStringList{"Play Statistics\\/games/snes/"});
    const QString stored = m_state.Store.Read("Play Statistics\\/games/snes/", "zelda.smc");
    EXPECT_TRUE(stored.startsWith("2;" + played.LastPlayed.toString(Qt::ISODate)));
    EXPECT_TRUE(stored.endsWith("Z;5402")) << stored.toStdString();

    // What the store holds survives a new start of the program.
    SettingsStore again;
    EXPECT_EQ(ReadPlayStatistics(again, zelda).PlaySeconds, 5402);

    // A damaged value reads as never played rather than failing.
    m_state.Store.Write("Play Statistics\\/games/more/", "zelda.smc", "x;yesterday;-5");
    const PlayStatistics damaged = ReadPlayStatistics(m_state.Store, twin);
    EXPECT_EQ(damaged.PlayCount, 0);
    EXPECT_FALSE(damaged.LastPlayed.isValid());
    EXPECT_EQ(damaged.PlaySeconds, 0);
}

TEST_F(PlayStatisticsTest, TextsForTheWindow) {
    PlayStatistics once{1, QDateTime(), 0};
    EXPECT_EQ(PlayStatisticsText(once), "Played once");
    const QDateTime when(QDate(2026, 11, 20), QTime(10, 5), Qt::LocalTime);
    EXPECT_EQ(PlayStatisticsText({3, when, 5400 + 25 * 60}),
              "Played 3 times, last on 2026-11-20 10:05, for 1 h 55 min");
    EXPECT_EQ(PlayTimeText(59), "59 s");
    EXPECT_EQ(PlayTimeText(60 * 12 + 59), "12 min");
    EXPECT_EQ(PlayTimeText(3600), "1 h 0 min");
}

TEST_F(PlayStatisticsTest, SortsMostRecentMostOftenAndLongestFirstKeepingTiesInOrder) {
    const QStringList files{"a.smc", "b.smc", "c.smc", "d.smc"};
    QList<GameLine> lines;
    for (int i = 0; i < files.size(); ++i)
        lines.append({i, Add(i, "/g/", files[i]).Caption});
    const QString section = "Play Statistics\\/g/";
    m_state.Store.Write(section, "b.smc", "1;2026-01-02T00:00:00Z;100");
    m_state.Store.Write(section, "c.smc", "5;2025-12-31T23:59:00Z;10");
    m_state.Store.Write(section, "d.smc", "1;2026-01-03T00:00:00Z;100");
    const auto sorted = [&](const QString& name) {
        PlayOrder order{};
        EXPECT_TRUE(PlayOrderFromName(name, order));
        QList<GameLine> copy = lines;
        SortByPlay(m_state.Store, m_state.Games, order, copy);
        QStringList captions;
        for (const GameLine& line : copy)
            captions << line.Caption;
        return captions.join(' ');
    };
    EXPECT_EQ(sorted("last-played"), "d.smc b.smc c.smc a.smc");
    EXPECT_EQ(sorted("play-count"), "c.smc b.smc d.smc a.smc");
    EXPECT_EQ(sorted("play-time"), "b.smc d.smc c.smc a.smc");
    PlayOrder order{};
    EXPECT_FALSE(PlayOrderFromName("size", order));
}

} // namespace
