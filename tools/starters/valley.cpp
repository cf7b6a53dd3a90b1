// The valley: rolling hills, a patchwork of fields, a river and a village among trees. The starter
// VX_panorama is drawn here.
#include "landscape.h"
#include "props.h"

#include <QLinearGradient>

#include <algorithm>
#include <cmath>
#include <utility>

namespace picturegen
{

void drawValley(Canvas &c)
{
    Dice &d = c.dice;
    // Hazy plain between the mountains and the hills.
    QLinearGradient plain(0, c.horizon, 0, c.h);
    plain.setColorAt(0, mix(c.pal.nearHills, c.pal.skyLow, 0.45));
    plain.setColorAt(0.4, c.pal.nearHills);
    c.p.fillRect(QRectF(0, c.horizon, c.w, c.h - c.horizon), plain);
    // Rolling hills below the horizon, each nearer one lower, greener and larger.
    const double midBase = c.horizon + (c.h - c.horizon) * 0.25;
    drawRange(c, midBase, (midBase - c.horizon) * 1.15, mix(c.pal.nearHills, c.pal.grass, 0.35), 0.35, false);

    const std::vector<double> swell = ridge(d, 0.45);
    const int n = int(swell.size());
    const double fieldTop = c.horizon + (c.h - c.horizon) * 0.22;
    QPolygonF outline;
    outline << QPointF(0, c.h + 2);
    for (int i = 0; i < n; ++i)
        outline << QPointF(c.w * i / (n - 1), fieldTop + (c.h - c.horizon) * 0.12 * (1 - swell[i]));
    outline << QPointF(c.w, c.h + 2);
    QPainterPath fields;
    fields.addPolygon(outline);
    fields.closeSubpath();
    c.p.fillPath(fields, c.pal.grass);

    // A patchwork of fields in perspective: bands thicker towards the viewer, each split into plots.
    static const QColor crops[]
        = { "#6fa23c", "#9bbf4a", "#d8c25a", "#b58a45", "#7d9a3a", "#c9a84e", "#5e8c31", "#a3b86c" };
    c.p.save();
    c.p.setClipPath(fields);
    double y = fieldTop - c.h * 0.02;
    while (y < c.h) {
        const double band = c.u * (8 + 140 * std::pow(c.near(y), 1.5)) * d.real(0.7, 1.3);
        double x = -c.w * 0.1;
        const double lean = d.real(-0.6, 0.6) * band;
        while (x < c.w * 1.1) {
            const double plot = c.u * (80 + 260 * c.near(y)) * d.real(0.5, 1.6);
            const QColor crop = turn(mix(crops[d.below(8)], c.pal.grass, 0.3), d.real(-6, 6));
            QPolygonF patch;
            patch << QPointF(x, y) << QPointF(x + plot, y) << QPointF(x + plot + lean, y + band)
                  << QPointF(x + lean, y + band);
            c.p.setPen(QPen(shade(crop, 0.7), c.u * 1.2));
            c.p.setBrush(crop);
            c.p.drawPolygon(patch);
            // Furrows so that a plot is not one flat colour.
            c.p.setPen(QPen(withAlpha(shade(crop, 0.8), 120), c.u * (0.6 + 2 * c.near(y))));
            const int furrows = std::max(2, int(band / (c.u * 4)));
            for (int k = 1; k < furrows; ++k) {
                const double fy = y + band * k / furrows;
                c.p.drawLine(QPointF(x + lean * k / furrows, fy), QPointF(x + plot + lean * k / furrows, fy));
            }
            x += plot;
        }
        y += band;
    }
    c.p.restore();

    drawFlowers(c, fields, int(250 * c.w / c.h));

    // A river winding from the hills to the viewer, mirroring the sky.
    const double startX = c.w * d.real(0.3, 0.7);
    QPainterPath river(QPointF(startX, fieldTop + c.h * 0.03));
    river.cubicTo(QPointF(startX + c.w * d.real(-0.3, 0.3), fieldTop + (c.h - fieldTop) * 0.35),
        QPointF(startX + c.w * d.real(-0.3, 0.3), fieldTop + (c.h - fieldTop) * 0.7),
        QPointF(c.w * d.real(0.2, 0.8), c.h + 10));
    QLinearGradient water(0, fieldTop, 0, c.h);
    water.setColorAt(0, c.pal.skyLow);
    water.setColorAt(1, c.pal.skyTop);
    auto riverWidth = [&](double y) { return c.u * (6 + 150 * c.near(y)); };
    // Stroked in slices so that it widens with nearness: the muddy banks, a little wider, then the water.
    const std::pair<QBrush, double> layers[] = { { QColor("#6b5a3e"), 1.12 }, { water, 1.0 } };
    for (const auto &[brush, widen] : layers) {
        for (int i = 0; i < 24; ++i) {
            const QPointF to = river.pointAtPercent((i + 1) / 24.0);
            QPainterPath part(river.pointAtPercent(i / 24.0));
            part.lineTo(to);
            c.p.setPen(QPen(brush, riverWidth(to.y()) * widen, Qt::SolidLine, Qt::RoundCap));
            c.p.drawPath(part);
        }
    }
    // Nothing stands in the water: a base closer to the river's course than its half width is skipped.
    auto inRiver = [&](QPointF at, double margin) {
        for (int i = 0; i <= 96; ++i) {
            const QPointF on = river.pointAtPercent(i / 96.0);
            const double half = riverWidth(on.y()) * 0.6;
            if (QLineF(on, at).length() < half + margin)
                return true;
        }
        return false;
    };

    std::vector<Prop> props;
    auto scale = [&](double y) { return 0.3 + 2.2 * c.near(y); };
    const double villageX = c.w * d.real(0.15, 0.85);
    const int houses = int(d.real(7, 13) * c.w / c.h);
    for (int i = 0; i < houses; ++i) {
        const double y = fieldTop + (c.h - fieldTop) * std::pow(d.real(0.05, 0.8), 1.5) + c.h * 0.02;
        const double x = villageX + d.real(-0.25, 0.25) * c.w * (0.4 + c.near(y));
        const double s = c.u * 30 * scale(y);
        if (inRiver(QPointF(x, y), s))
            continue;
        props.push_back({ y, [&c, x, y, s] { drawHouse(c, QPointF(x, y), s); } });
    }
    const int trees = int(d.real(10, 18) * c.w / c.h);
    for (int i = 0; i < trees; ++i) {
        const double y = fieldTop + (c.h - fieldTop) * std::pow(d.real(0.05, 1.0), 1.2) + c.h * 0.02;
        const double x = d.real(-0.02, 1.02) * c.w;
        const double s = c.u * 40 * scale(y);
        if (inRiver(QPointF(x, y), s * 0.2))
            continue;
        props.push_back({ y, [&c, x, y, s] { drawTree(c, QPointF(x, y), s); } });
    }
    drawProps(props);
}

} // namespace picturegen
