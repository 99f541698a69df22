#include "KRWaitCursor.h"

#include <QCursor>
#include <QGuiApplication>

KRWaitCursor::KRWaitCursor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

KRWaitCursor::~KRWaitCursor()
{
    QGuiApplication::restoreOverrideCursor();
}
