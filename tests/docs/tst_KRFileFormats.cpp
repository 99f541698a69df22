#include "KRExchangeFile.h"
#include "KRFencedBlocks.h"
#include "KRRouteDocument.h"
#include "KRRouteImport.h"
#include "KRTemporarySettings.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTestTrack.h"
#include "KRTestXml.h"

#include <KRCore/KRZIP.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>
#include <KRXML/KRXMLBuilder.h>

#include <functional>

/**
 * Reads every example in docs/file-formats.md and compares what comes of it with what the page says.
 *
 * The first mark of an example is its kind. Blocks "text result" behind it say what it is read as, line by line;
 * those with the mark "library" hold for the library's importers, others for the programs' import where both read
 * the kind. The mark "written" says that writing gives the very example again.
 */
class tst_KRFileFormats : public QObject
{
    Q_OBJECT

private slots:
    void examples_data();
    void examples();
};

namespace {

using KRTestTrack::noDir;
using Facts = QMap<QString, QString>;

Facts factsOf(const KRGPXConfiguredTrackList &tracks)
{
    QMap<QString, QStringList> columns;
    for (const KRGPXConfiguredTrack &configured : tracks) {
        const KRGPXTrack track = configured.track();
        const KRGPXTrackConfiguration look = configured.configuration();
        const KRGPXTrackSegment segment = track.segments().value(0);
        const KRGPXTrackPoint first = segment.isValid() ? segment.trackPoint(0) : KRGPXTrackPoint();
        const auto add = [&](const char *column, const QString &text) { columns[QLatin1String(column)].append(text); };
        add("name", track.name());
        add("description", track.description());
        add("shape", configured.effectiveShape().keys());
        add("segments", QString::number(track.segments().size()));
        add("points", QString::number(track.countPoints()));
        add("enclaves", QString::number(track.enclaves().size()));
        add("first point", first.position().toString(false));
        add("first elevation", QString::number(first.elevation()));
        const QString time = first.timeStamp().toUTC().toString(Qt::ISODateWithMs);
        add("first time", time.isEmpty() ? QStringLiteral("none") : time);
        add("first note", first.description());
        add("line", look.lineColor().name(QColor::HexArgb));
        add("line width", QString::number(look.lineWidth().toDouble()));
        add("fill", look.fillColor().name(QColor::HexArgb));
        add("halo width", QString::number(look.haloWidth().toDouble()));
        add("display options", look.currentDisplayOptions().keys());
        add("marker", look.markerShape().keys());
        add("pen style", QString::number(look.penStyle().number()));
        add("smoothing", QString::number(look.smoothingStrength()));
        add("smoothing steps", QString::number(look.smoothingSteps()));
    }
    Facts facts{{QStringLiteral("tracks"), QString::number(tracks.size())}};
    for (auto column = columns.cbegin(); column != columns.cend(); ++column)
        facts.insert(column.key(), column->join(QStringLiteral("; ")));
    return facts;
}

Facts factsOf(const KRGPXTrack &track)
{
    return factsOf(KRGPXConfiguredTrackList(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration())));
}

Facts factsOf(const KRGPXTrackConfiguration &look)
{
    Facts facts = factsOf(KRGPXConfiguredTrackList(KRGPXConfiguredTrack(KRGPXTrack(), look)));
    facts.insert(QStringLiteral("shape"), look.trackShape().keys());
    return facts;
}

Facts factsOf(const KRGPXTrackSelection &selection)
{
    Facts facts = factsOf(selection.tracks());
    facts.insert(QStringLiteral("cropping opacity"), QString::number(selection.nominalCroppingOpacity()));
    return facts;
}

KRGPXTrackSelection selectionOf(const KRRouteImport &import)
{
    KRGPXTrackSelection selection(import.tracks());
    selection.setCroppingOpacity(import.croppingOpacity());
    return selection;
}

Facts importedByPrograms(const QString &fileName)
{
    KRRouteImport import;
    import.read({fileName});
    Facts facts = factsOf(selectionOf(import));
    QStringList notDrawn;
    for (const KRImportReport &report : import.reports()) {
        for (const KRImportReport::Kind kind : report.kinds())
            notDrawn.append(QStringLiteral("%1 %2").arg(report.count(kind)).arg(KRImportReport::key(kind)));
    }
    facts.insert(QStringLiteral("not drawn"), notDrawn.join(QStringLiteral(", ")));
    QStringList problems;
    for (const KRErrorHistory::Entry &entry : import.problems().entries())
        problems.append(entry.reason);
    facts.insert(QStringLiteral("problems"), problems.join(QStringLiteral(", ")));
    return facts;
}

