#include <KRGeoLocation/KRGeoArcEdit.h>

#include "KRRecordingTranslator.h"
#include "KRTest.h"

#include <QComboBox>
#include <QSpinBox>

class tst_KRGeoArcEdit : public QObject
{
    Q_OBJECT

private slots:
    void showsAngles()
    {
        const QString north = QStringLiteral("Nord");
        const QString south = QStringLiteral("Süd");
        const KRTestTable<double, int, int, double, QString, double> table{
            {"south", -8.5, 8, 30, 0.0, south, -8.5},
            {"less than a degree south turns north", -0.5, 0, 30, 0.0, north, 0.5},
            {"seconds do not wrap to 0", 8.2, 8, 11, 59.999, north, 8.199999722},
            {"not valid", 720.0, 360, 0, 0.0, north, 360.0},
            {"huge", -1e300, 360, 8, 59.999, south, -360.149999722},
        };
        table.forEach([](double angle, int degrees, int minutes, double seconds, const QString &side, double expected) {
            KRGeoArcEdit edit(nullptr, true);
            edit.setGeoArc(angle);
            const QList<QSpinBox *> boxes = edit.findChildren<QSpinBox *>();
            QCOMPARE(boxes.at(0)->value(), degrees);
            QCOMPARE(boxes.at(1)->value(), minutes);
            QCOMPARE(edit.findChild<QDoubleSpinBox *>()->value(), seconds);
            QCOMPARE(edit.findChild<QComboBox *>()->currentText(), side);
            QVERIFY2(qAbs(edit.geoArc().decimalDegrees() - expected) < 1e-8,
                     qPrintable(QString::number(edit.geoArc().decimalDegrees(), 'f', 12)));
        });
    }

    void readsWhatIsTyped()
    {
        KRGeoArcEdit edit(nullptr, false);
        edit.show();
        const QList<QSpinBox *> boxes = edit.findChildren<QSpinBox *>();
        boxes.at(0)->selectAll();
        QTest::keyClicks(boxes.at(0), QStringLiteral("-8"));
        boxes.at(1)->selectAll();
        QTest::keyClicks(boxes.at(1), QStringLiteral("15"));
        QCOMPARE(edit.geoArc().decimalDegrees(), -7.75); // the parts are added
        QTest::keyClick(edit.findChild<QComboBox *>(), Qt::Key_Down);
        QCOMPARE(edit.geoArc().decimalDegrees(), 7.75);
        QTest::keyClick(boxes.at(1), Qt::Key_PageUp); // ten steps of ten minutes
        QCOMPARE(boxes.at(1)->value(), 59);
        QTest::keyClick(boxes.at(1), Qt::Key_Up);
        QCOMPARE(boxes.at(1)->value(), 0);
    }

    void offersHemispheres()
    {
        const KRRecordingTranslator translator;
        const KRGeoArcEdit latitude(nullptr, true);
        const KRGeoArcEdit longitude(nullptr, false);
        const auto *const latitudeBox = latitude.findChild<QComboBox *>();
        const auto *const longitudeBox = longitude.findChild<QComboBox *>();
        QCOMPARE(latitudeBox->itemData(0).toInt(), 1);
        QCOMPARE(latitudeBox->itemData(1).toInt(), -1);
        QCOMPARE(longitudeBox->itemText(0), QStringLiteral("Ost"));
        QCOMPARE(longitudeBox->itemText(1), QStringLiteral("West"));
        QVERIFY(
            translator.requests().contains(QStringLiteral("KRGeoArcEdit|Süd|COMBOBOX  Coordinate/Nautical bearing")));
    }
};

template class KRTestRegistration<tst_KRGeoArcEdit>;

#include "tst_KRGeoArcEdit.moc"
