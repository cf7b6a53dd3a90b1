// Draws the game's own pictures from a seed: photo-like landscapes and bold graphic patterns.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace picturegen
{

// A photo-like landscape (Format_RGB32): sky, sun, mountains or hills, houses or boats, trees, and fine
// grain everywhere. The same size and seed always give the same picture; a null image for an empty size.
QImage scene(QSize size, quint32 seed);

// A graphic picture (Format_RGB32): a checker of coloured cells with large glyphs, stripes and circles.
QImage pattern(QSize size, quint32 seed);

// Writes the starter library (VX_*.jpg, VX_*.bmp, and VX_*.gif where Qt can write GIF) into an existing
// folder. On failure returns false and, when error is given, says what went wrong.
bool writeSamples(const QString &folder, QString *error);

} // namespace picturegen
