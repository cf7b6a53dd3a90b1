// Draws landscapes and graphic patterns from a seed, so the game ships no third-party images.
#include "picturegen.h"

#include "gifwriter.h"

#include <QDir>
#include <QImageWriter>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace picturegen
{

namespace
{

    class Dice
    {
    public:
        explicit Dice(quint32 seed)
            : rng(seed)
        {
        }
        double real(double lo, double hi)
        {
            return lo + rng.generateDouble() * (hi - lo);
        }
        int below(int n)
        {
            return int(rng.bounded(quint32(n)));
        }
        bool chance(double p)
        {
            return rng.generateDouble() < p;
        }

    private:
        QRandomGenerator rng;
    };

    QColor mix(const QColor &a, const QColor &b, double t)
    {
        return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * t,
            a.greenF() + (b.greenF() - a.greenF()) * t, a.blueF() + (b.blueF() - a.blueF()) * t,
            a.alphaF() + (b.alphaF() - a.alphaF()) * t);
    }

    QColor withAlpha(QColor c, int alpha)
    {
        c.setAlpha(alpha);
        return c;
    }

    QColor shade(const QColor &c, double factor)
    {
        return factor < 1 ? mix(c, Qt::black, 1 - factor) : mix(c, Qt::white, factor - 1);
    }

    // Turns every colour of a palette by the same hue so that seeds sharing a palette still differ.
    QColor turn(const QColor &c, double degrees)
    {
        float h, s, v, a;
        c.getHsvF(&h, &s, &v, &a);
        if (h < 0)
            return c;
        return QColor::fromHsvF(std::fmod(h + degrees / 360.0 + 1.0, 1.0), s, v, a);
    }

    double smooth(double t)
    {
        t = std::clamp(t, 0.0, 1.0);
        return t * t * (3 - 2 * t);
    }

    struct Palette {
        QColor skyTop, skyMid, skyLow, sun, glow, cloud, cloudShade, seaFar, seaNear, farHills, nearHills,
            grass, dry;
    };

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

    const QColor wallColours[] = { "#e9d8b4", "#c8553d", "#f2efe6", "#4f7cac", "#e7b84f", "#d98c8c",
        "#9bc1bc", "#b5651d", "#ffffff", "#7a9e4f", "#e07a5f", "#f4d35e" };
    const QColor roofColours[] = { "#a23e2a", "#5b3a29", "#3d4451", "#8c2f1b", "#6b6b6b", "#2f4858" };
    const QColor hullColours[]
        = { "#c0392b", "#1f4e79", "#f5f5f0", "#2e7d32", "#f1c40f", "#e67e22", "#34495e" };

    // Heights in [0, 1] along a ridge, by midpoint displacement; rough near 1 gives jagged peaks.
    std::vector<double> ridge(Dice &dice, double rough)
    {
        const int n = 257;
        std::vector<double> h(n);
        h[0] = dice.real(0.1, 0.9);
        h[n - 1] = dice.real(0.1, 0.9);
        double amp = 0.6;
        for (int step = n - 1; step > 1; step /= 2) {
            for (int i = step / 2; i < n; i += step)
                h[i] = (h[i - step / 2] + h[i + step / 2]) / 2 + dice.real(-amp, amp);
            amp *= rough;
        }
        const auto [lo, hi] = std::minmax_element(h.begin(), h.end());
        const double low = *lo, span = std::max(1e-9, *hi - *lo);
        for (double &v : h)
            v = (v - low) / span;
        return h;
    }

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

    // A mountain range resting on the line y = base; with snow, its peaks get white caps.
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
        c.p.setPen(
            QPen(hull.lightness() > 160 ? QColor("#1f4e79") : QColor("#f5f5f0"), std::max(0.6, s * 0.06)));
        c.p.drawLine(QPointF(at.x() - len * 0.42, at.y() - depth * 0.6),
            QPointF(at.x() + len * 0.42, at.y() - depth * 0.6));

        const double deck = at.y() - depth;
        if (c.dice.chance(0.6)) {
            // A sailing boat: mast, main sail and jib.
            const double mast = s * c.dice.real(2.0, 2.8);
            c.p.setPen(QPen(QColor("#3a2e25"), std::max(0.6, s * 0.05)));
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
            c.p.setPen(QPen(QColor("#3a2e25"), std::max(0.6, s * 0.05)));
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

    // Things standing on the ground are drawn far to near so that nearer ones cover farther ones.
    struct Prop {
        double y;
        std::function<void()> draw;
    };

    void drawProps(std::vector<Prop> &props)
    {
        std::stable_sort(props.begin(), props.end(), [](const Prop &a, const Prop &b) { return a.y < b.y; });
        for (const Prop &prop : props)
            prop.draw();
    }

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
        c.p.setPen(
            QPen(mix(c.pal.dry, Qt::white, 0.3), c.u * 14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
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
        c.p.drawRect(QRectF(
            std::min(mirror(pierFrom), mirror(pierTo)), pierY, std::abs(pierTo - pierFrom), pierH * 0.8));

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
        drawRange(
            c, midBase, (midBase - c.horizon) * 1.15, mix(c.pal.nearHills, c.pal.grass, 0.35), 0.35, false);

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
                    c.p.drawLine(
                        QPointF(x + lean * k / furrows, fy), QPointF(x + plot + lean * k / furrows, fy));
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
        for (int i = 0; i < 24; ++i) {
            // Stroked in slices so that it widens with nearness.
            const double t0 = i / 24.0, t1 = (i + 1) / 24.0;
            QPainterPath part(river.pointAtPercent(t0));
            part.lineTo(river.pointAtPercent(t1));
            const double wide = c.u * (6 + 150 * c.near(river.pointAtPercent(t1).y()));
            c.p.setPen(QPen(QColor("#6b5a3e"), wide * 1.12, Qt::SolidLine, Qt::RoundCap));
            c.p.drawPath(part);
        }
        for (int i = 0; i < 24; ++i) {
            const double t0 = i / 24.0, t1 = (i + 1) / 24.0;
            QPainterPath part(river.pointAtPercent(t0));
            part.lineTo(river.pointAtPercent(t1));
            const double wide = c.u * (6 + 150 * c.near(river.pointAtPercent(t1).y()));
            c.p.setPen(QPen(QBrush(water), wide, Qt::SolidLine, Qt::RoundCap));
            c.p.drawPath(part);
        }
        // Nothing stands in the water: a base closer to the river's course than its half width is skipped.
        auto inRiver = [&](QPointF at, double margin) {
            for (int i = 0; i <= 96; ++i) {
                const QPointF on = river.pointAtPercent(i / 96.0);
                const double half = c.u * (6 + 150 * c.near(on.y())) * 0.6;
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

    // Smooth random values at a given cell size in fixed point; preparing one row at a time keeps it cheap.
    class ValueNoise
    {
    public:
        ValueNoise(int width, int height, int cell, quint32 seed)
            : cell(cell)
            , cols(width / cell + 2)
            , grid(size_t(cols) * (height / cell + 2))
            , index(width)
            , frac(width)
            , row(cols)
        {
            QRandomGenerator rng(seed);
            for (int &v : grid)
                v = int(rng.bounded(256u)) - 128;
            for (int x = 0; x < width; ++x) {
                index[x] = x / cell;
                frac[x] = int(256 * smooth(double(x % cell) / cell));
            }
        }
        void prepare(int y)
        {
            const int r = y / cell;
            const int f = int(256 * smooth(double(y % cell) / cell));
            const int *a = &grid[size_t(r) * cols];
            const int *b = a + cols;
            for (int i = 0; i < cols; ++i)
                row[i] = a[i] * 256 + (b[i] - a[i]) * f;
        }
        // A value in about [-128, 127] at column x of the prepared row.
        int at(int x) const
        {
            const int i = index[x];
            return (row[i] * 256 + (row[i + 1] - row[i]) * frac[x]) >> 16;
        }

    private:
        int cell, cols;
        std::vector<int> grid, index, frac, row;
    };

    // Film grain, textures at three scales and a soft vignette, written straight into the scan lines so that
    // the picture compresses and looks like a photo; the sky above the horizon gets a gentler texture.
    void addTexture(QImage &img, quint32 seed, int horizon)
    {
        const int w = img.width(), h = img.height();
        const int shorter = std::min(w, h);
        ValueNoise blotch(w, h, std::max(8, shorter / 10), seed ^ 0x9e3779b9u);
        ValueNoise tint(w, h, std::max(8, shorter / 6), seed ^ 0x7f4a7c15u);
        ValueNoise weave(w, h, std::max(3, shorter / 700), seed ^ 0x85ebca6bu);
        ValueNoise fibre(w, h, 2, seed ^ 0xc2b2ae35u);

        std::vector<int> vignetteX(w);
        for (int x = 0; x < w; ++x) {
            const double dx = (x - w / 2.0) / (w / 2.0);
            vignetteX[x] = int(40 * dx * dx);
        }
        for (int y = 0; y < h; ++y) {
            blotch.prepare(y);
            tint.prepare(y);
            weave.prepare(y);
            fibre.prepare(y);
            const double dy = (y - h / 2.0) / (h / 2.0);
            const int vignetteY = int(40 * dy * dy);
            // Texture strength in 1/16: gentle in the sky, full on land and water.
            const int strength = y < horizon ? 6 : 14;
            quint32 state = (quint32(y) * 0x9e3779b1u) ^ seed ^ 0xa5a5a5a5u;
            state = state ? state : 1;
            QRgb *line = reinterpret_cast<QRgb *>(img.scanLine(y));
            for (int x = 0; x < w; ++x) {
                state ^= state << 13;
                state ^= state >> 17;
                state ^= state << 5;
                const int grain = int(state & 15) + int((state >> 4) & 15) - 15;
                const int chroma = int((state >> 8) & 7) - 3;
                const int texture = (weave.at(x) * 3 + fibre.at(x) * 4) * strength >> 8;
                const int lum = (blotch.at(x) >> 3) + texture + grain * 3 / 4;
                const int warm = tint.at(x) >> 4;
                const int keep = 256 - vignetteX[x] - vignetteY;
                const QRgb px = line[x];
                const int r = ((qRed(px) + lum + warm + chroma) * keep) >> 8;
                const int g = ((qGreen(px) + lum) * keep) >> 8;
                const int b = ((qBlue(px) + lum - warm - chroma) * keep) >> 8;
                line[x] = qRgb(std::clamp(r, 0, 255), std::clamp(g, 0, 255), std::clamp(b, 0, 255));
            }
        }
    }

    enum class Place { Coast, Valley };

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
        drawRange(
            c, c.horizon, c.h * dice.real(0.14, 0.24), mix(c.pal.farHills, c.pal.skyLow, 0.2), 0.6, snow);
        drawRange(c, c.horizon, c.h * dice.real(0.06, 0.12), c.pal.farHills, 0.4, false);
        if (place == Place::Coast)
            drawCoast(c);
        else
            drawValley(c);
        painter.end();

        addTexture(img, seed, int(c.horizon));
        return img;
    }

    // Seven-segment glyphs: digits, then letters that read well with seven strokes.
    const struct Glyph {
        char name;
        quint8 segments; // bits a..g: top, top right, bottom right, bottom, bottom left, top left, middle
    } glyphs[] = { { '0', 0x3F }, { '1', 0x06 }, { '2', 0x5B }, { '3', 0x4F }, { '4', 0x66 }, { '5', 0x6D },
        { '6', 0x7D }, { '7', 0x07 }, { '8', 0x7F }, { '9', 0x6F }, { 'A', 0x77 }, { 'b', 0x7C },
        { 'C', 0x39 }, { 'd', 0x5E }, { 'E', 0x79 }, { 'F', 0x71 }, { 'H', 0x76 }, { 'L', 0x38 },
        { 'P', 0x73 }, { 'U', 0x3E } };

    void drawGlyph(QPainter &p, const QRectF &box, quint8 segments, const QColor &ink, const QColor &edge)
    {
        const double l = box.left(), r = box.right(), t = box.top(), b = box.bottom(), m = box.center().y();
        const QLineF strokes[] = { { l, t, r, t }, { r, t, r, m }, { r, m, r, b }, { l, b, r, b },
            { l, m, l, b }, { l, t, l, m }, { l, m, r, m } };
        const double width = box.width() * 0.28;
        // The dark edge first, wider, so the glyph reads on any cell colour.
        for (int pass = 0; pass < 2; ++pass) {
            p.setPen(QPen(pass == 0 ? edge : ink, pass == 0 ? width * 1.6 : width, Qt::SolidLine,
                Qt::RoundCap, Qt::RoundJoin));
            for (int s = 0; s < 7; ++s)
                if (segments & (1 << s))
                    p.drawLine(strokes[s]);
        }
    }

    bool writeImage(
        const QImage &img, const QString &path, const QByteArray &format, int quality, QString *error)
    {
        QImageWriter writer(path, format);
        if (quality >= 0)
            writer.setQuality(quality);
        if (writer.write(img))
            return true;
        if (error)
            *error = QStringLiteral("cannot write %1: %2").arg(path, writer.errorString());
        return false;
    }

} // namespace

QImage scene(QSize size, quint32 seed)
{
    // The seed alone picks the place, so that scene() stays a pure function of its arguments.
    const Place place = (seed * 2654435761u) >> 31 ? Place::Valley : Place::Coast;
    return landscape(size, seed, place);
}

QImage pattern(QSize size, quint32 seed)
{
    if (size.isEmpty())
        return {};
    QImage img(size, QImage::Format_RGB32);
    Dice dice(seed);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    const double w = size.width(), h = size.height(), shorter = std::min(w, h);

    const int cols = std::max(1, int(std::round(w / (shorter / dice.real(3.5, 5.0)))));
    const int rows = std::max(1, int(std::round(h / (shorter / dice.real(3.5, 5.0)))));
    const double cw = w / cols, ch = h / rows;
    const double baseHue = dice.real(0, 360);
    std::vector<int> order(std::size(glyphs));
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = int(i);
    std::shuffle(order.begin(), order.end(), QRandomGenerator(seed));

    // The checker: neighbouring cells a golden angle apart in hue, alternately light and deep.
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < cols; ++i) {
            const double hue = std::fmod(baseHue + (j * cols + i) * 137.508, 360.0);
            const bool light = (i + j) % 2 == 0;
            const QColor colour = QColor::fromHsvF(hue / 360.0, light ? 0.55 : 0.85, light ? 0.97 : 0.72);
            const QRectF cell(i * cw, j * ch, cw + 1, ch + 1);
            QLinearGradient g(cell.topLeft(), cell.bottomRight());
            g.setColorAt(0, shade(colour, 1.12));
            g.setColorAt(1, shade(colour, 0.82));
            p.fillRect(cell, g);
        }
    }

    // Bold stripes across a diagonal band.
    p.save();
    QPainterPath band;
    const double bandAt = dice.real(0.2, 0.8) * w, bandWide = shorter * dice.real(0.25, 0.4);
    band.moveTo(bandAt - h * 0.5, h);
    band.lineTo(bandAt - h * 0.5 + bandWide, h);
    band.lineTo(bandAt + h * 0.5 + bandWide, 0);
    band.lineTo(bandAt + h * 0.5, 0);
    band.closeSubpath();
    p.setClipPath(band);
    const double stripe = shorter / 24;
    p.setPen(Qt::NoPen);
    for (double x = -h; x < w + h; x += stripe * 2) {
        QPolygonF s;
        s << QPointF(x, 0) << QPointF(x + stripe, 0) << QPointF(x + stripe + h * 0.3, h)
          << QPointF(x + h * 0.3, h);
        p.setBrush(QColor(255, 255, 255, 120));
        p.drawPolygon(s);
    }
    p.restore();

    const int circles = 3 + dice.below(3);
    for (int i = 0; i < circles; ++i) {
        const QPointF at(dice.real(0.05, 0.95) * w, dice.real(0.05, 0.95) * h);
        const double r = shorter * dice.real(0.1, 0.28);
        const QColor colour = QColor::fromHsvF(dice.real(0, 1), 0.9, 0.95, 0.75);
        p.setPen(QPen(QColor(255, 255, 255, 230), shorter * 0.018));
        p.setBrush(colour);
        p.drawEllipse(at, r, r);
        p.setPen(QPen(QColor(20, 20, 30, 200), shorter * 0.012));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(at, r * 0.6, r * 0.6);
    }
    const int triangles = 2 + dice.below(2);
    for (int i = 0; i < triangles; ++i) {
        const QPointF at(dice.real(0.1, 0.9) * w, dice.real(0.1, 0.9) * h);
        const double r = shorter * dice.real(0.08, 0.18), turnBy = dice.real(0, 2 * std::numbers::pi);
        QPolygonF t;
        for (int k = 0; k < 3; ++k)
            t << at + QPointF(std::cos(turnBy + k * 2.094) * r, std::sin(turnBy + k * 2.094) * r);
        p.setPen(QPen(QColor(20, 20, 30), shorter * 0.01, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(QColor::fromHsvF(dice.real(0, 1), 0.8, 1.0, 0.85));
        p.drawPolygon(t);
    }

    // Cell borders and glyphs last, so they read over everything.
    p.setPen(QPen(QColor(25, 25, 35), std::max(1.0, shorter * 0.006)));
    for (int i = 1; i < cols; ++i)
        p.drawLine(QPointF(i * cw, 0), QPointF(i * cw, h));
    for (int j = 1; j < rows; ++j)
        p.drawLine(QPointF(0, j * ch), QPointF(w, j * ch));
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < cols; ++i) {
            const Glyph &glyph = glyphs[order[(j * cols + i) % order.size()]];
            const double gh = ch * 0.5, gw = std::min(cw * 0.4, gh * 0.55);
            const QRectF box(i * cw + (cw - gw) / 2, j * ch + (ch - gh) / 2, gw, gh);
            const bool whiteInk = (i + j) % 2 == 1;
            drawGlyph(p, box, glyph.segments, whiteInk ? QColor(255, 255, 255) : QColor(20, 20, 30),
                whiteInk ? QColor(20, 20, 30) : QColor(255, 255, 255));
        }
    }
    return img;
}

bool writeSamples(const QString &folder, QString *error)
{
    const QDir dir(folder);
    if (folder.isEmpty() || !dir.exists()) {
        if (error)
            *error = QStringLiteral("no such folder: %1").arg(folder);
        return false;
    }
    struct Sample {
        const char *name;
        QImage image;
        QByteArray format;
        int quality;
    };
    // Fixed seeds: the starter library is the same on every build.
    std::vector<Sample> samples = {
        { "VX_harbour.jpg", landscape(QSize(1024, 768), 7, Place::Coast), "jpg", 90 },
        { "VX_panorama.jpg", landscape(QSize(1600, 600), 1, Place::Valley), "jpg", 90 },
        { "VX_tower.bmp", landscape(QSize(360, 540), 31, Place::Coast), "bmp", -1 },
        { "VX_mosaic.bmp", pattern(QSize(520, 390), 5), "bmp", -1 },
    };
    for (const Sample &s : samples)
        if (!writeImage(s.image, dir.filePath(QString::fromLatin1(s.name)), s.format, s.quality, error))
            return false;
    // Qt reads GIF but cannot write it: our own writer makes the GIF sample.
    const QString gif = dir.filePath(QStringLiteral("VX_lighthouse.gif"));
    if (!gifwriter::write(landscape(QSize(640, 480), 44, Place::Coast), gif)) {
        if (error)
            *error = QStringLiteral("cannot write %1").arg(gif);
        return false;
    }
    return true;
}

} // namespace picturegen
