#include <KRBaseMapGround.h>
#include <KRGroundDialog.h>
#include <KRGroundMenu.h>
#include <KRGroundSettings.h>
#include <KRTest.h>
#include <KRTileGround.h>

#include "KRDialogAnswer.h"

#include <QtWidgets>

class tst_KRGroundMenu : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        KRGroundSettings settings;
        settings.clearRecentTiles();
        settings.setChoice(KRGroundChoice());
    }

    void groundFollowsTheChoice()
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
        menu.setChoice(KRGroundChoice::tiles(tileFolder("a"), QStringLiteral("Stadt")));
        QVERIFY(wasThere);
        QVERIFY(before.isNull());
        QVERIFY(qobject_cast<KRTileGround *>(after) != nullptr);
        QCOMPARE(after->credit(), QStringLiteral("Stadt"));

        actionOf(menu, "Keine Karte")->trigger();
        QVERIFY(menu.ground() == nullptr && after.isNull());
        QVERIFY(actionOf(menu, "Keine Karte")->isChecked());
        QVERIFY(!actionOf(menu, "Eingebaute Karte")->isChecked());
    }

    void tilesAreAskedFor()
    {
        KRGroundMenu menu;
        const QString folder = tileFolder("asked");
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
            actionOf(menu, "Kacheln")->trigger();
            QVERIFY(answer.isDone());
        }
        QCOMPARE(menu.choice(), KRGroundChoice::tiles(folder, QStringLiteral("Die Stadt")));

        KRDialogAnswer escape({KRDialogAnswer::key(Qt::Key_Escape)});
        actionOf(menu, "Kacheln")->trigger();
        QVERIFY(escape.isDone());
        QCOMPARE(menu.choice().source(), folder);
    }

    void onlyWhatOpensIsAccepted()
    {
        // word: of the note
        const KRTestTable<const char *, bool, const char *> table{
            {"nothing", "", false, ""},
            {"missing file", "/nowhere/a.mbtiles", false, "gefunden"},
            {"half an address", "https://tiles.example/{z}/{x}", false, "{y}"},
            {"address", "https://tiles.example/{z}/{x}/{y}.png", true, "tiles.example"},
            {"folder", "@", true, "diesem Rechner"},
        };
        table.forEach([&](const char *source, bool isGood, const char *word) {
            KRGroundDialog dialog;
            const bool isFolder = *source == '@';
            dialog.findChild<QComboBox *>()->setEditText(isFolder ? tileFolder(source) : QString::fromLatin1(source));
            const auto isNoted = [&] {
                for (const QLabel *const label : dialog.findChildren<QLabel *>()) {
                    if (!label->text().isEmpty() && label->text().contains(QLatin1String(word)))
                        return true;
                }
                return false;
            };
            QPushButton *const ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            QTRY_VERIFY(isNoted() && ok->isEnabled() == isGood);
            QTest::qWait(300); // after the check
            QCOMPARE(ok->isEnabled(), isGood);
        });
    }

    void creditBelongsToItsSource()
    {
        KRGroundMenu().setChoice(KRGroundChoice::tiles(tileFolder("old"), QStringLiteral("Stadt")));
        KRGroundDialog dialog;
        dialog.show();
        QLineEdit *const source = dialog.findChild<QComboBox *>()->lineEdit();
        const QList<QLineEdit *> edits = dialog.findChildren<QLineEdit *>();
        QLineEdit *const credit =
            *std::find_if(edits.cbegin(), edits.cend(), [=](auto *edit) { return edit != source; });
        const auto type = [](QLineEdit *edit, const QString &text) {
            edit->selectAll();
            QTest::keyClicks(edit, text);
        };
        QCOMPARE(dialog.choice().credit(), QStringLiteral("Stadt"));
        type(source, QStringLiteral("https://tiles.example/{z}/{x}/{y}.png"));
        QCOMPARE(dialog.choice().credit(), QString());
        type(source, tileFolder("old"));
        QCOMPARE(dialog.choice().credit(), QStringLiteral("Stadt"));
        type(credit, QStringLiteral("Land"));
        type(source, tileFolder("new"));
        QCOMPARE(dialog.choice().credit(), QStringLiteral("Land"));
    }

    void choiceIsKept()
    {
        const KRGroundChoice tiles = KRGroundChoice::tiles(tileFolder("kept"), QStringLiteral("Wir"));
        for (const KRGroundChoice &choice : {tiles, KRGroundChoice::noMap(), KRGroundChoice()}) {
            KRGroundMenu().setChoice(choice);
            QCOMPARE(KRGroundMenu().choice(), choice);
        }

        KRGroundMenu menu;
        QSignalSpy problems(&menu, &KRGroundMenu::problemChanged);
        menu.setChoice(KRGroundChoice::tiles(QStringLiteral("/nowhere/a.mbtiles"), QString()));
        QCOMPARE(problems.count(), 1);
        QVERIFY(problems.first().first().toString().contains(QStringLiteral("gefunden")));
        menu.setChoice(KRGroundChoice());
        QCOMPARE(problems.count(), 2);
        QVERIFY(problems.last().first().toString().isEmpty());
    }

    void recentTilesAreOfferedAgain()
    {
        KRGroundMenu menu;
        for (int i = 0; i < 12; ++i)
            menu.setChoice(KRGroundChoice::tiles(QStringLiteral("/tiles/%1.mbtiles").arg(i), QString()));
        menu.setChoice(KRGroundChoice::tiles(QStringLiteral("/tiles/9.mbtiles"), QStringLiteral("anders")));
        const QVector<KRGroundChoice> recent = KRGroundSettings().recentTiles();
        QCOMPARE(recent.size(), KRGroundSettings::maximumRecentTiles);
        QCOMPARE(recent.first().credit(), QStringLiteral("anders"));
        QCOMPARE(
            std::count_if(recent.begin(), recent.end(),
                          [&](const KRGroundChoice &choice) { return choice.source() == recent.first().source(); }),
            1);
        actionOf(menu, "11.mbtiles")->trigger();
        QCOMPARE(menu.choice().source(), QStringLiteral("/tiles/11.mbtiles"));
        QVERIFY(actionOf(menu, "11.mbtiles")->isChecked());

        actionOf(menu, "Liste leeren")->trigger();
        QVERIFY(actionOf(menu, "11.mbtiles") == nullptr);
    }

private:
    /// As the menu is when it opens.
    static QAction *actionOf(QMenu &menu, const char *text)
    {
        emit menu.aboutToShow();
        const QList<QAction *> actions = menu.actions();
        for (QAction *const action : actions) {
            if (action->text().remove(QLatin1Char('&')).contains(QLatin1String(text)))
                return action;
        }
        return nullptr;
    }

    QString tileFolder(const char *name) const
    {
        const QString folder = m_dir.filePath(QLatin1String(name));
        QImage image(256, 256, QImage::Format_RGB32);
        image.fill(Qt::green);
        QDir().mkpath(folder + QStringLiteral("/0/0"));
        image.save(folder + QStringLiteral("/0/0/0.png"));
        return folder;
    }

    QTemporaryDir m_dir;
};

template class KRTestRegistration<tst_KRGroundMenu>;

#include "tst_KRGroundMenu.moc"
