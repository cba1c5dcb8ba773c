#include "QModifyCellsDialog.h"

#include "CellText.h"
#include "MatrixData.h"
#include "QValueChangeOnOffWidget.h"
#include "UnitManager.h"
#include "ValueChangeWidget.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace gkBase {

namespace {

constexpr int g_iMaximumNameWidth = 200;
constexpr int g_iMaximumRowsHeight = 320;
constexpr int g_iMaximumExampleLength = 40;

/// A cell as the preview tells it; bExact with every digit.
QString cellText(const MatrixData& oAttribute, const QVariant& qValue, bool bExact)
{
    if (!qValue.isValid())
        return QModifyCellsDialog::tr("empty");
    const bool bShown = !bExact && oAttribute.type() != QMetaType::Bool && oAttribute.type() != QMetaType::QColor;
    QString sText = bShown ? CellText::shown(oAttribute, qValue) : CellText::exact(oAttribute, qValue);
    if (sText.size() > g_iMaximumExampleLength)
        sText = sText.left(g_iMaximumExampleLength - 1) + u'…';
    const QString sUnit =
        qValue.typeId() == QMetaType::Double ? oAttribute.unitManager()->getDisplayUnitTag() : QString();
    return sUnit.isEmpty() ? sText : sText + u' ' + sUnit;
}

} // namespace

QModifyCellsDialog::QModifyCellsDialog(QWidget* pqParent)
    : QDialog(pqParent)
    , m_pqScrollArea(new QScrollArea(this))
    , m_pqStateLabel(new QLabel(this))
    , m_pqAcceptButton(new QPushButton(tr("&Modify"), this))
    , m_pqCloseButton(new QPushButton(tr("Close"), this))
    , m_pqPreviewTimer(new QTimer(this))
{
    setWindowTitle(tr("Modify Cell(s)"));
    setModal(false);
    createLayout();
    m_pqPreviewTimer->setSingleShot(true);
    m_pqPreviewTimer->setInterval(0);
    connect(m_pqPreviewTimer, &QTimer::timeout, this, &QModifyCellsDialog::updatePreview);
    connect(m_pqAcceptButton, &QPushButton::clicked, this, &QModifyCellsDialog::modify);
    connect(m_pqCloseButton, &QPushButton::clicked, this, &QModifyCellsDialog::reject);
    showState();
}

QModifyCellsDialog::~QModifyCellsDialog() = default;

void QModifyCellsDialog::createLayout()
{
    auto* pqRows = new QWidget(m_pqScrollArea);
    m_pqRowsLayout = new QVBoxLayout(pqRows);
    m_pqRowsLayout->setContentsMargins(0, 0, m_pqRowsLayout->spacing(), 0);
    m_pqScrollArea->setWidget(pqRows);
    m_pqScrollArea->setWidgetResizable(true);
    m_pqScrollArea->setFrameShape(QFrame::NoFrame);
    m_pqScrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pqStateLabel->setTextFormat(Qt::PlainText);
    m_pqStateLabel->setWordWrap(true);
    m_pqAcceptButton->setDefault(true);
    m_pqCloseButton->setAutoDefault(false);

    auto* pqButtonBox = new QDialogButtonBox(this);
    pqButtonBox->addButton(m_pqAcceptButton, QDialogButtonBox::ActionRole);
    pqButtonBox->addButton(m_pqCloseButton, QDialogButtonBox::RejectRole);
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(m_pqScrollArea, 1);
    pqLayout->addWidget(m_pqStateLabel);
    pqLayout->addWidget(pqButtonBox);
}

// ---- cells ----------------------------------------------------------------------------------------------------------

void QModifyCellsDialog::setCells(QVertexItemModel* pqModel, const CellRuns& oCells, int iCurrentColumn)
{
    connectModel(pqModel);
    m_oCells = pqModel ? oCells.fromRow(pqModel->rowMap().firstDataRow(pqModel->rowCount())) : CellRuns();
    m_bModified = false;
    updateRows();
    const auto isOn = [](const Row& oRow) { return oRow.m_pqWidget->isOn(); };
    if (!m_vRows.empty() && std::none_of(m_vRows.begin(), m_vRows.end(), isOn)) {
        QValueChangeOnOffWidget* pqCurrent = valueChange(iCurrentColumn);
        (pqCurrent ? pqCurrent : m_vRows.front().m_pqWidget)->setOn(true);
    }
    schedulePreview(true);
}

