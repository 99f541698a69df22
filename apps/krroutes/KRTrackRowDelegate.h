#pragma once

#include <KRGeoLocation/KRGPXTrackMultiFunctionDelegate.h>

/**
 * The rows of the viewer's track list: all buttons, of which only those of the current row are reached by Tab, and
 * tool tips with the whole name and the beginning of the description.
 *
 * Names and descriptions come from files of others; markup in them is removed or shown, and never has an effect.
 */
class KRTrackRowDelegate : public KRGPXTrackMultiFunctionDelegate
{
    Q_OBJECT

public:
    explicit KRTrackRowDelegate(QAbstractItemView *view);

    static void setReachableByTab(QWidget *rowWidget, bool isReachable);
    /// Formatted text; empty when there is nothing to tell.
    static QString toolTip(const QString &name, const QString &description);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    QAbstractItemView *m_view;
};
