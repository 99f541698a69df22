#include "KRFuzzTargets.h"

#include <KRCore/KRSettings.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

// libFuzzer has the main function, and no place to keep these in.
QTemporaryDir *settingsDir = nullptr;
QCoreApplication *application = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argumentCount, char ***arguments)
{
    application = new QCoreApplication(*argumentCount, *arguments);
    settingsDir = new QTemporaryDir;
    KRSettings::setFileName(settingsDir->filePath(QStringLiteral("settings.ini")));
    // Hostile input gives a warning each time; qFatal() still tells.
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    static const KRFuzzTargets::Target target = KRFuzzTargets::all().value(QStringLiteral(KR_FUZZ_TARGET));
    const QByteArray input(reinterpret_cast<const char *>(bytes), int(size));
    const QString broken = target(input);
    if (!broken.isNull())
        qFatal("This does not hold: %s", qPrintable(broken));
    return 0;
}
