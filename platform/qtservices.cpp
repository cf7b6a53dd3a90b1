// Qt implementations of the platform services: QMessageBox, QFileDialog, override cursors, sleeping.
#include "platform/qtservices.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QThread>

QtMessageBoxes::QtMessageBoxes(QWidget *parent)
    : m_parent(parent)
{
}

int QtMessageBoxes::show(const QString &text, const QString &title, int style)
{
    QMessageBox box(m_parent);
    box.setWindowTitle(title);
    box.setText(text);
    // A screen reader reads the alert's name and description: the title and the whole message.
    box.setAccessibleName(title);
    box.setAccessibleDescription(text);
    switch (style) {
    case MsgStyle::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    case MsgStyle::YesNoQuestion:
        box.setIcon(QMessageBox::Question);
        break;
    case MsgStyle::Information:
        box.setIcon(QMessageBox::Information);
        break;
    default:
        box.setIcon(QMessageBox::NoIcon);
    }
    if (style == MsgStyle::YesNoQuestion) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        return box.exec() == QMessageBox::Yes ? MsgAnswer::Yes : MsgAnswer::No;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return MsgAnswer::Ok;
}

QtFileDialogs::QtFileDialogs(QWidget *parent)
    : m_parent(parent)
{
}

QString QtFileDialogs::toQtFilter(const QString &filter)
{
    const QStringList entries = filter.split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < entries.size(); i += 2) {
        const QString patterns
            = entries[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts).join(QLatin1Char(' '));
        out << entries[i] + QStringLiteral(" (") + patterns + QLatin1Char(')');
    }
    return out.join(QStringLiteral(";;"));
}

void QtFileDialogs::prepare(QFileDialog &dialog, const QString &filter, int flags)
{
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    // The file and its folder must exist: the dialog itself refuses other names.
    dialog.setFileMode((flags & OpenFlags::FileMustExist) ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilter(toQtFilter(filter));
    // The filter's description is shown as it stands, without Qt's own pattern list after it.
    dialog.setOption(QFileDialog::HideNameFilterDetails, true);
    // Qt's own dialog looks the same on every desktop and can be driven under a bare X server.
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
}

std::optional<FileChoice> QtFileDialogs::open(const QString &filter, int flags)
{
    QFileDialog dialog(m_parent);
    prepare(dialog, filter, flags);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    return FileChoice { path, QFileInfo(path).fileName() };
}

void QtPointers::set(PointerShape shape, const QCursor &custom)
{
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    m_shape = shape;
    if (shape == PointerShape::Hourglass)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (shape == PointerShape::Custom)
        QApplication::setOverrideCursor(custom);
}

PointerShape QtPointers::current() const
{
    return m_shape;
}

QtEventPump::QtEventPump()
{
    m_clock.start();
}

void QtEventPump::processPendingEvents(bool holdInput)
{
    QApplication::processEvents(holdInput ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
    // A child shown in the handler asks for its repaint through a posted event, and handling that posts
    // the window's update request; events posted during a pass wait for the next one, which would come
    // only after the caller's sleep. Deliver both now, so the window is painted and flushed to the
    // screen before the caller blocks.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
}

void QtEventPump::sleepMs(int ms)
{
    QThread::msleep(ms);
}

void QtEventPump::sleepUs(qint64 us)
{
    if (us > 0)
        QThread::usleep(us);
}

qint64 QtEventPump::nowUs() const
{
    return m_clock.nsecsElapsed() / 1000;
}

void QtModalRunner::exec(QDialog &dialog)
{
    dialog.exec();
}