void QModifyCellsDialog::connectModel(QVertexItemModel* pqModel)
{
    if (pqModel == m_pqModel)
        return;
    if (m_pqModel)
        m_pqModel->disconnect(this);
    m_pqModel = pqModel;
    if (!pqModel)
        return;
    connect(pqModel, &QAbstractItemModel::modelAboutToBeReset, this, &QModifyCellsDialog::slotModelAboutToBeReset);
    connect(pqModel, &QAbstractItemModel::dataChanged, this, [this] { schedulePreview(true); });
    connect(pqModel, &QAbstractItemModel::headerDataChanged, this, &QModifyCellsDialog::fillRows);
    connect(pqModel, &QObject::destroyed, this, &QModifyCellsDialog::slotModelAboutToBeReset);
}

void QModifyCellsDialog::slotModelAboutToBeReset()
{
    // The rows wait with their input for the cells that the owner hands over next.
    m_oCells = CellRuns();
    schedulePreview(true);
}

std::vector<int> QModifyCellsDialog::columnsWithCells() const
{
    std::vector<int> viColumns;
    for (int iColumn = 0; m_pqModel && iColumn < m_pqModel->columnCount(); ++iColumn)
        if (!m_oCells.column(iColumn).empty())
            viColumns.push_back(iColumn);
    return viColumns;
}

// ---- rows -----------------------------------------------------------------------------------------------------------

void QModifyCellsDialog::updateRows()
{
    const std::vector<int> viColumns = columnsWithCells();
    const auto showsColumn = [this](const Row& oRow, int iColumn) {
        return oRow.m_iColumn == iColumn && oRow.m_iNodeId == m_pqModel->getNode(iColumn)->globalID();
    };
    if (std::equal(m_vRows.begin(), m_vRows.end(), viColumns.begin(), viColumns.end(), showsColumn))
        return;
    std::vector<Row> vOld = std::move(m_vRows);
    m_vRows.clear();
    for (const int iColumn : viColumns)
        m_vRows.push_back(takeRow(vOld, iColumn));
    for (const Row& oRow : vOld)
        delete oRow.m_pqWidget;
    fillRows();
    placeRows();
}

QModifyCellsDialog::Row QModifyCellsDialog::takeRow(std::vector<Row>& vRows, int iColumn)
{
    const int iNodeId = m_pqModel->getNode(iColumn)->globalID();
    const auto itRow =
        std::find_if(vRows.begin(), vRows.end(), [iNodeId](const Row& oRow) { return oRow.m_iNodeId == iNodeId; });
    if (itRow != vRows.end()) {
        Row oRow = *itRow;
        vRows.erase(itRow);
        oRow.m_iColumn = iColumn;
        return oRow;
    }
    Row oRow;
    oRow.m_iColumn = iColumn;
    oRow.m_iNodeId = iNodeId;
    auto* pqWidget = new QValueChangeOnOffWidget(m_pqScrollArea->widget());
    oRow.m_pqWidget = pqWidget;
    const MatrixData* poNode = m_pqModel->getNode(iColumn);
    pqWidget->setAttribute(poNode->name(), poNode->type(), poNode->unitManager(), poNode->isEditable());
    pqWidget->valueChange()->setMethod(m_oLastChange.method());
    if (m_oLastChange.error(poNode->type()).isEmpty())
        pqWidget->valueChange()->setValue(m_oLastChange.operand().toString());
    connect(pqWidget, &QValueChangeOnOffWidget::changed, this, [this, pqWidget] { slotInput(pqWidget); });
    return oRow;
}

