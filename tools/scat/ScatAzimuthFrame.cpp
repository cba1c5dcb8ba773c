#include "ScatAzimuthFrame.h"

#include "AngleUnits.h"
#include "MatrixColumn.h"
#include "QCartesianAxisWidget.h"
#include "QHistogramItemModel.h"
#include "QHistogramPlotWidget.h"
#include "QRelationshipItemModel.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>
#include <vector>

namespace gkBase {

namespace {

constexpr double g_dClass = 10.0;
constexpr double g_dFullTurn = 360.0;

} // namespace

void showAzimuthTicks(QCartesianAxisWidget& axis)
{
    constexpr int iQuarter = 90;
    constexpr int iMinor = 30;
    AxisTicks ticks;
    for (int iAzimuth = 0; iAzimuth <= static_cast<int>(g_dFullTurn); iAzimuth += iMinor) {
        if (iAzimuth % iQuarter == 0) {
            ticks.m_vMajor << iAzimuth;
            ticks.m_lLabels << QString::number(iAzimuth);
        } else {
            ticks.m_vMinor << iAzimuth;
        }
    }
    axis.setFixedTicks(ticks);
    axis.setRange(0.0, g_dFullTurn);
    axis.setTitle(QCoreApplication::translate("ScatDirectionFinder", "Dip Azimuth"));
    axis.setUnitManager(degreeUnit());
}

ScatAzimuthFrame::ScatAzimuthFrame(QWidget* pqParent)
    : ChartFrame(new QHistogramPlotWidget(nullptr, tr("Azimuth Histogram")), pqParent)
    , m_pModel(new QHistogramItemModel(this))
{
    m_pModel->setIntervalSize(g_dClass);
    plot()->setHistogramItemModel(m_pModel);
    // The percentiles of a circle depend on where it is cut open.
    plot()->setShowP10(false);
    plot()->setShowP50(false);
    plot()->setShowP90(false);
    showAzimuthTicks(*bottomAxis());
    leftAxis()->setTitle(tr("Frequency"));
    leftAxis()->setWholeNumbers(true);
}

ScatAzimuthFrame::~ScatAzimuthFrame() = default;

QHistogramPlotWidget* ScatAzimuthFrame::plot() const
{
    return static_cast<QHistogramPlotWidget*>(canvas());
}

void ScatAzimuthFrame::countAzimuths(const QRelationshipItemModel& model)
{
    if (!m_poAzimuths || m_iPointsRevision != model.pointsRevision()) {
        m_iPointsRevision = model.pointsRevision();
        MatrixColumn column = MatrixColumn::fromDoubles({model.y().begin(), model.y().end()});
        m_poAzimuths = std::make_unique<MatrixData>(bottomAxis()->title(), 0, 1, column.type());
        m_poAzimuths->setColumn(0, std::move(column));
        m_poAzimuths->setUnitManager(degreeUnit());
        m_poAzimuths->setColor(QColor(110, 150, 200)); // seen on black and on white
    }
    m_pModel->setIntervalSize(g_dClass);
    m_pModel->takeNewDataSet(m_poAzimuths.get(), MatrixData::Frequency, model.selectedRecords());
    const double dTop = std::max(1.0, m_pModel->maximumHeight());
    plot()->setBoundaries({0.0, 0.0}, {g_dFullTurn, dTop});
    leftAxis()->setRange(0.0, dTop);
}

} // namespace gkBase
