#include "KRPreferencesDialog.h"

#include "KRPreferencesLook.h"

#include <KRGeoLocation/KRPreferencesGeoLocation.h>

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <iterator>
#include <utility>

namespace {

constexpr QSize usualDialogSize(520, 620); // room for the look without scrolling

QString heading(KRPreferencesType type)
{
    switch (type) {
    case GeneralPreferences:
        return KRPreferencesDialog::tr("Allgemein");
    case MapPreferences:
        return KRPreferencesDialog::tr("Karten und Orte");
    case TrackPreferences:
        return KRPreferencesDialog::tr("Routen");
    }
    return {};
}

} // namespace

KRPreferencesDialog::KRPreferencesDialog(QWidget *parent) : QDialog(parent), m_tabs(new QTabWidget)
{
    setWindowTitle(tr("Einstellungen"));
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &KRPreferencesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);
    addBox(new KRPreferencesGeoLocation(nullptr));
    addBox(new KRPreferencesLook);
    resize(sizeHint().expandedTo(usualDialogSize));
}

void KRPreferencesDialog::addBox(KRPreferencesBox *box)
{
    const KRPreferencesType type = box->preferencesType();
    if (!m_pages.contains(type)) {
        auto *const page = new QWidget;
        const auto next = m_pages.insert(type, new QVBoxLayout(page));
        m_tabs->insertTab(int(std::distance(m_pages.begin(), next)), page, heading(type));
    }
    // Pages that do not need all the room stay together at the top.
    const bool isGrowing = box->sizePolicy().verticalPolicy() == QSizePolicy::Expanding;
    m_pages.value(type)->addWidget(box, isGrowing ? 1 : 0, isGrowing ? Qt::Alignment() : Qt::AlignTop);
    m_boxes.append(box);
    box->readFromConfig();
}

void KRPreferencesDialog::accept()
{
    for (KRPreferencesBox *box : std::as_const(m_boxes))
        box->writeToConfig();
    QDialog::accept();
}
