#pragma once

#include "KRGeoLocationExport.h"

#include <QPointF>

/**
 * Smooths a line of projected points in place: evenly spaced points of the line stay as anchors, every other point
 * is pulled toward the chord between the two anchors around it.
 *
 * The array belongs to the caller, who keeps it alive; nothing is allocated. The first and the last point never
 * move. Coordinates may have any unit.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackSmoothing
{
public:
    /**
     * @param points the array, changed by run()
     * @param count  points in the array
     * @param weight share of its own place that a point keeps: 1 moves nothing, 0 moves each point onto its chord
     * @param steps  wanted number of anchors; with more than half of @p count nothing moves
     */
    KRGPXTrackSmoothing(QPointF *points, int count, double weight, int steps);
    KRGPXTrackSmoothing(const KRGPXTrackSmoothing &other) = default;
    KRGPXTrackSmoothing &operator=(const KRGPXTrackSmoothing &other) = default;
    virtual ~KRGPXTrackSmoothing() = default;

    /// The smaller of the two numbers, at least 1.
    int estimateFixPoints(int count, int steps) const;

    void run();
    /// Pulls the point at @p index toward the chord between the points at @p from and @p to.
    void smoothPoint(int index, int from, int to);

    /// Euclidean distance.
    double delta(const QPointF &a, const QPointF &b) const;
    /// a / (b + a); not a number when both are 0.
    double partOf(double a, double b) const;
    /// (1 - t) b + t a: all of @p b at t = 0, all of @p a at t = 1.
    QPointF mix(const QPointF &a, const QPointF &b, double t) const;

private:
    int anchorIndex(int block) const;

    QPointF *m_points;
    int m_count;
    double m_weight;
    int m_fixPoints;
};
