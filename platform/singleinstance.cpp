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
// What a later start sends, one line: the request, and the activation token the desktop gave that start
// (Wayland) when it has one. Anything else on the socket is not a request.
const QByteArray Request("forward");
const QByteArray TokenVariable("XDG_ACTIVATION_TOKEN");
constexpr int MaxLine = 512;

// The token of a request line (empty: none), nothing when the line is no request.
std::optional<QByteArray> tokenOf(const QByteArray &line)
{
    if (line == Request + '\n')
        return QByteArray();
    if (!line.startsWith(Request + ' ') || !line.endsWith('\n') || line.size() >= MaxLine)
        return std::nullopt;
    const QByteArray token = line.mid(Request.size() + 1).chopped(1);
    const bool printable = !token.isEmpty()
        && std::all_of(token.begin(), token.end(), [](char c) { return c > ' ' && c < 127; });
    return printable ? std::optional(token) : std::nullopt;
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
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *caller = m_server->nextPendingConnection()) {
            connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
            connect(caller, &QLocalSocket::readyRead, this, [this, caller] {
                if (!caller->canReadLine() && caller->bytesAvailable() < MaxLine)
                    return;
                const std::optional<QByteArray> token = tokenOf(caller->readLine(MaxLine));
                caller->disconnectFromServer();
                if (!token)
                    return;
                // Qt hands the token to the compositor when the window next asks to be activated.
                if (!token->isEmpty())
                    qputenv(TokenVariable.constData(), *token);
                emit comeForward();
            });
        }
    });
}

bool SingleInstance::callFirst(int timeoutMs) const
{
    if (m_folder.isEmpty())
        return false;
    const QString path = QDir(m_folder).filePath(QLatin1String(SocketName));
    const QDeadlineTimer deadline(timeoutMs);
    QLocalSocket socket;
    for (;;) {
        socket.connectToServer(path);
        if (socket.waitForConnected(int(deadline.remainingTime()))) {
            QByteArray line = Request + ' ' + qgetenv(TokenVariable.constData()) + '\n';
            if (!tokenOf(line))
                line = Request + '\n'; // no token, or none the running game would take
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
