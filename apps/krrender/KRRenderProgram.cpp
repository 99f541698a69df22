#include "KRRenderProgram.h"

#include "KRBaseMapGround.h"
#include "KRExchangeFile.h"
#include "KRImageEffort.h"
#include "KRMapArea.h"
#include "KRMapComposition.h"
#include "KRMapTrackRenderer.h"
#include "KRPageEffort.h"
#include "KRPatientEnd.h"
#include "KRPatientGround.h"
#include "KRPictureFile.h"
#include "KRPictureGround.h"
#include "KRPictureReader.h"
#include "KRPlaceTable.h"
#include "KRRouteDocument.h"
#include "KRTileGround.h"
#include "KRTrackPalette.h"
#include "KRTrackTable.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXBeelineCreator.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <unistd.h>

namespace {

void writeFile(const QFileInfo &file, const QByteArray &bytes, KRErrorHistory *history)
{
    // An end in between would leave a file of another name behind. Who reads a pipe may let it wait for ever.
    std::optional<KRPatientEnd> patientEnd;
    if (KRFileHandler::isReplaceable(file, nullptr))
        patientEnd.emplace();
    KRFileHandler::writeAll(file, bytes, history);
}

bool hasPosition(const KRGPXTrackElement &track)
{
    bool isFound = false;
    track.visitPositions([&](const KRGeoPositionSpan &positions) {
        for (int i = 0; i < positions.count && !isFound; ++i)
            isFound = KRMapArea::isValidPosition(positions.latitudes[i], positions.longitudes[i]);
    });
    return isFound;
}

/// Whether a map of the size of the picture, which is held twice for a while, has no room beside it.
bool isTooLargeForMap(const QImage &picture)
{
    constexpr qint64 bytesPerPixel = 2 * sizeof(QRgb);
    const qint64 mapBytes = bytesPerPixel * picture.width() * picture.height();
    return mapBytes + picture.sizeInBytes() > KRInputLimits::pictureMemoryBytes;
}

} // namespace

int KRRenderProgram::run()
{
    switch (m_options.task()) {
    case KRRenderOptions::Task::Complain:
        m_console.complain(m_options.problem());
        m_console.print(tr("„krrender --help“ nennt alle Möglichkeiten."));
        return WrongUsage;
    case KRRenderOptions::Task::PrintHelp:
        return print(m_options.helpText().toLocal8Bit());
    case KRRenderOptions::Task::PrintVersion:
        return print(QStringLiteral("krrender %1\n").arg(QCoreApplication::applicationVersion()).toLocal8Bit());
    case KRRenderOptions::Task::PrintPlaces:
        return print(KRPlaceTable::toText().toLocal8Bit());
    case KRRenderOptions::Task::PrintTable:
    case KRRenderOptions::Task::PrintJson:
    case KRRenderOptions::Task::Draw:
        break;
    }

    readRoutes();
    const KRGPXTrackSelection tracks = selection();
    switch (m_options.task()) {
    case KRRenderOptions::Task::PrintTable:
        return print(KRTrackTable(tracks.tracks()).toText().toLocal8Bit());
    case KRRenderOptions::Task::PrintJson:
        return print(KRTrackTable(tracks.tracks()).toJson(m_import.problems(), m_import.reports()));
    default:
        return writeFiles(tracks);
    }
}

QString KRRenderProgram::writeToStandardOutput(const QByteArray &bytes)
{
    if (KRFileHandler::writeToChannel(STDOUT_FILENO, bytes))
        return QString();
    const QString reason = qt_error_string(errno);
    return tr("Die Standardausgabe nimmt das Ergebnis nicht an.") + QLatin1Char(' ') + reason;
}

int KRRenderProgram::print(const QByteArray &bytes)
{
    const QString problem = writeToStandardOutput(bytes);
    if (problem.isEmpty())
        return codeOfImport();
    m_console.complain(problem);
    return WrongUsage;
}

int KRRenderProgram::codeOfImport() const
{
    const bool isIncomplete = m_options.isStrict() && !m_import.reports().isEmpty();
    return m_import.problems().isEmpty() && !isIncomplete ? AllDone : SomethingLeftOut;
}

