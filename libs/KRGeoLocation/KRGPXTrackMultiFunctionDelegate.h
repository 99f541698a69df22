#pragma once

#include "KRGPXTrackEditOptions.h"
#include "KRGeoLocationExport.h"

#include <QHash>
#include <QStyledItemDelegate>

#include <memory>

class KRGPXTrackMultiFunctionDelegateWidget;
class QAbstractItemView;

/**
 * Puts a widget with text and buttons into every row of a list view with one column, and tells which button of which
 * row was clicked.
 *
 * A row gets its widget when it is painted first, and keeps it until the view closes the editor; views of long lists
 * close those out of sight. deleteItem() and zoomToItem() come once control is back in the event loop, so that the
 * receiver may remove the row whose button is still at work.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackMultiFunctionDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Becomes a child of @p view; whoever makes it sets it as the delegate of the view.
    KRGPXTrackMultiFunctionDelegate(QAbstractItemView *view, KRGPXTrackEditOptions options);
    ~KRGPXTrackMultiFunctionDelegate() override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    /// Both do nothing, as the widgets edit nothing in the model.
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

    /// Opens the row's widget and draws nothing itself.
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// The same for all rows.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

public slots:
    /// Lets a row blink; nothing happens where it has no widget.
    void animate(int row);

signals:
    /// Which button was clicked, in which row; addItem() is the one that marks.
    void editItem(int row);
    void deleteItem(int row);
    void addItem(int row);
    void zoomToItem(int row);

private:
    void forget(int row, const QObject *widget) const;

    QAbstractItemView *m_view;
    KRGPXTrackEditOptions m_options;
    std::unique_ptr<KRGPXTrackMultiFunctionDelegateWidget> m_template;
    // The widgets belong to the view, whose calls are const.
    mutable QHash<int, KRGPXTrackMultiFunctionDelegateWidget *> m_widgets;
};
