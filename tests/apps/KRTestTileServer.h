#pragma once

#include "KRTileKey.h"

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QThread>

#include <functional>

class QTcpServer;
class QTcpSocket;

/// A server of tiles on this machine, in a thread of its own, that answers as a test wants it to.
class KRTestTileServer
{
public:
    /// How long a slow machine may take for what comes at once.
    static constexpr int longTimeMs = 20000;

    struct Answer {
        int status = 200;
        QByteArray headers; ///< lines with their ends
        QByteArray body;
        int delayMs = 0; ///< negative: it never comes
    };
    /// @p attempt counts from 1 for each tile.
    using Function = std::function<Answer(const KRTileKey &key, int attempt)>;

    explicit KRTestTileServer(const Function &function);
    ~KRTestTileServer();

    QString address() const;

    int countOfRequests() const;
    int countOfRequests(const KRTileKey &key) const;
    int mostRequestsForOneTile() const;
    int mostAtOnce() const;
    QByteArray lastRequest() const;

private:
    void serve(QTcpSocket *socket);
    void answer(QTcpSocket *socket, const Answer &answer);

    Function m_function;
    QThread m_thread;
    QTcpServer *m_server; ///< in the thread
    int m_port = 0;

    mutable QMutex m_mutex; ///< of what follows
    QHash<KRTileKey, int> m_requests;
    QByteArray m_lastRequest;
    int m_open = 0;
    int m_mostAtOnce = 0;
};
