#pragma once

#include "KRGeoLocationExport.h"

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <cstdint>
#include <limits>
#include <vector>

/**
 * Picks from very many lines of one pen those that show.
 *
 * Where dozens of them have passed through a square that is small beside their width, or beside a pixel's, one more
 * through nothing but such squares shows nothing new. So the time that drawing takes is bounded by the size of the
 * image, however many lines there are. Made for one image, on one thread.
 */
class KRGEOLOCATION_EXPORT KRGPXLineCrowd
{
public:
    /// Paths of fewer elements are worth no thinning.
    static constexpr int fewElements = 20000;
    /// More lines than these through a square show nothing.
    static constexpr int usualMostLines = 32;
    /// The same for lines that take particularly long, fewer if they are as wide as a square.
    static int mostLinesFor(double widthPx);

    /**
     * @param size of the image in pixels
     * @param reach how many pixels beside a line its pen leaves marks
     * @param mostLines that show in a small square
     */
    KRGPXLineCrowd(const QSize &size, double reach, int mostLines = usualMostLines);

    /// What all lines that show are long in an image of the size, in pixels and roughly, however many there are.
    static double mostLengthFor(const QSize &size, double reach, int mostLines = usualMostLines);

    /// Of a line from 0, where it begins, to 1, where it ends.
    struct Part {
        double first;
        double last;
    };

    /// What of a line between two places, in pixels of the image, shows beside those asked for before; valid until the
    /// next is asked for. Only long lines are divided.
    const std::vector<Part> &partsThatShow(const QPointF &from, const QPointF &to);
    /// Whether there is any.
    bool takes(const QPointF &from, const QPointF &to) { return !partsThatShow(from, to).empty(); }

    /// Whether the line lies upon one of those asked for before, in either direction; not all of them are remembered.
    bool isKnown(const QPointF &from, const QPointF &to);

    /**
     * The lines of a path that show.
     *
     * @param path of straight lines only
     * @param transform from the path to pixels of the image
     */
    static QPainterPath thinned(const QPainterPath &path, const QTransform &transform, const QSize &size, double reach,
                                int mostLines = usualMostLines);
    /// The same beside lines asked for before, which the pen has drawn and nothing has been drawn over.
    QPainterPath thinned(const QPainterPath &path, const QTransform &transform);

private:
    /// In quarters of a pixel, so that lines upon each other are equal.
    struct Line {
        bool operator==(const Line &other) const
        {
            return x1 == other.x1 && y1 == other.y1 && x2 == other.x2 && y2 == other.y2;
        }

        int x1 = std::numeric_limits<int>::min(); // of no line
        int y1 = 0;
        int x2 = 0;
        int y2 = 0;
    };

    /// In parts of a square, of which the upper half of the bits counts whole ones.
    struct FixedPlace {
        std::int64_t x;
        std::int64_t y;
    };

    Part partInArea(const QPointF &from, const QPointF &to) const;
    void divide(const Part &inArea, int steps);
    FixedPlace fixedPlaceOf(const QPointF &place) const;
    std::size_t squareOf(const FixedPlace &place) const
    {
        return std::size_t(place.y >> 32) * m_columns + std::size_t(place.x >> 32);
    }

    QRectF m_area; // the image, and around it from where lines reach into it
    double m_squarePx;
    int m_mostLines;
    std::size_t m_columns;
    std::vector<std::uint8_t> m_squares; // lines through each, row by row, with one more on all sides
    std::size_t m_lastSquare = std::numeric_limits<std::size_t>::max(); // where the line before has ended
    std::vector<Part> m_parts;
    std::vector<Line> m_known; // each where its numbers lead
};
