#pragma once
// One program per desktop session takes the projects opened from the file manager. The first
// program serves a local socket named after the user; a second start with a project on its
// command line hands the path to it and ends, and the running program opens the project. When
// no program answers (none runs, or one ended without removing its socket), the second start
// serves the socket itself and opens the project as usual.
//
// On the wire: the project's absolute path in UTF-8 and a line feed, then the connection closes.

#include <QObject>
#include <QString>

class QLocalServer;

namespace quillon {

class CInstanceChannel : public QObject {
    Q_OBJECT
public:
    // The socket name of this user's program.
    static QString DefaultName();

    explicit CInstanceChannel(QString name = DefaultName(), QObject* parent = nullptr);
    ~CInstanceChannel() override;

    // Hands `path` to the program serving `name`. True when it took it.
    static bool HandTo(const QString& name, const QString& path);

    // Serves the socket from now on, in place of a socket no program answers on. False when a
    // running program serves it (a second start without a project) or the system refuses.
    bool Listen();

signals:
    // A second start handed over this project.
    void ProjectHandedOver(const QString& path);

private:
    void TakeConnection();

    QString m_name;
    QLocalServer* m_server;
};

}  // namespace quillon
