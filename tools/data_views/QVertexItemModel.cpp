#include "QVertexItemModel.h"

#include "CellText.h"
#include "DisplayUnitManager.h"
#include "MatrixData.h"
#include "MatrixDataNotifier.h"
#include "MissingValue.h"
#include "UnitManager.h"

#include <QBrush>
#include <QColor>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>

namespace gkBase {

QVertexItemModel::QVertexItemModel(QObject* pqParent, MatrixData* poRoot, int iFilterStepSize)
    : QAbstractItemModel(pqParent)
    , m_poDataRoot(poRoot)
    , m_iNextFilterStepSize(iFilterStepSize)
{
    m_oRowMap.setStep(iFilterStepSize);
    connect(&DisplayUnitManager::instance(), &DisplayUnitManager::displayChanged, this, &QVertexItemModel::slotUpdate);
    connectRoot();
    m_vpColumns = shownColumns();
    m_oRowMap.m_iRowOffSet = m_poDataRoot ? m_poDataRoot->rowOffSet() : 0;
    m_iRowCount = QVertexItemModel::wantedRowCount();
}

QVertexItemModel::~QVertexItemModel() = default;

// ---- structure ---------------------------------------------------------------------------------------------------

QModelIndex QVertexItemModel::index(int iRow, int iColumn, const QModelIndex& parent) const
{
    return hasIndex(iRow, iColumn, parent) ? createIndex(iRow, iColumn, getNode(iColumn)) : QModelIndex();
}

QModelIndex QVertexItemModel::parent(const QModelIndex& /*index*/) const
{
    return {};
}

int QVertexItemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_iRowCount;
}

int QVertexItemModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_vpColumns.size());
}

MatrixData* QVertexItemModel::getNode(int iColumn) const
{
    if (iColumn < 0 || iColumn >= static_cast<int>(m_vpColumns.size()))
        return nullptr;
    return m_vpColumns[static_cast<std::size_t>(iColumn)];
}

MatrixData* QVertexItemModel::nodeFromIndex(const QModelIndex& index) const
{
    // Not through the index's pointer: an index may outlive its column.
    return index.isValid() ? getNode(index.column()) : m_poDataRoot;
}

int QVertexItemModel::largestRowNumber() const
{
    int iRecords = 1;
    for (const MatrixData* poNode : m_vpColumns)
        iRecords = std::max(iRecords, poNode->recordCount());
    return iRecords;
}

int QVertexItemModel::wantedRowCount() const
{
    if (!m_poDataRoot)
        return 0;
    return m_poDataRoot->maxNumbOfSelectedRows(m_oRowMap.m_iStep, static_cast<int>(m_oRowMap.m_viSheetRows.size()));
}

std::vector<MatrixData*> QVertexItemModel::shownColumns() const
{
    std::vector<MatrixData*> vpColumns;
    const int iColumns = m_poDataRoot ? m_poDataRoot->numberOfSelectedItems() : 0;
    for (int iColumn = 0; iColumn < iColumns; ++iColumn)
        if (MatrixData* poNode = m_poDataRoot->getNode(iColumn))
            vpColumns.push_back(poNode);
    return vpColumns;
}

void QVertexItemModel::rebuildColumns()
{
    m_oRowMap.m_iRowOffSet = m_poDataRoot ? m_poDataRoot->rowOffSet() : 0;
    m_vpColumns = shownColumns();
    m_iRowCount = wantedRowCount();
}

void QVertexItemModel::resetColumns()
{
    beginResetModel();
    rebuildColumns();
    endResetModel();
}

void QVertexItemModel::updateModel(int iFilterStepSize, std::vector<int> liSelectedRows)
{
    beginResetModel();
    m_iNextFilterStepSize = iFilterStepSize;
    m_oRowMap.setStep(iFilterStepSize);
    m_oRowMap.m_viSheetRows = std::move(liSelectedRows);
    rebuildColumns();
    endResetModel();
}

void QVertexItemModel::setDataRoot(MatrixData* poRoot)
{
    beginResetModel();
    if (m_poDataRoot)
        disconnect(m_poDataRoot->notifier(), nullptr, this, nullptr);
    m_poDataRoot = poRoot;
    connectRoot();
    m_oRowMap.setStep(m_iNextFilterStepSize);
    m_oRowMap.m_viSheetRows.clear();
    rebuildColumns();
    endResetModel();
}

void QVertexItemModel::setModified(bool bModified)
{
    m_bModified = bModified;
    emit dataModified(bModified);
}

// ---- following the tree --------------------------------------------------------------------------------------------

