#include "KRGPXStreamReader.h"

#include "KRGPXCommaText.h"
#include "KRGPXTrackImpl.h"
#include "KRGPXVocabulary.h"

#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRMath.h>
#include <KRXML/KRXMLParser.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace {

/// Names that QXmlStreamReader and QDom agree on; it takes nearly any character, and QDom not all that XML allows.
bool isPlainName(QStringView name)
{
    return std::all_of(name.cbegin(), name.cend(), [](QChar character) {
        const ushort unicode = character.unicode();
        return (unicode >= 'a' && unicode <= 'z') || (unicode >= 'A' && unicode <= 'Z')
               || (unicode >= '0' && unicode <= '9') || unicode == ':' || unicode == '_' || unicode == '-'
               || unicode == '.';
    });
}

/// Whether the encoding has a byte for each character, and those of ASCII where ASCII has them.
bool extendsAscii(QStringView encoding)
{
    const std::array<QLatin1String, 3> families{QLatin1String("US-ASCII"), QLatin1String("ISO-8859-"),
                                                QLatin1String("windows-125")};
    return std::any_of(families.begin(), families.end(),
                       [&](QLatin1String family) { return encoding.startsWith(family, Qt::CaseInsensitive); });
}

} // namespace

KRGPXStreamReader::KRGPXStreamReader(QIODevice *device)
    : m_runs(device, [this](const char *begin, const char *end) { return takeRun(begin, end); }),
      m_tokens(&m_runs, [this](QXmlStreamReader::TokenType token) { noteToken(token); })
{ }

KRGPXStreamResult KRGPXStreamReader::readFile(const QFileInfo &file, KRErrorHistory *history,
                                              const std::function<bool(KRGPXStreamReader &)> &read)
{
    QFile source(file.filePath());
    if (!KRFileHandler::openForReading(source, history, KRInputLimits::streamedFileBytes))
        return StreamUnreadable;
    KRGPXStreamReader reader(&source);
    if (read(reader))
        return reader.isDomPreferable() ? StreamNeedsDom : StreamWasRead;
    if (reader.m_tokens.refusal().isNull() && source.size() <= KRInputLimits::documentBytes)
        return StreamNeedsDom;
    KRErrorHistory::Entry entry = reader.error();
    entry.fileName = file.filePath();
    KRErrorHistory::report(history, entry);
    return StreamUnreadable;
}

bool KRGPXStreamReader::readTracks(const std::function<void(const KRGPXTrack &)> &takeTrack)
{
    return readDocument([&] {
        QSharedDataPointer<KRGPXTrackImpl> track(new KRGPXTrackImpl);
        readTrack(track.data());
        takeTrack(KRGPXTrack(track));
    });
}

bool KRGPXStreamReader::readFirstTrack(KRGPXTrackImpl *track)
{
    bool isFirst = true;
    return readDocument([&] {
        if (isFirst)
            readTrack(track);
        else
            m_tokens.skipElement();
        isFirst = false;
    });
}

bool KRGPXStreamReader::isDomPreferable() const
{
    return m_differsFromDom && !m_options.isStreamPreferred && m_nodes <= KRInputLimits::nodes
           && m_tokens.device().size() <= KRInputLimits::documentBytes;
}

KRErrorHistory::Entry KRGPXStreamReader::error() const
{
    const QXmlStreamReader &xml = m_tokens.xml();
    KRErrorHistory::Entry entry;
    entry.line = int(xml.lineNumber()) + m_takenLines;
    entry.column = int(xml.columnNumber() + (xml.lineNumber() == m_shiftedLine ? m_columnShift : 0)) + 1;
    entry.reason = m_tokens.refusal();
    if (entry.reason.isNull() && xml.error() == QXmlStreamReader::CustomError)
        entry.reason = xml.errorString();
    else if (entry.reason.isNull())
        entry.reason = QCoreApplication::translate("KRGPXStreamReader", "Kein lesbares XML: %1").arg(xml.errorString());
    return entry;
}

