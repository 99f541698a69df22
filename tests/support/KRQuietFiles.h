#pragma once

#include <QLoggingCategory>

/// While it lives nothing is logged of files that cannot be read or written; error histories tell it all the same.
class KRQuietFiles
{
public:
    KRQuietFiles() { QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false")); }
    ~KRQuietFiles() { QLoggingCategory::setFilterRules(QString()); }
    Q_DISABLE_COPY(KRQuietFiles)
};
