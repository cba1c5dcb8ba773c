#include "QLegendListView.h"

#include "QChartDrawingArea.h"
#include "QLegendItemDelegate.h"
#include "QLegendListModel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QIcon>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace gkBase {

namespace {

constexpr int g_iMaximumRowsPerColumn = 500;
constexpr int g_iMaximumPictureRows = 5000;
constexpr int g_iMaximumNameWidth = 600;
constexpr int g_iPictureMargin = 4;
constexpr int g_iPictureGap = 6;

QString menuText(const char* szText)
{
    return QCoreApplication::translate("QLegendListModel", szText);
}

QString leftOutText(int iClasses)
{
    return QLegendListView::tr("… and %1 more").arg(iClasses);
}

} // namespace

QLegendListView::QLegendListView(QWidget* pqParent)
    : QListView(pqParent)
    , m_pqDelegate(new QLegendItemDelegate(this))
    , m_fnChooseColor(
          [](const QColor& oInitial, QWidget* pqOwner) { return QColorDialog::getColor(oInitial, pqOwner); })
{
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(ExtendedSelection);
    setItemDelegate(m_pqDelegate);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    setEditTriggers(NoEditTriggers);
    setAccessibleName(tr("Legend"));
    createDefaultPopupMenu();
}

QLegendListModel* QLegendListView::legendModel() const
{
    return qobject_cast<QLegendListModel*>(model());
}

// ---- menu -----------------------------------------------------------------------------------------------------------

void QLegendListView::createDefaultPopupMenu()
{
    m_pqMenu = new QMenu(menuText("Default Menu"), this);
    m_pqColorAction = m_pqMenu->addAction(QIcon(QStringLiteral(":/orrel/Resources/color_swatch.png")),
                                          menuText("Edit Legend Color..."), this, &QLegendListView::changeColor);
    m_pqColorAction->setShortcut(QKeySequence(menuText("Ctrl+E")));
    m_pqCopyAction = m_pqMenu->addAction(QIcon(QStringLiteral(":/orrel/Resources/page_copy.png")),
                                         menuText("Copy Legend"), this, &QLegendListView::copyToClipboard);
    m_pqCopyAction->setShortcut(QKeySequence(menuText("Ctrl+C")));
    for (QAction* pqAction : {m_pqColorAction, m_pqCopyAction}) {
        // Charts and tables have the same keys.
        pqAction->setShortcutContext(Qt::WidgetShortcut);
        addAction(pqAction);
    }
}

void QLegendListView::enableActions()
{
    const QLegendListModel* pModel = legendModel();
    m_pqColorAction->setEnabled(pModel && pModel->cellType() != QMetaType::QColor);
    m_pqCopyAction->setEnabled(pModel && pModel->rowCount() > 0);
}

void QLegendListView::showPopupMenu(const QPoint& oGlobalPos)
{
    enableActions();
    m_pqMenu->popup(oGlobalPos);
}

void QLegendListView::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::RightButton)
        showPopupMenu(pEvent->globalPosition().toPoint());
    QListView::mouseReleaseEvent(pEvent);
}

void QLegendListView::contextMenuEvent(QContextMenuEvent* pEvent)
{
    // The mouse opens the menu when it is released.
    if (pEvent->reason() == QContextMenuEvent::Keyboard)
        showPopupMenu(pEvent->globalPos());
}

void QLegendListView::changeColor()
{
    QLegendListModel* pModel = legendModel();
    if (!pModel || pModel->cellType() == QMetaType::QColor || !selectionModel()->hasSelection())
        return;
    const QColor oColor = m_fnChooseColor(Qt::white, this);
    if (!oColor.isValid() || legendModel() != pModel) // the dialog lets events through
        return;
    for (const QModelIndex& index : selectedIndexes())
        pModel->changeSymbolColor(index, oColor);
    viewport()->update();
    if (pModel->chart())
        pModel->chart()->updateChart();
}

void QLegendListView::copyToClipboard()
{
    const QPixmap oPicture = wholeLegend();
    if (oPicture.isNull())
        return;
    QApplication::clipboard()->clear();
    QApplication::clipboard()->setPixmap(oPicture);
}

// ---- selection ------------------------------------------------------------------------------------------------------

std::vector<int> QLegendListView::getSelectedIDs() const
{
    std::vector<int> viClassIds;
    for (const QModelIndex& index : selectedIndexes())
        if (index.column() == 0)
            viClassIds.push_back(QLegendListModel::classId(index));
    return viClassIds;
}

void QLegendListView::setSelectedIDs(const std::vector<int>& viClassIds)
{
    const QLegendListModel* pModel = legendModel();
    if (!pModel)
        return;
    std::vector<int> viRows;
    for (const int iClassId : viClassIds)
        if (iClassId >= 1 && iClassId <= pModel->rowCount())
            viRows.push_back(iClassId - 1);
    std::sort(viRows.begin(), viRows.end());
    QItemSelection oSelection;
    for (std::size_t i = 0; i < viRows.size();) {
        std::size_t iEnd = i + 1;
        while (iEnd < viRows.size() && viRows[iEnd] <= viRows[iEnd - 1] + 1)
            ++iEnd;
        oSelection.append(QItemSelectionRange(pModel->index(viRows[i], 0), pModel->index(viRows[iEnd - 1], 0)));
        i = iEnd;
    }
    const QScopedValueRollback<bool> oSetting(m_bSettingSelection, true);
    selectionModel()->select(oSelection, QItemSelectionModel::ClearAndSelect);
}