/// Finds out how points may be scanned, and what QDom would read otherwise.
void KRGPXStreamReader::noteToken(QXmlStreamReader::TokenType token)
{
    const QXmlStreamReader &xml = m_tokens.xml();
    m_endOfToken = xml.characterOffset();
    switch (token) {
    case QXmlStreamReader::StartDocument:
        // The reader tells it with this token alone.
        m_isUtf8 = xml.documentEncoding().isEmpty()
                   || xml.documentEncoding().compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0;
        m_extendsAscii = m_isUtf8 || extendsAscii(xml.documentEncoding());
        break;
    case QXmlStreamReader::StartElement:
        noteTag();
        break;
    case QXmlStreamReader::Characters:
        ++m_nodes;
        break;
    case QXmlStreamReader::ProcessingInstruction:
        // QDom is stricter in their names, and takes the encoding from any that begins like an XML declaration.
        m_differsFromDom = true;
        break;
    default:
        break;
    }
}

void KRGPXStreamReader::noteTag()
{
    const QXmlStreamAttributes &attributes = m_tokens.attributes();
    m_nodes += 1 + attributes.size();
    m_differsFromDom =
        m_differsFromDom || !isPlainName(m_tokens.xml().qualifiedName())
        || !std::all_of(attributes.cbegin(), attributes.cend(),
                        [](const QXmlStreamAttribute &attribute) { return isPlainName(attribute.qualifiedName()); });
    checkElements();
}

void KRGPXStreamReader::checkElements()
{
    const auto refuseMoreThan = [this](int limit, const char *reason) {
        m_tokens.refuse(QCoreApplication::translate("KRGPXStreamReader", reason).arg(limit));
    };
    if (m_points > KRInputLimits::points)
        refuseMoreThan(KRInputLimits::points,
                       QT_TRANSLATE_NOOP("KRGPXStreamReader", "Die Datei hat mehr als %1 Punkte."));
    else if (m_segments > KRInputLimits::segments)
        refuseMoreThan(KRInputLimits::segments,
                       QT_TRANSLATE_NOOP("KRGPXStreamReader", "Die Datei hat mehr als %1 Segmente."));
    else if (m_tracks > KRInputLimits::tracks)
        refuseMoreThan(KRInputLimits::tracks,
                       QT_TRANSLATE_NOOP("KRGPXStreamReader", "Die Datei hat mehr als %1 Strecken."));
}

QStringView KRGPXStreamReader::withoutPrefix(QStringView name) const
{
    const qsizetype colon = m_options.prefixes.isEmpty() ? -1 : name.indexOf(QLatin1Char(':'));
    return colon > 0 && m_options.prefixes.contains(name.left(colon)) ? name.mid(colon + 1) : name;
}

double KRGPXStreamReader::degrees(const QString &attributeName) const
{
    const double missing = m_options.isOnGlobeOnly ? std::nan("") : KRGPXVocabulary::missingCoordinate;
    for (const QXmlStreamAttribute &attribute : m_tokens.attributes()) {
        if (withoutPrefix(attribute.qualifiedName()) == attributeName)
            return KRMath::toDouble(attribute.value(), missing);
    }
    return missing;
}

/// The text of the current element with all that is nested in it, as QDomElement::text() gives it.
const QString &KRGPXStreamReader::readText(qint64 mostCharacters)
{
    m_text.resize(0);
    int run = 0; // where the text since the last markup begins
    const int depthOfParent = m_tokens.depth() - 1;
    const qint64 mostTokens = m_tokens.device().tokens() + KRInputLimits::textPieces;
    while (m_tokens.depth() > depthOfParent && !m_tokens.xml().atEnd()) {
        const bool isCharacters = m_tokens.next() == QXmlStreamReader::Characters;
        if (!isCharacters || m_tokens.xml().isCDATA())
            dropBlanks(run);
        if (isCharacters)
            m_text.append(m_tokens.xml().text());
        if (!isCharacters || m_tokens.xml().isCDATA())
            run = m_text.size();
        if (m_text.size() > mostCharacters || m_tokens.device().tokens() > mostTokens)
            m_tokens.refuse(
                QCoreApplication::translate("KRGPXStreamReader", "Ein Text ist zu lang oder zu zerstückelt."));
    }
    return m_text;
}

