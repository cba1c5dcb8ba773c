#include "StereoStatisticsPage.h"

#include "OrientationStatisticsRows.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

namespace gkBase {

namespace {

enum Column
{
    LabelColumn,
    ValueColumn,
    Columns
};

/// What a row of the table is, kept with its first cell.
constexpr int g_iKindRole = Qt::UserRole;
enum Kind
{
    StatisticRow,
    HeadingRow ///< one text over both columns
};

QTableWidgetItem* newItem(const QString& sText, const QString& sToolTip, Kind eKind)
{
    auto* pqItem = new QTableWidgetItem(sText);
    // Tool tips are plain texts: what looks like HTML in them is not.
    pqItem->setToolTip(sToolTip.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")));
    pqItem->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    pqItem->setData(g_iKindRole, eKind);
    return pqItem;
}

} // namespace

StereoStatisticsPage::StereoStatisticsPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqTitleLabel(new QLabel)
    , m_pqReasonLabel(new QLabel)
    , m_pqTable(new QTableWidget)
    , m_pqCopyBtn(new QPushButton(tr("Copy")))
{
    createControls();
    showNothing(tr("No orientations are shown."));
}

void StereoStatisticsPage::createControls()
{
    m_pqTitleLabel->setObjectName(QStringLiteral("m_pqStatisticsTitleLabel"));
    m_pqReasonLabel->setObjectName(QStringLiteral("m_pqStatisticsReasonLabel"));
    for (QLabel* pqLabel : {m_pqTitleLabel, m_pqReasonLabel}) {
        pqLabel->setTextFormat(Qt::PlainText);
        pqLabel->setWordWrap(true);
        pqLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
    m_pqReasonLabel->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_pqTable->setObjectName(QStringLiteral("m_pqStatisticsTable"));
    m_pqTable->setAccessibleName(tr("Statistics of Orientations"));
    m_pqTable->setColumnCount(Columns);
    m_pqTable->setHorizontalHeaderLabels({tr("Statistic"), tr("Value")});
    m_pqTable->horizontalHeader()->hide();
    m_pqTable->verticalHeader()->hide();
    m_pqTable->verticalHeader()->setMinimumSectionSize(1);
    m_pqTable->horizontalHeader()->setSectionResizeMode(LabelColumn, QHeaderView::Fixed);
    m_pqTable->horizontalHeader()->setSectionResizeMode(ValueColumn, QHeaderView::Stretch);
    m_pqTable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pqTable->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_pqTable->setShowGrid(false);
    m_pqTable->setWordWrap(true);
    m_pqTable->setTextElideMode(Qt::ElideNone);
    m_pqTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pqTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pqTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pqTable->setTabKeyNavigation(false);
    m_pqTable->installEventFilter(this);
    auto* pqCopyAction = new QAction(tr("Copy"), m_pqTable);
    connect(pqCopyAction, &QAction::triggered, this, &StereoStatisticsPage::copyToClipboard);
    m_pqTable->addAction(pqCopyAction);
    m_pqTable->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_pqCopyBtn->setObjectName(QStringLiteral("m_pqCopyStatisticsBtn"));
    m_pqCopyBtn->setAccessibleName(tr("Copy Statistics"));
    m_pqCopyBtn->setToolTip(tr("Copy the selected rows, or all of them without a selection, separated by tabs"));
    connect(m_pqCopyBtn, &QPushButton::clicked, this, &StereoStatisticsPage::copyToClipboard);

    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(m_pqTitleLabel);
    pqLayout->addWidget(m_pqReasonLabel, 1);
    pqLayout->addWidget(m_pqTable, 1);
    pqLayout->addWidget(m_pqCopyBtn, 0, Qt::AlignLeft);
}

// ---- contents ------------------------------------------------------------------------------------------------------

void StereoStatisticsPage::showNothing(const QString& sReason)
{
    m_pqTable->setRowCount(0);
    m_pqTable->hide();
    m_pqTitleLabel->hide();
    m_pqReasonLabel->setText(sReason);
    m_pqReasonLabel->show();
    m_pqCopyBtn->setEnabled(false);
}

void StereoStatisticsPage::showStatistics(const QString& sTitle, std::span<const OrientationStatistics> vStatistics,
                                          bool bWeighted, OrientationConvention eConvention)
{
    if (vStatistics.empty()) {
        showNothing(tr("No orientations are shown."));
        return;
    }
    // Who watches a statistic while the selection changes keeps it in sight.
    const int iScrolled = m_pqTable->verticalScrollBar()->value();
    m_pqTable->setRowCount(0);
    m_pqTable->clearSpans();
    const bool bOfPlanes = vStatistics.front().m_eType == OrientationType::Planes;
    for (const OrientationStatistics& oStatistics : vStatistics) {
        addHeading(orientationStatisticsTitle(oStatistics, bOfPlanes), true);
        QString sGroup;
        for (const OrientationStatisticsRow& row : orientationStatisticsRows(oStatistics, bWeighted, eConvention)) {
            if (row.m_sGroup != sGroup)
                addHeading(row.m_sGroup, false);
            sGroup = row.m_sGroup;
            addRow(row);
        }
    }
    m_pqTitleLabel->setText(sTitle);
    m_pqTitleLabel->setVisible(!sTitle.isEmpty());
    m_pqReasonLabel->hide();
    m_pqTable->show();
    m_pqCopyBtn->setEnabled(true);
    fitRows();
    m_pqTable->verticalScrollBar()->setValue(iScrolled);
}

void StereoStatisticsPage::addHeading(const QString& sText, bool bTitle)
{
    const int iRow = m_pqTable->rowCount();
    m_pqTable->insertRow(iRow);
    QTableWidgetItem* pqItem = newItem(sText, {}, HeadingRow);
    QFont oFont = m_pqTable->font();
    oFont.setBold(true);
    pqItem->setFont(oFont);
    if (bTitle)
        pqItem->setBackground(palette().brush(QPalette::Button));
    m_pqTable->setItem(iRow, LabelColumn, pqItem);
    m_pqTable->setSpan(iRow, LabelColumn, 1, Columns);
}

void StereoStatisticsPage::addRow(const OrientationStatisticsRow& row)
{
    const int iRow = m_pqTable->rowCount();
    m_pqTable->insertRow(iRow);
    if (row.m_bWarning) {
        QTableWidgetItem* pqItem = newItem(row.m_sValue, row.m_sToolTip, HeadingRow);
        pqItem->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
        m_pqTable->setItem(iRow, LabelColumn, pqItem);
        m_pqTable->setSpan(iRow, LabelColumn, 1, Columns);
        return;
    }
    QTableWidgetItem* pqLabel = newItem(row.m_sLabel, row.m_sToolTip, StatisticRow);
    pqLabel->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_pqTable->setItem(iRow, LabelColumn, pqLabel);
    QTableWidgetItem* pqValue = newItem(row.m_sValue, row.m_sToolTip, StatisticRow);
    pqValue->setTextAlignment(Qt::AlignRight | Qt::AlignTop);
    m_pqTable->setItem(iRow, ValueColumn, pqValue);
}

// ---- layout --------------------------------------------------------------------------------------------------------

/// Labels take at most half of the width; the heights follow the wrapped texts.
void StereoStatisticsPage::fitRows()
{
    int iLabels = 0;
    for (int iRow = 0; iRow < m_pqTable->rowCount(); ++iRow) {
        const QTableWidgetItem* pqItem = m_pqTable->item(iRow, LabelColumn);
        if (pqItem && pqItem->data(g_iKindRole).toInt() == StatisticRow)
            iLabels = qMax(iLabels, m_pqTable->fontMetrics().horizontalAdvance(pqItem->text()));
    }
    const int iMargin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_pqTable) + 1);
    m_pqTable->setColumnWidth(LabelColumn, qMin(iLabels + 2 * iMargin, m_pqTable->viewport()->width() / 2));
    m_pqTable->resizeRowsToContents();
}

void StereoStatisticsPage::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    fitRows();
}

