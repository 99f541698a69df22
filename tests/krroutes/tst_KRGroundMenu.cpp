#include <KRBaseMapGround.h>
#include <KRGroundDialog.h>
#include <KRGroundMenu.h>
#include <KRGroundSettings.h>
#include <KRTestRegistry.h>
#include <KRTileGround.h>

#include "KRDialogAnswer.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class tst_KRGroundMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void groundFollowsTheChoice();
    void tilesAreAskedFor();
    void onlyWhatOpensIsAccepted_data();
    void onlyWhatOpensIsAccepted();
    void choiceIsKept();
    void recentTilesAreOfferedAgain();
    void problemsAreTold();
    void names_data();
    void names();

private:
    static QAction *actionOf(QMenu &menu, const QString &text);
    QString tileFolder(const QString &name) const;

    QTemporaryDir m_dir;
};

static const KRTestRegistration<tst_KRGroundMenu> registration;

void tst_KRGroundMenu::init()
{
    KRGroundSettings settings;
    settings.clearRecentTiles();
    settings.setChoice(KRGroundChoice());
}

/// As the menu is when it opens.
QAction *tst_KRGroundMenu::actionOf(QMenu &menu, const QString &text)
{
    emit menu.aboutToShow();
    const QList<QAction *> actions = menu.actions();
    for (QAction *const action : actions) {
        if (action->text().remove(QLatin1Char('&')).contains(text))
            return action;
    }
    return nullptr;
}

QString tst_KRGroundMenu::tileFolder(const QString &name) const
{
    const QString folder = m_dir.filePath(name);
    QDir().mkpath(folder + QStringLiteral("/0/0"));
    QImage image(256, 256, QImage::Format_RGB32);
    image.fill(Qt::green);
    image.save(folder + QStringLiteral("/0/0/0.png"));
    return folder;
}

void tst_KRGroundMenu::groundFollowsTheChoice()
{
    KRGroundMenu menu;
    QVERIFY(qobject_cast<KRBaseMapGround *>(menu.ground()) != nullptr);
    const QPointer<KRMapGround> before = menu.ground();
    QPointer<KRMapGround> after;
    bool wasThere = false;
    connect(&menu, &KRGroundMenu::groundChanged, this, [&](KRMapGround *ground) {
        wasThere = !before.isNull();
        after = ground;
    });
    menu.setChoice(KRGroundChoice::tiles(tileFolder(QStringLiteral("a")), QStringLiteral("Stadt")));
    QVERIFY(wasThere);
    QVERIFY(before.isNull());
    QVERIFY(qobject_cast<KRTileGround *>(after) != nullptr);
    QCOMPARE(after->credit(), QStringLiteral("Stadt"));

    actionOf(menu, QStringLiteral("Keine Karte"))->trigger();
    QVERIFY(menu.ground() == nullptr && after.isNull());
    QVERIFY(actionOf(menu, QStringLiteral("Keine Karte"))->isChecked());
    QVERIFY(!actionOf(menu, QStringLiteral("Eingebaute Karte"))->isChecked());
}

void tst_KRGroundMenu::tilesAreAskedFor()
{
    KRGroundMenu menu;
    const QString folder = tileFolder(QStringLiteral("asked"));
    {
        KRDialogAnswer answer({[&](QWidget *dialog) {
            auto *const source = dialog->findChild<QComboBox *>();
            source->lineEdit()->selectAll();
            QTest::keyClicks(source->lineEdit(), folder);
            QPushButton *const ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            QVERIFY(!ok->isEnabled());
            QTRY_VERIFY(ok->isEnabled());
            for (QLineEdit *const edit : dialog->findChildren<QLineEdit *>()) {
                if (edit != source->lineEdit())
                    QTest::keyClicks(edit, QStringLiteral("  Die   Stadt "));
            }
            QTest::keyClick(dialog, Qt::Key_Return);
        }});
        actionOf(menu, QStringLiteral("Kacheln"))->trigger();
        QVERIFY(answer.isDone());
    }
    QCOMPARE(menu.choice(), KRGroundChoice::tiles(folder, QStringLiteral("Die Stadt")));

    KRDialogAnswer escape({[](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }});
    actionOf(menu, QStringLiteral("Kacheln"))->trigger();
    QVERIFY(escape.isDone());
    QCOMPARE(menu.choice().source(), folder);
}

