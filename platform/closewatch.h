// The desktop's request to close a window (Alt+F4, a taskbar's or pager's Close), seen even while a modal
// window blocks it: Qt drops the request then, as it drops any other input to a blocked window.
#pragma once

#include <QAbstractNativeEventFilter>
#include <functional>

class QWidget;

class CloseWatch : public QAbstractNativeEventFilter
{
public:
    // onClose runs for every request to close the window; Qt's own handling goes on afterwards.
    CloseWatch(QWidget *window, std::function<void()> onClose);
    ~CloseWatch() override;
    CloseWatch(const CloseWatch &) = delete;
    CloseWatch &operator=(const CloseWatch &) = delete;
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    QWidget *m_window;
    std::function<void()> m_onClose;
    quint32 m_protocols = 0;
    quint32 m_delete = 0;
};
