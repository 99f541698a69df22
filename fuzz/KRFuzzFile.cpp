#include "KRFuzzFile.h"

#include <KRTestFile.h>

#include <QTemporaryDir>

QFileInfo KRFuzzFile::write(const QString &fileName, const QByteArray &bytes)
{
    static const QTemporaryDir dir;
    return QFileInfo(KRTestFile::write(dir.filePath(fileName), bytes));
}
