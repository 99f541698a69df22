#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

/// Files that tests lay down and look into.
namespace KRTestFile {

/// Replaces what is there and makes the folders above; returns the name.
inline QString write(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    if (!QDir().mkpath(QFileInfo(fileName).path()) || !file.open(QIODevice::WriteOnly)
        || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(fileName));
    return fileName;
}

/// Empty when it cannot be read.
inline QByteArray content(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace KRTestFile
