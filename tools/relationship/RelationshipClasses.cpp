#include "RelationshipClasses.h"

#include "MatrixData.h"
#include "MissingValue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <set>

namespace gkBase {

namespace {

/// A place among 256 for a whole number.
std::size_t slotOf(double dWhole)
{
    constexpr double dLargest = 9e15; // every whole number up to here fits a double and an integer of 64 bits
    return std::abs(dWhole) < dLargest ? static_cast<std::size_t>(static_cast<std::int64_t>(dWhole)) & 255u : 0u;
}

/// True when the values are whole numbers of at most RelationshipClasses::s_iMaximumValueClasses different ones.
bool areFewWholeNumbers(const MatrixColumn& oColumn)
{
    std::array<double, 256> vdSeen; // by the last digits of the number: spares most look-ups in the set
    vdSeen.fill(g_dEmptyCell);
    std::set<double> distinct;
    for (int i = 0; i < oColumn.size(); ++i) {
        const double dValue = oColumn.number(i);
        if (isMissing(dValue))
            continue;
        if (dValue != std::floor(dValue))
            return false;
        double& dSeen = vdSeen[slotOf(dValue)];
        if (dSeen == dValue)
            continue;
        dSeen = dValue;
        distinct.insert(dValue);
        if (distinct.size() > RelationshipClasses::s_iMaximumValueClasses)
            return false;
    }
    return !distinct.empty();
}

bool hasClassPerValue(const MatrixColumn& oColumn)
{
    switch (oColumn.type()) {
    case QMetaType::Double:
    case QMetaType::Int:
        return areFewWholeNumbers(oColumn);
    default:
        return true;
    }
}

} // namespace

RelationshipClasses::ColorMap::ColorMap()
    : m_dMin(g_dMissingValue)
    , m_dMax(g_dMissingValue)
    , m_dInterval(g_dMissingValue)
{
}

RelationshipClasses::RelationshipClasses(const MatrixData* poAttribute, const ColorMap& oColorMap)
{
    if (!poAttribute || !poAttribute->isAttribute())
        return;
    m_bOn = true;
    m_eCellType = poAttribute->column().type();
    QMap<int, QColor> colors;
    if (hasClassPerValue(poAttribute->column())) {
        poAttribute->createSymbolIDs(m_viIds, m_names, colors);
    } else {
        double dMin = 0.0;
        double dMax = 0.0;
        poAttribute->getMinMax(dMin, dMax);
        m_bBanded = true;
        poAttribute->createColorMapSymbolIDs(
            m_viIds, m_names, colors, isMissing(oColorMap.m_dMin) ? dMin : oColorMap.m_dMin,
            isMissing(oColorMap.m_dMax) ? dMax : oColorMap.m_dMax, oColorMap.m_dInterval, oColorMap.m_bRedToBlue);
    }
    m_voColors.assign(static_cast<std::size_t>(colors.isEmpty() ? 0 : colors.lastKey() + 1), QColor());
    for (auto it = colors.cbegin(); it != colors.cend(); ++it)
        m_voColors[static_cast<std::size_t>(it.key())] = it.value();
}

int RelationshipClasses::id(int iRecord) const
{
    return iRecord >= 0 && iRecord < static_cast<int>(m_viIds.size()) ? m_viIds[static_cast<std::size_t>(iRecord)] : 0;
}

QMap<int, QColor> RelationshipClasses::colors() const
{
    QMap<int, QColor> colors;
    for (int i = 0; i <= highestId(); ++i)
        colors.insert(i, m_voColors[static_cast<std::size_t>(i)]);
    return colors;
}

QColor RelationshipClasses::color(int iClass) const
{
    return iClass >= 0 && iClass <= highestId() ? m_voColors[static_cast<std::size_t>(iClass)] : QColor();
}

bool RelationshipClasses::setColor(int iClass, const QColor& oColor)
{
    if (iClass < 0 || iClass > highestId() || color(iClass) == oColor)
        return false;
    m_voColors[static_cast<std::size_t>(iClass)] = oColor;
    m_recolored.insert(iClass);
    return true;
}

void RelationshipClasses::adoptColors(const RelationshipClasses& former)
{
    for (const int iFormer : former.m_recolored) {
        const QVariant qName = former.m_names.value(iFormer);
        const auto it = std::find(m_names.cbegin(), m_names.cend(), qName);
        if (it != m_names.cend())
            setColor(it.key(), former.color(iFormer));
    }
}

} // namespace gkBase
