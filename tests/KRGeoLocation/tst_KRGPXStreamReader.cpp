#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXStreamReader.h>

#include "KRQuietFiles.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTestTrack.h"
#include "KRTestXml.h"

#include <KRCore/KRXMLLoader.h>

#include <QDir>

#include <cctype>
#include <optional>

namespace {

/// Nothing when the document cannot be read as a stream, or should not because a DOM may read otherwise.
std::optional<QString> readAsStream(QByteArray xml)
{
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    KRGPXStreamReader reader(&buffer);
    QList<KRGPXTrack> tracks;
    if (!reader.readTracks([&](const KRGPXTrack &track) { tracks.append(track); }) || reader.isDomPreferable())
        return std::nullopt;
    return KRTestTrack::exactText(tracks);
}

std::optional<QString> readAsDom(const QByteArray &xml)
{
    const QDomElement root = KRXMLLoader::parseDocumentElement(xml, QStringLiteral("test"));
    if (root.isNull())
        return std::nullopt;
    QList<KRGPXTrack> tracks;
    for (QDomElement child = root.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() == QStringLiteral("trk"))
            tracks.append(KRGPXTrack(child, KRTestTrack::noDir));
    }
    return KRTestTrack::exactText(tracks);
}

void compareWithDom(const QByteArray &xml)
{
    const std::optional<QString> asStream = readAsStream(xml);
    QVERIFY(asStream.has_value());
    QVERIFY(asStream == readAsDom(xml));
}

/// How many bytes QXmlStreamReader asks for at once.
constexpr int bytesPerRead = 8192;

const QByteArray spelledPoint = "<trkpt lat=\"1.5\" lon=\"2\"/>";

QByteArray nestedEnclaves(int count)
{
    return "<gpx>" + QByteArray("<trk><enclaves>").repeated(count) + "<trk><trkseg/></trk>"
           + QByteArray("</enclaves></trk>").repeated(count) + "</gpx>";
}

QByteArray attributes(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i) + "=\"\"";
    return text;
}

