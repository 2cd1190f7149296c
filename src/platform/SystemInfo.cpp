#include "platform/SystemInfo.h"

#include "base/Prompts.h"
#include "platform/SystemShell.h"

#include <QStandardPaths>
#include <QSysInfo>

QStringList SystemInfoTools() {
    return {QStringLiteral("msinfo32"),          QStringLiteral("hardinfo"),
            QStringLiteral("kinfocenter"),       QStringLiteral("gnome-system-monitor"),
            QStringLiteral("xfce4-taskmanager"), QStringLiteral("lxtask")};
}

std::optional<QString> FindSystemInfoTool(const QStringList& folders) {
    for (const QString& tool : SystemInfoTools()) {
        const QString found = QStandardPaths::findExecutable(tool, folders);
        if (!found.isEmpty())
            return found;
    }
    return std::nullopt;
}

QString SystemFacts() {
    return QStringLiteral("System: ") + QSysInfo::prettyProductName() +
           QStringLiteral("\nKernel: ") + QSysInfo::kernelType() + QLatin1Char(' ') +
           QSysInfo::kernelVersion() + QStringLiteral("\nProcessor: ") +
           QSysInfo::currentCpuArchitecture() + QStringLiteral("\nBuilt for: ") +
           QSysInfo::buildAbi() + QStringLiteral("\nComputer name: ") +
           QSysInfo::machineHostName() + QStringLiteral("\nQt: ") + QString::fromLatin1(qVersion());
}

void ShowSystemInfo(SystemShell& shell, Prompts& prompts, const QStringList& folders) {
    if (const std::optional<QString> tool = FindSystemInfoTool(folders)) {
        shell.ShellExecute(*tool, QString(), QString());
        return;
    }
    prompts.Message(SystemFacts(), PromptButtons::Ok, PromptIcon::Information,
                    QStringLiteral("System Information"));
}
