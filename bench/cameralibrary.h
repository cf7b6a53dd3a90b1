// A library of camera pictures for the library window's benchmark, made once and kept in the build
// folder: 100 JPEG files of 6000 x 4000, once with the small EXIF thumbnail cameras embed, once without.
#pragma once

#include <QString>

namespace cameralibrary
{

constexpr int Count = 100;

// Makes the two folders under base when they are not there yet; returns false when they cannot be made.
// The folders are base + "/exif" and base + "/plain"; the files are IMG_0001.jpg to IMG_0100.jpg.
bool ensure(const QString &base);

} // namespace cameralibrary
