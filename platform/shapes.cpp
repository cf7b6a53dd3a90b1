// Painting of the plain window parts.
#include "platform/shapes.h"

#include <QPaintEvent>
#include <QPainter>
#include <QSvgRenderer>

ShapeBox::ShapeBox(QWidget *parent, QColor fill, QColor border, int borderWidth, bool filled)
    : QWidget(parent)
    , m_fill(fill)
    , m_border(border)
    , m_borderWidth(borderWidth)
    , m_filled(filled)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    if (filled)
        setAttribute(Qt::WA_OpaquePaintEvent);
}

CursorOutline::CursorOutline(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CursorOutline::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
    p.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(QRectF(rect()).adjusted(3, 3, -3, -3));
}

void ShapeBox::setFillColor(QColor fill)
{
    m_fill = fill;
    update();
}

void ShapeBox::paintEvent(QPaintEvent *event)
{
    QPainter p(this);
    const QRect r = rect();
    if (m_filled)
        p.fillRect(event->rect(), m_border);
    const int b = m_borderWidth;
    if (m_filled) {
        p.fillRect(r.adjusted(b, b, -b, -b), m_fill);
        return;
    }
    // An outline only: the four sides, the inside left transparent.
    p.fillRect(QRect(0, 0, r.width(), b), m_border);
    p.fillRect(QRect(0, r.height() - b, r.width(), b), m_border);
    p.fillRect(QRect(0, 0, b, r.height()), m_border);
    p.fillRect(QRect(r.width() - b, 0, b, r.height()), m_border);
}

TextLabel::TextLabel(QWidget *parent, const QString &text, QColor fore, QColor back, Qt::Alignment align)
    : QWidget(parent)
    , m_text(text)
    , m_fore(fore)
    , m_back(back)
    , m_align(align)
{
}

void TextLabel::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.fillRect(rect(), m_back);
    p.setPen(m_fore);
    p.drawText(rect(), int(m_align), m_text);
}

SvgImage::SvgImage(QWidget *parent, const QString &path)
    : QWidget(parent)
    , m_path(path)
{
}

void SvgImage::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    QSvgRenderer(m_path).render(&p, rect());
}
