#include "KRPlainText.h"
#include "KRTest.h"

#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <sys/stat.h>

static QString repeated(const char *text, int count)
{
    return QString::fromUtf8(text).repeated(count);
}

class tst_KRPlainText : public QObject
{
    Q_OBJECT

private slots:
    void toolTipsReadAsWritten()
    {
        const KRTestTable<KRText, KRText> table{
            {"nothing", "", ""},
            {"only spaces", "  \n", ""},
            {"name", "A & B", "A & B"},
            {"picture", "<img src=\"/dev/zero\">", "<img src=\"/dev/zero\">"},
            {"markup later", "Tour <b>x</b> &lt; &amp;", "Tour <b>x</b> &lt; &amp;"},
            {"lines", "<i>\nsecond", "<i>\nsecond"},
            {"long markup", QStringLiteral("<b>") + repeated("x", 1000000),
             QStringLiteral("<b>") + repeated("x", 297) + QStringLiteral("…") + repeated("x", 300)},
            {"many lines", repeated("x\n", 200), repeated("x\n", 29) + QStringLiteral("x…")},
        };
        table.forEach([](const QString &text, const QString &read) {
            const QString tip = KRPlainText::toolTip(text);
            // What tool tips and labels ask.
            const bool isRich = Qt::mightBeRichText(tip);
            QCOMPARE(isRich ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip, read);
            QCOMPARE(isRich && tip.contains(QLatin1String("<img")), false);
        });
    }

    void beginningsAreReadAsBefore()
    {
        for (const char *name :
             {"Köln – Zürich", "Đường Trường Sơn: Tiếng Việt", "ถนนสู้กู้ประตูน้ำ", "שִׁיר הַמַּעֲלוֹת", "طَرِيقٌ إِلَى ٱلْمَدِينَةِ",
              "क्ष्म्य्र्वी हिन्दी", "ညှို့မြှုံ့", "བསྒྲུབས་བྷྲཱུྃཿ", "می\u200Cخواهم \u200Fא\u200E", "👩🏽‍❤️‍💋‍👨🏿",
              "👨‍👩‍👧‍👦🏳️‍🌈", "🇩🇪🇫🇷", "🏴󠁧󠁢󠁥󠁮󠁧󠁿"}) {
            for (const auto form : {QString::NormalizationForm_C, QString::NormalizationForm_D}) {
                const QString text = QString::fromUtf8(name).normalized(form);
                QCOMPARE(KRPlainText::beginning(text, 100), text);
            }
        }
    }

    void beginningsAreShort()
    {
        const QString biker = QStringLiteral("🚴");
        const KRTestTable<KRText, int, KRText> table{
            {"heap of marks", QStringLiteral("a") + repeated("\u0301", 3000) + QStringLiteral("b"), 300,
             QStringLiteral("a") + repeated("\u0301", 6) + QStringLiteral("b")},
            {"rings about it, and joiners", QStringLiteral("e") + repeated("\u20DD\u200D", 50), 300,
             QStringLiteral("e") + repeated("\u20DD\u200D", 3)},
            {"nested directions", repeated("\u202E\u2067", 100) + QStringLiteral("ab"), 300,
             repeated("\u202E\u2067", 3) + QStringLiteral("ab")},
            {"marks beyond the first 65536", biker + repeated("\U000E0100", 99), 300,
             biker + repeated("\U000E0100", 6)},
            {"letter with its marks", "aa\u0301\u0323a", 3, "a"},
            {"letter with its marks at the end", "aa\u0301\u0323a", 4, "aa\u0301\u0323"},
            {"no half flag", "🇩🇪🇫🇷", 6, "🇩🇪"},
            {"no half characters", biker.repeated(2), 3, biker},
            {"no end of letters that join", repeated("\u1100", 500), 300, repeated("\u1100", 300)},
            {"without end", repeated("\u0301", 4000000) + QStringLiteral("a"), 300, repeated("\u0301", 6)},
        };
        table.forEach([](const QString &text, int mostCharacters, const QString &beginning) {
            QCOMPARE(KRPlainText::beginning(text, mostCharacters), beginning);
        });
    }

    void isOneShortLine()
    {
        const QString biker = QStringLiteral("🚴");
        const KRTestTable<KRText, int, KRText> table{
            {"as it is", "Reise", 5, "Reise"},
            {"cut in the middle", "Radtour.krroute", 4, "Ra…te"},
            {"lines and controls", "a\nb\x1b[2m\u202Ec", 100, "a b?[2m?c"},
            {"places to break", "Rad\u00ADtour\t1", 100, "Radtour 1"},
            {"no half characters", biker.repeated(4), 6, biker + QStringLiteral("…") + biker},
        };
        table.forEach([](const QString &text, int mostCharacters, const QString &line) {
            QCOMPARE(KRPlainText::oneLine(text, mostCharacters), line);
        });
        QCOMPARE(KRPlainText::fileName(repeated("/a", 5000) + QStringLiteral("/b.gpx")), QStringLiteral("b.gpx"));
    }

    void htmlIsReadAndNothingLoaded()
    {
        const QTemporaryDir dir;
        const QString pipe = dir.filePath(QStringLiteral("pipe")); // whoever opens it waits for ever
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const KRTestTable<KRText, KRText> table{
            {"paragraphs", "<p>a &amp; &lt;b&gt;</p>c<br/>d", "a & <b>\nc\nd"},
            {"background", "<body background='%1'>a</body>", "a"},
            {"background of a style", "<p style=\"background-image:url(%1)\">a</p>", "a"},
            {"imported style", "<style>@import url(%1);</style>a", "a"},
            {"escaped reference", "a&lt;body background='%1'&gt;", "a<body background='%1'>"},
            {"huge table", "<table><tr><td colspan=100000000 rowspan=100000>a</td></tr></table>", "a"},
            {"cut in a tag", "a<img src='data:AAAA", "a"},
            {"cut in a comment", "a<!-- <b> ' AAAA", "a"},
            {"comments that do not end", repeated("<!--", 5000), ""},
            {"scripts that do not end", QStringLiteral("a") + repeated("<script>", 5000), "a"},
        };
        table.forEach([&](const QString &html, const QString &text) {
            const auto filled = [&](QString pattern) { return pattern.replace(QLatin1String("%1"), pipe); };
            QCOMPARE(KRPlainText::ofHtml(filled(html)), filled(text));
        });
    }
};

template class KRTestRegistration<tst_KRPlainText>;

#include "tst_KRPlainText.moc"
