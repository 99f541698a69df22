#include "KRRenderOptions.h"

#include "KRMapArea.h"
#include "KRPictureFile.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int largestSidePx = 32767; // QPainter's raster engine ends there
constexpr double largestScale = 20.0;

bool isSameFile(const QFileInfo &a, const QFileInfo &b)
{
    if (a.exists() && b.exists())
        return a.canonicalFilePath() == b.canonicalFilePath();
    return a.absoluteFilePath() == b.absoluteFilePath();
}

/// Width and height out of "1600x1200"; not set when it is nothing of the kind.
std::optional<QSize> readSize(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})[xX×](\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || size.isEmpty() || size.width() > largestSidePx || size.height() > largestSidePx)
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
    m_inputs = parser.positionalArguments();
    m_isQuiet = parser.isSet(QStringLiteral("quiet"));
    m_isVerbose = parser.isSet(QStringLiteral("verbose"));
    readTask(parser);
    if (m_task == Task::PrintHelp || m_task == Task::PrintVersion)
        return;
    if (m_inputs.isEmpty())
        complain(tr("Es fehlt eine Datei."));
    readLook(parser);
    readPicture(parser);
    if (m_task == Task::Draw)
        readOutput(parser);
}

void KRRenderOptions::declare(QCommandLineParser &parser)
{
    parser.setApplicationDescription(tr("Zeichnet Routen auf eine Landkarte."));
    parser.addPositionalArgument(QStringLiteral("FILE"), tr("Routen (GPX), eine oder mehrere."),
                                 QStringLiteral("FILE..."));
    const auto option = [&parser](const QStringList &names, const QString &description, const QString &value) {
        parser.addOption(QCommandLineOption(names, description, value));
    };
    const auto flag = [&parser](const QStringList &names, const QString &description) {
        parser.addOption(QCommandLineOption(names, description));
    };
    option({QStringLiteral("o"), QStringLiteral("output")},
           tr("Bilddatei: PNG, JPEG oder WebP nach der Endung; „-“ schreibt PNG auf die Standardausgabe. Ohne Angabe "
              "heißt das Bild wie die erste Datei und liegt im aktuellen Ordner."),
           QStringLiteral("FILE"));
    option({QStringLiteral("size")}, tr("Größe des Bildes in Pixeln (1600x1200)."), QStringLiteral("WxH"));
    option({QStringLiteral("scale")}, tr("Vergrößert Linien und Schrift, zum Beispiel 2 für hohe Auflösung."),
           QStringLiteral("FACTOR"));
    option({QStringLiteral("area")},
           tr("Ausschnitt von der Nordwest- zur Südostecke, zum Beispiel „N53.5 E8.0 .. N53.0 E9.0“. Ohne Angabe der, "
              "in dem die Routen liegen."),
           QStringLiteral("NW .. SE"));
    option({QStringLiteral("line-color")}, tr("Linienfarbe: #RRGGBB, #AARRGGBB oder ein Name."),
           QStringLiteral("COLOR"));
    option({QStringLiteral("line-width")}, tr("Linienbreite in Pixeln."), QStringLiteral("PIXELS"));
    option({QStringLiteral("fill-color")}, tr("Füllfarbe von Flächen und Markern."), QStringLiteral("COLOR"));
    option({QStringLiteral("halo")}, tr("Breite des Hofes um die Linien in Pixeln, 0 für keinen."),
           QStringLiteral("PIXELS"));
    option(
        {QStringLiteral("marker")},
        tr("Marker für Punkte: disk, circle, x, block, rhombus, star6, star9, star12; arrow für Pfeile an Strecken."),
        QStringLiteral("NAME"));
    option({QStringLiteral("shape")}, tr("Form: auto, point, linestring, polygon oder hop."), QStringLiteral("NAME"));
    option({QStringLiteral("display")},
           tr("Was von Flächen und Markern gezeichnet wird: stroke, fill oder stroke,fill."), QStringLiteral("NAMES"));
    option({QStringLiteral("pen-style")}, tr("Linienart: solid, dash, dot, dashdot oder dashdotdot."),
           QStringLiteral("NAME"));
    option({QStringLiteral("smoothing")},
           tr("Glättet Strecken: Stärke von 100 (gar nicht) bis 0 (ganz gerade), nach einem Komma die Zahl der "
              "Abschnitte."),
           QStringLiteral("STRENGTH[,STEPS]"));
    option({QStringLiteral("render")}, tr("Zeichenart: styled, opaque oder halo."), QStringLiteral("NAME"));
    option({QStringLiteral("crop")}, tr("Deckkraft der Karte außerhalb der Routen, 0 bis 255."),
           QStringLiteral("OPACITY"));
    option({QStringLiteral("map")}, tr("Ein Bild als Karte des Ausschnitts."), QStringLiteral("FILE"));
    flag({QStringLiteral("no-map")}, tr("Keine Karte, durchsichtiger Grund."));
    flag({QStringLiteral("list")}, tr("Gibt eine Tabelle der Routen aus, statt zu zeichnen."));
    flag({QStringLiteral("json")}, tr("Gibt dasselbe als JSON aus."));
    flag({QStringLiteral("quiet")}, tr("Meldet nur Fehler."));
    flag({QStringLiteral("verbose")}, tr("Meldet jeden Schritt."));
    flag({QStringLiteral("h"), QStringLiteral("help")}, tr("Zeigt diese Hilfe."));
    flag({QStringLiteral("v"), QStringLiteral("version")}, tr("Zeigt die Version."));
}

