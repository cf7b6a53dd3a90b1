// Picture boxes and the bit-block copy, over QImage with direct scan-line access for speed.
#include "platform/picturebox.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cstring>

PictureBox::PictureBox(QWidget *parent, QColor back)
    : QWidget(parent)
    , m_back(back)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_image = QImage(1, 1, QImage::Format_RGB32);
    m_image.fill(m_back);
}

void PictureBox::setBoxSize(int w, int h)
{
    w = std::max(w, 1);
    h = std::max(h, 1);
    const int iw = std::max(w - 2 * m_border, 1);
    const int ih = std::max(h - 2 * m_border, 1);
    if (m_image.width() != iw || m_image.height() != ih) {
        QImage next(iw, ih, QImage::Format_RGB32);
        next.fill(m_back);
        bitBlt(next, 0, 0, iw, ih, m_image, 0, 0);
        m_image = std::move(next);
        resizeFine();
    }
    resize(w, h);
}

void PictureBox::setFineRatio(int ratio)
{
    m_ratio = std::max(ratio, 1);
    m_fine = QImage();
    resizeFine();
    if (fine()) {
        QPainter p(&m_fine);
        p.drawImage(QPoint(0, 0), m_image);
    }
}

void PictureBox::resizeFine()
{
    if (m_ratio == 1)
        return;
    QImage next(m_image.size() * m_ratio, QImage::Format_RGB32);
    next.fill(m_back);
    if (!m_fine.isNull())
        bitBlt(next, 0, 0, next.width(), next.height(), m_fine, 0, 0);
    // Painters then measure the drawing in the box's own pixels.
    next.setDevicePixelRatio(m_ratio);
    m_fine = std::move(next);
}

void PictureBox::setBorder(int width)
{
    m_border = std::max(width, 0);
    setBoxSize(this->width(), height());
    update();
}

void PictureBox::clearPicture()
{
    m_image.fill(m_back);
    m_fine.fill(m_back);
    m_printY = 0;
    update();
}

void PictureBox::setPicture(const QImage &picture)
{
    m_image.fill(m_back);
    const QImage src
        = picture.format() == QImage::Format_RGB32 ? picture : picture.convertToFormat(QImage::Format_RGB32);
    bitBlt(m_image, 0, 0, src.width(), src.height(), src, 0, 0);
    if (fine()) {
        m_fine.fill(m_back);
        QPainter(&m_fine).drawImage(QPoint(0, 0), src);
    }
    update();
}

void PictureBox::setPicture(const PictureBox &source)
{
    setPicture(source.image());
    if (fine() && source.m_ratio == m_ratio)
        bitBlt(m_fine, 0, 0, m_fine.width(), m_fine.height(), source.m_fine, 0, 0);
}

void PictureBox::stretchDraw(const QImage &picture, const QRect &target)
{
    if (picture.isNull() || target.isEmpty())
        return;
    const QImage scaled = picture.scaled(target.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                              .convertToFormat(QImage::Format_RGB32);
    bitBlt(m_image, target.x(), target.y(), scaled.width(), scaled.height(), scaled, 0, 0);
    if (fine()) {
        // Sampled from the picture's own pixels: a picture decoded at device resolution stays sharp.
        QPainter p(&m_fine);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(QRectF(target), picture);
    }
    refresh(target);
}

void PictureBox::drawLine(int x1, int y1, int x2, int y2, QRgb color, LineStyle style)
{
    // Pixels are written directly: a full grid of 250 lines costs a few microseconds this way.
    const int w = m_image.width();
    const int h = m_image.height();
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
            reinterpret_cast<QRgb *>(m_image.scanLine(y))[x] = c;
            // One pixel of the box is a square of device pixels.
            for (int fy = y * m_ratio; m_ratio > 1 && fy < (y + 1) * m_ratio; ++fy)
                std::fill_n(reinterpret_cast<QRgb *>(m_fine.scanLine(fy)) + x * m_ratio, m_ratio, c);
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
    QPainter p(&m_image);
    p.setFont(font());
    p.setPen(color);
    const QFontMetrics fm(font(), &m_image);
    p.drawText(QPoint(0, m_printY + fm.ascent()), text);
    if (fine()) {
        QPainter f(&m_fine);
        f.setFont(font());
        f.setPen(color);
        f.drawText(QPoint(0, m_printY + fm.ascent()), text);
    }
    m_printY += fm.height();
    update();
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
    const QRect drawing = m_image.rect().translated(o);
    const QRect shown = r.intersected(drawing);
    // A fractional screen ratio shows the next whole one's drawing reduced.
    p.setRenderHint(QPainter::SmoothPixmapTransform, devicePixelRatioF() != m_ratio);
    if (fine())
        p.drawImage(QRectF(shown), m_fine,
            QRectF(QRectF(shown.translated(-o)).topLeft() * m_ratio, QSizeF(shown.size()) * m_ratio));
    else
        p.drawImage(shown.topLeft(), m_image, shown.translated(-o));
    // The widget can be larger than its drawing for a moment while it is being resized.
    for (const QRect &rest : QRegion(r).subtracted(QRegion(drawing)))
        p.fillRect(rest, m_back);
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
