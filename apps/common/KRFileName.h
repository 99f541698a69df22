#pragma once

#include <QString>

/// Names of files as they stand on command lines and in documents.
namespace KRFileName {

/// The same file, also where Qt would take the name for that of a resource of the program, as it begins with a colon.
inline QString ofText(const QString &text)
{
    return text.startsWith(QLatin1Char(':')) ? QStringLiteral("./") + text : text;
}

} // namespace KRFileName
