#include "KRXmlStream.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRXMLLoader.h>
#include <KRXML/KRXMLBuilder.h>

#include <QBuffer>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cstring>

namespace {

constexpr char byteOrderMark[] = "\xEF\xBB\xBF";
constexpr int longestDeclaration = 200; // bytes
constexpr int mostMendedCharacters = 2 * KRInputLimits::mendedBytes; // references take more room than what they mean

QStringView withoutPrefix(QStringView qualifiedName)
{
    return qualifiedName.mid(qualifiedName.indexOf(QLatin1Char(':')) + 1);
}

/// A text whose declaration can be read byte by byte cannot be in the UTF-16 that some programs claim in it.
QByteArray withoutWrongEncoding(const QByteArray &xml)
{
    static const QRegularExpression claim(
        QStringLiteral("encoding\\s*=\\s*[\"'](utf-?16|utf-?32|ucs-?[24])[a-z_-]*[\"']"),
        QRegularExpression::CaseInsensitiveOption);
    const QByteArray beginning = xml.left(longestDeclaration);
    const QString declaration = QString::fromLatin1(beginning.left(std::max(0, int(beginning.indexOf("?>")))));
    const QRegularExpressionMatch match = claim.match(declaration);
    if (!match.hasMatch())
        return xml;
    QByteArray corrected = xml;
    return corrected.replace(match.capturedStart(), match.capturedLength(), QByteArray(match.capturedLength(), ' '));
}

/// Without line breaks in front of the declaration, and without the zero bytes that devices leave behind the end of a
/// file, with blanks among both. In UTF-16 and UTF-32 zero bytes belong to the text.
QByteArray withoutFrame(const QByteArray &xml)
{
    if (xml.left(4).contains('\0'))
        return xml;
    const auto isFiller = [](char byte) { return std::strchr(" \t\r\n", byte) != nullptr; }; // also at zero
    int end = int(xml.size());
    while (end > 0 && isFiller(xml.at(end - 1)))
        --end;
    const int begin = int(xml.left(longestDeclaration).indexOf("<?xml"));
    const QByteArray mark = xml.startsWith(byteOrderMark) ? byteOrderMark : "";
    const bool isFirst = begin > 0 && xml.mid(mark.size(), begin - mark.size()).trimmed().isEmpty();
    return isFirst ? mark + xml.mid(begin, end - begin) : xml.left(end);
}

} // namespace

bool KRXmlStream::read(const QByteArray &xml, const QString &fileName, KRErrorHistory *history, const Reader &reader)
{
    QBuffer buffer;
    buffer.setData(withoutWrongEncoding(xml));
    buffer.open(QIODevice::ReadOnly);
    KRXmlStream stream(&buffer);
    stream.m_tokens.device().expectDocument();
    if (stream.readDocument(reader))
        return true;
    if (stream.reportRefusal(fileName, history) || stream.reportTooLarge(buffer.size(), fileName, history))
        return false;
    return readMended(KRXMLLoader::parseDocumentElement(withoutFrame(buffer.data()), fileName, history), fileName,
                      history, reader);
}

bool KRXmlStream::read(const QFileInfo &file, KRErrorHistory *history, const Reader &reader, const Filter &filter)
{
    QFile source(file.filePath());
    if (!KRFileHandler::openForReading(source, history, KRInputLimits::streamedFileBytes))
        return false;
    const std::unique_ptr<QIODevice> filtered = filter(&source);
    KRXmlStream stream(filtered.get());
    if (stream.readDocument(reader))
        return true;
    if (stream.reportRefusal(file.filePath(), history)
        || stream.reportTooLarge(source.size(), file.filePath(), history))
        return false;
    const QByteArray xml = KRFileHandler::readAll(file, history, KRInputLimits::mendedBytes);
    if (xml.isNull())
        return false;
    return readMended(
        KRXMLLoader::parseDocumentElement(withoutFrame(withoutWrongEncoding(xml)), file.filePath(), history),
        file.filePath(), history, reader);
}

