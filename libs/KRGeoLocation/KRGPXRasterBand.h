#pragma once

#include <Qt>
#include <QtAlgorithms>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

/**
 * Some rows of an image, in which edges of an outline are added up.
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

    explicit KRGPXRasterBand(Qt::FillRule fillRule) : m_fillRule(fillRule) { }

    /// The pixel that holds a coordinate.
    static constexpr int pixelOf(int coordinate) { return coordinate >> subpixelBits; }

    void setFillRule(Qt::FillRule fillRule) { m_fillRule = fillRule; }
    /// Moves the empty band to other rows and columns, both from the first to before the end.
    void moveTo(int firstRow, int endRow, int firstColumn, int endColumn);
    /// What lies in none of the rows, or to the right of the columns, adds nothing.
    void add(const Edge &edge);
    /// Calls @p visitor with stretches of pixels, from the first to before the end, and their coverage of 1 to 255, and
    /// empties the row, which like the pixels is counted from the first one of the band.
    template <typename Visitor>
    void takeRow(int row, const Visitor &visitor);

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
    /// Of 255, for the area of a pixel that edges have left of itself.
    unsigned coverageOf(std::uint32_t area) const
    {
        int part = std::abs(int(area) >> (subpixelBits + 1));
        if (m_fillRule == Qt::OddEvenFill) {
            part %= 2 * subpixels;
            part = std::min(part, 2 * subpixels - part);
        }
        return unsigned(std::min(part, 255));
    }
    void addCell(int row, int column, int height, int area);
    void addInRow(int row, const Point &from, const Point &to);

    Qt::FillRule m_fillRule;
    int m_firstRow = 0;
    int m_endRow = 0;
    int m_left = 0; // in 1/256 pixels
    int m_width = 0;
    std::vector<Cell> m_cells; // row by row, all zero but where touched
    std::vector<Word> m_touched; // row by row
};

template <typename Visitor>
void KRGPXRasterBand::takeRow(int row, const Visitor &visitor)
{
    Cell *const cells = m_cells.data() + std::size_t(row) * std::size_t(m_width + 1);
    Word *const touched = m_touched.data() + std::size_t(row) * std::size_t(wordsOfRow());
    std::uint32_t height = 0;
    int next = 0; // cell behind the last touched one
    const auto visitUntouched = [&](int end) {
        const unsigned coverage = next < end ? coverageOf(height * (2 * subpixels)) : 0;
        if (coverage > 0)
            visitor(next - 1, end - 1, coverage);
    };
    for (int word = 0; word < wordsOfRow(); ++word) {
        for (; touched[word] != 0; touched[word] &= touched[word] - 1) {
            const int i = word * wordBits + int(qCountTrailingZeroBits(touched[word]));
            visitUntouched(i);
            height += cells[i].height;
            const unsigned coverage = coverageOf(height * (2 * subpixels) - cells[i].area);
            if (i > 0 && coverage > 0)
                visitor(i - 1, i, coverage);
            cells[i] = {0, 0};
            next = i + 1;
        }
    }
    visitUntouched(m_width + 1);
}
