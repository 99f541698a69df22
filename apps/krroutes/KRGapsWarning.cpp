#include "KRGapsWarning.h"

#include <KRMapGround.h>

#include <QMessageBox>

void KRGapsWarning::show(QWidget *window, const QString &title, const KRMapGaps &gaps)
{
    if (gaps.count > 0)
        QMessageBox::warning(window, title,
                             tr("Auf der Karte fehlen %n Kacheln.", nullptr, gaps.count) + QLatin1String("\n\n")
                                 + gaps.reason);
}
