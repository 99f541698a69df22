#include "KRTestArchive.h"

#include <QtEndian>

#include <array>

namespace {

template <typename Number>
QByteArray littleEndian(Number number)
{
    QByteArray bytes(sizeof(Number), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

template <typename... Numbers>
QByteArray record(const char *mark, Numbers... numbers)
{
    return (QByteArray(mark, 4) + ... + littleEndian(numbers));
}

/// The checksum of ZIP and PNG: polynomial 0xEDB88320, both ends inverted.
quint32 crc32(const QByteArray &bytes)
{
    static const std::array<quint32, 256> table = [] {
        std::array<quint32, 256> result{};
        for (quint32 i = 0; i < 256; ++i) {
            quint32 value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = (value & 1) != 0 ? (value >> 1) ^ 0xEDB88320U : value >> 1;
            result[i] = value;
        }
        return result;
    }();
    quint32 crc = 0xFFFFFFFFU;
    for (const char byte : bytes)
        crc = (crc >> 8) ^ table[(crc ^ static_cast<quint8>(byte)) & 0xFF];
    return ~crc;
}

constexpr quint16 version = 45;
constexpr quint16 date = 0x5821; // 2024-01-01
constexpr quint16 none = 0;
constexpr quint32 inExtraField = 0xFFFFFFFF;

QByteArray localPart(const KRTestArchive::Entry &entry)
{
    return record("PK\3\4", version, entry.flags, entry.method, none, date, entry.crc, entry.packedSize, entry.size,
                  quint16(entry.name.size()), none)
           + entry.name + entry.packed;
}

QByteArray tablePart(const KRTestArchive::Entry &entry, quint32 packedSize, quint32 size, quint32 offset,
                     const QByteArray &extraField)
{
    constexpr quint32 noAttributes = 0;
    return record("PK\1\2", version, version, entry.flags, entry.method, none, date, entry.crc, packedSize, size,
                  quint16(entry.name.size()), quint16(extraField.size()), none, none, none, noAttributes, offset)
           + entry.name + extraField;
}

KRTestArchive::Entry entry(const QByteArray &name, const QByteArray &content, const QByteArray &packed, quint16 method)
{
    KRTestArchive::Entry result;
    result.name = name;
    result.packed = packed;
    result.method = method;
    result.crc = crc32(content);
    result.packedSize = quint32(packed.size());
    result.size = quint32(content.size());
    return result;
}

} // namespace

KRTestArchive::Entry KRTestArchive::stored(const QByteArray &name, const QByteArray &content)
{
    return entry(name, content, content, 0);
}

KRTestArchive::Entry KRTestArchive::deflated(const QByteArray &name, const QByteArray &content)
{
    // qCompress() puts a length of 4 bytes and a zlib header of 2 before the deflated bytes, a checksum of 4 behind.
    const QByteArray compressed = qCompress(content);
    return entry(name, content, compressed.mid(6, compressed.size() - 10), 8);
}

QByteArray KRTestArchive::bytes(const QList<Entry> &entries, const QList<int> &tableOrder)
{
    QByteArray archive;
    QList<QByteArray> tableParts;
    for (const Entry &entry : entries) {
        const quint32 offset = entry.offset.value_or(quint32(archive.size()));
        archive += localPart(entry);
        tableParts += tablePart(entry, entry.packedSize, entry.size, offset, QByteArray());
    }
    QByteArray table;
    for (int i = 0; i < tableParts.size(); ++i)
        table += tableParts.at(tableOrder.isEmpty() ? i : tableOrder.at(i));
    const auto count = quint16(entries.size());
    return archive + table
           + record("PK\5\6", none, none, count, count, quint32(table.size()), quint32(archive.size()), none);
}

QByteArray KRTestArchive::wideBytes(const QList<Entry> &entries)
{
    constexpr quint16 wideField = 1;
    constexpr quint16 wideFieldSize = 24;
    constexpr quint64 endRecordSize = 44; // without its mark and this number
    constexpr quint32 disk = 0;
    constexpr quint32 disks = 1;

    QByteArray archive;
    QByteArray table;
    for (const Entry &entry : entries) {
        const quint64 offset = entry.offset.value_or(quint32(archive.size()));
        archive += localPart(entry);
        const QByteArray extraField = littleEndian(wideField) + littleEndian(wideFieldSize)
                                      + littleEndian(quint64(entry.size)) + littleEndian(quint64(entry.packedSize))
                                      + littleEndian(offset);
        table += tablePart(entry, inExtraField, inExtraField, inExtraField, extraField);
    }
    const auto count = quint64(entries.size());
    const auto tableOffset = quint64(archive.size());
    const auto endOffset = quint64(archive.size() + table.size());
    return archive + table
           + record("PK\6\6", endRecordSize, version, version, disk, disk, count, count, quint64(table.size()),
                    tableOffset)
           + record("PK\6\7", disk, endOffset, disks)
           + record("PK\5\6", none, none, quint16(0xFFFF), quint16(0xFFFF), inExtraField, inExtraField, none);
}
