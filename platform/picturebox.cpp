// Picture boxes and the bit-block copy, over QImage with direct scan-line access for speed.
#include "platform/picturebox.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cstring>
#include <utility>

PictureBox::PictureBox(QWidget *parent, QColor back)
    : QWidget(parent)
    , m_back(back)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

PictureBox::Drawing &PictureBox::drawing() const
{
    Drawing &d = m_drawing;
    if (d.image.isNull()) {
        d.image = QImage(m_size, QImage::Format_RGB32);
        d.image.fill(m_back);
        if (m_ratio > 1) {
            d.fine = QImage(m_size * m_ratio, QImage::Format_RGB32);
            d.fine.fill(m_back);
            d.fine.setDevicePixelRatio(m_ratio);
        }
        for (const Print &print : std::exchange(d.waiting, {}))
            draw(print);
    }
    return d;
}

void PictureBox::setBoxSize(int w, int h)
{
    w = std::max(w, 1);
    h = std::max(h, 1);
    const QSize size(std::max(w - 2 * m_border, 1), std::max(h - 2 * m_border, 1));
    if (size != m_size) {
        // Lines printed before a resize land as they would have, on the drawing of the old size.
        if (!m_drawing.waiting.empty())
            drawing();
        if (drawn()) {
            QImage next(size, QImage::Format_RGB32);
            next.fill(m_back);
            bitBlt(next, 0, 0, size.width(), size.height(), m_drawing.image, 0, 0);
            m_drawing.image = std::move(next);
            resizeFine();
        }
        m_size = size;
    }
    resize(w, h);
}

void PictureBox::setFineRatio(int ratio)
{
    m_ratio = std::max(ratio, 1);
    m_drawing.fine = QImage();
    if (!drawn())
        return;
    resizeFine();
    if (m_ratio > 1)
        QPainter(&m_drawing.fine).drawImage(QPoint(0, 0), m_drawing.image);
}

void PictureBox::resizeFine()
{
    if (m_ratio == 1)
        return;
    QImage next(m_drawing.image.size() * m_ratio, QImage::Format_RGB32);
    next.fill(m_back);
    if (!m_drawing.fine.isNull())
        bitBlt(next, 0, 0, next.width(), next.height(), m_drawing.fine, 0, 0);
    // Painters then measure the drawing in the box's own pixels.
    next.setDevicePixelRatio(m_ratio);
    m_drawing.fine = std::move(next);
}

void PictureBox::setBorder(int width)
{
    m_border = std::max(width, 0);
    setBoxSize(this->width(), height());
    update();
}

void PictureBox::clearPicture()
{
    if (drawn()) {
        m_drawing.image.fill(m_back);
        m_drawing.fine.fill(m_back);
    }
    m_drawing.waiting.clear();
    m_drawing.printY = 0;
    update();
}

void PictureBox::setPicture(const QImage &picture)
{
    Drawing &d = drawing();
    d.image.fill(m_back);
    const QImage src
        = picture.format() == QImage::Format_RGB32 ? picture : picture.convertToFormat(QImage::Format_RGB32);
    bitBlt(d.image, 0, 0, src.width(), src.height(), src, 0, 0);
    if (m_ratio > 1) {
        d.fine.fill(m_back);
        QPainter(&d.fine).drawImage(QPoint(0, 0), src);
    }
    update();
}

void PictureBox::setPicture(const PictureBox &source)
{
    setPicture(source.image());
    if (m_ratio > 1 && source.m_ratio == m_ratio)
        bitBlt(*fine(), 0, 0, fine()->width(), fine()->height(), *source.fine(), 0, 0);
}

