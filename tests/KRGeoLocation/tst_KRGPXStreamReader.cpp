#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXStreamReader.h>

#include "KRTestRegistry.h"
#include "KRTestXml.h"

#include <KRCore/KRXMLLoader.h>

#include <QBuffer>
#include <QDir>
#include <QDomElement>
#include <QLoggingCategory>
#include <QtTest>

#include <optional>

namespace {

/// The points with every digit and every property of their times, which comparing tracks forgives.
QString exactTextOf(const KRGPXTrackSegment &segment)
{
    QString text = QStringLiteral("{");
    for (const KRGPXTrackPoint &point : segment.trackPoints()) {
        const QDateTime time = point.timeStamp();
        text += QString::number(point.position().latitude().decimalDegrees(), 'g', 17) + QLatin1Char(' ')
                + QString::number(point.position().longitude().decimalDegrees(), 'g', 17) + QLatin1Char(' ')
                + QString::number(point.elevation()) + QLatin1Char(' ')
                + (time.isValid() ? QString::number(time.toMSecsSinceEpoch()) : QStringLiteral("never"))
                + QLatin1Char(' ') + QString::number(time.timeSpec()) + QLatin1Char(' ')
                + QString::number(time.offsetFromUtc()) + QLatin1Char(' ') + point.description() + QLatin1Char('\n');
    }
    return text + QLatin1Char('}');
}

QString exactTextOf(const QList<KRGPXTrack> &tracks)
{
    QString text;
    for (const KRGPXTrack &track : tracks) {
        text += QLatin1Char('[') + track.name() + QLatin1Char('|') + track.description() + QLatin1Char('|')
                + QString::number(track.shape().value());
        for (const KRGPXTrackSegment &segment : track.segments())
            text += exactTextOf(segment);
        text += QLatin1Char('(') + exactTextOf(track.enclaves()) + QStringLiteral(")]");
    }
    return text;
}

/// Nothing when the document cannot be read as a stream, or should not because a DOM may read otherwise.
std::optional<QString> readAsStream(QByteArray xml)
{
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    KRGPXStreamReader reader(&buffer);
    QList<KRGPXTrack> tracks;
    if (!reader.readTracks([&](const KRGPXTrack &track) { tracks.append(track); }) || reader.isDomPreferable())
        return std::nullopt;
    return exactTextOf(tracks);
}

std::optional<QString> readAsDom(const QByteArray &xml)
{
    const QDomElement root = KRXMLLoader::parseDocumentElement(xml, QStringLiteral("test"));
    if (root.isNull())
        return std::nullopt;
    QList<KRGPXTrack> tracks;
    for (QDomElement child = root.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() == QStringLiteral("trk"))
            tracks.append(KRGPXTrack(child, QDir(QString())));
    }
    return exactTextOf(tracks);
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

/// Makes documents of everything that tracks are made of, much of it wrong; the same ones for the same seed.
class DocumentMaker
{
public:
    explicit DocumentMaker(quint32 seed) : m_random(seed) { }

