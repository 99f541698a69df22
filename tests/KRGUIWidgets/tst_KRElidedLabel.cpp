#include <KRGUIWidgets/KRElidedLabel.h>

#include "KRTest.h"

class tst_KRElidedLabel : public QObject
{
    Q_OBJECT

private slots:
    void shortens()
    {
        const QString words = QStringLiteral("along the river and back");
        // text, word wrap, width in characters, height in lines, lines to be seen, whether the last one is cut
        const KRTestTable<KRText, bool, int, int, int, bool> table{
            {"wraps", words, true, 14, 3, 2, false},
            {"no wrap wanted", words, false, 14, 3, 1, true},
            {"last line shortened", words, true, 8, 2, 2, true},
            {"lower than a line", words, true, 8, 0, 1, true},
            {"one long word breaks", QString(30, QLatin1Char('x')), true, 12, 9, 3, false},
            {"line breaks do not count", "a\nb\n\nc", true, 20, 3, 1, false},
        };
        table.forEach([](const QString &text, bool wordWrap, int characters, int lines, int expected, bool isElided) {
            KRElidedLabel label(text);
            label.setWordWrap(wordWrap);
            const QFontMetrics metrics = label.fontMetrics();
            const int textWidth = characters * metrics.horizontalAdvance(QLatin1Char('x'));
            label.resize(textWidth + 2 * KRElidedLabel::textPaddingPx, lines * metrics.lineSpacing() + 2);
            QCOMPARE(label.visibleLines().count(), expected);
            QCOMPARE(label.visibleLines().last().endsWith(QChar(0x2026)), isElided);
            QCOMPARE(label.text(), text);
        });
    }

    void everyLineFits()
    {
        KRElidedLabel label(QStringLiteral("<b>Hin</b> & zurück: Donaudampfschifffahrtsgesellschaft, Nordwestbahnhof"));
        label.setWordWrap(true);
        for (int width = 40; width < 600; width += 7) {
            label.resize(width, 3 * label.fontMetrics().lineSpacing());
            const QStringList lines = label.visibleLines();
            QVERIFY(lines.count() <= 3);
            for (const QString &line : lines)
                QVERIFY2(label.fontMetrics().horizontalAdvance(line) <= width - 2 * KRElidedLabel::textPaddingPx,
                         qPrintable(line));
        }
        label.resize(2000, 20);
        QCOMPARE(label.visibleLines(), QStringList(label.text())); // markup is text
    }

    void blinksInTheColorsOfThePalette()
    {
        KRElidedLabel label(QStringLiteral("x"));
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::Highlight, Qt::blue);
        label.setPalette(palette);
        label.resize(60, 30);
        const auto edge = [&label] { return label.grab().toImage().pixelColor(30, 28); };
        const QImage normal = label.grab().toImage();
        label.setAnimationState(2);
        QCOMPARE(edge(), QColor(Qt::blue));
        label.setAnimationState(1);
        QCOMPARE(edge().blue(), 255);
        QVERIFY(edge().red() > 100 && edge().red() < 155);
        label.setAnimationState(0);
        QCOMPARE(label.grab().toImage(), normal);
    }
};

template class KRTestRegistration<tst_KRElidedLabel>;

#include "tst_KRElidedLabel.moc"
