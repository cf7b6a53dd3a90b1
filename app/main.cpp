// The program: one instance per user, the main window, the event loop.
#include "app/programfolder.h"
#include "app/vxmain.h"
#include "platform/language.h"
#include "platform/qtservices.h"
#include "platform/singleinstance.h"
#include "platform/stopsignals.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("varno"));
    QApplication::setOrganizationName(QStringLiteral("varno"));
    // Ties the window to its menu entry and icon on the desktop.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.varno.varno"));
    // A second start ends at once and silently, after asking the running game to come forward.
    SingleInstance instance;
    if (!instance.isFirst()) {
        instance.callFirst(1000);
        return 0;
    }
    StopSignals stops;
    language::installFromEnvironment();
    QApplication::setQuitOnLastWindowClosed(false);
    const QString exeFolder = QApplication::applicationDirPath();
    const QString folder
        = chooseProgramFolder(exeFolder, QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    seedLibrary(folder, starterFolder(exeFolder));
    QtMessageBoxes messages;
    QtFileDialogs files;
    QtPointers pointers;
    QtEventPump events;
    QtModalRunner modals;
    vxmain window(Platform { messages, files, pointers, events, modals }, folder);
    // Leaving every event loop, nested ones too (a dialog's, a message box's): each returns as cancelled
    // and its handler unwinds before the window goes. No window is asked to close on the way.
    QObject::connect(
        &window, &vxmain::exitRequested, &app, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    QObject::connect(&stops, &StopSignals::stopAsked, &window, &vxmain::Form_Unload);
    QObject::connect(&instance, &SingleInstance::comeForward, &window, &vxmain::BringForward);
    window.show();
    return QApplication::exec();
}
