#include "QValueChangeOnOffWidget.h"

#include "ValueChangeWidget.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>
#include <QStyleOptionButton>

#include <algorithm>

namespace gkBase {

QValueChangeOnOffWidget::QValueChangeOnOffWidget(QWidget* pqParent)
    : QWidget(pqParent)
    , m_pqOnBox(new QCheckBox(this))
    , m_pqValueChange(new ValueChangeWidget(this))
    , m_pqNoteLabel(new QLabel(this))
{
    m_pqNoteLabel->setTextFormat(Qt::PlainText);
    m_pqNoteLabel->setWordWrap(true);
    m_pqNoteLabel->setIndent(style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                             style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
    auto* pqLayout = new QGridLayout(this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->setVerticalSpacing(2);
    pqLayout->addWidget(m_pqOnBox, 0, 0);
    pqLayout->addWidget(m_pqValueChange, 0, 1);
    pqLayout->addWidget(m_pqNoteLabel, 1, 0, 1, 2);
    pqLayout->setColumnStretch(1, 1);
    connect(m_pqOnBox, &QCheckBox::toggled, this, &QValueChangeOnOffWidget::slotChanged);
    connect(m_pqValueChange, &ValueChangeWidget::changed, this, &QValueChangeOnOffWidget::slotChanged);
    m_pqValueChange->setEnabled(false);
    showNote();
}

void QValueChangeOnOffWidget::setAttribute(const QString& sName, QMetaType::Type eType,
                                           const boost::shared_ptr<UnitManager>& poUnit, bool bEditable)
{
    m_sName = sName;
    m_bEditable = bEditable;
    m_pqOnBox->setEnabled(bEditable);
    if (!bEditable)
        m_pqOnBox->setChecked(false);
    m_pqOnBox->setAccessibleName(tr("Change %1").arg(sName));
    showName();
    m_pqValueChange->setAttribute(sName, eType, poUnit);
}

bool QValueChangeOnOffWidget::isOn() const
{
    return m_pqOnBox->isChecked();
}

void QValueChangeOnOffWidget::setOn(bool bOn)
{
    m_pqOnBox->setChecked(bOn && m_bEditable);
}

CellChange QValueChangeOnOffWidget::change() const
{
    return m_pqValueChange->change();
}

bool QValueChangeOnOffWidget::isValid() const
{
    return !isOn() || m_pqValueChange->isValid();
}

void QValueChangeOnOffWidget::setPreview(const QString& sText)
{
    m_sPreview = sText;
    showNote();
}

void QValueChangeOnOffWidget::slotChanged()
{
    m_pqValueChange->setEnabled(isOn());
    showNote();
    emit changed();
}

void QValueChangeOnOffWidget::showNote()
{
    m_pqNoteLabel->setVisible(isOn());
    m_pqNoteLabel->setText(isValid() ? m_sPreview : m_pqValueChange->error());
}

// ---- name -----------------------------------------------------------------------------------------------------------

int QValueChangeOnOffWidget::nameWidth() const
{
    QStyleOptionButton oOption;
    oOption.initFrom(m_pqOnBox);
    oOption.text = m_sName;
    const QSize oName(m_pqOnBox->fontMetrics().horizontalAdvance(m_sName) + 2, m_pqOnBox->fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_CheckBox, &oOption, oName, m_pqOnBox).width();
}

void QValueChangeOnOffWidget::setNameWidth(int iWidth)
{
    m_pqOnBox->setFixedWidth(iWidth);
    showName();
}

void QValueChangeOnOffWidget::showName()
{
    const int iRoom = m_pqOnBox->maximumWidth() - (nameWidth() - m_pqOnBox->fontMetrics().horizontalAdvance(m_sName));
    QString sShown = m_pqOnBox->fontMetrics().elidedText(m_sName, Qt::ElideRight, std::max(iRoom, 0));
    const bool bElided = sShown != m_sName;
    m_pqOnBox->setText(sShown.replace(u'&', QLatin1String("&&")));
    QString sTip = bElided ? m_sName.toHtmlEscaped() : QString();
    if (!m_bEditable)
        sTip = tr("%1 cannot be edited").arg(m_sName.toHtmlEscaped());
    m_pqOnBox->setToolTip(sTip);
}

} // namespace gkBase
