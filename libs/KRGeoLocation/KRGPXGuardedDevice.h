#pragma once

#include "KRGeoLocationExport.h"

#include <QIODevice>

/**
 * Passes the bytes of a device on to QXmlStreamReader, and ends where a single token grows beyond KRInputLimits.
 *
 * The reader keeps a token in memory until it is complete, and compares each attribute of a tag with all others of
 * it: fifty thousand take many seconds. Both would be over only after the damage is done. It also counts what passes,
 * for a file may be large because of its points, and for nothing else.
 */
class KRGEOLOCATION_EXPORT KRGPXGuardedDevice : public QIODevice
{
public:
    /// Reads from @p source, which is open and stays with the caller.
    explicit KRGPXGuardedDevice(QIODevice *source);

    bool isSequential() const override { return true; }
    /// Of the source.
    qint64 size() const override { return m_source->size(); }
    /// Whether the device ended before its source did.
    bool hasRefused() const { return m_hasRefused; }
    /// Whether a carriage return has passed, which the reader turns into a line feed or drops.
    bool hasCarriageReturns() const { return m_hasCarriageReturns; }

    /// Expects no points but a document that was in memory as a whole.
    void expectDocument();
    /// To be called for points that have been read in little time, beside which a file may hold as much more.
    void allowForPoints(int count) { m_points += count; }
    /// Whether tokens, references and bytes are in proportion to the points.
    bool isInProportion() const;
    /// Tokens that were started, and those that were added.
    qint64 tokens() const { return m_tokens; }
    /// To be called for parts of a token, such as attributes and times, that take as long as one.
    void addTokens(qint64 count) { m_tokens += count; }

    /// To be called whenever the reader has completed a token.
    void startToken()
    {
        ++m_tokens;
        m_isInDeclaration = false;
        m_tokenBytes = 0;
        m_tokenReferences = 0;
        m_tokenQuotes = 0;
    }

protected:
    qint64 readData(char *bytes, qint64 maximumSize) override;
    qint64 writeData(const char *bytes, qint64 size) override;

private:
    bool isTokenTooLarge() const;

    QIODevice *const m_source;
    bool m_isInDeclaration = true; // or before the first tag of a document without one
    qint64 m_mostTokens;
    qint64 m_mostBytes;
    qint64 m_tokens = 0;
    qint64 m_references = 0; // what looks like the beginning of one
    qint64 m_bytes = 0;
    qint64 m_points = 0;
    qint64 m_tokenBytes = 0;
    qint64 m_tokenReferences = 0;
    qint64 m_tokenQuotes = 0;
    bool m_hasRefused = false;
    bool m_hasCarriageReturns = false;
};
