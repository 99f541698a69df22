#include <KRFlightLineDialog.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>
#include <KRGeoLocation/KRGeoPosition.h>
#include <KRPlaceEdit.h>
#include <KRPlacesPanel.h>
#include <KRTest.h>

#include <QtWidgets>

#include <memory>

class tst_KRPlacesPanel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        KRGeoLocationSettings::instance()->setInstantlyAddLocations(true);
        m_panel = std::make_unique<KRPlacesPanel>();
        m_spy = std::make_unique<QSignalSpy>(m_panel.get(), &KRPlacesPanel::placeChosen);
        m_list = m_panel->findChild<QListWidget *>();
        m_button = m_panel->findChild<QPushButton *>();
        m_panel->show();
        QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    }

    void cleanup()
    {
        m_spy.reset();
        m_panel.reset();
        KRGeoLocationSettings::instance()->setInstantlyAddLocations(true);
    }

    void placesAreAdded()
    {
        QVERIFY(!m_button->isVisible());
        click(1);
        QCOMPARE(m_spy->count(), 1);
        QCOMPARE(m_spy->last().at(0).toString(), QStringLiteral("Bremen"));
        QCOMPARE(m_spy->last().at(1).value<KRGeoPosition>(), KRGeoPosition(53.0792962, 8.806422));
        QTest::keyClick(m_list, Qt::Key_Return);
        QCOMPARE(m_spy->count(), 2);
        // A double click is not two places more than the two clicks that it is made of.
        QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, Qt::NoModifier,
                           m_list->visualItemRect(m_list->item(2)).center());
        QVERIFY(m_spy->count() <= 4);

        m_list->setCurrentItem(nullptr);
        m_spy->clear();
        KRGeoLocationSettings::instance()->setInstantlyAddLocations(false);
        QVERIFY(m_button->isVisible());
        QTest::mouseClick(m_button, Qt::LeftButton);
        click(10);
        QCOMPARE(m_spy->count(), 0);
        QTest::mouseClick(m_button, Qt::LeftButton);
        QCOMPARE(m_spy->count(), 1);
        QCOMPARE(m_spy->first().at(0).toString(), QStringLiteral("Helsinki"));
        KRGeoLocationSettings::instance()->setInstantlyAddLocations(true);
        QVERIFY(!m_button->isVisible());
    }

    void searches()
    {
        const KRTestTable<const char *, const char *> table{
            {"part of a name, in any case", "  enb", "Oldenburg"},
            {"several", "ne", "Sydney|New York|Polynesien"},
            {"coordinates", "S33.5 E150.5", "S33.5 E150.5"},
        };
        table.forEach([&](const char *text, const char *found) {
            init();
            QTest::keyClicks(m_panel->findChild<QLineEdit *>(), QLatin1String(text));
            QStringList names;
            for (int row = 0; row < m_list->count(); ++row)
                names.append(m_list->item(row)->text());
            QCOMPARE(names.join(QLatin1Char('|')), QLatin1String(found));
            QCOMPARE(m_list->isVisible(), !names.isEmpty());
            QTest::keyClick(m_panel->findChild<QLineEdit *>(), Qt::Key_Return);
            QCOMPARE(m_spy->count(), names.isEmpty() ? 0 : 1);
        });
    }

    void placeByAngles()
    {
        KRPlaceEdit edit{QString()};
        for (const KRGeoPosition &position : {KRGeoPosition(53.5, 8.25), KRGeoPosition(-0.5, -0.25)}) {
            edit.showPosition(position);
            QCOMPARE(edit.position(), position);
            QVERIFY(edit.name().isEmpty());
        }
        for (const KRGeoPosition &position : {KRGeoPosition(95.0, 8.0), KRGeoPosition(50.0, 190.0)}) {
            edit.showPosition(position);
            QVERIFY(!edit.position().isValid());
        }
    }

    void flightLine()
    {
        KRFlightLineDialog dialog;
        dialog.show();
        const QList<KRPlaceEdit *> places = dialog.findChildren<KRPlaceEdit *>();
        QComboBox *const from = places.at(0)->findChild<QComboBox *>();
        from->setFocus();
        QTest::keyClicks(from, QStringLiteral("Hel"));
        QCOMPARE(places.at(0)->name(), QStringLiteral("Helsinki"));
        // Exactly that place, although its angles are shown rounded.
        QCOMPARE(places.at(0)->position().latitude().decimalDegrees(), 60.169471);
        QCOMPARE(dialog.track().name(), QStringLiteral("Helsinki – New York"));

        // An angle that is touched makes it another place.
        QTest::keyClick(places.at(0)->findChildren<QSpinBox *>().first(), Qt::Key_Up);
        QVERIFY(places.at(0)->name().isEmpty());
        QCOMPARE(qRound(places.at(0)->position().latitude().decimalDegrees() * 1000), 61169);
        QTest::keyClicks(dialog.findChild<QLineEdit *>(), QStringLiteral("Reise"));
        const KRGPXTrack track = dialog.track();
        QCOMPARE(track.name(), QStringLiteral("Reise"));
        QVERIFY(track.countPoints() > 10);
        QCOMPARE(track.firstPoint(), places.at(0)->position());
        QCOMPARE(track.lastPoint(), KRGeoPosition(40.73061, -73.935242));
    }

    void flightLineNeedsTwoPlaces()
    {
        KRFlightLineDialog dialog;
        QPushButton *const okButton = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        QVERIFY(okButton->isEnabled());
        const KRTestTable<double, double, bool> table{
            {"the same place twice", 40.73061, -73.935242, false},
            {"another place", 40.0, 8.0, true},
            {"no place", 100.0, 8.0, false},
        };
        table.forEach([&](double latitude, double longitude, bool isGood) {
            dialog.setStart(KRGeoPosition(latitude, longitude));
            QCOMPARE(okButton->isEnabled(), isGood);
            QCOMPARE(dialog.track().isValid(), isGood);
        });
    }

private:
    void click(int row)
    {
        QTest::mouseClick(m_list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          m_list->visualItemRect(m_list->item(row)).center());
    }

    std::unique_ptr<KRPlacesPanel> m_panel;
    std::unique_ptr<QSignalSpy> m_spy;
    QListWidget *m_list = nullptr;
    QPushButton *m_button = nullptr;
};

template class KRTestRegistration<tst_KRPlacesPanel>;

#include "tst_KRPlacesPanel.moc"
