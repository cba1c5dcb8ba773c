#include "QRelationshipItemModel.h"

#include "MatrixData.h"
#include "MissingValue.h"
#include "UnitManager.h"

#include <algorithm>
#include <limits>
#include <type_traits>
#include <utility>

namespace gkBase {

namespace {

/// The numbers of an attribute, NaN where missing, for iRecords records. Empty for null and for texts and colours.
std::vector<double> numbers(const MatrixData* poAttribute, int iRecords)
{
    if (!poAttribute || !poAttribute->column().isNumeric())
        return {};
    std::vector<double> vdNumbers = poAttribute->column().numbers();
    vdNumbers.resize(static_cast<std::size_t>(iRecords), g_dEmptyCell);
    return vdNumbers;
}

double valueOr(std::span<const double> vdValues, int iRecord, double dMissing)
{
    if (iRecord < 0 || iRecord >= static_cast<int>(vdValues.size()))
        return dMissing;
    const double dValue = vdValues[static_cast<std::size_t>(iRecord)];
    return isMissing(dValue) ? dMissing : dValue;
}

} // namespace

QRelationshipItemModel::QRelationshipItemModel(QObject* pqParent)
    : QAbstractItemModel(pqParent)
    , m_dMinimumQuality(g_dMissingValue)
    , m_dXMin(g_dMissingValue)
    , m_dXMax(g_dMissingValue)
    , m_dYMin(g_dMissingValue)
    , m_dYMax(g_dMissingValue)
    , m_dScanlineAzimuth(g_dMissingValue)
    , m_dScanlinePlunge(g_dMissingValue)
    , m_dScanlineMinimumAngle(g_dMissingValue)
    , m_pLines(std::make_shared<Lines>())
{
    m_pLines->m_oIntervalFilter.setName(QStringLiteral("Interval Filter"));
}

QRelationshipItemModel::~QRelationshipItemModel() = default;

// ---- source
// ----------------------------------------------------------------------------------------------------------

void QRelationshipItemModel::setNodes(DisplayType eType, MatrixData* poX, MatrixData* poY,
                                      const std::vector<int>& viTableRows)
{
    m_eDisplayType = eType;
    m_poX = MatrixDataPointer(poX);
    m_poY = MatrixDataPointer(poY);
    m_viTableRows = viTableRows;
}

void QRelationshipItemModel::takeNewDataSet(int iRows, DisplayType eType, MatrixData* poX, MatrixData* poY,
                                            const std::vector<int>& viTableRows)
{
    setNodes(eType, poX, poY, viTableRows);
    m_iRequestedRows = iRows;
    m_bLines = false;
    load();
}

void QRelationshipItemModel::takeNewDataSet(int iRows, DisplayType eType, MatrixData* poDip, MatrixData* poAzimuth,
                                            MatrixData* poColor, MatrixData* poSymbol, bool bLines,
                                            const std::vector<int>& viTableRows)
{
    setNodes(eType, poDip, poAzimuth, viTableRows);
    m_iRequestedRows = iRows;
    m_poColor = MatrixDataPointer(poColor);
    m_poSymbol = MatrixDataPointer(poSymbol);
    m_bLines = bLines;
    load();
}

void QRelationshipItemModel::takeNewDataSet(MatrixData* poX, MatrixData* poY)
{
    setNodes(m_eDisplayType, poX, poY, {});
    m_iRequestedRows = -1;
    load();
}

void QRelationshipItemModel::refresh()
{
    load();
}

void QRelationshipItemModel::clear()
{
    m_poThird = m_poColor = m_poSymbol = m_poTadPole = m_poQuality = MatrixDataPointer();
    takeNewDataSet(nullptr, nullptr);
}

void QRelationshipItemModel::load()
{
    beginResetModel();
    loadPoints();
    const int iRecords = numberOfPoints();
    m_vdThird = numbers(m_poThird.get(), iRecords);
    m_vdTadPoles = numbers(m_poTadPole.get(), iRecords);
    m_vdQualities = numbers(m_poQuality.get(), iRecords);
    m_oColorClasses = RelationshipClasses(m_poColor.get(), m_oColorMap);
    m_oSymbolClasses = RelationshipClasses(m_poSymbol.get(), {});
    if (m_vbSelected.size() != iRecords) {
        m_vbSelected = QList<bool>(iRecords, false);
        m_iSelectedPoints = 0;
    }
    if (static_cast<int>(m_viClusters.size()) != iRecords)
        clearClusters();
    m_poData.reset();
    changed();
    endResetModel();
}

void QRelationshipItemModel::loadPoints()
{
    const MatrixData* poX = m_poX.get();
    const MatrixData* poY = m_poY.get();
    m_vdX.clear();
    m_vdY.clear();
    m_iValidPoints = 0;
    if (!poX || !poY || !poX->column().isNumeric() || !poY->column().isNumeric())
        return;
    const int iRecords = m_iRequestedRows >= 0 ? m_iRequestedRows : std::max(poX->recordCount(), poY->recordCount());
    m_vdX = numbers(poX, iRecords);
    m_vdY = numbers(poY, iRecords);
    if (!m_viTableRows.empty())
        keepOnlyTableRows();
    for (std::size_t i = 0; i < m_vdX.size(); ++i) {
        if (isMissing(m_vdX[i]) || isMissing(m_vdY[i]))
            m_vdX[i] = m_vdY[i] = g_dEmptyCell;
        else
            ++m_iValidPoints;
    }
}

void QRelationshipItemModel::keepOnlyTableRows()
{
    std::vector<bool> vbTakesPart(m_vdX.size(), false);
    for (const int iRecord : m_viTableRows)
        if (contains(iRecord))
            vbTakesPart[static_cast<std::size_t>(iRecord)] = true;
    for (std::size_t i = 0; i < m_vdX.size(); ++i)
        if (!vbTakesPart[i])
            m_vdX[i] = g_dEmptyCell;
}

void QRelationshipItemModel::setThirdDimAttribute(MatrixData* poAttribute)
{
    m_poThird = MatrixDataPointer(poAttribute);
    m_vdThird = numbers(poAttribute, numberOfPoints());
}

bool QRelationshipItemModel::isValid(int iRecord) const
{
    return contains(iRecord) && !isMissing(m_vdX[static_cast<std::size_t>(iRecord)]);
}

MatrixDataArray* QRelationshipItemModel::data() const
{
    if (!m_poData) {
        m_poData = std::make_unique<MatrixDataArray>(QStringLiteral("Points"), numberOfPoints(), 1, QMetaType::QPointF);
        for (int i = 0; i < numberOfPoints(); ++i) {
            const auto n = static_cast<std::size_t>(i);
            m_poData->setPoint(i, 0,
                               isValid(i) ? QPointF(m_vdX[n], m_vdY[n]) : QPointF(g_dMissingValue, g_dMissingValue));
        }
    }
    return m_poData.get();
}

QRectF QRelationshipItemModel::boundingBox() const
{
    if (m_iValidPoints == 0)
        return {};
    constexpr double dInfinity = std::numeric_limits<double>::infinity();
    QPointF oLow(dInfinity, dInfinity);
    QPointF oHigh(-dInfinity, -dInfinity);
    for (std::size_t i = 0; i < m_vdX.size(); ++i) {
        if (isMissing(m_vdX[i]))
            continue;
        oLow = {std::min(oLow.x(), m_vdX[i]), std::min(oLow.y(), m_vdY[i])};
        oHigh = {std::max(oHigh.x(), m_vdX[i]), std::max(oHigh.y(), m_vdY[i])};
    }
    return {oLow, oHigh};
}

int QRelationshipItemModel::tableRow(int i) const
{
    if (i < 0 || i >= numberOfTableRows())
        return -1;
    return m_viTableRows.empty() ? i : m_viTableRows[static_cast<std::size_t>(i)];
}

int QRelationshipItemModel::numberOfTableRows() const
{
    return m_viTableRows.empty() ? numberOfPoints() : static_cast<int>(m_viTableRows.size());
}

// ---- selection
// -------------------------------------------------------------------------------------------------------

std::span<const unsigned char> QRelationshipItemModel::selectionMask() const
{
    static_assert(sizeof(bool) == 1);
    // Any object may be read as bytes; those of a bool are 0 or 1.
    return {reinterpret_cast<const unsigned char*>(m_vbSelected.constData()),
            static_cast<std::size_t>(m_vbSelected.size())};
}

std::span<const unsigned char> QRelationshipItemModel::partMask() const
{
    return m_bPartSelection ? selectionMask() : std::span<const unsigned char>();
}

bool QRelationshipItemModel::isSelected(int iRecord) const
{
    return contains(iRecord) && m_vbSelected.at(iRecord);
}

void QRelationshipItemModel::setSelected(int iRecord, bool bSelected)
{
    if (!contains(iRecord) || m_vbSelected.at(iRecord) == bSelected)
        return;
    m_vbSelected[iRecord] = bSelected;
    m_iSelectedPoints += bSelected ? 1 : -1;
    changed();
}

void QRelationshipItemModel::setSelected2(int iRecord, bool bSelected)
{
    setSelected(iRecord, bSelected && isValid(iRecord));
}

void QRelationshipItemModel::recountSelection()
{
    m_iSelectedPoints = static_cast<int>(std::count(m_vbSelected.cbegin(), m_vbSelected.cend(), true));
    changed();
}

bool QRelationshipItemModel::setSelectedRecords(const std::vector<int>& viRecords)
{
    QList<bool> vbSelected(m_vbSelected.size(), false);
    bool* pbSelected = vbSelected.data();
    for (const int iRecord : viRecords)
        if (contains(iRecord))
            pbSelected[iRecord] = true;
    if (vbSelected == m_vbSelected)
        return false;
    m_vbSelected = std::move(vbSelected);
    recountSelection();
    return true;
}

void QRelationshipItemModel::selectPoints(std::span<const unsigned char> vbMask, bool bKeep)
{
    bool* pbSelected = selection();
    for (int i = 0; i < numberOfPoints(); ++i) {
        const auto n = static_cast<std::size_t>(i);
        const bool bInside = n < vbMask.size() && vbMask[n] && !isMissing(m_vdX[n]);
        pbSelected[i] = bInside || (bKeep && pbSelected[i]);
    }
    recountSelection();
}

void QRelationshipItemModel::clearSelection()
{
    if (m_iSelectedPoints == 0)
        return;
    m_vbSelected.fill(false);
    recountSelection();
}

std::vector<int> QRelationshipItemModel::selectedRecords() const
{
    std::vector<int> viRecords;
    viRecords.reserve(static_cast<std::size_t>(m_iSelectedPoints));
    for (int i = 0; i < numberOfPoints(); ++i)
        if (m_vbSelected.at(i))
            viRecords.push_back(i);
    return viRecords;
}

void QRelationshipItemModel::setSelectedClass(std::span<const int> viIds, int iClass, bool bSelected)
{
    bool* pbSelected = selection();
    for (int i = 0; i < numberOfPoints() && i < static_cast<int>(viIds.size()); ++i)
        if (viIds[static_cast<std::size_t>(i)] == iClass && (!bSelected || isValid(i)))
            pbSelected[i] = bSelected;
    recountSelection();
}

void QRelationshipItemModel::setSelectedSymbol(int iClass, bool bSelected)
{
    setSelectedClass(m_oSymbolClasses.ids(), iClass, bSelected);
}

void QRelationshipItemModel::setSelectedColorClass(int iClass, bool bSelected)
{
    setSelectedClass(m_oColorClasses.ids(), iClass, bSelected);
}

// ---- appearance
// ------------------------------------------------------------------------------------------------------

void QRelationshipItemModel::setPointStyle(PointStyle eStyle)
{
    if (std::exchange(m_ePointStyle, eStyle) != eStyle)
        changed();
}

void QRelationshipItemModel::setPointPixelSize(int iPixels)
{
    iPixels = std::clamp(iPixels, 1, 100);
    if (std::exchange(m_iPointPixelSize, iPixels) != iPixels)
        changed();
}

void QRelationshipItemModel::setOutLinePointStyle(bool bHollow)
{
    if (std::exchange(m_bOutLinePointStyle, bHollow) != bHollow)
        changed();
}

void QRelationshipItemModel::setDrawSymbols(bool bDraw)
{
    if (std::exchange(m_bDrawSymbols, bDraw) != bDraw)
        changed();
}

void QRelationshipItemModel::setColorAttribute(MatrixData* poAttribute)
{
    m_poColor = MatrixDataPointer(poAttribute);
    m_oColorClasses = RelationshipClasses(poAttribute, m_oColorMap);
    changed();
}

void QRelationshipItemModel::setSymbolAttribute(MatrixData* poAttribute)
{
    m_poSymbol = MatrixDataPointer(poAttribute);
    m_oSymbolClasses = RelationshipClasses(poAttribute, {});
    changed();
}

void QRelationshipItemModel::setColorMap(double dMin, double dMax, double dInterval, bool bRedToBlue)
{
    RelationshipClasses::ColorMap oColorMap;
    oColorMap.m_dMin = dMin;
    oColorMap.m_dMax = dMax;
    oColorMap.m_dInterval = dInterval;
    oColorMap.m_bRedToBlue = bRedToBlue;
    if (oColorMap == m_oColorMap)
        return;
    m_oColorMap = oColorMap;
    if (m_oColorClasses.isBanded())
        setColorAttribute(m_poColor.get());
}

QMetaType::Type QRelationshipItemModel::cellType() const
{
    return m_oColorClasses.cellType();
}

int QRelationshipItemModel::getColor(int iRecord, QColor& oColor) const
{
    const RelationshipClasses& classes = m_oColorClasses.isOn() ? m_oColorClasses : m_oSymbolClasses;
    const int iClass = classes.id(iRecord);
    oColor = classes.isOn() ? classes.color(iClass) : QColor(Qt::gray);
    return iClass;
}

int QRelationshipItemModel::getColorAndSymbolInfo(int iRecord, QColor& oColor, int& iSymbol) const
{
    iSymbol = m_oSymbolClasses.id(iRecord);
    return getColor(iRecord, oColor);
}

QString QRelationshipItemModel::getColorName(int iClass) const
{
    const QVariant qName = m_oColorClasses.names().value(iClass);
    const MatrixData* poColor = m_poColor.get();
    if (poColor && qName.metaType().id() == QMetaType::Double) {
        const boost::shared_ptr<UnitManager> poUnit = poColor->unitManager();
        return QString::number(poUnit->convertModelToDisplay(qName.toDouble()), 'f', poUnit->precision());
    }
    return qName.toString();
}

void QRelationshipItemModel::changeSymbolColor(int iClass, const QColor& oColor)
{
    if (m_oSymbolClasses.setColor(iClass, oColor))
        changed();
}

void QRelationshipItemModel::changeColorClass(int iClass, const QColor& oColor)
{
    if (m_oColorClasses.setColor(iClass, oColor))
        changed();
}

void QRelationshipItemModel::setTadPoleAzimuthDataNode(MatrixData* poAzimuth)
{
    m_poTadPole = MatrixDataPointer(poAzimuth);
    m_vdTadPoles = numbers(poAzimuth, numberOfPoints());
    changed();
}

QString QRelationshipItemModel::tadpoleAttributeName() const
{
    return m_poTadPole ? m_poTadPole->name() : QString();
}

double QRelationshipItemModel::azimuthTadPole(int iRecord) const
{
    return valueOr(m_vdTadPoles, iRecord, g_dMissingValue);
}

void QRelationshipItemModel::setTadPoleQuality(MatrixData* poQuality, double dMinimum)
{
    m_poQuality = MatrixDataPointer(poQuality);
    m_vdQualities = numbers(poQuality, numberOfPoints());
    m_dMinimumQuality = dMinimum;
    changed();
}

bool QRelationshipItemModel::tadPoleIsOpen(int iRecord) const
{
    if (!m_poQuality || isMissing(m_dMinimumQuality))
        return false;
    const double dQuality = valueOr(m_vdQualities, iRecord, g_dMissingValue);
    return isMissing(dQuality) || dQuality < m_dMinimumQuality;
}

void QRelationshipItemModel::setMinMaxRanges(double dXMin, double dXMax, double dYMin, double dYMax)
{
    m_dXMin = dXMin;
    m_dXMax = dXMax;
    m_dYMin = dYMin;
    m_dYMax = dYMax;
}

void QRelationshipItemModel::setScanline(double dAzimuth, double dPlunge, double dMinimumAngle)
{
    m_dScanlineAzimuth = dAzimuth;
    m_dScanlinePlunge = dPlunge;
    m_dScanlineMinimumAngle = dMinimumAngle;
}

} // namespace gkBase
