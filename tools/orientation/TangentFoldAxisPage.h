#pragma once

#include "TangentFit.h"
#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QString>
#include <QWidget>

class QCheckBox;
class QDoubleSpinBoxWithSlider;
class QLabel;
class QPushButton;

namespace gkBase {

/// The fold axis of a tangent diagram: the one that is shown, and the one that fits the records.
class GKBASETOOLS_EXPORT TangentFoldAxisPage : public QWidget
{
    Q_OBJECT
public:
    explicit TangentFoldAxisPage(QWidget* pqParent = nullptr);

    /// Degrees.
    double plunge() const;
    double azimuth() const;
    bool foldAxisIsShown() const;
    /// These emit nothing.
    void setFoldAxis(double dPlunge, double dAzimuth);
    void setFoldAxisShown(bool bShown);
    void setMaximumAngle(double dAngle);

    /// oStatisticsT: T of the statistics, the middle eigenvector, which is no direction across the axis.
    void showFit(const TangentFit& fit, const LineOrientation& oStatisticsT);
    /// Without a fit: why.
    void showNoFit(const QString& sReason);

signals:
    void plungeChanged(double dPlunge);
    void azimuthChanged(double dAzimuth);
    void maximumAngleChanged(double dAngle);
    void showToggled(bool bOn);
    void fitWanted();
    /// The page came into sight.
    void shown();

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    QCheckBox* m_pqShowCheckBox;
    QDoubleSpinBoxWithSlider* m_pqPlungeSpinBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqAzimuthSpinBox = nullptr;
    QDoubleSpinBoxWithSlider* m_pqMaximumAngleSpinBox = nullptr;
    QLabel* m_pqFitLabel;
    QLabel* m_pqPlanesLabel;
    QLabel* m_pqTransverseLabel;
    QLabel* m_pqStatisticsLabel;
    QPushButton* m_pqFitBtn;
};

} // namespace gkBase
