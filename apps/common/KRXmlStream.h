#pragma once

#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXTimeReader.h>
#include <KRGeoLocation/KRGPXTokenStream.h>

#include <QCoreApplication>
#include <QDomElement>

#include <functional>
#include <memory>

class KRErrorHistory;
class QFileInfo;

/**
 * Reads XML of unknown origin element by element, within KRInputLimits.
 *
 * Prefixes need not be declared; name() and attribute() leave them away. QXmlStreamReader refuses some of what other
 * programs let pass (undeclared entities, duplicate attributes, control characters), and documents with a document
 * type are not read here as they may hold entity bombs. Therefore documents are read with read(), which asks the DOM
 * where the stream fails.
 */
class KRXmlStream
{
    Q_DECLARE_TR_FUNCTIONS(KRXmlStream)

public:
    /// Reads the children of the document element, at which the stream stands; called a second time, with all to be
    /// read again, when the DOM has to help.
    using Reader = std::function<void(KRXmlStream &stream)>;
    using Filter = std::function<std::unique_ptr<QIODevice>(QIODevice *file)>;

    /// False when the document cannot be read; the reason is reported then. @p fileName only names it in the report.
    static bool read(const QByteArray &xml, const QString &fileName, KRErrorHistory *history, const Reader &reader);
    /// The same for a file, which is not held in memory. What @p filter makes of the opened file is what is read.
    static bool read(const QFileInfo &file, KRErrorHistory *history, const Reader &reader, const Filter &filter);

    /// Reads from @p device, which is open and stays with the caller.
    explicit KRXmlStream(QIODevice *device);

    /// Without prefix.
    QStringView name() const { return m_name; }
    /// With the prefix that the document uses.
    QStringView qualifiedName() const { return m_tokens.xml().qualifiedName(); }
    bool isAt(const char *elementName) const { return name() == QLatin1String(elementName); }
    /// Of the element that has just been entered.
    const QXmlStreamAttributes &attributes() const { return m_tokens.attributes(); }
    /// One of them, whatever its prefix; empty when there is none. In place until the stream moves on.
    QStringView attribute(const char *attributeName) const;
    /// Where the start tag of the current element ends, counted from 1; 0 for a text that the DOM has made.
    int line() const { return m_mendedXml.isNull() ? int(m_tokens.xml().lineNumber()) : 0; }

    /// The XML that is read in place of a document that the DOM had to help with, in UTF-8; null if it had not.
    const QByteArray &mendedXml() const { return m_mendedXml; }

    /// To be called at points of a file, which may hold as much more then.
    void allowForPoints(int count) { m_tokens.device().allowForPoints(count); }
    /// Ends reading: the document is not read, for this reason, which is for users.
    void refuse(const QString &reason) { m_tokens.refuse(reason); }

    /// Moves to the next child of the current element. False behind the last one, where the parent becomes current.
    bool readNextChild() { return m_tokens.nextChild(); }
    void skipElement() { m_tokens.skipElement(); }
    /// The text of the current element with that of all elements in it; moves behind the element.
    QString readText(int mostCharacters = KRInputLimits::keptCharacters);
    /// The same piece by piece, for long texts.
    void readText(const std::function<void(QStringView piece)> &take);
    /// The same as a time; not valid if it is none.
    KRGPXTime readTime();

private:
    Q_DISABLE_COPY(KRXmlStream)

    bool reportRefusal(const QString &fileName, KRErrorHistory *history) const;
    bool reportTooLarge(qint64 bytes, const QString &fileName, KRErrorHistory *history) const;
    static bool readMended(QDomElement root, const QString &fileName, KRErrorHistory *history, const Reader &reader);

    bool readDocument(const Reader &reader);

    KRGPXTokenStream m_tokens;
    QStringView m_name; // into what the stream holds
    KRGPXTimeReader m_times;
    QByteArray m_mendedXml;
};
