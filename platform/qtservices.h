// The Qt implementations of the platform services.
#pragma once

#include "platform/services.h"

#include <QElapsedTimer>

class QFileDialog;
class QWidget;

class QtMessageBoxes : public MessageBoxes
{
public:
    explicit QtMessageBoxes(QWidget *parent = nullptr);
    int show(const QString &text, const QString &title, int style) override;

private:
    QWidget *m_parent;
};

class QtFileDialogs : public FileDialogs
{
public:
    explicit QtFileDialogs(QWidget *parent = nullptr);
    std::optional<FileChoice> open(const QString &filter, int flags) override;
    // "Graphic Files(*.jpg;*.gif;*.bmp)|*.jpg;*.gif;*.bmp" as a Qt name filter.
    static QString toQtFilter(const QString &filter);
    // The dialog as open() shows it: filter, flags and options.
    static void prepare(QFileDialog &dialog, const QString &filter, int flags);

private:
    QWidget *m_parent;
};

class QtPointers : public Pointers
{
public:
    void set(PointerShape shape, const QCursor &custom = QCursor()) override;
    PointerShape current() const override;

private:
    PointerShape m_shape = PointerShape::Default;
};

class QtEventPump : public EventPump
{
public:
    QtEventPump();
    void processPendingEvents(bool holdInput) override;
    void sleepMs(int ms) override;
    void sleepUs(qint64 us) override;
    qint64 nowUs() const override;

private:
    QElapsedTimer m_clock;
};

class QtModalRunner : public ModalRunner
{
public:
    void exec(QDialog &dialog) override;
};
