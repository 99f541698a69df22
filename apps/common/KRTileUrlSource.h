#pragma once

#include "KRTileSource.h"
#include "KRTileTemplate.h"

#include <QHash>
#include <QNetworkAccessManager>
#include <QSet>

class KRTileCache;
class QNetworkReply;
class QNetworkRequest;

/**
 * Tiles from a server of the net, kept on disk for as long as the server allows.
 *
 * Says who asks, asks for few tiles at a time, and leaves a server alone that wants it.
 */
class KRTileUrlSource : public KRTileSource
{
    Q_OBJECT

public:
    /// Null with its reason in the history where the template is none of an address. Asks nobody yet.
    static std::unique_ptr<KRTileSource> open(const QString &text, KRErrorHistory *history);
    ~KRTileUrlSource() override;

    KRIntRange zoomRange() override;
    int maximumRequests() const override { return 4; }
    void request(const KRTileKey &key) override;
    void cancel(const KRTileKey &key) override;
    void forget(const KRTileKey &key, const KRTileAnswer &answer) override;

private:
    explicit KRTileUrlSource(const KRTileTemplate &addresses);

    QNetworkRequest requestFor(const KRTileKey &key) const;
    void stopWhereTooLarge(QNetworkReply *reply) const;
    void finish(const KRTileKey &key, QNetworkReply *reply);
    /// An old tile is better than none.
    void replaceByKept(KRTileAnswer *answer) const;
    static KRTileAnswer answerOf(QNetworkReply *reply);

    KRTileTemplate m_addresses;
    QNetworkAccessManager m_manager;
    KRTileCache *m_cache; ///< of the manager
    QHash<KRTileKey, QNetworkReply *> m_replies; ///< those under way
    QSet<KRTileKey> m_damaged; ///< on the disk
};
