#pragma once

#include <QHash>
#include <QNetworkDiskCache>
#include <QUrl>

/**
 * Tiles of the net on the disk: for as long as their server says, for a week where it leaves that open.
 *
 * What is kept stays when the server answers with an error instead: an old tile is better than none.
 */
class KRTileCache : public QNetworkDiskCache
{
    Q_OBJECT

public:
    explicit KRTileCache(QObject *parent);

    QIODevice *prepare(const QNetworkCacheMetaData &metaData) override;
    void insert(QIODevice *device) override;
    /// Only gives up what is on its way to the disk; Qt asks for it after each error.
    bool remove(const QUrl &address) override;
    void discard(const QUrl &address) { QNetworkDiskCache::remove(address); }

private:
    QHash<QIODevice *, QUrl> m_onTheirWay;
};