    QByteArray document()
    {
        const QByteArray body = sequence(4, [this] { return track(0); });
        return anyOf({"", "", "<?xml version=\"1.0\"?>\n", "<?xml version='1.0' encoding='ISO-8859-1'?>",
                      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>", "<!-- c -->"})
               + element(anyOf({"gpx", "gpx", "includedTrack", "g:gpx"}), body) + anyOf({"", "\n", "<!-- end -->"});
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
            return xml.insert(place, anyOf({"<", ">", "&", "\"", "<!--", "]]>", "<![CDATA[", "&#1;", "&nbsp;", "<a>",
                                            "</trk>", "\xFF", "\x01", "=", "--", "<?p?>", "<!DOCTYPE gpx>"}));
        }
    }

    QByteArray wholePlainPoints(int count)
    {
        QByteArray points;
        for (; count > 0; --count)
            points += "<trkpt lat=\"" + QByteArray::number(m_random.bounded(90.0), 'f', 7) + "\" lon=\""
                      + QByteArray::number(m_random.bounded(180.0), 'f', 15) + "\"><ele>" + number() + "</ele><time>"
                      + time() + "</time></trkpt>\n";
        return points;
    }

private:
    int below(int limit) { return m_random.bounded(limit); }
    QByteArray anyOf(const QList<QByteArray> &texts) { return texts.at(below(texts.size())); }

    template <typename Maker>
    QByteArray sequence(int limit, const Maker &maker)
    {
        QByteArray text;
        for (int count = below(limit); count > 0; --count)
            text += below(6) == 0 ? between() : maker();
        return text;
    }

    QByteArray between() { return anyOf({" ", "\n\t", "\r\n", "<!-- c -->", "x", "<![CDATA[ ]]>", "&#32;", "<wpt/>"}); }

    QByteArray element(const QByteArray &name, const QByteArray &body)
    {
        const QByteArray tag = name + anyOf({"", "", "", " ", " a=\"1\"", " x:y='&amp;>'", " xmlns=\"u\""});
        return body.isEmpty() && below(2) == 0 ? "<" + tag + "/>" : "<" + tag + ">" + body + "</" + name + ">";
    }

    QByteArray text()
    {
        QByteArray result;
        for (int count = below(5); count > 0; --count)
            result += anyOf({"a",
                             " ",
                             "\n",
                             "\r\n",
                             "\t",
                             "&amp;",
                             "&#10;",
                             "&#13;",
                             "&#xa0;",
                             "\xC3\xA4",
                             "\xF0\x9F\x98\x80",
                             "<![CDATA[ ]]>",
                             "<![CDATA[<a>&amp;]]>",
                             "<!-- c -->",
                             "<b>bold</b>",
                             "<b> </b>",
                             "<name>n</name>",
                             "]]",
                             ">",
                             "\"",
                             "12.5",
                             "&#x2028;"});
        return result;
    }

    QByteArray number()
    {
        if (below(3) > 0)
            return QByteArray::number(m_random.bounded(360.0) - 180.0, 'f', below(18));
        return anyOf({"0",
                      "-0",
                      "1e2",
                      " 7 ",
                      "nan",
                      "-inf",
                      "1,5",
                      "",
                      "+5",
                      ".5",
                      "5.",
                      "-.5",
                      "-",
                      ".",
                      "1.2.3",
                      "00012",
                      "123456789012345678901234567890123",
                      "0.1234567890123456789",
                      "1e400",
                      "0x10",
                      "5 5"});
    }

    QByteArray time()
    {
        return anyOf({"2024-05-01T12:00:00Z",
                      "2024-05-01T12:00:00Z",
                      " 2024-05-01T12:00:00Z\n",
                      "2024-05-01T12:00:00",
                      "2024-05-01T12:00:00.25Z",
                      "2024-05-01T12:00:00+02:00",
                      "2024-05-01",
                      "2024-13-01T12:00:00Z",
                      "2024-02-30T12:00:00Z",
                      "2024-05-01T24:00:00Z",
                      "2024-05-01T12:00:60Z",
                      "0000-05-01T12:00:00Z",
                      "x024-05-01T12:00:00Z",
                      "2024-05-01T12:0x:00Z",
                      "2024-05-01t12:00:00z",
                      "9999-12-31T23:59:59Z",
                      "0001-01-01T00:00:00Z",
                      "1582-10-10T00:00:00Z",
                      "",
                      "now"});
    }

    QByteArray pointChild()
    {
        switch (below(6)) {
        case 0:
        case 1:
            return element("ele", below(4) == 0 ? text() : number());
        case 2:
        case 3:
            return element("time", below(4) == 0 ? text() : time());
        case 4:
            return element("desc", text());
        default:
            return element("extensions", element("ele", number()));
        }
    }

    QByteArray point()
    {
        const QByteArray latitude = below(8) == 0 ? QByteArray() : " lat=\"" + number() + "\"";
        const QByteArray longitude = below(8) == 0 ? QByteArray() : " lon='" + number() + "'";
        return "<trkpt" + latitude + longitude + ">" + sequence(5, [this] { return pointChild(); }) + "</trkpt>";
    }

    /// As recorders write it, or nearly so.
    QByteArray plainPoint()
    {
        const auto rarely = [&](const QByteArray &usual, const QList<QByteArray> &unusual) {
            return below(30) == 0 ? anyOf(unusual) : usual;
        };
        const auto decimal = [&] {
            return rarely(QByteArray::number(m_random.bounded(180.0), 'f', below(12)), {number()});
        };
        QByteArray point =
            rarely("<trkpt", {"<trkpt ", "<trkpt\n", "<TRKPT"}) + rarely(" lat=\"", {"  lat=\"", " lat='"});
        point += decimal() + rarely("\"", {"'", "\"\t"}) + rarely(" lon=\"", {" lon = \"", " x=\"1\" lon=\""});
        point += decimal() + rarely("\"", {"\" ", "\" lon=\"3\""}) + rarely(">", {"/>", "/ >", ">x"});
        for (int count = below(5); count > 0; --count) {
            switch (below(4)) {
            case 0:
                point +=
                    rarely("<ele>", {"<ele/>", "<ele >", "<ele a=\"1\">"}) + decimal() + rarely("</ele>", {"</ele >"});
                break;
            case 1:
                point += "<time>" + rarely("2024-05-01T12:00:59Z", {time(), text()}) + "</time>";
                break;
            case 2:
                point += "<extensions>" + rarely("<a:b>7</a:b>", {element("x", text()), "<b><c/>]]</b>", "<b></c>"})
                         + rarely("</extensions>", {"</extensions ><desc>d</desc>"});
                break;
            default:
                point += rarely("\n  ", {"\r\n", "<!-- c -->", "&#32;", "\xC3\xA4", "<desc/>"});
            }
        }
        return point + "</trkpt>" + rarely("\n", {"", "x>", "\r\n", "<!-- trkpt>"});
    }

    QByteArray segmentChild()
    {
        switch (below(8)) {
        case 5:
        case 6:
        case 7:
            return sequence(9, [this] { return plainPoint(); });
        case 0:
            return element("compressedPoints",
                           anyOf({"8,53 9,54", "8,53,4,1000\n9,54", "0,0 1,1", " 8,53<!-- c -->,9 1,1",
                                  "8,53<![CDATA[ 9,54]]>", "1,1 <b>2,2</b> 3,3", "\xC2\xA0"}));
        case 1:
            return element("x", point());
        default:
            return point();
        }
    }

    QByteArray trackChild(int depth)
    {
        switch (below(8)) {
        case 0:
            return element("name", text());
        case 1:
            return element("desc", text());
        case 2:
            return element("shape", anyOf({"auto", "polygon", "point,hop", "", " auto", "au<b>to</b>"}));
        case 3:
            return depth > 3 ? QByteArray() : element("enclaves", sequence(3, [&] { return track(depth + 1); }));
        case 4:
            return element(anyOf({"include", "gpx:trkseg", "Name", "trk"}), text());
        default:
            return element("trkseg", sequence(5, [this] { return segmentChild(); }));
        }
    }

    QByteArray track(int depth)
    {
        return element(anyOf({"trk", "trk", "trk", "rte"}), sequence(7, [&] { return trackChild(depth); }));
    }

    QRandomGenerator m_random;
};

} // namespace

class tst_KRGPXStreamReader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }

    void equalsTheDom_data();
    void equalsTheDom();
    void equalsTheDomOnSamples();
    void equalsTheDomOnAnyDocument();
    void equalsTheDomAcrossBlocks();
    void placesOfErrorsDoNotDependOnRuns();
    void numbersEqualTheDom();
    void millisecondsEqualTheDom();
    void truncatedAnywhereGivesNothing();
    void leftToTheDom_data();
    void leftToTheDom();
    void refuses_data();
    void refuses();
};

