#pragma once

#include <KRGeoLocation/KRGPXFullShape.h>
#include <KRGeoLocation/KRGPXFullShapeListModel.h>

#include <QListView>

class KRGPXTrackConfiguration;

/// Shows the shapes and markers to which a track may be switched as tiles, in the colours of the track.
class KRFullShapeChooser : public QListView
{
    Q_OBJECT

public:
    explicit KRFullShapeChooser(QWidget *parent = nullptr);

    /// Offers what a track of this shape may become; nothing for one that is not known.
    void offerFor(const KRGPXTrackShape &naturalShape);
    /// Shows colours and choice, and announces nothing. Nothing is chosen where the shape is not offered.
    void showLook(const KRGPXTrackConfiguration &configuration, const KRGPXFullShape &shape);

    bool isEmpty() const { return m_model.rowCount() == 0; }
    bool wouldBeInvisible() const { return m_model.wouldBeInvisible(); }

signals:
    /// By the user.
    void shapeChosen(const KRGPXFullShape &shape);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void fitHeight();

    KRGPXFullShapeListModel m_model;
    KRGPXTrackShape m_naturalShape;
    bool m_isShowing = false;
};
