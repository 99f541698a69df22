#include "KRMapLabelBoard.h"

#include <algorithm>

namespace {

/// In pixels, such that few names share a square and a name lies in few of them.
constexpr double squareSize = 100.0;

} // namespace

KRMapLabelBoard::KRMapLabelBoard(const QRectF &area, double margin)
    : m_area(area), m_margin(margin), m_columns(int(area.width() / squareSize) + 1),
      m_rows(int(area.height() / squareSize) + 1), m_taken(indexOf(0, m_rows))
{ }

bool KRMapLabelBoard::isFree(const QRectF &box) const
{
    const QRectF padded = box.adjusted(-m_margin, -m_margin, m_margin, m_margin);
    if (!m_area.contains(padded))
        return false;
    const QRect squares = squaresOf(padded);
    for (int row = squares.top(); row <= squares.bottom(); ++row) {
        for (int column = squares.left(); column <= squares.right(); ++column) {
            const QVector<QRectF> &taken = m_taken[indexOf(column, row)];
            if (std::any_of(taken.begin(), taken.end(), [&](const QRectF &other) { return other.intersects(padded); }))
                return false;
        }
    }
    return true;
}

void KRMapLabelBoard::keepFree(const QRectF &box)
{
    const QRect squares = squaresOf(box);
    for (int row = squares.top(); row <= squares.bottom(); ++row) {
        for (int column = squares.left(); column <= squares.right(); ++column)
            m_taken[indexOf(column, row)] << box;
    }
}

bool KRMapLabelBoard::tryAdd(const KRMapLabel &label)
{
    const QRectF box = label.box();
    if (!isFree(box))
        return false;
    keepFree(box);
    m_labels << label;
    return true;
}

void KRMapLabelBoard::paint(QPainter *painter) const
{
    for (const KRMapLabel &label : m_labels)
        label.paint(painter);
}

QRect KRMapLabelBoard::squaresOf(const QRectF &box) const
{
    const auto column = [this](double x) {
        return int(qBound(0.0, (x - m_area.left()) / squareSize, m_columns - 1.0));
    };
    const auto row = [this](double y) { return int(qBound(0.0, (y - m_area.top()) / squareSize, m_rows - 1.0)); };
    return QRect(QPoint(column(box.left()), row(box.top())), QPoint(column(box.right()), row(box.bottom())));
}
