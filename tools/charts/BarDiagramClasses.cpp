#include "BarDiagramClasses.h"

#include "AxisTicks.h"
#include "ColumnNumbers.h"
#include "DecimalSteps.h"
#include "FrequencyClasses.h"
#include "MatrixData.h"
#include "UnitManager.h"

#include <QCoreApplication>
#include <QMap>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_set>

namespace gkBase {

namespace {

/// More intervals than this are not suggested, so that they are all seen at once.
constexpr int g_iMostSuggestedIntervals = 25;
constexpr int g_iMostDecimals = 9;
constexpr int g_iSignificantDigits = 10;

QString translated(const char* pText)
{
    return QCoreApplication::translate("BarDiagramClasses", pText);
}

/// Index behind the digits that begin at i.
qsizetype endOfDigits(QStringView sText, qsizetype i)
{
    while (i < sText.size() && sText[i].isDigit())
        ++i;
    return i;
}

/// Runs of digits without their leading zeros: the longer number is the larger one.
int compareNumbers(QStringView sA, QStringView sB)
{
    while (sA.size() > 1 && sA.front().digitValue() == 0)
        sA = sA.mid(1);
    while (sB.size() > 1 && sB.front().digitValue() == 0)
        sB = sB.mid(1);
    return sA.size() != sB.size() ? (sA.size() < sB.size() ? -1 : 1) : sA.compare(sB);
}

/// "zone 2" before "Zone 10".
bool isNameBefore(QStringView sA, QStringView sB)
{
    qsizetype iA = 0;
    qsizetype iB = 0;
    while (iA < sA.size() && iB < sB.size()) {
        if (sA[iA].isDigit() && sB[iB].isDigit()) {
            const qsizetype iEndA = endOfDigits(sA, iA);
            const qsizetype iEndB = endOfDigits(sB, iB);
            if (const int iOrder = compareNumbers(sA.mid(iA, iEndA - iA), sB.mid(iB, iEndB - iB)))
                return iOrder < 0;
            iA = iEndA;
            iB = iEndB;
            continue;
        }
        const QChar cA = sA[iA++].toCaseFolded();
        const QChar cB = sB[iB++].toCaseFolded();
        if (cA != cB)
            return cA < cB;
    }
    return sA.size() - iA < sB.size() - iB;
}

/// Decimals that a number needs so that it is not rounded, few enough to be read.
int decimalsOf(double dNumber)
{
    double dScaled = std::abs(dNumber);
    for (int i = 0; i < g_iMostDecimals; ++i) {
        if (std::abs(dScaled - std::round(dScaled)) <= 1e-6 * std::max(1e-3, dScaled))
            return i;
        dScaled *= 10.0;
    }
    return g_iMostDecimals;
}

QString className(const QVariant& qName, const UnitManager& unit)
{
    if (qName.userType() == QMetaType::QColor)
        return qName.value<QColor>().name(QColor::HexRgb);
    if (qName.userType() == QMetaType::Double || qName.userType() == QMetaType::Int)
        return QString::number(unit.convertModelToDisplay(qName.toDouble()), 'g', g_iSignificantDigits);
    const QString sName = qName.toString().simplified();
    return sName.isEmpty() ? translated("(empty)") : sName;
}

/// The interval, or a wider one where it would make more classes than a chart is made for.
double allowedInterval(double dInterval, double dRange)
{
    return std::max(dInterval, dRange / BarDiagramClasses::s_iMostIntervals);
}

} // namespace

// ---- classes --------------------------------------------------------------------------------------------------------

bool BarDiagramClasses::takesInterval(const MatrixData& attribute)
{
    return attribute.type() == QMetaType::Double || attribute.type() == QMetaType::Int;
}

double BarDiagramClasses::suggestedInterval(const MatrixData& attribute)
{
    if (!takesInterval(attribute) || attribute.columnCount() < 1)
        return 0.0;
    const ColumnNumbers numbers(attribute.column(0));
    std::unordered_set<double> distinct;
    std::size_t iValues = 0;
    bool bFew = true;
    for (const double dValue : numbers.cells()) {
        if (isMissing(dValue))
            continue;
        ++iValues;
        if (bFew && distinct.insert(dValue).second)
            bFew = distinct.size() <= s_iMostDistinctValues;
    }
    // A few measured numbers that all differ are no classes; whole numbers may be.
    const bool bInts = attribute.type() == QMetaType::Int;
    if (bFew && (bInts || 2 * distinct.size() <= iValues))
        return 0.0;
    double dMin = 0.0;
    double dMax = 0.0;
    attribute.getMinMax(dMin, dMax);
    const double dInterval =
        std::max(automaticInterval(numbers.values()), niceStep(dMin, dMax, g_iMostSuggestedIntervals).value());
    return bInts ? std::max(1.0, std::round(dInterval)) : dInterval;
}

bool BarDiagramClasses::classify(const MatrixData* poAttribute, double dInterval)
{
    Source source;
    if (poAttribute)
        source = {poAttribute->globalID(), poAttribute->revision(), dInterval > 0.0 ? dInterval : 0.0,
                  poAttribute->unitManager()->getDisplayUnitTag()};
    if (source == m_oSource)
        return false;
    m_oSource = source;
    m_viIds.clear();
    m_vClasses.clear();
    m_viRecords.clear();
    m_bTexts = poAttribute && poAttribute->type() == QMetaType::QString;
    if (poAttribute && source.m_dInterval > 0.0 && takesInterval(*poAttribute))
        classifyIntervals(*poAttribute, source.m_dInterval);
    else if (poAttribute)
        classifyValues(*poAttribute);
    if (!m_vClasses.empty()) {
        m_vClasses.front().m_sName = translated("(missing)");
        m_vClasses.front().m_oColor = QColor(Qt::gray);
    }
    return true;
}

void BarDiagramClasses::classifyValues(const MatrixData& attribute)
{
    QMap<int, QVariant> names;
    QMap<int, QColor> colors;
    attribute.createSymbolIDs(m_viIds, names, colors);
    const boost::shared_ptr<UnitManager> poUnit = attribute.unitManager();
    m_vClasses.reserve(static_cast<std::size_t>(names.size()));
    auto itColor = colors.cbegin();
    for (auto itName = names.cbegin(); itName != names.cend() && itColor != colors.cend(); ++itName, ++itColor)
        m_vClasses.push_back({itName.key(), className(*itName, *poUnit), *itColor, 0});
}

/// The classes begin at a whole multiple of the interval, so that their names are round numbers.
void BarDiagramClasses::classifyIntervals(const MatrixData& attribute, double dInterval)
{
    double dMin = 0.0;
    double dMax = 0.0;
    attribute.getMinMax(dMin, dMax);
    if (isMissing(dMin) || isMissing(dMax))
        return classifyValues(attribute);
    dInterval = allowedInterval(dInterval, dMax - dMin);
    const double dFirst = decimalStep(0.0, dInterval, std::floor(dMin / dInterval));
    const double dCount = std::max(1.0, std::ceil((dMax - dFirst) / dInterval * (1.0 - 1e-12)));
    QMap<int, QVariant> names;
    QMap<int, QColor> colors;
    attribute.createColorMapSymbolIDs(m_viIds, names, colors, dFirst, decimalStep(dFirst, dInterval, dCount), dInterval,
                                      false);

    const boost::shared_ptr<UnitManager> poUnit = attribute.unitManager();
    const auto edge = [&](int i) { return poUnit->convertModelToDisplay(dFirst + i * dInterval); };
    const int iDecimals = std::max(decimalsOf(edge(1) - edge(0)), decimalsOf(edge(0)));
    const auto text = [&](int i) { return QString::number(edge(i) + 0.0, 'f', iDecimals); };
    for (auto it = colors.cbegin(); it != colors.cend(); ++it)
        m_vClasses.push_back({it.key(), text(it.key() - 1) + QStringLiteral(" – ") + text(it.key()), *it, 0});
}

// ---- counts ---------------------------------------------------------------------------------------------------------

template <typename Function>
void BarDiagramClasses::forEachCounted(Function&& fn) const
{
    const int iSize = static_cast<int>(m_viIds.size());
    if (m_viRecords.empty()) {
        for (int i = 0; i < iSize; ++i)
            fn(i, m_viIds[static_cast<std::size_t>(i)]);
        return;
    }
    for (const int iRecord : m_viRecords)
        if (iRecord >= 0 && iRecord < iSize)
            fn(iRecord, m_viIds[static_cast<std::size_t>(iRecord)]);
}

void BarDiagramClasses::count(const std::vector<int>& viRecords)
{
    m_viRecords = viRecords;
    std::vector<int> viCounts(m_vClasses.size(), 0);
    forEachCounted([&viCounts](int, int iId) { ++viCounts[static_cast<std::size_t>(iId)]; });
    for (std::size_t i = 0; i < viCounts.size(); ++i)
        m_vClasses[i].m_iCount = viCounts[i];
}

void BarDiagramClasses::arrange(Order eOrder, bool bMissingValues)
{
    m_vBars.clear();
    for (std::size_t i = 1; i < m_vClasses.size(); ++i)
        if (m_vClasses[i].m_iCount > 0)
            m_vBars.push_back(m_vClasses[i]);
    if (eOrder == NameOrder && m_bTexts)
        std::stable_sort(m_vBars.begin(), m_vBars.end(),
                         [](const BarClass& a, const BarClass& b) { return isNameBefore(a.m_sName, b.m_sName); });
    else if (eOrder == CountOrder)
        std::stable_sort(m_vBars.begin(), m_vBars.end(),
                         [](const BarClass& a, const BarClass& b) { return a.m_iCount > b.m_iCount; });
    if (bMissingValues && missingCount() > 0)
        m_vBars.push_back(m_vClasses.front());
    m_iTotal = 0;
    m_iMaximum = 0;
    for (const BarClass& bar : m_vBars) {
        m_iTotal += bar.m_iCount;
        m_iMaximum = std::max(m_iMaximum, bar.m_iCount);
    }
}

double BarDiagramClasses::share(int iBar) const
{
    if (iBar < 0 || iBar >= barCount() || m_iTotal == 0)
        return 0.0;
    return 100.0 * m_vBars[static_cast<std::size_t>(iBar)].m_iCount / m_iTotal;
}

std::vector<int> BarDiagramClasses::recordsOf(std::span<const int> viIds) const
{
    std::vector<bool> vbWanted(m_vClasses.size(), false);
    for (const int iId : viIds)
        if (iId >= 0 && static_cast<std::size_t>(iId) < vbWanted.size())
            vbWanted[static_cast<std::size_t>(iId)] = true;
    std::vector<int> viRecords;
    forEachCounted([&](int iRecord, int iId) {
        if (vbWanted[static_cast<std::size_t>(iId)])
            viRecords.push_back(iRecord);
    });
    std::sort(viRecords.begin(), viRecords.end());
    return viRecords;
}

} // namespace gkBase
