#include "KRPlainMessage.h"

#include <KRPlainText.h>

KRPlainMessage::KRPlainMessage(Icon icon, const QString &title, const QString &text, StandardButtons buttons,
                               QWidget *parent)
    : QMessageBox(icon, title, QString(), buttons, parent)
{
    constexpr int longestText = 2000; // characters
    // Before there is a text to guess about.
    setTextFormat(Qt::PlainText);
    setText(KRPlainText::shortened(text, longestText));
}

void KRPlainMessage::information(QWidget *parent, const QString &title, const QString &text)
{
    KRPlainMessage(Information, title, text, Ok, parent).exec();
}

void KRPlainMessage::warning(QWidget *parent, const QString &title, const QString &text)
{
    KRPlainMessage(Warning, title, text, Ok, parent).exec();
}

void KRPlainMessage::critical(QWidget *parent, const QString &title, const QString &text)
{
    KRPlainMessage(Critical, title, text, Ok, parent).exec();
}

bool KRPlainMessage::isConfirmed(QWidget *parent, const QString &title, const QString &text)
{
    return KRPlainMessage(Question, title, text, Yes | No, parent).exec() == Yes;
}
