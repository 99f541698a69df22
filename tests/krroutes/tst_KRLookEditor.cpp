#include "KRDialogAnswer.h"

#include <KRColorButton.h>
#include <KRCroppingControl.h>
#include <KRFullShapeChooser.h>
#include <KRLookEditor.h>
#include <KRTest.h>

#include <QtWidgets>

#include <memory>

namespace {

/// The control that a label with this text leads to.
template <typename Control>
Control *controlFor(const QWidget &widget, const char *text)
{
    for (const QLabel *label : widget.findChildren<QLabel *>()) {
        if (label->text().remove(QLatin1Char('&')) == QString::fromUtf8(text))
            return qobject_cast<Control *>(label->buddy());
    }
    return nullptr;
}

} // namespace

class tst_KRLookEditor : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_editor = std::make_unique<KRLookEditor>();
        m_spy = std::make_unique<QSignalSpy>(m_editor.get(), &KRLookEditor::configurationChanged);
        m_chooser = m_editor->findChild<KRFullShapeChooser *>();
        m_editor->resize(300, 600);
        m_editor->show();
        QVERIFY(QTest::qWaitForWindowActive(m_editor.get()));
    }

    void cleanup()
    {
        m_spy.reset();
        m_editor.reset();
    }

    void offersShapes()
    {
        const KRTestTable<KRGPXTrackShapeEnum, int, const char *, bool> table{
            {"line: area, line, arrow", LineStringTrackShape, 3, "Strecke", false},
            {"area: nine markers, area", PolygonTrackShape, 10, "Fläche", true},
            {"empty track", UnknownTrackShape, 0, "unbekannt", false},
        };
        table.forEach([&](KRGPXTrackShapeEnum natural, int count, const char *label, bool canFill) {
            KRGPXTrackConfiguration configuration;
            configuration.setTrackShape(natural);
            show(configuration, natural);
            QCOMPARE(m_chooser->model()->rowCount(), count);
            QCOMPARE(KRDialogAnswer::findButton(*m_editor, "Fläche füllen")->isEnabled(), canFill);
            const QList<QLabel *> labels = m_editor->findChildren<QLabel *>();
            QVERIFY(std::any_of(labels.begin(), labels.end(),
                                [&](const QLabel *text) { return text->text() == QString::fromUtf8(label); }));
            // All tiles are in sight.
            for (int row = 0; row < m_chooser->model()->rowCount(); ++row)
                QVERIFY(
                    m_chooser->viewport()->rect().contains(m_chooser->visualRect(m_chooser->model()->index(row, 0))));
        });

        // The look of no track in particular.
        show(KRGPXTrackConfiguration(), AutoTrackShape);
        m_chooser->setCurrentIndex(m_chooser->model()->index(2, 0));
        QVERIFY(announced().markerShape() == Star6MarkerShape);
        QVERIFY(announced().trackShape() == AutoTrackShape);
    }

    void choosesByKeyAndClick()
    {
        KRGPXTrackConfiguration configuration;
        configuration.setTrackShape(LineStringTrackShape);
        show(configuration, LineStringTrackShape);
        QCOMPARE(m_chooser->currentIndex().row(), 1);
        m_chooser->setFocus();
        QTest::keyClick(m_chooser, Qt::Key_Right);
        QCOMPARE(m_spy->count(), 1);
        QVERIFY(announced().trackShape() == LineStringTrackShape);
        QVERIFY(announced().markerShape() == ArrowMarkerShape);

        const QRect area = m_chooser->visualRect(m_chooser->model()->index(0, 0));
        QTest::mouseClick(m_chooser->viewport(), Qt::LeftButton, Qt::NoModifier, area.center());
        QCOMPARE(m_spy->count(), 2);
        QVERIFY(announced().trackShape() == PolygonTrackShape);
        // The area that it has become can be turned into a line again.
        m_editor->setConfiguration(announced(), LineStringTrackShape);
        QCOMPARE(m_chooser->model()->rowCount(), 3);
    }

    void switchesOptions()
    {
        KRGPXTrackConfiguration configuration;
        configuration.setTrackShape(PolygonTrackShape);
        show(configuration, LineStringTrackShape);
        QLabel *const warning = m_editor->findChild<QLabel *>(QStringLiteral("warningLabel"));
        QVERIFY(!warning->isVisible());
        QTest::keyClick(KRDialogAnswer::findButton(*m_editor, "Linie zeichnen"), Qt::Key_Space);
        QVERIFY(announced().currentDisplayOptions() == NoDisplayOption);
        QVERIFY(warning->isVisible());
        QTest::keyClick(KRDialogAnswer::findButton(*m_editor, "Fläche füllen"), Qt::Key_Space);
        QVERIFY(announced().currentDisplayOptions() == FillDisplayOption);
        QVERIFY(!warning->isVisible());
        // A line that is only filled could not be seen, so it is drawn.
        m_chooser->setCurrentIndex(m_chooser->model()->index(1, 0));
        QVERIFY(announced().trackShape() == LineStringTrackShape);
        QVERIFY(announced().hasDrawOption(StrokeDisplayOption));
        QVERIFY(!warning->isVisible());
    }

    void announcesEveryStep()
    {
        show(KRGPXTrackConfiguration(), LineStringTrackShape);
        QWidget *const width = controlFor<QWidget>(*m_editor, "Breite:");
        QTest::keyClick(width->findChild<QSlider *>(), Qt::Key_Right);
        QCOMPARE(announced().lineWidth().toDouble(), 11.0);
        QCOMPARE(width->findChild<QSpinBox *>()->value(), 11);
        QSpinBox *const typed = width->findChild<QSpinBox *>();
        typed->selectAll();
        QTest::keyClicks(typed, QStringLiteral("250"));
        QCOMPARE(m_spy->count(), 4);
        QCOMPARE(announced().lineWidth().toDouble(), 250.0);

        QTest::keyClick(controlFor<QWidget>(*m_editor, "Glättung:")->findChild<QSpinBox *>(), Qt::Key_PageUp);
        QCOMPARE(announced().smoothingStrength(), 90);
        QTest::keyClick(controlFor<QSpinBox>(*m_editor, "Feste Punkte:"), Qt::Key_Up);
        QCOMPARE(announced().smoothingSteps(), 2);
    }

    void triesColors()
    {
        KRGPXTrackConfiguration configuration;
        configuration.setLineColor(Qt::blue);
        show(configuration, LineStringTrackShape);
        auto *const button = controlFor<KRColorButton>(*m_editor, "Linienfarbe:");
        for (const bool isAccepted : {false, true}) {
            QTest::keyClick(button, Qt::Key_Space);
            const QPointer<QColorDialog> dialog = button->findChild<QColorDialog *>();
            QVERIFY(dialog && dialog->isVisible());
            dialog->setCurrentColor(QColor(1, 2, 3, 64));
            QCOMPARE(announced().lineColor(), QColor(1, 2, 3, 64));
            QTest::keyClick(dialog, isAccepted ? Qt::Key_Return : Qt::Key_Escape);
            QCOMPARE(announced().lineColor(), isAccepted ? QColor(1, 2, 3, 64) : QColor(Qt::blue));
            QTRY_VERIFY(!dialog);
        }
        QVERIFY(button->toolTip().contains(QStringLiteral("25 %")));
    }

    void keepsWhatIsNotShown()
    {
        KRGPXTrackConfiguration configuration;
        configuration.setLineWidth(7.7);
        configuration.setSmoothingStrength(-40);
        configuration.setPenStyle(Qt::NoPen);
        configuration.setTrackShape(HopTrackShape);
        configuration.setCurrentDisplayOptions(AllDisplayOptions);
        show(configuration, LineStringTrackShape);
        QTest::keyClick(controlFor<QWidget>(*m_editor, "Hof:")->findChild<QSpinBox *>(), Qt::Key_Up);
        configuration.setHaloWidth(1.0);
        QVERIFY(announced() == configuration);
    }

    void wheelScrolls()
    {
        show(KRGPXTrackConfiguration(), LineStringTrackShape);
        auto *const width = controlFor<QWidget>(*m_editor, "Breite:")->findChild<QSpinBox *>();
        const auto turnWheel = [&] {
            QWheelEvent event(QPointF(5, 5), QPointF(), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(width, &event);
        };
        m_chooser->setFocus();
        turnWheel();
        QCOMPARE(m_spy->count(), 0);
        width->setFocus();
        turnWheel();
        QCOMPARE(announced().lineWidth().toDouble(), 11.0);
    }

    void asksForTheDefault()
    {
        QSignalSpy asked(m_editor.get(), &KRLookEditor::useAsDefaultRequested);
        KRDialogAnswer::press(*m_editor, "Als Standard");
        QCOMPARE(asked.count(), 1);
        m_editor->setButtonsVisible(false);
        QVERIFY(!KRDialogAnswer::findButton(*m_editor, "Als Standard")->isVisible());
    }

    void croppingControl()
    {
        KRCroppingControl control;
        QSignalSpy spy(&control, &KRCroppingControl::opacityChanged);
        QSlider *const slider = control.findChild<QSlider *>();
        // What a document holds beyond the ends is shown as the end.
        for (const int opacity : {-5, 0, 128, 255, 999}) {
            control.setOpacity(opacity);
            QCOMPARE(slider->value(), qBound(0, qRound(opacity / 2.55), 100));
        }
        QCOMPARE(spy.count(), 0);
        QTest::keyClick(slider, Qt::Key_Home);
        QCOMPARE(spy.last().first().toInt(), 0);
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(spy.last().first().toInt(), 255);
    }

private:
    void show(const KRGPXTrackConfiguration &configuration, const KRGPXTrackShape &naturalShape)
    {
        m_editor->setConfiguration(configuration, naturalShape);
        QCOMPARE(m_spy->count(), 0);
    }

    KRGPXTrackConfiguration announced() const
    {
        return m_spy->isEmpty() ? KRGPXTrackConfiguration() : m_spy->last().first().value<KRGPXTrackConfiguration>();
    }

    std::unique_ptr<KRLookEditor> m_editor;
    std::unique_ptr<QSignalSpy> m_spy;
    KRFullShapeChooser *m_chooser = nullptr;
};

template class KRTestRegistration<tst_KRLookEditor>;

#include "tst_KRLookEditor.moc"
