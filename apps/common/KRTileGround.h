#pragma once

#include "KRMapGround.h"
#include "KRTileKey.h"

#include <QCoreApplication>
#include <QTimer>

#include <memory>

class KRTileLayout;
class KRTileLoader;
class KRTilePainter;
class KRTileStore;
class QThread;

/**
 * A map of tiles from a file, a folder or the net.
 *
 * Tiles are fetched by a thread of its own; what the picture painted last does not need is given up. Until a tile is
 * there, the part of a coarser one takes its place, and paper where there is none either.
 */
class KRTileGround : public KRMapGround
{
    Q_OBJECT

public:
    /// @p source as KRTileSource::open() takes it. Where it cannot be opened there is only paper, and problem() tells.
    explicit KRTileGround(const QString &source, QObject *parent = nullptr);
    /// Keeps the tiles in @p store, which nobody else has tiles in.
    KRTileGround(const QString &source, const std::shared_ptr<KRTileStore> &store, QObject *parent = nullptr);
    ~KRTileGround() override;

    /// Why there is no map, or why one waits for it, for users; empty where all goes well. From any thread.
    QString problem() const;

    void paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) override;
    KRMapGaps paintWhole(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                         const KRMapPatience &patience) override;

    QString credit() const override { return m_credit; }
    /// In place of what the source says of itself. To be set before anybody paints.
    void setCredit(const QString &credit) { m_credit = credit; }

private:
    KRTileLayout layout(const QSize &size, const KRMapProjection &projection, double factor) const;
    void waitUntilOpened(const KRMapPatience &patience);
    /// @p countBehind tiles are to come after these.
    void waitFor(const KRTileKeyList &keys, const KRTilePainter &tiles, int countBehind, const KRMapPatience &patience);
    KRMapGaps gapsWithoutTiles(const KRTileLayout &layout) const;
    void announceSoon();

    QString m_credit;
    QTimer m_announcement;
    std::shared_ptr<KRTileStore> m_store;
    KRTileLoader *m_loader; ///< deletes itself when its thread ends
    QThread *m_thread;
};
