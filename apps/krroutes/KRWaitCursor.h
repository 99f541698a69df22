#pragma once

#include <QtGlobal>

/**
 * While it lives the pointer says that the program is busy. GUI thread only.
 */
class KRWaitCursor
{
public:
    KRWaitCursor();
    ~KRWaitCursor();

private:
    Q_DISABLE_COPY_MOVE(KRWaitCursor)
};
