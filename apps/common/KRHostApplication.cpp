#include "KRHostApplication.h"

#include <KRCore/KRQtCompat.h>
#include <KRCore/KRSettings.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <new>
#include <unistd.h>

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

/// A pipe that nobody reads any more, and a file larger than the system allows.
void surviveFailedWrites()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

/// Where the caller has closed the standard output, the first file to be opened would get its number, and with it what
/// is printed. Writing to what stands in their place fails. The event loop takes a file too, and ends the program
/// without a word where it gets none.
bool occupyStandardDescriptors()
{
    int descriptor = 0;
    do {
        descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    const int another = descriptor >= 0 ? ::dup(descriptor) : -1;
    const bool hasFiles = another >= 0 || (errno != EMFILE && errno != ENFILE);
    if (!hasFiles)
        std::perror(program_invocation_short_name);
    ::close(another);
    ::close(descriptor);
    return hasFiles;
}

/// The first of the user's languages that we speak. The texts in the sources are German.
bool speaksGerman()
{
    const QStringList languages = QLocale::system().uiLanguages();
    return !languages.isEmpty() && languages.first().startsWith(QLatin1String("de"));
}

/// Asked for while there still is some.
QByteArray &lineForNoMemory()
{
    static QByteArray line;
    return line;
}

[[noreturn]] void endForNoMemory()
{
    const QByteArray &line = lineForNoMemory();
    // There is nothing else to be done where that fails, too.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, line.constData(), std::size_t(line.size()));
    std::_Exit(2);
}

/// Qt, too, throws what nobody catches.
[[noreturn]] void terminate()
{
    try {
        const std::exception_ptr reason = std::current_exception();
        if (reason)
            std::rethrow_exception(reason);
    } catch (const std::bad_alloc &) {
        endForNoMemory();
    } catch (...) { }
    std::abort();
}

} // namespace

bool KRHostApplication::prepare(bool isVerbose)
{
    if (!occupyStandardDescriptors())
        return false;
    surviveFailedWrites();
    if (!isVerbose)
        qInstallMessageHandler(keepSilent);
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!hasDisplay && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return true;
}

void KRHostApplication::setup(QCoreApplication &application, const QString &name)
{
    QCoreApplication::setOrganizationName(QStringLiteral("KRGeoLocation"));
    QCoreApplication::setApplicationName(name);
    QCoreApplication::setApplicationVersion(QStringLiteral(KR_VERSION));
    KRSettings::refuseForeignTypes(true);

    if (speaksGerman()) {
        install(application, QStringLiteral("qtbase_de"), KRQtCompat::translationsFolder());
    } else {
        initializeTranslations();
        for (const char *part : {"krcore_en", "krgeolocation_en", "krmaphost_en", "krrender_en", "krroutes_en"})
            install(application, QLatin1String(part), QStringLiteral(":/translations"));
    }
    const QString reason = QCoreApplication::translate("KRHostApplication", "Der Speicher reicht nicht.");
    lineForNoMemory() = QStringLiteral("%1: %2\n").arg(name, reason).toLocal8Bit();
    std::set_terminate(terminate);
}
