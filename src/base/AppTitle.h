#pragma once

#include <QString>

// The application title: window captions, message boxes and the settings store's name.
inline const QString AppTitle = QStringLiteral("Lumbra");
