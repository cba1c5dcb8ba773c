// What the stereonet counts, and the contours of the counts.

#include "Fingerprint.h"
#include "MatrixDataArray.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "QStereoPlotWidget.h"

#include <algorithm>

namespace gkBase {

namespace {

/// Node (i, j) of column i from the west and row j from the north.
void copyCounts(const DensityGrid& oGrid, MatrixDataArray& array)
{
    array.reserve(oGrid.m_iColumns, oGrid.m_iRows);
    const std::span<double> vdCells = array.cells();
    for (int i = 0; i < oGrid.m_iColumns; ++i) {
        for (int j = 0; j < oGrid.m_iRows; ++j) {
            vdCells[static_cast<std::size_t>(i) * static_cast<std::size_t>(oGrid.m_iRows) +
                    static_cast<std::size_t>(j)] = oGrid.count(i, j);
        }
    }
    array.valuesChanged();
}

} // namespace

bool QStereoPlotWidget::contoursAreOn() const
{
    return m_settings.m_bContourLines || m_settings.m_bContourFill || m_settings.m_bContourLabels;
}

DensityGrid QStereoPlotWidget::count(int iColumns, int iRows, bool bPoles, bool bBiasCorrected) const
{
    if (!model()) {
        return {};
    }
    const std::span<const unsigned char> vbMask = model()->usedMask();
    const auto vdWeights = bBiasCorrected ? model()->biasWeights() : std::span<const double>();
    return densityGrid(projection(), bPoles ? OrientationType::Planes : OrientationType::Lines, model()->x(),
                       model()->y(), iColumns, iRows, vbMask, vdWeights);
}

void QStereoPlotWidget::countingOutProjections(int iColumns, int iRows, MatrixDataArray* poGrid, bool bPoles,
                                               bool bBiasCorrected) const
{
    if (!poGrid) {
        return;
    }
    if (iColumns == -1) {
        iColumns = poGrid->arrayRows();
        iRows = poGrid->arrayColumns();
    }
    copyCounts(count(iColumns, iRows, bPoles, bBiasCorrected), *poGrid);
}

void QStereoPlotWidget::countingOutProjections(int iColumns, int iRows, bool bPoles, bool bBiasCorrected)
{
    if (iColumns == -1) {
        iColumns = m_oDensity.m_iColumns;
        iRows = m_oDensity.m_iRows;
    }
    m_oDensity = count(iColumns, iRows, bPoles, bBiasCorrected);
    if (m_oDensity.m_iRecords == 0) {
        m_oDensity = DensityGrid();
    }
    m_iContourKey = 0;
    m_dContourMinimum = 0.0;
    m_dContourMaximum = 0.0;
    if (!m_oDensity.isEmpty()) {
        const auto [itMinimum, itMaximum] =
            std::minmax_element(m_oDensity.m_vdCounts.begin(), m_oDensity.m_vdCounts.end());
        m_dContourMinimum = *itMinimum;
        m_dContourMaximum = *itMaximum;
    }
}

quint64 QStereoPlotWidget::densityKey() const
{
    Fingerprint print;
    print.add(model()->pointsRevision());
    print.add(std::uint64_t{model()->x().size()});
    print.add(model()->usedMask());
    print.add(model()->appliedWeights());
    print.add(static_cast<std::uint64_t>(projection().layout()));
    const double dMaximumAngle = projection().maximumAngle();
    print.add(std::span<const double>(&dMaximumAngle, 1));
    print.add(polesAreShown() ? 1U : 0U);
    print.add(static_cast<std::uint64_t>(m_settings.m_iNodes));
    return print.value() | 1U;
}

void QStereoPlotWidget::updateDensity()
{
    if (!model() || !contoursAreOn()) {
        m_oDensity = DensityGrid();
        m_iDensityKey = 0;
        m_pCountedModel = nullptr;
        return;
    }
    const quint64 iKey = densityKey();
    if (iKey == m_iDensityKey && m_pCountedModel == model()) {
        return;
    }
    m_iDensityKey = iKey;
    m_pCountedModel = model();
    const int iNodes =
        std::clamp(m_settings.m_iNodes, StereoNetSettings::s_iFewestNodes, StereoNetSettings::s_iMostNodes);
    countingOutProjections(iNodes, iNodes, polesAreShown(), model()->biasCorrectionIsOn());
    copyCounts(m_oDensity, *contourGrid());
}

MatrixDataArray* QStereoPlotWidget::contourGrid() const
{
    return polesAreShown() ? model()->contourGridPoles() : model()->contourGridDipDir();
}

void QStereoPlotWidget::updateContours()
{
    updateDensity();
    Fingerprint print;
    print.add(m_iDensityKey);
    print.add(std::span<const double>(&m_settings.m_dInterval, 1));
    print.add(std::uint64_t{m_oBackgroundColor.rgb()});
    print.add(m_settings.m_bRedToBlue ? 1U : 0U);
    print.add(m_settings.m_bContourFill && !m_settings.m_bContourColorFill ? 1U : 0U);
    print.add(m_settings.m_bFillLowestBand ? 1U : 0U);
    const quint64 iKey = print.value() | 1U;
    if (iKey == m_iContourKey) {
        return;
    }
    m_iContourKey = iKey;
    m_iPathKey = 0;
    if (model()) {
        contourGrid()->setIntervalSize(m_settings.m_dInterval);
    }
    const std::vector<double> vdLevels = gkBase::contourLevels(m_oDensity, m_settings.m_dInterval);
    m_vContours = densityContours(m_oDensity, vdLevels);
    const std::vector<QColor> voColors = m_settings.m_bContourFill && !m_settings.m_bContourColorFill
                                             ? contourGrays(vdLevels, m_oBackgroundColor)
                                             : contourColors(vdLevels, m_settings.m_dInterval, m_settings.m_bRedToBlue);
    m_vLevels.clear();
    for (std::size_t i = 0; i < vdLevels.size(); ++i) {
        const bool bBlank = i == 0 && !m_settings.m_bFillLowestBand;
        m_vLevels.push_back({vdLevels[i], bBlank ? m_oBackgroundColor : voColors[i]});
    }
}

void QStereoPlotWidget::layOutContours()
{
    updateContours();
    Fingerprint print;
    print.add(m_iContourKey);
    print.add(netKey());
    const quint64 iKey = print.value() | 1U;
    if (iKey != m_iPathKey) {
        m_iPathKey = iKey;
        ++m_iPathSerial;
        m_vContourPaths = contourPaths(m_vContours, netFrame());
    }
}

const DensityGrid& QStereoPlotWidget::density()
{
    updateDensity();
    return m_oDensity;
}

const std::vector<QStereoPlotWidget::ContourLevel>& QStereoPlotWidget::contourLevels()
{
    updateContours();
    return m_vLevels;
}

} // namespace gkBase
