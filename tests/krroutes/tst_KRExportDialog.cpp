#include "KRDialogAnswer.h"
#include "KRExportDialog.h"
#include "KRTestRegistry.h"

#include <KRBaseMapGround.h>
#include <KRRouteImport.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

/// Exports as a person does: chooses, types a name, and presses the button.
class tst_KRExportDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void writesWhatIsChosen_data();
    void writesWhatIsChosen();
    void showsWhatIsChosen();
    void asksBeforeItReplaces();
    void saysWhatWentWrong_data();
    void saysWhatWentWrong();
    void remembersTheChoices();
    void cancelWritesNothing();

private:
    template <typename Widget>
    static Widget *child(const KRExportDialog &dialog, const char *name)
    {
        return dialog.findChild<Widget *>(QLatin1String(name));
    }
    static void press(const KRExportDialog &dialog, const QString &text);
    static void choose(const KRExportDialog &dialog, const char *format);
    void type(const KRExportDialog &dialog, const char *field, const QString &text) const;
    QString path(const QString &name) const { return m_dir->filePath(name); }
    QByteArray content(const QString &name) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    KRGPXTrackSelection m_selection;
    KRBaseMapGround m_ground;
    const KRGeoPositionRect m_shownArea{KRLatitudeRange(KRLatitude(52.0), KRLatitude(54.0)),
                                        KRLongitudeRange(KRLongitude(7.0), KRLongitude(10.0))};
};

void tst_KRExportDialog::initTestCase()
{
    KRRouteImport import;
    import.read({QStringLiteral(KR_SAMPLES_DIR "/oldenburg-radtour.gpx")});
    m_selection = KRGPXTrackSelection(import.tracks());
    QCOMPARE(m_selection.count(), 1);
}

void tst_KRExportDialog::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

void tst_KRExportDialog::press(const KRExportDialog &dialog, const QString &text)
{
    for (QPushButton *const button : dialog.findChildren<QPushButton *>()) {
        if (button->text().remove(QLatin1Char('&')).startsWith(text)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no button ") + text));
}

void tst_KRExportDialog::choose(const KRExportDialog &dialog, const char *format)
{
    auto *const box = child<QComboBox>(dialog, "format");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    while (box->currentData().toByteArray() != format && box->currentIndex() + 1 < box->count())
        QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentData().toByteArray(), QByteArray(format));
}

void tst_KRExportDialog::type(const KRExportDialog &dialog, const char *field, const QString &text) const
{
    auto *const widget = child<QWidget>(dialog, field);
    auto *const edit = qobject_cast<QLineEdit *>(widget);
    QLineEdit *const target = edit ? edit : widget->findChild<QLineEdit *>();
    target->selectAll();
    QTest::keyClicks(target, text);
}

QByteArray tst_KRExportDialog::content(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_KRExportDialog::writesWhatIsChosen_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QByteArray>("start");
    const auto row = [](const char *format, const char *typed, const char *written, const QByteArray &start) {
        QTest::newRow(written) << QByteArray(format) << QString::fromUtf8(typed) << QString::fromUtf8(written) << start;
    };
    row("png", "Ausflug.png", "Ausflug.png", "\x89PNG");
    row("jpeg", "Ausflug", "Ausflug.jpg", "\xff\xd8\xff");
    row("jpeg", "a.JPEG", "a.JPEG", "\xff\xd8\xff");
    row("svg", "Straße 1.5", "Straße 1.5.svg", "<?xml");
    row("pdf", "a.png", "a.png.pdf", "%PDF-");
    row("gpx", "a", "a.gpx", "<?xml");
    row("kml", "a", "a.kml", "<?xml");
    row("kmz", "a", "a.kmz", "PK");
}

void tst_KRExportDialog::writesWhatIsChosen()
{
    QFETCH(QByteArray, format);
    QFETCH(QString, typed);
    QFETCH(QString, written);
    QFETCH(QByteArray, start);
    KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
    dialog.show();
    choose(dialog, format.constData());
    const bool isPicture = format != "gpx" && format != "kml" && format != "kmz";
    QCOMPARE(child<QSpinBox>(dialog, "width")->isEnabled(), isPicture);
    type(dialog, "file", path(typed));
    KRDialogAnswer answers({});
    QTest::keyClick(child<QLineEdit>(dialog, "file"), Qt::Key_Return);
    QVERIFY(answers.isDone());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(content(written).left(start.size()), start);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList(written));
}

