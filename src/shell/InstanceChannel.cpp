#include "shell/InstanceChannel.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <unistd.h>

namespace quillon {
namespace {

constexpr int kHandOverTimeoutMs = 2000;
// A path longer than this is no path a file manager hands over; the connection is dropped.
constexpr qsizetype kMaxMessageBytes = 64 * 1024;

}  // namespace

QString CInstanceChannel::DefaultName() {
    return QStringLiteral("quillon-%1").arg(::getuid());
}

CInstanceChannel::CInstanceChannel(QString name, QObject* parent)
    : QObject(parent), m_name(std::move(name)), m_server(new QLocalServer(this)) {
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &CInstanceChannel::TakeConnection);
}

CInstanceChannel::~CInstanceChannel() = default;

bool CInstanceChannel::HandTo(const QString& name, const QString& path) {
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(kHandOverTimeoutMs)) return false;
    socket.write(path.toUtf8() + '\n');
    if (!socket.waitForBytesWritten(kHandOverTimeoutMs)) return false;
    // The running program closes the connection once it has the whole line.
    socket.waitForDisconnected(kHandOverTimeoutMs);
    return true;
}

bool CInstanceChannel::Listen() {
    // A running program answers on the socket and keeps it; a socket file left by a program that
    // ended doesn't answer, and is replaced. (Asked first: with its access option the server
    // would take the name over without a word.)
    QLocalSocket probe;
    probe.connectToServer(m_name);
    if (probe.waitForConnected(kHandOverTimeoutMs)) return false;
    QLocalServer::removeServer(m_name);
    return m_server->listen(m_name);
}

void CInstanceChannel::TakeConnection() {
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const auto readPath = [this, socket] {
            if (!socket->canReadLine()) {
                if (socket->bytesAvailable() > kMaxMessageBytes) socket->abort();
                return;
            }
            const QString path = QString::fromUtf8(socket->readLine().chopped(1));
            socket->disconnectFromServer();
            if (!path.isEmpty()) emit ProjectHandedOver(path);
        };
        connect(socket, &QLocalSocket::readyRead, this, readPath);
        readPath();  // what arrived with the connection
    }
}

}  // namespace quillon
