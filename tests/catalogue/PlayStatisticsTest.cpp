#include "catalogue/PlayStatistics.h"
#include "catalogue/GameListing.h"
#include "catalogue/PlayOrder.h"
#include "support/TestFixtures.h"

namespace {

using PlayStatisticsTest = LumbraTest;

TEST_F(PlayStatisticsTest, StartsAndPlayTimesAddUpPerGameInASectionOfTheirOwn) {
    const GameRecord& zelda = AddGame("zelda.smc", "zelda.smc", "/games/snes/");
    const GameRecord& twin =
        AddGame("zelda.smc", "zelda.smc", "/games/more/"); // same name, other folder
    EXPECT_EQ(PlayStatisticsText(ReadPlayStatistics(m_state.Store, zelda)), "Never played");

    // The date of the last start and the clock a play is timed by are checked with
    // the launch.
    StartPlay(m_state.Store, zelda);
    StartPlay(m_state.Store, zelda);
    AddPlayTime(m_state.Store, zelda, 1499);
    AddPlayTime(m_state.Store, zelda, 5400 * 1000 + 500);

    const PlayStatistics played = ReadPlayStatistics(m_state.Store, zelda);
    EXPECT_EQ(played.PlayCount, 2);
    EXPECT_EQ(played.PlaySeconds, 1 + 5401);
    EXPECT_EQ(ReadPlayStatistics(m_state.Store, twin).PlayCount, 0);
    // The game records' own section is left as it was.
    EXPECT_EQ(m_state.Store.Sections(), QStringList{"Play Statistics\\/games/snes/"});
    const QString stored = m_state.Store.Read("Play Statistics\\/games/snes/", "zelda.smc");
    EXPECT_TRUE(stored.startsWith("2;" + played.LastPlayed.toString(Qt::ISODate)));
    EXPECT_TRUE(stored.endsWith("Z;5402")) << stored.toStdString();

    // A damaged value reads as never played rather than failing.
    m_state.Store.Write("Play Statistics\\/games/more/", "zelda.smc", "x;yesterday;-5");
    const PlayStatistics damaged = ReadPlayStatistics(m_state.Store, twin);
    EXPECT_TRUE(damaged.PlayCount == 0 && !damaged.LastPlayed.isValid() &&
                damaged.PlaySeconds == 0);

    // The texts for the window.
    EXPECT_EQ(PlayStatisticsText({1, QDateTime(), 0}), "Played once");
    const QDateTime when(QDate(2026, 11, 20), QTime(10, 5), Qt::LocalTime);
    EXPECT_EQ(PlayStatisticsText({3, when, 5400 + 25 * 60}),
              "Played 3 times, last on 2026-11-20 10:05, for 1 h 55 min");
    EXPECT_EQ((QStringList{PlayTimeText(59), PlayTimeText(60 * 12 + 59), PlayTimeText(3600)}),
              (QStringList{"59 s", "12 min", "1 h 0 min"}));
}

TEST_F(PlayStatisticsTest, SortsMostRecentMostOftenAndLongestFirstKeepingTiesInOrder) {
    const QStringList files{"a.smc", "b.smc", "c.smc", "d.smc"};
    QList<GameLine> lines;
    for (int i = 0; i < files.size(); ++i)
        lines.append({i, AddGame(files[i], files[i], "/g/").Caption});
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
