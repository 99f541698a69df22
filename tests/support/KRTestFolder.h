#pragma once

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

/// A directory for the files of a test, gone with it.
class KRTestFolder
{
public:
    QDir dir() const { return QDir(m_dir.path()); }
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QStringList files() const { return dir().entryList(QDir::Files, QDir::Name); }

    /// Makes the file, or makes it anew.
    QFileInfo write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qUtf8Printable(file.fileName()));
        return QFileInfo(file.fileName());
    }

private:
    const QTemporaryDir m_dir;
};
