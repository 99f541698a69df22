#include "KRTileGround.h"

#include "KRMapPatience.h"
#include "KRTileLayout.h"
#include "KRTileLoader.h"
#include "KRTilePainter.h"
#include "KRTileSource.h"
#include "KRTileStore.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRErrorHistory.h>

#include <QPainter>
#include <QThread>

namespace {

constexpr int announcementMs = 120;
/// Long enough for everything that ends by itself; a file that keeps its reader busy for ever is left behind.
constexpr unsigned long farewellMs = 3000;

/// Until the first tile was seen.
constexpr int usualTileSide = 256;

KRTileKeyList keysOf(const KRTileLayout &layout, const QRect &block)
{
    const QRect tiles = layout.tilesOf(block);
    KRTileKeyList keys;
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column)
            keys << layout.keyOf(column, row);
    }
    return keys;
}

/// Paper everywhere, and nothing outside.
void preparePicture(QPainter *painter, const QSize &size)
{
    const QRect picture(QPoint(), size);
    painter->setClipRect(picture, Qt::IntersectClip);
    painter->fillRect(picture, KRMapGround::paperColor);
}

} // namespace

KRTileGround::KRTileGround(const QString &source, QObject *parent)
    : KRTileGround(source, std::make_shared<KRTileStore>(), parent)
{ }

KRTileGround::KRTileGround(const QString &source, const std::shared_ptr<KRTileStore> &store, QObject *parent)
    : KRMapGround(parent), m_announcement(this), m_store(store), m_loader(new KRTileLoader(source, m_store)),
      m_thread(new QThread)
{
    KRErrorHistory history;
    if (const std::unique_ptr<KRTileSource> opened = KRTileSource::open(source, &history))
        m_credit = opened->credit();
    else
        m_store->setProblem(history.entries().first().reason);

    m_announcement.setSingleShot(true);
    m_announcement.setInterval(announcementMs);
    connect(&m_announcement, &QTimer::timeout, this, &KRTileGround::changed);
    connect(m_loader, &KRTileLoader::advanced, this, &KRTileGround::announceSoon);
    connect(m_thread, &QThread::finished, m_loader, &QObject::deleteLater);
    m_loader->moveToThread(m_thread);
    m_thread->setObjectName(QStringLiteral("KRTileLoader"));
    if (!KRConcurrent::start(m_thread, QThread::LowPriority))
        m_store->setProblem(tr("Das System startet keinen weiteren Thread."));
}

KRTileGround::~KRTileGround()
{
    m_loader->disconnect(this);
    if (!m_thread->isRunning())
        delete m_loader; // it could not be started
    m_thread->quit();
    if (m_thread->wait(farewellMs))
        delete m_thread;
}

QString KRTileGround::problem() const
{
    return m_store->problem();
}

void KRTileGround::paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    const KRTileLayout place = layout(size, projection, factor);
    const KRTilePainter tiles(m_store.get(), place);
    painter->save();
    preparePicture(painter, size);
    const QVector<QRect> blocks = place.blocks();
    for (const QRect &block : blocks)
        tiles.paint(painter, block);
    painter->restore();
    m_loader->setWishes(this, tiles.wishesFor(place.keys()));
}

KRMapGaps KRTileGround::paintWhole(QPainter *painter, const QSize &size, const KRMapProjection &projection,
                                   double factor, const KRMapPatience &patience)
{
    waitUntilOpened(patience);
    KRTileLayout place = layout(size, projection, factor);
    if (m_store->tileSide() == 0) {
        // The first tile tells how large they all are, and that decides on the level.
        const KRTileKeyList keys = place.keys();
        waitFor(keys.mid(0, 1), KRTilePainter(m_store.get(), place), keys.size() - 1, patience);
        place = layout(size, projection, factor);
    }

    const KRTilePainter tiles(m_store.get(), place);
    painter->save();
    preparePicture(painter, size);
    KRMapGaps gaps = gapsWithoutTiles(place);
    QSet<KRTileKey> seen;
    const int countOfAll = place.keys().size();
    const QVector<QRect> blocks = place.blocks();
    for (const QRect &block : blocks) {
        const KRTileKeyList keys = keysOf(place, block);
        const QSet<KRTileKey> unseen = QSet<KRTileKey>(keys.begin(), keys.end()).subtract(seen);
        seen += unseen;
        // Block by block, and never twice: a large picture has more tiles than the store keeps.
        waitFor(keys, tiles, countOfAll - seen.size(), patience);
        tiles.paint(painter, block);

        const KRMapGaps added = tiles.gaps(unseen);
        if (gaps.count == 0)
            gaps.reason = added.reason;
        gaps.count += added.count;
    }
    painter->restore();
    return gaps;
}

KRTileLayout KRTileGround::layout(const QSize &size, const KRMapProjection &projection, double factor) const
{
    const int side = m_store->tileSide();
    // Nothing is known of the levels before the source is opened: no tiles then.
    const KRIntRange zoomRange = m_store->zoomRange().value_or(KRIntRange(-1, -1));
    return KRTileLayout(projection, size, factor, zoomRange, side > 0 ? side : usualTileSide);
}

void KRTileGround::waitUntilOpened(const KRMapPatience &patience)
{
    m_loader->setWishes(&patience, KRTileKeyList()); // wakes it up
    for (;;) {
        const quint64 revision = m_store->revision();
        const bool isDecided = m_store->zoomRange().has_value() || !m_store->problem().isEmpty();
        if (isDecided || patience.isOver(1))
            return;
        m_store->waitForChange(revision, patience.nextQuestion());
    }
}

void KRTileGround::waitFor(const KRTileKeyList &keys, const KRTilePainter &tiles, int countBehind,
                           const KRMapPatience &patience)
{
    // Wishes apart from those of the views, which come and go meanwhile.
    const void *const owner = &patience;
    KRTileKeyList wishes;
    for (;;) {
        const quint64 revision = m_store->revision();
        const KRTileKeyList undecided = tiles.undecided(keys);
        if (undecided != wishes)
            m_loader->setWishes(owner, undecided);
        wishes = undecided;
        if (undecided.isEmpty() || patience.isOver(undecided.size() + countBehind))
            break;
        m_store->waitForChange(revision, patience.nextQuestion());
    }
    m_loader->setWishes(owner, KRTileKeyList());
}

KRMapGaps KRTileGround::gapsWithoutTiles(const KRTileLayout &layout) const
{
    if (layout.isValid() || (m_store->zoomRange().has_value() && !layout.lacksCoarseTiles()))
        return {};
    if (m_store->zoomRange().has_value())
        return {1, tr("Die Quelle hat keine Kacheln für einen so großen Ausschnitt.")};
    const QString problem = m_store->problem();
    return {1, problem.isEmpty() ? tr("Die Zeit reichte nicht.") : problem};
}

void KRTileGround::announceSoon()
{
    if (!m_announcement.isActive())
        m_announcement.start();
}
