// Face buttons paint their SVG at the device's pixel ratio, so faces stay crisp on any screen.
#include "platform/facebutton.h"

#include <QKeyEvent>
#include <QPainter>

FaceButton::FaceButton(QWidget *parent, const QString &facePath, const QString &toolTip)
    : QAbstractButton(parent)
{
    setToolTip(toolTip);
    // A screen reader announces the face by its tooltip: the picture has no words of its own.
    setAccessibleName(toolTip);
    setAccessibleDescription(toolTip);
    setFocusPolicy(Qt::TabFocus);
    setFace(facePath);
}

void FaceButton::setFace(const QString &facePath)
{
    m_facePath = facePath;
    // Read when the face is first painted, as icons are: the bar is built before the window stands.
    m_faceRead = false;
    update();
}

void FaceButton::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QRectF r = rect();
    // Pressed faces sink by one pixel; a light ring marks hover and keyboard focus.
    if (isDown())
        r.translate(1, 1);
    if (!m_faceRead) {
        m_renderer.load(m_facePath);
        m_faceRead = true;
    }
    m_renderer.render(&p, r);
    if (m_hover || hasFocus()) {
        p.setPen(QPen(QColor(255, 255, 255, hasFocus() ? 200 : 110), 1));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
}

void FaceButton::enterEvent(QEnterEvent *event)
{
    m_hover = true;
    update();
    QAbstractButton::enterEvent(event);
}

void FaceButton::leaveEvent(QEvent *event)
{
    m_hover = false;
    update();
    QAbstractButton::leaveEvent(event);
}

void FaceButton::hideEvent(QHideEvent *event)
{
    // Hidden under the pointer (the window minimised by its own button), a button hears of no leave on
    // Wayland, whose compositor tells only windows that still stand on the screen: it comes back unmarked.
    m_hover = false;
    QAbstractButton::hideEvent(event);
}

void FaceButton::keyPressEvent(QKeyEvent *event)
{
    // The arrows belong to the board (they slide tiles), not to moving the focus along the bar.
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        event->ignore();
        return;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}