Facts importedByLibrary(const QString &fileName)
{
    return factsOf(KRTrackSelectionFactory::instance()->createConfiguredTrackList(QUrl::fromLocalFile(fileName)));
}

Facts rangesOf(const QString &text)
{
    const KRGeoPositionRect rect = KRGeoPositionRect::parse(QUrlQuery(text.trimmed()));
    return {{QStringLiteral("area"), rect.toString(false)},
            {QStringLiteral("crosses the date line"),
             rect.longitudeRange().crossesDateLine() ? QStringLiteral("yes") : QStringLiteral("no")}};
}

Facts settingsOf(const QString &fileName)
{
    KRSettings::setFileName(fileName);
    KRGeoLocationSettings settings;
    settings.loadSettings();
    Facts facts = factsOf(settings.defaultTrackConfiguration());
    facts.insert(QStringLiteral("instantlyAddLocations"),
                 settings.instantlyAddLocations() ? QStringLiteral("true") : QStringLiteral("false"));
    return facts;
}

/// The text without what XML declarations and indentation make of it.
QString canonical(const QString &xml)
{
    QDomDocument document;
    return document.setContent(xml) ? KRXMLBuilder::toText(document, 1) : QString();
}

/// What @p write appends to a new root element with the name that the example has.
QString written(const QString &rootName, const std::function<void(QDomElement &)> &write)
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, rootName);
    write(root);
    return KRXMLBuilder::toText(document, 1);
}

/// One example, in a directory of its own, with everything that the page says about it.
class Example
{
public:
    Example(const QList<KRFencedBlock> &page, int index) : m_block(page.at(index))
    {
        for (const KRFencedBlock &block : page.mid(0, index)) {
            if (block.properties.contains(QStringLiteral("file")))
                save(block.properties.value(QStringLiteral("file")), block.text.toUtf8());
        }
    }

    Facts read(bool byLibrary)
    {
        const QByteArray text = m_block.text.toUtf8();
        const QDomElement element = KRTestXml::element(text);
        const QMap<QString, std::function<Facts()>> readers{
            {QStringLiteral("configuration"), [&] { return factsOf(KRGPXTrackConfiguration::fromXml(element)); }},
            {QStringLiteral("configuredTrack"),
             [&] { return factsOf(KRGPXConfiguredTrackList(KRGPXConfiguredTrack(element, noDir))); }},
            {QStringLiteral("selection"), [&] { return factsOf(KRGPXTrackSelection(element, noDir)); }},
            {QStringLiteral("track"), [&] { return factsOf(KRGPXTrack(element, noDir)); }},
            {QStringLiteral("includedTrack"),
             [&] { return factsOf(KRGPXTrackFile(QFileInfo(save(QStringLiteral("a.gps"), text))).tracks().value(0)); }},
            {QStringLiteral("comma-text"),
             [&] { return factsOf(KRTestTrack::track(m_block.text, LineStringTrackShape, QString())); }},
            {QStringLiteral("settings"), [&] { return settingsOf(save(QStringLiteral("settings.ini"), text)); }},
            {QStringLiteral("area"), [&] { return rangesOf(m_block.text); }},
        };
        const QString kind = m_block.marks.value(0);
        if (readers.contains(kind))
            return readers.value(kind)();
        const QString suffix = kind == QLatin1String("document") ? KRRouteDocument::suffix() : kind;
        const QString fileName = save(QStringLiteral("Ausflug.") + suffix, text);
        return byLibrary ? importedByLibrary(fileName) : importedByPrograms(fileName);
    }

    /// The example in an archive.
    Facts readPacked(bool byLibrary)
    {
        const QByteArray archive = KRZIP::pack(QStringLiteral("doc.kml"), m_block.text.toUtf8());
        const QString fileName = save(QStringLiteral("Ausflug.kmz"), archive);
        return byLibrary ? importedByLibrary(fileName) : importedByPrograms(fileName);
    }

