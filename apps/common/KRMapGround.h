#pragma once

#include <QColor>
#include <QObject>
#include <QRectF>
#include <QString>
#include <QVector>

class KRMapPatience;
class KRMapProjection;
class QPainter;
class QSize;

/// What a map lacks.
struct KRMapGaps {
    int count = 0; ///< of tiles, each counted once
    QString reason; ///< for users, of the first one
};

/**
 * What lies under the tracks of a map: an embedded map, tiles from a file or from the net.
 *
 * A ground belongs to the thread that made it; paint() and credit() may be called from any other thread at the same
 * time, as long as the ground lives.
 */
class KRMapGround : public QObject
{
    Q_OBJECT

public:
    /// Where no map is: beyond the Mercator square, and where nothing is known.
    static constexpr QColor paperColor{247, 247, 244};

    explicit KRMapGround(QObject *parent = nullptr) : QObject(parent) { }

    /// Fills the rectangle of that size at (0, 0), and nothing else, with what is at hand. What is still missing is
    /// fetched meanwhile and announced by changed(). @p factor is the paint scale, 1.0 for a normal screen.
    virtual void paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) = 0;

    /// The same for a picture that is kept: waits for what is missing. Not to be called from the GUI thread of a
    /// program with windows.
    virtual KRMapGaps paintWhole(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                                 const KRMapPatience &patience);

    /// Like paint(), in two layers: what lies under the tracks, and the names that shall not be hidden by them, which
    /// keep out of @p keptFree, in pixels. A ground that cannot tell its names apart has all of it below.
    virtual void paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor);
    virtual void paintNames(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                            const QVector<QRectF> &keptFree);

    /// Whether it is painted as lines, areas and text, which documents keep as such; other grounds become one image.
    virtual bool isVector() const { return false; }

    /// Whom the map is owed to, one line of plain text; empty where the credit of the library says it.
    virtual QString credit() const { return QString(); }

signals:
    /// More or better can be painted than before. Comes in the thread of the ground, a few times a second at most.
    void changed();
};
