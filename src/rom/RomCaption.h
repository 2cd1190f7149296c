#pragma once

#include <QString>
#include <QtGlobal>

class PathResolver;

// A game's first caption: its internal title, formatted. Without a readable title,
// the formatted file name without extension when useBaseFilenames is 1, otherwise
// "*" + the file name. Archives (".zip") take their file name as the raw title.
// A ";" becomes a blank, since stored records use it to join their fields.
QString GetRomCaption(const QString& path, qint16 useBaseFilenames, PathResolver& resolver);
