#include "KRGroundMenu.h"

#include "KRGroundDialog.h"
#include "KRGroundSettings.h"

#include <KRPlainText.h>
#include <KRTileGround.h>

#include <QActionGroup>
#include <QDir>

#include <utility>

KRGroundMenu::KRGroundMenu(QWidget *parent) : QMenu(tr("&Karte"), parent), m_choices(new QActionGroup(this))
{
    setToolTipsVisible(true);
    show(KRGroundSettings().choice());
    connect(this, &QMenu::aboutToShow, this, &KRGroundMenu::fill);
    fill();
}

KRGroundMenu::~KRGroundMenu() = default;

void KRGroundMenu::setChoice(const KRGroundChoice &choice)
{
    KRGroundSettings().setChoice(choice);
    show(choice);
}

void KRGroundMenu::fill()
{
    clear();
    addChoice(KRGroundChoice(), tr("&Eingebaute Karte"));
    addChoice(KRGroundChoice::noMap(), tr("&Keine Karte"));
    addSeparator();
    addRecentTiles();
    addAction(tr("Karte aus Ka&cheln …"), this, &KRGroundMenu::askForTiles);
    QAction *const clearing = addAction(tr("Liste &leeren"), this, [] { KRGroundSettings().clearRecentTiles(); });
    clearing->setEnabled(!KRGroundSettings().recentTiles().isEmpty());
}

void KRGroundMenu::addChoice(const KRGroundChoice &choice, const QString &text)
{
    QAction *const action = addAction(text, this, [this, choice] { setChoice(choice); });
    action->setCheckable(true);
    m_choices->addAction(action);
    action->setChecked(choice == m_choice);
    action->setToolTip(KRPlainText::toolTip(QDir::toNativeSeparators(choice.source())));
}

void KRGroundMenu::addRecentTiles()
{
    const QVector<KRGroundChoice> recent = KRGroundSettings().recentTiles();
    for (int i = 0; i < recent.size(); ++i) {
        const QString name = KRPlainText::oneLine(recent.at(i).name()).replace(QLatin1Char('&'), QLatin1String("&&"));
        addChoice(recent.at(i), QStringLiteral("&%1  %2").arg(QString::number(i + 1), name));
    }
}

void KRGroundMenu::askForTiles()
{
    KRGroundDialog dialog(parentWidget());
    if (dialog.exec() == QDialog::Accepted)
        setChoice(dialog.choice());
}

void KRGroundMenu::show(const KRGroundChoice &choice)
{
    m_choice = choice;
    const std::unique_ptr<KRMapGround> before = std::exchange(m_ground, choice.createGround());
    if (m_ground != nullptr)
        connect(m_ground.get(), &KRMapGround::changed, this, &KRGroundMenu::checkForProblem);
    emit groundChanged(m_ground.get());
    checkForProblem();
}

void KRGroundMenu::checkForProblem()
{
    const auto *const tiles = qobject_cast<KRTileGround *>(m_ground.get());
    const QString problem = tiles == nullptr ? QString() : tiles->problem();
    if (std::exchange(m_problem, problem) != problem)
        emit problemChanged(problem);
}
