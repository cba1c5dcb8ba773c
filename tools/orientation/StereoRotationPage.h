#pragma once

#include "StereoChartSettings.h"
#include "gkBaseToolsExport.h"

#include <QStringList>
#include <QWidget>

class QComboBox;
class QDoubleSpinBoxWithSlider;
class QLabel;
class QPushButton;

namespace gkBase {

/// The controls that turn the records, and what they were turned by.
class GKBASETOOLS_EXPORT StereoRotationPage : public QWidget
{
    Q_OBJECT
public:
    explicit StereoRotationPage(QWidget* pqParent = nullptr);

    /// Degrees.
    double axisPlunge() const;
    double axisAzimuth() const;
    double angle() const;
    /// The principal mean goes to the centre, else the resultant.
    bool principalToCenter() const;

    /// Writes what stands here into the settings; the rest of them stays.
    void writeTo(StereoChartSettings& settings) const;
    /// Emits nothing.
    void setSettings(const StereoChartSettings& settings);
    /// There are records; a line for each rotation that they underwent, the first one first.
    void showRotations(bool bRecords, const QStringList& lRotations);
    /// A sentence that says why nothing was turned. It stays until rotations or records change.
    void showProblem(const QString& sProblem);

signals:
    void toCenterWanted();
    void aboutAxisWanted();
    void undoWanted();
    void undoAllWanted();
    void attributesWanted();

private:
    QPushButton* newButton(const QString& sText, const QString& sToolTip, const char* pObjectName);
    QComboBox* m_pqMeanComboBox;
    QPushButton* m_pqToCenterBtn;
    QDoubleSpinBoxWithSlider* m_pqPlungeSpinBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqAzimuthSpinBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqAngleSpinBox = nullptr;
    QPushButton* m_pqAboutAxisBtn;
    QLabel* m_pqStateLabel;
    QLabel* m_pqProblemLabel;
    QPushButton* m_pqUndoBtn;
    QPushButton* m_pqUndoAllBtn;
    QPushButton* m_pqWriteBtn;
};

} // namespace gkBase