// ---- copies --------------------------------------------------------------------------------------------------------

QString StereoStatisticsPage::text(bool bSelectedOnly) const
{
    QString sText;
    for (int iRow = 0; iRow < m_pqTable->rowCount(); ++iRow) {
        const QTableWidgetItem* pqLabel = m_pqTable->item(iRow, LabelColumn);
        if (bSelectedOnly && !pqLabel->isSelected())
            continue;
        sText += pqLabel->text();
        if (const QTableWidgetItem* pqValue = m_pqTable->item(iRow, ValueColumn))
            sText += QLatin1Char('\t') + pqValue->text().replace(QLatin1Char('\n'), QLatin1Char(' '));
        sText += QLatin1Char('\n');
    }
    return sText;
}

QString StereoStatisticsPage::text() const
{
    return text(false);
}

void StereoStatisticsPage::copyToClipboard()
{
    const QString sText = text(m_pqTable->selectionModel()->hasSelection());
    if (!sText.isEmpty())
        QApplication::clipboard()->setText(sText);
}

bool StereoStatisticsPage::eventFilter(QObject* pqWatched, QEvent* pEvent)
{
    // The table itself would copy the current cell alone.
    if (pqWatched == m_pqTable && pEvent->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(pEvent)->matches(QKeySequence::Copy)) {
        copyToClipboard();
        return true;
    }
    return QWidget::eventFilter(pqWatched, pEvent);
}

} // namespace gkBase
