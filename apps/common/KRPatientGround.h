#pragma once

#include "KRMapGround.h"

#include <atomic>

/**
 * Paints another ground whole, for pictures that are kept, and notes what they lack.
 */
class KRPatientGround : public KRMapGround
{
    Q_OBJECT

public:
    static constexpr int usualTimeLimitMs = 120000;

    /// @p ground is not owned and must live as long; @p timeLimitMs is for each picture. A quarter of it is waited for
    /// any progress.
    explicit KRPatientGround(KRMapGround *ground, int timeLimitMs = usualTimeLimitMs, QObject *parent = nullptr);

    void paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) override;
    void paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) override;
    void paintNames(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                    const QVector<QRectF> &keptFree) override;
    bool isVector() const override { return m_ground->isVector(); }
    QString credit() const override { return m_ground->credit(); }

    /// From now on nothing is waited for; may be called from any thread.
    void stop() { m_isStopped = true; }

    /// Of the picture painted last; to be asked in the thread that painted it.
    KRMapGaps gaps() const { return m_gaps; }

signals:
    /// Now and then while it waits for so many pieces; in the thread that paints.
    void waiting(int count);

private:
    KRMapGround *m_ground;
    int m_timeLimitMs;
    std::atomic<bool> m_isStopped{false};
    KRMapGaps m_gaps;
};
