#include "KRViewerOptions.h"

#include <KRFileName.h>

#include <QCommandLineParser>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

KRViewerOptions::KRViewerOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Zeigt und bearbeitet Routen und Orte auf einer Landkarte.\n"
           "Ein einzelnes Routendokument wird geöffnet; Routen aus anderen Dateien kommen hinzu."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, tr("Zeigt diese Hilfe."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")}, tr("Zeigt die Version."));
    parser.addOption(help);
    parser.addOption(version);
    parser.addPositionalArgument(QStringLiteral("FILE"), tr("Routendokumente, GPX-, KML- und KMZ-Dateien."),
                                 QStringLiteral("[FILE…]"));
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "krroutes: %s\n", qPrintable(parser.errorText()));
        std::exit(2);
    }
    if (parser.isSet(help)) {
        std::printf("%s", qPrintable(parser.helpText()));
        std::exit(0);
    }
    if (parser.isSet(version))
        parser.showVersion();
    const QStringList names = parser.positionalArguments();
    for (const QString &name : names) {
        // As a script hands on a variable without a value; it would stand for the working folder.
        if (!name.isEmpty())
            m_fileNames.append(QFileInfo(KRFileName::ofText(name)).absoluteFilePath());
    }
}
