#pragma once

#include "KRCoreExport.h"

class QString;

/**
 * Texts of unknown origin, such as file names and names out of files, as a part of messages.
 */
class KRCORE_EXPORT KRMessageText
{
public:
    /// One line with a "?" for everything that a terminal would obey or that shows what follows in another order.
    static QString printable(const QString &text);
};
