#include "KRFileImport.h"

#include "KRGpxImport.h"
#include "KRKmlImport.h"

#include <KRCore/KRLogger.h>
#include <KRGeoLocation/KRTrackSelectionFactoryAbstract.h>

std::unique_ptr<KRFileImport> KRFileImport::create(const QFileInfo &file)
{
    if (KRGpxImport::supportsFile(file))
        return std::make_unique<KRGpxImport>(file);
    if (KRKmlImport::supportsFile(file))
        return std::make_unique<KRKmlImport>(file);
    return nullptr;
}

void KRFileImport::logChoiceOf(const KRTrackSelectionFactoryAbstract &importer)
{
    KRLogger::instance()->logOSM(
        QStringLiteral("ACTION:useFactory VALUE:%1").arg(importer.supportedFileFormats().join(QLatin1Char(','))));
}
