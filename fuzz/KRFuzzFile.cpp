#include "KRFuzzFile.h"

#include <QFile>
#include <QTemporaryDir>

QFileInfo KRFuzzFile::write(const QString &fileName, const QByteArray &bytes)
{
    static const QTemporaryDir dir;
    QFile file(dir.filePath(fileName));
    // Otherwise nothing at all would be tried, and nobody would know.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    return QFileInfo(file.fileName());
}