void QVertexItemModel::connectRoot()
{
    if (!m_poDataRoot)
        return;
    const MatrixDataNotifier* pqNotifier = m_poDataRoot->notifier();
    connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this, &QVertexItemModel::slotNodeAboutToBeRemoved);
    connect(pqNotifier, &MatrixDataNotifier::structureChanged, this, &QVertexItemModel::slotTreeChanged);
    connect(pqNotifier, &MatrixDataNotifier::undoApplied, this, &QVertexItemModel::slotTreeChanged);
    connect(pqNotifier, &MatrixDataNotifier::valuesChanged, this, &QVertexItemModel::slotValuesChanged);
    connect(pqNotifier, &MatrixDataNotifier::attributesChanged, this, &QVertexItemModel::slotAttributesChanged);
    connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
            &QVertexItemModel::slotRootAboutToBeDestroyed);
}

void QVertexItemModel::slotNodeAboutToBeRemoved(MatrixData* poBranch)
{
    if (MatrixDataNotifier::contains(poBranch, m_poDataRoot)) {
        slotRootAboutToBeDestroyed();
        return;
    }
    const auto isGoing = [poBranch](const MatrixData* poNode) {
        return MatrixDataNotifier::contains(poBranch, poNode);
    };
    if (std::none_of(m_vpColumns.begin(), m_vpColumns.end(), isGoing))
        return;
    // The row count follows with structureChanged(), when the node has left the tree.
    beginResetModel();
    std::erase_if(m_vpColumns, isGoing);
    endResetModel();
}

void QVertexItemModel::slotTreeChanged()
{
    if (!m_bResetFollows && (shownColumns() != m_vpColumns || wantedRowCount() != m_iRowCount))
        resetColumns();
}

void QVertexItemModel::slotValuesChanged(MatrixData* poNode)
{
    const auto it = std::find(m_vpColumns.begin(), m_vpColumns.end(), poNode);
    if (m_bResetFollows || it == m_vpColumns.end())
        return;
    if (wantedRowCount() != m_iRowCount)
        resetColumns();
    else if (poNode != m_poEdited)
        emitColumnChanged(static_cast<int>(it - m_vpColumns.begin()));
}

void QVertexItemModel::slotAttributesChanged(MatrixData* poNode)
{
    const auto it = std::find(m_vpColumns.begin(), m_vpColumns.end(), poNode);
    if (it == m_vpColumns.end())
        return;
    changeColumnHeaderName(poNode);
    emitColumnChanged(static_cast<int>(it - m_vpColumns.begin()));
}

void QVertexItemModel::slotRootAboutToBeDestroyed()
{
    beginResetModel();
    m_poDataRoot = nullptr;
    m_vpColumns.clear();
    m_oRowMap.m_viSheetRows.clear();
    m_iRowCount = wantedRowCount();
    endResetModel();
}

void QVertexItemModel::slotUpdate()
{
    if (m_vpColumns.empty())
        return;
    if (m_iRowCount > 0)
        emit dataChanged(index(0, 0), index(m_iRowCount - 1, columnCount() - 1));
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void QVertexItemModel::emitColumnChanged(int iColumn)
{
    if (m_iRowCount > 0)
        emit dataChanged(index(0, iColumn), index(m_iRowCount - 1, iColumn));
}

void QVertexItemModel::changeColumnHeaderName(MatrixData* poNode)
{
    const auto it = std::find(m_vpColumns.begin(), m_vpColumns.end(), poNode);
    if (!poNode || it == m_vpColumns.end())
        return;
    const int iColumn = static_cast<int>(it - m_vpColumns.begin());
    emit headerDataChanged(Qt::Horizontal, iColumn, iColumn);
}

// ---- reading -------------------------------------------------------------------------------------------------------

QVariant QVertexItemModel::data(const QModelIndex& index, int iRole) const
{
    const MatrixData* poNode = index.isValid() ? getNode(index.column()) : nullptr;
    if (!poNode || iRole > Qt::CheckStateRole)
        return QVariant();
    switch (iRole) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cellText(*poNode, row(index), iRole);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::BackgroundRole:
        return background(*poNode, index);
    case Qt::ForegroundRole: {
        // The background is light on every desktop, and so the text must be dark.
        static const QVariant qDarkText = QBrush(QColor(20, 20, 20));
        return qDarkText;
    }
    case Qt::CheckStateRole:
        if (poNode->type() != QMetaType::Bool || row(index) < rowOffSet())
            return QVariant();
        return int(poNode->value(row(index), 0).toBool() ? Qt::Checked : Qt::Unchecked);
    default:
        return QVariant();
    }
}

QVariant QVertexItemModel::cellText(const MatrixData& oNode, int iSheetRow, int iRole)
{
    if (oNode.type() == QMetaType::QColor || oNode.type() == QMetaType::Bool)
        return QVariant();
    const QVariant qValue = oNode.value(iSheetRow, 0);
    if (!qValue.isValid())
        return QVariant();
    const QString sText = iRole == Qt::DisplayRole ? CellText::shown(oNode, qValue) : CellText::edited(oNode, qValue);
    return sText.isEmpty() ? QVariant() : QVariant(sText);
}

