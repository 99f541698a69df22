#include "KRIntRange.h"

#include <QImage>
#include <QThread>

#include <algorithm>

KRIntRange KRIntRange::rowsOfImage(const QImage &image)
{
    return {0, image.height() - 1};
}

KRIntRange KRIntRange::columnsOfImage(const QImage &image)
{
    return {0, image.width() - 1};
}

QList<KRIntRange> KRIntRange::splitEvenlyForCpuCores() const
{
    // 64 bits: the whole range of int has more indexes than an int can count.
    const qint64 count = std::max<qint64>(0, qint64(maximum()) - minimum() + 1);
    const qint64 parts = std::min<qint64>(count, QThread::idealThreadCount());
    QList<KRIntRange> ranges;
    for (qint64 part = 0; part < parts; ++part) {
        const qint64 first = minimum() + count * part / parts;
        const qint64 afterLast = minimum() + count * (part + 1) / parts;
        ranges.append(KRIntRange(int(first), int(afterLast - 1)));
    }
    return ranges;
}
