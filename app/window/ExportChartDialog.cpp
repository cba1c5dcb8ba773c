#include "ExportChartDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

namespace gkHost {

namespace {

QSpinBox* newSizeBox(const QString& sName, int iValue, QWidget* pqParent)
{
    auto* pqBox = new QSpinBox(pqParent);
    pqBox->setAccessibleName(sName);
    pqBox->setRange(100, 20000);
    pqBox->setSingleStep(50);
    pqBox->setValue(iValue);
    pqBox->setSuffix(ExportChartDialog::tr(" px"));
    return pqBox;
}

} // namespace

ExportChartDialog::ExportChartDialog(QWidget* pqParent)
    : QDialog(pqParent)
    , m_pqWidth(newSizeBox(tr("Width"), 1000, this))
    , m_pqHeight(newSizeBox(tr("Height"), 800, this))
{
    setWindowTitle(tr("Export Chart"));
    auto* pqButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(pqButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pqButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* pqLayout = new QFormLayout(this);
    pqLayout->addRow(tr("&Width:"), m_pqWidth);
    pqLayout->addRow(tr("&Height:"), m_pqHeight);
    pqLayout->addRow(pqButtons);
}

QSize ExportChartDialog::chartSize() const
{
    return {m_pqWidth->value(), m_pqHeight->value()};
}

} // namespace gkHost
