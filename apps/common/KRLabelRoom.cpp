#include "KRLabelRoom.h"

#include "KRPolygon.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int rowCount = 40;

} // namespace

KRLabelRoom::KRLabelRoom(const QPolygonF &shape) : m_bounds(shape.boundingRect()), m_rows(rowCount)
{
    fillRows(shape);
    findMiddle(shape);
}

QVector<QPointF> KRLabelRoom::placesFor(const QSizeF &size, const QPointF &wanted) const
{
    QVector<QPointF> places;
    const int reach = int(std::ceil(qMin(size.height() / 2.0 / rowHeight(), double(rowCount))));
    for (int row = reach; row + reach < rowCount; ++row) {
        for (const Span &span : m_rows.at(row)) {
            const Span common = commonSpan(span, row - reach, row + reach);
            const double slack = common.right - common.left - size.width();
            if (slack < 0.0)
                continue;
            // Close to the wanted place, but not hard at the border while there is room to keep away from it.
            const double nearest = size.width() / 2.0 + qMin(slack / 2.0, size.height());
            const double first = common.left + nearest;
            // Without slack, rounding may put the last place in front of the first.
            const double last = std::max(first, common.right - nearest);
            places << QPointF(qBound(first, wanted.x(), last), yOfRow(row));
        }
    }
    const auto distance = [&](const QPointF &place) {
        return std::hypot(place.x() - wanted.x(), place.y() - wanted.y());
    };
    std::stable_sort(places.begin(), places.end(),
                     [&](const QPointF &a, const QPointF &b) { return distance(a) < distance(b); });
    return places;
}

void KRLabelRoom::fillRows(const QPolygonF &shape)
{
    QVector<QVector<double>> crossings(rowCount);
    for (int i = 0; i < shape.size(); ++i) {
        QPointF upper = shape.at(i);
        QPointF lower = shape.at(i + 1 == shape.size() ? 0 : i + 1);
        if (upper.y() > lower.y())
            std::swap(upper, lower);
        // An edge crosses the rows whose y lies in the half-open range of its own.
        const int first = qMax(0, int((upper.y() - m_bounds.top()) / rowHeight()) - 1);
        for (int row = first; row < rowCount && yOfRow(row) < lower.y(); ++row) {
            if (yOfRow(row) >= upper.y()) {
                const double part = (yOfRow(row) - upper.y()) / (lower.y() - upper.y());
                crossings[row] << upper.x() + (lower.x() - upper.x()) * part;
            }
        }
    }
    for (int row = 0; row < rowCount; ++row) {
        QVector<double> &xs = crossings[row];
        std::sort(xs.begin(), xs.end());
        for (int i = 0; i + 1 < xs.size(); i += 2)
            m_rows[row].append({xs.at(i), xs.at(i + 1)});
    }
}

void KRLabelRoom::findMiddle(const QPolygonF &shape)
{
    m_middle = KRPolygon::centroid(shape);
    if (shape.containsPoint(m_middle, Qt::OddEvenFill))
        return;
    const double centroidY = m_middle.y();
    double bestScore = 0.0;
    for (int row = 0; row < rowCount; ++row) {
        const double farness = std::abs(yOfRow(row) - centroidY) / m_bounds.height();
        for (const Span &span : m_rows.at(row)) {
            const double score = (span.right - span.left) * (1.0 - farness);
            if (score > bestScore) {
                bestScore = score;
                m_middle = QPointF((span.left + span.right) / 2.0, yOfRow(row));
            }
        }
    }
}

double KRLabelRoom::rowHeight() const
{
    return qMax(m_bounds.height() / rowCount, 1e-9);
}

double KRLabelRoom::yOfRow(int row) const
{
    return m_bounds.top() + (row + 0.5) * rowHeight();
}

KRLabelRoom::Span KRLabelRoom::commonSpan(const Span &span, int firstRow, int lastRow) const
{
    Span common = span;
    for (int row = firstRow; row <= lastRow; ++row) {
        Span widest{0.0, 0.0};
        for (const Span &other : m_rows.at(row)) {
            const Span overlap{qMax(common.left, other.left), qMin(common.right, other.right)};
            if (overlap.right - overlap.left > widest.right - widest.left)
                widest = overlap;
        }
        common = widest;
    }
    return common;
}
