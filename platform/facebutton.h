// A command button that shows a vector face picture, a tooltip and a string Tag.
#pragma once

#include <QAbstractButton>
#include <QSvgRenderer>

class FaceButton : public QAbstractButton
{
    Q_OBJECT
public:
    FaceButton(QWidget *parent, const QString &facePath, const QString &toolTip);
    // Shows another face picture (the two-state buttons change faces with their Tag).
    void setFace(const QString &facePath);
    QString face() const
    {
        return m_facePath;
    }

    // The button's string state flag.
    QString Tag;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_facePath;
    QSvgRenderer m_renderer;
    bool m_faceRead = false;
    bool m_hover = false;
};
