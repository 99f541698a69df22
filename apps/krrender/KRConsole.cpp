#include "KRConsole.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRMessageText.h>

#include <cstdio>
#include <unistd.h>

namespace {

void write(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stderr);
    std::fflush(stderr);
}

} // namespace

KRConsole::KRConsole(bool isQuiet, bool isVerbose)
    : m_isQuiet(isQuiet), m_showsProgress(!isQuiet && !isVerbose && isatty(STDERR_FILENO) != 0)
{ }

void KRConsole::print(const QString &line)
{
    clearProgress();
    write(KRMessageText::printable(line).toLocal8Bit() + '\n');
}

void KRConsole::complain(const QString &problem)
{
    print(QStringLiteral("krrender: ") + problem);
}

void KRConsole::complain(const KRErrorHistory &problems)
{
    for (const KRErrorHistory::Entry &problem : problems.entries())
        complain(problem.toString());
}

void KRConsole::say(const QString &message)
{
    if (!m_isQuiet)
        print(message);
}

void KRConsole::showProgress(const QString &message)
{
    if (!m_showsProgress)
        return;
    clearProgress();
    write(KRMessageText::printable(message).toLocal8Bit());
    m_isProgressShown = true;
}

void KRConsole::clearProgress()
{
    if (m_isProgressShown)
        write(QByteArrayLiteral("\r\033[K"));
    m_isProgressShown = false;
}
