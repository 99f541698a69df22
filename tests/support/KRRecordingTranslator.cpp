#include "KRRecordingTranslator.h"

#include <QCoreApplication>

KRRecordingTranslator::KRRecordingTranslator()
{
    QCoreApplication::installTranslator(this);
    // The application itself asks for its layout direction when the language changes.
    m_requests.clear();
}

KRRecordingTranslator::~KRRecordingTranslator()
{
    QCoreApplication::removeTranslator(this);
}

QString KRRecordingTranslator::translate(const char *context, const char *text, const char *comment, int /*n*/) const
{
    m_requests +=
        QStringLiteral("%1|%2|%3").arg(QString::fromUtf8(context), QString::fromUtf8(text), QString::fromUtf8(comment));
    return QString();
}
