// The coast: sea with the sun's path and waves, a headland with a village, a pier, the lighthouse, and
// boats on open water. The starters VX_harbour, VX_tower and VX_lighthouse are drawn here.
#include "landscape.h"
#include "props.h"

#include <QLinearGradient>

#include <algorithm>
#include <cmath>

namespace picturegen
{

void drawCoast(Canvas &c)
{
    Dice &d = c.dice;
    const bool landLeft = d.chance(0.5);
    auto mirror = [&](double x) { return landLeft ? x : c.w - x; };

    QLinearGradient sea(0, c.horizon, 0, c.h);
    sea.setColorAt(0, c.pal.seaFar);
    sea.setColorAt(1, c.pal.seaNear);
    c.p.fillRect(QRectF(0, c.horizon, c.w, c.h - c.horizon), sea);

    // The sun's path on the water: short bright strokes, wider towards the viewer.
    c.p.setPen(Qt::NoPen);
    const int glints = 300;
    for (int i = 0; i < glints; ++i) {
        const double t = std::pow(d.real(0, 1), 1.6);
        const double y = c.horizon + t * (c.h - c.horizon);
        const double spread = c.u * (30 + 260 * t);
        const double x = c.sun.x() + d.real(-1, 1) * d.real(0, 1) * spread;
        c.p.setBrush(withAlpha(c.pal.sun, int(d.real(60, 200))));
        c.p.drawRect(QRectF(x, y, c.u * (4 + 30 * t) * d.real(0.5, 1.5), c.u * (0.8 + 3 * t)));
    }
    // Waves everywhere, small and dense far away, long and sparse near.
    const int waves = int(1400 * c.w / c.h);
    for (int i = 0; i < waves; ++i) {
        const double t = std::pow(d.real(0, 1), 1.4);
        const double y = c.horizon + t * (c.h - c.horizon);
        const double len = c.u * (6 + 70 * t) * d.real(0.5, 1.5);
        const double x = d.real(-0.05, 1.05) * c.w;
        const bool crest = d.chance(0.5);
        c.p.setPen(QPen(crest ? withAlpha(mix(c.pal.skyMid, Qt::white, 0.4), 110)
                              : withAlpha(shade(c.pal.seaNear, 0.6), 120),
            c.u * (0.8 + 3 * t), Qt::SolidLine, Qt::RoundCap));
        c.p.drawLine(QPointF(x, y), QPointF(x + len, y + d.real(-0.3, 0.3) * c.u));
    }

    // The headland: a hill rising from the near corner, with a beach along its shore.
    const double tipX = c.w * d.real(0.3, 0.42);
    const double hillTop = c.horizon - c.h * d.real(0.06, 0.14);
    const double tipY = c.horizon + c.h * 0.01;
    const double shoreBottom = c.w * d.real(0.5, 0.62);
    auto landTop = [&](double x) {
        const double t = x / tipX;
        return hillTop + (tipY - hillTop) * smooth(t) + std::sin(t * 9.0) * c.h * 0.008;
    };
    auto shoreX = [&](double y) {
        const double t = std::clamp((y - tipY) / (c.h - tipY), 0.0, 1.0);
        return tipX + (shoreBottom - tipX) * std::pow(t, 0.75) + std::sin(t * 11.0) * c.w * 0.01;
    };
    QPolygonF outline;
    outline << QPointF(mirror(0), c.h + 2);
    for (int i = 0; i <= 64; ++i) {
        const double x = tipX * i / 64;
        outline << QPointF(mirror(x), landTop(x));
    }
    QPolygonF beach;
    for (int i = 0; i <= 64; ++i) {
        const double y = tipY + (c.h + 2 - tipY) * i / 64;
        outline << QPointF(mirror(shoreX(y)), y);
        beach << QPointF(mirror(shoreX(y)), y);
    }
    QPainterPath land;
    land.addPolygon(outline);
    land.closeSubpath();
    QLinearGradient ground(0, hillTop, 0, c.h);
    ground.setColorAt(0, mix(c.pal.nearHills, c.pal.skyLow, 0.25));
    ground.setColorAt(0.5, c.pal.grass);
    ground.setColorAt(1, shade(c.pal.nearHills, 0.85));
    c.p.setPen(QPen(mix(c.pal.dry, Qt::white, 0.3), c.u * 14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    c.p.setBrush(Qt::NoBrush);
    c.p.drawPolyline(beach);
    c.p.setPen(Qt::NoPen);
    c.p.fillPath(land, ground);

    // Patches of dry grass and shadow on the land.
    c.p.save();
    c.p.setClipPath(land);
    for (int i = 0; i < 40; ++i) {
        const QPointF at(mirror(d.real(0, shoreBottom)), d.real(hillTop, c.h));
        const double r = c.u * (20 + 90 * c.near(at.y()));
        c.p.setBrush(withAlpha(d.chance(0.5) ? c.pal.dry : shade(c.pal.nearHills, 0.7), 70));
        c.p.drawEllipse(at, r * 1.8, r * 0.6);
    }
    c.p.restore();

    // A stone pier reaching from the shore into the water.
    const double pierY = c.horizon + (c.h - c.horizon) * d.real(0.35, 0.55);
    const double pierFrom = shoreX(pierY) - c.w * 0.02;
    const double pierTo = pierFrom + c.w * d.real(0.12, 0.2);
    const double pierH = c.u * (6 + 18 * c.near(pierY));
    c.p.setBrush(QColor("#8d8274"));
    c.p.setPen(QPen(QColor("#4d463e"), c.u * 1.5));
    c.p.drawRect(QRectF(
        std::min(mirror(pierFrom), mirror(pierTo)), pierY - pierH, std::abs(pierTo - pierFrom), pierH));
    c.p.setBrush(withAlpha(QColor("#3d362e"), 120));
    c.p.setPen(Qt::NoPen);
    c.p.drawRect(
        QRectF(std::min(mirror(pierFrom), mirror(pierTo)), pierY, std::abs(pierTo - pierFrom), pierH * 0.8));

    std::vector<Prop> props;
    auto scaleAt
        = [&](double y) { return 0.35 + 1.6 * std::clamp((y - hillTop) / (c.h - hillTop), 0.0, 1.0); };
    const int houses = int(d.real(6, 11) * c.w / c.h);
    for (int i = 0; i < houses; ++i) {
        const double x = d.real(0.03, 0.95) * tipX;
        const double y = landTop(x) + d.real(0.01, 0.12) * c.h;
        if (x > shoreX(y) - c.w * 0.03)
            continue;
        const double s = c.u * 38 * scaleAt(y);
        props.push_back({ y, [&c, x = mirror(x), y, s] { drawHouse(c, QPointF(x, y), s); } });
    }
    const int trees = int(d.real(8, 14) * c.w / c.h);
    for (int i = 0; i < trees; ++i) {
        const double x = d.real(0.0, 1.0) * shoreBottom;
        const double y = d.real(0.0, 1.0) * (c.h - hillTop) + hillTop;
        if (y < landTop(std::min(x, tipX)) + c.h * 0.01 || x > shoreX(y) - c.w * 0.02)
            continue;
        const double s = c.u * 45 * scaleAt(y);
        props.push_back({ y, [&c, x = mirror(x), y, s] { drawTree(c, QPointF(x, y), s); } });
    }
    const double lhX = tipX * 0.9;
    props.push_back({ landTop(lhX) + 1,
        [&c, x = mirror(lhX), y = landTop(lhX) + 1] { drawLighthouse(c, QPointF(x, y), c.u * 30); } });
    drawProps(props);
    drawFlowers(c, land, int(200 * c.w / c.h));

    // Boats on open water, clear of the land.
    std::vector<Prop> boats;
    std::vector<QRectF> taken;
    const int count = 3 + d.below(4) + int(c.w / c.h);
    for (int tries = 0; tries < count * 8 && int(boats.size()) < count; ++tries) {
        const double y = c.horizon + (c.h - c.horizon) * std::pow(d.real(0.05, 0.95), 1.3);
        const double minX = shoreX(y) + c.w * 0.06;
        if (minX > c.w * 0.95)
            continue;
        const double x = mirror(d.real(minX, c.w * 0.97));
        const double s = c.u * (10 + 110 * c.near(y));
        // Boats on top of each other would read as one blot.
        const QRectF room(x - s * 1.4, y - s * 1.5, s * 2.8, s * 1.8);
        if (std::any_of(taken.begin(), taken.end(), [&](const QRectF &r) { return r.intersects(room); }))
            continue;
        taken.push_back(room);
        boats.push_back({ y, [&c, x, y, s] { drawBoat(c, QPointF(x, y), s); } });
    }
    drawProps(boats);
}

} // namespace picturegen
