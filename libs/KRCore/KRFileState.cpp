#include "KRFileState.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

auto stateOf(const struct stat &status)
{
    return std::make_tuple(status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
}

} // namespace

KRFileState::KRFileState(const QFileInfo &file)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(file.filePath()).constData(), &status) == 0)
        m_state = stateOf(status);
}

KRFileState::KRFileState(const QFileDevice &file)
{
    struct stat status = {};
    if (::fstat(file.handle(), &status) == 0)
        m_state = stateOf(status);
}

QString KRFileState::textOfChange()
{
    return QCoreApplication::translate("KRFileState", "Die Datei wurde geändert, während sie gelesen wurde.");
}
