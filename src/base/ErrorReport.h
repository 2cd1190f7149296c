#pragma once

#include <QString>

class Prompts;

// Logs "Error: <number>, <procedure>" and shows the critical "Error" box with the
// description, the procedure and the contact lines. Returns when the box is closed.
void ShowErrorReport(Prompts& prompts, int errorNumber, const QString& description,
                     const QString& procedureName);
