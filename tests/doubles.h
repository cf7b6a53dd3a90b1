// Scripted stand-ins for the platform services: they answer from a script, record what was asked,
// and never block or sleep.
#pragma once

#include "platform/services.h"

#include <QList>
#include <QStringList>
#include <deque>
#include <functional>

struct AskedBox {
    QString text;
    QString title;
    int style;
};

class ScriptedMessageBoxes : public MessageBoxes
{
public:
    int show(const QString &text, const QString &title, int style) override
    {
        asked.append({ text, title, style });
        if (answers.empty())
            return style == MsgStyle::YesNoQuestion ? MsgAnswer::No : MsgAnswer::Ok;
        const int a = answers.front();
        answers.pop_front();
        return a;
    }
    std::deque<int> answers;
    QList<AskedBox> asked;
};

class ScriptedFileDialogs : public FileDialogs
{
public:
    std::optional<FileChoice> open(const QString &filter, int flags) override
    {
        filters << filter;
        lastFlags = flags;
        if (paths.empty())
            return std::nullopt;
        const QString path = paths.front();
        paths.pop_front();
        if (path.isNull())
            return std::nullopt;
        return FileChoice { path, path.section(QLatin1Char('/'), -1) };
    }
    // A chosen path (its title is the name part); a null one cancels.
    void choose(const QString &path)
    {
        paths.push_back(path);
    }
    std::deque<QString> paths;
    QStringList filters;
    int lastFlags = 0;
};

class RecordingPointers : public Pointers
{
public:
    void set(PointerShape shape, const QCursor & = QCursor()) override
    {
        history.append(shape);
        m_shape = shape;
    }
    PointerShape current() const override
    {
        return m_shape;
    }
    QList<PointerShape> history;

private:
    PointerShape m_shape = PointerShape::Default;
};

// Virtual time: sleeping advances the clock at once; pending events are only counted.
class InstantEvents : public EventPump
{
public:
    void processPendingEvents(bool holdInput) override
    {
        ++pumped;
        heldInput = heldInput || holdInput;
    }
    void sleepMs(int ms) override
    {
        if (onSleep)
            onSleep(ms);
        sleptUs += qint64(ms) * 1000;
    }
    void sleepUs(qint64 us) override
    {
        if (onPace)
            onPace();
        sleptUs += us;
    }
    qint64 nowUs() const override
    {
        return sleptUs;
    }
    int pumped = 0;
    bool heldInput = false;
    qint64 sleptUs = 0;
    // Looks at the window at each sleep, before the clock moves on.
    std::function<void(int ms)> onSleep;
    // Looks at the window at each wait of a paced animation (the frame).
    std::function<void()> onPace;
};

// Plays a script on a modal window instead of waiting for a player.
class ScriptedModals : public ModalRunner
{
public:
    void exec(QDialog &dialog) override
    {
        if (script)
            script(dialog);
    }
    std::function<void(QDialog &)> script;
};

// Everything a test window needs, owned together.
struct TestPlatform {
    ScriptedMessageBoxes messages;
    ScriptedFileDialogs files;
    RecordingPointers pointers;
    InstantEvents events;
    ScriptedModals modals;
    Platform platform()
    {
        return Platform { messages, files, pointers, events, modals };
    }
};