void QModifyCellsDialog::fillRows()
{
    int iNameWidth = 0;
    for (const Row& oRow : m_vRows) {
        if (const MatrixData* poNode = m_pqModel ? m_pqModel->getNode(oRow.m_iColumn) : nullptr)
            oRow.m_pqWidget->setAttribute(poNode->name(), poNode->type(), poNode->unitManager(), poNode->isEditable());
        iNameWidth = std::max(iNameWidth, oRow.m_pqWidget->nameWidth());
    }
    for (const Row& oRow : m_vRows)
        oRow.m_pqWidget->setNameWidth(std::min(iNameWidth, g_iMaximumNameWidth));
}

void QModifyCellsDialog::placeRows()
{
    while (QLayoutItem* pItem = m_pqRowsLayout->takeAt(0))
        delete pItem;
    for (const Row& oRow : m_vRows) {
        m_pqRowsLayout->addWidget(oRow.m_pqWidget);
        oRow.m_pqWidget->show();
    }
    m_pqRowsLayout->addStretch();
    chainFocus();
    fitRows();
}

// Rows are made after the buttons, and come before them all the same.
void QModifyCellsDialog::chainFocus()
{
    QWidget* pqLast = m_pqScrollArea;
    const auto append = [&pqLast](QWidget* pqWidget) {
        setTabOrder(pqLast, pqWidget);
        pqLast = pqWidget;
    };
    for (const Row& oRow : m_vRows)
        for (QWidget* pqWidget : oRow.m_pqWidget->findChildren<QWidget*>())
            if (pqWidget->window() == this && (pqWidget->focusPolicy() & Qt::TabFocus))
                append(pqWidget);
    append(m_pqAcceptButton);
    append(m_pqCloseButton);
}

void QModifyCellsDialog::fitRows()
{
    m_pqRowsLayout->activate();
    const QSize oHint = m_pqScrollArea->widget()->sizeHint();
    const int iBar = m_pqScrollArea->verticalScrollBar()->sizeHint().width();
    m_pqScrollArea->setMinimumSize(oHint.width() + iBar, std::min(oHint.height(), g_iMaximumRowsHeight));
}

QValueChangeOnOffWidget* QModifyCellsDialog::valueChange(int iColumn) const
{
    for (const Row& oRow : m_vRows)
        if (oRow.m_iColumn == iColumn)
            return oRow.m_pqWidget;
    return nullptr;
}

QVertexItemModel::ColumnChanges QModifyCellsDialog::changes() const
{
    QVertexItemModel::ColumnChanges oChanges;
    for (const Row& oRow : m_vRows)
        if (oRow.m_pqWidget->isOn())
            oChanges.emplace(oRow.m_iColumn, oRow.m_pqWidget->change());
    return oChanges;
}

void QModifyCellsDialog::slotInput(QValueChangeOnOffWidget* pqWidget)
{
    m_bModified = false;
    if (pqWidget->isOn())
        m_oLastChange = pqWidget->change();
    schedulePreview(false);
}

// ---- preview --------------------------------------------------------------------------------------------------------

void QModifyCellsDialog::schedulePreview(bool bAllRows)
{
    for (Row& oRow : m_vRows)
        if (bAllRows)
            oRow.m_bPreviewed = false;
    showState();
    m_pqPreviewTimer->start();
}

void QModifyCellsDialog::showEvent(QShowEvent* pEvent)
{
    QDialog::showEvent(pEvent);
    const auto isOn = [](const Row& oRow) { return oRow.m_pqWidget->isOn(); };
    if (const auto itOn = std::find_if(m_vRows.begin(), m_vRows.end(), isOn); itOn != m_vRows.end())
        itOn->m_pqWidget->valueChange()->setFocus();
    schedulePreview(false);
}

void QModifyCellsDialog::updatePreview()
{
    // Reading a million cells for a dialog that nobody sees would slow down every selection.
    if (!isVisible())
        return;
    if (m_oCells.isEmpty() && !m_vRows.empty())
        updateRows();
    for (Row& oRow : m_vRows)
        previewRow(oRow);
    fitRows();
    showState();
}