int KRRenderProgram::writeFiles(const KRGPXTrackSelection &tracks)
{
    int code = codeOfImport();
    if (!m_options.document().isEmpty())
        code = std::max(code, save(tracks));
    if (KRExchangeFile::formats().contains(m_options.format()))
        code = std::max(code, exchange(tracks));
    else if (!m_options.output().isEmpty())
        code = std::max(code, draw(tracks));
    return code;
}

int KRRenderProgram::save(const KRGPXTrackSelection &tracks)
{
    if (tracks.isEmpty()) {
        m_console.complain(tr("Es gibt nichts zu schreiben."));
        return SomethingLeftOut;
    }
    KRRouteDocument document;
    document.setSelection(tracks);
    KRErrorHistory history;
    // An end in between would leave track files behind that no document names.
    const KRPatientEnd patientEnd;
    if (document.save(QFileInfo(m_options.document()), &history))
        return AllDone;
    m_console.complain(history);
    return WrongUsage;
}

int KRRenderProgram::exchange(const KRGPXTrackSelection &tracks)
{
    if (tracks.isEmpty()) {
        m_console.complain(tr("Es gibt nichts zu schreiben."));
        return SomethingLeftOut;
    }
    KRErrorHistory history;
    const QByteArray bytes = KRExchangeFile::encode(tracks.tracks(), m_options.format(), title(tracks), &history);
    if (bytes.isNull())
        return write(bytes, history.isEmpty() ? QString() : history.entries().first().reason);
    for (const KRErrorHistory::Entry &loss : history.entries())
        m_console.complain(QStringLiteral("%1: %2").arg(m_options.output(), loss.reason));
    return std::max<int>(write(bytes), history.isEmpty() ? AllDone : SomethingLeftOut);
}

QString KRRenderProgram::title(const KRGPXTrackSelection &tracks) const
{
    return m_options.writesToStandardOutput() ? tracks.value(0).name()
                                              : QFileInfo(m_options.output()).completeBaseName();
}

void KRRenderProgram::readRoutes()
{
    QElapsedTimer timer;
    timer.start();
    m_import.setProgressFunction([this](const QString &fileName, int number, int count) {
        m_console.showProgress(
            tr("%1/%2 %3 wird gelesen").arg(QString::number(number), QString::number(count), fileName));
    });
    m_import.setPlain(m_options.isPlain());
    m_import.setSplitSegments(m_options.splitsSegments());
    m_import.read(m_options.inputs());
    m_console.clearProgress();
    m_console.complain(m_import.problems());
    for (const KRImportReport &report : m_import.reports())
        printReport(report);
    if (m_options.isVerbose())
        m_console.say(tr("Routen: %1, in %2 ms gelesen").arg(m_import.tracks().size()).arg(timer.elapsed()));
}

void KRRenderProgram::printReport(const KRImportReport &report)
{
    const QString fileName = QStringLiteral("krrender: ") + report.fileName();
    m_console.say(QStringLiteral("%1: %2").arg(fileName, report.summary()));
    if (!m_options.isVerbose())
        return;
    for (const KRImportReport::Item &item : report.items()) {
        const QString place =
            item.line > 0 ? QStringLiteral("%1:%2").arg(fileName, QString::number(item.line)) : fileName;
        m_console.say(QStringLiteral("%1: %2").arg(place, KRImportReport::describe(item)));
    }
}

KRGPXTrackSelection KRRenderProgram::selection() const
{
    KRGPXConfiguredTrackList tracks = m_import.tracks();
    const QList<KRRenderOptions::Beeline> beelines = m_options.beelines();
    for (const KRRenderOptions::Beeline &beeline : beelines) {
        const KRGPXBeelineCreator creator(beeline.from.position, beeline.to.position);
        const QString name = beeline.from.name + QStringLiteral(" – ") + beeline.to.name;
        tracks.append(
            KRGPXConfiguredTrack(creator.createBeeline(name), KRGPXTrackConfiguration::currentDefaultConfiguration()));
    }
    const KRTrackLook look = m_options.look();
    for (int i = 0; i < tracks.size(); ++i) {
        const KRGPXTrackConfiguration configuration = tracks.at(i).configuration();
        tracks[i].setConfiguration(
            look.appliedTo(m_options.usesPalette() ? KRTrackPalette::appliedTo(configuration, i) : configuration));
    }
    KRGPXTrackSelection selection(tracks);
    selection.setCroppingOpacity(m_options.croppingOpacity().value_or(m_import.croppingOpacity()));
    return selection;
}

