#include "KRGPXTokenStream.h"

#include <KRCore/KRInputLimits.h>

#include <QCoreApplication>

KRGPXTokenStream::KRGPXTokenStream(QIODevice *source, const Noter &note)
    : m_device(source), m_xml(&m_device), m_note(note)
{
    // As QDom reads it: an element "gpx:trk" is another one than "trk".
    m_xml.setNamespaceProcessing(false);
}

void KRGPXTokenStream::refuse(const QString &reason)
{
    m_refusal = reason;
    m_xml.raiseError(reason);
}

QString KRGPXTokenStream::refusal() const
{
    return m_refusal.isNull() && m_device.hasRefused()
               ? QCoreApplication::translate("KRGPXTokenStream", "Ein Text oder ein Element ist zu groß.")
               : m_refusal;
}

QXmlStreamReader::TokenType KRGPXTokenStream::next()
{
    m_attributes.clear();
    // The reader would begin again with a token that is not whole, be it 48 MB large.
    if (m_xml.hasError())
        return QXmlStreamReader::Invalid;
    const QXmlStreamReader::TokenType token = m_xml.readNext();
    m_device.startToken();
    if (!m_device.isInProportion())
        refuse(QCoreApplication::translate("KRGPXTokenStream",
                                           "Die Datei hat für das, was zu zeichnen ist, zu viel anderen Inhalt."));
    if (token == QXmlStreamReader::StartElement) {
        ++m_depth;
        checkTag();
    } else if (token == QXmlStreamReader::EndElement) {
        --m_depth;
    } else if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference) {
        // Not refused: smaller documents are read as a DOM.
        m_xml.raiseError(
            QCoreApplication::translate("KRGPXTokenStream", "Große Dateien mit Dokumenttyp werden nicht gelesen."));
    }
    m_note(token);
    return m_xml.hasError() ? QXmlStreamReader::Invalid : token;
}

bool KRGPXTokenStream::nextChild()
{
    for (;;) {
        switch (next()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
        case QXmlStreamReader::Invalid:
            return false;
        default:
            break;
        }
    }
}

void KRGPXTokenStream::skipElement()
{
    const int depthOfParent = m_depth - 1;
    while (m_depth > depthOfParent && !m_xml.atEnd())
        next();
}

bool KRGPXTokenStream::skipRest()
{
    while (!m_xml.atEnd())
        next();
    return !m_xml.hasError();
}

void KRGPXTokenStream::checkTag()
{
    m_attributes = m_xml.attributes();
    const qint64 count = m_attributes.size();
    m_device.addTokens(count);
    if (count > KRInputLimits::manyAttributes)
        m_attributePairs += count * count;
    if (m_attributePairs > KRInputLimits::attributePairs)
        refuse(QCoreApplication::translate("KRGPXTokenStream", "Die Elemente haben zu viele Attribute."));
    else if (m_depth > KRInputLimits::depth)
        refuse(QCoreApplication::translate("KRGPXTokenStream", "Die Elemente sind tiefer als %1 Ebenen geschachtelt.")
                   .arg(KRInputLimits::depth));
}
