#include "KRXMLGuard.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

/// Counts what the reader meets and stops it at the limits.
class CountingHandler : public QXmlDefaultHandler
{
public:
    /// @param references how many there can be at most: the ampersands of the text
    CountingHandler(qint64 maximumCharacters, qint64 references)
        : m_charactersLeft(maximumCharacters), m_references(references)
    { }

    bool internalEntityDecl(const QString & /*name*/, const QString &value) override
    {
        // Before anything is expanded: the reader hands a text over only once it is complete.
        if (m_references * value.size() > KRXMLGuard::maximumExpansion)
            return refuseExpansion();
        return true;
    }

    bool startElement(const QString &, const QString &, const QString &, const QXmlAttributes &attributes) override
    {
        m_nodes += 1 + attributes.count();
        for (int i = 0; i < attributes.count(); ++i)
            m_charactersLeft -= attributes.value(i).size();
        if (++m_depth > KRXMLGuard::maximumDepth)
            return refuse(
                QCoreApplication::translate("KRXMLGuard", "Die Elemente sind tiefer als %1 Ebenen geschachtelt.")
                    .arg(KRXMLGuard::maximumDepth));
        return isWithinLimits();
    }

    bool endElement(const QString &, const QString &, const QString &) override
    {
        --m_depth;
        return true;
    }

    bool characters(const QString &text) override
    {
        ++m_nodes;
        m_charactersLeft -= text.size();
        return isWithinLimits();
    }

    bool error(const QXmlParseException &exception) override { return keep(exception); }
    bool fatalError(const QXmlParseException &exception) override { return keep(exception); }
    QString errorString() const override { return m_refusal; }

    QString reason() const { return m_reason; }
    int line() const { return m_line; }
    int column() const { return m_column; }

private:
    bool isWithinLimits()
    {
        if (m_nodes > KRXMLGuard::maximumNodes)
            return refuse(QCoreApplication::translate("KRXMLGuard", "Das Dokument hat mehr als %1 Knoten.")
                              .arg(KRXMLGuard::maximumNodes));
        return m_charactersLeft >= 0 || refuseExpansion();
    }

    bool refuseExpansion()
    {
        return refuse(QCoreApplication::translate("KRXMLGuard", "Die Entitäten des Dokuments werden zu lang."));
    }

    bool refuse(const QString &refusal)
    {
        m_refusal = refusal;
        return false;
    }

    bool keep(const QXmlParseException &exception)
    {
        m_reason = m_refusal.isEmpty()
                       ? QCoreApplication::translate("KRXMLGuard", "Kein lesbares XML: %1").arg(exception.message())
                       : m_refusal;
        m_line = exception.lineNumber();
        m_column = exception.columnNumber();
        return false;
    }

    qint64 m_charactersLeft;
    qint64 m_references;
    int m_nodes = 0;
    int m_depth = 0;
    QString m_refusal;
    QString m_reason;
    int m_line = 0;
    int m_column = 0;
};

bool passes(const QXmlInputSource &source, qint64 size, qint64 references, KRErrorHistory::Entry *refusal)
{
    CountingHandler handler(size + KRXMLGuard::maximumExpansion, references);
    QXmlSimpleReader reader;
    reader.setContentHandler(&handler);
    reader.setErrorHandler(&handler);
    reader.setDeclHandler(&handler);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    if (reader.parse(&source, false))
        return true;
    refusal->reason = handler.reason();
    refusal->line = handler.line();
    refusal->column = handler.column();
    return false;
}

} // namespace

bool KRXMLGuard::accepts(const QByteArray &xml, KRErrorHistory::Entry *refusal)
{
    QXmlInputSource source;
    source.setData(xml);
    return passes(source, xml.size(), xml.count('&'), refusal);
}

bool KRXMLGuard::accepts(const QString &xml, KRErrorHistory::Entry *refusal)
{
    QXmlInputSource source;
    source.setData(xml);
    return passes(source, xml.size(), xml.count(QLatin1Char('&')), refusal);
}

QT_WARNING_POP
