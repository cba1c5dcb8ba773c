#pragma once

#include <QList>
#include <QString>

class QCheckBox;
class QComboBox;
class QDecoratedToolBox;
class QDoubleSpinBoxWithSlider;
class QFormLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QSplitter;
class QWidget;

namespace gkBase {

/// Width of the controls beside a chart when a panel is first laid out, in pixels.
constexpr int g_iChartSideBarWidth = 270;

/// A result that can be selected and copied, "---" at first.
QLabel* newValueLabel(const QString& sName);
/// A combo box that does not widen its column; the name is for assistive tools.
QComboBox* newChooser(const QString& sName, const QString& sToolTip, const QString& sObjectName);

/// A check box; pObjectName is for style sheets and scripts.
QCheckBox* newCheckBox(const QString& sText, const QString& sToolTip, const char* pObjectName);

/// A push button; pObjectName as above.
QPushButton* newButton(const QString& sText, const QString& sToolTip, const char* pObjectName);

/// An angle in degrees with a slider, in a row of the form; pObjectName as above.
QDoubleSpinBoxWithSlider* newAngleSpinBox(QFormLayout& form, const QString& sName, const QString& sToolTip, double dMin,
                                          double dMax, const char* pObjectName);

/// Height of the tallest page of a tool box.
int tallestPage(const QDecoratedToolBox& toolBox);
/// Scrolls controls where there is too little room for them, never sideways.
QScrollArea* newControlScrollArea(QWidget* pqControls);
/// The controls of a panel: groups above a tool box with room for a page of that height. A small screen scrolls them,
/// never the chart.
QWidget* newSideBar(const QList<QWidget*>& lpqGroups, QDecoratedToolBox* pqToolBox, int iPageHeight);
/// Fills the panel with the charts and the side bar, side by side and of those widths; only the first one grows.
QSplitter* layOutPanel(QWidget* pqPanel, const QList<QWidget*>& lpqCharts, QWidget* pqSideBar,
                       const QList<int>& liWidths);

} // namespace gkBase
