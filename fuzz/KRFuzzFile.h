#pragma once

#include <QFileInfo>

class QByteArray;

/// Puts an input where the importers can read it: into a folder that belongs to this process.
class KRFuzzFile
{
public:
    /// Replaces the file of this name that was written before.
    static QFileInfo write(const QString &fileName, const QByteArray &bytes);
};
