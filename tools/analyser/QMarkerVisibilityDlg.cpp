#include "QMarkerVisibilityDlg.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace gkBase {

QMarkerVisibilityDlg::QMarkerVisibilityDlg(const QString& sName, const bool& bVisible, QWidget* pqParent,
                                           Qt::WindowFlags eFlags)
    : QDialog(pqParent, eFlags)
    , m_pqAll(new QCheckBox(tr("All Markers"), this))
    , m_pqTypes(new QGroupBox(tr("Select Marker Types"), this))
    , m_pqScat(newTypeBox(tr("SCAT Markers"), "scatCheckBox"))
    , m_pqDecimated(newTypeBox(tr("Decimated Dip/Azimuth"), "decimatedDipAzimuthCheckBox"))
    , m_pqTops(newTypeBox(tr("Tops"), "topsCheckBox"))
    , m_pqFaults(newTypeBox(tr("Faults"), "faultsCheckBox"))
    , m_pqButtons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(sName.isEmpty() ? tr("Marker Visibility") : tr("Marker Visibility: %1").arg(sName));
    m_pqAll->setObjectName(QStringLiteral("allCheckBox"));
    m_pqTypes->setObjectName(QStringLiteral("markerTypesGroupBox"));
    m_pqButtons->setObjectName(QStringLiteral("buttonBox"));
    m_pqTops->setToolTip(tr("Tops and horizons"));
    m_pqScat->setToolTip(tr("Structural planes of the dipmeter window"));

    m_pqTypes->setCheckable(true);
    auto* pqTypeLayout = new QVBoxLayout(m_pqTypes);
    for (QCheckBox* pqBox : {m_pqScat, m_pqDecimated, m_pqTops, m_pqFaults})
        pqTypeLayout->addWidget(pqBox);
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(m_pqAll);
    pqLayout->addWidget(m_pqTypes);
    pqLayout->addWidget(newVisibilityBox(!bVisible));
    pqLayout->addWidget(m_pqButtons);
    m_pqAll->setChecked(true);
    m_pqTypes->setChecked(false);

    connect(m_pqAll, &QCheckBox::stateChanged, this, &QMarkerVisibilityDlg::slotEnableMarkerTypes);
    connect(m_pqTypes, &QGroupBox::toggled, this, &QMarkerVisibilityDlg::slotEnableAllMarkers);
    connect(m_pqButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_pqButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QCheckBox* QMarkerVisibilityDlg::newTypeBox(const QString& sText, const char* pcName)
{
    auto* pqBox = new QCheckBox(sText, m_pqTypes);
    pqBox->setObjectName(QLatin1String(pcName));
    connect(pqBox, &QCheckBox::toggled, this, &QMarkerVisibilityDlg::enableOk);
    return pqBox;
}

QGroupBox* QMarkerVisibilityDlg::newVisibilityBox(bool bOn)
{
    auto* pqGroup = new QGroupBox(tr("Select Visibility"), this);
    pqGroup->setObjectName(QStringLiteral("groupBox"));
    m_pqOn = new QRadioButton(tr("On"), pqGroup);
    m_pqOn->setObjectName(QStringLiteral("radioButtonOn"));
    auto* pqOff = new QRadioButton(tr("Off"), pqGroup);
    pqOff->setObjectName(QStringLiteral("radioButtonOff"));
    (bOn ? m_pqOn : pqOff)->setChecked(true);
    auto* pqLayout = new QHBoxLayout(pqGroup);
    pqLayout->addWidget(m_pqOn);
    pqLayout->addWidget(pqOff);
    pqLayout->addStretch();
    return pqGroup;
}

void QMarkerVisibilityDlg::slotEnableMarkerTypes(int iState)
{
    m_pqTypes->setChecked(iState != Qt::Checked);
    enableOk();
}

void QMarkerVisibilityDlg::slotEnableAllMarkers(bool bOn)
{
    m_pqAll->setChecked(!bOn);
    enableOk();
}

void QMarkerVisibilityDlg::enableOk()
{
    m_pqButtons->button(QDialogButtonBox::Ok)
        ->setEnabled(allMarkers() || scatMarkers() || decimatedDipAzimuthMarkers() || topMarkers() || faultMarkers());
}

bool QMarkerVisibilityDlg::allMarkers() const
{
    return m_pqAll->isChecked();
}

bool QMarkerVisibilityDlg::scatMarkers() const
{
    return m_pqScat->isChecked();
}

bool QMarkerVisibilityDlg::decimatedDipAzimuthMarkers() const
{
    return m_pqDecimated->isChecked();
}

bool QMarkerVisibilityDlg::topMarkers() const
{
    return m_pqTops->isChecked();
}

bool QMarkerVisibilityDlg::faultMarkers() const
{
    return m_pqFaults->isChecked();
}

bool QMarkerVisibilityDlg::visibilityValue() const
{
    return m_pqOn->isChecked();
}

} // namespace gkBase
