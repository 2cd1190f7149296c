#include "app/Startup.h"
#include "config/AbandonedLock.h"
#include "config/SaveFileLeftovers.h"
#include "config/StoreWriterLock.h"
#include "support/FilesAnywhere.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryFile>

namespace {

using StoreLockTest = LumbraTest;

TEST_F(StoreLockTest, ASaveWritesTheFileOnceWhenItsBatchEnds) {
    const QString path = m_state.Store.FilePath();
    {
        const SettingsStore::Batch save(m_state.Store);
        m_state.Store.Write("Group List", "00", "Puzzle");
        m_state.Store.Sync();
        {
            const SettingsStore::Batch inner(m_state.Store);
            m_state.Store.Write("Settings", "DefaultGroup", "Puzzle");
            m_state.Store.Sync();
        }
        EXPECT_FALSE(ReadFile(path).contains("Puzzle"));
    }
    EXPECT_TRUE(ReadFile(path).contains("00=Puzzle") &&
                ReadFile(path).contains("DefaultGroup=Puzzle"));
}

TEST_F(StoreLockTest, OnlyLocksThatNoLiveProcessHoldsAreRemoved) {
    const QString lockPath = TempPath("store.lock");
    // Just left empty by a kill, empty for an hour, left by an owner that has gone.
    const std::pair<QByteArray, qint64> abandoned[] = {
        {"", 0}, {"", 3600}, {"2147483000\nlumbra\nelsewhere\n", 0}};
    for (const auto& [bytes, ageSeconds] : abandoned) {
        ASSERT_TRUE(WriteFileAt(lockPath, bytes));
        ASSERT_TRUE(SetModifiedTime(lockPath, QDateTime::currentDateTime().addSecs(-ageSeconds)));
        RemoveAbandonedLock(lockPath);
        EXPECT_FALSE(QFile::exists(lockPath)) << ageSeconds << bytes.constData();
    }

    QLockFile held(lockPath);
    ASSERT_TRUE(held.tryLock(0));
    RemoveAbandonedLock(lockPath);
    EXPECT_TRUE(QFile::exists(lockPath));
}

TEST_F(StoreLockTest, AWriteRemovesTheTemporaryCopiesThatKilledWritesLeftBehind) {
    const QString path = m_state.Store.FilePath();
    const QString folder = QFileInfo(path).absolutePath() + '/';
    ASSERT_TRUE(QDir().mkpath(folder));
    // Temporary copies named as the save file names them, left behind by kills.
    QStringList leftovers;
    for (int copy = 0; copy < 8; ++copy) {
        QTemporaryFile file(path + ".XXXXXX");
        file.setAutoRemove(false);
        ASSERT_TRUE(file.open());
        file.write("[Settings]\nDefaultGroup=Half");
        leftovers << QFileInfo(file.fileName()).fileName();
    }
    // A person's copy, and names of another shape.
    const QStringList others = {"Lumbra.conf.backup", "Lumbra.conf.AbC1eF", "Lumbra.conf.AbCdEfG",
                                "Lumbra.conf.AbCdE",  "Lumbra.confXAbCdEf", "Other.conf.AbCdEf",
                                "Lumbra.writer"};
    for (const QString& name : others)
        ASSERT_TRUE(QFile(folder + name).open(QIODevice::WriteOnly));
    const auto present = [&](QStringList names) {
        names.removeIf([&](const QString& name) { return !QFile::exists(folder + name); });
        return names;
    };

    {
        // While a live process writes the file, its copy may be one of them.
        QLockFile writing(path + ".lock");
        ASSERT_TRUE(writing.tryLock(0));
        RemoveSaveFileLeftovers(path);
        EXPECT_EQ(present(leftovers), leftovers);
    }

    m_state.Store.Write("Settings", "DefaultGroup", "Puzzle");
    m_state.Store.Sync();
    EXPECT_TRUE(ReadFile(path).contains("DefaultGroup=Puzzle"));
    EXPECT_EQ(present(others), others);
    // One name in 64 is lower case alone, like a word, and stays.
    QStringList wordLike = leftovers;
    wordLike.removeIf([](const QString& name) { return name.right(6) != name.right(6).toLower(); });
    EXPECT_EQ(present(leftovers), wordLike);
}

TEST_F(StoreLockTest, TheWindowWritesAloneAndSaysSoToASecondWindow) {
    StoreWriterLock window(m_state.Store, StoreWriterLock::Holder::Window);
    ASSERT_TRUE(window.TryAcquire(0));
    // A command refused while a window writes is checked through the command line.
    StoreWriterLock command(m_state.Store, StoreWriterLock::Holder::Command);

    ScriptedPrompts prompts;
    StoreWriterLock second(m_state.Store, StoreWriterLock::Holder::Window);
    EXPECT_FALSE(ClaimStoreForWindow(second, prompts));
    ASSERT_EQ(prompts.AskedTexts().size(), 1);
    EXPECT_TRUE(prompts.AskedTexts().first().startsWith(
        QStringLiteral("Lumbra is already running (process %1).")
            .arg(QCoreApplication::applicationPid())));

    window.Release();
    EXPECT_TRUE(command.TryAcquire(0));
    EXPECT_FALSE(second.TryAcquire(0));
    EXPECT_EQ(second.HeldBy(), StoreWriterLock::Holder::Command);
    command.Release();
    EXPECT_TRUE(ClaimStoreForWindow(second, prompts));
}

} // namespace
