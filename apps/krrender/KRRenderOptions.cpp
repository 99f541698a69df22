#include "KRRenderOptions.h"

#include "KRExchangeFile.h"
#include "KRFileName.h"
#include "KRInputGuard.h"
#include "KRMapArea.h"
#include "KRPictureFile.h"
#include "KRRouteDocument.h"
#include "KRSamplePlaces.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

/// An option with its names, the name of its value (empty for a mere switch) and its description.
struct OptionText {
    const char *names;
    const char *value;
    const char *description;
};

constexpr OptionText optionTexts[] = {
    {"o,output", "FILE",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Bilddatei: PNG, JPEG, WebP, SVG oder PDF nach der Endung; „-“ schreibt PNG auf die "
                       "Standardausgabe. Ohne Angabe steht das Bild mit dem Namen der ersten Datei im aktuellen "
                       "Ordner. Mit der Endung gpx, kml oder kmz werden statt eines Bildes die Routen geschrieben, so "
                       "dass andere Programme sie lesen.")},
    {"format", "NAME",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Format der Ausgabe, unabhängig von der Endung: png, jpeg, webp, svg, pdf, gpx, kml oder kmz; "
                       "auch mit „-“.")},
    {"save", "DOCUMENT",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Speichert die Routen mit ihrem Aussehen als Routendokument (.krroute), ihre Punkte in einem "
                       "Ordner daneben.")},
    {"size", "WxH", QT_TRANSLATE_NOOP("KRRenderOptions", "Größe des Bildes in Pixeln (1600x1200).")},
    {"scale", "FACTOR",
     QT_TRANSLATE_NOOP("KRRenderOptions", "Vergrößert Linien und Schrift, zum Beispiel 2 für hohe Auflösung.")},
    {"area", "NW .. SE",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Ausschnitt von der Nordwest- zur Südostecke, zum Beispiel „N53.5 E8.0 .. N53.0 E9.0“. Ohne "
                       "Angabe der, in dem die Routen liegen.")},
    {"beeline", "FROM .. TO",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Zeichnet die Fluglinie zwischen zwei Orten, zum Beispiel „Oldenburg .. Sydney“ oder „N53.1 "
                       "E8.2 .. S33.9 E151.2“; auch mehrmals.")},
    {"plain", "",
     QT_TRANSLATE_NOOP(
         "KRRenderOptions",
         "Liest aus GPX nur Aufzeichnungen (trk) und aus KML nur einfache Ortsmarken, ohne zu sagen, was fehlt.")},
    {"split-segments", "",
     QT_TRANSLATE_NOOP("KRRenderOptions", "Macht jedes Segment zu einer eigenen Route, ohne Linie über die Pausen.")},
    {"strict", "",
     QT_TRANSLATE_NOOP("KRRenderOptions", "Endet mit 1, wenn etwas in einer Datei nicht gezeichnet werden kann.")},
    {"patient", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Zeichnet auch Routen, für die das Bild sehr lange dauert.")},
    {"line-color", "COLOR", QT_TRANSLATE_NOOP("KRRenderOptions", "Linienfarbe: #RRGGBB, #AARRGGBB oder ein Name.")},
    {"line-width", "PIXELS", QT_TRANSLATE_NOOP("KRRenderOptions", "Linienbreite in Pixeln.")},
    {"fill-color", "COLOR", QT_TRANSLATE_NOOP("KRRenderOptions", "Füllfarbe von Flächen und Markern.")},
    {"palette", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Gibt jeder Route eine eigene, gut unterscheidbare Farbe.")},
    {"halo", "PIXELS", QT_TRANSLATE_NOOP("KRRenderOptions", "Breite des Hofes um die Linien in Pixeln, 0 für keinen.")},
    {"marker", "NAME",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Marker für Punkte: disk, circle, x, block, rhombus, star6, star9, star12; arrow für Pfeile an "
                       "Strecken.")},
    {"shape", "NAME", QT_TRANSLATE_NOOP("KRRenderOptions", "Form: auto, point, linestring, polygon oder hop.")},
    {"display", "NAMES",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Was von Flächen und Markern gezeichnet wird: stroke, fill oder stroke,fill.")},
    {"pen-style", "NAME",
     QT_TRANSLATE_NOOP("KRRenderOptions", "Linienart: solid, dash, dot, dashdot oder dashdotdot.")},
    {"smoothing", "STRENGTH[,STEPS]",
     QT_TRANSLATE_NOOP("KRRenderOptions",
                       "Glättet Strecken: Stärke von 100 (gar nicht) bis 0 (ganz gerade), nach einem Komma die Zahl "
                       "der Abschnitte.")},
    {"render", "NAME", QT_TRANSLATE_NOOP("KRRenderOptions", "Zeichenart: styled, opaque oder halo.")},
    {"crop", "OPACITY", QT_TRANSLATE_NOOP("KRRenderOptions", "Deckkraft der Karte außerhalb der Routen, 0 bis 255.")},
    {"map", "FILE", QT_TRANSLATE_NOOP("KRRenderOptions", "Ein Bild als Karte des Ausschnitts.")},
    {"tiles", "SOURCE",
     QT_TRANSLATE_NOOP(
         "KRRenderOptions",
         "Eine Karte aus Kacheln: eine MBTiles-Datei, ein Ordner mit Stufe/Spalte/Zeile oder eine Adresse "
         "mit {z}, {x} und {y}. Nur mit einer Adresse wird etwas aus dem Netz geladen.")},
    {"tiles-credit", "TEXT",
     QT_TRANSLATE_NOOP("KRRenderOptions", "Quellenangabe der Kacheln, anstatt der in der MBTiles-Datei.")},
    {"no-map", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Keine Karte, durchsichtiger Grund.")},
    {"legend", "",
     QT_TRANSLATE_NOOP("KRRenderOptions", "Nennt die Routen mit ihrem Aussehen in einem Kasten oben rechts.")},
    {"labels", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Schreibt die Namen der Routen neben ihre Linien.")},
    {"no-scale-bar", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Kein Maßstab auf der Karte.")},
    {"no-attribution", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Keine Quellenangabe auf der Karte.")},
    {"list", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Gibt eine Tabelle der Routen aus, statt zu zeichnen.")},
    {"json", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Gibt dasselbe als JSON aus.")},
    {"places", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Nennt die Orte, die mit Namen bekannt sind.")},
    {"quiet", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Meldet nur Fehler.")},
    {"verbose", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Meldet jeden Schritt.")},
    {"h,help", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Zeigt diese Hilfe.")},
    {"v,version", "", QT_TRANSLATE_NOOP("KRRenderOptions", "Zeigt die Version.")},
};

constexpr double smallestScale = 0.05; // lines and letters of a twentieth can no longer be told apart
constexpr double largestScale = 20.0;

/// What "-o" writes, as suffixes.
QString formatNames()
{
    QStringList names;
    for (const QByteArray &format : KRPictureFile::formats() + KRExchangeFile::formats())
        names.append(QString::fromLatin1(format));
    return names.join(QStringLiteral(", "));
}

/// Width and height out of "1600x1200"; not set when it is nothing of the kind.
std::optional<QSize> readSize(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})[xX×](\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const int largestSide = KRPictureFile::largestSidePx;
    if (!match.hasMatch() || size.isEmpty() || size.width() > largestSide || size.height() > largestSide)
        return std::nullopt;
    return size;
}

} // namespace

KRRenderOptions::KRRenderOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    declare(parser);
    const bool isParsed = parser.parse(arguments);
    m_helpText = parser.helpText();
    if (!isParsed) {
        complain(parser.errorText());
        return;
    }
    for (const QString &argument : parser.positionalArguments())
        m_inputs.append(KRFileName::ofText(argument));
    m_isPlain = parser.isSet(QStringLiteral("plain"));
    m_splitsSegments = parser.isSet(QStringLiteral("split-segments"));
    m_isStrict = parser.isSet(QStringLiteral("strict"));
    m_isPatient = parser.isSet(QStringLiteral("patient"));
    m_isQuiet = parser.isSet(QStringLiteral("quiet"));
    m_isVerbose = parser.isSet(QStringLiteral("verbose"));
    readTask(parser);
    if (m_task == Task::PrintHelp || m_task == Task::PrintVersion || m_task == Task::PrintPlaces)
        return;
    refuseValues(parser, arguments);
    m_usesPalette = parser.isSet(QStringLiteral("palette"));
    readBeelines(parser.values(QStringLiteral("beeline")));
    if (m_inputs.isEmpty() && m_beelines.isEmpty())
        complain(tr("Es fehlt eine Datei."));
    readLook(parser);
    readPicture(parser);
    if (m_task == Task::Draw)
        readOutput(parser);
    else if (parser.isSet(QStringLiteral("output")) || parser.isSet(QStringLiteral("save")))
        complain(tr("--list und --json schreiben keine Datei; „-o“ und „--save“ gehören nicht dazu."));
}

void KRRenderOptions::declare(QCommandLineParser &parser)
{
    parser.setApplicationDescription(tr("Zeichnet Routen auf eine Landkarte."));
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 tr("Routen (GPX, KML, KMZ oder ein Routendokument), eine oder mehrere."),
                                 QStringLiteral("FILE..."));
    for (const OptionText &option : optionTexts) {
        const QStringList names = QString::fromLatin1(option.names).split(QLatin1Char(','));
        parser.addOption(QCommandLineOption(names, tr(option.description), QString::fromLatin1(option.value)));
    }
}

void KRRenderOptions::readTask(const QCommandLineParser &parser)
{
    if (parser.isSet(QStringLiteral("help")))
        m_task = Task::PrintHelp;
    else if (parser.isSet(QStringLiteral("version")))
        m_task = Task::PrintVersion;
    else if (parser.isSet(QStringLiteral("places")))
        m_task = Task::PrintPlaces;
    else if (parser.isSet(QStringLiteral("json")))
        m_task = Task::PrintJson;
    else if (parser.isSet(QStringLiteral("list")))
        m_task = Task::PrintTable;
}

void KRRenderOptions::refuseValues(const QCommandLineParser &parser, const QStringList &arguments)
{
    // Qt puts this character where bytes are no text; it would stand in the name of a file. Some names do have it.
    for (const QString &argument : arguments) {
        if (argument.contains(QChar::ReplacementCharacter) && !QFileInfo::exists(argument))
            complain(tr("„%1“ ist kein gültiges UTF-8.").arg(argument));
    }
    if (parser.positionalArguments().contains(QString()))
        complain(tr("Der Name einer Datei ist leer."));
    for (const OptionText &option : optionTexts) {
        const QString name = QString::fromLatin1(option.names).section(QLatin1Char(','), -1);
        if (*option.value != '\0' && parser.values(name).contains(QString()))
            complain(tr("--%1 braucht eine Angabe.").arg(name));
        if (parser.values(name).size() > 1 && name != QLatin1String("beeline"))
            complain(tr("--%1 kann nur einmal angegeben werden.").arg(name));
    }
}

void KRRenderOptions::readBeelines(const QStringList &texts)
{
    static const QRegularExpression separator(QStringLiteral("\\s*\\.\\.\\s*"));
    for (const QString &text : texts) {
        const QStringList ends = text.split(separator);
        const KRBaseMapPlace from = KRSamplePlaces::find(ends.first());
        const KRBaseMapPlace to = KRSamplePlaces::find(ends.last());
        if (ends.size() == 2 && from.position.isValid() && to.position.isValid())
            m_beelines.append({from, to});
        else
            complain(tr("--beeline: „%1“ nennt nicht zwei Orte wie „Oldenburg .. Sydney“; N0 E0 gilt als keiner.")
                         .arg(text));
    }
}

void KRRenderOptions::readLook(const QCommandLineParser &parser)
{
    struct LookOption {
        const char *name;
        QString (KRTrackLook::*set)(const QString &text);
    };
    static constexpr LookOption lookOptions[] = {
        {"line-color", &KRTrackLook::setLineColor},   {"line-width", &KRTrackLook::setLineWidth},
        {"fill-color", &KRTrackLook::setFillColor},   {"halo", &KRTrackLook::setHaloWidth},
        {"marker", &KRTrackLook::setMarkerShape},     {"shape", &KRTrackLook::setTrackShape},
        {"display", &KRTrackLook::setDisplayOptions}, {"pen-style", &KRTrackLook::setPenStyle},
        {"smoothing", &KRTrackLook::setSmoothing},
    };
    for (const LookOption &option : lookOptions) {
        const QString name = QLatin1String(option.name);
        const QString problem = parser.isSet(name) ? (m_look.*option.set)(parser.value(name)) : QString();
        if (!problem.isEmpty())
            complain(QStringLiteral("--%1: %2").arg(name, problem));
    }
}

void KRRenderOptions::readPicture(const QCommandLineParser &parser)
{
    const QString sizeText = parser.value(QStringLiteral("size"));
    if (!sizeText.isEmpty())
        m_size = readSize(sizeText);
    else if (!parser.isSet(QStringLiteral("map")))
        m_size = QSize(1600, 1200);
    if (parser.isSet(QStringLiteral("size")) && !m_size)
        complain(tr("--size: „%1“ ist keine Größe wie 1600x1200, mit Seiten bis %2.")
                     .arg(sizeText, QString::number(KRPictureFile::largestSidePx)));

    if (parser.isSet(QStringLiteral("scale"))) {
        const QString text = parser.value(QStringLiteral("scale"));
        bool isNumber = false;
        m_scale = text.toDouble(&isNumber);
        if (!isNumber || !(m_scale >= smallestScale) || m_scale > largestScale)
            complain(tr("--scale: „%1“ ist keine Zahl von %2 bis %3.")
                         .arg(text, QString::number(smallestScale), QString::number(largestScale)));
    }
    if (parser.isSet(QStringLiteral("render"))) {
        const QString text = parser.value(QStringLiteral("render"));
        const int index = QStringLiteral("styled,opaque,halo").split(QLatin1Char(',')).indexOf(text);
        m_renderOption = static_cast<TrackRenderOption>(std::max(index, 0));
        if (index < 0)
            complain(tr("--render: „%1“ ist keine Zeichenart (styled, opaque, halo).").arg(text));
    }
    readArea(parser);
    readGround(parser);
}

void KRRenderOptions::readArea(const QCommandLineParser &parser)
{
    if (!parser.isSet(QStringLiteral("area")))
        return;
    const QString text = parser.value(QStringLiteral("area"));
    m_area = KRMapArea::parse(text);
    if (!m_area.isValid())
        complain(tr("--area: „%1“ ist kein Ausschnitt wie „N53.5 E8.0 .. N53.0 E9.0“.").arg(text));
}

void KRRenderOptions::readGround(const QCommandLineParser &parser)
{
    m_hasScaleBar = !parser.isSet(QStringLiteral("no-scale-bar"));
    m_hasAttribution = !parser.isSet(QStringLiteral("no-attribution"));
    m_hasLegend = parser.isSet(QStringLiteral("legend"));
    m_hasLabels = parser.isSet(QStringLiteral("labels"));
    if (parser.isSet(QStringLiteral("crop"))) {
        const QString text = parser.value(QStringLiteral("crop"));
        bool isNumber = false;
        m_croppingOpacity = text.toInt(&isNumber);
        if (!isNumber || *m_croppingOpacity < 0 || *m_croppingOpacity > 255)
            complain(tr("--crop: „%1“ ist keine Deckkraft von 0 bis 255.").arg(text));
    }
    const bool hasPicture = parser.isSet(QStringLiteral("map"));
    const bool hasTiles = parser.isSet(QStringLiteral("tiles"));
    const bool hasNone = parser.isSet(QStringLiteral("no-map"));
    if (int(hasPicture) + int(hasTiles) + int(hasNone) > 1)
        complain(tr("--map, --tiles und --no-map schließen einander aus."));
    if (parser.isSet(QStringLiteral("tiles-credit")) && !hasTiles)
        complain(tr("--tiles-credit braucht --tiles."));
    m_mapFile = KRFileName::ofText(parser.value(QStringLiteral("map")));
    m_tiles = KRFileName::ofText(parser.value(QStringLiteral("tiles")));
    m_tilesCredit = parser.value(QStringLiteral("tiles-credit")).simplified();
    if (hasPicture)
        m_ground = Ground::Picture;
    else if (hasTiles)
        m_ground = Ground::Tiles;
    else if (hasNone)
        m_ground = Ground::None;
}

void KRRenderOptions::readOutput(const QCommandLineParser &parser)
{
    m_document = KRFileName::ofText(parser.value(QStringLiteral("save")));
    m_output = KRFileName::ofText(parser.value(QStringLiteral("output")));
    if (m_output.isEmpty() && !m_document.isEmpty() && parser.isSet(QStringLiteral("format")))
        complain(tr("--format gilt nicht für --save und braucht daneben „-o“."));
    // Who only wants to save needs no picture.
    if (m_output.isEmpty() && m_document.isEmpty()) {
        const QString first =
            m_inputs.isEmpty() ? m_beelines.value(0).from.name : QFileInfo(m_inputs.first()).completeBaseName();
        m_output = first + QLatin1Char('.') + parser.value(QStringLiteral("format"));
        if (!parser.isSet(QStringLiteral("format")))
            m_output += QLatin1String("png");
        m_output = KRFileName::ofText(m_output);
    }
    if (!m_document.isEmpty() && !KRRouteDocument::isDocument(QFileInfo(m_document)))
        complain(tr("--save: „%1“ endet nicht auf „.%2“; Bilder, GPX und KML schreibt „-o“.")
                     .arg(m_document, KRRouteDocument::suffix()));
    readFormat(parser);
    protectInputs();
}

void KRRenderOptions::readFormat(const QCommandLineParser &parser)
{
    const QString text = parser.value(QStringLiteral("format"));
    const QString name = text.isEmpty() ? m_output : QStringLiteral("x.") + text;
    if (KRRouteDocument::isDocument(QFileInfo(m_output)))
        complain(tr("„%1“ ist ein Routendokument; das schreibt „--save“.").arg(m_output));
    m_format = KRPictureFile::formatOf(name);
    if (m_format.isEmpty())
        m_format = KRExchangeFile::formatOf(name);
    if (!parser.isSet(QStringLiteral("format"))) {
        if (writesToStandardOutput())
            m_format = QByteArrayLiteral("png");
        else if (!m_output.isEmpty() && m_format.isEmpty())
            complain(tr("„%1“ hat keine bekannte Endung (%2).").arg(m_output, formatNames()));
    } else if (m_format.isEmpty()) {
        complain(tr("--format: „%1“ ist kein bekanntes Format (%2).").arg(text, formatNames()));
    }
}

void KRRenderOptions::protectInputs()
{
    const QString output = writesToStandardOutput() ? QString() : m_output;
    const QStringList read = m_inputs + QStringList{m_mapFile};
    for (const QString &input : read) {
        // A document may be saved over itself.
        const bool isDocument = KRRouteDocument::isDocument(QFileInfo(input));
        const auto isReadFrom = isDocument ? KRInputGuard::isTrackFileOf : KRInputGuard::isReadFrom;
        if (KRInputGuard::isReadFrom(output, input))
            complain(tr("„%1“ wird gelesen und nicht überschrieben.").arg(output));
        if (isReadFrom(m_document, input))
            complain(tr("„%1“ wird gelesen und nicht überschrieben.").arg(m_document));
    }
    for (const QString &written : {output, m_document}) {
        if (KRInputGuard::isTileOf(written, m_tiles))
            complain(tr("„%1“ gehört zu den Kacheln „%2“, die gelesen werden.").arg(written, m_tiles));
    }
    const bool writesTwoFiles = !output.isEmpty() && !m_document.isEmpty();
    if (writesTwoFiles && KRInputGuard::isPartOfNew(output, m_document))
        complain(tr("„%1“ gehört zum Routendokument „%2“.").arg(output, m_document));
}

void KRRenderOptions::complain(const QString &problem)
{
    m_task = Task::Complain;
    if (m_problem.isEmpty())
        m_problem = problem;
}
