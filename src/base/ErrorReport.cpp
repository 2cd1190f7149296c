#include "base/ErrorReport.h"

#include "base/EventLog.h"
#include "base/Prompts.h"

void ShowErrorReport(Prompts& prompts, int errorNumber, const QString& description,
                     const QString& procedureName) {
    const QString message =
        description + QStringLiteral(" (") + QString::number(errorNumber) +
        QStringLiteral(")\r\n") + QStringLiteral("Accured in ") + procedureName +
        QStringLiteral("\r\n\r\n") +
        QStringLiteral("Please report this to the Lumbra developers at lumbra-bugs@lumbra.invalid, "
                       "with the event log if you have it.") +
        QStringLiteral("\r\n") + QStringLiteral("I'll try to solve the problem!");
    LogEvent(QStringLiteral("Error: ") + QString::number(errorNumber) + QStringLiteral(", ") +
             procedureName);
    prompts.Message(message, PromptButtons::Ok, PromptIcon::Critical, QStringLiteral("Error"));
}