/// The same as a text of its own, without the memory that readText() keeps.
QString KRGPXStreamReader::textToKeep()
{
    readText(KRInputLimits::keptCharacters);
    m_keptCharacters += m_text.size();
    if (m_keptCharacters > KRInputLimits::allKeptCharacters)
        m_tokens.refuse(
            QCoreApplication::translate("KRGPXStreamReader", "Die Namen und Beschreibungen sind zusammen zu lang."));
    if (m_tokens.device().hasCarriageReturns() && m_text.contains(QLatin1Char('\n')))
        m_differsFromDom = true;
    return QString(m_text.constData(), m_text.size());
}

/// QDom drops text between two pieces of markup that is nothing but white space, no-break spaces included.
void KRGPXStreamReader::dropBlanks(int begin)
{
    if (std::all_of(m_text.cbegin() + begin, m_text.cend(), [](QChar character) { return character.isSpace(); }))
        m_text.resize(begin);
}

/// Calls @p readTrackElement at each "trk" directly below the document element. False when the document is broken.
bool KRGPXStreamReader::readDocument(const std::function<void()> &readTrackElement)
{
    if (m_tokens.nextChild()) {
        while (m_tokens.nextChild()) {
            if (isAt(KRGPXVocabulary::trackElement))
                readTrackElement();
            else
                m_tokens.skipElement();
        }
    }
    // The document goes on behind its last element, and so may its faults.
    return m_tokens.skipRest();
}

void KRGPXStreamReader::readTrack(KRGPXTrackImpl *track)
{
    ++m_tracks;
    while (m_tokens.nextChild()) {
        if (isAt(KRGPXVocabulary::nameElement))
            track->setName(textToKeep());
        else if (isAt(KRGPXVocabulary::descriptionElement))
            track->setDescription(textToKeep());
        else if (isAt(KRGPXVocabulary::segmentElement))
            track->addSegment(readSegment());
        else if (isAt(KRGPXVocabulary::shapeElement))
            track->setShape(KRGPXTrackShape(readText(KRInputLimits::keptCharacters)));
        else if (isAt(KRGPXVocabulary::enclavesElement))
            readEnclaves(track);
        else
            m_tokens.skipElement();
    }
    track->replaceAutoShape();
}

void KRGPXStreamReader::readEnclaves(KRGPXTrackImpl *track)
{
    while (m_tokens.nextChild()) {
        QSharedDataPointer<KRGPXTrackImpl> enclave(new KRGPXTrackImpl);
        readTrack(enclave.data());
        track->addEnclave(KRGPXTrack(enclave));
    }
}

KRGPXTrackSegment KRGPXStreamReader::readSegment()
{
    ++m_segments;
    KRGPXTrackSegment segment;
    while (nextPointOrOther(&segment)) {
        if (isAt(KRGPXVocabulary::pointElement))
            readPoint(&segment);
        else if (isAt(KRGPXVocabulary::compressedPointsElement))
            readCompressedPoints(&segment);
        else
            m_tokens.skipElement();
    }
    segment.squeeze();
    return segment;
}

void KRGPXStreamReader::readCompressedPoints(KRGPXTrackSegment *segment)
{
    const QString &text = readText(KRInputLimits::tokenBytes);
    const int count = KRGPXCommaText::count(text);
    if (count > KRInputLimits::textPoints) {
        m_tokens.refuse(QCoreApplication::translate("KRGPXStreamReader", "Ein Text hat mehr als %1 Punkte.")
                            .arg(KRInputLimits::textPoints));
        return;
    }
    const int countBefore = segment->count();
    segment->appendCompressed(text);
    m_points += segment->count() - countBefore;
    m_tokens.device().allowForPoints(segment->count() - countBefore);
    checkElements();
}

