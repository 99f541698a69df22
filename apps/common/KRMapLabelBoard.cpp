#include "KRMapLabelBoard.h"

#include <algorithm>

bool KRMapLabelBoard::isFree(const QRectF &box) const
{
    const QRectF padded = box.adjusted(-m_margin, -m_margin, m_margin, m_margin);
    return m_area.contains(padded) && std::none_of(m_taken.begin(), m_taken.end(), [&](const QRectF &taken) {
               return taken.intersects(padded);
           });
}

bool KRMapLabelBoard::tryAdd(const KRMapLabel &label)
{
    const QRectF box = label.box();
    if (!isFree(box))
        return false;
    m_taken << box;
    m_labels << label;
    return true;
}

void KRMapLabelBoard::paint(QPainter *painter) const
{
    for (const KRMapLabel &label : m_labels)
        label.paint(painter);
}
