// The program: one instance per machine, the main window, the event loop.
#include "app/programfolder.h"
#include "app/vxmain.h"
#include "platform/qtservices.h"
#include "platform/singleinstance.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("varno"));
    QApplication::setOrganizationName(QStringLiteral("varno"));
    // Ties the window to its menu entry and icon on the desktop.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.varno.varno"));
    // A second start ends at once and silently; the running game is left alone.
    SingleInstance instance;
    if (!instance.isFirst())
        return 0;
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
    QObject::connect(&window, &vxmain::exitRequested, &app, &QApplication::quit, Qt::QueuedConnection);
    window.show();
    return QApplication::exec();
}
