#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRQtCompat.h>
#include <KRCore/KRXMLLoader.h>

#include "KRQuietFiles.h"
#include "KRTest.h"

#include <QDomDocument>
#include <QTextStream>

#include <algorithm>

#include <sys/stat.h>

namespace {

QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

/// A document type that nests parentheses, which its reader does by recursion.
QByteArray contentModel(int levels)
{
    return "<!DOCTYPE r [<!ELEMENT r " + QByteArray(levels, '(') + 'a' + QByteArray(levels, ')') + ">]><r/>";
}

/// So many attributes for each element.
QByteArray declaredAttributes(int count)
{
    return "<!DOCTYPE r [<!ATTLIST r " + QByteArray("a CDATA #IMPLIED ").repeated(count) + ">]>";
}

QByteArray inDocumentType(const QByteArray &declarations)
{
    return "<!DOCTYPE r [" + declarations + "]><r/>";
}

QByteArray numbered(const QByteArray &text, int count)
{
    QByteArray result;
    for (int i = 0; i < count; ++i)
        result += QByteArray(text).replace("%d", QByteArray::number(i));
    return result;
}

int depthOf(const QDomElement &element)
{
    int deepest = 0;
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        deepest = std::max(deepest, depthOf(child));
    return deepest + 1;
}

QByteArray utf7(const QByteArray &xml)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-7\"?>"
           + QByteArray(xml).replace('<', "+ADw-").replace('!', "+ACE-").replace('&', "+ACY-");
}

QByteArray utf16(const QByteArray &xml)
{
    QByteArray result;
    for (const char character : xml)
        result += QByteArray(1, character) + '\0';
    return result;
}

} // namespace

