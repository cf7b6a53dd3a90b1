// The platform services the game calls from inside its handlers: message boxes, the open-file dialog,
// mouse pointers, sleeping and pending-event processing. Each is an interface so that tests can pass a
// scripted stand-in and never wait on a modal box, a dialog or a real sleep.
#pragma once

#include <QCursor>
#include <QString>
#include <optional>

// Message box styles and answers, as the game's handlers speak of them.
namespace MsgStyle
{
constexpr int OkOnly = 0;
constexpr int Critical = 16;
constexpr int YesNoQuestion = 36;
constexpr int Information = 64;
} // namespace MsgStyle
namespace MsgAnswer
{
constexpr int Ok = 1;
constexpr int Yes = 6;
constexpr int No = 7;
} // namespace MsgAnswer

class MessageBoxes
{
public:
    virtual ~MessageBoxes() = default;
    // Shows a modal box; returns the answer (Ok, Yes or No).
    virtual int show(const QString &text, const QString &title, int style) = 0;
};

struct FileChoice {
    QString fileName; // full path
    QString fileTitle; // name without folder
};

class FileDialogs
{
public:
    virtual ~FileDialogs() = default;
    // Shows the open-file dialog. The filter is "description|pattern;pattern"; flags are the dialog's
    // option bits. An empty result means the player cancelled.
    virtual std::optional<FileChoice> open(const QString &filter, int flags) = 0;
};

namespace OpenFlags
{
constexpr int HideReadOnly = 4;
constexpr int ExtensionDifferent = 1024;
constexpr int PathMustExist = 2048;
constexpr int FileMustExist = 4096;
} // namespace OpenFlags

enum class PointerShape { Default, Hourglass, Custom };

class Pointers
{
public:
    virtual ~Pointers() = default;
    // The application-wide mouse pointer; Custom uses the given cursor.
    virtual void set(PointerShape shape, const QCursor &custom = QCursor()) = 0;
    virtual PointerShape current() const = 0;
};

class EventPump
{
public:
    virtual ~EventPump() = default;
    // Lets the window process pending events once. User input stays queued when holdInput is true.
    virtual void processPendingEvents(bool holdInput) = 0;
    virtual void sleepMs(int ms) = 0;
    virtual void sleepUs(qint64 us) = 0;
    // A monotonic clock, for pacing animations.
    virtual qint64 nowUs() const = 0;
};

class QDialog;

// Runs the game's own modal windows (the size dialog): the Qt version waits for the player.
class ModalRunner
{
public:
    virtual ~ModalRunner() = default;
    virtual void exec(QDialog &dialog) = 0;
};

// What the main window is given to reach the platform.
struct Platform {
    MessageBoxes &messages;
    FileDialogs &files;
    Pointers &pointers;
    EventPump &events;
    ModalRunner &modals;
};
