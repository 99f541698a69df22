#include "KRQtCompat.h"
#include "KRXMLCounter.h"
#include "KRXMLGuard.h"
#include "KRXMLSkimmer.h"

#include <QByteArray>
#include <QDomDocument>
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

/// Has everything counted that the reader meets, which ends at the limits, and passes on what a DOM is made of.
class CountingHandler : public QXmlDefaultHandler
{
public:
    explicit CountingHandler(const KRXMLCounter &counter) : m_counter(counter) { }

    void passOnTo(QXmlContentHandler *handler) { m_content = handler; }
    void passOnTo(QXmlLexicalHandler *handler) { m_lexical = handler; }
    void passOnTo(QXmlDeclHandler *handler) { m_declarations = handler; }
    void passOnTo(QXmlDTDHandler *handler) { m_documentType = handler; }

    bool startDTD(const QString &name, const QString &publicId, const QString &systemId) override
    {
        return m_lexical->startDTD(name, publicId, systemId);
    }
    bool internalEntityDecl(const QString &name, const QString &value) override
    {
        return m_counter.declareEntity(name, value.size()) && m_declarations->internalEntityDecl(name, value);
    }
    bool externalEntityDecl(const QString &name, const QString &publicId, const QString &systemId) override
    {
        return m_counter.addDeclaration(name.size(), 0) && m_declarations->externalEntityDecl(name, publicId, systemId);
    }
    bool unparsedEntityDecl(const QString &name, const QString &publicId, const QString &systemId,
                            const QString &notation) override
    {
        return m_counter.addDeclaration(name.size(), 0)
               && m_documentType->unparsedEntityDecl(name, publicId, systemId, notation);
    }
    bool notationDecl(const QString &name, const QString &publicId, const QString &systemId) override
    {
        return m_counter.addDeclaration(name.size(), 0) && m_documentType->notationDecl(name, publicId, systemId);
    }
    bool attributeDecl(const QString &element, const QString &name, const QString &type, const QString &kind,
                       const QString &value) override
    {
        return m_counter.declareAttributes(1) && m_counter.addMarkup(name.size(), value.size())
               && m_declarations->attributeDecl(element, name, type, kind, value);
    }

    void setDocumentLocator(QXmlLocator *locator) override { m_content->setDocumentLocator(locator); }
    bool startElement(const QString &address, const QString &localName, const QString &name,
                      const QXmlAttributes &attributes) override
    {
        bool isShort = true;
        for (int i = 0; i < attributes.count() && isShort; ++i)
            isShort = m_counter.addAttribute(attributes.qName(i).size(), attributes.value(i).size());
        return isShort && m_counter.enterElement(name.size())
               && m_content->startElement(address, localName, name, attributes);
    }

    bool endElement(const QString &address, const QString &localName, const QString &name) override
    {
        m_counter.leaveElement();
        return m_content->endElement(address, localName, name);
    }

    bool characters(const QString &text) override { return m_counter.addText(text) && m_content->characters(text); }
    /// Of one that is not declared nothing is left. Without the reader of its own the DOM cannot tell one in an
    /// attribute from one between the elements, where none of ours looks for it.
    bool skippedEntity(const QString & /*name*/) override { return true; }

    bool comment(const QString &text) override
    {
        return m_counter.addMarkup(0, text.size()) && m_lexical->comment(text);
    }
    bool startCDATA() override { return m_counter.addMarkup(0, 0) && m_lexical->startCDATA(); }
    bool endCDATA() override { return m_lexical->endCDATA(); }
    bool processingInstruction(const QString &target, const QString &text) override
    {
        return m_counter.addMarkup(target.size(), text.size()) && m_content->processingInstruction(target, text);
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

    QXmlContentHandler *m_content = nullptr;
    QXmlLexicalHandler *m_lexical = nullptr;
    QXmlDeclHandler *m_declarations = nullptr;
    QXmlDTDHandler *m_documentType = nullptr;
    KRXMLCounter m_counter;
    QString m_reason;
    int m_line = 0;
    int m_column = 0;
};

/// Reads as QDomDocument::setContent() without namespaces does, past a CountingHandler.
class CountingReader : public QXmlSimpleReader
{
public:
    explicit CountingReader(CountingHandler *handler) : m_handler(handler)
    {
        setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
        setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
        setFeature(QStringLiteral("http://trolltech.com/xml/features/report-whitespace-only-CharData"), false);
    }

    void setContentHandler(QXmlContentHandler *handler) override { m_handler->passOnTo(handler); }
    void setLexicalHandler(QXmlLexicalHandler *handler) override { m_handler->passOnTo(handler); }
    void setDeclHandler(QXmlDeclHandler *handler) override { m_handler->passOnTo(handler); }
    void setDTDHandler(QXmlDTDHandler *handler) override { m_handler->passOnTo(handler); }

    using QXmlSimpleReader::parse;
    bool parse(const QXmlInputSource *source) override
    {
        QXmlSimpleReader::setContentHandler(m_handler);
        QXmlSimpleReader::setLexicalHandler(m_handler);
        QXmlSimpleReader::setDeclHandler(m_handler);
        QXmlSimpleReader::setDTDHandler(m_handler);
        setErrorHandler(m_handler);
        return QXmlSimpleReader::parse(source, false);
    }

private:
    CountingHandler *const m_handler;
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

bool KRXMLGuard::read(const QByteArray &xml, QDomDocument *document, KRErrorHistory::Entry *refusal)
{
    return read(*decoded(xml), document, refusal);
}

bool KRXMLGuard::read(const QString &xml, QDomDocument *document, KRErrorHistory::Entry *refusal)
{
    const KRXMLCounter empty(xml.size(), xml.count(QLatin1Char('&')));
    KRXMLCounter counter = empty;
    KRXMLSkimmer skimmer(xml, &counter);
    const KRXMLSkimmer::Result result = skimmer.skim();
    if (result == KRXMLSkimmer::Counted)
        return build(xml, document, refusal);
    if (result == KRXMLSkimmer::Refused) {
        refusal->reason = counter.refusal();
        refusal->line = skimmer.line();
        refusal->column = skimmer.column();
        return false;
    }
    QXmlInputSource source;
    source.setData(xml);
    CountingHandler handler(empty);
    CountingReader reader(&handler);
    if (document->setContent(&source, &reader))
        return true;
    refusal->reason = handler.reason();
    refusal->line = handler.line();
    refusal->column = handler.column();
    return false;
}

QT_WARNING_POP
