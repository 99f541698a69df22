#include <KRViewerIcons.h>

#include "KRTest.h"
#include "KRTestPicture.h"

#include <QAction>
#include <QIcon>

class tst_KRViewerIcons : public QObject
{
    Q_OBJECT

private slots:
    void everyIconCanBeSeen()
    {
        const QImage program = KRViewerIcons::applicationIcon().pixmap(64).toImage();
        QVERIFY(!program.isNull());
        QAction action;
        KRViewerIcons::setIcon(&action, QStringLiteral("ico_fit_map")); // of the library
        QVERIFY(!action.icon().isNull());
        int count = 0;
        for (QDirIterator files(QStringLiteral(":/icons")); files.hasNext(); ++count) {
            files.next();
            const QImage image = KRViewerIcons::icon(files.fileInfo().baseName()).pixmap(16).toImage();
            const QRect ink = KRTestPicture::boundsOf(image, [](const QColor &color) { return color.alpha() > 100; });
            QVERIFY2(ink.width() >= 7 && ink.height() >= 4, qPrintable(files.filePath()));
        }
        QVERIFY(count > 30);
    }
};

template class KRTestRegistration<tst_KRViewerIcons>;

#include "tst_KRViewerIcons.moc"
