#include "KRRecoveryOffer.h"

#include "KRPlainMessage.h"

#include <KRPlainText.h>

#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

std::unique_ptr<KRRecoveryFolder> KRRecoveryOffer::ask(const QDir &place, QWidget *parent)
{
    std::vector<std::unique_ptr<KRRecoveryFolder>> folders = KRRecoveryFolder::leftBehind(place);
    for (std::unique_ptr<KRRecoveryFolder> &folder : folders) {
        const Answer answer = ask(*folder, parent);
        if (answer == Recover)
            return std::move(folder);
        if (answer == Discard)
            folder->discard();
    }
    return nullptr;
}

KRRecoveryOffer::Answer KRRecoveryOffer::ask(const KRRecoveryFolder &folder, QWidget *parent)
{
    const QString document = folder.documentFile();
    const QString time = QLocale().toString(folder.lastChange(), QLocale::ShortFormat);
    const QString text =
        document.isEmpty()
            ? tr("Von einem noch nie gespeicherten Dokument sind Änderungen vom %1 übrig.").arg(time)
            : tr("Änderungen an „%1“ vom %2 wurden nicht gespeichert.").arg(KRPlainText::fileName(document), time);
    KRPlainMessage question(QMessageBox::Question, tr("Ungesicherte Änderungen"), text, QMessageBox::NoButton, parent);
    question.setInformativeText(tr("Das Programm wurde zuletzt nicht ordentlich beendet. Was wiederhergestellt wird, "
                                   "steht erst nach dem Speichern in der Datei."));
    QPushButton *const recover = question.addButton(tr("&Wiederherstellen"), QMessageBox::AcceptRole);
    QPushButton *const discard = question.addButton(tr("&Verwerfen"), QMessageBox::DestructiveRole);
    QPushButton *const later = question.addButton(tr("&Später"), QMessageBox::RejectRole);
    question.setDefaultButton(recover);
    question.setEscapeButton(later);
    question.exec();
    if (question.clickedButton() == recover)
        return Recover;
    return question.clickedButton() == discard ? Discard : Later;
}
