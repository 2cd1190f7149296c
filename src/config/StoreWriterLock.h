#pragma once

#include <QString>
#include <memory>

class QLockFile;
class SettingsStore;

// One writer of the settings store at a time. The window holds this lock for its
// whole run, since at its close it writes back everything it read at its start;
// lumbra-cli holds it for each command that changes the store. The system drops
// the lock when its holder ends, however it ends, so a crash never leaves it behind.
class StoreWriterLock {
public:
    enum class Holder { Window, Command };

    StoreWriterLock(const SettingsStore& store, Holder role);
    ~StoreWriterLock();
    StoreWriterLock(const StoreWriterLock&) = delete;
    StoreWriterLock& operator=(const StoreWriterLock&) = delete;

    // How long a writer waits for a command that holds the lock: a command's
    // work on the store takes a fraction of a second.
    static constexpr int CommandWaitMs = 10000;

    // Takes the lock. While a command holds it, waits up to commandWaitMs for that
    // command to end; a running window is never waited for.
    bool TryAcquire(int commandWaitMs = CommandWaitMs);
    void Release();

    // After a failed TryAcquire: who holds the lock, and its process number (0 when
    // it could not be read).
    Holder HeldBy() const { return m_heldBy; }
    qint64 HolderProcess() const { return m_holderProcess; }
    // " (process N)", or nothing when the number could not be read.
    QString HolderProcessText() const;
    // After a failed TryAcquire: "Could not save the settings to <file>: <reason>"
    // when the lock file itself could not be made (a read-only or missing folder),
    // or an empty text when another writer holds the lock.
    QString Failure() const { return m_failure; }

private:
    bool TryOnce();
    void NoteFailure(const QString& reason);
    void ReadHolder();

    QString m_storePath;
    QString m_path;
    QString m_failure;
    Holder m_role;
    Holder m_heldBy = Holder::Command;
    qint64 m_holderProcess = 0;
    int m_fd = -1;
    std::unique_ptr<QLockFile> m_portableLock; // where flock() does not exist
};
