#include "StereoRotationPage.h"

#include "ChartPanelControls.h"
#include "QDoubleSpinBoxWithSlider.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace gkBase {

StereoRotationPage::StereoRotationPage(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqMeanComboBox(newChooser(tr("Mean"),
                                  tr("The mean that comes to the center: of steep planes that dip both ways the "
                                     "principal one"),
                                  QStringLiteral("m_pqRotationMeanComboBox")))
    , m_pqToCenterBtn(newButton(tr("To Center Pole"),
                                tr("Turn the records so that their mean pole comes to the center"), "m_pqToCenterBtn"))
    , m_pqAboutAxisBtn(
          newButton(tr("Rotate About Axis"), tr("Turn the records about the axis by the angle"), "m_pqRotateBtn"))
    , m_pqStateLabel(new QLabel)
    , m_pqProblemLabel(new QLabel)
    , m_pqUndoBtn(newButton(tr("Undo"), tr("Take the last rotation back"), "m_pqUndoRotationBtn"))
    , m_pqUndoAllBtn(newButton(tr("Undo All"), tr("Take all rotations back"), "m_pqUndoAllRotationsBtn"))
    , m_pqWriteBtn(newButton(tr("Write as Attributes"),
                             tr("Add the turned records as attributes \"Rotated:Dip\" and \"Rotated:Dip Azimuth\""),
                             "m_pqWriteRotatedBtn"))
{
    m_pqMeanComboBox->addItems({tr("Resultant Mean"), tr("Principal Mean")});
    auto* pqForm = new QFormLayout;
    pqForm->addRow(tr("Mean"), m_pqMeanComboBox);
    pqForm->addRow(m_pqToCenterBtn);
    m_pqPlungeSpinBox = newAngleSpinBox(*pqForm, tr("Axis Plunge"), tr("Plunge of the rotation axis, 0 to 90 degrees"),
                                        0.0, 90.0, "m_pqAxisPlungeSpinBox");
    m_pqAzimuthSpinBox =
        newAngleSpinBox(*pqForm, tr("Axis Azimuth"), tr("Azimuth of the rotation axis, degrees clockwise from north"),
                        0.0, 360.0, "m_pqAxisAzimuthSpinBox");
    m_pqAngleSpinBox = newAngleSpinBox(
        *pqForm, tr("Angle"), tr("Degrees, clockwise as seen along the axis downwards; negative counterclockwise"),
        -360.0, 360.0, "m_pqRotationAngleSpinBox");
    pqForm->addRow(m_pqAboutAxisBtn);
    m_pqStateLabel->setObjectName(QStringLiteral("m_pqRotationLabel"));
    m_pqProblemLabel->setObjectName(QStringLiteral("m_pqRotationProblemLabel"));
    for (QLabel* pqLabel : {m_pqStateLabel, m_pqProblemLabel}) {
        pqLabel->setTextFormat(Qt::PlainText);
        pqLabel->setWordWrap(true);
        pqLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    auto* pqUndo = new QHBoxLayout;
    pqUndo->addWidget(m_pqUndoBtn);
    pqUndo->addWidget(m_pqUndoAllBtn);
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addLayout(pqForm);
    pqLayout->addWidget(m_pqProblemLabel);
    pqLayout->addWidget(m_pqStateLabel);
    pqLayout->addLayout(pqUndo);
    pqLayout->addWidget(m_pqWriteBtn);
    pqLayout->addStretch(1);
    setSettings({});
    showRotations(false, {});

    using Page = StereoRotationPage;
    connect(m_pqToCenterBtn, &QPushButton::clicked, this, &Page::toCenterWanted);
    connect(m_pqAboutAxisBtn, &QPushButton::clicked, this, &Page::aboutAxisWanted);
    connect(m_pqUndoBtn, &QPushButton::clicked, this, &Page::undoWanted);
    connect(m_pqUndoAllBtn, &QPushButton::clicked, this, &Page::undoAllWanted);
    connect(m_pqWriteBtn, &QPushButton::clicked, this, &Page::attributesWanted);
}

QPushButton* StereoRotationPage::newButton(const QString& sText, const QString& sToolTip, const char* pObjectName)
{
    auto* pqBtn = new QPushButton(sText);
    pqBtn->setToolTip(sToolTip);
    pqBtn->setObjectName(QLatin1String(pObjectName));
    return pqBtn;
}

double StereoRotationPage::axisPlunge() const
{
    return m_pqPlungeSpinBox->getValue();
}

double StereoRotationPage::axisAzimuth() const
{
    return m_pqAzimuthSpinBox->getValue();
}

double StereoRotationPage::angle() const
{
    return m_pqAngleSpinBox->getValue();
}

bool StereoRotationPage::principalToCenter() const
{
    return m_pqMeanComboBox->currentIndex() == 1;
}

void StereoRotationPage::writeTo(StereoChartSettings& settings) const
{
    settings.m_bPrincipalToCenter = principalToCenter();
    settings.m_dAxisPlunge = axisPlunge();
    settings.m_dAxisAzimuth = axisAzimuth();
    settings.m_dRotationAngle = angle();
}

void StereoRotationPage::setSettings(const StereoChartSettings& settings)
{
    m_pqMeanComboBox->setCurrentIndex(settings.m_bPrincipalToCenter ? 1 : 0);
    m_pqPlungeSpinBox->setValue(settings.m_dAxisPlunge);
    m_pqAzimuthSpinBox->setValue(settings.m_dAxisAzimuth);
    m_pqAngleSpinBox->setValue(settings.m_dRotationAngle);
}

void StereoRotationPage::showRotations(bool bRecords, const QStringList& lRotations)
{
    showProblem({});
    const bool bRotated = !lRotations.isEmpty();
    m_pqStateLabel->setText(bRotated ? tr("Rotated: %1").arg(lRotations.join(tr(", then "))) : tr("Not rotated"));
    m_pqToCenterBtn->setEnabled(bRecords);
    m_pqAboutAxisBtn->setEnabled(bRecords);
    for (QPushButton* pqBtn : {m_pqUndoBtn, m_pqUndoAllBtn, m_pqWriteBtn})
        pqBtn->setEnabled(bRotated);
}

void StereoRotationPage::showProblem(const QString& sProblem)
{
    m_pqProblemLabel->setText(sProblem);
    m_pqProblemLabel->setVisible(!sProblem.isEmpty());
}

} // namespace gkBase