/// Everything that tracks are made of, much of it wrong: the alternatives of each name, parted by "|".
const QHash<QByteArray, QByteArray> rules{
    {"document", "$prolog<gpx$a>$tracks</gpx>$end|$prolog<includedTrack>$tracks</includedTrack>|"
                 "$prolog<gpx>$tracks</gpx>$end|$prolog<g:gpx>$tracks</g:gpx>"},
    {"prolog", "||<?xml version=\"1.0\"?>\n|<?xml version='1.0' encoding='ISO-8859-1'?>|<!-- c -->|"
               "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"},
    {"end", "|\n|<!-- end -->"},
    {"a", "||| | a=\"1\"| x:y='&amp;>'| xmlns=\"u\""},
    {"between", " |\n\t|\r\n|<!-- c -->|x|<![CDATA[ ]]>|&#32;|<wpt/>"},
    {"tracks", "|$track|$track$tracks|$between$tracks"},
    {"track", "<trk$a>$parts</trk>|<trk$a>$parts</trk>|<rte>$parts</rte>|<trk$a/>"},
    {"parts", "|$part$parts|$part$parts|$part$part$part|$between$parts"},
    {"part", "$segment|$segment|$segment|$segment|<name$a>$text</name>|<desc>$text</desc>|<include>$text</include>|"
             "<enclaves>$tracks</enclaves>|<gpx:trkseg>$text</gpx:trkseg>|<Name>$text</Name>|<trk>$text</trk>|"
             "<shape>auto</shape>|<shape>polygon</shape>|<shape>point,hop</shape>|<shape> auto</shape>|"
             "<shape>au<b>to</b></shape>|<shape/>"},
    {"segment", "<trkseg$a>$points</trkseg>|<trkseg$a>$points</trkseg>|<trkseg/>"},
    {"points", "|$point$points|$plain$plain$points|$plain$plain$plain$points|$between$points|<x>$point</x>$points|"
               "<compressedPoints>$packed</compressedPoints>$points"},
    {"packed", "8,53 9,54|8,53,4,1000\n9,54|0,0 1,1| 8,53<!-- c -->,9 1,1|8,53<![CDATA[ 9,54]]>|1,1 <b>2,2</b> 3,3|"
               "\xC2\xA0"},
    {"point", "<trkpt$latitude$longitude>$children</trkpt>|<trkpt$latitude$longitude>$children</trkpt>|"
              "<trkpt$latitude$longitude/>"},
    {"latitude", " lat=\"$number\"| lat=\"$number\"| lat='$number'|"},
    {"longitude", " lon=\"$number\"| lon='$number'| lon='$number'|"},
    {"children", "|$child$children|$child$children|$between$children"},
    {"child", "<ele$a>$number</ele>|<ele>$text</ele>|<time>$time</time>|<time$a>$text</time>|<desc$a>$text</desc>|"
              "<extensions><ele>$number</ele></extensions>"},
    // As recorders write it, or nearly so.
    {"plain", "$start$inside</trkpt>$behind"},
    {"start", "$usual|$usual|$usual|$usual|$usual|$usual|<trkpt  lat=\"$decimal\" lon=\"$decimal\">|"
              "<trkpt\nlat='$decimal' lon = \"$decimal\">|<trkpt lat=\"$decimal\" x=\"1\" lon=\"$decimal\"\t>|"
              "<trkpt lat=\"$number\" lon=\"$number\"/>x<trkpt lat=\"$decimal\">"},
    {"usual", "<trkpt lat=\"$decimal\" lon=\"$decimal\">"},
    {"inside", "|||<ele>$decimal</ele>$inside|<time>2024-05-01T12:00:59Z</time>$inside|$odd$inside|\n  $inside|"
               "<extensions><a:b>7</a:b></extensions>$inside|<ele>$decimal</ele><time>2024-05-01T12:00:59Z</time>"},
    {"odd", "<ele/>|<ele >5</ele >|<ele a=\"1\">$number</ele>|<time>$time</time>|<time>$text</time>|<desc/>|\r\n|&#32;|"
            "<extensions><x>$text</x></extensions >|<extensions><b><c/>]]</b></extensions>|<!-- c -->|\xC3\xA4|"
            "<extensions/><desc>d</desc>"},
    {"behind", "\n|\n|\n|\n|\n|\n||x>|\r\n"},
    {"text", "|$word|$word$word|$word$word$word$word"},
    {"word", "a| |\n|\r\n|\t|&amp;|&#10;|&#13;|&#xa0;|\xC3\xA4|\xF0\x9F\x98\x80|<![CDATA[ ]]>|<![CDATA[<a>&amp;]]>|"
             "<!-- c -->|<b>bold</b>|<b> </b>|<name>n</name>|]]|>|\"|12.5|&#x2028;"},
    {"number", "$decimal|$decimal|$decimal|$decimal|$decimal|$decimal|$oddNumber|$oddNumber|$oddNumber"},
    {"oddNumber", "0|-0|1e2| 7 |nan|-inf|1,5||+5|.5|5.|-.5|-|.|1.2.3|00012|123456789012345678901234567890123|"
                  "0.1234567890123456789|1e400|0x10|5 5"},
    {"time", "2024-05-01T12:00:00Z|2024-05-01T12:00:00Z| 2024-05-01T12:00:00Z\n|2024-05-01T12:00:00|2024-05-01|now||"
             "2024-05-01T12:00:00.25Z|2024-05-01T12:00:00+02:00|2024-13-01T12:00:00Z|2024-02-30T12:00:00Z|"
             "2024-05-01T24:00:00Z|2024-05-01T12:00:60Z|0000-05-01T12:00:00Z|x024-05-01T12:00:00Z|"
             "2024-05-01T12:0x:00Z|2024-05-01t12:00:00z|9999-12-31T23:59:59Z|0001-01-01T00:00:00Z|"
             "1582-10-10T00:00:00Z"},
    {"damage", "<|>|&|\"|<!--|]]>|<![CDATA[|&#1;|&nbsp;|<a>|</trk>|\xFF|\x01|=|--|<?p?>|<!DOCTYPE gpx>|</trkpt>|"
               "<TRKPT>|<!-- trkpt>|</c>| lon=\"3\"|</extensions>"},
};

