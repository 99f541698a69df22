#include "KRTestTileServer.h"

#include <QMutexLocker>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>

KRTestTileServer::KRTestTileServer(const Function &function) : m_function(function), m_server(new QTcpServer)
{
    m_server->moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(
        m_server,
        [this] {
            QObject::connect(m_server, &QTcpServer::newConnection, m_server, [this] {
                while (QTcpSocket *const socket = m_server->nextPendingConnection())
                    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(socket); });
            });
            if (!m_server->listen(QHostAddress::LocalHost))
                qFatal("no port to listen at");
            m_port = m_server->serverPort();
        },
        Qt::BlockingQueuedConnection);
}

KRTestTileServer::~KRTestTileServer()
{
    QObject::connect(&m_thread, &QThread::finished, m_server, &QObject::deleteLater);
    m_thread.quit();
    m_thread.wait();
}

QString KRTestTileServer::address() const
{
    return QStringLiteral("http://127.0.0.1:%1/{z}/{x}/{y}.png").arg(m_port);
}

int KRTestTileServer::countOfRequests() const
{
    const QMutexLocker locker(&m_mutex);
    int count = 0;
    for (const int requests : m_requests)
        count += requests;
    return count;
}

int KRTestTileServer::countOfRequests(const KRTileKey &key) const
{
    const QMutexLocker locker(&m_mutex);
    return m_requests.value(key);
}

int KRTestTileServer::mostRequestsForOneTile() const
{
    const QMutexLocker locker(&m_mutex);
    return m_requests.isEmpty() ? 0 : *std::max_element(m_requests.begin(), m_requests.end());
}

int KRTestTileServer::mostAtOnce() const
{
    const QMutexLocker locker(&m_mutex);
    return m_mostAtOnce;
}

QByteArray KRTestTileServer::lastRequest() const
{
    const QMutexLocker locker(&m_mutex);
    return m_lastRequest;
}

void KRTestTileServer::serve(QTcpSocket *socket)
{
    const QByteArray request = socket->peek(65536);
    if (!request.contains("\r\n\r\n"))
        return;
    socket->readAll();
    static const QRegularExpression pattern(QStringLiteral("^GET /(\\d+)/(\\d+)/(\\d+)\\.png "));
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(request));
    const KRTileKey key{match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
    int attempt = 0;
    {
        const QMutexLocker locker(&m_mutex);
        attempt = ++m_requests[key];
        m_lastRequest = request;
        m_mostAtOnce = qMax(m_mostAtOnce, ++m_open);
    }
    const Answer reply = m_function(key, attempt);
    if (reply.delayMs < 0)
        return;
    QTimer::singleShot(reply.delayMs, socket, [this, socket, reply] { answer(socket, reply); });
}

void KRTestTileServer::answer(QTcpSocket *socket, const Answer &answer)
{
    {
        const QMutexLocker locker(&m_mutex);
        --m_open;
    }
    socket->write("HTTP/1.1 " + QByteArray::number(answer.status) + " Test\r\nContent-Type: image/png\r\n"
                  + answer.headers + "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n\r\n"
                  + answer.body);
}