QVariant QVertexItemModel::background(const MatrixData& oNode, const QModelIndex& index) const
{
    static const QVariant qGrey = QBrush(QColor(230, 230, 230));
    static const QVariant qWhite = QBrush(QColor(255, 255, 255));
    // By table row in thinned tables as well: the first rows are grey whatever record they show.
    if (index.row() < rowOffSet() || index.row() >= oNode.rowCount())
        return qGrey;
    if (oNode.type() != QMetaType::QColor)
        return qWhite;
    const auto oColor = oNode.value(row(index), 0).value<QColor>();
    return oColor.isValid() ? QVariant(QBrush(oColor)) : qWhite;
}

QVariant QVertexItemModel::headerData(int iSection, Qt::Orientation eOrientation, int iRole) const
{
    if (iRole != Qt::DisplayRole || iSection < 0)
        return QVariant();
    if (eOrientation == Qt::Vertical)
        return iSection < m_iRowCount ? QVariant(m_oRowMap.label(iSection)) : QVariant();
    const MatrixData* poNode = getNode(iSection);
    return poNode ? QVariant(QString::number(iSection + 1) + u':' + poNode->name()) : QVariant();
}

Qt::ItemFlags QVertexItemModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags eFlags = QAbstractItemModel::flags(index) | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    if (isWritable(index.row(), index.column()))
        eFlags |= getNode(index.column())->type() == QMetaType::Bool ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
    return eFlags;
}

bool QVertexItemModel::isWritable(int iTableRow, int iColumn) const
{
    const MatrixData* poNode = getNode(iColumn);
    return poNode && poNode->isEditable() && m_oRowMap.sheetRow(iTableRow) >= rowOffSet();
}

bool QVertexItemModel::isCellConditionSatisfied(const QModelIndex& index, const CellCondition& oCondition) const
{
    const MatrixData* poNode = index.isValid() ? getNode(index.column()) : nullptr;
    if (!poNode || row(index) < rowOffSet())
        return false;
    MatrixColumn oCell(poNode->type(), 1);
    oCell.setValue(0, poNode->value(row(index), 0));
    bool bFlag = false;
    oCondition.flagCells(oCell, poNode->unitManager().get(), std::span<bool>(&bFlag, 1));
    return bFlag;
}

CellRuns QVertexItemModel::cellsSatisfying(const CellCondition& oCondition, int iOnlyColumn) const
{
    CellRuns oCells(columnCount());
    for (int iColumn = 0; iColumn < columnCount(); ++iColumn) {
        if (iOnlyColumn >= 0 && iColumn != iOnlyColumn)
            continue;
        const MatrixData* poNode = getNode(iColumn);
        const auto iRecords = static_cast<std::size_t>(poNode->recordCount());
        const auto pbFlags = std::make_unique<bool[]>(iRecords);
        oCondition.flagCells(poNode->column(), poNode->unitManager().get(), std::span<bool>(pbFlags.get(), iRecords));
        oCells.setColumn(iColumn, m_oRowMap.tableRowsOfRecords(pbFlags.get(), static_cast<int>(iRecords), m_iRowCount));
    }
    return oCells;
}

void QVertexItemModel::getMinMaxRange(double& dMin, double& dMax) const
{
    dMin = std::numeric_limits<double>::infinity();
    dMax = -dMin;
    for (const MatrixData* poNode : m_vpColumns) {
        const auto poUnits = poNode->unitManager();
        for (int iRow = 0; iRow < m_iRowCount; ++iRow) {
            const double dValue = poNode->recordNumber(m_oRowMap.sheetRow(iRow) - rowOffSet());
            if (isMissing(dValue))
                continue;
            const double dDisplay = poUnits->convertModelToDisplay(dValue);
            dMin = std::min(dMin, dDisplay);
            dMax = std::max(dMax, dDisplay);
        }
    }
    if (dMin > dMax)
        dMin = dMax = g_dMissingValue;
}

void QVertexItemModel::getStackedMinMaxRange(double& dMin, double& dMax) const
{
    dMin = dMax = 0.0;
    bool bAny = false;
    for (int iRow = 0; iRow < m_iRowCount; ++iRow) {
        double dPositive = 0.0;
        double dNegative = 0.0;
        for (const MatrixData* poNode : m_vpColumns) {
            const double dValue = poNode->recordNumber(m_oRowMap.sheetRow(iRow) - rowOffSet());
            if (isMissing(dValue))
                continue;
            const double dDisplay = poNode->unitManager()->convertModelToDisplay(dValue);
            (dDisplay < 0.0 ? dNegative : dPositive) += dDisplay;
            bAny = true;
        }
        dMin = std::min(dMin, dNegative);
        dMax = std::max(dMax, dPositive);
    }
    if (!bAny)
        dMin = dMax = g_dMissingValue;
}

} // namespace gkBase
