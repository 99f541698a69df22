#pragma once

#include <QCoreApplication>
#include <QString>
#include <QVector>

class KRBaseMapView;

/**
 * The meridians and parallels that suit a view, at round degrees, minutes or seconds.
 *
 * Their distance follows the scale: wide enough to keep the map calm, each direction for itself.
 */
class KRBaseMapGraticule
{
    Q_DECLARE_TR_FUNCTIONS(KRBaseMapGraticule)

public:
    struct Line {
        double pixel; ///< x of a meridian, y of a parallel
        QString text; ///< "53° N", "8° 05′ O"; no letter at 0 and 180 degrees
    };

    explicit KRBaseMapGraticule(const KRBaseMapView &view);

    const QVector<Line> &meridians() const { return m_meridians; }
    const QVector<Line> &parallels() const { return m_parallels; }

private:
    void addMeridians(const KRBaseMapView &view);
    void addParallels(const KRBaseMapView &view);

    QVector<Line> m_meridians;
    QVector<Line> m_parallels;
};
