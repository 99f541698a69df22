#pragma once

#include "KRGPXGuardedDevice.h"

#include <QXmlStreamReader>

#include <functional>

/**
 * The elements and texts of XML of unknown origin, within KRInputLimits.
 *
 * There is no namespace processing: names keep their prefixes. Reading ends where the document breaks the rules of
 * XML, where it has a document type, which may hold entity bombs, and beyond a limit. What was read of it does not
 * count then, unless the document may be read in another way.
 */
class KRGEOLOCATION_EXPORT KRGPXTokenStream
{
public:
    /// Told of each token before anybody else; may refuse the document.
    using Noter = std::function<void(QXmlStreamReader::TokenType token)>;

    /// Reads from @p source, which is open and stays with the caller.
    KRGPXTokenStream(QIODevice *source, const Noter &note);

    KRGPXGuardedDevice &device() { return m_device; }
    const KRGPXGuardedDevice &device() const { return m_device; }
    /// Where the stream stands.
    const QXmlStreamReader &xml() const { return m_xml; }
    /// Of the tag that has just been read; QXmlStreamReader makes them anew whenever it is asked.
    const QXmlStreamAttributes &attributes() const { return m_attributes; }
    /// Elements that are open.
    int depth() const { return m_depth; }

    /// The document is not read, for this reason, which is for users.
    void refuse(const QString &reason);
    /// Why the document goes beyond a limit; null if it does not, even where it is broken.
    QString refusal() const;

    /// Invalid at the end of all and ever after.
    QXmlStreamReader::TokenType next();
    /// Moves to the next child of the current element. False behind the last one, where the parent becomes current.
    bool nextChild();
    /// Moves behind the current element.
    void skipElement();
    /// Reads to the end; false when the document is broken anywhere.
    bool skipRest();

private:
    Q_DISABLE_COPY(KRGPXTokenStream)

    void checkTag();

    KRGPXGuardedDevice m_device;
    QXmlStreamReader m_xml;
    const Noter m_note;
    QXmlStreamAttributes m_attributes;
    QString m_refusal;
    qint64 m_attributePairs = 0;
    int m_depth = 0;
};
