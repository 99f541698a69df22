#include "KRGPXCommaText.h"

#include "KRGPXTrackSegment.h"

#include <array>

namespace {

constexpr int mostFields = 4;

/// noTime where the milliseconds that QDateTime keeps would not fit into 64 bits.
qint64 millisecondsOf(qint64 seconds)
{
    constexpr qint64 mostSeconds = 9223372036854775;
    return seconds > mostSeconds || seconds < -mostSeconds ? KRGPXTrackSegment::noTime : seconds * 1000;
}

} // namespace

KRGPXCommaText KRGPXCommaText::decode(const QStringRef &text)
{
    std::array<QStringRef, mostFields> fields;
    std::size_t count = 0;
    for (int begin = 0; begin <= text.size() && count < fields.size(); ++count) {
        const int comma = text.indexOf(QLatin1Char(','), begin);
        const int end = comma < 0 ? text.size() : comma;
        fields[count] = text.mid(begin, end - begin);
        begin = end + 1;
    }

    KRGPXCommaText point;
    point.longitude = KRGPXTrackElement::safeDouble(fields[0]);
    point.latitude = KRGPXTrackElement::safeDouble(fields[1]);
    point.elevation = fields[2].toInt();
    // The writer puts milliseconds there. Intended: they are read as seconds.
    point.milliseconds = count == fields.size() ? millisecondsOf(fields[3].toLongLong()) : KRGPXTrackSegment::noTime;
    return point;
}
