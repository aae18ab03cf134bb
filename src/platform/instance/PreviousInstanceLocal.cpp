// By a lock file, and a local socket over which a later instance asks the first to come forward.
#include "platform/instance/PreviousInstance.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QThread>

#include <unistd.h>

namespace {

constexpr int AnswerLimitMs = 2000;
constexpr int RetryMs = 20;
constexpr char Request[] = "forward\n";
constexpr char Answer[] = "coming\n";

// A directory of this user alone.
QString InstanceDirectory() {
    QString base = QString::fromLocal8Bit(qgetenv("XDG_RUNTIME_DIR"));
    if (base.isEmpty() || !QDir(base).exists())
        base = QDir::tempPath() + QStringLiteral("/ravlin-%1").arg(getuid());
    QDir().mkpath(base + "/ravlin");
    QFile::setPermissions(base + "/ravlin", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return base + "/ravlin";
}

} // namespace

class PreviousInstance::Private {
public:
    Private() : lock_(InstanceDirectory() + "/instance.lock"), socketName_(InstanceDirectory() + "/instance.socket") {
        lock_.setStaleLockTime(0); // a lock is stale only when its process is gone
    }

    QLockFile lock_;
    QString socketName_;
    QLocalServer server_;
};

PreviousInstance::PreviousInstance() : private_(std::make_unique<Private>()) {}

PreviousInstance::~PreviousInstance() = default;

bool PreviousInstance::IsRunning() {
    if (private_->lock_.isLocked() || private_->lock_.tryLock())
        return false;
    // A directory that cannot be written is no other instance.
    return private_->lock_.error() == QLockFile::LockFailedError;
}

bool PreviousInstance::BringForward(const std::string& /*title*/) {
    const QDeadlineTimer limit(AnswerLimitMs);
    QLocalSocket socket;
    socket.connectToServer(private_->socketName_);
    while (!socket.waitForConnected(static_cast<int>(limit.remainingTime()))) {
        if (limit.hasExpired())
            return false;
        QThread::msleep(RetryMs); // it may have been started together with this one, and is about to listen
        socket.connectToServer(private_->socketName_);
    }
    socket.write(Request);
    return socket.waitForBytesWritten(AnswerLimitMs) && socket.waitForReadyRead(AnswerLimitMs) &&
           socket.readAll() == Answer;
}

void PreviousInstance::ListenForLater(const std::string& /*title*/, std::uintptr_t /*mainWindow*/,
                                      std::function<void()> comeForward) {
    QLocalServer& server = private_->server_;
    QLocalServer::removeServer(private_->socketName_); // left by an instance that died
    server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!server.listen(private_->socketName_))
        return; // a later instance then starts on its own
    QObject::connect(&server, &QLocalServer::newConnection, &server, [&server, comeForward = std::move(comeForward)] {
        while (QLocalSocket* socket = server.nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QLocalSocket::readyRead, socket, [socket, comeForward] {
                if (!socket->canReadLine() || socket->readLine() != Request)
                    return;
                socket->write(Answer);
                comeForward();
            });
        }
    });
}
