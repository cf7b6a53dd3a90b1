// The graphic pattern: a checker of coloured cells with seven-segment glyphs, stripes, circles and
// triangles. The starter VX_mosaic is drawn here, and tests and benchmarks use it as a test picture.
#include "paint.h"
#include "picturegen.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace picturegen
{

namespace
{

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

} // namespace

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

} // namespace picturegen
