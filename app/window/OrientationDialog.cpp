#include "OrientationDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace gkHost {

namespace {

enum Column
{
    UseColumn,
    ConventionColumn,
    ReasonColumn,
    ColumnCount
};

QString columnNames(const ImportTable& table, const OrientationProposal& proposal)
{
    QStringList lNames;
    for (const int iColumn : {proposal.m_iAngleColumn, proposal.m_iDirectionColumn})
        if (iColumn >= 0 && iColumn < table.columnCount())
            lNames << table.m_vColumns[static_cast<std::size_t>(iColumn)].m_sName;
    return lNames.join(QStringLiteral(" + "));
}

} // namespace

OrientationDialog::OrientationDialog(const ImportTable& table, const std::vector<OrientationProposal>& vProposals,
                                     QWidget* pqParent)
    : QDialog(pqParent)
    , m_vProposals(vProposals)
    , m_pqTable(new QTableWidget(static_cast<int>(vProposals.size()), ColumnCount, this))
{
    setWindowTitle(tr("Orientations in %1").arg(table.m_sName));
    auto* pqIntroduction =
        new QLabel(tr("These columns look like orientations. Confirm how they are written; angles are "
                      "in degrees, azimuths clockwise from north, strike by the right-hand rule."),
                   this);
    pqIntroduction->setTextFormat(Qt::PlainText);
    pqIntroduction->setWordWrap(true);

    m_pqTable->setAccessibleName(tr("Orientations"));
    m_pqTable->setHorizontalHeaderLabels({tr("Columns"), tr("Convention"), tr("Why")});
    m_pqTable->verticalHeader()->hide();
    m_pqTable->setSelectionMode(QAbstractItemView::NoSelection);
    for (int i = 0; i < m_pqTable->rowCount(); ++i)
        addRow(i, table);
    m_pqTable->resizeColumnsToContents();
    m_pqTable->horizontalHeader()->setStretchLastSection(true);
    m_pqTable->setWordWrap(true);

    auto* pqButtons = new QDialogButtonBox(this);
    pqButtons->addButton(tr("Use as Orientations"), QDialogButtonBox::AcceptRole);
    pqButtons->addButton(tr("Leave as Numbers"), QDialogButtonBox::RejectRole);
    connect(pqButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pqButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(pqIntroduction);
    pqLayout->addWidget(m_pqTable, 1);
    pqLayout->addWidget(pqButtons);
    resize(760, 260);
}

void OrientationDialog::addRow(int iRow, const ImportTable& table)
{
    const OrientationProposal& proposal = m_vProposals[static_cast<std::size_t>(iRow)];
    auto* pqUse = new QTableWidgetItem(columnNames(table, proposal));
    pqUse->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    pqUse->setCheckState(Qt::Checked);
    m_pqTable->setItem(iRow, UseColumn, pqUse);

    auto* pqConvention = new QComboBox(m_pqTable);
    pqConvention->setAccessibleName(tr("Convention of %1").arg(pqUse->text()));
    std::vector<OrientationConvention> vChoices = proposal.m_vAlternatives;
    if (vChoices.empty())
        vChoices.push_back(proposal.m_eConvention);
    for (const OrientationConvention eConvention : vChoices)
        pqConvention->addItem(OrientationRecognizer::conventionName(eConvention), static_cast<int>(eConvention));
    pqConvention->setCurrentIndex(pqConvention->findData(static_cast<int>(proposal.m_eConvention)));
    m_pqTable->setCellWidget(iRow, ConventionColumn, pqConvention);

    auto* pqReason = new QTableWidgetItem(proposal.m_sReason);
    pqReason->setFlags(Qt::ItemIsEnabled);
    pqReason->setToolTip(proposal.m_sReason.toHtmlEscaped());
    m_pqTable->setItem(iRow, ReasonColumn, pqReason);
}

std::vector<OrientationProposal> OrientationDialog::chosen() const
{
    std::vector<OrientationProposal> vChosen;
    for (int i = 0; i < m_pqTable->rowCount(); ++i) {
        if (m_pqTable->item(i, UseColumn)->checkState() != Qt::Checked)
            continue;
        OrientationProposal proposal = m_vProposals[static_cast<std::size_t>(i)];
        const auto* pqConvention = qobject_cast<const QComboBox*>(m_pqTable->cellWidget(i, ConventionColumn));
        proposal.m_eConvention = static_cast<OrientationConvention>(pqConvention->currentData().toInt());
        vChosen.push_back(std::move(proposal));
    }
    return vChosen;
}

std::vector<OrientationProposal> OrientationDialog::choose(const ImportTable& table,
                                                           const std::vector<OrientationProposal>& vProposals,
                                                           QWidget* pqParent)
{
    OrientationDialog dialog(table, vProposals, pqParent);
    return dialog.exec() == QDialog::Accepted ? dialog.chosen() : std::vector<OrientationProposal>{};
}

} // namespace gkHost
