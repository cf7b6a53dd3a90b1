// Writes an EXIF segment into a JPEG file's bytes, as cameras do: an orientation and an embedded
// thumbnail. Used by the tests and the benchmarks to make camera-like pictures.
#pragma once

#include <QByteArray>

namespace exifwriter
{

// The JPEG bytes with an APP1 EXIF segment put right after the start marker: orientation 1 .. 8 in the
// first image directory and, when thumbnail (JPEG bytes, under 64000) is given, the second directory
// pointing at it. Big-endian byte order when bigEndian, as some cameras write.
QByteArray withExif(
    const QByteArray &jpeg, int orientation, const QByteArray &thumbnail, bool bigEndian = false);

} // namespace exifwriter