void tst_KRGroundMenu::onlyWhatOpensIsAccepted_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("isGood");
    QTest::addColumn<QString>("word"); // of the note
    QTest::newRow("nothing") << "" << false << "";
    QTest::newRow("blanks") << "  " << false << "";
    QTest::newRow("missing file") << "/nowhere/a.mbtiles" << false << "gefunden";
    QTest::newRow("half an address") << "https://tiles.example/{z}/{x}" << false << "{y}";
    QTest::newRow("address") << "https://tiles.example/{z}/{x}/{y}.png" << true << "tiles.example";
    QTest::newRow("folder") << "@" << true << "diesem Rechner";
}

void tst_KRGroundMenu::onlyWhatOpensIsAccepted()
{
    QFETCH(QString, source);
    QFETCH(bool, isGood);
    QFETCH(QString, word);
    KRGroundDialog dialog;
    dialog.findChild<QComboBox *>()->setEditText(source == QLatin1String("@") ? tileFolder(source) : source);
    const auto isNoted = [&] {
        for (const QLabel *const label : dialog.findChildren<QLabel *>()) {
            if (!label->text().isEmpty() && label->text().contains(word))
                return true;
        }
        return false;
    };
    QPushButton *const ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    QTRY_VERIFY(isNoted() && ok->isEnabled() == isGood);
    QTest::qWait(300); // after the check
    QCOMPARE(ok->isEnabled(), isGood);
}

void tst_KRGroundMenu::choiceIsKept()
{
    const KRGroundChoice tiles = KRGroundChoice::tiles(tileFolder(QStringLiteral("kept")), QStringLiteral("Wir"));
    for (const KRGroundChoice &choice : {tiles, KRGroundChoice::noMap(), KRGroundChoice()}) {
        KRGroundMenu().setChoice(choice);
        QCOMPARE(KRGroundMenu().choice(), choice);
    }
}

void tst_KRGroundMenu::recentTilesAreOfferedAgain()
{
    KRGroundMenu menu;
    for (int i = 0; i < 12; ++i)
        menu.setChoice(KRGroundChoice::tiles(QStringLiteral("/tiles/%1.mbtiles").arg(i), QString()));
    menu.setChoice(KRGroundChoice::tiles(QStringLiteral("/tiles/9.mbtiles"), QStringLiteral("anders")));
    const QVector<KRGroundChoice> recent = KRGroundSettings().recentTiles();
    QCOMPARE(recent.size(), KRGroundSettings::maximumRecentTiles);
    QCOMPARE(recent.first().credit(), QStringLiteral("anders"));
    QCOMPARE(std::count_if(recent.begin(), recent.end(),
                           [&](const KRGroundChoice &choice) { return choice.source() == recent.first().source(); }),
             1);
    actionOf(menu, QStringLiteral("11.mbtiles"))->trigger();
    QCOMPARE(menu.choice().source(), QStringLiteral("/tiles/11.mbtiles"));
    QVERIFY(actionOf(menu, QStringLiteral("11.mbtiles"))->isChecked());

    actionOf(menu, QStringLiteral("Liste leeren"))->trigger();
    QVERIFY(actionOf(menu, QStringLiteral("11.mbtiles")) == nullptr);
}

void tst_KRGroundMenu::problemsAreTold()
{
    KRGroundMenu menu;
    QSignalSpy problems(&menu, &KRGroundMenu::problemChanged);
    menu.setChoice(KRGroundChoice::tiles(QStringLiteral("/nowhere/a.mbtiles"), QString()));
    QCOMPARE(problems.count(), 1);
    QVERIFY(problems.first().first().toString().contains(QStringLiteral("gefunden")));
    menu.setChoice(KRGroundChoice());
    QCOMPARE(problems.count(), 2);
    QVERIFY(problems.last().first().toString().isEmpty());
}

void tst_KRGroundMenu::names_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("/home/us/Karten/region.mbtiles") << "region.mbtiles";
    QTest::newRow("/home/us/Karten/Kacheln") << "Kacheln";
    QTest::newRow("/home/us/Karten/{z}/{x}/{-y}.png") << "Karten";
    QTest::newRow("https://tiles.example/v1/{z}/{x}/{y}.png?key=secret") << "tiles.example";
}

void tst_KRGroundMenu::names()
{
    QFETCH(QString, expected);
    QCOMPARE(KRGroundChoice::tiles(QString::fromLatin1(QTest::currentDataTag()), QString()).name(), expected);
}

#include "tst_KRGroundMenu.moc"