/// Of children with the same name the first one counts.
void KRGPXStreamReader::readPoint(KRGPXTrackSegment *segment)
{
    ++m_points;
    const double latitude = degrees(KRGPXVocabulary::latitudeAttribute);
    const double longitude = degrees(KRGPXVocabulary::longitudeAttribute);
    double elevation = 0.0;
    KRGPXTime time;
    QString description;
    bool hasElevation = false;
    bool hasTime = false;
    bool hasDescription = false;
    while (m_tokens.nextChild()) {
        if (!hasElevation && isAt(KRGPXVocabulary::elevationElement)) {
            hasElevation = true;
            elevation = KRMath::toDouble(readText(KRInputLimits::keptCharacters), 0.0);
        } else if (!hasTime && isAt(KRGPXVocabulary::timeElement)) {
            hasTime = true;
            time = m_times.read(readText(KRInputLimits::keptCharacters));
            m_tokens.device().addTokens(m_times.takeTokens());
        } else if (!hasDescription && isAt(KRGPXVocabulary::descriptionElement)) {
            hasDescription = true;
            description = textToKeep();
        } else {
            m_tokens.skipElement();
        }
    }
    if (!m_options.isOnGlobeOnly || KRGPXVocabulary::isOnGlobe(latitude, longitude))
        segment->append(latitude, longitude, KRMath::toInt(elevation), time, description);
}

/// As m_tokens.nextChild(), but points of plain form may be added to @p segment on the way.
bool KRGPXStreamReader::nextPointOrOther(KRGPXTrackSegment *segment)
{
    m_runTarget = segment;
    const bool isAtChild = m_tokens.nextChild();
    m_runTarget = nullptr;
    return isAtChild;
}

/// Called where the XML reader needs further bytes, in the middle of reading a token.
const char *KRGPXStreamReader::takeRun(const char *begin, const char *end)
{
    if (!mayRunBegin())
        return begin;
    const char *const endOfRun =
        m_scanner.scan(begin, end, m_runTarget,
                       {KRInputLimits::points - m_points, KRInputLimits::depth - m_tokens.depth() - 1,
                        KRInputLimits::allKeptCharacters - m_keptCharacters, m_isUtf8, m_options.isOnGlobeOnly,
                        m_options.prefixes.isEmpty()});
    m_points += m_scanner.points();
    m_keptCharacters += m_scanner.characters();
    m_tokens.device().allowForPoints(m_scanner.points());
    m_tokens.device().addTokens(m_scanner.takeTimeTokens());
    m_nodes += m_scanner.nodes();
    countLines(begin, endOfRun);
    return endOfRun;
}

/// Whether the XML reader stands behind a token in a segment and has begun with nothing else, and may go on.
bool KRGPXStreamReader::mayRunBegin() const
{
    return m_runTarget && m_extendsAscii && m_tokens.device().isInProportion()
           && m_tokens.xml().characterOffset() == m_endOfToken && m_runs.hasPassedTagEnd() && m_runs.hasAsciiBytes();
}

void KRGPXStreamReader::countLines(const char *begin, const char *end)
{
    const char *lineBegin = nullptr;
    for (const char *at = begin; at != end; ++m_takenLines, lineBegin = ++at) {
        at = static_cast<const char *>(std::memchr(at, '\n', std::size_t(end - at)));
        if (!at)
            break;
    }
    if (lineBegin)
        m_columnShift = end - lineBegin - m_tokens.xml().columnNumber();
    else if (m_shiftedLine == m_tokens.xml().lineNumber())
        m_columnShift += end - begin;
    else
        m_columnShift = end - begin;
    m_shiftedLine = m_tokens.xml().lineNumber();
}
