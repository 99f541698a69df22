#include "KRDialogAnswer.h"
#include "KRFileSizeLimit.h"
#include "KRMapPrinter.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTestMap.h"
#include "KRTestPicture.h"

#include <KRBaseMapGround.h>
#include <KRMapPatience.h>
#include <KRRouteImport.h>

#include <KRCore/KRErrorHistory.h>

#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>

#include <sys/stat.h>

namespace {

/// Lacks two tiles of every picture that is kept; waits for those of wide ones until nobody wants them any more.
class TiledGround : public KRMapGround
{
public:
    void paint(QPainter *, const QSize &size, const KRMapProjection &, double) override { painted << size; }
    KRMapGaps paintWhole(QPainter *, const QSize &size, const KRMapProjection &, double,
                         const KRMapPatience &patience) override
    {
        fetched << size;
        while (isSlow && size.width() > size.height() && !patience.isOver(2))
            QThread::msleep(1);
        return {2, QStringLiteral("Regen")};
    }

    bool isSlow = false;
    QList<QSize> fetched;
    QList<QSize> painted;
};

bool goesOn()
{
    return true;
}

bool isRoute(const QColor &color)
{
    return color.hsvSaturation() > 240;
}

} // namespace

class tst_KRMapPrinter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        KRRouteImport import;
        import.read({QStringLiteral(KR_SAMPLES_DIR "/oldenburg-radtour.gpx")});
        m_selection = KRGPXTrackSelection(import.tracks());
    }

    void fillsThePage()
    {
        const KRTestTable<QPageLayout::Orientation, int> table{
            {"portrait", QPageLayout::Portrait, 1200},
            {"landscape", QPageLayout::Landscape, 300},
        };
        table.forEach([&](QPageLayout::Orientation orientation, int resolution) {
            if (QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty())
                QSKIP("the program that draws pages is not installed");
            const QTemporaryDir dir;
            QPrinter printer(QPrinter::HighResolution);
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(dir.filePath(QStringLiteral("page.pdf")));
            printer.setResolution(resolution);
            printer.setPageSize(QPageSize(QPageSize::A4));
            printer.setPageOrientation(orientation);
            printer.setPageMargins(QMarginsF(20.0, 20.0, 20.0, 20.0), QPageLayout::Millimeter);
            KRMapPrinter(m_selection, KRGeoPositionRect(), &m_ground).paint(&printer, nullptr, goesOn);

            // A tenth of a millimetre is a pixel.
            QProcess program;
            program.start(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"),
                                                       QStringLiteral("254"), printer.outputFileName()});
            QVERIFY(program.waitForFinished(60000));
            const QImage page = QImage::fromData(program.readAllStandardOutput());
            const QRect painted = KRTestPicture::boundsOfPainted(page);
            const QRect expected = page.rect().adjusted(200, 200, -200, -200);
            QCOMPARE(page.width() > page.height(), orientation == QPageLayout::Landscape);
            for (const int difference : {painted.left() - expected.left(), painted.top() - expected.top(),
                                         painted.right() - expected.right(), painted.bottom() - expected.bottom()})
                QVERIFY2(qAbs(difference) <= 12, qPrintable(QString::number(difference)));
            // The whole route is on it, with a line of a millimetre or so.
            const QRect route = KRTestPicture::boundsOf(page, isRoute);
            QVERIFY(expected.contains(route));
            QVERIFY(route.width() > expected.width() / 2 || route.height() > expected.height() / 2);
        });
    }

    void previewTurnsThePage()
    {
        const KRTestTable<KRTestMap, bool> table{
            {"high", {40.0, 60.0, 5.0, 8.0}, false},
            {"wide across the date line", {-20.0, -15.0, 170.0, -170.0}, true},
            {"high across the date line", {-40.0, -15.0, 179.0, -179.0}, false},
        };
        table.forEach([&](const KRTestMap &area, bool isLandscape) {
            bool isTurned = !isLandscape;
            int pages = 0;
            KRDialogAnswer answers({[&](QWidget *window) {
                auto *const dialog = qobject_cast<QPrintPreviewDialog *>(window);
                QVERIFY(dialog);
                auto *const preview = dialog->findChild<QPrintPreviewWidget *>();
                isTurned = int(preview->orientation()) == int(QPageLayout::Landscape);
                pages = preview->pageCount();
                QTest::keyClick(dialog, Qt::Key_Escape);
            }});
            KRMapPrinter(m_selection, area.area(), &m_ground).preview(&m_window);
            QVERIFY(answers.isDone());
            QCOMPARE(isTurned, isLandscape);
            QCOMPARE(pages, 1);
        });

        // Nothing to print is told.
        KRDialogAnswer answers({KRDialogAnswer::key(Qt::Key_Return)});
        KRMapPrinter(KRGPXTrackSelection(), KRGeoPositionRect(), nullptr).preview(&m_window);
        QVERIFY(answers.isDone());
    }

    void previewShowsTheRoute()
    {
        QRect route;
        QSize shown;
        KRDialogAnswer answers({[&](QWidget *dialog) {
            const QImage preview = dialog->findChild<QPrintPreviewWidget *>()->grab().toImage();
            shown = preview.size();
            route = KRTestPicture::boundsOf(preview, isRoute);
            QTest::keyClick(dialog, Qt::Key_Escape);
        }});
        KRMapPrinter(m_selection, KRGeoPositionRect(), &m_ground).preview(&m_window);
        QVERIFY(answers.isDone());
        // In the middle, where the page lies.
        QVERIFY(route.width() > shown.width() / 4 || route.height() > shown.height() / 4);
        QVERIFY(qAbs(route.center().x() - shown.width() / 2) < shown.width() / 8);
    }

    void missingTilesAreTold()
    {
        TiledGround ground;
        QStringList texts{QString(), QString()};
        KRDialogAnswer answers({KRDialogAnswer::button(QMessageBox::Ok, &texts[0]),
                                [](QWidget *dialog) {
                                    // The page is painted anew, after its tiles have come.
                                    dialog->findChild<QPrintPreviewWidget *>()->setLandscapeOrientation();
                                    QTest::keyClick(dialog, Qt::Key_Escape);
                                },
                                KRDialogAnswer::button(QMessageBox::Ok, &texts[1])});
        KRMapPrinter(m_selection, KRTestMap{40.0, 60.0, 5.0, 8.0}.area(), &ground).preview(&m_window);
        QVERIFY(answers.isDone());
        for (const QString &text : std::as_const(texts))
            QVERIFY2(text.contains(QLatin1String("Regen")), qPrintable(text));
        QCOMPARE(ground.fetched.size(), 2);
        QCOMPARE(ground.fetched.at(0), ground.fetched.at(1).transposed());
        QVERIFY(ground.painted.isEmpty());
    }

    void whoDoesNotWaitIsAsked()
    {
        const KRTestMap high{40.0, 60.0, 5.0, 8.0};
        const KRTestMap wide{50.0, 52.0, 0.0, 20.0};
        const KRTestTable<KRTestMap, bool, int> table{
            {"before the preview: cancelled", wide, false, 1},
            {"before the preview: gone on", wide, true, 1},
            {"turned: cancelled, then for printing again", high, false, 3},
            {"turned: gone on", high, true, 2},
        };
        table.forEach([&](const KRTestMap &area, bool goesOn, int fetches) {
            const QTemporaryDir dir;
            const QString file = dir.filePath(QStringLiteral("page.pdf"));
            TiledGround ground;
            ground.isSlow = true;
            QTimer user;
            connect(&user, &QTimer::timeout, &m_window, [] {
                auto *const progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
                if (progress != nullptr && !progress->wasCanceled())
                    KRDialogAnswer::press(*progress, "Abbrechen");
            });
            user.start(10);
            const KRDialogAnswer::Answer told = KRDialogAnswer::key(Qt::Key_Return);
            const KRDialogAnswer::Answer asked =
                goesOn ? [](QWidget *dialog) { KRDialogAnswer::press(*dialog, "Trotzdem weiter"); }
                       : KRDialogAnswer::button(QMessageBox::Cancel);
            int pages = 0;
            const KRDialogAnswer::Answer print = [&](QWidget *window) {
                auto *const dialog = qobject_cast<QPrintPreviewDialog *>(window);
                QVERIFY(dialog);
                dialog->printer()->setOutputFileName(file);
                auto *const preview = dialog->findChild<QPrintPreviewWidget *>();
                preview->setLandscapeOrientation();
                preview->print();
                pages = dialog->isVisible() ? preview->pageCount() : 0;
                dialog->close();
            };
            QList<KRDialogAnswer::Answer> expected{asked};
            if (fetches > 1)
                expected = {told, print, asked};
            else if (goesOn)
                expected.append(print);
            if (fetches > 2)
                expected.append(asked);
            KRDialogAnswer answers(expected);
            KRMapPrinter(m_selection, area.area(), &ground).preview(&m_window);
            QVERIFY(answers.isDone());
            QCOMPARE(pages, goesOn || fetches > 1 ? 1 : 0);
            QCOMPARE(ground.fetched.size(), fetches);
            QCOMPARE(QFileInfo::exists(file), goesOn);
        });
    }

    void fullDiskKeepsTheOldFile()
    {
        const QTemporaryDir dir;
        const QString file = KRTestFile::write(dir.filePath(QStringLiteral("page.pdf")), "old");
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        KRErrorHistory history;
        {
            const KRFileSizeLimit fullDisk(1000);
            KRMapPrinter(m_selection, KRGeoPositionRect(), &m_ground).paint(&printer, &history, goesOn);
        }
        QCOMPARE(history.entries().size(), 1);
        QCOMPARE(history.entries().first().fileName, file);
        QCOMPARE(KRTestFile::content(file), QByteArray("old"));

        KRMapPrinter(m_selection, KRGeoPositionRect(), &m_ground).paint(&printer, &history, [] { return false; });
        QCOMPARE(history.entries().size(), 1);
        QCOMPARE(KRTestFile::content(file), QByteArray("old"));

        const QString pipe = dir.filePath(QStringLiteral("pipe.pdf"));
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        printer.setOutputFileName(pipe);
        KRMapPrinter(m_selection, KRGeoPositionRect(), &m_ground).paint(&printer, &history, goesOn);
        QCOMPARE(history.entries().last().fileName, pipe);
    }

private:
    KRGPXTrackSelection m_selection;
    KRBaseMapGround m_ground;
    QWidget m_window;
};

template class KRTestRegistration<tst_KRMapPrinter>;

#include "tst_KRMapPrinter.moc"
