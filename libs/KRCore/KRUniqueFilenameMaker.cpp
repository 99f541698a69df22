#include "KRUniqueFilenameMaker.h"

#include <QDir>
#include <QFileInfo>
#include <QMutexLocker>

namespace {

QString numberedName(const QFileInfo &proposal, int number)
{
    if (number == 0)
        return proposal.fileName();
    const QString name = proposal.completeBaseName() + QLatin1Char('_') + QString::number(number);
    return proposal.suffix().isEmpty() ? name : name + QLatin1Char('.') + proposal.suffix();
}

} // namespace

QFileInfo KRUniqueFilenameMaker::makeUniqueFileNameInSafeContainer(const QFileInfo &proposal,
                                                                   const QSet<QDir> & /*dirs*/)
{
    const QDir dir = proposal.dir();
    const QString path = dir.exists() ? dir.canonicalPath() : dir.absolutePath();

    const QMutexLocker locker(&m_mutex);
    int &nextNumber = m_nextNumbers[path + QLatin1Char('/') + proposal.fileName()];
    QFileInfo candidate;
    do {
        candidate = QFileInfo(dir, numberedName(proposal, nextNumber++));
    } while (candidate.exists() || candidate.isSymLink());
    return candidate;
}
