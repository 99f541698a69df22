#include "KRHostApplication.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <cstdio>

/// The linker drops the resources of a static library unless somebody asks for them; outside of any namespace.
static void initializeTranslations()
{
    Q_INIT_RESOURCE(translations);
}

namespace {

void install(QCoreApplication &application, const QString &name, const QString &directory)
{
    auto *const translator = new QTranslator(&application);
    if (translator->load(name, directory))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

void keepSilent(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

/// The first of the user's languages that we speak. The texts in the sources are German.
bool speaksGerman()
{
    const QStringList languages = QLocale::system().uiLanguages();
    return !languages.isEmpty() && languages.first().startsWith(QLatin1String("de"));
}

} // namespace

void KRHostApplication::prepare(bool isVerbose)
{
    if (!isVerbose)
        qInstallMessageHandler(keepSilent);
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!hasDisplay && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

void KRHostApplication::setup(QCoreApplication &application, const QString &name)
{
    QCoreApplication::setOrganizationName(QStringLiteral("KRGeoLocation"));
    QCoreApplication::setApplicationName(name);
    QCoreApplication::setApplicationVersion(QStringLiteral(KR_VERSION));

    if (speaksGerman()) {
        install(application, QStringLiteral("qtbase_de"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
        return;
    }
    initializeTranslations();
    for (const char *part : {"krcore_en", "krgeolocation_en", "krmaphost_en", "krrender_en", "krroutes_en"})
        install(application, QLatin1String(part), QStringLiteral(":/translations"));
}
