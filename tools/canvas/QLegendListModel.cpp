#include "QLegendListModel.h"

#include "MatrixData.h"
#include "QChartDrawingArea.h"
#include "QRelationshipItemModel.h"
#include "SymbolGeometry.h"

#include <QPainter>

#include <algorithm>

namespace gkBase {

namespace {

/// Half the width of the symbols, and the logical side of their pictures.
constexpr int g_iSymbolSize = 5;
constexpr int g_iIconSide = 16;

} // namespace

QLegendListModel::QLegendListModel(QWidget* pqParent, QChartDrawingArea* pqChart, LegendType eType)
    : QAbstractListModel(pqParent)
    , m_pqChart(pqChart)
    , m_eType(eType)
{
}

QLegendListModel::~QLegendListModel() = default;

void QLegendListModel::classesChanged()
{
    beginResetModel();
    m_oSprites.clear();
    endResetModel();
}

void QLegendListModel::setClasses(const QMap<int, QVariant>& names, const QMap<int, QColor>& colors)
{
    if (names == m_classNames) {
        if (colors == m_classColors)
            return;
        m_classColors = colors;
        emitAllChanged();
        return;
    }
    m_classNames = names;
    m_classColors = colors;
    classesChanged();
}

void QLegendListModel::emitAllChanged()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int QLegendListModel::cellType() const
{
    return m_classNames.isEmpty() ? int(QMetaType::Double) : m_classNames.first().typeId();
}

QChartDrawingArea* QLegendListModel::chart() const
{
    return m_pqChart;
}

void QLegendListModel::setLowestSymbolId(int iId)
{
    m_iLowestSymbolId = iId;
    emitAllChanged();
}

void QLegendListModel::setHighestSymbolId(int iId)
{
    m_iHighestSymbolId = iId;
    emitAllChanged();
}

void QLegendListModel::setSymbolNode(MatrixData* poNode)
{
    m_poSymbolNode = MatrixDataPointer(poNode);
}

MatrixData* QLegendListModel::getSymbolNode() const
{
    return m_poSymbolNode.get();
}

void QLegendListModel::setLineationModel(QRelationshipItemModel* pModel)
{
    m_pLineationModel = pModel;
}

QModelIndex QLegendListModel::indexOfClass(int iClassId) const
{
    return index(iClassId - 1, 0);
}

// ---- pictures -------------------------------------------------------------------------------------------------------

QColor QLegendListModel::swatchColor(int iClassId) const
{
    if (cellType() == QMetaType::QColor) {
        const QVariant qName = m_classNames.value(iClassId);
        const MatrixData* poNode = m_poSymbolNode.get();
        return poNode ? poNode->color(qName.toString()) : qName.value<QColor>();
    }
    return m_eType == ColorLegend ? m_classColors.value(iClassId) : QColor();
}

bool QLegendListModel::hasSymbol(int iClassId) const
{
    return m_eType == SymbolLegend && cellType() != QMetaType::QColor && iClassId >= m_iLowestSymbolId &&
           iClassId <= m_iHighestSymbolId;
}

SymbolLook QLegendListModel::symbolLook(int iClassId) const
{
    const int iStyle = isPointStyle(iClassId) ? iClassId : int(Circle);
    const QColor oColor = m_classColors.value(iClassId);
    // White whatever the chart's background is: symbols look the same in both of its modes.
    QColor oFill = Qt::white;
    if (m_eType == SymbolLegend) {
        if (symbolFill(iStyle) == SymbolFill::None)
            oFill = QColor();
        else if (symbolFill(iStyle) != SymbolFill::Background)
            oFill = oColor;
    }
    return {iStyle, oColor, oFill, g_iSymbolSize};
}

QPixmap QLegendListModel::symbol(int iClassId) const
{
    const qreal dRatio = m_pqChart ? m_pqChart->devicePixelRatioF() : 1.0;
    const QPixmap& oSprite = m_oSprites.sprite(symbolLook(iClassId), dRatio);
    QPixmap oPicture(QSizeF(g_iIconSide * dRatio, g_iIconSide * dRatio).toSize());
    oPicture.setDevicePixelRatio(dRatio);
    oPicture.fill(Qt::white);
    QPainter painter(&oPicture);
    const int iMargin = (g_iIconSide - static_cast<int>(oSprite.deviceIndependentSize().width())) / 2;
    painter.drawPixmap(iMargin, iMargin, oSprite);
    return oPicture;
}

// ---- recolouring ----------------------------------------------------------------------------------------------------

void QLegendListModel::changeSymbolColor(const QModelIndex& index, const QColor& oColor)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !oColor.isValid())
        return;
    const int iClassId = classId(index);
    m_classColors[iClassId] = oColor;
    for (QRelationshipItemModel* pModel : {m_pqChart ? m_pqChart->model() : nullptr, m_pLineationModel.data()}) {
        if (pModel && m_eType == SymbolLegend)
            pModel->changeSymbolColor(iClassId, oColor);
        else if (pModel)
            pModel->changeColorClass(iClassId, oColor);
    }
    emit dataChanged(index, index);
}

// ---- item model -----------------------------------------------------------------------------------------------------

int QLegendListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : std::max(static_cast<int>(m_classNames.size()) - 1, 0);
}

int QLegendListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant QLegendListModel::data(const QModelIndex& index, int iRole) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const int iClassId = classId(index);
    if (iRole == Qt::DisplayRole)
        return index.column() == 0 ? m_classNames.value(iClassId) : QVariant(iClassId);
    if (iRole != Qt::DecorationRole)
        return QVariant();
    if (hasSymbol(iClassId))
        return symbol(iClassId);
    const QColor oSwatch = swatchColor(iClassId);
    return oSwatch.isValid() ? QVariant(oSwatch) : QVariant();
}

} // namespace gkBase
