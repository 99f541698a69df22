#pragma once

#include <QRgb>
#include <Qt>

#include <cstdint>
#include <vector>

/**
 * Some rows of an image, in which edges of an outline are added up and then painted.
 *
 * There is a sum for each pixel between the leftmost and the rightmost edge, and one more in front for all that lies
 * to the left. Only pixels that an edge has touched are looked at one by one, see KRGPXPathRaster. One band serves many
 * rows one after the other, on one thread.
 */
class KRGPXRasterBand
{
public:
    static constexpr int subpixels = 256;
    static constexpr int subpixelBits = 8;

    /// In 1/256 pixels of the image.
    struct Point {
        int x;
        int y;
    };
    /// A straight piece of the outline; its direction decides how it counts under the winding rule.
    struct Edge {
        Point from;
        Point to;
    };

    void setFillRule(Qt::FillRule fillRule) { m_fillRule = fillRule; }

    /// The pixel that holds a coordinate.
    static constexpr int pixelOf(int coordinate) { return coordinate >> subpixelBits; }

    /// Moves the empty band to other rows and columns, both from the first to before the end.
    void moveTo(int firstRow, int endRow, int firstColumn, int endColumn);
    /// What lies in none of the rows, or to the right of the columns, adds nothing.
    void add(const Edge &edge);
    /**
     * Paints a row, counted from the first, and empties it.
     *
     * @param pixels of the row from the first column on, which are all there are to be painted
     * @param color premultiplied
     */
    void paintRow(int row, QRgb *pixels, QRgb color);

private:
    /// What the edges in one pixel add up to: their heights, and their heights times twice the way to their left.
    struct Cell {
        std::uint32_t height;
        std::uint32_t area;
    };
    /// One bit for each cell.
    using Word = std::uint64_t;
    static constexpr int wordBits = 64;

    int wordsOfRow() const { return m_width / wordBits + 1; }
    void addCell(int row, int column, int height, int area);
    void addInRow(int row, const Point &from, const Point &to);

    Qt::FillRule m_fillRule = Qt::OddEvenFill;
    int m_firstRow = 0;
    int m_endRow = 0;
    int m_left = 0; // in 1/256 pixels
    int m_width = 0;
    std::vector<Cell> m_cells; // row by row, all zero but where touched
    std::vector<Word> m_touched; // row by row
};
