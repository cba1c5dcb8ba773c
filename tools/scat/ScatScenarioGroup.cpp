#include "ScatScenarioGroup.h"

#include "ChartPanelControls.h"
#include "ScatScenarios.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>

namespace gkBase {

namespace {

/// Four of them stand side by side.
QPushButton* newNarrowButton(const QString& sText, const QString& sToolTip, const char* pObjectName)
{
    QPushButton* pqButton = newButton(sText, sToolTip, pObjectName);
    pqButton->setMinimumWidth(1);
    return pqButton;
}

QToolButton* newToolButton(QAction* pqAction)
{
    auto* pqButton = new QToolButton;
    pqButton->setDefaultAction(pqAction);
    pqButton->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return pqButton;
}

} // namespace

ScatScenarioGroup::ScatScenarioGroup(QAction* pqUndo, QAction* pqRedo, QWidget* pqParent)
    : QGroupBox(tr("Structural Interpretation Scenario"), pqParent)
    , m_pqScenarioComboBox(newChooser(tr("Structural Interpretation Scenario"),
                                      tr("The scenario whose lines are shown; * stands for changes not saved yet"),
                                      QStringLiteral("m_pqScenarioComboBox")))
    , m_pqSaveButton(
          newNarrowButton(tr("Save"), tr("Write the lines of the scenario to a file"), "m_pqSaveScenarioBtn"))
    , m_pqCloseButton(newNarrowButton(tr("Close"), tr("Take the scenario out of this window"), "m_pqCloseScenarioBtn"))
{
    m_pqScenarioComboBox->setPlaceholderText(tr("None"));
    auto* pqNew = newNarrowButton(tr("New"), tr("Begin a scenario without lines"), "m_pqNewScenarioBtn");
    auto* pqImport = newNarrowButton(tr("Import"), tr("Read scenarios from files"), "m_pqImportScenarioBtn");
    auto* pqFirst = new QHBoxLayout;
    pqFirst->addWidget(m_pqScenarioComboBox, 1);
    pqFirst->addWidget(newToolButton(pqUndo));
    pqFirst->addWidget(newToolButton(pqRedo));
    auto* pqGrid = new QGridLayout(this);
    pqGrid->addLayout(pqFirst, 0, 0, 1, 4);
    int iColumn = 0;
    for (QPushButton* pqButton : {pqNew, pqImport, m_pqSaveButton, m_pqCloseButton})
        pqGrid->addWidget(pqButton, 1, iColumn++);
    connect(pqNew, &QPushButton::clicked, this, &ScatScenarioGroup::newAsked);
    connect(pqImport, &QPushButton::clicked, this, &ScatScenarioGroup::importAsked);
    connect(m_pqSaveButton, &QPushButton::clicked, this, &ScatScenarioGroup::saveAsked);
    connect(m_pqCloseButton, &QPushButton::clicked, this, &ScatScenarioGroup::closeAsked);
    connect(m_pqScenarioComboBox, &QComboBox::activated, this, &ScatScenarioGroup::scenarioChosen);
}

void ScatScenarioGroup::showScenarios(const ScatScenarios& scenarios)
{
    const QSignalBlocker blocker(m_pqScenarioComboBox);
    m_pqScenarioComboBox->clear();
    for (int i = 0; i < scenarios.count(); ++i)
        m_pqScenarioComboBox->addItem(scenarios.isModified(i) ? scenarios.name(i) + QLatin1Char('*')
                                                              : scenarios.name(i));
    m_pqScenarioComboBox->setCurrentIndex(scenarios.active());
    const bool bAny = scenarios.active() >= 0;
    m_pqScenarioComboBox->setEnabled(bAny);
    m_pqSaveButton->setEnabled(bAny);
    m_pqCloseButton->setEnabled(bAny);
}

} // namespace gkBase
