#pragma once

#include "KRGeoLocationExport.h"

#include <QPainterPath>
#include <QPointF>

#include <vector>

/**
 * The outline of lines that are drawn with a round pen, in few corners.
 *
 * QPainterPathStroker puts a curve at every join, however slight the turn. Here only turns that show get one, so that a
 * file that holds the outline of a track is a fraction as large. What the outlines enclose is painted once, wherever
 * the lines cross (Qt::WindingFill).
 */
class KRGEOLOCATION_EXPORT KRGPXLineOutline
{
public:
    /**
     * @param width of the pen
     * @param tolerance how far an outline may be from the exact one, in the same unit
     */
    KRGPXLineOutline(double width, double tolerance);

    /// Whether the path has straight lines only.
    static bool isFor(const QPainterPath &path);

    /// @param lines a path of straight lines only; subpaths that end where they begin are closed
    QPainterPath of(const QPainterPath &lines);

private:
    void appendOutline(const std::vector<QPointF> &points, bool isClosed);
    void appendSide(const std::vector<QPointF> &points, bool isClosed);
    void appendJoin(const QPointF &before, const QPointF &place, const QPointF &after);
    void appendArc(const QPointF &centre, const QPointF &from, const QPointF &to, double angle);
    void appendCap(const QPointF &end, const QPointF &normal);
    void goTo(const QPointF &place);

    double m_radius;
    double m_slightTurn; ///< radians
    bool m_isBeginning = false; ///< of an outline
    QPainterPath m_outline;
};
