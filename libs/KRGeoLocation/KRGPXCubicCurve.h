#pragma once

#include <QPointF>

#include <utility>

/**
 * A cubic Bezier curve, divided into straight lines just as the painter divides it (de Casteljau's halving).
 */
struct KRGPXCubicCurve {
    QPointF p1;
    QPointF p2;
    QPointF p3;
    QPointF p4;

    /// By how far straight lines may miss a curve, in pixels. The painter's own.
    static constexpr double flatnessPx = 0.25;
    static constexpr int mostHalvings = 9;

    bool isFlat(double flatness) const;
    std::pair<KRGPXCubicCurve, KRGPXCubicCurve> halves() const;

    /// Calls @p visitor with the end of each line, the last of which is p4.
    template <typename Visitor>
    void visitLines(double flatness, const Visitor &visitor, int halvings = mostHalvings) const
    {
        if (halvings == 0 || isFlat(flatness)) {
            visitor(p4);
            return;
        }
        const std::pair<KRGPXCubicCurve, KRGPXCubicCurve> parts = halves();
        parts.first.visitLines(flatness, visitor, halvings - 1);
        parts.second.visitLines(flatness, visitor, halvings - 1);
    }
};
