#include "ChartPanelControls.h"

#include "QDecoratedToolBox.h"
#include "QDoubleSpinBoxWithSlider.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace gkBase {

QLabel* newValueLabel(const QString& sName)
{
    auto* pqLabel = new QLabel(QStringLiteral("---"));
    pqLabel->setTextFormat(Qt::PlainText);
    pqLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pqLabel->setAccessibleName(sName);
    return pqLabel;
}

QComboBox* newChooser(const QString& sName, const QString& sToolTip, const QString& sObjectName)
{
    auto* pqBox = new QComboBox;
    pqBox->setObjectName(sObjectName);
    pqBox->setAccessibleName(sName);
    pqBox->setToolTip(sToolTip);
    pqBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    pqBox->setMinimumContentsLength(12);
    return pqBox;
}

QCheckBox* newCheckBox(const QString& sText, const QString& sToolTip, const char* pObjectName)
{
    auto* pqBox = new QCheckBox(sText);
    pqBox->setToolTip(sToolTip);
    pqBox->setObjectName(QLatin1String(pObjectName));
    return pqBox;
}

QPushButton* newButton(const QString& sText, const QString& sToolTip, const char* pObjectName)
{
    auto* pqButton = new QPushButton(sText);
    pqButton->setToolTip(sToolTip);
    pqButton->setObjectName(QLatin1String(pObjectName));
    return pqButton;
}

QDoubleSpinBoxWithSlider* newAngleSpinBox(QFormLayout& form, const QString& sName, const QString& sToolTip, double dMin,
                                          double dMax, const char* pObjectName)
{
    auto* pqSpinBox = new QDoubleSpinBoxWithSlider(dMin, dMax, static_cast<int>(std::lround(dMax - dMin)));
    pqSpinBox->setObjectName(QLatin1String(pObjectName));
    pqSpinBox->setControlName(sName);
    pqSpinBox->setToolTip(sToolTip);
    pqSpinBox->setDecimals(1);
    pqSpinBox->setSingleStep(1.0);
    pqSpinBox->setSuffix(QStringLiteral("°"));
    form.addRow(sName, pqSpinBox);
    return pqSpinBox;
}

int tallestPage(const QDecoratedToolBox& toolBox)
{
    int iHeight = 0;
    for (int i = 0; i < toolBox.count(); ++i)
        iHeight = std::max(iHeight, toolBox.widget(i)->minimumSizeHint().height());
    return iHeight;
}

QScrollArea* newControlScrollArea(QWidget* pqControls)
{
    auto* pqScrollArea = new QScrollArea;
    pqScrollArea->setWidget(pqControls);
    pqScrollArea->setWidgetResizable(true);
    pqScrollArea->setFrameShape(QFrame::NoFrame);
    // Long numbers and units make the controls wider than they are now.
    pqScrollArea->setMinimumWidth(pqControls->minimumSizeHint().width() +
                                  pqScrollArea->verticalScrollBar()->sizeHint().width());
    return pqScrollArea;
}

QWidget* newSideBar(const QList<QWidget*>& lpqGroups, QDecoratedToolBox* pqToolBox, int iPageHeight)
{
    pqToolBox->setMinimumHeight(pqToolBox->minimumSizeHint().height() + iPageHeight);
    auto* pqControls = new QWidget;
    auto* pqLayout = new QVBoxLayout(pqControls);
    pqLayout->setContentsMargins(4, 0, 4, 0);
    for (QWidget* pqGroup : lpqGroups)
        pqLayout->addWidget(pqGroup);
    pqLayout->addWidget(pqToolBox, 1);
    return newControlScrollArea(pqControls);
}

QSplitter* layOutPanel(QWidget* pqPanel, const QList<QWidget*>& lpqCharts, QWidget* pqSideBar,
                       const QList<int>& liWidths)
{
    auto* pqSplitter = new QSplitter(Qt::Horizontal, pqPanel);
    pqSplitter->setObjectName(QStringLiteral("m_pqSplitter"));
    pqSplitter->setChildrenCollapsible(false);
    for (QWidget* pqChart : lpqCharts)
        pqSplitter->addWidget(pqChart);
    pqSplitter->addWidget(pqSideBar);
    for (int i = 0; i < pqSplitter->count(); ++i)
        pqSplitter->setStretchFactor(i, i == 0 ? 1 : 0);
    pqSplitter->setSizes(liWidths);
    auto* pqLayout = new QHBoxLayout(pqPanel);
    pqLayout->setContentsMargins(4, 4, 4, 4);
    pqLayout->addWidget(pqSplitter);
    return pqSplitter;
}

} // namespace gkBase
