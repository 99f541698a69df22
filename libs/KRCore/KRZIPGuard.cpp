#include "KRZIPGuard.h"

#include "KRInputLimits.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr int endRecordSize = 22;
constexpr int wideEndRecordSize = 56;
constexpr int wideEndLocatorSize = 20;
constexpr int tableHeaderSize = 46;
constexpr int localHeaderSize = 30;
constexpr int maximumCommentSize = 0xffff;
constexpr int wideExtraField = 1;
constexpr quint32 standsInExtraField = 0xffffffff;

/// A part of the file, from its first byte to the one behind its last.
struct Extent {
    quint64 begin = 0;
    quint64 end = 0;

    quint64 size() const { return end - begin; }
    bool operator<(const Extent &other) const { return begin < other.begin; }
};

template <typename Number>
Number numberAt(const QByteArray &bytes, int position)
{
    return qFromLittleEndian<Number>(bytes.constData() + position);
}

bool hasMark(const QByteArray &bytes, int position, const char (&mark)[5])
{
    const int bytesLeft = bytes.size() - position;
    return position >= 0 && std::string_view(bytes.constData() + position, size_t(bytesLeft)).substr(0, 4) == mark;
}

std::optional<Extent> extent(quint64 begin, quint64 size, quint64 limit)
{
    if (begin > limit || size > limit - begin)
        return std::nullopt;
    return Extent{begin, begin + size};
}

/// None when the file has become shorter meanwhile.
QByteArray bytesOf(QFile *archive, const Extent &part)
{
    archive->seek(qint64(part.begin));
    const QByteArray bytes = archive->read(qint64(part.size()));
    return quint64(bytes.size()) == part.size() ? bytes : QByteArray();
}

/// Where the end record lies in @p tail; -1 when there is none or when there are several.
int findEndRecord(const QByteArray &tail)
{
    int found = -1;
    for (int position = 0; position + endRecordSize <= tail.size(); ++position) {
        if (!hasMark(tail, position, "PK\5\6")
            || position + endRecordSize + numberAt<quint16>(tail, position + 20) != tail.size())
            continue;
        if (found >= 0)
            return -1;
        found = position;
    }
    return found;
}

std::optional<Extent> findTable(QFile *archive)
{
    constexpr quint64 mostTailBytes = wideEndLocatorSize + endRecordSize + maximumCommentSize;
    const auto size = quint64(archive->size());
    const QByteArray tail = bytesOf(archive, {size - std::min(size, mostTailBytes), size});
    const int end = findEndRecord(tail);
    if (end < 0)
        return std::nullopt;
    const quint64 limit = size - quint64(tail.size() - end);
    const int locator = end - wideEndLocatorSize;
    if (!hasMark(tail, locator, "PK\6\7"))
        return extent(numberAt<quint32>(tail, end + 16), numberAt<quint32>(tail, end + 12), limit);

    const auto record = extent(numberAt<quint64>(tail, locator + 8), wideEndRecordSize, limit);
    if (!record)
        return std::nullopt;
    const QByteArray wideEnd = bytesOf(archive, *record);
    if (!hasMark(wideEnd, 0, "PK\6\6"))
        return std::nullopt;
    return extent(numberAt<quint64>(wideEnd, 48), numberAt<quint64>(wideEnd, 40), record->begin);
}

/// Puts the 64-bit numbers of an entry in place of those that do not fit 32 bits. They come in this order.
bool readWideNumbers(const QByteArray &extraFields, const std::vector<quint64 *> &numbers)
{
    QByteArray wide;
    for (int position = 0; position + 4 <= extraFields.size();) {
        const int size = numberAt<quint16>(extraFields, position + 2);
        if (numberAt<quint16>(extraFields, position) == wideExtraField)
            wide = extraFields.mid(position + 4, size);
        position += 4 + size;
    }
    int position = 0;
    for (quint64 *const number : numbers) {
        if (*number != standsInExtraField)
            continue;
        if (position + 8 > wide.size())
            return false;
        *number = numberAt<quint64>(wide, position);
        position += 8;
    }
    return true;
}

/// What each entry occupies at least, in the order of the table; nothing when the table is damaged.
std::optional<std::vector<Extent>> extentsOfEntries(const QByteArray &table, const Extent &place)
{
    const quint64 limit = place.begin;
    std::vector<Extent> extents;
    int position = 0;
    while (position < int(place.size())) {
        if (position + tableHeaderSize > table.size() || !hasMark(table, position, "PK\1\2"))
            return std::nullopt;
        quint64 packedSize = numberAt<quint32>(table, position + 20);
        quint64 size = numberAt<quint32>(table, position + 24);
        const int nameSize = numberAt<quint16>(table, position + 28);
        const int extraSize = numberAt<quint16>(table, position + 30);
        const int commentSize = numberAt<quint16>(table, position + 32);
        quint64 begin = numberAt<quint32>(table, position + 42);
        const QByteArray extraFields = table.mid(position + tableHeaderSize + nameSize, extraSize);
        position += tableHeaderSize + nameSize + extraSize + commentSize;
        if (position > table.size() || !readWideNumbers(extraFields, {&size, &packedSize, &begin})
            || packedSize > limit)
            return std::nullopt;
        const auto entry = extent(begin, quint64(localHeaderSize + nameSize) + packedSize, limit);
        if (!entry)
            return std::nullopt;
        extents.push_back(*entry);
    }
    return extents;
}

} // namespace

QString KRZIPGuard::refusal(QFile *archive)
{
    const auto place = findTable(archive);
    if (!place)
        return tr("Kein lesbares ZIP-Archiv, oder sein Ende fehlt.");
    if (place->size() > KRInputLimits::archiveTableBytes)
        return tr("Das Inhaltsverzeichnis des Archivs ist zu groß (mehr als %1 MB).")
            .arg(KRInputLimits::archiveTableBytes >> 20);
    auto extents = extentsOfEntries(bytesOf(archive, *place), *place);
    if (!extents)
        return tr("Das Inhaltsverzeichnis des Archivs ist beschädigt.");

    std::sort(extents->begin(), extents->end());
    const auto overlap = [](const Extent &a, const Extent &b) { return b.begin < a.end; };
    if (std::adjacent_find(extents->begin(), extents->end(), overlap) != extents->end())
        return tr("Einträge des Archivs überlappen sich.");
    return QString();
}
