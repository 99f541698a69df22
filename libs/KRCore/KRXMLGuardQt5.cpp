#include "KRXMLCounter.h"
#include "KRXMLGuard.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

/// Has everything counted that the reader meets, which ends at the limits.
class CountingHandler : public QXmlDefaultHandler
{
public:
    explicit CountingHandler(const KRXMLCounter &counter) : m_counter(counter) { }

    bool internalEntityDecl(const QString & /*name*/, const QString &value) override
    {
        return m_counter.declareEntity(value.size());
    }

    bool startElement(const QString &, const QString &, const QString &, const QXmlAttributes &attributes) override
    {
        qint64 characters = 0;
        for (int i = 0; i < attributes.count(); ++i)
            characters += attributes.value(i).size();
        return m_counter.enterElement(attributes.count(), characters);
    }

    bool endElement(const QString &, const QString &, const QString &) override
    {
        m_counter.leaveElement();
        return true;
    }

    bool characters(const QString &text) override { return m_counter.addText(text.size()); }

    bool error(const QXmlParseException &exception) override { return keep(exception); }
    bool fatalError(const QXmlParseException &exception) override { return keep(exception); }
    QString errorString() const override { return m_counter.refusal(); }

    QString reason() const { return m_reason; }
    int line() const { return m_line; }
    int column() const { return m_column; }

private:
    bool keep(const QXmlParseException &exception)
    {
        m_reason = !m_counter.refusal().isNull()
                       ? m_counter.refusal()
                       : QCoreApplication::translate("KRXMLGuard", "Kein lesbares XML: %1").arg(exception.message());
        m_line = exception.lineNumber();
        m_column = exception.columnNumber();
        return false;
    }

    KRXMLCounter m_counter;
    QString m_reason;
    int m_line = 0;
    int m_column = 0;
};

bool passes(const QXmlInputSource &source, const KRXMLCounter &counter, KRErrorHistory::Entry *refusal)
{
    CountingHandler handler(counter);
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
    return passes(source, KRXMLCounter(xml.size(), xml.count('&')), refusal);
}

bool KRXMLGuard::accepts(const QString &xml, KRErrorHistory::Entry *refusal)
{
    QXmlInputSource source;
    source.setData(xml);
    return passes(source, KRXMLCounter(xml.size(), xml.count(QLatin1Char('&'))), refusal);
}

QT_WARNING_POP
