#include "KRNumberedRoutes.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>

namespace {

void say(const char *word, int number)
{
    std::printf("%s %d\n", word, number);
    std::fflush(stdout);
}

/// From the environment; @p otherwise where it says nothing.
long number(const char *name, long otherwise)
{
    const QByteArray text = qgetenv(name);
    return text.isEmpty() ? otherwise : text.toLong();
}

bool limit(__rlimit_resource resource, long value)
{
    const rlimit limits{rlim_t(value), rlim_t(value)};
    return value < 0 || ::setrlimit(resource, &limits) == 0;
}

/// What this process must not do: act as the superuser, write large files, or open any more.
bool restrict()
{
    std::signal(SIGXFSZ, SIG_IGN);
    if (!limit(RLIMIT_FSIZE, number("KR_WRITER_LIMIT", -1)) || !limit(RLIMIT_NOFILE, number("KR_WRITER_FILES", -1)))
        return false;
    const long user = number("KR_WRITER_USER", -1);
    return user < 0 || ::geteuid() != 0 || (::setgid(gid_t(user)) == 0 && ::setuid(uid_t(user)) == 0);
}

/// Saves @p count documents; says whether all went well.
bool saveAll(const QFileInfo &file, const QString &writer, int first, int count)
{
    for (int i = first; i < first + count; ++i) {
        KRRouteDocument document;
        document.setSelection(KRNumberedRoutes::make(writer, i));
        KRErrorHistory history;
        say("begin", i);
        if (!document.save(file, &history)) {
            std::printf("%s\n", history.isEmpty() ? "" : qUtf8Printable(history.entries().first().toString()));
            return false;
        }
        say("end", i);
    }
    return true;
}

} // namespace

/**
 * Saves numbered route documents one after the other, to be ended or hindered at any moment.
 *
 * routes_writer FILE WRITER FIRST COUNT says "begin N" and "end N" around each save; what fails ends it with code 1.
 */
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5 || !restrict())
        return EXIT_FAILURE + 1;
    const bool isSaved =
        saveAll(QFileInfo(arguments.at(1)), arguments.at(2), arguments.at(3).toInt(), arguments.at(4).toInt());
    std::fflush(stdout);
    // At once, as a search for leaks cannot work within these limits.
    std::_Exit(isSaved ? EXIT_SUCCESS : EXIT_FAILURE);
}
