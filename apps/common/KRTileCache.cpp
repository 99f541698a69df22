#include "KRTileCache.h"

#include <QDateTime>
#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr qint64 mostBytes = qint64(200) << 20;
constexpr int usualDays = 7;

} // namespace

KRTileCache::KRTileCache(QObject *parent) : QNetworkDiskCache(parent)
{
    setCacheDirectory(QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/tiles"));
    setMaximumCacheSize(mostBytes);
}

QIODevice *KRTileCache::prepare(const QNetworkCacheMetaData &metaData)
{
    const QNetworkCacheMetaData::RawHeaderList headers = metaData.rawHeaders();
    const bool hasRule = metaData.expirationDate().isValid()
                         || std::any_of(headers.begin(), headers.end(),
                                        [](const auto &header) { return header.first.toLower() == "cache-control"; });
    QNetworkCacheMetaData kept = metaData;
    if (!hasRule)
        kept.setExpirationDate(QDateTime::currentDateTimeUtc().addDays(usualDays));
    QIODevice *const device = QNetworkDiskCache::prepare(kept);
    if (device != nullptr)
        m_onTheirWay.insert(device, metaData.url());
    return device;
}

void KRTileCache::insert(QIODevice *device)
{
    m_onTheirWay.remove(device);
    QNetworkDiskCache::insert(device);
}

bool KRTileCache::remove(const QUrl &address)
{
    QIODevice *const device = m_onTheirWay.key(address, nullptr);
    return m_onTheirWay.remove(device) > 0 && QNetworkDiskCache::remove(address);
}
