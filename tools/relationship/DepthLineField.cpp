#include "DepthLineField.h"

#include "DepthLineFile.h"
#include "MissingValue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace gkBase {

namespace {

// In the order of DepthLineField::DataType; files and marker tables keep these names.
constexpr std::array<const char*, 7> g_typeNames = {
    "Crestal Plane", "Axial Plane", "Inflection Plane", "Horizon", "Fault", "Interval Boundary", "Average Orientation"};

bool isFinite(const QPointF& oPoint)
{
    return std::isfinite(oPoint.x()) && std::isfinite(oPoint.y());
}

template <typename T>
void keep(std::vector<T>& vValues, const std::vector<bool>& vbKeep)
{
    std::size_t iTo = 0;
    for (std::size_t i = 0; i < vValues.size(); ++i)
        if (vbKeep[i]) {
            if (iTo != i)
                vValues[iTo] = std::move(vValues[i]);
            ++iTo;
        }
    vValues.erase(vValues.begin() + static_cast<std::ptrdiff_t>(iTo), vValues.end());
}

} // namespace

DepthLineField::DepthLineField(const QString& sName)
    : m_sName(sName)
{
}

QString DepthLineField::type(DataType eType)
{
    const auto i = static_cast<std::size_t>(eType);
    return i < g_typeNames.size() ? QString::fromLatin1(g_typeNames[i]) : QString();
}

DepthLineField::DataType DepthLineField::type(const QString& sType)
{
    const auto it = std::find_if(g_typeNames.begin(), g_typeNames.end(), [&sType](const char* pName) {
        return sType.compare(QLatin1String(pName), Qt::CaseInsensitive) == 0;
    });
    return it == g_typeNames.end() ? IntervalBoundary : static_cast<DataType>(it - g_typeNames.begin());
}

void DepthLineField::setName(const QString& sName)
{
    m_sName = sName;
}

DepthLineField::Line DepthLineField::line(int iLine) const
{
    if (!contains(iLine))
        return {};
    const auto i = static_cast<std::size_t>(iLine);
    return {m_vdDepths[i],       m_vdX[i],
            m_vsNames[i],        m_voColors[i],
            m_veTypes[i],        m_voOrientations[i],
            m_viOriginalRows[i], m_vbDepthChanged[i],
            m_vbSelected[i]};
}

std::vector<DepthLineField::Line> DepthLineField::lines() const
{
    std::vector<Line> vLines;
    vLines.reserve(m_vdDepths.size());
    for (int i = 0; i < count(); ++i)
        vLines.push_back(line(i));
    return vLines;
}

void DepthLineField::setLines(const std::vector<Line>& vLines)
{
    clearAll();
    for (const Line& line : vLines) {
        const int i = insertHorizontalLine(line.m_dDepth, line.m_dX, line.m_sName, line.m_oColor, line.m_eType,
                                           line.m_oOrientation, line.m_iOriginalRow);
        if (i < 0)
            continue;
        m_vbDepthChanged.back() = line.m_bDepthChanged;
        m_vbSelected.back() = line.m_bSelected;
    }
    m_bModified = true;
}

std::vector<int> DepthLineField::linesByDepth() const
{
    std::vector<int> viLines(m_vdDepths.size());
    std::iota(viLines.begin(), viLines.end(), 0);
    std::stable_sort(viLines.begin(), viLines.end(), [this](int a, int b) {
        return m_vdDepths[static_cast<std::size_t>(a)] < m_vdDepths[static_cast<std::size_t>(b)];
    });
    return viLines;
}

std::vector<double> DepthLineField::sortedDepths(DataType eType) const
{
    std::vector<double> vdDepths;
    for (std::size_t i = 0; i < m_vdDepths.size(); ++i)
        if (m_veTypes[i] == eType)
            vdDepths.push_back(m_vdDepths[i]);
    std::sort(vdDepths.begin(), vdDepths.end());
    vdDepths.erase(std::unique(vdDepths.begin(), vdDepths.end()), vdDepths.end());
    return vdDepths;
}

