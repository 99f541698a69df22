#pragma once

#include "KRBaseMap.h"
#include "KRMapGround.h"

/**
 * The embedded world map with the sample places. It is all there at once and never changes.
 */
class KRBaseMapGround : public KRMapGround
{
    Q_OBJECT

public:
    explicit KRBaseMapGround(QObject *parent = nullptr);

    void paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) override;
    void paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) override;
    void paintNames(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                    const QVector<QRectF> &keptFree) override;
    bool isVector() const override { return true; }

private:
    const KRBaseMap m_map;
};