    /// The example as it is written from what was read.
    QString write()
    {
        const QString kind = m_block.marks.value(0);
        const QDomElement element = KRTestXml::element(m_block.text.toUtf8());
        const QString root = element.tagName();
        if (kind == QLatin1String("configuration"))
            return written(root, [&](QDomElement &e) { KRGPXTrackConfiguration::fromXml(element).toXml(e); });
        if (kind == QLatin1String("selection"))
            return written(root, [&](QDomElement &e) { KRGPXTrackSelection(element, noDir).toXml(e, noDir); });
        if (kind == QLatin1String("configuredTrack"))
            return inside([&](QDomElement &e) { KRGPXConfiguredTrack(element, noDir).toXml(e, root, noDir); });
        if (kind == QLatin1String("track"))
            return inside([&](QDomElement &e) { KRGPXTrack(element, noDir).toXml(e, noDir); });
        KRRouteImport import;
        const QString suffix = kind == QLatin1String("document") ? KRRouteDocument::suffix() : kind;
        import.read({save(QStringLiteral("Ausflug.") + suffix, m_block.text.toUtf8())});
        if (kind == QLatin1String("document"))
            return savedDocument(selectionOf(import));
        return canonical(QString::fromUtf8(
            KRExchangeFile::encode(import.tracks(), kind.toLatin1(), QStringLiteral("Ausflug"), nullptr)));
    }

    QString place() const { return m_block.place(); }
    QString example() const { return canonical(m_block.text); }

private:
    QString save(const QString &name, const QByteArray &content)
    {
        return KRTestFile::write(m_dir.filePath(name), content);
    }

    static QString inside(const std::function<void(QDomElement &)> &write)
    {
        QDomDocument document;
        document.setContent(written(QStringLiteral("parent"), write));
        QDomDocument child;
        child.appendChild(child.importNode(document.documentElement().firstChildElement(), true));
        return KRXMLBuilder::toText(child, 1);
    }

    QString savedDocument(const KRGPXTrackSelection &selection)
    {
        const QFileInfo file(m_dir.filePath(QStringLiteral("Ausflug.krroute")));
        KRRouteDocument document;
        document.setSelection(selection);
        const bool hasFolder = m_block.text.contains(QLatin1String("folder="));
        const bool isSaved = hasFolder ? document.save(file, nullptr) : document.saveInOneFile(file, nullptr);
        return isSaved ? canonical(QString::fromUtf8(KRTestFile::content(file.filePath()))) : QString();
    }

    QTemporaryDir m_dir;
    KRFencedBlock m_block;
    KRTemporarySettings m_settings;
};

const QList<KRFencedBlock> &page()
{
    static const QList<KRFencedBlock> blocks = fencedBlocksOf(QStringLiteral(KR_DOCS_DIR "/file-formats.md"));
    return blocks;
}

bool isResult(const KRFencedBlock &block)
{
    return block.hasMark(QStringLiteral("result"));
}

void compare(const Facts &facts, const KRFencedBlock &result)
{
    const QStringList lines = result.text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QVERIFY2(!lines.isEmpty(), qPrintable(result.place()));
    for (const QString &line : lines) {
        const QString key = line.section(QLatin1Char(':'), 0, 0);
        QVERIFY2(facts.contains(key), qPrintable(result.place() + QLatin1String(": ") + key));
        const QString stated = line.section(QLatin1Char(':'), 1).trimmed();
        const QString fact = facts.value(key).trimmed();
        QVERIFY2(fact == stated, qPrintable(QStringLiteral("%1: %2 is \"%3\"").arg(result.place(), key, fact)));
    }
}

} // namespace

void tst_KRFileFormats::examples_data()
{
    QTest::addColumn<int>("index");
    QVERIFY(!page().isEmpty());
    for (int i = 0; i < page().size(); ++i) {
        if (!isResult(page().at(i)) && !page().at(i).marks.isEmpty())
            QTest::newRow(qPrintable(page().at(i).place())) << i;
    }
}

void tst_KRFileFormats::examples()
{
    QFETCH(int, index);
    const KRFencedBlock &block = page().at(index);

    Example example(page(), index);
    if (block.hasMark(QStringLiteral("written")))
        QCOMPARE(example.write(), example.example());
    int results = 0;
    for (int i = index + 1; i < page().size() && isResult(page().at(i)); ++i, ++results) {
        const bool byLibrary = page().at(i).hasMark(QStringLiteral("library"));
        compare(example.read(byLibrary), page().at(i));
        if (block.marks.value(0) == QLatin1String("kml") && !QTest::currentTestFailed())
            compare(example.readPacked(byLibrary), page().at(i));
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY2(results > 0 || block.hasMark(QStringLiteral("written")), "an example without a result");
}

template class KRTestRegistration<tst_KRFileFormats>;

#include "tst_KRFileFormats.moc"
