#pragma once

#include <QLoggingCategory>

/// While it lives nothing is logged of files, which are read or cannot be; error histories tell it all the same.
class KRQuietFiles
{
public:
    KRQuietFiles() { QLoggingCategory::setFilterRules(QStringLiteral("kr.*=false")); }
    ~KRQuietFiles() { QLoggingCategory::setFilterRules(QString()); }
    Q_DISABLE_COPY(KRQuietFiles)
};
