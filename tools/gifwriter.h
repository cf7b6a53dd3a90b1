// A small GIF writer (Qt reads GIF but cannot write it): 256 colours, LZW-compressed, one frame.
#pragma once

#include <QImage>
#include <QString>

namespace gifwriter
{
// Writes the image with a fixed 6x7x6 colour cube palette; returns false when the file cannot be written.
bool write(const QImage &image, const QString &path);
} // namespace gifwriter
