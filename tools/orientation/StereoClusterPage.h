#pragma once

#include "OrientationText.h"
#include "StereoChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QWidget>

#include <vector>

class QCheckBox;
class QIntSpinBoxWithSlider;
class QLabel;
class QPushButton;
class QTableWidget;

namespace gkBase {

class QRelationshipItemModel;

/// The controls of k-means clusters of orientations and a table of what came out.
class GKBASETOOLS_EXPORT StereoClusterPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoClusterPage(QWidget* pqParent = nullptr);

    int numberOfClusters() const;

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const StereoChartSettings& settings);

    /// Lists the model's clusters, none when it has none.
    void showClusters(const QRelationshipItemModel& model, OrientationConvention eConvention);
    /// In which the points of each cluster are drawn; invalid ones while the points are not coloured by the clusters.
    static std::vector<QColor> clusterColors(const QRelationshipItemModel& model);
    /// A sentence below the table that says why there are no clusters.
    void showProblem(const QString& sProblem);
    /// There are points that could be clustered.
    void setApplicable(bool bApplicable);

signals:
    void applyWanted();
    void centroidsToggled();
    /// The user clicked a cluster of the table; bAdd: with Ctrl, to add its records to the selection.
    void clusterClicked(int iCluster, bool bAdd);

private:
    void createTable();
    void fillTable(const QRelationshipItemModel& model, OrientationConvention eConvention);

    QIntSpinBoxWithSlider* m_pqNumberSpinBox;
    QPushButton* m_pqApplyBtn;
    QCheckBox* m_pqPoleCentroidsCheckBox;
    QCheckBox* m_pqAzimuthCentroidsCheckBox;
    QTableWidget* m_pqTable;
    QLabel* m_pqResultLabel;
};

} // namespace gkBase
