#pragma once

#include <QByteArray>
#include <QIODevice>

/**
 * Passes the bytes of a GPX file on, of each run of track points only the first one.
 *
 * Who only wants to know what else there is in a file need not read a million points for it. Points that have anything
 * unusual about them pass, and so do all line breaks, which keeps line numbers right. Files in encodings that ASCII is
 * no part of pass as they are.
 *
 * Looks for no faults but those of positions: whatever is skimmed off is read by the importer, which finds the others.
 */
class KRGpxPointSkimmer : public QIODevice
{
public:
    /// Reads from @p source, which is open and stays with the caller.
    explicit KRGpxPointSkimmer(QIODevice *source);

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *bytes, qint64 maximumSize) override;
    qint64 writeData(const char *bytes, qint64 size) override;

private:
    static constexpr int blockBytes = 1 << 18;
    static constexpr int longestPoint = 1 << 16; ///< bytes; longer ones are unusual

    void skim();
    void pass(int end);

    QIODevice *const m_source;
    QByteArray m_block; // read from the source, from m_position on not yet looked at
    int m_position = 0;
    QByteArray m_output; // from m_outputPosition on not yet handed out
    int m_outputPosition = 0;
    bool m_isInRun = false; // nothing but blanks since the last plain point
    bool m_isAtEnd = false;
};