/// Makes texts of the rules; the same ones for the same seed.
class DocumentMaker
{
public:
    explicit DocumentMaker(quint32 seed) : m_random(seed) { }

    /// With an alternative in place of each "$name".
    QByteArray made(QByteArray text)
    {
        for (int begin = text.indexOf('$'); begin >= 0; begin = text.indexOf('$', begin)) {
            int end = begin + 1;
            while (end < text.size() && std::isalpha(uchar(text.at(end))))
                ++end;
            const QByteArray name = text.mid(begin + 1, end - begin - 1);
            const QList<QByteArray> choices = rules.value(name).split('|');
            text.replace(begin, end - begin,
                         name == "decimal" ? QByteArray::number(m_random.bounded(360.0) - 180.0, 'f', below(18))
                                           : choices.at(below(choices.size())));
        }
        return text;
    }

    /// Broken in one place.
    QByteArray damaged(QByteArray xml)
    {
        const int place = below(xml.size());
        switch (below(5)) {
        case 0:
            return xml.left(place);
        case 1:
            return xml.remove(place, 1 + below(5));
        case 2:
            return xml.insert(place, xml.mid(below(xml.size()), below(30)));
        case 3:
            xml[place] = char(below(256));
            return xml;
        default:
            return xml.insert(place, made("$damage"));
        }
    }

private:
    int below(int limit) { return m_random.bounded(limit); }

    QRandomGenerator m_random;
};

} // namespace

