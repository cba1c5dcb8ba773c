// Colours of cells and the classes of colour and symbol attributes.

#include "MatrixData.h"

#include "GKColormap.h"
#include "UnitManager.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <unordered_map>

namespace gkBase {

namespace {

using SymbolNames = QMap<int, QVariant>;
using SymbolColors = QMap<int, QColor>;

/// Up to so many distinct values are looked up in a table rather than sorted.
constexpr std::size_t g_iFewClasses = 4096;

// Mid-tone colours far apart in hue: each keeps a contrast of about 3 to 1 against white as well as black.
constexpr std::array aPalette{0x2f7ed8u, 0xd9502eu, 0x2e9e4bu, 0xa457c4u, 0xb8860bu, 0x159e9eu,
                              0xd6459bu, 0x7a8b1eu, 0x7469e0u, 0xa0694bu, 0xd0434du, 0x5b87a6u};

/// The palette, then further hues that keep away from each other by the golden angle.
QColor classColor(int iIndex)
{
    constexpr int iPalette = static_cast<int>(aPalette.size());
    if (iIndex < iPalette)
        return QColor::fromRgb(aPalette[static_cast<std::size_t>(iIndex)]);
    constexpr double dGoldenAngleDeg = 137.50776405003785;
    const int iHue = static_cast<int>(std::fmod((iIndex - iPalette) * dGoldenAngleDeg, 360.0));
    return QColor::fromHsv(iHue, 190, 190).toRgb();
}

void startClasses(const QVariant& qMissing, SymbolNames& names, SymbolColors& colors)
{
    names.clear();
    colors.clear();
    names.insert(0, qMissing);
    colors.insert(0, QColor(Qt::gray));
}

/// Appends at the end of a map whose keys rise, which costs no search.
void appendClass(int iId, const QVariant& qName, const QColor& oColor, SymbolNames& names, SymbolColors& colors)
{
    names.insert(names.cend(), iId, qName);
    colors.insert(colors.cend(), iId, oColor);
}

/// Ids of text cells: the codes that cells use, in the order of their texts.
void classifyTexts(const MatrixColumn& column, std::vector<int>& vIds, SymbolNames& names, SymbolColors& colors)
{
    const std::span<const std::int32_t> codes = column.textCodes();
    const std::vector<QString>& texts = column.texts();
    std::vector<int> viIdOfCode(texts.size(), 0);
    for (const std::int32_t iCode : codes)
        if (iCode >= 0)
            viIdOfCode[static_cast<std::size_t>(iCode)] = 1;
    std::vector<std::size_t> vUsed;
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (viIdOfCode[i])
            vUsed.push_back(i);
    std::sort(vUsed.begin(), vUsed.end(), [&texts](std::size_t a, std::size_t b) { return texts[a] < texts[b]; });
    for (std::size_t i = 0; i < vUsed.size(); ++i) {
        const int iId = static_cast<int>(i) + 1;
        viIdOfCode[vUsed[i]] = iId;
        appendClass(iId, texts[vUsed[i]], classColor(iId - 1), names, colors);
    }
    for (std::size_t i = 0; i < codes.size(); ++i)
        vIds[i] = codes[i] < 0 ? 0 : viIdOfCode[static_cast<std::size_t>(codes[i])];
}

/// The distinct values in the order in which they come, numbered from 1 in vIds; key(i, value) tells the value of a
/// record, false when missing. False, and vIds is of no use, when there are more than g_iFewClasses of them.
template <typename T, typename Key>
bool numberFewValues(std::vector<int>& vIds, std::vector<T>& vDistinct, Key& key)
{
    std::unordered_map<T, int> idOfValue;
    T value{};
    for (std::size_t i = 0; i < vIds.size(); ++i) {
        if (!key(static_cast<int>(i), value))
            continue;
        const auto [it, bNew] = idOfValue.try_emplace(value, static_cast<int>(vDistinct.size()) + 1);
        if (bNew) {
            if (vDistinct.size() == g_iFewClasses)
                return false;
            vDistinct.push_back(value);
        }
        vIds[i] = it->second;
    }
    return true;
}

/// Sorts the values that numberFewValues() numbered, and renumbers the records with them.
template <typename T>
void renumberSorted(std::vector<int>& vIds, std::vector<T>& vDistinct)
{
    std::vector<int> viOrder(vDistinct.size());
    std::iota(viOrder.begin(), viOrder.end(), 0);
    const auto valueAt = [&vDistinct](int i) { return vDistinct[static_cast<std::size_t>(i)]; };
    std::sort(viOrder.begin(), viOrder.end(), [&](int a, int b) { return valueAt(a) < valueAt(b); });
    std::vector<int> viNewId(vDistinct.size() + 1, 0);
    std::vector<T> vSorted;
    for (const int i : viOrder) {
        vSorted.push_back(valueAt(i));
        viNewId[static_cast<std::size_t>(i) + 1] = static_cast<int>(vSorted.size());
    }
    for (int& iId : vIds)
        iId = viNewId[static_cast<std::size_t>(iId)];
    vDistinct = std::move(vSorted);
}

/// The distinct values in rising order; ids are their places from 1. A few values, which is what classes usually
/// are, take one pass over the records; many are sorted.
template <typename T, typename Key>
std::vector<T> classifySorted(std::vector<int>& vIds, Key key)
{
    std::vector<T> vDistinct;
    if (numberFewValues(vIds, vDistinct, key)) {
        renumberSorted(vIds, vDistinct);
        return vDistinct;
    }
    vDistinct.clear();
    T value{};
    for (int i = 0; i < static_cast<int>(vIds.size()); ++i)
        if (key(i, value))
            vDistinct.push_back(value);
    std::sort(vDistinct.begin(), vDistinct.end());
    vDistinct.erase(std::unique(vDistinct.begin(), vDistinct.end()), vDistinct.end());
    for (int i = 0; i < static_cast<int>(vIds.size()); ++i)
        if (key(i, value)) {
            const auto it = std::lower_bound(vDistinct.begin(), vDistinct.end(), value);
            vIds[static_cast<std::size_t>(i)] = static_cast<int>(it - vDistinct.begin()) + 1;
        }
    return vDistinct;
}

void classifyColors(const MatrixColumn& column, std::vector<int>& vIds, SymbolNames& names, SymbolColors& colors)
{
    startClasses(QColor(Qt::gray), names, colors); // the first name tells the legend that the classes are colours
    const std::span<const QRgb> cells = column.colors();
    const std::vector<QRgb> vDistinct = classifySorted<QRgb>(vIds, [cells](int i, QRgb& rgb) {
        rgb = static_cast<std::size_t>(i) < cells.size() ? cells[static_cast<std::size_t>(i)] : 0;
        return rgb != 0;
    });
    for (std::size_t i = 0; i < vDistinct.size(); ++i)
        appendClass(static_cast<int>(i) + 1, QColor(vDistinct[i]), QColor(vDistinct[i]), names, colors);
}

QVariant numberName(double dValue, QMetaType::Type eType)
{
    if (eType == QMetaType::Int)
        return static_cast<int>(dValue);
    if (eType == QMetaType::Bool)
        return dValue != 0.0;
    return dValue;
}

} // namespace

QColor MatrixData::color(const QModelIndex& index) const
{
    const int iRecord = index.row() - m_iRowOffSet;
    if (!index.isValid() || iRecord < 0 || columnCount() < 1 || type() != QMetaType::QColor)
        return QColor();
    return column(0).color(iRecord);
}

QColor MatrixData::color(const QString& sText) const
{
    const QString sName = sText.trimmed();
    return QColor::isValidColor(sName) ? QColor::fromRgb(QColor(sName).rgb()) : QColor();
}

QString MatrixData::colorHexaString(const QColor& oColor)
{
    return oColor.isValid() ? oColor.name(QColor::HexRgb) : QString();
}

QColor MatrixData::colorFromHexaString(const QString& sText)
{
    const QString sName = sText.trimmed();
    return QColor::isValidColor(sName) ? QColor::fromRgb(QColor(sName).rgb()) : QColor(Qt::black);
}

QColor MatrixData::getDefaultColor(bool bRestart)
{
    static std::size_t theNext = 0;
    if (bRestart)
        theNext = 0;
    const QColor oColor = QColor::fromRgb(aPalette[theNext]);
    theNext = (theNext + 1) % aPalette.size();
    return oColor;
}

void MatrixData::createSymbolIDs(std::vector<int>& vIds, QMap<int, QVariant>& names, QMap<int, QColor>& colors) const
{
    startClasses(QString(), names, colors);
    vIds.assign(static_cast<std::size_t>(recordCount()), 0);
    if (vIds.empty())
        return;
    const MatrixColumn& oColumn = column(0);
    if (oColumn.type() == QMetaType::QString)
        return classifyTexts(oColumn, vIds, names, colors);
    if (oColumn.type() == QMetaType::QColor)
        return classifyColors(oColumn, vIds, names, colors);
    const std::vector<double> vdDistinct = classifySorted<double>(vIds, [&oColumn](int i, double& dValue) {
        dValue = oColumn.number(i);
        return !std::isnan(dValue);
    });
    for (std::size_t i = 0; i < vdDistinct.size(); ++i)
        appendClass(static_cast<int>(i) + 1, numberName(vdDistinct[i], oColumn.type()), classColor(static_cast<int>(i)),
                    names, colors);
}

void MatrixData::createColorMapSymbolIDs(std::vector<int>& vIds, QMap<int, QVariant>& names, QMap<int, QColor>& colors,
                                         double dMin, double dMax, double dInterval, bool bRedToBlue) const
{
    startClasses(QString(), names, colors);
    vIds.assign(static_cast<std::size_t>(recordCount()), 0);
    if (vIds.empty())
        return;
    const MatrixColumn& oColumn = column(0);
    if (oColumn.type() == QMetaType::QColor)
        return classifyColors(oColumn, vIds, names, colors);
    GKColormap colormap;
    colormap.fill_spectrum_color_list(dMin, dMax, dInterval, bRedToBlue);
    if (colormap.empty())
        return;
    std::vector<double> vdLevels;
    for (const auto& level : colormap)
        vdLevels.push_back(level.first);

    const int iBands = std::max(1, static_cast<int>(vdLevels.size()) - 1);
    const boost::shared_ptr<UnitManager> poUnit = unitManager();
    const auto levelText = [&](std::size_t iLevel) {
        return QString::number(poUnit->convertModelToDisplay(vdLevels[iLevel]), 'f', poUnit->precision());
    };
    for (int iBand = 0; iBand < iBands; ++iBand) {
        const std::size_t iLevel = static_cast<std::size_t>(iBand);
        const double dFraction = iBands > 1 ? static_cast<double>(iBand) / (iBands - 1) : 0.0;
        const QString sName =
            vdLevels.size() > 1 ? levelText(iLevel) + QStringLiteral(" – ") + levelText(iLevel + 1) : levelText(iLevel);
        appendClass(iBand + 1, sName, GKColormap::spectrumColor(bRedToBlue ? 1.0 - dFraction : dFraction), names,
                    colors);
    }
    for (std::size_t i = 0; i < vIds.size(); ++i) {
        const double dValue = oColumn.number(static_cast<int>(i));
        if (std::isnan(dValue))
            continue;
        const auto it = std::upper_bound(vdLevels.begin(), vdLevels.end(), dValue);
        vIds[i] = std::clamp(static_cast<int>(it - vdLevels.begin()), 1, iBands);
    }
}

} // namespace gkBase
