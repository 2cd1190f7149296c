#pragma once

#include "platform/SystemShell.h"

#include <QtGlobal>
#include <functional>
#include <memory>
#include <vector>

class WatchedProgram;

class Prompts;
struct ParsedCommand;

// The system shell on the real system: programs are started directly with their
// argument lists, questions and failures go through the prompts, and documents go
// to the opener that the window provides (the desktop's; lumbra-cli has none).
class RealShell final : public SystemShell {
public:
    // Opens a document, given as its resolved local path, in the desktop's program for
    // it; false when nothing could open it.
    using DocumentOpener = std::function<bool(const QString& path)>;

    // What the last start through ShellAndWait left behind.
    struct ProcessRecord {
        qint64 ProcessId = 0; // 0 when nothing was started or the start failed
        // Held from a start until a "close" word lets go of it. Waiting for the end
        // does not let go, so a "close" after a waited start says nothing.
        bool Held = false;
    };

    RealShell(Prompts& prompts, DocumentOpener openDocument);
    ~RealShell() override;

    void ShellAndWait(const QString& commandLine, const QString& mode) override;
    void ShellExecute(const QString& file, const QString& parameters,
                      const QString& directory) override;
    void OpenDocument(const QString& path) override;
    ProgramEnd RunProgram(const QString& program, const QStringList& arguments,
                          const QString& folder) override;
    void StartProgram(const QString& program, const QStringList& arguments, const QString& folder,
                      std::function<void(const ProgramEnd&)> onEarlyFailure) override;
    void ShellCopyFile(const QString& source, const QString& target) override;
    void ShellDeleteFile(const QString& path) override;
    std::optional<QString> BrowseForFolder(const QString& title,
                                           const QString& folder = QString()) override;

    const ProcessRecord& ShelledProcess() const { return m_shelledProcess; }

private:
    void StartDetached(const ParsedCommand& command);
    void StartAndWait(const ParsedCommand& command);

    Prompts& m_prompts;
    DocumentOpener m_openDocument;
    ProcessRecord m_shelledProcess;
    // Programs started without waiting; one that ended goes at the next start.
    std::vector<std::unique_ptr<WatchedProgram>> m_started;
};
