#include "KRTileUrlSource.h"

#include "KRTileCache.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>
#include <QVariant>

namespace {

constexpr int transferTimeoutMs = 20000;
constexpr int mostRedirections = 4;
/// Services that go further are rare, and a level that is not there only means a coarser picture.
constexpr int largestUsualZoom = 19;
constexpr qint64 longestWaitS = 600;
constexpr char tooLargeProperty[] = "krTooLarge";

QByteArray userAgent()
{
    return QStringLiteral("%1/%2 (%3; contact: %4)")
        .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion(),
             QCoreApplication::organizationName(), QStringLiteral(KR_CONTACT))
        .toUtf8();
}

/// Retry-After: seconds, or a date.
int waitMsOf(const QNetworkReply &reply)
{
    const QString text = QString::fromLatin1(reply.rawHeader("Retry-After")).trimmed();
    bool isNumber = false;
    qint64 seconds = text.toLongLong(&isNumber);
    if (!isNumber) {
        const QDateTime date = QDateTime::fromString(text, Qt::RFC2822Date);
        seconds = date.isValid() ? QDateTime::currentDateTimeUtc().secsTo(date) : 0;
    }
    return int(qBound(qint64(0), seconds, longestWaitS)) * 1000;
}

QString reasonOf(const QNetworkReply &reply)
{
    switch (reply.error()) {
    case QNetworkReply::HostNotFoundError:
        return KRTileUrlSource::tr("Der Server „%1“ ist nicht bekannt.").arg(reply.url().host());
    case QNetworkReply::ConnectionRefusedError:
        return KRTileUrlSource::tr("Der Server „%1“ nimmt keine Verbindung an.").arg(reply.url().host());
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError:
        return KRTileUrlSource::tr("Der Server „%1“ antwortet nicht.").arg(reply.url().host());
    case QNetworkReply::SslHandshakeFailedError:
        return KRTileUrlSource::tr("Eine sichere Verbindung zu „%1“ kommt nicht zustande.").arg(reply.url().host());
    case QNetworkReply::TooManyRedirectsError:
        return KRTileUrlSource::tr("Der Server „%1“ schickt im Kreis.").arg(reply.url().host());
    default:
        return reply.errorString();
    }
}

} // namespace

KRTileUrlSource::KRTileUrlSource(const KRTileTemplate &addresses)
    : m_addresses(addresses), m_cache(new KRTileCache(&m_manager))
{
    m_manager.setCache(m_cache);
    m_manager.setRedirectPolicy(QNetworkRequest::NoLessSafeRedirectPolicy);
    m_manager.setTransferTimeout(transferTimeoutMs);
}

KRTileUrlSource::~KRTileUrlSource()
{
    const QList<KRTileKey> keys = m_replies.keys();
    for (const KRTileKey &key : keys)
        KRTileUrlSource::cancel(key);
}

std::unique_ptr<KRTileSource> KRTileUrlSource::open(const QString &text, KRErrorHistory *history)
{
    const KRTileTemplate addresses(text);
    QString problem = addresses.problem();
    const QUrl example(addresses.expanded({0, 0, 0}), QUrl::TolerantMode);
    const QString scheme = example.scheme().toLower();
    if (problem.isEmpty() && (!example.isValid() || example.host().isEmpty()))
        problem = tr("Das ist keine Adresse.");
    if (problem.isEmpty() && scheme != QLatin1String("http") && scheme != QLatin1String("https"))
        problem = tr("Nur Adressen mit http:// und https:// werden geladen.");
    if (problem.isEmpty() && scheme == QLatin1String("https")
        && !QNetworkAccessManager().supportedSchemes().contains(scheme))
        problem = tr("Auf diesem Rechner fehlt, was https:// braucht.");
    if (problem.isEmpty())
        return std::unique_ptr<KRTileSource>(new KRTileUrlSource(addresses));
    KRErrorHistory::report(history, text, problem);
    return nullptr;
}

