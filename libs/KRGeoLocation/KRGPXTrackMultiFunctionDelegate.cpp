#include "KRGPXTrackMultiFunctionDelegate.h"

#include "KRGPXTrackMultiFunctionDelegateWidget.h"

#include <QAbstractItemView>

using Delegate = KRGPXTrackMultiFunctionDelegate;
using RowWidget = KRGPXTrackMultiFunctionDelegateWidget;

KRGPXTrackMultiFunctionDelegate::KRGPXTrackMultiFunctionDelegate(QAbstractItemView *view, KRGPXTrackEditOptions options)
    : QStyledItemDelegate(view), m_view(view), m_options(options),
      m_template(std::make_unique<RowWidget>(QModelIndex(), options, nullptr))
{
    m_template->hide();
}

KRGPXTrackMultiFunctionDelegate::~KRGPXTrackMultiFunctionDelegate() = default;

QWidget *KRGPXTrackMultiFunctionDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                                       const QModelIndex &index) const
{
    auto *const widget = new RowWidget(index, m_options, parent);
    connect(widget, &RowWidget::editItem, this, &Delegate::editItem);
    connect(widget, &RowWidget::addItem, this, &Delegate::addItem);
    // The receiver may remove the row, and with it the widget whose button is still sending.
    connect(widget, &RowWidget::deleteItem, this, &Delegate::deleteItem, Qt::QueuedConnection);
    connect(widget, &RowWidget::zoomToItem, this, &Delegate::zoomToItem, Qt::QueuedConnection);
    const int row = index.row();
    m_widgets.insert(row, widget);
    // A view that is deleted itself does not call destroyEditor().
    connect(widget, &QObject::destroyed, this, [this, row, widget] { forget(row, widget); });
    return widget;
}

void KRGPXTrackMultiFunctionDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    m_widgets.remove(index.row());
    if (const auto *const widget = qobject_cast<RowWidget *>(editor)) {
        // After a reset of the model the index is invalid.
        forget(widget->row(), widget);
        disconnect(widget, &RowWidget::editItem, this, &Delegate::editItem);
        disconnect(widget, &RowWidget::deleteItem, this, &Delegate::deleteItem);
    }
    QStyledItemDelegate::destroyEditor(editor, index);
}

void KRGPXTrackMultiFunctionDelegate::forget(int row, const QObject *widget) const
{
    if (m_widgets.value(row) == widget)
        m_widgets.remove(row);
}

void KRGPXTrackMultiFunctionDelegate::setEditorData(QWidget * /*editor*/, const QModelIndex & /*index*/) const { }

void KRGPXTrackMultiFunctionDelegate::setModelData(QWidget * /*editor*/, QAbstractItemModel * /*model*/,
                                                   const QModelIndex & /*index*/) const
{ }

void KRGPXTrackMultiFunctionDelegate::paint(QPainter * /*painter*/, const QStyleOptionViewItem & /*option*/,
                                            const QModelIndex &index) const
{
    if (index.data(Qt::EditRole).isValid())
        m_view->openPersistentEditor(index);
}

QSize KRGPXTrackMultiFunctionDelegate::sizeHint(const QStyleOptionViewItem & /*option*/,
                                                const QModelIndex & /*index*/) const
{
    return m_template->sizeHint();
}

void KRGPXTrackMultiFunctionDelegate::animate(int row)
{
    if (RowWidget *const widget = m_widgets.value(row))
        widget->startAnimation();
}
