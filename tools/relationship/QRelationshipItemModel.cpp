#include "QRelationshipItemModel.h"

#include "AngleUnits.h"
#include "MatrixData.h"
#include "MissingValue.h"
#include "UnitManager.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace gkBase {

namespace {

/// The numbers of an attribute, NaN where missing, for iRecords records. Empty for null and for texts and colours.
/// bDegrees: angles of any unit in degrees, else the numbers as they are stored.
std::vector<double> numbers(const MatrixData* poAttribute, int iRecords, bool bDegrees = false)
{
    if (!poAttribute || !poAttribute->column().isNumeric())
        return {};
    std::vector<double> vdNumbers = bDegrees ? numbersInDegrees(*poAttribute) : poAttribute->column().numbers();
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
    , m_poContourGridPoles(std::make_unique<MatrixDataArray>(QStringLiteral("Density"), 0, 0, QMetaType::Double))
    , m_poContourGridDipDir(std::make_unique<MatrixDataArray>(QStringLiteral("Density"), 0, 0, QMetaType::Double))
    , m_pLines(std::make_shared<Lines>())
{
    m_pLines->m_oIntervalFilter.setName(QStringLiteral("Interval Filter"));
}

QRelationshipItemModel::~QRelationshipItemModel() = default;

void QRelationshipItemModel::setNodes(int iRows, DisplayType eType, MatrixData* poX, MatrixData* poY,
                                      const std::vector<int>& viTableRows)
{
    if (std::exchange(m_eDisplayType, eType) != eType) {
        changed();
        m_bOtherRows = true; // orientations are read in degrees, other points as they are stored
    }
    m_oX.set(poX);
    m_oY.set(poY);
    m_bOtherRows = m_bOtherRows || m_iRequestedRows != iRows || m_viTableRows != viTableRows;
    m_iRequestedRows = iRows;
    m_viTableRows = viTableRows;
}

/// Results and rotations of poles have no meaning for lines.
void QRelationshipItemModel::setLines(bool bLines)
{
    if (std::exchange(m_bLines, bLines) == bLines)
        return;
    m_bOtherRows = true;
    forgetRotations();
    clearResults();
}

void QRelationshipItemModel::takeNewDataSet(int iRows, DisplayType eType, MatrixData* poX, MatrixData* poY,
                                            const std::vector<int>& viTableRows)
{
    setNodes(iRows, eType, poX, poY, viTableRows);
    setLines(false);
    load();
}

void QRelationshipItemModel::takeNewDataSet(int iRows, DisplayType eType, MatrixData* poDip, MatrixData* poAzimuth,
                                            MatrixData* poColor, MatrixData* poSymbol, bool bLines,
                                            const std::vector<int>& viTableRows)
{
    setNodes(iRows, eType, poDip, poAzimuth, viTableRows);
    m_oColor.set(poColor);
    m_oSymbol.set(poSymbol);
    setLines(bLines);
    load();
}

void QRelationshipItemModel::takeNewDataSet(MatrixData* poX, MatrixData* poY)
{
    setNodes(-1, m_eDisplayType, poX, poY, {});
    load();
}

void QRelationshipItemModel::refresh()
{
    load();
}

void QRelationshipItemModel::clear()
{
    for (RelationshipSource* pSource : {&m_oThird, &m_oColor, &m_oSymbol, &m_oTadPole, &m_oQuality})
        pSource->set(nullptr);
    takeNewDataSet(nullptr, nullptr);
}

void QRelationshipItemModel::load()
{
    const RelationshipSource::Change eX = m_oX.takeChange();
    const RelationshipSource::Change eY = m_oY.takeChange();
    const RelationshipSource::Change eThird = m_oThird.takeChange();
    const RelationshipSource::Change eColor = m_oColor.takeChange();
    const RelationshipSource::Change eSymbol = m_oSymbol.takeChange();
    const RelationshipSource::Change eTadPole = m_oTadPole.takeChange();
    const RelationshipSource::Change eQuality = m_oQuality.takeChange();
    const bool bOtherPoints = std::exchange(m_bOtherRows, false) || eX || eY;
    if (!bOtherPoints && !eThird && !eColor && !eSymbol && !eTadPole && !eQuality)
        return;

    beginResetModel();
    const int iFormerRecords = numberOfPoints();
    const bool bOtherNodes = eX == RelationshipSource::OtherNode || eY == RelationshipSource::OtherNode;
    if (bOtherNodes)
        forgetRotations();
    if (bOtherPoints)
        loadPoints();
    const int iRecords = numberOfPoints();
    const bool bResized = iRecords != iFormerRecords;
    if (eThird || bResized)
        m_vdThird = numbers(m_oThird.get(), iRecords);
    if (eTadPole || bResized)
        m_vdTadPoles = numbers(m_oTadPole.get(), iRecords, true);
    if (eQuality || bResized)
        m_vdQualities = numbers(m_oQuality.get(), iRecords);
    readClasses(m_oColorClasses, m_oColor, m_oColorMap, eColor);
    readClasses(m_oSymbolClasses, m_oSymbol, {}, eSymbol);
    if (bResized) {
        m_vbSelected = QList<bool>(iRecords, false);
        m_iSelectedPoints = 0;
    }
    if (bResized || bOtherNodes)
        clearResults();
    changed();
    endResetModel();
}

void QRelationshipItemModel::readClasses(RelationshipClasses& classes, const RelationshipSource& source,
                                         const RelationshipClasses::ColorMap& oColorMap,
                                         RelationshipSource::Change eChange)
{
    if (eChange == RelationshipSource::Unchanged)
        return;
    RelationshipClasses newClasses(source.get(), oColorMap);
    if (eChange == RelationshipSource::OtherValues)
        newClasses.adoptColors(classes);
    classes = std::move(newClasses);
}

void QRelationshipItemModel::loadPoints()
{
    const MatrixData* poX = m_oX.get();
    const MatrixData* poY = m_oY.get();
    m_vdX.clear();
    m_vdY.clear();
    m_iValidPoints = 0;
    m_poData.reset();
    ++m_iPointsRevision;
    if (!poX || !poY || !poX->column().isNumeric() || !poY->column().isNumeric())
        return;
    const int iRecords = m_iRequestedRows >= 0 ? m_iRequestedRows : std::max(poX->recordCount(), poY->recordCount());
    const bool bDegrees = m_eDisplayType == OrientationDisplay;
    m_vdX = numbers(poX, iRecords, bDegrees);
    m_vdY = numbers(poY, iRecords, bDegrees);
    if (!m_viTableRows.empty())
        keepOnlyTableRows();
    for (std::size_t i = 0; i < m_vdX.size(); ++i) {
        if (isMissing(m_vdX[i]) || isMissing(m_vdY[i]))
            m_vdX[i] = m_vdY[i] = g_dEmptyCell;
        else
            ++m_iValidPoints;
    }
    if (isRotated()) {
        m_vdUnturnedX = m_vdX;
        m_vdUnturnedY = m_vdY;
        turnPoints();
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
    m_oThird.set(poAttribute);
    if (m_oThird.takeChange() == RelationshipSource::Unchanged)
        return;
    m_vdThird = numbers(poAttribute, numberOfPoints());
    columnChanged(ThirdColumn);
}

void QRelationshipItemModel::columnChanged(int iColumn)
{
    changed();
    if (rowCount() > 0)
        emit dataChanged(index(0, iColumn), index(rowCount() - 1, iColumn));
    emit headerDataChanged(Qt::Horizontal, iColumn, iColumn);
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
    const int iRecord = m_viTableRows.empty() ? i : m_viTableRows[static_cast<std::size_t>(i)];
    return contains(iRecord) ? iRecord : -1;
}

int QRelationshipItemModel::numberOfTableRows() const
{
    return m_viTableRows.empty() ? numberOfPoints() : static_cast<int>(m_viTableRows.size());
}

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
    const QModelIndex oIndex = createIndex(iRecord, SelectedColumn);
    emit dataChanged(oIndex, oIndex);
}

void QRelationshipItemModel::setSelected2(int iRecord, bool bSelected)
{
    setSelected(iRecord, bSelected && isValid(iRecord));
}

void QRelationshipItemModel::selectionChanged()
{
    m_iSelectedPoints = static_cast<int>(std::count(m_vbSelected.cbegin(), m_vbSelected.cend(), true));
    columnChanged(SelectedColumn);
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
    std::copy(vbSelected.cbegin(), vbSelected.cend(), m_vbSelected.begin()); // whoever holds selection() keeps it
    selectionChanged();
    return true;
}

void QRelationshipItemModel::selectPoints(std::span<const unsigned char> vbMask, bool bKeep)
{
    // No branch that depends on a point: a lasso over a million points in no order would guess half of them wrong.
    bool* const pbSelected = selection();
    const std::size_t iPoints = m_vdX.size();
    int iChange = 0;
    for (std::size_t i = 0; i < iPoints; ++i) {
        const int iInside = i < vbMask.size() ? int{vbMask[i] != 0} & int{!std::isnan(m_vdX[i])} : 0;
        const int iBefore = int{pbSelected[i]};
        const int iSelected = iInside | (int{bKeep} & iBefore);
        iChange |= iBefore ^ iSelected;
        pbSelected[i] = iSelected != 0;
    }
    if (iChange != 0)
        selectionChanged();
}

void QRelationshipItemModel::clearSelection()
{
    setSelectedRecords({});
}

std::vector<int> QRelationshipItemModel::selectedRecords() const
{
    const bool* const pbSelected = m_vbSelected.constData();
    const int iPoints = numberOfPoints();
    const auto iSelected = static_cast<std::size_t>(std::count(pbSelected, pbSelected + iPoints, true));
    // Every record is written, and the next one over it unless it is selected: see selectPoints().
    std::vector<int> viRecords(iSelected + 1);
    std::size_t iNext = 0;
    for (int i = 0; i < iPoints; ++i) {
        viRecords[iNext] = i;
        iNext += pbSelected[i] ? 1 : 0;
    }
    viRecords.resize(iSelected);
    return viRecords;
}

void QRelationshipItemModel::setSelectedClass(std::span<const int> viIds, int iClass, bool bSelected)
{
    bool* pbSelected = selection();
    bool bAnyChange = false;
    for (int i = 0; i < numberOfPoints() && i < static_cast<int>(viIds.size()); ++i)
        if (viIds[static_cast<std::size_t>(i)] == iClass && pbSelected[i] != bSelected && (!bSelected || isValid(i))) {
            pbSelected[i] = bSelected;
            bAnyChange = true;
        }
    if (bAnyChange)
        selectionChanged();
}

void QRelationshipItemModel::setSelectedSymbol(int iClass, bool bSelected)
{
    setSelectedClass(m_oSymbolClasses.ids(), iClass, bSelected);
}

void QRelationshipItemModel::setSelectedColorClass(int iClass, bool bSelected)
{
    setSelectedClass(m_oColorClasses.ids(), iClass, bSelected);
}

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
    m_oColor.set(poAttribute);
    const RelationshipSource::Change eChange = m_oColor.takeChange();
    readClasses(m_oColorClasses, m_oColor, m_oColorMap, eChange);
    if (eChange != RelationshipSource::Unchanged)
        columnChanged(ColorClassColumn);
}

void QRelationshipItemModel::setSymbolAttribute(MatrixData* poAttribute)
{
    m_oSymbol.set(poAttribute);
    const RelationshipSource::Change eChange = m_oSymbol.takeChange();
    readClasses(m_oSymbolClasses, m_oSymbol, {}, eChange);
    if (eChange != RelationshipSource::Unchanged)
        columnChanged(SymbolClassColumn);
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
    if (!m_oColorClasses.isBanded())
        return;
    // Other bands: colours that were chosen for the former ones have no meaning.
    m_oColorClasses = RelationshipClasses(m_oColor.get(), m_oColorMap);
    columnChanged(ColorClassColumn);
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

QString QRelationshipItemModel::className(const RelationshipClasses& classes, const RelationshipSource& source,
                                          int iClass)
{
    const QVariant qName = classes.names().value(iClass);
    const bool bNumber = qName.typeId() == QMetaType::Double || qName.typeId() == QMetaType::Int;
    if (!bNumber || !source)
        return qName.toString();
    const boost::shared_ptr<UnitManager> poUnit = source.get()->unitManager();
    const double dShown = poUnit->convertModelToDisplay(qName.toDouble());
    return QString::number(dShown, 'f', dShown == std::floor(dShown) ? 0 : poUnit->precision());
}

QString QRelationshipItemModel::getColorName(int iClass) const
{
    return className(m_oColorClasses, m_oColor, iClass);
}

QString QRelationshipItemModel::getSymbolName(int iClass) const
{
    return className(m_oSymbolClasses, m_oSymbol, iClass);
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
    m_oTadPole.set(poAzimuth);
    if (m_oTadPole.takeChange() == RelationshipSource::Unchanged)
        return;
    m_vdTadPoles = numbers(poAzimuth, numberOfPoints(), true);
    changed();
}

QString QRelationshipItemModel::tadpoleAttributeName() const
{
    return m_oTadPole ? m_oTadPole.get()->name() : QString();
}

double QRelationshipItemModel::azimuthTadPole(int iRecord) const
{
    return valueOr(m_vdTadPoles, iRecord, g_dMissingValue);
}

void QRelationshipItemModel::setTadPoleQuality(MatrixData* poQuality, double dMinimum)
{
    m_oQuality.set(poQuality);
    const bool bOtherNumbers = m_oQuality.takeChange() != RelationshipSource::Unchanged;
    if (bOtherNumbers)
        m_vdQualities = numbers(poQuality, numberOfPoints());
    if (std::exchange(m_dMinimumQuality, dMinimum) != dMinimum || bOtherNumbers)
        changed();
}

bool QRelationshipItemModel::tadPoleIsOpen(int iRecord) const
{
    if (!m_oQuality || isMissing(m_dMinimumQuality))
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

void QRelationshipItemModel::setScanline(double dPlunge, double dAzimuth, double dLimitAngle)
{
    const ScanLine oScanLine{dPlunge, dAzimuth, dLimitAngle};
    if (oScanLine == m_oScanLine)
        return;
    m_oScanLine = oScanLine;
    m_iBiasRevision = 0;
    changed();
}

} // namespace gkBase
