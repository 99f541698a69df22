#pragma once

#include "KRGPXPointScanner.h"
#include "KRGPXReadingOptions.h"
#include "KRGPXRunDevice.h"
#include "KRGPXTokenStream.h"
#include "KRGPXTrack.h"

#include <KRCore/KRErrorHistory.h>

#include <functional>

class KRGPXTrackImpl;
class QFileInfo;

/// How reading a file as a stream has ended.
enum KRGPXStreamResult : int {
    StreamWasRead = 0,
    StreamUnreadable = 1, ///< the reason is reported
    StreamNeedsDom = 2, ///< to be read as a DOM, which decides whether the file is readable
};

/**
 * Reads tracks while it parses, without ever having a DOM of the file in memory. Runs of plain points, of which most
 * files consist, go past the XML reader, which reads whatever is around and between them.
 *
 * What comes out equals what KRGPXTrack reads from the DOM of the same file, for every file that QXmlStreamReader
 * takes for well-formed. QDom reads some that it does not (duplicate attributes, undeclared entities, control
 * characters), and documents with a document type, which may hold entity bombs, are not read here at all. So a
 * failure of this class says no more than that the DOM has to decide.
 *
 * Nothing of a document counts unless it was read to its end. KRInputLimits hold.
 */
class KRGEOLOCATION_EXPORT KRGPXStreamReader
{
public:
    /// Reads from @p device, which is open and stays with the caller.
    explicit KRGPXStreamReader(QIODevice *device);

    /// Opens the file and lets @p read do the rest; what that filled counts only when the answer is StreamWasRead.
    static KRGPXStreamResult readFile(const QFileInfo &file, KRErrorHistory *history,
                                      const std::function<bool(KRGPXStreamReader &)> &read);

    /// Expects a document that was in memory as a whole, whatever there is in it besides points.
    void expectDocument() { m_tokens.device().expectDocument(); }
    void setOptions(const KRGPXReadingOptions &options) { m_options = options; }

    /// Hands over one track after the other, valid or not, that lies directly below the document element. False when
    /// the document is not readable: then none of them counts.
    bool readTracks(const std::function<void(const KRGPXTrack &)> &takeTrack);
    /// Adds the first track directly below the document element to what @p track already holds.
    bool readFirstTrack(KRGPXTrackImpl *track);

    /// Whether a document that was read may read otherwise as a DOM, and the options do not prefer this. QDom is
    /// stricter in names, and keeps carriage returns. False for one that KRXMLGuard would refuse as too large.
    bool isDomPreferable() const;
    /// Where and why reading has failed; without the name of the file.
    KRErrorHistory::Entry error() const;

private:
    Q_DISABLE_COPY(KRGPXStreamReader)

    void noteToken(QXmlStreamReader::TokenType token);
    void noteTag();
    void checkElements();
    QStringView withoutPrefix(QStringView name) const;
    bool isAt(const QString &elementName) const { return withoutPrefix(m_tokens.xml().qualifiedName()) == elementName; }
    double degrees(const QString &attributeName) const;
    const QString &readText(qint64 mostCharacters);
    QString textToKeep();
    void dropBlanks(int begin);

    bool readDocument(const std::function<void()> &readTrackElement);
    void readTrack(KRGPXTrackImpl *track);
    void readEnclaves(KRGPXTrackImpl *track);
    KRGPXTrackSegment readSegment();
    void readCompressedPoints(KRGPXTrackSegment *segment);
    void readPoint(KRGPXTrackSegment *segment);
    bool nextPointOrOther(KRGPXTrackSegment *segment);
    const char *takeRun(const char *begin, const char *end);
    bool mayRunBegin() const;
    void countLines(const char *begin, const char *end);

    KRGPXReadingOptions m_options;
    KRGPXPointScanner m_scanner;
    KRGPXRunDevice m_runs;
    KRGPXTokenStream m_tokens;
    KRGPXTrackSegment *m_runTarget = nullptr; // while the next child of a segment is looked for
    qint64 m_endOfToken = -1; // characters that the XML reader had read with the last token
    // What the XML reader does not see, for its place in the file.
    int m_takenLines = 0;
    qint64 m_columnShift = 0;
    qint64 m_shiftedLine = 0; // as the reader counts
    KRGPXTimeReader m_times;
    QString m_text; // of the element read last; kept for its memory
    qint64 m_keptCharacters = 0;
    int m_points = 0;
    int m_segments = 0;
    int m_tracks = 0;
    qint64 m_nodes = 0; // as KRXMLGuard counts them
    bool m_isUtf8 = false; // as declared, or without a declaration
    bool m_extendsAscii = false; // UTF-8 or an encoding of a byte for each character
    bool m_differsFromDom = false;
};
