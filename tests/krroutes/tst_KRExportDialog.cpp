#include "KRDialogAnswer.h"
#include "KRExportDialog.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTestMap.h"

#include <KRBaseMapGround.h>
#include <KRRouteImport.h>

#include <QtWidgets>

#include <sys/stat.h>

/// Exports as a person does: chooses, types a name, and presses the button.
class tst_KRExportDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        KRRouteImport import;
        import.read({QStringLiteral(KR_SAMPLES_DIR "/oldenburg-radtour.gpx")});
        m_selection = KRGPXTrackSelection(import.tracks());
        QCOMPARE(m_selection.count(), 1);
    }

    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

    void writesWhatIsChosen()
    {
        // the format, the name as typed and as written, and how the file begins
        const KRTestTable<QByteArray, const char *, const char *, QByteArray> table{
            {"the name as it is", "png", "Ausflug.png", "Ausflug.png", "\x89PNG"},
            {"suffix added", "jpeg", "Ausflug", "Ausflug.jpg", "\xff\xd8\xff"},
            {"another suffix of the format", "jpeg", "a.JPEG", "a.JPEG", "\xff\xd8\xff"},
            {"WebP", "webp", "a", "a.webp", "RIFF"},
            {"a dot is no suffix", "svg", "Straße 1.5", "Straße 1.5.svg", "<?xml"},
            {"suffix of another format", "pdf", "a.png", "a.png.pdf", "%PDF-"},
            {"no picture", "kmz", "a", "a.kmz", "PK"},
        };
        table.forEach([this](const QByteArray &format, const char *typed, const char *name, const QByteArray &start) {
            init();
            KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
            dialog.show();
            choose(dialog, format.constData());
            QCOMPARE(child<QSpinBox>(dialog, "width")->isEnabled(), format != "kmz");
            type(dialog, "file", path(typed));
            KRDialogAnswer answers({});
            QTest::keyClick(child<QLineEdit>(dialog, "file"), Qt::Key_Return);
            QVERIFY(answers.isDone());
            QCOMPARE(dialog.result(), int(QDialog::Accepted));
            QVERIFY(!dialog.isVisible());
            QCOMPARE(KRTestFile::content(path(name)).left(start.size()), start);
            QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList(QString::fromUtf8(name)));
        });

        KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
        dialog.show();
        type(dialog, "file", path("Straße 1.5.KMZ"));
        choose(dialog, "jpeg");
        QCOMPARE(dialog.fileName(), path("Straße 1.5.jpg"));
    }

    void showsWhatIsChosen()
    {
        const auto picture = [this](const QList<QByteArray> &switches) {
            KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
            dialog.show();
            choose(dialog, "png");
            type(dialog, "width", QStringLiteral("700"));
            type(dialog, "height", QStringLiteral("400"));
            for (const char *option : {"ground", "legend", "labels"}) {
                auto *const box = child<QCheckBox>(dialog, option);
                if (box->isChecked() != switches.contains(option))
                    QTest::keyClick(box, Qt::Key_Space);
            }
            child<QComboBox>(dialog, "area")->setCurrentIndex(switches.contains("all") ? 1 : 0);
            init();
            type(dialog, "file", path("a.png"));
            KRDialogAnswer::press(dialog, "Exportieren");
            return QImage(path("a.png"));
        };
        const QImage tracks = picture({});
        QCOMPARE(tracks.size(), QSize(700, 400));
        QCOMPARE(tracks.pixelColor(3, 3).alpha(), 0);
        const QImage map = picture({"ground"});
        QCOMPARE(map.pixelColor(3, 3).alpha(), 255);
        const QImage legend = picture({"ground", "legend"});
        QVERIFY(legend.copy(500, 0, 200, 60) != map.copy(500, 0, 200, 60));
        QCOMPARE(legend.copy(0, 100, 700, 300), map.copy(0, 100, 700, 300));
        QVERIFY(picture({"ground", "labels"}) != map);
        // The route fills the picture of all routes, and a small part of the shown area.
        const auto orange = [](const QImage &image) {
            int count = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    count += image.pixelColor(x, y).hsvSaturation() > 240 ? 1 : 0;
            return count;
        };
        QVERIFY(orange(picture({"ground", "all"})) > 2 * orange(map));
    }

    void asksBeforeItReplaces()
    {
        KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
        dialog.show();
        choose(dialog, "gpx");
        const QString file = KRTestFile::write(path("a.gpx"), "old");
        type(dialog, "file", file);
        QString text;
        KRDialogAnswer answers({KRDialogAnswer::key(Qt::Key_Escape), KRDialogAnswer::button(QMessageBox::Yes, &text)});
        KRDialogAnswer::press(dialog, "Exportieren");
        QCOMPARE(KRTestFile::content(file), QByteArray("old"));
        QVERIFY(dialog.isVisible());
        KRDialogAnswer::press(dialog, "Exportieren");
        QVERIFY(KRTestFile::content(file).contains("<trkpt"));
        QVERIFY(text.contains(QLatin1String("a.gpx")));
        QVERIFY(answers.isDone());
    }

    void saysWhatWentWrong()
    {
        KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
        dialog.show();
        choose(dialog, "png");
        type(dialog, "file", path("missing/a.png"));
        QString text;
        const KRDialogAnswer::Answer confirm = KRDialogAnswer::button(QMessageBox::Ok, &text);
        KRDialogAnswer answers({confirm, confirm});
        KRDialogAnswer::press(dialog, "Exportieren");
        QVERIFY2(text.contains(QLatin1String("a.png")) && text.section(QLatin1String("\n\n"), 1).size() > 10,
                 qPrintable(text));
        const QString pipe = path("pipe.png");
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        type(dialog, "file", pipe);
        KRDialogAnswer::press(dialog, "Exportieren");
        QVERIFY(answers.isDone());
        QVERIFY2(text.contains(QStringLiteral("keine gewöhnliche Datei")), qPrintable(text));
        QVERIFY(dialog.isVisible() && dialog.isEnabled());
        // As it is while it writes.
        dialog.setEnabled(false);
        QVERIFY(!dialog.close());
        dialog.setEnabled(true);
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    }

    void saysWhatTheFormatLoses()
    {
        KRGPXTrackConfiguration configuration = m_selection.value(0).configuration();
        configuration.setTrackShape(PointTrackShape);
        KRGPXTrackSelection asPoint = m_selection;
        asPoint.setConfiguration(0, configuration);
        for (const char *const format : {"kml", "gpx"}) {
            KRExportDialog dialog(asPoint, m_shownArea, &m_ground);
            dialog.show();
            choose(dialog, format);
            type(dialog, "file", path("Tour"));
            QString text;
            const bool isLost = qstrcmp(format, "kml") == 0;
            KRDialogAnswer answers(isLost ? QList{KRDialogAnswer::button(QMessageBox::Ok, &text)}
                                          : QList<KRDialogAnswer::Answer>());
            KRDialogAnswer::press(dialog, "Exportieren");
            QVERIFY(answers.isDone());
            QCOMPARE(text.contains(QLatin1String("Tour.kml")) && text.contains(QLatin1String(": 308")), isLost);
            QVERIFY(QFileInfo(dialog.fileName()).isFile());
        }
    }

    void remembersTheChoices()
    {
        {
            KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
            dialog.show();
            choose(dialog, "svg");
            type(dialog, "width", QStringLiteral("321"));
            type(dialog, "file", path("a"));
            KRDialogAnswer::press(dialog, "Exportieren");
        }
        KRExportDialog dialog(m_selection, KRGeoPositionRect(), nullptr);
        dialog.setTitle(QStringLiteral(".Reise: 1/2.5 "));
        dialog.setLegend(true);
        QCOMPARE(child<QComboBox>(dialog, "format")->currentData().toByteArray(), QByteArray("svg"));
        QCOMPARE(child<QSpinBox>(dialog, "width")->value(), 321);
        QVERIFY(child<QCheckBox>(dialog, "legend")->isChecked());
        QVERIFY(!child<QCheckBox>(dialog, "ground")->isEnabled());
        // Nothing is shown, so only the routes can be drawn.
        QCOMPARE(child<QComboBox>(dialog, "area")->currentIndex(), 1);
        QCOMPARE(QFileInfo(dialog.fileName()).path(), m_dir->path());
        QCOMPARE(QFileInfo(dialog.fileName()).fileName(), QStringLiteral("_Reise_ 1_2.5.svg"));
        m_dir.reset();
        const KRExportDialog withoutFolder(m_selection, m_shownArea, nullptr);
        QVERIFY(QFileInfo(withoutFolder.fileName()).dir().exists());
    }

private:
    template <typename Widget>
    static Widget *child(const KRExportDialog &dialog, const char *name)
    {
        return dialog.findChild<Widget *>(QLatin1String(name));
    }

    static void choose(const KRExportDialog &dialog, const char *format)
    {
        auto *const box = child<QComboBox>(dialog, "format");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        while (box->currentData().toByteArray() != format && box->currentIndex() + 1 < box->count())
            QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(box->currentData().toByteArray(), QByteArray(format));
    }

    void type(const KRExportDialog &dialog, const char *field, const QString &text) const
    {
        auto *const widget = child<QWidget>(dialog, field);
        auto *const edit = qobject_cast<QLineEdit *>(widget);
        QLineEdit *const target = edit ? edit : widget->findChild<QLineEdit *>();
        target->selectAll();
        QTest::keyClicks(target, text);
    }

    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_dir;
    KRGPXTrackSelection m_selection;
    KRBaseMapGround m_ground;
    const KRGeoPositionRect m_shownArea = KRTestMap{52.0, 54.0, 7.0, 10.0}.area();
};

template class KRTestRegistration<tst_KRExportDialog>;

#include "tst_KRExportDialog.moc"
