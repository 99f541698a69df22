#pragma once

#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QDialog>

class KRErrorHistory;
class KRMapGround;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGroupBox;
class QLineEdit;
class QSpinBox;

/**
 * Writes the map as a picture, or the routes for other programs, as the user chooses.
 *
 * It closes when the file is written; what went wrong is told with file and reason, and the dialog stays. Format, size
 * and area are those of the last time.
 */
class KRExportDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param shownArea what the map shows; not valid when there is nothing but the tracks
    /// @param ground is not owned; nullptr for none
    KRExportDialog(const KRGPXTrackSelection &selection, const KRGeoPositionRect &shownArea, KRMapGround *ground,
                   QWidget *parent = nullptr);

    /// The file is proposed by this name.
    void setTitle(const QString &title);
    /// What the map shows at present, from which the user may depart.
    void setLegend(bool isShown);
    void setLabels(bool areShown);

    /// The file to be written, with its suffix.
    QString fileName() const;

public slots:
    void accept() override;
    /// Not while it writes, which has a button of its own for that.
    void reject() override;

private:
    QGroupBox *createFileBox();
    QGroupBox *createPictureBox();
    void readSettings();
    void saveSettings() const;
    void chooseFile();
    void followFormat();
    QByteArray format() const;
    bool isPicture() const;
    KRGeoPositionRect area() const;
    bool mayReplace(const QString &fileName);
    /// False when there is nothing to be written, which the user has been told. @p history gets what is lost.
    bool createBytes(QByteArray *bytes, KRErrorHistory *history);
    bool createPicture(QByteArray *bytes);
    void warn(const KRErrorHistory &losses);
    void complain(const QString &reason);

    KRGPXTrackSelection m_selection;
    KRGeoPositionRect m_shownArea;
    KRMapGround *m_ground;

    QComboBox *m_formatBox;
    QLineEdit *m_fileEdit;
    QGroupBox *m_pictureBox;
    QComboBox *m_areaBox;
    QSpinBox *m_widthBox;
    QSpinBox *m_heightBox;
    QDoubleSpinBox *m_factorBox;
    QCheckBox *m_groundBox;
    QCheckBox *m_legendBox;
    QCheckBox *m_labelsBox;
};