KRIntRange KRTileUrlSource::zoomRange()
{
    return KRIntRange(0, largestUsualZoom);
}

void KRTileUrlSource::request(const KRTileKey &key)
{
    cancel(key);
    QNetworkRequest request = requestFor(key);
    if (m_damaged.remove(key))
        request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    QNetworkReply *const reply = m_manager.get(request);
    m_replies.insert(key, reply);
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] { stopWhereTooLarge(reply); });
    connect(reply, &QNetworkReply::finished, this, [this, key, reply] { finish(key, reply); });
}

void KRTileUrlSource::cancel(const KRTileKey &key)
{
    QNetworkReply *const reply = m_replies.take(key);
    if (reply == nullptr)
        return;
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
}

void KRTileUrlSource::forget(const KRTileKey &key, const KRTileAnswer &answer)
{
    m_damaged.insert(key);
    m_cache->discard(answer.address);
}

QNetworkRequest KRTileUrlSource::requestFor(const KRTileKey &key) const
{
    QNetworkRequest request(QUrl(m_addresses.expanded(key), QUrl::TolerantMode));
    request.setHeader(QNetworkRequest::UserAgentHeader, userAgent());
    request.setMaximumRedirectsAllowed(mostRedirections);
    // What is packed twice may unpack to anything.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("Accept", "image/webp,image/png,image/jpeg;q=0.9,*/*;q=0.1");
    // Tiles change rarely: one that may be kept is asked for anew only when its time is over.
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::PreferNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    return request;
}

void KRTileUrlSource::stopWhereTooLarge(QNetworkReply *reply) const
{
    if (reply->bytesAvailable() <= KRInputLimits::tileBytes)
        return;
    reply->setProperty(tooLargeProperty, true); // aborting loses the bytes and with them the reason
    reply->abort();
}

void KRTileUrlSource::finish(const KRTileKey &key, QNetworkReply *reply)
{
    m_replies.remove(key);
    KRTileAnswer answer = answerOf(reply);
    if (answer.kind == KRTileAnswer::Later || answer.kind == KRTileAnswer::Overloaded)
        replaceByKept(&answer);
    reply->deleteLater();
    emit answered(key, answer);
}

void KRTileUrlSource::replaceByKept(KRTileAnswer *answer) const
{
    const std::unique_ptr<QIODevice> kept(m_cache->data(answer->address));
    if (kept == nullptr)
        return;
    answer->kind = KRTileAnswer::Found;
    answer->isKept = true;
    answer->bytes = kept->read(KRInputLimits::tileBytes);
}

KRTileAnswer KRTileUrlSource::answerOf(QNetworkReply *reply)
{
    KRTileAnswer answer;
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    answer.address = reply->url();
    answer.waitMs = waitMsOf(*reply);
    // Qt's own words would name the whole address, which may hold somebody's key.
    answer.reason = status >= 300 ? tr("Der Server antwortet mit %1.").arg(status) : reasonOf(*reply);
    if (status == 204 || status == 404 || status == 410) {
        answer.kind = KRTileAnswer::Absent;
    } else if (reply->property(tooLargeProperty).toBool() || reply->bytesAvailable() > KRInputLimits::tileBytes) {
        answer.kind = KRTileAnswer::Failed;
        answer.reason = tr("Eine Kachel ist zu groß.");
    } else if (status == 200 && reply->error() == QNetworkReply::NoError) {
        answer.kind = KRTileAnswer::Found;
        answer.bytes = reply->readAll();
        answer.isKept = reply->attribute(QNetworkRequest::SourceIsFromCacheAttribute).toBool();
        answer.reason.clear();
    } else if (status == 429 || status == 503 || status < 400) {
        // Also when nobody answers at all: others would not be luckier.
        answer.kind = KRTileAnswer::Overloaded;
    } else {
        answer.kind = status >= 500 || status == 408 ? KRTileAnswer::Later : KRTileAnswer::Failed;
    }
    return answer;
}
