#include "KRRenderProgram.h"

#include "KRMapArea.h"
#include "KRPictureFile.h"
#include "KRTrackTable.h"

#include <KRCore/KRFileHandler.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTextStream>

#include <cstdio>
#include <unistd.h>

namespace {

bool writeToStandardOutput(const QByteArray &bytes)
{
    QFile out;
    return out.open(stdout, QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.flush();
}

void printLine(FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fprintf(stream, "%s\n", bytes.constData());
    std::fflush(stream);
}

} // namespace

int KRRenderProgram::run()
{
    switch (m_options.task()) {
    case KRRenderOptions::Task::Complain:
        printLine(stderr, QStringLiteral("krrender: ") + m_options.problem());
        printLine(stderr, tr("„krrender --help“ nennt alle Möglichkeiten."));
        return WrongUsage;
    case KRRenderOptions::Task::PrintHelp:
        return writeToStandardOutput(m_options.helpText().toLocal8Bit()) ? AllDone : WrongUsage;
    case KRRenderOptions::Task::PrintVersion:
        printLine(stdout, QStringLiteral("krrender ") + QCoreApplication::applicationVersion());
        return AllDone;
    case KRRenderOptions::Task::PrintTable:
    case KRRenderOptions::Task::PrintJson:
    case KRRenderOptions::Task::Draw:
        break;
    }

    readRoutes();
    if (m_options.task() == KRRenderOptions::Task::Draw)
        return draw();

    const KRTrackTable table(selection().tracks());
    const QByteArray bytes = m_options.task() == KRRenderOptions::Task::PrintJson ? table.toJson(m_import.problems())
                                                                                  : table.toText().toLocal8Bit();
    if (!writeToStandardOutput(bytes))
        return WrongUsage;
    return m_import.problems().isEmpty() ? AllDone : SomethingLeftOut;
}

void KRRenderProgram::readRoutes()
{
    QElapsedTimer timer;
    timer.start();
    m_import.setProgressFunction([this](const QString &fileName, int number, int count) {
        showProgress(tr("%1/%2 %3 wird gelesen").arg(QString::number(number), QString::number(count), fileName));
    });
    m_import.read(m_options.inputs());
    for (const KRErrorHistory::Entry &problem : m_import.problems().entries())
        printLine(stderr, QStringLiteral("krrender: ") + problem.toString());
    if (m_options.isVerbose())
        say(tr("%1 Strecken, in %2 ms gelesen").arg(m_import.tracks().size()).arg(timer.elapsed()));
}

KRGPXTrackSelection KRRenderProgram::selection() const
{
    KRGPXConfiguredTrackList tracks = m_import.tracks();
    const KRTrackLook look = m_options.look();
    for (KRGPXConfiguredTrack &track : tracks)
        track.setConfiguration(look.appliedTo(track.configuration()));
    KRGPXTrackSelection selection(tracks);
    if (m_options.croppingOpacity())
        selection.setCroppingOpacity(*m_options.croppingOpacity());
    return selection;
}

int KRRenderProgram::countOfUndrawn(const KRGPXTrackSelection &selection)
{
    int count = 0;
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks) {
        KRMapArea area;
        area.add(track);
        if (area.covered().isValid())
            continue;
        ++count;
        printLine(stderr, QStringLiteral("krrender: ") + tr("Die Strecke „%1“ hat keine Position.").arg(track.name()));
    }
    return count;
}

int KRRenderProgram::draw()
{
    const KRGPXTrackSelection tracks = selection();
    const int undrawn = countOfUndrawn(tracks);

    KRGeoPositionRect area = m_options.area();
    if (!area.isValid()) {
        KRMapArea covered;
        for (const KRGPXConfiguredTrack &track : tracks.tracks())
            covered.add(track);
        area = covered.padded();
    }
    if (!area.isValid()) {
        printLine(stderr, QStringLiteral("krrender: ") + tr("Es gibt nichts zu zeichnen."));
        return SomethingLeftOut;
    }

    QImage mapPicture;
    if (m_options.ground() == KRMapComposition::Ground::Picture) {
        QImageReader reader(m_options.mapFile());
        mapPicture = reader.read();
        if (mapPicture.isNull()) {
            printLine(stderr, QStringLiteral("krrender: %1: %2").arg(m_options.mapFile(), reader.errorString()));
            return SomethingLeftOut;
        }
    }

    QElapsedTimer timer;
    timer.start();
    showProgress(tr("Die Karte wird gezeichnet"));
    KRMapComposition composition(tracks, area, m_options.size().value_or(mapPicture.size()), m_options.scale());
    composition.setGround(m_options.ground(), mapPicture);
    composition.setRenderOption(m_options.renderOption());
    const QImage picture = composition.render();
    if (m_options.isVerbose())
        say(tr("in %1 ms gezeichnet").arg(timer.elapsed()));

    const int code = write(picture);
    if (code != AllDone)
        return code;
    return undrawn == 0 && m_import.problems().isEmpty() ? AllDone : SomethingLeftOut;
}

int KRRenderProgram::write(const QImage &picture)
{
    showProgress(QString());
    const QByteArray format =
        m_options.writesToStandardOutput() ? QByteArrayLiteral("png") : KRPictureFile::formatOf(m_options.output());
    const QByteArray bytes = KRPictureFile::encode(picture, format);
    KRErrorHistory history;
    QString problem;
    if (bytes.isNull())
        problem = tr("Das Bild kann nicht als %1 gespeichert werden.").arg(QString::fromLatin1(format));
    else if (!m_options.writesToStandardOutput())
        KRFileHandler::writeAll(QFileInfo(m_options.output()), bytes, &history);
    else if (!writeToStandardOutput(bytes))
        problem = tr("Die Standardausgabe nimmt das Bild nicht an.");
    if (!history.isEmpty())
        problem = history.entries().first().reason;
    if (problem.isEmpty()) {
        if (m_options.isVerbose())
            say(m_options.output());
        return AllDone;
    }
    printLine(stderr, QStringLiteral("krrender: %1: %2").arg(m_options.output(), problem));
    return WrongUsage;
}

void KRRenderProgram::say(const QString &message) const
{
    if (!m_options.isQuiet())
        printLine(stderr, message);
}

void KRRenderProgram::showProgress(const QString &message) const
{
    // One line that is written over again and again; nothing of it may stand in a file.
    if (m_options.isQuiet() || m_options.isVerbose() || !isatty(STDERR_FILENO))
        return;
    const QByteArray bytes = message.toLocal8Bit();
    std::fprintf(stderr, "\r\033[K%s", bytes.constData());
    std::fflush(stderr);
}
