#pragma once

#include "gkBaseToolsExport.h"

#include <QGroupBox>

class QAction;
class QComboBox;
class QPushButton;

namespace gkBase {

class ScatScenarios;

/// The scenarios of the dipmeter window: which one is active, and the buttons that make, read, write and close them.
class GKBASETOOLS_EXPORT ScatScenarioGroup : public QGroupBox
{
    Q_OBJECT
public:
    ScatScenarioGroup(QAction* pqUndo, QAction* pqRedo, QWidget* pqParent = nullptr);

    /// Fills the chooser; a scenario with changes has a "*" behind its name. Emits nothing.
    void showScenarios(const ScatScenarios& scenarios);

signals:
    void newAsked();
    void importAsked();
    void saveAsked();
    void closeAsked();
    /// The user has chosen a scenario, by its index.
    void scenarioChosen(int iScenario);

private:
    QComboBox* m_pqScenarioComboBox;
    QPushButton* m_pqSaveButton;
    QPushButton* m_pqCloseButton;
};

} // namespace gkBase