int DepthLineField::insertHorizontalLine(const double& dDepth, const double& dX, const QString& sName,
                                         const QColor& oColor, DataType eType, const QPointF& oOrientation,
                                         int iOriginalRow, const double& dTolerance)
{
    if (isMissing(dDepth))
        return -1;
    for (std::size_t i = 0; dTolerance > 0.0 && i < m_vdDepths.size(); ++i)
        if (m_veTypes[i] == eType && std::abs(m_vdDepths[i] - dDepth) < dTolerance)
            return -1;
    m_vdDepths.push_back(dDepth);
    m_vdX.push_back(std::isfinite(dX) ? dX : 0.0);
    m_vsNames.push_back(sName);
    m_voColors.push_back(oColor);
    m_veTypes.push_back(eType);
    m_voOrientations.push_back(isFinite(oOrientation) ? oOrientation : QPointF(-1.0, -1.0));
    m_viOriginalRows.push_back(iOriginalRow);
    m_vbDepthChanged.push_back(false);
    m_vbSelected.push_back(false);
    m_bModified = true;
    return count() - 1;
}

double DepthLineField::distanceTo(int iLine, const QPointF& oPosition) const
{
    return std::abs(m_vdDepths[static_cast<std::size_t>(iLine)] - oPosition.y());
}

std::vector<int> DepthLineField::pickHorizontalLines(const QPointF& oPosition, const double& dTolerance) const
{
    std::vector<int> viLines;
    for (int i = 0; i < count(); ++i)
        if (distanceTo(i, oPosition) <= dTolerance)
            viLines.push_back(i);
    std::stable_sort(viLines.begin(), viLines.end(),
                     [&](int a, int b) { return distanceTo(a, oPosition) < distanceTo(b, oPosition); });
    return viLines;
}

template <typename Keep>
bool DepthLineField::eraseLines(Keep keepLine)
{
    std::vector<bool> vbKeep(m_vdDepths.size());
    bool bErased = false;
    for (int i = 0; i < count(); ++i) {
        vbKeep[static_cast<std::size_t>(i)] = keepLine(i);
        bErased = bErased || !vbKeep[static_cast<std::size_t>(i)];
    }
    if (!bErased)
        return false;
    keep(m_vdDepths, vbKeep);
    keep(m_vdX, vbKeep);
    keep(m_vsNames, vbKeep);
    keep(m_voColors, vbKeep);
    keep(m_veTypes, vbKeep);
    keep(m_voOrientations, vbKeep);
    keep(m_viOriginalRows, vbKeep);
    keep(m_vbDepthChanged, vbKeep);
    keep(m_vbSelected, vbKeep);
    m_bModified = true;
    return true;
}

bool DepthLineField::eraseHorizontalLines(const QPointF& oPosition, const double& dTolerance)
{
    return eraseLines([&](int i) { return !(distanceTo(i, oPosition) <= dTolerance); });
}

void DepthLineField::erasePickedLine()
{
    eraseLines([this](int i) { return !isSelected(i); });
}

void DepthLineField::eraseLine(int iLine)
{
    eraseLines([iLine](int i) { return i != iLine; });
}

void DepthLineField::moveSelectedLines(const QPointF& oOffset)
{
    if (oOffset.isNull() || isMissing(oOffset.x()) || isMissing(oOffset.y()))
        return;
    for (std::size_t i = 0; i < m_vdDepths.size(); ++i)
        if (m_vbSelected[i] && (isMissing(m_vdDepths[i] + oOffset.y()) || !std::isfinite(m_vdX[i] + oOffset.x())))
            return;
    for (std::size_t i = 0; i < m_vdDepths.size(); ++i)
        if (m_vbSelected[i]) {
            m_vdDepths[i] += oOffset.y();
            m_vdX[i] += oOffset.x();
            m_vbDepthChanged[i] = m_vbDepthChanged[i] || oOffset.y() != 0.0;
            m_bModified = true;
        }
}

