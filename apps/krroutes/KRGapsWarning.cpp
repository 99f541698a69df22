#include "KRGapsWarning.h"

#include "KRPlainMessage.h"

#include <KRMapGround.h>

#include <QPushButton>

void KRGapsWarning::show(QWidget *window, const QString &title, const KRMapGaps &gaps)
{
    if (gaps.count > 0)
        KRPlainMessage::warning(window, title, text(gaps));
}

bool KRGapsWarning::isAccepted(QWidget *window, const QString &title, const KRMapGaps &gaps)
{
    KRPlainMessage question(QMessageBox::Warning, title, text(gaps), QMessageBox::Cancel, window);
    question.setInformativeText(tr("Soll es ohne sie weitergehen?"));
    const QPushButton *const goingOn = question.addButton(tr("&Trotzdem weiter"), QMessageBox::AcceptRole);
    question.setDefaultButton(QMessageBox::Cancel);
    question.exec();
    return question.clickedButton() == goingOn;
}

QString KRGapsWarning::text(const KRMapGaps &gaps)
{
    return tr("Auf der Karte fehlen %n Kacheln.", nullptr, gaps.count) + QLatin1String("\n\n") + gaps.reason;
}
