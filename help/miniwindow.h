// The small window that stands among the desktop's windows for the game while the game is hidden.
#pragma once

#include <QWidget>
#include <functional>

class MiniWindow : public QWidget
{
    Q_OBJECT
public:
    // onResize runs on every change of the window's size or state.
    explicit MiniWindow(std::function<void()> onResize);
    // Asks the desktop to minimise the window, once it stands on the screen (a request made while the
    // window is still being mapped can be lost).
    void minimise();
    // Brings the game back as the player's restore does: where no desktop can restore the window, or
    // when the game is called to the front by a later start.
    void restore();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void changed(bool fromDesktop);
    void requestMinimised();
    void awaitActivation();
    void takenOff();

    std::function<void()> m_onResize;
    bool m_awaitingMinimised = false;
    bool m_minimiseOnExpose = false;
    // The desktop never reports a window minimised or restored (Wayland); once the window is off the
    // screen, its next activation is the restore.
    const bool m_stateUnreported;
    bool m_minimiseOnActivation = false;
    bool m_offScreen = false;
};