void tst_KRExportDialog::showsWhatIsChosen()
{
    const auto picture = [this](const QString &name, const QStringList &switches) {
        KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
        dialog.show();
        choose(dialog, "png");
        type(dialog, "width", QStringLiteral("700"));
        type(dialog, "height", QStringLiteral("400"));
        for (const char *option : {"ground", "legend", "labels"}) {
            auto *const box = child<QCheckBox>(dialog, option);
            if (box->isChecked() != switches.contains(QLatin1String(option)))
                QTest::keyClick(box, Qt::Key_Space);
        }
        child<QComboBox>(dialog, "area")->setCurrentIndex(switches.contains(QLatin1String("all")) ? 1 : 0);
        type(dialog, "file", path(name));
        press(dialog, QStringLiteral("Exportieren"));
        return QImage(path(name + QStringLiteral(".png")));
    };
    const QString ground = QStringLiteral("ground");
    const QImage tracks = picture(QStringLiteral("tracks"), {});
    QCOMPARE(tracks.size(), QSize(700, 400));
    QCOMPARE(tracks.pixelColor(3, 3).alpha(), 0);
    const QImage map = picture(QStringLiteral("map"), {ground});
    QCOMPARE(map.pixelColor(3, 3).alpha(), 255);
    const QImage legend = picture(QStringLiteral("legend"), {ground, QStringLiteral("legend")});
    QVERIFY(legend.copy(500, 0, 200, 60) != map.copy(500, 0, 200, 60));
    QCOMPARE(legend.copy(0, 100, 700, 300), map.copy(0, 100, 700, 300));
    QVERIFY(picture(QStringLiteral("labels"), {ground, QStringLiteral("labels")}) != map);
    const QImage all = picture(QStringLiteral("all"), {ground, QStringLiteral("all")});
    // The route fills the picture of all routes, and a small part of the shown area.
    const auto orange = [](const QImage &image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y).hsvSaturation() > 240 ? 1 : 0;
        return count;
    };
    QVERIFY(orange(all) > 2 * orange(map));
}

void tst_KRExportDialog::asksBeforeItReplaces()
{
    KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
    dialog.show();
    choose(dialog, "gpx");
    QFile old(path(QStringLiteral("a.gpx")));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    type(dialog, "file", old.fileName());
    KRDialogAnswer answers({[](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); },
                            [](QWidget *box) {
                                auto *const message = qobject_cast<QMessageBox *>(box);
                                QVERIFY(message && message->text().contains(QLatin1String("a.gpx")));
                                QTest::mouseClick(message->button(QMessageBox::Yes), Qt::LeftButton);
                            }});
    press(dialog, QStringLiteral("Exportieren"));
    QCOMPARE(content(QStringLiteral("a.gpx")), QByteArray("old"));
    QVERIFY(dialog.isVisible());
    press(dialog, QStringLiteral("Exportieren"));
    QVERIFY(content(QStringLiteral("a.gpx")).contains("<trkpt"));
    QVERIFY(answers.isDone());
}

void tst_KRExportDialog::saysWhatWentWrong_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("told");
    QTest::newRow("no folder") << QStringLiteral("missing/a.png") << QStringLiteral("a.png");
    QTest::newRow("a folder") << QStringLiteral("folder.png") << QStringLiteral("folder.png");
}

void tst_KRExportDialog::saysWhatWentWrong()
{
    QFETCH(QString, name);
    QFETCH(QString, told);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.png")));
    KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
    dialog.show();
    choose(dialog, "png");
    type(dialog, "file", path(name));
    QString text;
    KRDialogAnswer answers({[&text](QWidget *box) {
        text = qobject_cast<QMessageBox *>(box)->text();
        QTest::keyClick(box, Qt::Key_Return);
    }});
    press(dialog, QStringLiteral("Exportieren"));
    QVERIFY(answers.isDone());
    QVERIFY2(text.contains(told) && text.section(QLatin1String("\n\n"), 1).size() > 10, qPrintable(text));
    QVERIFY(dialog.isVisible() && dialog.isEnabled());
}

void tst_KRExportDialog::remembersTheChoices()
{
    {
        KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
        dialog.show();
        choose(dialog, "svg");
        type(dialog, "width", QStringLiteral("321"));
        child<QCheckBox>(dialog, "legend")->setChecked(true);
        type(dialog, "file", path(QStringLiteral("a")));
        press(dialog, QStringLiteral("Exportieren"));
    }
    const KRExportDialog dialog(m_selection, KRGeoPositionRect(), nullptr);
    QCOMPARE(child<QComboBox>(dialog, "format")->currentData().toByteArray(), QByteArray("svg"));
    QCOMPARE(child<QSpinBox>(dialog, "width")->value(), 321);
    QVERIFY(child<QCheckBox>(dialog, "legend")->isChecked());
    QVERIFY(!child<QCheckBox>(dialog, "ground")->isEnabled());
    // Nothing is shown, so only the routes can be drawn.
    QCOMPARE(child<QComboBox>(dialog, "area")->currentIndex(), 1);
    QCOMPARE(QFileInfo(dialog.fileName()).path(), m_dir->path());
    QCOMPARE(QFileInfo(dialog.fileName()).completeBaseName(), m_selection.value(0).name());
    m_dir.reset();
    const KRExportDialog withoutFolder(m_selection, m_shownArea, nullptr);
    QVERIFY(QFileInfo(withoutFolder.fileName()).dir().exists());
}

void tst_KRExportDialog::cancelWritesNothing()
{
    KRExportDialog dialog(m_selection, m_shownArea, &m_ground);
    dialog.show();
    type(dialog, "file", path(QStringLiteral("a")));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QVERIFY(QDir(m_dir->path()).isEmpty());
}

static const KRTestRegistration<tst_KRExportDialog> registration;

#include "tst_KRExportDialog.moc"