class tst_KRGPXStreamReader : public QObject
{
    Q_OBJECT

private slots:
    void equalsTheDom()
    {
        const auto track = [](const QByteArray &body) { return "<gpx><trk>" + body + "</trk></gpx>"; };
        const auto point = [&](const QByteArray &body) {
            return track("<trkseg><trkpt>" + body + "</trkpt></trkseg>");
        };
        const auto plainPoint = [](const QByteArray &text) {
            return "<trkpt lat='53' lon='8'><desc>" + text + "</desc></trkpt>";
        };
        const QByteArray latin = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"
                                 + track("<name>Gr\xFC\xDF"
                                         "e</name><trkseg>"
                                         + plainPoint("\xC3\xB6") + plainPoint("\xC3\xB6") + "</trkseg>");
        const KRTestTable<QByteArray> table{
            {"no track", QByteArray("<gpx/>")},
            {"names of all plain characters", QByteArray("<gpx><aZ-0._:b/></gpx>")},
            {"only children of the root", QByteArray("<trk><x><trk/></x><trk><trkseg/></trk><g:trk/></trk>")},
            {"the last name wins", track("<name>a</name><desc>b</desc><name>c</name><desc/>")},
            {"the first child of a point wins",
             point("<ele>1</ele><ele>2</ele><time/><time>2024-05-01T12:00:00Z</time><desc>a</desc><desc>b</desc>")},
            {"an unreadable first child wins too", point("<ele>x</ele><ele>2</ele>")},
            {"names in deeper elements", point("<extensions><ele>1</ele><desc>b</desc></extensions>")},
            {"text of all descendants", track("<name>a<b>b<c>c</c></b><!-- d -->e<![CDATA[<f>]]></name>")},
            {"blank text between markup is dropped", track("<name> <b> b </b> <!-- c --> </name>")},
            {"a reference to a blank is no text either", track("<name>&#32;<b>&#xa0;\xC2\xA0</b></name>")},
            {"a blank in CDATA is text", track("<name><![CDATA[ ]]>a <![CDATA[\t]]></name>")},
            {"adjoining CDATA", track("<name><![CDATA[a]]><![CDATA[]]><![CDATA[ b]]></name>")},
            {"entities", track("<name>&lt;&gt;&amp;&quot;&apos;&#228;&#xE4;&#10;</name>")},
            {"references beyond U+FFFF", track("<name>&#x1F600;&#128512;</name>")},
            {"line feeds stay", track("<name>a\nb\n</name>")},
            {"carriage returns between elements", track("\r\n<name>a</name>\r\n<trkseg>\r</trkseg>\r\n")},
            {"attributes on lines of their own", QByteArray("<gpx\r\n a='1'\r\n b='2'><trk\r/></gpx>")},
            {"byte order mark", "\xEF\xBB\xBF" + track("<name>\xC3\xA4</name>")},
            {"declared encoding", latin},
            {"brackets and characters beyond U+FFFF",
             track("<trkseg>" + plainPoint("[1] a]] \xF0\x9F\x98\x80\xF4\x8F\xBF\xBD") + "</trkseg>")},
            {"UTF-16", KRTestXml::utf16(QString::fromUtf8(track("<name>\xC3\xA4\xF0\x9F\x98\x80</name>")))},
            {"UTF-16 with points, as declared",
             KRTestXml::utf16(
                 QStringLiteral("<?xml version='1.0' encoding='UTF-16'?>")
                 + QString::fromUtf8(track("<trkseg>" + spelledPoint.repeated(bytesPerRead / 20) + "</trkseg>")))},
            {"points in a comment",
             track("<trkseg><!-- points that do not count, among them a trkpt>" + spelledPoint + " --></trkseg>")},
            {"points in CDATA",
             track("<trkseg><![CDATA[ points that do not count, among them a trkpt>" + spelledPoint + "]]></trkseg>")},
            {"bytes of characters that spell a point",
             KRTestXml::utf16BigEndian(QStringLiteral("<gpx>") + QString(bytesPerRead / 2 - 18, QLatin1Char(' '))
                                       + QStringLiteral("<trk><trkseg>"))
                 + spelledPoint + KRTestXml::utf16BigEndian(QStringLiteral("</trkseg></trk></gpx>"))},
            {"compressed points with markup inside",
             track("<trkseg><compressedPoints>8,53<!-- c -->4 9,<b>54</b>\n<![CDATA[ "
                   "1,1]]></compressedPoints></trkseg>")},
            {"mixed points", track("<trkseg><trkpt/><compressedPoints>1,1</compressedPoints><trkpt/></trkseg>")},
            {"includes are ignored", track("<include>/etc/hostname</include><trkseg/>")},
            {"shape behind the points", track("<trkseg><trkpt/></trkseg><shape>auto</shape>")},
            {"enclaves within enclaves", nestedEnclaves(5)},
            {"as deep as allowed", nestedEnclaves((KRInputLimits::depth - 3) / 2)},
            {"many attributes", "<gpx" + attributes(2000) + "><trk><trkseg/></trk></gpx>"},
            {"a text of many blocks", track("<desc>" + QByteArray(300000, 'x') + "\"</desc>")},
            {"time with an offset", point("<time> 2024-05-01T12:00:00-03:30\n</time>")},
            {"local time", point("<time>2024-05-01T12:00:00</time>")},
        };
        table.forEach(compareWithDom);
    }

    void equalsTheDomOnAnyDocument()
    {
        DocumentMaker maker(20240501);
        int readDocuments = 0;
        int refusedDocuments = 0;
        for (int i = 0; i < 800; ++i) {
            QByteArray xml = maker.made("$document");
            if (i % 2 == 1)
                xml = maker.damaged(xml);
            const std::optional<QString> asStream = readAsStream(xml);
            if (asStream.has_value()) {
                QVERIFY2(asStream == readAsDom(xml), xml.constData());
                ++readDocuments;
            } else {
                ++refusedDocuments;
            }
        }
        // Enough of both, or the comparison says nothing.
        QVERIFY(readDocuments > 200);
        QVERIFY(refusedDocuments > 200);
    }

