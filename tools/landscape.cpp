#include "landscape.h"

#include "texture.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace picturegen
{

namespace
{

    Palette pickPalette(Dice &dice)
    {
        static const Palette palettes[] = {
            // Clear midday.
            { "#2f6db5", "#6aa6dc", "#d3e8f3", "#fffbe6", "#fff3c0", "#ffffff", "#9fb0c8", "#7fb2cf",
                "#0f4a7a", "#7d95b5", "#4f7f3a", "#6fa23c", "#c8b560" },
            // Sunset.
            { "#261c58", "#a8486c", "#ffb45c", "#fff3c0", "#ff9440", "#ffc890", "#6a3a6e", "#e08a5a",
                "#2a2452", "#6e4c7c", "#44463a", "#5f6e2c", "#a8743c" },
            // Early morning.
            { "#5a8fc8", "#a9c7e0", "#f6d9b8", "#fffbe8", "#ffe0b0", "#fff4ec", "#a8a2bc", "#a8c4d4",
                "#2a5a7a", "#9aa8c0", "#5f8a4a", "#84ad4a", "#d4b870" },
            // Golden afternoon.
            { "#1f5a8a", "#5fa0b8", "#f2d48a", "#fff4c0", "#ffd070", "#fbeacc", "#8a8aa0", "#8ab8b0",
                "#14506a", "#7a8aa0", "#5a7a30", "#8a9a30", "#d0a040" },
        };
        Palette p = palettes[dice.below(4)];
        const double t = dice.real(-14, 14);
        for (QColor *c : { &p.skyTop, &p.skyMid, &p.skyLow, &p.seaFar, &p.seaNear, &p.farHills, &p.nearHills,
                 &p.grass, &p.dry })
            *c = turn(*c, t);
        return p;
    }

    void drawSky(Canvas &c)
    {
        QLinearGradient sky(0, 0, 0, c.horizon);
        sky.setColorAt(0, c.pal.skyTop);
        sky.setColorAt(0.55, c.pal.skyMid);
        sky.setColorAt(1, c.pal.skyLow);
        c.p.fillRect(QRectF(0, 0, c.w, c.horizon + 2), sky);

        // The glow around the sun keeps the sky from being a plain band.
        const double glowRadius = std::max(c.w, c.h) * c.dice.real(0.35, 0.6);
        QRadialGradient glow(c.sun, glowRadius);
        glow.setColorAt(0, withAlpha(c.pal.glow, 220));
        glow.setColorAt(0.25, withAlpha(c.pal.glow, 90));
        glow.setColorAt(1, withAlpha(c.pal.glow, 0));
        c.p.fillRect(QRectF(0, 0, c.w, c.horizon + 2), glow);

        const double r = c.u * c.dice.real(28, 48);
        QRadialGradient disc(c.sun, r);
        disc.setColorAt(0, Qt::white);
        disc.setColorAt(0.7, c.pal.sun);
        disc.setColorAt(1, withAlpha(c.pal.sun, 0));
        c.p.setPen(Qt::NoPen);
        c.p.setBrush(disc);
        c.p.drawEllipse(c.sun, r, r);
    }

    void drawClouds(Canvas &c)
    {
        const int count = int(std::round(c.dice.real(4, 8) * c.w / c.h));
        c.p.setPen(Qt::NoPen);
        for (int i = 0; i < count; ++i) {
            const double cx = c.dice.real(-0.05, 1.05) * c.w;
            const double cy = c.dice.real(0.06, 0.75) * c.horizon;
            const double size = c.u * c.dice.real(50, 130) * (0.6 + cy / c.horizon);
            // Clouds keep clear of the sun, which must stay in sight.
            if (QLineF(c.sun, QPointF(cx, cy)).length() < size * 2.2 + c.u * 60)
                continue;
            const int puffs = 5 + c.dice.below(6);
            for (int layer = 0; layer < 2; ++layer) {
                // The shaded underside goes first, then the lit tops, offset upwards.
                const QColor tint = layer == 0 ? c.pal.cloudShade : c.pal.cloud;
                Dice shapes(quint32(i * 7919 + 17));
                for (int k = 0; k < puffs; ++k) {
                    const double px = cx + shapes.real(-1.6, 1.6) * size;
                    const double py = cy + shapes.real(-0.35, 0.25) * size - layer * size * 0.18;
                    const double rx = size * shapes.real(0.5, 1.0);
                    const double ry = rx * shapes.real(0.45, 0.7);
                    QRadialGradient g(QPointF(px, py), rx);
                    g.setColorAt(0, withAlpha(tint, layer == 0 ? 150 : 200));
                    g.setColorAt(0.6, withAlpha(tint, layer == 0 ? 90 : 120));
                    g.setColorAt(1, withAlpha(tint, 0));
                    c.p.setBrush(g);
                    c.p.drawEllipse(QPointF(px, py), rx, ry);
                }
            }
        }

        // A few birds, small dark ticks that make sky tiles tell apart.
        const int birds = c.dice.below(7);
        c.p.setBrush(Qt::NoBrush);
        for (int i = 0; i < birds; ++i) {
            const QPointF at(c.dice.real(0.05, 0.95) * c.w, c.dice.real(0.1, 0.8) * c.horizon);
            const double s = c.u * c.dice.real(6, 14);
            c.p.setPen(QPen(QColor(30, 30, 40, 200), std::max(1.0, s * 0.18), Qt::SolidLine, Qt::RoundCap));
            QPainterPath wing(at + QPointF(-s, -s * 0.3));
            wing.quadTo(at + QPointF(-s * 0.5, -s * 0.6), at);
            wing.quadTo(at + QPointF(s * 0.5, -s * 0.6), at + QPointF(s, -s * 0.3));
            c.p.drawPath(wing);
        }
    }

} // namespace

void drawRange(Canvas &c, double base, double height, const QColor &colour, double haze, bool snow)
{
    const std::vector<double> heights = ridge(c.dice, c.dice.real(0.5, 0.62));
    const int n = int(heights.size());
    QPolygonF top;
    for (int i = 0; i < n; ++i)
        top << QPointF(c.w * i / (n - 1), base - height * (0.25 + 0.75 * heights[i]));

    QPainterPath range;
    range.moveTo(0, base + 2);
    for (const QPointF &pt : top)
        range.lineTo(pt);
    range.lineTo(c.w, base + 2);
    range.closeSubpath();
    QLinearGradient fill(0, base - height, 0, base);
    fill.setColorAt(0, colour);
    fill.setColorAt(1, mix(colour, c.pal.skyLow, haze));
    c.p.setPen(Qt::NoPen);
    c.p.fillPath(range, fill);

    // Sunlit slopes: each ridge segment facing the sun is brightened down to the base.
    c.p.save();
    c.p.setClipPath(range);
    const bool sunLeft = c.sun.x() < c.w / 2;
    for (int i = 0; i + 1 < n; ++i) {
        const bool rising = top[i + 1].y() < top[i].y();
        if (rising == sunLeft)
            continue;
        QPolygonF face;
        face << top[i] << top[i + 1] << QPointF(top[i + 1].x() + (sunLeft ? -1 : 1) * height * 0.2, base)
             << QPointF(top[i].x() + (sunLeft ? -1 : 1) * height * 0.2, base);
        c.p.setBrush(withAlpha(mix(colour, c.pal.glow, 0.5), 45));
        c.p.drawPolygon(face);
    }
    if (snow) {
        // Only the high peaks get caps, with a ragged lower edge of its own.
        const double line = base - height * c.dice.real(0.68, 0.8);
        const std::vector<double> ragged = ridge(c.dice, 0.7);
        QPolygonF cap;
        for (const QPointF &pt : top)
            cap << pt;
        for (int i = n - 1; i >= 0; --i)
            cap << QPointF(top[i].x(), std::max(top[i].y(), line + (ragged[i] - 0.5) * height * 0.25));
        c.p.setBrush(QColor(245, 248, 255, 230));
        c.p.drawPolygon(cap);
    }
    c.p.restore();
}

QImage landscape(QSize size, quint32 seed, Place place)
{
    if (size.isEmpty())
        return {};
    QImage img(size, QImage::Format_RGB32);
    img.fill(Qt::gray);
    Dice dice(seed);
    QPainter painter(&img);
    painter.setRenderHint(QPainter::Antialiasing);
    const double w = size.width(), h = size.height();
    Canvas c { painter, dice, pickPalette(dice), w, h, std::min(w, h) / 1000.0, h * dice.real(0.42, 0.56),
        {} };
    // High enough to clear the tallest mountains drawn below.
    c.sun = QPointF(w * dice.real(0.12, 0.88), (c.horizon - h * 0.26) * dice.real(0.3, 0.85) + c.u * 20);

    drawSky(c);
    drawClouds(c);
    const bool snow = place == Place::Valley || dice.chance(0.3);
    drawRange(c, c.horizon, c.h * dice.real(0.14, 0.24), mix(c.pal.farHills, c.pal.skyLow, 0.2), 0.6, snow);
    drawRange(c, c.horizon, c.h * dice.real(0.06, 0.12), c.pal.farHills, 0.4, false);
    if (place == Place::Coast)
        drawCoast(c);
    else
        drawValley(c);
    painter.end();

    addTexture(img, seed, int(c.horizon));
    return img;
}

} // namespace picturegen
