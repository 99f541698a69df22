#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

/**
 * Writes ZIP archives byte by byte, also such as no honest program writes: what an entry says about itself may be
 * changed before the archive is put together.
 */
class KRTestArchive
{
public:
    struct Entry {
        QByteArray name;
        QByteArray packed;
        quint16 method = 0; ///< 0 stored, 8 deflated
        quint16 flags = 0; ///< 1 encrypted, 0x800 UTF-8 name
        quint32 crc = 0;
        quint32 packedSize = 0;
        quint32 size = 0;
        std::optional<quint32> offset; ///< where the table of contents says that the entry lies, if not where it does
    };

    static Entry stored(const QByteArray &name, const QByteArray &content);
    static Entry deflated(const QByteArray &name, const QByteArray &content);

    /// @p tableOrder has the positions of the entries in the order of the table of contents; empty: as they lie.
    static QByteArray bytes(const QList<Entry> &entries, const QList<int> &tableOrder = {});
    /// The same with all sizes and places as 64-bit numbers (Zip64), as in archives above 4 GB.
    static QByteArray wideBytes(const QList<Entry> &entries);
};
