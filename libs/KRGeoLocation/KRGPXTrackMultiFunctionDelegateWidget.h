#pragma once

#include "KRGPXTrackEditOptions.h"
#include "KRGeoLocationExport.h"

#include <QWidget>

class KRBlinkAnimation;
class KRElidedLabel;
class QModelIndex;

/**
 * What one row of the track list shows: its text, and the buttons to edit, delete, zoom to and mark its track.
 *
 * The text follows the model. The row number stays what it was at the beginning, as do the tool tips of the buttons.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackMultiFunctionDelegateWidget : public QWidget
{
    Q_OBJECT

public:
    /// An invalid @p index gives a row without text.
    KRGPXTrackMultiFunctionDelegateWidget(const QModelIndex &index, KRGPXTrackEditOptions options, QWidget *parent);
    ~KRGPXTrackMultiFunctionDelegateWidget() override;

    int row() const { return m_row; }
    bool isBlinking() const;
    /// Lets the text blink for about a second.
    void startAnimation();

signals:
    /// Which button was clicked, in which row; addItem() is the one that marks.
    void editItem(int row);
    void deleteItem(int row);
    void addItem(int row);
    void zoomToItem(int row);

public slots:
    /// For the buttons.
    void onEditEventRequested();
    void onDeleteEventRequested();
    void onZoomEventRequested();
    void onAddEventRequested();
    void modelDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    /// Shows a state of KRBlinkAnimation.
    void animate(int state);

private:
    void setupUi(const QModelIndex &index, KRGPXTrackEditOptions options);
    KRElidedLabel *createTextLabel(const QString &text);

    KRElidedLabel *m_label = nullptr;
    int m_row;
    KRBlinkAnimation *m_animation;
};