int KRRenderProgram::countOfUndrawn(const KRGPXTrackSelection &selection)
{
    int count = 0;
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks) {
        if (hasPosition(track))
            continue;
        ++count;
        m_console.complain(tr("Die Route „%1“ hat keine Position.").arg(track.name()));
    }
    return count;
}

int KRRenderProgram::draw(const KRGPXTrackSelection &tracks)
{
    const int undrawn = countOfUndrawn(tracks);

    KRGeoPositionRect area = m_options.area();
    if (!area.isValid())
        area = KRMapArea::paddedAreaOf(tracks);
    if (!area.isValid() || tracks.isEmpty()) {
        m_console.complain(tr("Es gibt nichts zu zeichnen."));
        return SomethingLeftOut;
    }

    if (!KRConcurrent::fillPool()) {
        m_console.complain(tr("Das System startet keinen weiteren Thread, und ohne wird nicht gezeichnet."));
        return SomethingLeftOut;
    }

    const QImage mapPicture = readMapPicture();
    if (mapPicture.isNull() && m_options.ground() == KRRenderOptions::Ground::Picture)
        return SomethingLeftOut;
    const QSize size = m_options.size().value_or(mapPicture.size());
    const int largestSide = KRPictureFile::largestSideOf(m_options.format());
    if (std::max(size.width(), size.height()) > largestSide) {
        const QString format = QString::fromLatin1(m_options.format());
        m_console.complain(
            tr("Bilder im Format %1 haben höchstens %2 Pixel je Seite.").arg(format, QString::number(largestSide)));
        return WrongUsage;
    }

    QElapsedTimer timer;
    timer.start();
    m_console.showProgress(tr("Die Karte wird gezeichnet"));
    const std::unique_ptr<KRMapGround> ground = createGround(mapPicture, area);
    if (ground == nullptr && m_options.ground() != KRRenderOptions::Ground::None)
        return SomethingLeftOut;
    KRPatientGround patientGround(ground.get());
    QObject::connect(&patientGround, &KRPatientGround::waiting, &patientGround, [this](int count) {
        m_console.showProgress(tr("Die Karte wird gezeichnet; fehlende Kacheln: %1").arg(count));
    });
    const KRGPXTrackSelection drawable = affordable(tracks, area, size);
    const bool isSimplified = isTooSlowInPdf(drawable, area, size);
    KRMapComposition composition(isSimplified ? KRPageEffort::simplified(drawable) : drawable, area, size,
                                 m_options.scale());
    composition.setGround(ground == nullptr ? nullptr : &patientGround);
    composition.setRenderOption(m_options.renderOption());
    composition.setScaleBar(m_options.hasScaleBar());
    composition.setAttribution(m_options.hasAttribution());
    composition.setLegend(m_options.hasLegend());
    composition.setLabels(m_options.hasLabels());
    const QByteArray bytes = KRPictureFile::encode(composition, m_options.format(), title(tracks));
    if (m_options.isVerbose())
        m_console.say(tr("in %1 ms gezeichnet").arg(timer.elapsed()));
    const bool isCoarse = KRPictureFile::isVector(m_options.format()) && composition.isGroundReduced();
    if (isCoarse)
        m_console.complain(tr("Das Bild der Karte unter den Routen wäre zu groß; es ist gröber als verlangt."));
    if (isSimplified)
        m_console.complain(
            tr("Die Routen sind deckend und ohne Halo gezeichnet. Das PDF würde mit ihnen sonst sehr lange "
               "dauern; --patient zeichnet sie wie verlangt."));
    const bool isWhole = undrawn == 0 && drawable.count() == tracks.count() && !isSimplified && !isCoarse
                         && patientGround.gaps().count == 0;
    reportGaps(patientGround.gaps());
    return std::max<int>(write(bytes), isWhole ? AllDone : SomethingLeftOut);
}

