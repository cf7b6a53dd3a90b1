// Landscapes: the sky, clouds and mountain ranges every place shares, and the places that differ below
// the horizon (tools/starters).
#pragma once

#include "paint.h"

#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QSize>

#include <algorithm>

namespace picturegen
{

struct Palette {
    QColor skyTop, skyMid, skyLow, sun, glow, cloud, cloudShade, seaFar, seaNear, farHills, nearHills, grass,
        dry;
};

// Shared state while one landscape is painted; u is one thousandth of the shorter side.
struct Canvas {
    QPainter &p;
    Dice &dice;
    Palette pal;
    double w, h, u, horizon;
    QPointF sun;

    // How close a point at height y is to the viewer: 0 at the horizon, 1 at the bottom edge.
    double near(double y) const
    {
        return std::clamp((y - horizon) / (h - horizon), 0.0, 1.0);
    }
};

enum class Place { Coast, Valley };

// A photo-like landscape of the given place (Format_RGB32); a null image for an empty size.
QImage landscape(QSize size, quint32 seed, Place place);

// A mountain range resting on the line y = base; with snow, its peaks get white caps.
void drawRange(Canvas &c, double base, double height, const QColor &colour, double haze, bool snow);

// What lies below the horizon: sea, headland, harbour and boats; or fields, river and village.
void drawCoast(Canvas &c);
void drawValley(Canvas &c);

} // namespace picturegen
