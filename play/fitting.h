// Fitting a picture into the largest board box and rounding the board to whole tiles.
#pragma once

#include "play/vbmath.h"

#include <QSize>
#include <QSizeF>

namespace fitting
{

constexpr double MaxBoxW = 520.0;
constexpr double MaxBoxH = 390.0;

// The largest size of at most 520 x 390 with the picture's proportions (small pictures grow).
inline QSizeF fitToBoard(QSize picture)
{
    double H = MaxBoxH;
    const double R = double(picture.width()) / double(picture.height());
    double W = R * H;
    if (W > MaxBoxW) {
        W = MaxBoxW;
        H = W / R;
    }
    return { W, H };
}

// The board box gets the fitted size on whole pixels.
inline QSize boxPixels(QSizeF fitted)
{
    return { int(vb::roundHalfEven(fitted.width())), int(vb::roundHalfEven(fitted.height())) };
}

// The tile side for a box side; a side shorter than the board's count of tiles has no tile.
inline int tileSide(int boxSide, int gridN)
{
    return boxSide / gridN;
}

// The board box rounded to whole tiles plus one pixel for the closing grid line.
inline QSize boardFor(QSize box, int gridN)
{
    return { tileSide(box.width(), gridN) * gridN + 1, tileSide(box.height(), gridN) * gridN + 1 };
}

} // namespace fitting
