#pragma once

#include "KRTestFile.h"

#include <QTemporaryDir>

/// A directory for the files of a test, as KRTestFile writes them, gone with it.
class KRTestFolder
{
public:
    KRTestFolder()
    {
        if (!m_dir.isValid())
            qFatal("cannot make a folder: %s", qPrintable(m_dir.errorString()));
    }

    QDir dir() const { return QDir(m_dir.path()); }
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QStringList files() const { return dir().entryList(QDir::Files, QDir::Name); }

    QFileInfo write(const QString &name, const QByteArray &content) const
    {
        return QFileInfo(KRTestFile::write(path(name), content));
    }

private:
    const QTemporaryDir m_dir;
};