/// False when nobody has refused the document.
bool KRXmlStream::reportRefusal(const QString &fileName, KRErrorHistory *history) const
{
    const QString refusal = m_tokens.refusal();
    if (!refusal.isNull())
        KRErrorHistory::report(history, {fileName, line(), 0, refusal});
    return !refusal.isNull();
}

/// False when the document may be read in another way.
bool KRXmlStream::reportTooLarge(qint64 bytes, const QString &fileName, KRErrorHistory *history) const
{
    if (bytes <= KRInputLimits::mendedBytes)
        return false;
    KRErrorHistory::report(history, {fileName, line(), int(m_tokens.xml().columnNumber()) + 1,
                                     tr("Kein lesbares XML: %1").arg(m_tokens.xml().errorString())});
    return true;
}

/// Reads the XML that the builder makes of a DOM, which is free of all that the stream does not take.
bool KRXmlStream::readMended(QDomElement root, const QString &fileName, KRErrorHistory *history, const Reader &reader)
{
    if (root.isNull())
        return false;
    // With a name, as one without anything is no node yet that could take others.
    QDomDocument document(root.tagName());
    document.appendChild(root);
    QString text = KRXMLBuilder::toText(document);
    // No more of them at a time in memory than needed.
    document = QDomDocument();
    root = QDomElement();
    if (text.size() > mostMendedCharacters) {
        KRErrorHistory::report(history,
                               {fileName, 0, 0, tr("Das Dokument ist zu groß, um seine Fehler zu übergehen.")});
        return false;
    }
    QBuffer buffer;
    buffer.setData(text.toUtf8());
    text.clear();
    buffer.open(QIODevice::ReadOnly);
    KRXmlStream stream(&buffer);
    stream.m_mendedXml = buffer.data();
    stream.m_tokens.device().expectDocument();
    if (stream.readDocument(reader))
        return true;
    if (stream.reportRefusal(fileName, history))
        return false;
    KRErrorHistory::report(
        history,
        {fileName, 0, 0, tr("Das Dokument wird nicht verstanden: %1").arg(stream.m_tokens.xml().errorString())});
    return false;
}

KRXmlStream::KRXmlStream(QIODevice *device)
    : m_tokens(device, [this](QXmlStreamReader::TokenType) { m_name = withoutPrefix(m_tokens.xml().qualifiedName()); })
{ }

QStringView KRXmlStream::attribute(const char *attributeName) const
{
    for (const QXmlStreamAttribute &attribute : m_tokens.attributes()) {
        if (withoutPrefix(attribute.qualifiedName()) == QLatin1String(attributeName))
            return attribute.value();
    }
    return QStringView();
}

QString KRXmlStream::readText(int mostCharacters)
{
    QString text;
    readText([&](QStringView piece) {
        if (text.size() + piece.size() > mostCharacters)
            refuse(tr("Ein Text ist zu lang."));
        else
            text.append(piece);
    });
    return text;
}

void KRXmlStream::readText(const std::function<void(QStringView)> &take)
{
    const int depthOfParent = m_tokens.depth() - 1;
    const qint64 mostTokens = m_tokens.device().tokens() + KRInputLimits::textPieces;
    while (m_tokens.depth() > depthOfParent && !m_tokens.xml().atEnd()) {
        if (m_tokens.device().tokens() >= mostTokens)
            refuse(tr("Ein Text ist zu zerstückelt."));
        else if (m_tokens.next() == QXmlStreamReader::Characters)
            take(m_tokens.xml().text());
    }
}

KRGPXTime KRXmlStream::readTime()
{
    const KRGPXTime time = m_times.read(readText());
    m_tokens.device().addTokens(m_times.takeTokens());
    return time;
}

/// False when the document is broken anywhere, also behind what the reader has looked at.
bool KRXmlStream::readDocument(const Reader &reader)
{
    if (readNextChild())
        reader(*this);
    return m_tokens.skipRest();
}
