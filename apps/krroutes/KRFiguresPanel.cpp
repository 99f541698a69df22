#include "KRFiguresPanel.h"

#include "KRFigureTexts.h"

#include <KRClimbCounter.h>
#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRTrackFigures.h>

#include <QDateTime>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtConcurrent>

#include <algorithm>

namespace {

constexpr int columnSpacing = 24; // pixels
constexpr int pointsCountedAtOnce = 5000; // takes a few milliseconds

} // namespace

KRFiguresPanel::KRFiguresPanel(QWidget *parent) : QWidget(parent)
{
    auto *const content = new QWidget;
    m_grid = new QGridLayout(content);
    m_grid->setVerticalSpacing(2);
    m_length = addRow(tr("Länge:"));
    m_climb = addRow(tr("Anstieg:"));
    m_descent = addRow(tr("Abstieg:"));
    m_elevation = addRow(tr("Höhen:"));
    m_points = addRow(tr("Punkte:"));
    m_segments = addRow(tr("Segmente:"));
    m_from = addRow(tr("Beginn:"));
    m_to = addRow(tr("Ende:"));
    m_duration = addRow(tr("Dauer:"));
    m_averageSpeed = addRow(tr("Durchschnitt:"));
    m_maximumSpeed = addRow(tr("Höchsttempo:"));
    layOut(1);
    const QString climbToolTip = tr("Wechsel zwischen auf und ab zählen ab %1 m, denn so weit schwanken Messungen.")
                                     .arg(KRClimbCounter::smallestTurnMetres);
    m_climb->setToolTip(climbToolTip);
    m_descent->setToolTip(climbToolTip);
    m_averageSpeed->setToolTip(tr("Mit den Pausen innerhalb der Segmente, ohne die zwischen ihnen"));
    m_maximumSpeed->setToolTip(tr("Über wenigstens zehn Sekunden"));

    auto *const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(content);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    setMinimumWidth(columnWidth() + area->verticalScrollBar()->sizeHint().width());
    showEverywhere(KRFigureTexts::unknown());
    connect(&m_counter, &QFutureWatcherBase::finished, this, [this] {
        // A future that was only put in to forget the one before has no result.
        if (!m_counter.isCanceled())
            showFigures(*m_counter.result());
    });
}

void KRFiguresPanel::setTrack(const KRGPXTrack &track)
{
    if (m_hasTrack && track == m_track)
        return;
    m_hasTrack = true;
    m_track = track;
    const auto count = [track] {
        return SharedFigures(new KRTrackFigures(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration())));
    };
    if (track.countPoints() <= pointsCountedAtOnce) {
        m_counter.setFuture(QFuture<SharedFigures>());
        showFigures(*count());
    } else {
        showEverywhere(QStringLiteral("…"));
        m_counter.setFuture(QtConcurrent::run(count));
    }
}

void KRFiguresPanel::clear()
{
    m_hasTrack = false;
    m_track = KRGPXTrack();
    m_counter.setFuture(QFuture<SharedFigures>());
    showEverywhere(KRFigureTexts::unknown());
}

void KRFiguresPanel::resizeEvent(QResizeEvent *event)
{
    layOut(width() >= 2 * columnWidth() ? 2 : 1);
    QWidget::resizeEvent(event);
}

QLabel *KRFiguresPanel::addRow(const QString &title)
{
    const Row row{new QLabel(title), new QLabel};
    row.value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const QDateTime widest(QDate(2000, 12, 28), QTime(20, 58, 58));
    row.value->setMinimumWidth(fontMetrics().horizontalAdvance(KRFigureTexts::moment(widest) + QLatin1Char('0')));
    row.value->setAccessibleName(title);
    m_rows.append(row);
    return row.value;
}

int KRFiguresPanel::columnWidth() const
{
    int titleWidth = 0;
    for (const Row &row : m_rows)
        titleWidth = std::max(titleWidth, row.title->sizeHint().width());
    return titleWidth + m_rows.first().value->minimumWidth() + columnSpacing;
}

void KRFiguresPanel::layOut(int columns)
{
    const int rowsInColumn = (m_rows.size() + columns - 1) / columns;
    for (int i = 0; i < m_rows.size(); ++i) {
        const int row = i % rowsInColumn;
        const int column = i / rowsInColumn * 3; // title, value, space
        m_grid->addWidget(m_rows.at(i).title, row, column);
        m_grid->addWidget(m_rows.at(i).value, row, column + 1);
    }
    m_grid->setColumnMinimumWidth(2, columns > 1 ? columnSpacing / 2 : 0);
    m_grid->setColumnStretch(1, 1);
    m_grid->setColumnStretch(4, columns > 1 ? 1 : 0);
    for (int row = 0; row <= m_rows.size(); ++row)
        m_grid->setRowStretch(row, row == rowsInColumn ? 1 : 0);
}

void KRFiguresPanel::showFigures(const KRTrackFigures &figures)
{
    showEverywhere(KRFigureTexts::unknown());
    m_length->setText(KRFigureTexts::way(figures.lengthKm()));
    if (figures.from().isValid()) {
        m_from->setText(KRFigureTexts::moment(figures.from()));
        m_to->setText(KRFigureTexts::moment(figures.to()));
        m_duration->setText(KRFigureTexts::duration(figures.durationSeconds()));
    }
    if (figures.hasElevation()) {
        m_climb->setText(KRFigureTexts::elevation(figures.climbMetres()));
        m_descent->setText(KRFigureTexts::elevation(figures.descentMetres()));
        m_elevation->setText(
            tr("%1 bis %2")
                .arg(QLocale().toString(figures.lowestMetres()), KRFigureTexts::elevation(figures.highestMetres())));
    }
    if (figures.hasSpeed()) {
        m_averageSpeed->setText(KRFigureTexts::speed(figures.averageSpeedKmh()));
        m_maximumSpeed->setText(KRFigureTexts::speed(figures.maximumSpeedKmh()));
    }
    m_points->setText(QLocale().toString(figures.pointCount()));
    m_segments->setText(QLocale().toString(figures.segmentCount()));
}

void KRFiguresPanel::showEverywhere(const QString &text)
{
    for (const Row &row : std::as_const(m_rows))
        row.value->setText(text);
}