class tst_KRXMLLoader : public QObject
{
    Q_OBJECT

private slots:
    void readsWhatIsWellFormed()
    {
        const QString umlaut = QStringLiteral("ü");
        const QByteArray longText = QByteArray("1234567 ").repeated(KRInputLimits::markupCharacters / 3);
        const QString smile = QStringLiteral("\U0001F600");
        const KRTestTable<QByteArray, KRText> table{
            {"white space that is no node",
             "<r>" + QByteArray("\n <a/>").repeated(KRInputLimits::nodes - 1) + "</r>",
             {}},
            {"declared Latin-1", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>\xFC</r>", umlaut},
            {"UTF-8 with its mark, declared as Latin-1",
             "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>\xC3\xBC</r>", umlaut},
            {"entity of its own", "<!DOCTYPE r [<!ENTITY e \"abc\">]><r>&e;</r>", "abc"},
            {"declared attributes", declaredAttributes(KRInputLimits::declarations) + "<r>abc</r>", "abc"},
            {"references beyond U+FFFF", "<r>&#x1F600;&#128512;&#xE4;</r>", smile + smile + QStringLiteral("ä")},
            {"as deep as allowed", nested(KRInputLimits::depth), {}},
            {"content model as deep as allowed", contentModel(KRInputLimits::depth), {}},
            {"UTF-7", utf7("<r>a&lt;</r>"), "a<"},
            {"CDATA longer than a tag may be", "<r><![CDATA[" + longText + "]]></r>", QString::fromLatin1(longText)},
            {"no declaration", "<r><!-- <?xml " + QByteArray(5000, ' ') + "--></r>", {}},
        };
        table.forEach([](const QByteArray &xml, const QString &text) {
            KRErrorHistory history;
            const QDomElement root = KRXMLLoader::parseDocumentElement(xml, QStringLiteral("x"), &history);
            QVERIFY(!root.isNull());
            QCOMPARE(root.text(), text);
            QVERIFY(history.isEmpty());
        });
    }

    void readsDocumentTypesAsQDom()
    {
        const auto toText = [](const QDomElement &element) {
            QString text;
            QTextStream stream(&text);
            element.save(stream, -1);
            return text;
        };
        for (const char *const xml : {"<r a='1'>&e; <a/> \n<![CDATA[ ]]>&f;</r>", "<r>a&e;b<!-- c --><?p q?></r>",
                                      "<r b='&e;'>\xC2\xA0<a> </a>&e; <a>\r\n&#10;</a></r>"}) {
            const QString text = QStringLiteral("<!DOCTYPE r [<!ENTITY e 'x'><!ENTITY f '<c>d</c>'><!ATTLIST r z CDATA "
                                                "'y'>]>")
                                 + QString::fromUtf8(xml);
            QDomDocument expected;
            QVERIFY(expected.setContent(text, false));
            QCOMPARE(toText(KRXMLLoader::parseDocumentElement(text, QStringLiteral("x"))),
                     toText(expected.documentElement()));
        }
    }

    void refusesWithReason()
    {
        const QByteArray flatEntity = "<!DOCTYPE r [<!ENTITY e \"" + QByteArray(4000, 'x') + "\">]><r>"
                                      + QByteArray("&e;").repeated(20000) + "</r>";
        const QByteArray nestedEntities = inDocumentType("<!ENTITY a '" + QByteArray(79, 'x') + " '><!ENTITY b '"
                                                         + QByteArray("&a;").repeated(50) + "'>")
                                              .replace("<r/>", "<r>" + QByteArray("&b;").repeated(3000) + "</r>");
        const QByteArray longName(KRInputLimits::nameCharacters + 1, 'x');
        const char *const nameIsTooLong = KRQtCompat::domReadsBrokenXml ? "zu lang" : "Kein lesbares XML";
        constexpr int manyDeclarations = KRInputLimits::declarations + 1;
        const KRTestTable<QByteArray, KRText> table{
            {"empty", {}, "leer"},
            {"unclosed element", "<r><a></r>", "Kein lesbares XML"},
            {"reference beyond all characters, and no end", "<r>&#x1F600G;</s>", "Kein lesbares XML"},
            {"one level too deep", nested(KRInputLimits::depth + 1), "256"},
            {"one flat entity again and again", flatEntity, "Entitäten"},
            {"more nodes than allowed", QByteArray("<r>" + QByteArray("<a/>").repeated(KRInputLimits::nodes) + "</r>"),
             "Knoten"},
            {"tag without end", "<r " + QByteArray(9 << 20, ' '), "Element"},
            {"words", "<r>" + QByteArray("1,1 ").repeated(KRInputLimits::words + 1) + "</r>", "Wörter"},
            {"word", "<r>" + QByteArray(KRInputLimits::wordCharacters + 1, 'a') + "</r>", "Wort"},
            {"blanks in CDATA", "<r><![CDATA[" + QByteArray(KRInputLimits::wordCharacters + 1, ' ') + "]]></r>",
             "Leerzeichen"},
            {"attributes of one tag", "<!DOCTYPE r><r " + numbered("a%d='' ", 4000) + "/>", "zu viele Attribute"},
            {"encoding without end", "<?xml version=\"1.0\" encoding=\"" + QByteArray(5000, 'a') + "\"?>",
             "Deklaration"},
            {"references", "<r>" + QByteArray("&lt;").repeated(KRInputLimits::references + 1), "Verweise"},
            {"references in UTF-7",
             utf7("<!DOCTYPE r [<!ENTITY e \"" + QByteArray(4000, 'x') + "\">]><r>" + QByteArray("&e;").repeated(5000)),
             "Entitäten"},
            {"declared attributes", declaredAttributes(KRInputLimits::declarations + 1) + "<r/>", "Vereinbarungen"},
            {"declared attributes for many elements",
             declaredAttributes(KRInputLimits::declarations) + "<r>"
                 + QByteArray("<a/>").repeated(int(KRInputLimits::attributePairs) / KRInputLimits::declarations + 1),
             "zu viele Attribute"},
            {"content model", contentModel(KRInputLimits::depth + 1), "geschachtelt"},
            {"content model in UTF-16", utf16(contentModel(KRInputLimits::depth + 1)), "geschachtelt"},
            {"nested entities", nestedEntities, "Entitäten"},
            {"external entities", inDocumentType(numbered("<!ENTITY e%d SYSTEM 'x'>", manyDeclarations)),
             "Vereinbarungen"},
            {"pictures", inDocumentType(numbered("<!ENTITY e%d SYSTEM 'x' NDATA n>", manyDeclarations)),
             "Vereinbarungen"},
            {"notations", inDocumentType(numbered("<!NOTATION n%d SYSTEM 'x'>", manyDeclarations)), "Vereinbarungen"},
            {"declared name", inDocumentType("<!ATTLIST r " + longName + " CDATA 'x'>"), nameIsTooLong},
            {"document type without end", "<!DOCTYPE r", "Kein lesbares XML"},
            {"name of a document type", "<!DOCTYPE " + longName + '>', nameIsTooLong},
            {"reference to no number", "<r>&#-1;</r>", "Kein lesbares XML"},
            {"reference without end", "<r>&#12", "Kein lesbares XML"},
            {"declaration without end", "<r/><!ELEM", "Kein lesbares XML"},
            {"comment without end", "<r>&#x1F600;<!-- &#x1F600;", "Kein lesbares XML"},
            {"content model in an entity", "<!DOCTYPE r [<!ENTITY % p \"&#60;!ELEMENT r (a)>\"> %p;]><r/>",
             "Parameter-Entitäten"},
        };
        table.forEach([](const QByteArray &xml, const QString &reason) {
            KRErrorHistory history;
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("x\\.gpx.*: .+")));
            QVERIFY(KRXMLLoader::parseDocumentElement(xml, QStringLiteral("x.gpx"), &history).isNull());
            QCOMPARE(history.entries().size(), 1);
            QVERIFY2(history.entries().at(0).reason.contains(reason), qUtf8Printable(history.entries().at(0).reason));
        });
    }

    /// A document type may have another part of the guard count.
    void refusesWithAndWithoutDocumentType()
    {
        const QByteArray tooLong(KRInputLimits::markupCharacters + 1, 'x');
        const QByteArray manySections = QByteArray("<![CDATA[x]]>").repeated(KRInputLimits::nodes / 2);
        const KRTestTable<QByteArray, KRText> table{
            {"attribute", "<r a='" + tooLong + "' b=''/>", "zu lang"},
            {"comment", "<r><!--" + tooLong + "--></r>", "zu lang"},
            {"instruction", "<r><?p " + tooLong + "?></r>", "zu lang"},
            {"blanks", "<r>a" + QByteArray(KRInputLimits::wordCharacters + 1, ' ') + "</r>", "Leerzeichen"},
            {"sections, an even number of nodes before", "<r><a/>" + manySections + "</r>", "Knoten"},
            {"sections, an odd number of nodes before", "<r>" + manySections + "</r>", "Knoten"},
        };
        const KRQuietFiles quiet;
        table.forEach([](const QByteArray &xml, const QString &reason) {
            for (const char *const type : {"", "<!DOCTYPE r [<!ENTITY e 'x'>]>"}) {
                KRErrorHistory history;
                QVERIFY(KRXMLLoader::parseDocumentElement(type + xml, QStringLiteral("x"), &history).isNull());
                QVERIFY2(history.entries().at(0).reason.contains(reason), type);
            }
        });
    }

    void decodedTextKeepsItsCharacters()
    {
        KRErrorHistory history;
        const auto xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>ü€&#x1F600;</r>");
        QCOMPARE(KRXMLLoader::parseDocumentElement(xml, QString(), &history).text(), QStringLiteral("ü€\U0001F600"));
        QVERIFY(history.isEmpty());
        // Beyond all characters there is none to be halved.
        const KRQuietFiles quiet;
        const QString beyond = KRXMLLoader::parseDocumentElement(QByteArray("<r>&#x110000;</r>"), QString()).text();
        QVERIFY(std::none_of(beyond.cbegin(), beyond.cend(), [](QChar character) { return character.isSurrogate(); }));
    }

    void decodedTextIsGuarded()
    {
        const auto tooDeep = QString::fromLatin1('\n' + nested(KRInputLimits::depth + 1));
        KRErrorHistory history;
        const KRQuietFiles quiet;
        for (const QString &xml : {tooDeep, QStringLiteral("<r>\n<a>"), QString()})
            QVERIFY(KRXMLLoader::parseDocumentElement(xml, QStringLiteral("x"), &history).isNull());
        QCOMPARE(history.entries().size(), 3);
        QCOMPARE(history.entries().at(0).line, 2);
        QCOMPARE(history.entries().at(0).column / 3, KRInputLimits::depth + 1); // within the tag, or behind it
        QCOMPARE(history.entries().at(1).line, 2);
    }

    void truncatedAnywhereGivesNothing()
    {
        const QByteArray whole = "<?xml version=\"1.0\"?>\n<gpx><trk><name>a</name><trkseg><trkpt lat=\"1\" lon=\"2\">"
                                 "<ele>3</ele></trkpt></trkseg></trk></gpx>";
        const KRQuietFiles quiet;
        for (int length = 0; length < whole.size(); ++length)
            QVERIFY2(KRXMLLoader::parseDocumentElement(whole.left(length), QString()).isNull(),
                     whole.left(length).constData());
        QVERIFY(!KRXMLLoader::parseDocumentElement(whole, QString()).isNull());
    }

    /// Whatever is made of the markup in front of them, no level passes uncounted.
    void isNeverDeeperThanAllowed()
    {
        const QByteArray front = "<!DOCTYPE r><r a='1\" b=\"/>'><!-- <b> --><![CDATA[<b>]]><?p <b> ?>&lt;<b c=\"'>\"/>";
        const QByteArray levels = nested(KRInputLimits::depth);
        QVERIFY(
            !KRXMLLoader::parseDocumentElement(front + nested(KRInputLimits::depth - 1) + "</r>", QString()).isNull());
        const KRQuietFiles quiet;
        for (int place = 0; place <= front.size(); ++place) {
            for (const char *const text :
                 {"",  "<", ">", "/",   "'",    "\"",   "!",   "-",         "]",  "?",   "&",  "[",
                  "x", " ", "=", "<b>", "</b>", "<!--", "]]>", "<![CDATA[", "<?", "'/>", "&x;"}) {
                for (const int replaced : {0, 1}) {
                    const QByteArray changed = QByteArray(front).replace(place, replaced, text);
                    const QDomElement root = KRXMLLoader::parseDocumentElement(changed + levels + "</r>", QString());
                    QVERIFY2(root.isNull() || depthOf(root) <= KRInputLimits::depth, changed.constData());
                }
            }
        }
    }

    void onlyRegularFiles()
    {
        const QTemporaryDir dir;
        const auto path = [&dir](const char *name) { return dir.filePath(QLatin1String(name)); };
        QVERIFY(QFile::link(path("nowhere"), path("link")));
        QCOMPARE(::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
        const KRQuietFiles quiet;
        QSet<QString> reasons;
        for (const QString &name :
             {path("missing"), path("link"), path("fifo"), dir.path(), QStringLiteral("/dev/zero")}) {
            KRErrorHistory history;
            QVERIFY(KRXMLLoader::loadDocumentElement(QFileInfo(name), &history).isNull());
            QCOMPARE(history.entries().size(), 1);
            QCOMPARE(history.entries().at(0).fileName, name);
            reasons.insert(history.entries().at(0).reason);
        }
        QCOMPARE(reasons.size(), 4); // the pipe and the device share theirs
    }
};

template class KRTestRegistration<tst_KRXMLLoader>;

#include "tst_KRXMLLoader.moc"
