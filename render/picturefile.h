// Reading picture files for the board: checked before anything on the board changes, decoded at the
// size they will be shown, with the decoder's own reduced-size decoding where the format has it.
#pragma once

#include <QImage>
#include <QString>

namespace picturefile
{

// Pictures whose header claims more pixels than this are refused before anything is allocated.
constexpr qint64 MaxPixels = 100'000'000;

struct Header {
    QSize size; // as shown, after the picture's own orientation is applied
    QString error; // empty when the file can be decoded
};

// Reads only the header: the shown size, or what is wrong with the file.
Header probe(const QString &path);
// Decodes the whole picture smoothly scaled to target (a shown size). On failure the image is null
// and error says why.
QImage decodeScaled(const QString &path, QSize target, QString *error);
// The naive path, full decode and then a smooth scale; kept for the benchmark's comparison.
QImage decodeFullThenScale(const QString &path, QSize target, QString *error);

} // namespace picturefile
