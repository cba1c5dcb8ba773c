#pragma once

#include "CrossPlotSettings.h"
#include "gkBaseToolsExport.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace gkBase {

class AttributeChooser;
class QRelationshipItemModel;

/// The controls of k-means clusters and a table of what came out.
class GKBASETOOLS_EXPORT CrossPlotClusterPage : public QWidget
{
    Q_OBJECT
public:
    explicit CrossPlotClusterPage(QWidget* pqParent = nullptr);

    /// Filled and read by the owner of the page.
    AttributeChooser* thirdChooser() const { return m_pqThirdChooser; }
    int numberOfClusters() const;
    void setNumberOfClusters(int iClusters);
    /// Never empty.
    QString clusterName() const;
    void setClusterName(const QString& sName);
    bool selectedOnly() const;

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(CrossPlotSettings& settings) const;
    /// Emits nothing.
    void setSettings(const CrossPlotSettings& settings);

    /// Lists the model's clusters, none when it has none.
    void showClusters(const QRelationshipItemModel& model);
    /// A sentence below the table that says why there are no clusters.
    void showProblem(const QString& sProblem);
    /// There are points that could be clustered.
    void setApplicable(bool bApplicable);

signals:
    void applyWanted();
    void centroidsToggled(bool bShow);

private:
    void createControls();
    void fillTable(const QRelationshipItemModel& model);

    QSpinBox* m_pqNumberSpinBox;
    AttributeChooser* m_pqThirdChooser;
    QCheckBox* m_pqSelectedOnlyCheckBox;
    QLineEdit* m_pqNameEdit;
    QPushButton* m_pqApplyBtn;
    QCheckBox* m_pqCentroidsCheckBox;
    QTableWidget* m_pqTable;
    QLabel* m_pqResultLabel;
};

} // namespace gkBase