void QModifyCellsDialog::previewRow(Row& oRow)
{
    const QValueChangeOnOffWidget& oWidget = *oRow.m_pqWidget;
    if (!oWidget.isOn() || !oWidget.isValid()) {
        oRow.m_bPreviewed = false;
        oRow.m_iChangedCells = 0;
        return;
    }
    const CellChange oChange = oWidget.change();
    if (oRow.m_bPreviewed && oRow.m_oPreviewed == oChange)
        return;
    const ChangedCells oChanged = m_pqModel->changedCells(m_oCells, oRow.m_iColumn, oChange);
    oRow.m_bPreviewed = true;
    oRow.m_oPreviewed = oChange;
    oRow.m_iChangedCells = static_cast<int>(oChanged.m_viRecords.size());
    oRow.m_pqWidget->setPreview(rowPreview(oRow, oChanged));
}

QString QModifyCellsDialog::rowPreview(const Row& oRow, const ChangedCells& oChanged) const
{
    const int iSelected = countOfRuns(m_oCells.column(oRow.m_iColumn));
    if (oRow.m_iChangedCells == 0)
        return iSelected == 1 ? tr("The cell stays as it is.") : tr("All %1 cells stay as they are.").arg(iSelected);
    QString sExample = exampleText(oRow.m_iColumn, oChanged);
    if (iSelected == 1)
        return sExample;
    return tr("%1 of %2 cells change, %3")
        .arg(QString::number(oRow.m_iChangedCells), QString::number(iSelected), sExample);
}

QString QModifyCellsDialog::exampleText(int iColumn, const ChangedCells& oChanged) const
{
    const MatrixData& oAttribute = *m_pqModel->getNode(iColumn);
    const int iRecord = oChanged.m_viRecords.front();
    const QVariant qOld = oAttribute.value(iRecord + oAttribute.rowOffSet(), 0);
    const QVariant qNew = oChanged.value(0);
    QString sOld = cellText(oAttribute, qOld, false);
    QString sNew = cellText(oAttribute, qNew, false);
    if (sOld == sNew) { // a change below the shown decimals
        sOld = cellText(oAttribute, qOld, true);
        sNew = cellText(oAttribute, qNew, true);
    }
    return tr("row %1: %2 → %3").arg(QString::number(iRecord + 1), sOld, sNew);
}

void QModifyCellsDialog::showState()
{
    const auto isOn = [](const Row& oRow) { return oRow.m_pqWidget->isOn(); };
    const bool bOn = std::any_of(m_vRows.begin(), m_vRows.end(), isOn);
    const bool bValid =
        std::all_of(m_vRows.begin(), m_vRows.end(), [](const Row& oRow) { return oRow.m_pqWidget->isValid(); });
    m_pqAcceptButton->setEnabled(bOn && bValid && !m_oCells.isEmpty());

    int iChanged = 0;
    for (const Row& oRow : m_vRows)
        iChanged += oRow.m_iChangedCells;
    if (m_oCells.isEmpty())
        m_pqStateLabel->setText(tr("Select cells in the table."));
    else if (!bOn)
        m_pqStateLabel->setText(tr("Switch on the attributes to change."));
    else if (m_bModified)
        m_pqStateLabel->setText(m_iModifiedCells == 1 ? tr("1 cell was changed.")
                                                      : tr("%1 cells were changed.").arg(m_iModifiedCells));
    else if (iChanged == 1)
        m_pqStateLabel->setText(tr("1 cell will change."));
    else
        m_pqStateLabel->setText(bValid ? tr("%1 cells will change.").arg(iChanged) : QString());
}

void QModifyCellsDialog::modify()
{
    if (!m_pqModel || !m_pqAcceptButton->isEnabled())
        return;
    updatePreview();
    m_iModifiedCells = 0;
    for (const Row& oRow : m_vRows)
        m_iModifiedCells += oRow.m_iChangedCells;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool bDone = m_pqModel->modifySelectedCells(m_oCells, changes());
    QApplication::restoreOverrideCursor();
    m_bModified = bDone;
    showState();
    if (bDone)
        emit cellsModified();
}

} // namespace gkBase