void PictureBox::stretchDraw(const QImage &picture, const QRect &target)
{
    if (picture.isNull() || target.isEmpty())
        return;
    const QImage scaled = picture.scaled(target.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                              .convertToFormat(QImage::Format_RGB32);
    Drawing &d = drawing();
    bitBlt(d.image, target.x(), target.y(), scaled.width(), scaled.height(), scaled, 0, 0);
    if (m_ratio > 1) {
        // Sampled from the picture's own pixels: a picture decoded at device resolution stays sharp.
        QPainter p(&d.fine);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(QRectF(target), picture);
    }
    refresh(target);
}

void PictureBox::drawLine(int x1, int y1, int x2, int y2, QRgb color, LineStyle style)
{
    // Pixels are written directly: a full grid of 250 lines costs a few microseconds this way.
    QImage &image = drawing().image;
    const int w = image.width();
    const int h = image.height();
    const QRgb c = color | 0xFF000000u;
    const bool vertical = (x1 == x2);
    const int len = vertical ? std::abs(y2 - y1) : std::abs(x2 - x1);
    const int dx = vertical ? 0 : (x2 >= x1 ? 1 : -1);
    const int dy = vertical ? (y2 >= y1 ? 1 : -1) : 0;
    int x = x1;
    int y = y1;
    for (int i = 0; i < len; ++i, x += dx, y += dy) {
        // Dotted: two pixels on, two off, counted from the line's start.
        if (style == LineStyle::Dotted && (i & 2))
            continue;
        if (x >= 0 && y >= 0 && x < w && y < h) {
            reinterpret_cast<QRgb *>(image.scanLine(y))[x] = c;
            // One pixel of the box is a square of device pixels.
            for (int fy = y * m_ratio; m_ratio > 1 && fy < (y + 1) * m_ratio; ++fy)
                std::fill_n(reinterpret_cast<QRgb *>(m_drawing.fine.scanLine(fy)) + x * m_ratio, m_ratio, c);
        }
    }
}

void PictureBox::drawRectOutline(int x1, int y1, int x2, int y2, QRgb color)
{
    drawLine(x1, y1, x2, y1, color);
    drawLine(x2, y1, x2, y2, color);
    drawLine(x2, y2, x1, y2, color);
    drawLine(x1, y2, x1, y1, color);
    refresh(QRect(QPoint(x1, y1), QPoint(x2, y2)));
}

void PictureBox::printLine(const QString &text, QColor color)
{
    Print print { text, color, font() };
    if (drawn())
        draw(print);
    else
        m_drawing.waiting.push_back(std::move(print));
    update();
}

void PictureBox::draw(const Print &print) const
{
    Drawing &d = m_drawing;
    const QFontMetrics fm(print.font, &d.image);
    for (QImage *target : { &d.image, m_ratio > 1 ? &d.fine : nullptr }) {
        if (!target)
            continue;
        QPainter p(target);
        p.setFont(print.font);
        p.setPen(print.color);
        p.drawText(QPoint(0, d.printY + fm.ascent()), print.text);
    }
    d.printY += fm.height();
}

void PictureBox::refresh(const QRect &r)
{
    if (r.isNull())
        update();
    else
        update(r.translated(m_border, m_border));
}

void PictureBox::paintEvent(QPaintEvent *event)
{
    QPainter p(this);
    const QRect r = event->rect();
    const QPoint o(m_border, m_border);
    const QRect area(o, m_size);
    const QRect shown = r.intersected(area);
    if (!drawn() && m_drawing.waiting.empty()) {
        // Nothing drawn yet: the background is the whole picture.
        p.fillRect(r, m_back);
    } else {
        const Drawing &d = drawing();
        // A fractional screen ratio shows the next whole one's drawing reduced.
        p.setRenderHint(QPainter::SmoothPixmapTransform, devicePixelRatioF() != m_ratio);
        if (m_ratio > 1)
            p.drawImage(QRectF(shown), d.fine,
                QRectF(QRectF(shown.translated(-o)).topLeft() * m_ratio, QSizeF(shown.size()) * m_ratio));
        else
            p.drawImage(shown.topLeft(), d.image, shown.translated(-o));
        // The widget can be larger than its drawing for a moment while it is being resized.
        for (const QRect &rest : QRegion(r).subtracted(QRegion(area)))
            p.fillRect(rest, m_back);
    }
    // The sunken border: shadow above and left, light below and right, darker on the inner ring.
    for (int i = 0; i < m_border; ++i) {
        const QRect ring = rect().adjusted(i, i, -i - 1, -i - 1);
        p.setPen(i == 0 ? QColor(128, 128, 128) : QColor(64, 64, 64));
        p.drawLine(ring.topLeft(), ring.topRight());
        p.drawLine(ring.topLeft(), ring.bottomLeft());
        p.setPen(i == 0 ? QColor(255, 255, 255) : QColor(212, 208, 200));
        p.drawLine(ring.bottomLeft(), ring.bottomRight());
        p.drawLine(ring.topRight(), ring.bottomRight());
    }
}

void PictureBox::mousePressEvent(QMouseEvent *event)
{
    m_pressed = true;
    emit mousePressed(event->button(), event->modifiers(), event->position() - QPointF(m_border, m_border));
}

void PictureBox::mouseReleaseEvent(QMouseEvent *event)
{
    const bool click = m_pressed && rect().contains(event->position().toPoint());
    m_pressed = false;
    if (click)
        emit clicked();
    // The release goes on to the window, which follows a drag.
    QWidget::mouseReleaseEvent(event);
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    emit mouseDoubleClicked(event->position() - QPointF(m_border, m_border));
}

void bitBlt(QImage &dst, int dx, int dy, int w, int h, const QImage &src, int sx, int sy)
{
    // Clip to the source and the target, keeping the two rectangles aligned.
    if (sx < 0) {
        w += sx;
        dx -= sx;
        sx = 0;
    }
    if (sy < 0) {
        h += sy;
        dy -= sy;
        sy = 0;
    }
    if (dx < 0) {
        w += dx;
        sx -= dx;
        dx = 0;
    }
    if (dy < 0) {
        h += dy;
        sy -= dy;
        dy = 0;
    }
    w = std::min({ w, src.width() - sx, dst.width() - dx });
    h = std::min({ h, src.height() - sy, dst.height() - dy });
    if (w <= 0 || h <= 0)
        return;
    Q_ASSERT(src.depth() == 32 && dst.depth() == 32);
    const std::size_t bytes = std::size_t(w) * 4;
    for (int row = 0; row < h; ++row)
        std::memcpy(dst.scanLine(dy + row) + dx * 4, src.constScanLine(sy + row) + sx * 4, bytes);
}

void bitBlt(PictureBox &dst, int dx, int dy, int w, int h, const PictureBox &src, int sx, int sy)
{
    bitBlt(dst.image(), dx, dy, w, h, src.image(), sx, sy);
    const int r = dst.fine() ? int(dst.fine()->devicePixelRatio()) : 1;
    if (r > 1 && src.fine() && int(src.fine()->devicePixelRatio()) == r)
        bitBlt(*dst.fine(), dx * r, dy * r, w * r, h * r, *src.fine(), sx * r, sy * r);
    else if (r > 1) // A source without the same fine drawing can only be enlarged.
        QPainter(dst.fine()).drawImage(QRect(dx, dy, w, h), src.image(), QRect(sx, sy, w, h));
    dst.refresh(QRect(dx, dy, w, h));
}
