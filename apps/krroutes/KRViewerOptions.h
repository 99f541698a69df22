#pragma once

#include <QCoreApplication>
#include <QStringList>

/**
 * What the user has said on the command line. Help and version are answered, and end the process, at once; so does
 * what cannot be understood, with exit code 2.
 */
class KRViewerOptions
{
    Q_DECLARE_TR_FUNCTIONS(KRViewerOptions)

public:
    /// Needs the application object.
    explicit KRViewerOptions(const QStringList &arguments);

    /// Absolute paths. Empty names are left out.
    QStringList fileNames() const { return m_fileNames; }

private:
    QStringList m_fileNames;
};
