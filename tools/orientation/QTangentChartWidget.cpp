#include "QTangentChartWidget.h"

#include "MissingValue.h"
#include "QTangentPlotWidget.h"
#include "TangentFoldAxisPage.h"

#include <utility>

namespace gkBase {

QTangentChartWidget::QTangentChartWidget(QWidget* pqParent)
    : QStereoChartWidget(
          [](QWidget* pqCanvasParent) {
              return new QTangentPlotWidget(pqCanvasParent, QTangentChartWidget::tr("Tangent Diagram"));
          },
          pqParent)
    , m_pqTangent(qobject_cast<QTangentPlotWidget*>(drawingArea()))
    , m_pqFoldAxisPage(new TangentFoldAxisPage)
{
    addPlotPage(m_pqFoldAxisPage, tr("Fold Axis"));
    hideProjection();
    StereoChartSettings initial = settings();
    initial.m_oNet.m_iProjectionTarget = 1;
    initial.m_oNet.m_bCoarseNet = true;
    setSettings(initial);

    using Panel = QTangentChartWidget;
    using Page = TangentFoldAxisPage;
    connect(m_pqFoldAxisPage, &Page::plungeChanged, this, &Panel::updateFoldAxisPlunge);
    connect(m_pqFoldAxisPage, &Page::azimuthChanged, this, &Panel::updateFoldAxisAzimuth);
    connect(m_pqFoldAxisPage, &Page::showToggled, this, &Panel::slotShowFoldAxisToggled);
    connect(m_pqFoldAxisPage, &Page::fitWanted, this, &Panel::setFoldAxisToFit);
    connect(m_pqFoldAxisPage, &Page::maximumAngleChanged, this, [this](double dAngle) { setMaximumAngle(dAngle); });
    connect(m_pqFoldAxisPage, &Page::shown, this, [this] {
        if (m_bFitStale)
            showFit();
    });
    connect(m_pqTangent, &QTangentPlotWidget::foldAxisMoved, this, &Panel::slotFoldAxisMoved);
}

QTangentChartWidget::~QTangentChartWidget() = default;

void QTangentChartWidget::settingsRestored(const StereoChartSettings& settings)
{
    m_pqFoldAxisPage->setMaximumAngle(settings.m_oNet.m_dMaximumAngle);
}

// ---- fold axis ------------------------------------------------------------------------------------------------------

void QTangentChartWidget::updateFoldAxisPlunge(double dPlunge)
{
    m_pqTangent->setFoldAxis(dPlunge, m_pqTangent->foldAxis().y());
    m_pqFoldAxisPage->setFoldAxis(dPlunge, m_pqFoldAxisPage->azimuth());
}

void QTangentChartWidget::updateFoldAxisAzimuth(double dAzimuth)
{
    m_pqTangent->setFoldAxis(m_pqTangent->foldAxis().x(), dAzimuth);
    m_pqFoldAxisPage->setFoldAxis(m_pqFoldAxisPage->plunge(), dAzimuth);
}

void QTangentChartWidget::slotShowFoldAxisToggled(bool bOn)
{
    m_pqTangent->setShowFoldAxis(bOn);
    m_pqFoldAxisPage->setFoldAxisShown(bOn);
}

void QTangentChartWidget::slotFoldAxisMoved(QPointF oAxis)
{
    m_pqFoldAxisPage->setFoldAxis(oAxis.x(), oAxis.y());
}

TangentFit QTangentChartWidget::fit() const
{
    const QRelationshipItemModel& model = *relationshipItemModel();
    if (model.linesAreShown())
        return {};
    const std::span<const unsigned char> vbMask = model.usedMask();
    constexpr double dLargestDip = 85.0;
    return tangentFit(model.x(), model.y(), dLargestDip, vbMask, model.appliedWeights());
}

void QTangentChartWidget::setFoldAxisToFit()
{
    const LineOrientation oAxis = fit().m_oFoldAxis;
    if (isMissing(oAxis.m_dPlunge))
        return;
    m_pqTangent->setFoldAxis(oAxis.m_dPlunge, oAxis.m_dAzimuth);
    m_pqFoldAxisPage->setFoldAxis(oAxis.m_dPlunge, oAxis.m_dAzimuth);
    slotShowFoldAxisToggled(true);
}

/// While the page is out of sight nothing is fitted, however often the selection changes.
void QTangentChartWidget::resultsUpdated()
{
    m_bFitStale = true;
    if (m_pqFoldAxisPage->isVisible())
        showFit();
}

void QTangentChartWidget::showFit()
{
    m_bFitStale = false;
    const QRelationshipItemModel& model = *relationshipItemModel();
    if (model.numberOfUsedPoints() == 0) {
        m_pqFoldAxisPage->showNoFit(tr("There are no records, or none is selected"));
    } else if (model.linesAreShown()) {
        m_pqFoldAxisPage->showNoFit(tr("A fold axis is fitted to planes: these records are lines"));
    } else {
        const QPointF oT = model.TdirectionPlane();
        m_pqFoldAxisPage->showFit(fit(), poleOfPlane({oT.x(), oT.y()}));
    }
}

// ---- cursor ---------------------------------------------------------------------------------------------------------

void QTangentChartWidget::updateCursorPosLabel(QPointF oPosition)
{
    if (drawingArea()->polesAreShown()) {
        const PlaneOrientation oPlane = planeOfPole(LineOrientation{oPosition.x(), oPosition.y()});
        oPosition = {oPlane.m_dDip, oPlane.m_dDipAzimuth};
    }
    QStereoChartWidget::updateCursorPosLabel(oPosition);
}

} // namespace gkBase
