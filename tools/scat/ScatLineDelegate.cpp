#include "ScatLineDelegate.h"

#include "CrossPlotPainting.h"
#include "PainterState.h"
#include "ReadableColor.h"
#include "ScatLineModel.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

namespace {

constexpr int g_iSampleWidth = 28;
constexpr int g_iSwatchWidth = 24;
constexpr int g_iMargin = 3;
constexpr int g_iNarrowestEditor = 96;

QStringList typeNames()
{
    QStringList lNames;
    for (const auto eType : {DepthLineField::CrestalPlane, DepthLineField::AxialPlane, DepthLineField::InflectionPlane,
                             DepthLineField::Horizon, DepthLineField::Fault})
        lNames << DepthLineField::type(eType);
    return lNames;
}

/// A piece of the line in the colour that it has on a track, on the ground of the list, also in a selected row.
void drawSample(QPainter& painter, const DepthLineField::Line& line, const QRect& oRect,
                const QStyleOptionViewItem& option)
{
    CrossPlotStyle style;
    style.m_oBackground = option.palette.color(QPalette::Base);
    style.m_oLabel = option.palette.color(QPalette::Text);
    CrossPlotDepthLine sample;
    sample.m_eType = line.m_eType;
    sample.m_oColor = readableColor(line.m_oColor, style.m_oBackground, style.m_oLabel);
    sample.m_iWidth = 2;
    sample.m_dY = std::floor(oRect.height() / 2.0);
    const PainterState state(&painter);
    painter.setClipRect(oRect, Qt::IntersectClip);
    if (option.state.testFlag(QStyle::State_Selected))
        painter.fillRect(oRect, style.m_oBackground);
    painter.translate(oRect.topLeft());
    drawCrossPlotDepthLines(painter, std::array{sample}, -2, QRect(QPoint(0, 0), oRect.size()), style);
}

/// Sample and text with the margins that styles put around them.
int columnWidth(const QFontMetrics& metrics, const QString& sText)
{
    return g_iSampleWidth + metrics.horizontalAdvance(sText) + 5 * g_iMargin;
}

void drawSwatch(QPainter& painter, const QColor& oColor, const QRect& oCell, const QColor& oFrame)
{
    QRect oSwatch(0, 0, std::min(g_iSwatchWidth, oCell.width() - 2 * g_iMargin), oCell.height() - 2 * g_iMargin - 1);
    oSwatch.moveCenter(oCell.center());
    const PainterState state(&painter);
    painter.setPen(oFrame);
    painter.setBrush(oColor);
    painter.drawRect(oSwatch);
}

} // namespace

ScatLineDelegate::ScatLineDelegate(QObject* pqParent)
    : QComboBoxItemDelegate(typeNames(), pqParent)
{
}

int ScatLineDelegate::letterColumnWidth(const QFontMetrics& metrics)
{
    return columnWidth(metrics, QStringLiteral("M"));
}

int ScatLineDelegate::colorColumnWidth()
{
    return g_iSwatchWidth + 2 * g_iMargin;
}

void ScatLineDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const
{
    QComboBoxItemDelegate::initStyleOption(pOption, index);
    pOption->textElideMode = Qt::ElideRight;
    if (index.column() != ScatLineModel::TypeColumn)
        return;
    if (pOption->rect.isValid() && pOption->rect.width() < columnWidth(pOption->fontMetrics, pOption->text))
        pOption->text = lineTypeLetter(DepthLineField::type(index.data(Qt::EditRole).toString()));
    // Keeps the place for the sample.
    pOption->features |= QStyleOptionViewItem::HasDecoration;
    pOption->decorationSize = QSize(g_iSampleWidth, pOption->fontMetrics.height());
    QPixmap oNothing(pOption->decorationSize);
    oNothing.fill(Qt::transparent);
    pOption->icon = QIcon(oNothing);
}

void ScatLineDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QComboBoxItemDelegate::paint(pPainter, option, index);
    const auto* pqModel = qobject_cast<const ScatLineModel*>(index.model());
    if (!pqModel)
        return;
    const DepthLineField::Line line = pqModel->line(index.row());
    const bool bSelected = option.state.testFlag(QStyle::State_Selected);
    if (index.column() == ScatLineModel::ColorColumn) {
        drawSwatch(*pPainter, line.m_oColor, option.rect,
                   option.palette.color(bSelected ? QPalette::HighlightedText : QPalette::Text));
    } else if (index.column() == ScatLineModel::TypeColumn) {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QStyle* pqStyle = cell.widget ? cell.widget->style() : QApplication::style();
        drawSample(*pPainter, line, pqStyle->subElementRect(QStyle::SE_ItemViewItemDecoration, &cell, cell.widget),
                   cell);
    }
}

QSize ScatLineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem unbounded = option;
    unbounded.rect = QRect();
    const QSize oSize = QComboBoxItemDelegate::sizeHint(unbounded, index);
    if (index.column() != ScatLineModel::TypeColumn)
        return oSize;
    return {std::max(oSize.width(), columnWidth(option.fontMetrics, index.data().toString())), oSize.height()};
}

QWidget* ScatLineDelegate::createEditor(QWidget* pqParent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    switch (index.column()) {
    case ScatLineModel::TypeColumn:
        return QComboBoxItemDelegate::createEditor(pqParent, option, index);
    case ScatLineModel::ColorColumn:
        return nullptr;
    default:
        return QStyledItemDelegate::createEditor(pqParent, option, index);
    }
}

void ScatLineDelegate::setEditorData(QWidget* pqEditor, const QModelIndex& index) const
{
    if (index.column() == ScatLineModel::TypeColumn)
        QComboBoxItemDelegate::setEditorData(pqEditor, index);
    else
        QStyledItemDelegate::setEditorData(pqEditor, index);
}

void ScatLineDelegate::setModelData(QWidget* pqEditor, QAbstractItemModel* pqModel, const QModelIndex& index) const
{
    if (index.column() == ScatLineModel::TypeColumn)
        QComboBoxItemDelegate::setModelData(pqEditor, pqModel, index);
    else
        QStyledItemDelegate::setModelData(pqEditor, pqModel, index);
}

void ScatLineDelegate::updateEditorGeometry(QWidget* pqEditor, const QStyleOptionViewItem& option,
                                            const QModelIndex& index) const
{
    // Narrow columns show less than what is edited; numbers keep their right edge.
    QRect oRect = option.rect;
    const bool bType = index.column() == ScatLineModel::TypeColumn;
    const int iWidth = std::max(oRect.width(), bType ? pqEditor->sizeHint().width() : g_iNarrowestEditor);
    if (index.column() == ScatLineModel::DepthColumn || index.column() == ScatLineModel::OrientationColumn)
        oRect.setLeft(oRect.right() + 1 - iWidth);
    else
        oRect.setWidth(iWidth);
    pqEditor->setGeometry(oRect);
}

} // namespace gkBase
