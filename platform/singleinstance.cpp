// Single instance through the system's file lock: it goes with the process however the process ends, so
// a game that crashed or was killed leaves nothing stale behind, and taking it needs no write to disk.
// Both the lock and the socket live in the user's runtime folder, which only that user can enter (Qt
// makes sure of its owner and its 0700 mode), so another user's start can neither see nor reach them.
#include "platform/singleinstance.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <unistd.h>

namespace
{
const char LockName[] = "varno.lock";
const char SocketName[] = "varno.socket";
// What a later start sends, one line: "forward", then, each at most once and in this order, " token=" and
// the activation token the desktop gave that start (Wayland), and " picture=" and the picture's absolute
// path, its bytes percent-encoded so that spaces, line breaks and any other bytes pass; then a line feed.
// Anything else on the socket is not a request, and does nothing.
const QByteArray Request("forward");
const QByteArray TokenField("token=");
const QByteArray PictureField("picture=");
const QByteArray TokenVariable("XDG_ACTIVATION_TOKEN");
// Room for any path the system can open (4096 bytes, three times that encoded) and a token.
constexpr int MaxLine = 16384;
// Callers heard at once, and how long one may take to say its line: a flood of callers holds neither the
// game's memory nor its files. One more while all are held is hung up on unheard.
constexpr int MaxCallers = 16;
constexpr int CallerMs = 2000;

struct Call {
    QByteArray token;
    QString picture;
};

bool printable(const QByteArray &token)
{
    return !token.isEmpty()
        && std::all_of(token.begin(), token.end(), [](char c) { return c > ' ' && c < 127; });
}

QByteArray encoded(const QString &picture)
{
    return QFile::encodeName(picture).toPercentEncoding("/");
}

// The request a line makes; nothing when the line is none.
std::optional<Call> callOf(const QByteArray &line)
{
    if (line.size() >= MaxLine || !line.endsWith('\n'))
        return std::nullopt;
    QList<QByteArray> words = line.chopped(1).split(' ');
    if (words.takeFirst() != Request)
        return std::nullopt;
    Call call;
    if (!words.isEmpty() && words.constFirst().startsWith(TokenField)) {
        call.token = words.takeFirst().mid(TokenField.size());
        if (!printable(call.token))
            return std::nullopt;
    }
    if (!words.isEmpty() && words.constFirst().startsWith(PictureField)) {
        const QByteArray field = words.takeFirst().mid(PictureField.size());
        const QByteArray path = QByteArray::fromPercentEncoding(field);
        // One spelling only, so that a stray '%' is no request rather than a guess.
        if (!path.startsWith('/') || path.contains('\0') || path.toPercentEncoding("/") != field)
            return std::nullopt;
        call.picture = QFile::decodeName(path);
    }
    if (!words.isEmpty())
        return std::nullopt;
    return call;
}

QByteArray lineOf(const QByteArray &token, const QString &picture)
{
    QByteArray line = Request;
    if (printable(token))
        line += ' ' + TokenField + token;
    if (!picture.isEmpty())
        line += ' ' + PictureField + encoded(picture);
    return line + '\n';
}
} // namespace

SingleInstance::SingleInstance()
    : m_folder(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
{
    // Where no lock can be had (no runtime folder, a full or read-only one) the game still starts: a
    // second copy is a smaller harm than a game that never opens.
    if (m_folder.isEmpty()) {
        m_first = true;
        return;
    }
    const QByteArray lock = QFile::encodeName(QDir(m_folder).filePath(QLatin1String(LockName)));
    m_fd = ::open(lock.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_fd < 0) {
        m_first = true;
        return;
    }
    if (::flock(m_fd, LOCK_EX | LOCK_NB) == 0) {
        m_first = true;
        takeCalls();
    } else {
        m_first = errno != EWOULDBLOCK;
    }
}

SingleInstance::~SingleInstance()
{
    // The socket goes while the lock is still held, so that it can never take a later game's socket with
    // it. The lock file stays: removing it could let a start that opened it just before lock another file.
    delete m_server;
    if (m_fd >= 0)
        ::close(m_fd);
}

void SingleInstance::takeCalls()
{
    const QString path = QDir(m_folder).filePath(QLatin1String(SocketName));
    // Only the holder of the lock gets here: a socket left by a killed game is stale and goes.
    QLocalServer::removeServer(path);
    m_server = new QLocalServer;
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    // A game that cannot be called still plays; a later start then ends as it always did.
    if (!m_server->listen(path))
        return;
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstance::answerCallers);
}

void SingleInstance::answerCallers()
{
    // Each caller is taken as it comes, before it can have buffered anything.
    while (QLocalSocket *caller = m_server->nextPendingConnection()) {
        if (m_callers == MaxCallers) {
            caller->abort();
            caller->deleteLater();
            continue;
        }
        ++m_callers;
        // A caller is heard once: at its first line feed, when it has said more than a line can hold,
        // when it hangs up, or when its time is up. Its buffer never holds more than a line.
        caller->setReadBufferSize(MaxLine);
        // The timer runs until the caller is heard, so that it tells whether it has been.
        auto *time = new QTimer(caller);
        const auto hear = [this, caller, time](bool timeUp) {
            if (!time->isActive())
                return;
            const bool said = caller->canReadLine() || caller->bytesAvailable() >= MaxLine
                || caller->state() != QLocalSocket::ConnectedState;
            if (!said && !timeUp)
                return;
            time->stop();
            const std::optional<Call> call = callOf(caller->readLine(MaxLine));
            caller->abort();
            caller->deleteLater();
            --m_callers;
            if (!call)
                return;
            // Acted on from the event loop, off the socket's own signal: opening a picture may show a
            // message box, whose loop hears the next callers meanwhile.
            QTimer::singleShot(0, this, [this, call] {
                // Qt hands the token to the compositor when the window next asks to be activated.
                if (!call->token.isEmpty())
                    qputenv(TokenVariable.constData(), call->token);
                emit comeForward();
                if (!call->picture.isEmpty())
                    emit pictureHandedOver(call->picture);
            });
        };
        connect(time, &QTimer::timeout, caller, [hear] { hear(true); });
        connect(caller, &QLocalSocket::readyRead, caller, [hear] { hear(false); });
        connect(caller, &QLocalSocket::disconnected, caller, [hear] { hear(false); });
        time->start(CallerMs);
    }
}

bool SingleInstance::callFirst(int timeoutMs, const QString &picture) const
{
    if (m_folder.isEmpty())
        return false;
    const QString path = QDir(m_folder).filePath(QLatin1String(SocketName));
    const QDeadlineTimer deadline(timeoutMs);
    QLocalSocket socket;
    for (;;) {
        socket.connectToServer(path);
        if (socket.waitForConnected(int(deadline.remainingTime()))) {
            const QByteArray token = qgetenv(TokenVariable.constData());
            QByteArray line = lineOf(token, picture);
            if (!callOf(line))
                line = lineOf(token, QString()); // a path no system could open: the game only comes forward
            socket.write(line);
            const bool sent = socket.waitForBytesWritten(int(deadline.remainingTime()));
            socket.disconnectFromServer();
            return sent;
        }
        socket.abort();
        if (deadline.hasExpired())
            return false;
        // The running game may be between taking its lock and listening, or starting over a stale socket.
        QThread::msleep(std::min<qint64>(20, deadline.remainingTime()));
    }
}
