#pragma once

#include "KRTest.h"

#include <QImage>

#include <memory>

/// Runs krrender as a user does, in an empty folder, for tests of its exit code, its words and its pictures.
class KRRenderTest : public QObject
{
    Q_OBJECT

protected:
    struct Outcome {
        int exitCode = -1;
        QByteArray out;
        QString err;
        bool complainsOf(const QByteArray &word) const { return err.contains(QString::fromUtf8(word)); }
    };
    /// Gives the command to the shell; $tour and $lake are sample routes.
    Outcome run(const QByteArray &command) const;
    /// Draws to the standard output; null when there was anything to complain about.
    QImage draw(const QByteArray &options) const;
    QJsonArray tracks(const QByteArray &options) const;
    /// The folder of the test.
    QString folder() const { return m_dir->path(); }
    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }
    bool isEmpty() const { return QDir(folder()).isEmpty(); }

private slots:
    void initTestCase();
    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};
