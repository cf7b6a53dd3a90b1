// The small picture a camera embeds in a JPEG file's EXIF data, found without decoding anything: a
// bounded walk over the markers before the first scan and over the EXIF image directories.
#pragma once

#include <QByteArrayView>
#include <optional>

namespace exif
{

// A byte range of the file.
struct Range {
    qsizetype offset = 0;
    qsizetype length = 0;
};

// Where the embedded thumbnail (the JPEG of the second image directory) lies in a JPEG file's bytes;
// nothing when the file has none or its EXIF data points outside itself.
std::optional<Range> embeddedThumbnail(QByteArrayView file);

} // namespace exif
