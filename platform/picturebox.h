// A picture box: a child area with a persistent drawing that survives repaints, and the drawing
// operations the game makes on it (bit-block copies, stretch drawing, lines, outlines, text).
#pragma once

#include <QFont>
#include <QImage>
#include <QWidget>
#include <vector>

enum class LineStyle { Solid, Dotted };

// The game keeps colours as &HBBGGRR values.
inline QRgb fromBgr(qint32 c)
{
    return qRgb(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

class PictureBox : public QWidget
{
    Q_OBJECT
public:
    explicit PictureBox(QWidget *parent, QColor back = Qt::white);

    // The persistent drawing, always Format_RGB32 and exactly the box's size.
    const QImage &image() const
    {
        return drawing().image;
    }
    QImage &image()
    {
        return drawing().image;
    }
    QColor backColor() const
    {
        return m_back;
    }
    // On a dense screen (ratio 2 and up) the box keeps a second drawing at device resolution beside the
    // persistent one, changed by every operation alongside it, and shows that one. Null at ratio 1.
    void setFineRatio(int ratio);
    QImage *fine()
    {
        return m_ratio > 1 ? &drawing().fine : nullptr;
    }
    const QImage *fine() const
    {
        return m_ratio > 1 ? &drawing().fine : nullptr;
    }

    // Resizes the box (its outer size, the border included); the drawing keeps what lies inside the new
    // size, the rest is background.
    void setBoxSize(int w, int h);
    // A sunken border of this width round the drawing (0, the default, for none). Mouse positions and
    // the drawing's coordinates start inside it.
    void setBorder(int width);
    // Empties the persistent picture to the background colour.
    void clearPicture();
    // Makes the persistent picture a copy of another picture, drawn at the top left.
    void setPicture(const QImage &picture);
    // The same from another box, its device-resolution drawing included.
    void setPicture(const PictureBox &source);
    // Draws a whole picture stretched (smoothly) over a rectangle of the box.
    void stretchDraw(const QImage &picture, const QRect &target);
    // A one-pixel horizontal or vertical line from (x1, y1) towards (x2, y2), the end point excluded as
    // the graphics device draws lines. It is not repainted until refresh().
    void drawLine(int x1, int y1, int x2, int y2, QRgb color, LineStyle style = LineStyle::Solid);
    // The outline of the rectangle with the corners (x1, y1) and (x2, y2), both included; repainted.
    void drawRectOutline(int x1, int y1, int x2, int y2, QRgb color);
    // Prints one line of text at the current print position and moves it to the next line.
    void printLine(const QString &text, QColor color);
    // Schedules a repaint of a rectangle of the box (or of all of it).
    void refresh(const QRect &r = QRect());

signals:
    void mousePressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPointF pos);
    void mouseDoubleClicked(QPointF pos);
    // A press and its release on the box.
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    struct Print {
        QString text;
        QColor color;
        QFont font;
    };
    // The drawing is made when it is first drawn on, read or shown with more than its background on
    // it. Until then the box is its background colour and the lines printed on it wait: a hidden box
    // or an empty board costs neither picture memory nor the system's fonts before the window stands.
    struct Drawing {
        QImage image;
        QImage fine;
        std::vector<Print> waiting;
        int printY = 0;
    };
    Drawing &drawing() const;
    bool drawn() const
    {
        return !m_drawing.image.isNull();
    }
    void draw(const Print &print) const;
    // A new device-resolution drawing of the persistent one's size, keeping what the old one held.
    void resizeFine();

    mutable Drawing m_drawing;
    QSize m_size { 1, 1 };
    int m_ratio = 1;
    QColor m_back;
    int m_border = 0;
    bool m_pressed = false;
};

// Copies a w x h rectangle from (sx, sy) of one box to (dx, dy) of another, source unchanged (the
// plain copy raster operation), clipped to both boxes, and schedules the repaint of the target.
void bitBlt(PictureBox &dst, int dx, int dy, int w, int h, const PictureBox &src, int sx, int sy);
// The same between plain images, for callers that hold no box.
void bitBlt(QImage &dst, int dx, int dy, int w, int h, const QImage &src, int sx, int sy);
