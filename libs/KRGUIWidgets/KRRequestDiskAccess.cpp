#include "KRRequestDiskAccess.h"

#include <QFileDialog>

QString KRRequestDiskAccess::getOpenFileName(KRDiskAccessMode mode, const QString &title, const QString &directory,
                                             const QString &filter) const
{
    if (m_openFileName)
        return m_openFileName(mode, title, directory, filter);
    return QFileDialog::getOpenFileName(nullptr, title, directory, filter);
}
