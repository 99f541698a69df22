#include "KRQtCompat.h"
#include "KRXMLCounter.h"
#include "KRXMLGuard.h"
#include "KRXMLSkimmer.h"

#include <QByteArray>
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

    bool internalEntityDecl(const QString &name, const QString &value) override
    {
        return m_counter.declareEntity(name, value.size());
    }
    bool externalEntityDecl(const QString &name, const QString &, const QString &) override
    {
        return m_counter.addDeclaration(name.size(), 0);
    }
    bool unparsedEntityDecl(const QString &name, const QString &, const QString &, const QString &) override
    {
        return m_counter.addDeclaration(name.size(), 0);
    }
    bool notationDecl(const QString &name, const QString &, const QString &) override
    {
        return m_counter.addDeclaration(name.size(), 0);
    }
    bool attributeDecl(const QString &, const QString &name, const QString &, const QString &,
                       const QString &value) override
    {
        return m_counter.declareAttributes(1) && m_counter.addMarkup(name.size(), value.size());
    }

    bool startElement(const QString &, const QString &, const QString &name, const QXmlAttributes &attributes) override
    {
        bool isShort = true;
        for (int i = 0; i < attributes.count() && isShort; ++i)
            isShort = m_counter.addAttribute(attributes.qName(i).size(), attributes.value(i).size());
        return isShort && m_counter.enterElement(name.size());
    }

    bool endElement(const QString &, const QString &, const QString &) override
    {
        m_counter.leaveElement();
        return true;
    }

    bool characters(const QString &text) override { return m_counter.addText(text); }

    bool comment(const QString &text) override { return m_counter.addMarkup(0, text.size()); }
    bool startCDATA() override { return m_counter.addMarkup(0, 0); }
    bool processingInstruction(const QString &target, const QString &text) override
    {
        return m_counter.addMarkup(target.size(), text.size());
    }

    bool error(const QXmlParseException &exception) override { return keep(exception); }
    bool fatalError(const QXmlParseException &exception) override { return keep(exception); }
    QString errorString() const override { return m_counter.refusal(); }

    QString reason() const { return m_reason; }
    int line() const { return m_line; }
    int column() const { return m_column; }

private:
    bool keep(const QXmlParseException &exception)
    {
        m_reason = m_counter.refusalOr(exception.message());
        m_line = exception.lineNumber();
        m_column = exception.columnNumber();
        return false;
    }

    KRXMLCounter m_counter;
    QString m_reason;
    int m_line = 0;
    int m_column = 0;
};

} // namespace

std::optional<QString> KRXMLGuard::decoded(const QByteArray &xml)
{
    if (const std::optional<QString> wideText = KRQtCompat::wideXmlText(xml))
        return wideText;
    // In some encodings that a declaration may name, such as UTF-7, nothing looks like what it is.
    QXmlInputSource source;
    source.setData(xml);
    return source.data();
}

bool KRXMLGuard::accepts(const QByteArray &xml, KRErrorHistory::Entry *refusal)
{
    return accepts(*decoded(xml), refusal);
}

bool KRXMLGuard::accepts(const QString &xml, KRErrorHistory::Entry *refusal)
{
    const KRXMLCounter empty(xml.size(), xml.count(QLatin1Char('&')));
    KRXMLCounter counter = empty;
    KRXMLSkimmer skimmer(xml, &counter);
    const KRXMLSkimmer::Result result = skimmer.skim();
    if (result == KRXMLSkimmer::Refused) {
        refusal->reason = counter.refusal();
        refusal->line = skimmer.line();
        refusal->column = skimmer.column();
    }
    if (result != KRXMLSkimmer::LeftToReader)
        return result == KRXMLSkimmer::Counted;

    QXmlInputSource source;
    source.setData(xml);
    CountingHandler handler(empty);
    QXmlSimpleReader reader;
    reader.setContentHandler(&handler);
    reader.setErrorHandler(&handler);
    reader.setDeclHandler(&handler);
    reader.setDTDHandler(&handler);
    reader.setLexicalHandler(&handler);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    if (reader.parse(&source, false))
        return true;
    refusal->reason = handler.reason();
    refusal->line = handler.line();
    refusal->column = handler.column();
    return false;
}

QT_WARNING_POP
