#include "props.h"

#include <QLinearGradient>
#include <QRadialGradient>

#include <algorithm>

namespace picturegen
{

namespace
{

    const QColor wallColours[] = { "#e9d8b4", "#c8553d", "#f2efe6", "#4f7cac", "#e7b84f", "#d98c8c",
        "#9bc1bc", "#b5651d", "#ffffff", "#7a9e4f", "#e07a5f", "#f4d35e" };
    const QColor roofColours[] = { "#a23e2a", "#5b3a29", "#3d4451", "#8c2f1b", "#6b6b6b", "#2f4858" };
    const QColor hullColours[]
        = { "#c0392b", "#1f4e79", "#f5f5f0", "#2e7d32", "#f1c40f", "#e67e22", "#34495e" };

} // namespace

void drawHouse(Canvas &c, QPointF base, double s)
{
    const double wide = s * c.dice.real(1.0, 1.7);
    const double tall = s * c.dice.real(0.7, 1.1);
    const QColor wall = wallColours[c.dice.below(12)];
    const QColor roof = roofColours[c.dice.below(6)];
    const QRectF body(base.x() - wide / 2, base.y() - tall, wide, tall);
    const bool sunLeft = c.sun.x() < base.x();
    QLinearGradient light(body.topLeft(), body.topRight());
    light.setColorAt(0, sunLeft ? shade(wall, 1.08) : shade(wall, 0.75));
    light.setColorAt(1, sunLeft ? shade(wall, 0.75) : shade(wall, 1.08));
    c.p.setPen(QPen(shade(wall, 0.5), std::max(0.6, s * 0.03)));
    c.p.setBrush(light);
    c.p.drawRect(body);

    const double over = s * 0.12;
    QPolygonF gable;
    gable << QPointF(body.left() - over, body.top())
          << QPointF(base.x(), body.top() - tall * c.dice.real(0.45, 0.8))
          << QPointF(body.right() + over, body.top());
    c.p.setPen(QPen(shade(roof, 0.6), std::max(0.6, s * 0.03)));
    c.p.setBrush(roof);
    c.p.drawPolygon(gable);

    // Windows lit warmly or dark; a door on one side.
    const int windows = std::max(1, int(wide / (s * 0.45)));
    const double ww = s * 0.16;
    c.p.setPen(QPen(QColor(250, 250, 245), std::max(0.5, s * 0.025)));
    for (int i = 0; i < windows; ++i) {
        const double x = body.left() + wide * (i + 0.5) / windows;
        c.p.setBrush(c.dice.chance(0.3) ? QColor("#ffd27a") : QColor("#2b3440"));
        c.p.drawRect(QRectF(x - ww / 2, body.top() + tall * 0.2, ww, ww * 1.2));
    }
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(shade(roof, 0.7));
    const double doorX = body.left() + wide * (c.dice.chance(0.5) ? 0.25 : 0.7);
    c.p.drawRect(QRectF(doorX - ww * 0.6, base.y() - tall * 0.42, ww * 1.2, tall * 0.42));
}

void drawTree(Canvas &c, QPointF base, double s)
{
    const bool conifer = c.dice.chance(0.4);
    const QColor leaf
        = shade(mix(c.pal.nearHills, QColor("#2f5a1e"), c.dice.real(0.2, 0.7)), c.dice.real(0.7, 1.05));
    c.p.setPen(Qt::NoPen);
    c.p.setBrush(QColor("#4a3423"));
    c.p.drawRect(QRectF(base.x() - s * 0.07, base.y() - s * 0.7, s * 0.14, s * 0.7));
    const double toSun = c.sun.x() < base.x() ? -1 : 1;
    if (conifer) {
        for (int tier = 0; tier < 4; ++tier) {
            const double y = base.y() - s * (0.35 + tier * 0.45);
            const double half = s * (0.6 - tier * 0.12);
            QPolygonF t;
            t << QPointF(base.x() - half, y) << QPointF(base.x(), y - s * 0.75)
              << QPointF(base.x() + half, y);
            QLinearGradient g(base.x() - half, 0, base.x() + half, 0);
            g.setColorAt(toSun < 0 ? 0 : 1, shade(leaf, 1.15));
            g.setColorAt(toSun < 0 ? 1 : 0, shade(leaf, 0.6));
            c.p.setBrush(g);
            c.p.drawPolygon(t);
        }
        return;
    }
    const QPointF crown(base.x(), base.y() - s * 1.2);
    const int blobs = 6 + c.dice.below(5);
    for (int i = 0; i < blobs; ++i) {
        const QPointF at = crown + QPointF(c.dice.real(-0.45, 0.45) * s, c.dice.real(-0.4, 0.3) * s);
        const double r = s * c.dice.real(0.3, 0.5);
        QRadialGradient g(at + QPointF(toSun * r * 0.4, -r * 0.4), r * 1.3);
        g.setColorAt(0, shade(leaf, 1.25));
        g.setColorAt(1, shade(leaf, 0.55));
        c.p.setBrush(g);
        c.p.drawEllipse(at, r, r);
    }
}

void drawBoat(Canvas &c, QPointF at, double s)
{
    const QColor hull = hullColours[c.dice.below(7)];
    const double len = s * c.dice.real(1.8, 2.6);
    const double depth = s * 0.38;
    const double dir = c.dice.chance(0.5) ? 1 : -1;

    // The reflection first, broken into strips as on moving water.
    c.p.setPen(Qt::NoPen);
    for (int i = 0; i < 5; ++i) {
        const double y = at.y() + depth * 0.2 + i * depth * 0.35;
        const double half = len * (0.45 - i * 0.06) * c.dice.real(0.8, 1.1);
        c.p.setBrush(withAlpha(shade(hull, 0.7), 110 - i * 18));
        c.p.drawRect(QRectF(at.x() - half + c.dice.real(-0.1, 0.1) * len, y, half * 2, depth * 0.18));
    }

    QPolygonF body;
    body << QPointF(at.x() - dir * len / 2, at.y() - depth)
         << QPointF(at.x() + dir * len / 2, at.y() - depth * 1.15)
         << QPointF(at.x() + dir * len * 0.38, at.y()) << QPointF(at.x() - dir * len * 0.4, at.y());
    c.p.setPen(QPen(shade(hull, 0.5), std::max(0.6, s * 0.04)));
    c.p.setBrush(hull);
    c.p.drawPolygon(body);
    c.p.setPen(QPen(hull.lightness() > 160 ? QColor("#1f4e79") : QColor("#f5f5f0"), std::max(0.6, s * 0.06)));
    c.p.drawLine(QPointF(at.x() - len * 0.42, at.y() - depth * 0.6),
        QPointF(at.x() + len * 0.42, at.y() - depth * 0.6));

    const double deck = at.y() - depth;
    const QPen spar(QColor("#3a2e25"), std::max(0.6, s * 0.05));
    if (c.dice.chance(0.6)) {
        // A sailing boat: mast, main sail and jib.
        const double mast = s * c.dice.real(2.0, 2.8);
        c.p.setPen(spar);
        c.p.drawLine(QPointF(at.x(), deck), QPointF(at.x(), deck - mast));
        const QColor cloth = c.dice.chance(0.75) ? QColor("#f7f3e8") : wallColours[c.dice.below(12)];
        QPolygonF main, jib;
        main << QPointF(at.x() - dir * s * 0.06, deck - mast * 0.96)
             << QPointF(at.x() - dir * s * 0.06, deck - s * 0.12)
             << QPointF(at.x() - dir * len * 0.42, deck - s * 0.12);
        jib << QPointF(at.x() + dir * s * 0.06, deck - mast * 0.9)
            << QPointF(at.x() + dir * s * 0.06, deck - s * 0.15)
            << QPointF(at.x() + dir * len * 0.36, deck - s * 0.15);
        QLinearGradient g(at.x() - len / 2, 0, at.x() + len / 2, 0);
        g.setColorAt(0, shade(cloth, 0.8));
        g.setColorAt(1, shade(cloth, 1.05));
        c.p.setPen(QPen(shade(cloth, 0.6), std::max(0.5, s * 0.025)));
        c.p.setBrush(g);
        c.p.drawPolygon(main);
        c.p.drawPolygon(jib);
    } else {
        // A fishing boat: cabin with windows and a short mast.
        const QRectF cabin(at.x() - dir * len * 0.05 - len * 0.15, deck - s * 0.6, len * 0.3, s * 0.6);
        c.p.setPen(QPen(QColor("#555"), std::max(0.5, s * 0.03)));
        c.p.setBrush(QColor("#eeeae0"));
        c.p.drawRect(cabin);
        c.p.setBrush(QColor("#2b3440"));
        c.p.drawRect(QRectF(cabin.left() + cabin.width() * 0.15, cabin.top() + cabin.height() * 0.2,
            cabin.width() * 0.7, cabin.height() * 0.3));
        c.p.setPen(spar);
        c.p.drawLine(
            QPointF(cabin.center().x(), cabin.top()), QPointF(cabin.center().x(), cabin.top() - s * 0.9));
    }
}

void drawLighthouse(Canvas &c, QPointF base, double s)
{
    const double tall = s * 4.2, bottom = s * 0.55, top = s * 0.38;
    QPolygonF tower;
    tower << QPointF(base.x() - bottom, base.y()) << QPointF(base.x() - top, base.y() - tall)
          << QPointF(base.x() + top, base.y() - tall) << QPointF(base.x() + bottom, base.y());
    QPainterPath shape;
    shape.addPolygon(tower);
    c.p.save();
    c.p.setClipPath(shape);
    for (int band = 0; band < 6; ++band) {
        const QColor col = band % 2 ? QColor("#c62828") : QColor("#f5f2ea");
        c.p.fillRect(
            QRectF(base.x() - bottom, base.y() - tall * (band + 1) / 6, bottom * 2, tall / 6 + 1), col);
    }
    const bool sunLeft = c.sun.x() < base.x();
    QLinearGradient side(base.x() - bottom, 0, base.x() + bottom, 0);
    side.setColorAt(sunLeft ? 0 : 1, QColor(255, 255, 255, 40));
    side.setColorAt(sunLeft ? 1 : 0, QColor(0, 0, 0, 110));
    c.p.fillRect(shape.boundingRect(), side);
    c.p.restore();

    const QRectF lamp(base.x() - top * 0.8, base.y() - tall - s * 0.55, top * 1.6, s * 0.55);
    c.p.setPen(QPen(QColor("#222"), std::max(0.6, s * 0.05)));
    c.p.setBrush(QColor("#ffe27a"));
    c.p.drawRect(lamp);
    c.p.setBrush(QColor("#2b2b2b"));
    QPolygonF cap;
    cap << QPointF(lamp.left() - s * 0.1, lamp.top()) << QPointF(lamp.center().x(), lamp.top() - s * 0.45)
        << QPointF(lamp.right() + s * 0.1, lamp.top());
    c.p.drawPolygon(cap);
    c.p.drawRect(QRectF(base.x() - top * 1.3, base.y() - tall - s * 0.05, top * 2.6, s * 0.12));
}

void drawFlowers(Canvas &c, const QPainterPath &area, int count)
{
    static const QColor petals[] = { "#ffffff", "#f4d35e", "#e63946", "#c77dff", "#ff8fab", "#ffb703" };
    const QRectF box = area.boundingRect();
    c.p.setPen(Qt::NoPen);
    for (int i = 0; i < count; ++i) {
        const QPointF at(c.dice.real(box.left(), box.right()), c.dice.real(box.top(), box.bottom()));
        if (c.near(at.y()) < 0.35 || !area.contains(at))
            continue;
        const double r = c.u * (0.8 + 3.5 * c.near(at.y())) * c.dice.real(0.6, 1.2);
        c.p.setBrush(petals[c.dice.below(6)]);
        c.p.drawEllipse(at, r, r);
    }
}

void drawProps(std::vector<Prop> &props)
{
    std::stable_sort(props.begin(), props.end(), [](const Prop &a, const Prop &b) { return a.y < b.y; });
    for (const Prop &prop : props)
        prop.draw();
}

} // namespace picturegen