void QLegendListView::selectionChanged(const QItemSelection& oSelected, const QItemSelection& oDeselected)
{
    QListView::selectionChanged(oSelected, oDeselected);
    if (!m_bSettingSelection)
        emit selectedClassesChanged(getSelectedIDs());
}

// ---- scrolling ------------------------------------------------------------------------------------------------------

void QLegendListView::slotLegendsVerticalScrollBarChanged(QLegendListModel* pModel, int iValue)
{
    if (!pModel)
        return;
    QScrollBar* pqBar = verticalScrollBar();
    const int iMinimum = pqBar->minimum();
    const int iOtherRange = pModel->rowCount() - pqBar->pageStep();
    const double dFraction = iOtherRange > 0 ? double(iValue - iMinimum) / iOtherRange : 0.0;
    const double dPosition = iMinimum + dFraction * (pqBar->maximum() - iMinimum);
    // 0.001: a position that a division left just below a row must not become the row before.
    pqBar->setValue(static_cast<int>(std::clamp<double>(dPosition, iMinimum, pqBar->maximum()) + 0.001));
    viewport()->update();
}

// ---- the whole legend -----------------------------------------------------------------------------------------------

QLegendListView::PictureLayout QLegendListView::pictureLayout() const
{
    PictureLayout oLayout;
    const QLegendListModel* pModel = legendModel();
    const int iClasses = pModel ? pModel->rowCount() : 0;
    if (iClasses == 0)
        return oLayout;
    oLayout.m_iRows = std::min(iClasses, g_iMaximumPictureRows);
    oLayout.m_iLeftOut = iClasses - oLayout.m_iRows;
    int iNameWidth = oLayout.m_iLeftOut > 0 ? fontMetrics().horizontalAdvance(leftOutText(oLayout.m_iLeftOut)) + 1 : 0;
    for (int iRow = 0; iRow < oLayout.m_iRows; ++iRow)
        iNameWidth =
            std::max(iNameWidth, fontMetrics().horizontalAdvance(QLegendItemDelegate::name(*pModel, iRow)) + 1);
    iNameWidth = std::min(iNameWidth, g_iMaximumNameWidth);

    const int iLines = oLayout.m_iRows + (oLayout.m_iLeftOut > 0 ? 1 : 0);
    const int iColumns = (iLines + g_iMaximumRowsPerColumn - 1) / g_iMaximumRowsPerColumn;
    oLayout.m_iRowsPerColumn = (iLines + iColumns - 1) / iColumns;
    oLayout.m_oCell = QSize(QLegendItemDelegate::s_iIconSide + g_iPictureGap + iNameWidth,
                            std::max(QLegendItemDelegate::s_iIconSide, fontMetrics().height()) + g_iPictureMargin);
    oLayout.m_oSize = QSize(iColumns * (oLayout.m_oCell.width() + 2 * g_iPictureGap),
                            oLayout.m_iRowsPerColumn * oLayout.m_oCell.height() + 2 * g_iPictureMargin);
    return oLayout;
}

QSize QLegendListView::wholeLegendSize() const
{
    return pictureLayout().m_oSize;
}

void QLegendListView::paintLegend(QPainter& painter, const QPointF& oTopLeft, const QColor& oTextColor) const
{
    const PictureLayout oLayout = pictureLayout();
    const QLegendListModel* pModel = legendModel();
    const QSize& oCell = oLayout.m_oCell;
    constexpr int iIconSide = QLegendItemDelegate::s_iIconSide;
    painter.save();
    // In pixels: a size in points would be another one on a device of another resolution.
    QFont oFont = font();
    oFont.setPixelSize(fontInfo().pixelSize());
    painter.setFont(oFont);
    painter.setPen(oTextColor.isValid() ? oTextColor : palette().color(QPalette::Text));
    painter.translate(oTopLeft + QPointF(g_iPictureGap, g_iPictureMargin));
    const auto paintLine = [&](int iLine, const QString& sText) {
        const int iColumn = iLine / oLayout.m_iRowsPerColumn;
        const QRect oLine(
            QPoint(iColumn * (oCell.width() + 2 * g_iPictureGap), (iLine % oLayout.m_iRowsPerColumn) * oCell.height()),
            oCell);
        const QRect oName = oLine.adjusted(iIconSide + g_iPictureGap, 0, 0, 0);
        painter.drawText(oName, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(sText, Qt::ElideRight, oName.width()));
        const int iAbove = (oCell.height() - iIconSide) / 2;
        return QRectF(oLine.left(), oLine.top() + iAbove, iIconSide, iIconSide);
    };
    for (int iRow = 0; iRow < oLayout.m_iRows; ++iRow) {
        const QRectF oPlace = paintLine(iRow, QLegendItemDelegate::name(*pModel, iRow));
        QLegendItemDelegate::paintPicture(&painter, oPlace, *pModel, iRow);
    }
    if (oLayout.m_iLeftOut > 0)
        paintLine(oLayout.m_iRows, leftOutText(oLayout.m_iLeftOut));
    painter.restore();
}

QPixmap QLegendListView::wholeLegend() const
{
    const QSize oSize = wholeLegendSize();
    if (oSize.isEmpty())
        return QPixmap();
    const qreal dRatio = devicePixelRatioF();
    QPixmap oPicture(oSize * dRatio);
    oPicture.setDevicePixelRatio(dRatio);
    oPicture.fill(palette().color(QPalette::Base));
    QPainter painter(&oPicture);
    paintLegend(painter, QPointF(0, 0));
    return oPicture;
}

} // namespace gkBase
