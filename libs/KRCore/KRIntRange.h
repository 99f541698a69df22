#pragma once

#include "KRCoreExport.h"
#include "KRRange.h"

#include <QList>

class QImage;

/**
 * A run of indexes, both ends belonging to it.
 *
 * A maximum below the minimum is the empty range: that is how the range (0, count - 1) of no items looks. A
 * default-constructed range is (0, 0), which holds one index. Every parallel loop runs over the parts of a range.
 */
class KRCORE_EXPORT KRIntRange : public KRRange<int>
{
public:
    using KRRange<int>::KRRange;

    /// The rows of the image, empty for a null image.
    static KRIntRange rowsOfImage(const QImage &image);
    /// The columns of the image, empty for a null image.
    static KRIntRange columnsOfImage(const QImage &image);

    /// One past the last index, where a loop stops; the minimum or less for an empty range.
    int lastIndexEvenIfUnvalid() const { return maximum() + 1; }

    /// Consecutive parts in ascending order, one per processor core, sizes differing by 1 at most. No part is empty:
    /// a range of fewer indexes than cores gives fewer parts, an empty one none.
    QList<KRIntRange> splitEvenlyForCpuCores() const;
};