KRGPXTrackSelection KRRenderProgram::affordable(const KRGPXTrackSelection &tracks, const KRGeoPositionRect &area,
                                                const QSize &size)
{
    if (m_options.isPatient())
        return tracks;
    const KRMapTrackRenderer renderer(tracks, KRMapProjection(area, size), size, m_options.scale());
    // One of very many copies of a narrow world is an image in any file.
    const bool isVector = KRPictureFile::isVector(m_options.format()) && renderer.drawnRect(true).size() == size;
    const bool isCropped = tracks.effectiveCroppingOpacity() < 255;
    if (isVector && !isCropped)
        return tracks;
    KRImageEffort effort(&renderer);
    effort.setCropped(isCropped);
    effort.setRenderOption(m_options.renderOption());
    if (isVector)
        effort.setForMaskOnly();
    const KRGPXTrackSelection drawable = effort.affordable(tracks);
    if (drawable.count() < tracks.count())
        m_console.complain(tr("Nicht gezeichnete Routen: %1. Das Bild würde mit ihnen sehr lange dauern; --patient "
                              "zeichnet sie.")
                               .arg(tracks.count() - drawable.count()));
    return drawable;
}

bool KRRenderProgram::isTooSlowInPdf(const KRGPXTrackSelection &tracks, const KRGeoPositionRect &area,
                                     const QSize &size) const
{
    if (m_options.isPatient() || m_options.format() != "pdf")
        return false;
    const KRMapTrackRenderer renderer(tracks, KRMapProjection(area, size), size, m_options.scale());
    if (renderer.drawnRect(true).size() != size)
        return false; // one of very many copies of a narrow world is an image
    KRPageEffort effort(&renderer);
    effort.setRenderOption(m_options.renderOption());
    return !effort.isAffordable(tracks);
}

std::unique_ptr<KRMapGround> KRRenderProgram::createGround(const QImage &picture, const KRGeoPositionRect &area)
{
    switch (m_options.ground()) {
    case KRRenderOptions::Ground::BaseMap:
        return std::make_unique<KRBaseMapGround>();
    case KRRenderOptions::Ground::Picture:
        return std::make_unique<KRPictureGround>(picture, area);
    case KRRenderOptions::Ground::Tiles:
        return createTileGround();
    case KRRenderOptions::Ground::None:
        break;
    }
    return nullptr;
}

std::unique_ptr<KRMapGround> KRRenderProgram::createTileGround()
{
    auto ground = std::make_unique<KRTileGround>(m_options.tiles());
    if (!ground->problem().isEmpty()) {
        m_console.complain(QStringLiteral("%1: %2").arg(m_options.tiles(), ground->problem()));
        return nullptr;
    }
    if (!m_options.tilesCredit().isEmpty())
        ground->setCredit(m_options.tilesCredit());
    return ground;
}

void KRRenderProgram::reportGaps(const KRMapGaps &gaps)
{
    if (gaps.count == 0)
        return;
    const QString message = tr("Fehlende Kacheln: %1. %2").arg(QString::number(gaps.count), gaps.reason);
    m_console.complain(QStringLiteral("%1: %2").arg(m_options.tiles(), message));
}

QImage KRRenderProgram::readMapPicture()
{
    if (m_options.ground() != KRRenderOptions::Ground::Picture)
        return QImage();
    KRErrorHistory history;
    const QImage picture = KRPictureReader::read(QFileInfo(m_options.mapFile()), &history);
    m_console.complain(history);
    if (m_options.size() || !isTooLargeForMap(picture))
        return picture;
    const QString problem = tr("Das Bild ist zu groß für eine ebenso große Karte; --size gibt ihr eine andere Größe.");
    m_console.complain(QStringLiteral("%1: %2").arg(m_options.mapFile(), problem));
    return QImage();
}

int KRRenderProgram::write(const QByteArray &bytes, const QString &refusal)
{
    m_console.clearProgress();
    KRErrorHistory history;
    QString problem = refusal;
    if (bytes.isNull() && refusal.isEmpty())
        problem = tr("Das Ergebnis kann nicht als %1 geschrieben werden; vielleicht ist es zu groß für diesen Rechner.")
                      .arg(QString::fromLatin1(m_options.format()));
    else if (!bytes.isNull() && m_options.writesToStandardOutput())
        problem = writeToStandardOutput(bytes);
    else if (!bytes.isNull())
        writeFile(QFileInfo(m_options.output()), bytes, &history);
    if (!history.isEmpty())
        problem = history.entries().first().reason;
    if (problem.isEmpty()) {
        if (m_options.isVerbose())
            m_console.say(m_options.output());
        return AllDone;
    }
    m_console.complain(QStringLiteral("%1: %2").arg(m_options.output(), problem));
    return WrongUsage;
}
