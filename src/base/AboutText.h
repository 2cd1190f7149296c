#pragma once

#include <QString>

// The version CMake gives the project, such as "0.1.0".
QString ProgramVersion();

// The libraries Lumbra is built on, with the versions it runs with, one a line.
QString Credits();