void DepthLineField::updatePickedHorizon(int iLine, const double& dDepth)
{
    if (!contains(iLine) || isMissing(dDepth) || m_vdDepths[static_cast<std::size_t>(iLine)] == dDepth)
        return;
    m_vdDepths[static_cast<std::size_t>(iLine)] = dDepth;
    m_vbDepthChanged[static_cast<std::size_t>(iLine)] = true;
    m_bModified = true;
}

void DepthLineField::changePickedLineName(const QString& sName)
{
    for (const int i : selectedLines()) {
        m_vsNames[static_cast<std::size_t>(i)] = sName;
        m_bModified = true;
    }
}

void DepthLineField::changePickedLineColor(const QColor& oColor)
{
    for (const int i : selectedLines()) {
        m_voColors[static_cast<std::size_t>(i)] = oColor;
        m_bModified = true;
    }
}

void DepthLineField::changePickedOrientation(const QPointF& oDipAndAzimuth)
{
    if (!isFinite(oDipAndAzimuth))
        return;
    for (const int i : selectedLines()) {
        m_voOrientations[static_cast<std::size_t>(i)] = oDipAndAzimuth;
        m_bModified = true;
    }
}

void DepthLineField::clearAll()
{
    eraseLines([](int) { return false; });
}

void DepthLineField::clearOriginalRowPos()
{
    std::fill(m_viOriginalRows.begin(), m_viOriginalRows.end(), -1);
    std::fill(m_vbDepthChanged.begin(), m_vbDepthChanged.end(), false);
}

void DepthLineField::write(const QString& sPath) const
{
    writeDepthLineFile(*this, sPath);
}

void DepthLineField::read(const QString& sPath)
{
    readDepthLineFile(sPath, *this);
}

void DepthLineField::setSelected(int iLine, bool bSelected)
{
    if (contains(iLine))
        m_vbSelected[static_cast<std::size_t>(iLine)] = bSelected;
}

void DepthLineField::setSelected(const std::vector<int>& viLines)
{
    for (const int i : viLines)
        setSelected(i, true);
}

void DepthLineField::deselectAll()
{
    std::fill(m_vbSelected.begin(), m_vbSelected.end(), false);
}

bool DepthLineField::isSelected(int iLine) const
{
    return contains(iLine) && m_vbSelected[static_cast<std::size_t>(iLine)];
}

bool DepthLineField::isSomethingSelected() const
{
    return std::find(m_vbSelected.begin(), m_vbSelected.end(), true) != m_vbSelected.end();
}

std::vector<int> DepthLineField::selectedLines() const
{
    std::vector<int> viLines;
    for (int i = 0; i < count(); ++i)
        if (isSelected(i))
            viLines.push_back(i);
    return viLines;
}

void DepthLineField::setDomainTransparency(int iPercent)
{
    m_iDomainTransparency = std::clamp(iPercent, 0, 100);
}

bool DepthLineField::isShown(DataType eType) const
{
    switch (eType) {
    case Horizon:
        return m_bShowHorizons;
    case Fault:
        return m_bShowFaults;
    case AverageOrientation:
        return m_bShowAverageOrientations;
    case IntervalBoundary:
        return true;
    default:
        return m_bShowStructuralPlanes;
    }
}

bool DepthLineField::isLabelShown(DataType eType) const
{
    switch (eType) {
    case Horizon:
        return m_bShowHorizonLabels;
    case Fault:
        return m_bShowFaultLabels;
    case AverageOrientation:
        return m_bShowAverageOrientationLabels;
    case IntervalBoundary:
        return false;
    default:
        return m_bShowStructuralPlaneLabels;
    }
}

} // namespace gkBase