void KRRenderOptions::readTask(const QCommandLineParser &parser)
{
    if (parser.isSet(QStringLiteral("help")))
        m_task = Task::PrintHelp;
    else if (parser.isSet(QStringLiteral("version")))
        m_task = Task::PrintVersion;
    else if (parser.isSet(QStringLiteral("json")))
        m_task = Task::PrintJson;
    else if (parser.isSet(QStringLiteral("list")))
        m_task = Task::PrintTable;
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
    const auto valueOf = [&parser](const char *name) { return parser.value(QLatin1String(name)); };
    const auto isSet = [&parser](const char *name) { return parser.isSet(QLatin1String(name)); };

    if (isSet("size")) {
        m_size = readSize(valueOf("size"));
        if (!m_size)
            complain(tr("--size: „%1“ ist keine Größe wie 1600x1200.").arg(valueOf("size")));
    } else if (!isSet("map")) {
        m_size = QSize(1600, 1200);
    }
    if (isSet("scale")) {
        bool isNumber = false;
        m_scale = valueOf("scale").toDouble(&isNumber);
        if (!isNumber || !(m_scale > 0.0) || m_scale > largestScale)
            complain(tr("--scale: „%1“ ist keine Zahl über 0 und bis %2.")
                         .arg(valueOf("scale"), QString::number(largestScale)));
    }
    if (isSet("area")) {
        m_area = KRMapArea::parse(valueOf("area"));
        if (!m_area.isValid())
            complain(tr("--area: „%1“ ist kein Ausschnitt wie „N53.5 E8.0 .. N53.0 E9.0“.").arg(valueOf("area")));
    }
    if (isSet("render")) {
        const int index =
            QStringList{QStringLiteral("styled"), QStringLiteral("opaque"), QStringLiteral("halo")}.indexOf(
                valueOf("render"));
        m_renderOption = static_cast<TrackRenderOption>(std::max(index, 0));
        if (index < 0)
            complain(tr("--render: „%1“ ist keine Zeichenart (styled, opaque, halo).").arg(valueOf("render")));
    }
    if (isSet("crop")) {
        bool isNumber = false;
        m_croppingOpacity = valueOf("crop").toInt(&isNumber);
        if (!isNumber || *m_croppingOpacity < 0 || *m_croppingOpacity > 255)
            complain(tr("--crop: „%1“ ist keine Deckkraft von 0 bis 255.").arg(valueOf("crop")));
    }
    if (isSet("map") && isSet("no-map"))
        complain(tr("--map und --no-map schließen einander aus."));
    m_mapFile = valueOf("map");
    if (isSet("map"))
        m_ground = KRMapComposition::Ground::Picture;
    else if (isSet("no-map"))
        m_ground = KRMapComposition::Ground::None;
}

void KRRenderOptions::readOutput(const QCommandLineParser &parser)
{
    m_output = parser.value(QStringLiteral("output"));
    if (!parser.isSet(QStringLiteral("output")) && !m_inputs.isEmpty())
        m_output = QFileInfo(m_inputs.first()).completeBaseName() + QStringLiteral(".png");
    if (writesToStandardOutput())
        return;
    if (KRPictureFile::formatOf(m_output).isEmpty()) {
        complain(tr("„%1“ endet auf kein Bildformat (png, jpg, jpeg, webp).").arg(m_output));
        return;
    }
    QStringList read = m_inputs;
    if (!m_mapFile.isEmpty())
        read.append(m_mapFile);
    for (const QString &input : read) {
        if (isSameFile(QFileInfo(input), QFileInfo(m_output)))
            complain(tr("„%1“ wird gelesen und nicht überschrieben.").arg(m_output));
    }
}

void KRRenderOptions::complain(const QString &problem)
{
    m_task = Task::Complain;
    if (m_problem.isEmpty())
        m_problem = problem;
}
