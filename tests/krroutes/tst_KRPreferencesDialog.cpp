#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>
#include <KRLookEditor.h>
#include <KRPreferencesDialog.h>
#include <KRPreferencesLook.h>
#include <KRSimplifyDialog.h>
#include <KRTest.h>

#include <QtWidgets>

class tst_KRPreferencesDialog : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        KRGeoLocationSettings *const settings = KRGeoLocationSettings::instance();
        settings->setInstantlyAddLocations(true);
        KRGPXTrackConfiguration look;
        look.setLineWidth(4.0);
        look.setTrackShape(LineStringTrackShape);
        settings->setDefaultTrackConfiguration(look);
    }

    void storesOnlyWhenAccepted()
    {
        for (const bool isAccepted : {false, true}) {
            init();
            KRPreferencesDialog dialog;
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            QTest::keyClick(dialog.findChild<QCheckBox *>(QStringLiteral("myInstantlyAddLocations")), Qt::Key_Space);
            QSlider *const width = dialog.findChild<KRPreferencesLook *>()->findChildren<QSlider *>().first();
            QTest::keyClick(width, Qt::Key_Right);
            if (isAccepted)
                QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
            else
                QTest::keyClick(&dialog, Qt::Key_Escape);
            QVERIFY(!dialog.isVisible());
            const KRGeoLocationSettings *const settings = KRGeoLocationSettings::instance();
            QCOMPARE(settings->instantlyAddLocations(), !isAccepted);
            QCOMPARE(settings->defaultTrackConfiguration().lineWidth().toDouble(), isAccepted ? 5.0 : 4.0);
            // The shape of one track is none for all.
            if (isAccepted)
                QVERIFY(settings->defaultTrackConfiguration().trackShape() == AutoTrackShape);
        }
    }

    void resetsLook()
    {
        KRPreferencesLook page;
        page.readFromConfig();
        for (QPushButton *button : page.findChildren<QPushButton *>()) {
            if (button->text().contains(QStringLiteral("setzen")))
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QVERIFY(page.findChild<KRLookEditor *>()->configuration() == KRGPXTrackConfiguration::defaultValue());
        QVERIFY(KRGeoLocationSettings::instance()->defaultTrackConfiguration().lineWidth() == 4.0);
    }

    void simplifies()
    {
        KRGPXTrackSegment segment;
        for (int i = 0; i <= 1000; ++i)
            segment.append(10.0 + i * 0.001, 8.0 + i % 2 * 0.00005, 0, QDateTime(), QString()); // 5.5 metres aside
        const KRGPXConfiguredTrack track(KRGPXTrack(QString(), QString(), {segment}, LineStringTrackShape),
                                         KRGPXTrackConfiguration());
        KRSimplifyDialog dialog(track);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QPushButton *const okButton = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        const auto says = [&](const QString &text) {
            const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(),
                               [&](const QLabel *label) { return label->text().contains(text); });
        };
        QTRY_VERIFY(says(QStringLiteral(" 2.")));
        QVERIFY(okButton->isEnabled());
        // A tenth of that is too little to leave out any.
        QSlider *const slider = dialog.findChild<QSlider *>();
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(slider, Qt::Key_PageDown);
        QCOMPARE(dialog.findChild<QDoubleSpinBox *>()->value(), 1.0);
        QVERIFY(!okButton->isEnabled());
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(slider, Qt::Key_PageUp);
        QTest::mouseClick(okButton, Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.simplified().track().countPoints(), 2);
    }
};

template class KRTestRegistration<tst_KRPreferencesDialog>;

#include "tst_KRPreferencesDialog.moc"
