#include "KRPlacesPanel.h"

#include <KRGeoLocation/KRGeoLocationSettings.h>
#include <KRSamplePlaces.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace {

/// Places whose name has the text in it, or the place that the text describes.
QVector<KRBaseMapPlace> placesFor(const QString &text)
{
    QVector<KRBaseMapPlace> found;
    for (const KRBaseMapPlace &place : KRSamplePlaces::all()) {
        if (place.name.contains(text.trimmed(), Qt::CaseInsensitive))
            found.append(place);
    }
    const KRBaseMapPlace described = KRSamplePlaces::find(text);
    if (found.isEmpty() && described.position.isValid())
        found.append(described);
    return found;
}

} // namespace

KRPlacesPanel::KRPlacesPanel(QWidget *parent)
    : QWidget(parent), m_search(new QLineEdit), m_list(new QListWidget), m_nothingFound(new QLabel),
      m_addButton(new QPushButton(tr("Als Pun&kt einfügen")))
{
    m_search->setPlaceholderText(tr("Ort oder Koordinaten"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setToolTip(tr("Teil eines Namens, oder Koordinaten wie „N53.14 E8.21“ und „53,8,12N; 8,12,36E“"));
    m_search->setClearButtonEnabled(true);
    setFocusProxy(m_search);
    m_list->setAccessibleName(tr("Gefundene Orte"));
    m_nothingFound->setText(tr("Kein Ort gefunden. Auch Koordinaten wie „N53.14 E8.21“ werden verstanden."));
    m_nothingFound->setWordWrap(true);
    m_nothingFound->setAlignment(Qt::AlignTop);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_nothingFound, 1);
    layout->addWidget(m_addButton);

    const KRGeoLocationSettings *const settings = KRGeoLocationSettings::instance();
    connect(settings, &KRGeoLocationSettings::instantlyAddLocationsDisabled, this,
            [this](bool isDisabled) { addsInstantly(!isDisabled); });
    connect(m_search, &QLineEdit::textChanged, this, &KRPlacesPanel::showPlaces);
    connect(m_search, &QLineEdit::returnPressed, this, &KRPlacesPanel::chooseCurrent);
    connect(m_addButton, &QPushButton::clicked, this, &KRPlacesPanel::chooseCurrent);
    connect(m_list, &QListWidget::itemClicked, this, [this] {
        if (m_addButton->isHidden())
            chooseCurrent();
    });
    for (const int key : {int(Qt::Key_Return), int(Qt::Key_Enter)}) {
        auto *const shortcut = new QShortcut(QKeySequence(key), m_list);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &KRPlacesPanel::chooseCurrent);
    }
    addsInstantly(settings->instantlyAddLocations());
    showPlaces(QString());
}

void KRPlacesPanel::showPlaces(const QString &text)
{
    m_places = placesFor(text);
    m_list->clear();
    for (const KRBaseMapPlace &place : std::as_const(m_places)) {
        auto *const item = new QListWidgetItem(place.name, m_list);
        item->setToolTip(place.position.toString(true));
    }
    // Without a search nothing is meant yet.
    m_list->setCurrentRow(text.isEmpty() ? -1 : 0);
    m_list->setVisible(!m_places.isEmpty());
    m_nothingFound->setVisible(m_places.isEmpty());
    m_addButton->setEnabled(!m_places.isEmpty());
}

void KRPlacesPanel::addsInstantly(bool isInstant)
{
    m_addButton->setVisible(!isInstant);
    m_list->setToolTip(isInstant ? tr("Ein Klick fügt den Ort als Punkt ein.") : QString());
}

void KRPlacesPanel::chooseCurrent()
{
    const int row = m_list->currentRow();
    if (row < 0 || row >= m_places.size())
        return;
    const KRBaseMapPlace place = m_places.at(row);
    emit placeChosen(place.name, place.position);
}
