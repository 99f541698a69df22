#pragma once

#include "KRConsole.h"
#include "KRRenderOptions.h"
#include "KRRouteImport.h"

#include <QCoreApplication>

#include <memory>

class KRMapGround;
struct KRMapGaps;

/**
 * Does what the options ask for: reads the files, then draws or prints.
 *
 * Results go to the standard output, everything else to the standard error output.
 */
class KRRenderProgram
{
    Q_DECLARE_TR_FUNCTIONS(KRRenderProgram)

public:
    enum ExitCode : int {
        AllDone = 0,
        SomethingLeftOut = 1, ///< some or all of the input could not be read or drawn
        WrongUsage = 2, ///< wrong options, or the output cannot be written
    };

    explicit KRRenderProgram(const KRRenderOptions &options)
        : m_options(options), m_console(options.isQuiet(), options.isVerbose())
    { }

    int run();

private:
    void readRoutes();
    void printReport(const KRImportReport &report);
    int codeOfImport() const;
    /// The reason of a failure for the user, empty without one.
    static QString writeToStandardOutput(const QByteArray &bytes);
    int print(const QByteArray &bytes);
    int writeFiles(const KRGPXTrackSelection &tracks);
    int save(const KRGPXTrackSelection &tracks);
    int exchange(const KRGPXTrackSelection &tracks);
    int draw(const KRGPXTrackSelection &tracks);
    QString title(const KRGPXTrackSelection &tracks) const;
    std::unique_ptr<KRMapGround> createGround(const QImage &picture, const KRGeoPositionRect &area);
    std::unique_ptr<KRMapGround> createTileGround();
    void reportGaps(const KRMapGaps &gaps);
    QImage readMapPicture();
    /// Null bytes are complained of with @p refusal, or with a sentence of its own where that is empty.
    int write(const QByteArray &bytes, const QString &refusal = QString());
    KRGPXTrackSelection selection() const;
    /// Those that are drawn in bounded time.
    KRGPXTrackSelection affordable(const KRGPXTrackSelection &tracks, const KRGeoPositionRect &area, const QSize &size);
    /// Whether a PDF of the tracks would take too long as they look.
    bool isTooSlowInPdf(const KRGPXTrackSelection &tracks, const KRGeoPositionRect &area, const QSize &size) const;
    int countOfUndrawn(const KRGPXTrackSelection &selection);

    KRRenderOptions m_options;
    KRConsole m_console;
    KRRouteImport m_import;
};
