// Plain window parts: filled rectangle shapes, coloured bars, outline markers and text labels.
#pragma once

#include <QWidget>

// A rectangle shape drawn on the window: optional fill and an inner border of a given width.
class ShapeBox : public QWidget
{
    Q_OBJECT
public:
    ShapeBox(QWidget *parent, QColor fill, QColor border, int borderWidth, bool filled = true);
    void setFillColor(QColor fill);
    QColor borderColor() const
    {
        return m_border;
    }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_fill;
    QColor m_border;
    int m_borderWidth;
    bool m_filled;
};

// The keyboard's cursor round a holder: a dark and a light line side by side, so that it shows on any
// picture. It lies over the holder's box and takes no input; the box's drawing stays as it was.
class CursorOutline : public QWidget
{
    Q_OBJECT
public:
    explicit CursorOutline(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};

// A one-line text label with its own colours.
class TextLabel : public QWidget
{
    Q_OBJECT
public:
    TextLabel(QWidget *parent, const QString &text, QColor fore, QColor back, Qt::Alignment align);
    QString text() const
    {
        return m_text;
    }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
    QColor m_fore;
    QColor m_back;
    Qt::Alignment m_align;
};

// A fixed vector picture (the logo image).
class SvgImage : public QWidget
{
    Q_OBJECT
public:
    SvgImage(QWidget *parent, const QString &path);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_path;
};
