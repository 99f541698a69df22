#include "KRGpxRewriter.h"

#include "KRGpxNames.h"
#include "KRGpxPreparation.h"
#include "KRXmlStream.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXCommaText.h>

#include <QBuffer>
#include <QFile>
#include <QXmlStreamWriter>

namespace {

/// Element by element the part of GPX that the importer reads.
class TrackCopier
{
public:
    TrackCopier(KRXmlStream &stream, QIODevice *target) : m_stream(stream), m_writer(target), m_names(stream) { }

    /// False when not all could be written: the writer stops at the first failure, which the target may forget.
    bool copyDocument()
    {
        m_writer.writeStartDocument();
        m_writer.writeStartElement(QStringLiteral("gpx"));
        while (m_stream.readNextChild()) {
            if (isAt("trk"))
                copyTrack();
            else
                m_stream.skipElement();
        }
        m_writer.writeEndDocument();
        return !m_writer.hasError();
    }

private:
    bool isAt(const char *elementName) const { return m_names.name(m_stream) == QLatin1String(elementName); }

    void copyTrack()
    {
        m_writer.writeStartElement(QStringLiteral("trk"));
        while (m_stream.readNextChild()) {
            if (isAt("trkseg"))
                copySegment();
            else
                copyTextOf({"name", "desc", "shape"});
        }
        m_writer.writeEndElement();
    }

    void copySegment()
    {
        m_writer.writeStartElement(QStringLiteral("trkseg"));
        while (m_stream.readNextChild()) {
            if (isAt("trkpt"))
                copyPoint();
            else if (isAt("compressedPoints"))
                copyCompressedPoints();
            else
                m_stream.skipElement();
        }
        m_writer.writeEndElement();
    }

    void copyCompressedPoints()
    {
        const QString text = m_stream.readText(KRInputLimits::tokenBytes);
        m_stream.allowForPoints(KRGPXCommaText::count(text));
        m_writer.writeTextElement(QStringLiteral("compressedPoints"), text);
    }

    void copyPoint()
    {
        if (!KRGpxPreparation::hasPosition(m_stream)) {
            m_stream.skipElement();
            return;
        }
        m_writer.writeStartElement(QStringLiteral("trkpt"));
        m_writer.writeAttribute(QStringLiteral("lat"), m_stream.attribute("lat"));
        m_writer.writeAttribute(QStringLiteral("lon"), m_stream.attribute("lon"));
        while (m_stream.readNextChild())
            copyTextOf({"ele", "time", "desc"});
        m_writer.writeEndElement();
    }

    /// Copies the current element if it has one of these names, else it is left out.
    void copyTextOf(std::initializer_list<const char *> names)
    {
        for (const char *const name : names) {
            if (isAt(name)) {
                m_writer.writeTextElement(QLatin1String(name), m_stream.readText());
                return;
            }
        }
        m_stream.skipElement();
    }

    KRXmlStream &m_stream;
    QXmlStreamWriter m_writer;
    KRGpxNames m_names;
};

} // namespace

bool KRGpxRewriter::rewrite(const QFileInfo &file, QFile *target, KRErrorHistory *history)
{
    bool isWritten = false;
    const auto copy = [&](KRXmlStream &stream) {
        isWritten = target->resize(0) && target->seek(0) && TrackCopier(stream, target).copyDocument();
    };
    if (!KRXmlStream::read(file, history, copy))
        return false;
    if (isWritten && target->flush())
        return true;
    KRErrorHistory::report(history, file.filePath(),
                           tr("Die Datei kann nicht umgeschrieben werden: %1").arg(target->errorString()));
    return false;
}