void tst_KRGPXStreamReader::equalsTheDom_data()
{
    const auto track = [](const QByteArray &body) { return "<gpx><trk>" + body + "</trk></gpx>"; };
    const auto point = [&](const QByteArray &body) { return track("<trkseg><trkpt>" + body + "</trkpt></trkseg>"); };
    const auto plainPoint = [](const QByteArray &text) {
        return "<trkpt lat='53' lon='8'><desc>" + text + "</desc></trkpt>";
    };
    const QByteArray latin = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"
                             + track("<name>Gr\xFC\xDF"
                                     "e</name><trkseg>"
                                     + plainPoint("\xC3\xB6") + plainPoint("\xC3\xB6") + "</trkseg>");
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("no track") << QByteArray("<gpx/>");
    QTest::newRow("only children of the root") << QByteArray("<trk><x><trk/></x><trk><trkseg/></trk><g:trk/></trk>");
    QTest::newRow("the last name wins") << track("<name>a</name><desc>b</desc><name>c</name><desc/>");
    QTest::newRow("the first child of a point wins")
        << point("<ele>1</ele><ele>2</ele><time/><time>2024-05-01T12:00:00Z</time><desc>a</desc><desc>b</desc>");
    QTest::newRow("an unreadable first child wins too") << point("<ele>x</ele><ele>2</ele>");
    QTest::newRow("names in deeper elements") << point("<extensions><ele>1</ele><desc>b</desc></extensions>");
    QTest::newRow("text of all descendants") << track("<name>a<b>b<c>c</c></b><!-- d -->e<![CDATA[<f>]]></name>");
    QTest::newRow("blank text between markup is dropped") << track("<name> <b> b </b> <!-- c --> </name>");
    QTest::newRow("a reference to a blank is no text either") << track("<name>&#32;<b>&#xa0;\xC2\xA0</b></name>");
    QTest::newRow("a blank in CDATA is text") << track("<name><![CDATA[ ]]>a <![CDATA[\t]]></name>");
    QTest::newRow("adjoining CDATA") << track("<name><![CDATA[a]]><![CDATA[]]><![CDATA[ b]]></name>");
    QTest::newRow("entities") << track("<name>&lt;&gt;&amp;&quot;&apos;&#228;&#xE4;&#10;</name>");
    QTest::newRow("references beyond U+FFFF") << track("<name>&#x1F600;&#128512;</name>");
    QTest::newRow("line feeds stay") << track("<name>a\nb\n</name>");
    QTest::newRow("carriage returns between elements") << track("\r\n<name>a</name>\r\n<trkseg>\r</trkseg>\r\n");
    QTest::newRow("attributes on lines of their own") << QByteArray("<gpx\r\n a='1'\r\n b='2'><trk\r/></gpx>");
    QTest::newRow("byte order mark") << "\xEF\xBB\xBF" + track("<name>\xC3\xA4</name>");
    QTest::newRow("declared encoding") << latin;
    QTest::newRow("brackets and characters beyond U+FFFF")
        << track("<trkseg>" + plainPoint("[1] a]] \xF0\x9F\x98\x80\xF4\x8F\xBF\xBD") + "</trkseg>");
    QTest::newRow("UTF-16") << KRTestXml::utf16(QString::fromUtf8(track("<name>\xC3\xA4\xF0\x9F\x98\x80</name>")));
    QTest::newRow("points in a comment") << track("<trkseg><!-- points that do not count, among them a trkpt>"
                                                  + spelledPoint + " --></trkseg>");
    QTest::newRow("points in CDATA") << track("<trkseg><![CDATA[ points that do not count, among them a trkpt>"
                                              + spelledPoint + "]]></trkseg>");
    QTest::newRow("bytes of characters that spell a point")
        << KRTestXml::utf16BigEndian(QStringLiteral("<gpx>") + QString(bytesPerRead / 2 - 18, QLatin1Char(' '))
                                     + QStringLiteral("<trk><trkseg>"))
               + spelledPoint + KRTestXml::utf16BigEndian(QStringLiteral("</trkseg></trk></gpx>"));
    QTest::newRow("compressed points with markup inside")
        << track("<trkseg><compressedPoints>8,53<!-- c -->4 9,<b>54</b>\n<![CDATA[ 1,1]]></compressedPoints></trkseg>");
    QTest::newRow("mixed points") << track("<trkseg><trkpt/><compressedPoints>1,1</compressedPoints><trkpt/></trkseg>");
    QTest::newRow("includes are ignored") << track("<include>/etc/hostname</include><trkseg/>");
    QTest::newRow("shape behind the points") << track("<trkseg><trkpt/></trkseg><shape>auto</shape>");
    QTest::newRow("enclaves within enclaves") << nestedEnclaves(5);
    QTest::newRow("as deep as allowed") << nestedEnclaves((KRInputLimits::depth - 3) / 2);
    QTest::newRow("many attributes") << "<gpx" + attributes(2000) + "><trk><trkseg/></trk></gpx>";
    QTest::newRow("a text of many blocks") << track("<desc>" + QByteArray(300000, 'x') + "\"</desc>");
    QTest::newRow("time with an offset") << point("<time> 2024-05-01T12:00:00-03:30\n</time>");
    QTest::newRow("local time") << point("<time>2024-05-01T12:00:00</time>");
}

