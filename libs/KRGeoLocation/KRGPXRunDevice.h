#pragma once

#include "KRGeoLocationExport.h"

#include <QByteArray>
#include <QIODevice>

#include <functional>

/**
 * Passes the bytes of a GPX file on to an XML reader, except for runs of track points, which it offers to a taker.
 *
 * An XML reader asks for bytes only when it has used up those that it got. So that this happens where a run may
 * begin, each read ends with the tag of a segment or of a point, if there is one.
 */
class KRGEOLOCATION_EXPORT KRGPXRunDevice : public QIODevice
{
public:
    /// Gets the bytes that the reader would get next, and tells where those begin that it shall get.
    using Taker = std::function<const char *(const char *begin, const char *end)>;

    /// Reads from @p source, which is open and stays with the caller.
    KRGPXRunDevice(QIODevice *source, const Taker &takeRun);

    bool isSequential() const override { return true; }
    /// Of the source.
    qint64 size() const override { return m_source->size(); }
    /// Whether the last byte that has been passed on ends a tag, or is a ">" in a text.
    bool hasPassedTagEnd() const { return m_lastByte == '>'; }
    /// Whether ASCII is a part of the encoding, as far as the first bytes tell.
    bool hasAsciiBytes() const { return m_hasAsciiBytes; }

protected:
    qint64 readData(char *bytes, qint64 maximumSize) override;
    qint64 writeData(const char *bytes, qint64 size) override;

private:
    bool fill();
    void detectEncoding();
    int endOfTag(int mostBytes) const;

    QIODevice *const m_source;
    const Taker m_takeRun;
    QByteArray m_block;
    int m_begin = 0; // of what has neither been passed on nor taken
    int m_end = 0;
    char m_lastByte = 0;
    bool m_hasAsciiBytes = false;
    bool m_isAtStart = true;
};