    void readsSamplesWithoutTheDom()
    {
        const QDir samples(QStringLiteral(KR_SAMPLES_DIR));
        const QFileInfoList files = samples.entryInfoList({QStringLiteral("*.gpx")}, QDir::Files);
        QVERIFY(!files.isEmpty());
        for (const QFileInfo &file : files) {
            const QByteArray xml = KRTestFile::content(file.filePath());
            QVERIFY2(readAsStream(xml) && readAsStream(xml) == readAsDom(xml), qUtf8Printable(file.fileName()));
        }
    }

    void equalsTheDomAcrossBlocks()
    {
        DocumentMaker maker(20241121);
        QByteArray body;
        for (int i = 0; body.size() < 600000; ++i)
            body += maker.made(i % 500 == 499 ? "<trkpt lat='1' lon='2'/>"
                                              : "<trkpt lat=\"$decimal\" lon=\"$decimal\"><ele>$number</ele>"
                                                "<time>$time</time></trkpt>\n");
        compareWithDom("<gpx><trk><trkseg>" + body + "</trkseg></trk></gpx>");
    }

    void placesOfErrorsDoNotDependOnRuns()
    {
        const QByteArray point = "<trkpt lat=\"1\" lon=\"2\"><ele>3</ele></trkpt>";
        QByteArray unusualPoint = point;
        unusualPoint.replace('"', '\'');
        for (const char *const between : {"", " ", "\n", "\n\n  "}) {
            for (const char *const fault : {"</trk>", " </trk>", "\n&x;", "<a b/>", "x<trkpt lat=\"<\">"}) {
                const auto placeOfError = [&](const QByteArray &runPoint) {
                    const QByteArray run = (runPoint + between).repeated(3);
                    QByteArray xml = "<gpx>\n<trk><trkseg>" + run + unusualPoint + run + fault;
                    QBuffer buffer(&xml);
                    buffer.open(QIODevice::ReadOnly);
                    KRGPXStreamReader reader(&buffer);
                    const bool isRead = reader.readTracks([](const KRGPXTrack &) {});
                    return isRead ? QPair<int, int>() : QPair<int, int>(reader.error().line, reader.error().column);
                };
                QVERIFY(placeOfError(point).first > 0);
                QCOMPARE(placeOfError(point), placeOfError(unusualPoint));
            }
        }
    }

    void numbersEqualTheDom()
    {
        // Texts of the characters of numbers, many of them none, and plain decimals of any length.
        QRandomGenerator random(7);
        const QByteArray characters = "0123456789012345678901234567890123456789..-+e ";
        QByteArray xml = "<gpx><trk><trkseg>";
        for (int i = 0; i < 20000; ++i) {
            QByteArray number = i % 2 == 0 ? QByteArray() : QByteArray::number(random.bounded(1000)) + '.';
            for (int length = random.bounded(i % 3 == 0 ? 35 : 12); length > 0; --length)
                number += characters.at(random.bounded(characters.size() - (i % 2 == 0 ? 0 : 6)));
            xml += "<trkpt lat=\"" + number + "\" lon=\"0\"><ele>" + number + "</ele></trkpt>";
        }
        compareWithDom(xml + "</trkseg></trk></gpx>");
    }

    void truncatedAnywhereGivesNothing()
    {
        const QByteArray whole = "<?xml version=\"1.0\"?>\n<gpx><trk><name>a</name><trkseg><trkpt lat=\"1\" lon=\"2\">"
                                 "<ele>3</ele></trkpt></trkseg></trk></gpx>";
        for (int length = 0; length < whole.size(); ++length)
            QVERIFY2(!readAsStream(whole.left(length)), whole.left(length).constData());
        QVERIFY(readAsStream(whole));
    }