void tst_KRGPXStreamReader::equalsTheDom()
{
    QFETCH(QByteArray, xml);
    const std::optional<QString> asStream = readAsStream(xml);
    const std::optional<QString> asDom = readAsDom(xml);
    QVERIFY(asStream.has_value());
    QVERIFY(asDom.has_value());
    QCOMPARE(*asStream, *asDom);
}

void tst_KRGPXStreamReader::equalsTheDomOnSamples()
{
    const QFileInfoList files =
        QDir(QStringLiteral(KR_SAMPLES_DIR)).entryInfoList({QStringLiteral("*.gpx")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo &info : files) {
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray xml = file.readAll();
        QVERIFY2(readAsStream(xml) && readAsStream(xml) == readAsDom(xml), qUtf8Printable(info.fileName()));
    }
}

void tst_KRGPXStreamReader::equalsTheDomOnAnyDocument()
{
    DocumentMaker maker(20240501);
    int readDocuments = 0;
    int refusedDocuments = 0;
    for (int i = 0; i < 800; ++i) {
        QByteArray xml = maker.document();
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

void tst_KRGPXStreamReader::equalsTheDomAcrossBlocks()
{
    DocumentMaker maker(20241121);
    QByteArray body;
    while (body.size() < 600000)
        body += maker.wholePlainPoints(500) + "<trkpt lat='1' lon='2'/>";
    const QByteArray xml = "<gpx><trk><trkseg>" + body + "</trkseg></trk></gpx>";
    const std::optional<QString> asStream = readAsStream(xml);
    QVERIFY(asStream.has_value());
    QVERIFY(asStream == readAsDom(xml));
}

void tst_KRGPXStreamReader::placesOfErrorsDoNotDependOnRuns()
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

void tst_KRGPXStreamReader::millisecondsEqualTheDom()
{
    QByteArray xml = "<gpx><trk><trkseg>";
    for (int i = 0; i < 1000; ++i)
        xml += "<trkpt lat=\"1\" lon=\"2\"><time>1969-12-31T23:59:59." + QByteArray::number(1000 + i).mid(1)
               + "Z</time></trkpt>";
    xml += "</trkseg></trk></gpx>";
    QCOMPARE(readAsStream(xml), readAsDom(xml));
}

void tst_KRGPXStreamReader::numbersEqualTheDom()
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
    xml += "</trkseg></trk></gpx>";
    const std::optional<QString> asStream = readAsStream(xml);
    QVERIFY(asStream.has_value());
    QVERIFY(asStream == readAsDom(xml));
}

void tst_KRGPXStreamReader::truncatedAnywhereGivesNothing()
{
    const QByteArray whole = "<?xml version=\"1.0\"?>\n<gpx><trk><name>a</name><trkseg><trkpt lat=\"1\" lon=\"2\">"
                             "<ele>3</ele></trkpt></trkseg></trk></gpx>";
    for (int length = 0; length < whole.size(); ++length)
        QVERIFY2(!readAsStream(whole.left(length)), whole.left(length).constData());
    QVERIFY(readAsStream(whole));
}

void tst_KRGPXStreamReader::leftToTheDom_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("QDom keeps carriage returns") << QByteArray("<gpx><trk><desc>a\r\nb</desc></trk></gpx>");
    QTest::newRow("in points too") << QByteArray(
        "<gpx><trk><trkseg><trkpt><desc>a\rb</desc></trkpt></trkseg></trk></gpx>");
    QTest::newRow("QDom is strict in names") << QByteArray("<gpx><a}/></gpx>");
    QTest::newRow("of attributes too") << QByteArray("<gpx a}='1'/>");
    QTest::newRow("and in processing instructions") << QByteArray("<gpx><?a}?></gpx>");
    QTest::newRow("document type") << QByteArray("<!DOCTYPE gpx><gpx/>");
    QTest::newRow("entity of its own") << QByteArray(
        "<!DOCTYPE gpx [<!ENTITY e 'a'>]><gpx><trk><name>&e;</name></trk></gpx>");
    QTest::newRow("undeclared entity") << QByteArray("<gpx><trk><name>&nbsp;</name></trk></gpx>");
    QTest::newRow("attribute twice") << QByteArray("<gpx a='1' a='2'/>");
    const QByteArray padding(bytesPerRead - 27, 'x'); // behind which a read ends in the middle of a character
    QTest::newRow("bad UTF-8 with a point in it")
        << "<gpx><trk>\n<trkseg><x>" + padding + "</x>\xC3" + spelledPoint + "\xA9</trkseg></trk></gpx>";
    QTest::newRow("bad UTF-8") << QByteArray("<gpx><trk><name>\xE4</name></trk></gpx>");
}

void tst_KRGPXStreamReader::leftToTheDom()
{
    QFETCH(QByteArray, xml);
    QVERIFY(!readAsStream(xml).has_value());
}

void tst_KRGPXStreamReader::refuses_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    QTest::newRow("wrong nesting") << QByteArray("<gpx>\n<trk></gpx>") << 2 << QStringLiteral("Kein lesbares XML");
    QTest::newRow("text behind the end") << QByteArray("<gpx/>\n\nx") << 3 << QStringLiteral("Kein lesbares XML");
    QTest::newRow("a level too deep") << nestedEnclaves((KRInputLimits::depth - 3) / 2 + 1) << 1
                                      << QStringLiteral("256");
    QTest::newRow("hundred thousand levels") << nestedEnclaves(100000) << 1 << QStringLiteral("256");
    QTest::newRow("a tag of fifty thousand attributes")
        << "<gpx" + attributes(50000) + "/>" << 1 << QStringLiteral("zu groß");
    QTest::newRow("many tags of many attributes")
        << "<gpx>\n" + ("<trk" + attributes(1000) + "/>").repeated(200) + "</gpx>" << 2 << QStringLiteral("zu viele");
}

void tst_KRGPXStreamReader::refuses()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, reason);
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    KRGPXStreamReader reader(&buffer);
    QVERIFY(!reader.readTracks([](const KRGPXTrack &) {}));
    QTEST(reader.error().line, "line");
    QVERIFY(reader.error().column > 0);
    QVERIFY2(reader.error().reason.contains(reason), qUtf8Printable(reader.error().reason));
}

static const KRTestRegistration<tst_KRGPXStreamReader> registration;

#include "tst_KRGPXStreamReader.moc"
