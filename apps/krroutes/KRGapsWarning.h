#pragma once

#include <QCoreApplication>

class QWidget;
struct KRMapGaps;

/**
 * Tells the user what the map lacks in a picture that is kept.
 */
class KRGapsWarning
{
    Q_DECLARE_TR_FUNCTIONS(KRGapsWarning)

public:
    /// Nothing where nothing is missing. @p title is that of the message.
    static void show(QWidget *window, const QString &title, const KRMapGaps &gaps);
    /// Asks whether to go on without what is missing.
    static bool isAccepted(QWidget *window, const QString &title, const KRMapGaps &gaps);

private:
    static QString text(const KRMapGaps &gaps);
};
