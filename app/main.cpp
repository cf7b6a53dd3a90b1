// The program: one instance per user, the main window, the event loop.
#include "app/commandline.h"
#include "app/programfolder.h"
#include "app/vxmain.h"
#include "platform/language.h"
#include "platform/qtservices.h"
#include "platform/singleinstance.h"
#include "platform/stopsignals.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>

int main(int argc, char *argv[])
{
    const QStringList arguments = commandline::arguments(argc, argv);
    const commandline::Request request = commandline::read(arguments);
    if (request.outcome != commandline::Outcome::Play) {
        // Answered on the terminal, in the player's language; no display is needed for it.
        // Under its bare name, which the help's usage line shows.
        QByteArray name = QFileInfo(arguments.constFirst()).fileName().toLocal8Bit();
        char *bare[] = { name.data(), nullptr };
        int one = 1;
        QCoreApplication terminal(one, bare);
        language::installFromEnvironment();
        return commandline::answer(arguments);
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("varno"));
    QApplication::setOrganizationName(QStringLiteral("varno"));
    // Ties the window to its menu entry and icon on the desktop.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.varno.varno"));
    // A second start ends at once and silently, after handing its picture to the running game (a relative
    // name already made absolute against this start's folder) and asking it to come forward.
    SingleInstance instance;
    if (!instance.isFirst()) {
        instance.callFirst(1000, request.picture);
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
    // A picture handed over opens as one dropped on the window would; never under one of the game's dialogs
    // or message boxes, where "Open Image" could not be pressed either.
    QObject::connect(
        &instance, &SingleInstance::pictureHandedOver, &window, [&window](const QString &picture) {
            if (!QApplication::activeModalWidget())
                window.Form_DragDrop(picture);
        });
    window.show();
    // A picture named on the command line opens once the window is up, as "Open Image" would open it.
    if (!request.picture.isEmpty())
        QTimer::singleShot(0, &window, [&window, &request] { window.Form_DragDrop(request.picture); });
    return QApplication::exec();
}