    void leftToTheDom()
    {
        const QByteArray padding(bytesPerRead - 27, 'x'); // behind which a read ends in the middle of a character
        const KRTestTable<QByteArray> table{
            {"QDom keeps carriage returns", "<gpx><trk><desc>a\r\nb</desc></trk></gpx>"},
            {"in points too", "<gpx><trk><trkseg><trkpt><desc>a\rb</desc></trkpt></trkseg></trk></gpx>"},
            {"QDom is strict in names", "<gpx><a}/></gpx>"},
            {"so others than the usual are left to it", "<gpx><\xC3\xA4/></gpx>"},
            {"of attributes too", "<gpx a}='1'/>"},
            {"and in processing instructions", "<gpx><?a}?></gpx>"},
            {"document type", "<!DOCTYPE gpx><gpx/>"},
            {"entity of its own", "<!DOCTYPE gpx [<!ENTITY e 'a'>]><gpx><trk><name>&e;</name></trk></gpx>"},
            {"undeclared entity", "<gpx><trk><name>&nbsp;</name></trk></gpx>"},
            {"attribute twice", "<gpx a='1' a='2'/>"},
            {"bad UTF-8 with a point in it",
             "<gpx><trk>\n<trkseg><x>" + padding + "</x>\xC3" + spelledPoint + "\xA9</trkseg></trk></gpx>"},
            {"bad UTF-8", "<gpx><trk><name>\xE4</name></trk></gpx>"},
        };
        table.forEach([](const QByteArray &xml) { QVERIFY(!readAsStream(xml).has_value()); });
        // Not what is more than the DOM takes.
        QVERIFY(readAsStream("<gpx><?a?>" + QByteArray("<b/>").repeated(KRInputLimits::nodes) + "</gpx>").has_value());
    }

    void refuses()
    {
        const QString broken = QStringLiteral("Kein lesbares XML");
        const KRTestTable<QByteArray, int, KRText> table{
            {"wrong nesting", "<gpx>\n<trk></gpx>", 2, broken},
            {"text behind the end", "<gpx/>\n\nx", 3, broken},
            {"a level too deep", nestedEnclaves((KRInputLimits::depth - 3) / 2 + 1), 1, "256"},
            {"hundred thousand levels", nestedEnclaves(100000), 1, "256"},
            {"a tag of fifty thousand attributes", "<gpx" + attributes(50000) + "/>", 1, "zu groß"},
            // Seen at the tag behind.
            {"segments", "<gpx><trk>\n" + QByteArray("<trkseg/>").repeated(KRInputLimits::segments + 2), 2, "Segmente"},
            {"tracks", "<gpx>\n" + QByteArray("<trk/>").repeated(KRInputLimits::tracks + 2), 2, "Strecken"},
            {"a name", "<gpx><trk><name>" + QByteArray(KRInputLimits::keptCharacters + 1, 'n') + "</name>", 1,
             "zu lang"},
            {"pieces of a name", "<gpx><trk><name>" + QByteArray("a<!---->").repeated(KRInputLimits::textPieces), 1,
             "zerstückelt"},
            {"points of one text",
             "<gpx><trk><trkseg><compressedPoints>" + QByteArray("1,1 ").repeated(KRInputLimits::textPoints + 1)
                 + "</compressedPoints>",
             1, "Punkte"},
            {"bytes that are no points", "<gpx>" + QByteArray("<!--" + QByteArray(1 << 20, ' ') + "-->").repeated(50),
             1, "zu viel anderen Inhalt"},
            {"many tags of many attributes", "<gpx>\n" + ("<trk" + attributes(1000) + "/>").repeated(200) + "</gpx>", 2,
             "zu viele"},
        };
        table.forEach([](QByteArray xml, int line, const QString &reason) {
            QBuffer buffer(&xml);
            buffer.open(QIODevice::ReadOnly);
            KRGPXStreamReader reader(&buffer);
            QVERIFY(!reader.readTracks([](const KRGPXTrack &) {}));
            QCOMPARE(reader.error().line, line);
            QVERIFY(reader.error().column > 0);
            QVERIFY2(reader.error().reason.contains(reason), qUtf8Printable(reader.error().reason));
        });
    }

private:
    const KRQuietFiles m_quiet;
};

template class KRTestRegistration<tst_KRGPXStreamReader>;

#include "tst_KRGPXStreamReader.moc"
