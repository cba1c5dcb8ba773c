#pragma once

#include "gkBaseToolsExport.h"

#include <QColor>
#include <QPixmap>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QWidget>

#include <vector>

class QPainter;

namespace gkBase {

class ElidedLabel;
class QChartDrawingArea;
class QLegendListModel;
class QLegendListView;
class QRelationshipItemModel;

/// The legends of the colour and the symbol attribute, one above the other; each is seen while its attribute is on and
/// the user wants it. They scroll together.
class GKBASETOOLS_EXPORT ClassLegends : public QWidget
{
    Q_OBJECT
public:
    /// The canvas whose points are recoloured; not owned.
    explicit ClassLegends(QChartDrawingArea* pqCanvas, QWidget* pqParent = nullptr);

    /// Lists the classes of the model's attributes. Views lose their selection when the classes differ.
    void setClasses(const QRelationshipItemModel& model);
    void setWanted(bool bColorLegend, bool bSymbolLegend);
    /// Stands above the colour legend in the place of the attribute's name; empty: the name.
    void setColorTitle(const QString& sTitle);

    std::vector<int> selectedColorClasses() const;
    std::vector<int> selectedSymbolClasses() const;
    /// One flag per record of the model: it belongs to a selected class.
    std::vector<unsigned char> selectedRecords(const QRelationshipItemModel& model) const;
    /// Emits nothing.
    void clearSelection();

    /// No legend is seen.
    bool isEmpty() const;
    QLegendListView* colorView() const { return m_oColor.m_pqView; }
    QLegendListView* symbolView() const { return m_oSymbol.m_pqView; }
    /// The legends that are on, whole and under their titles. Null size without any.
    QSizeF pictureSize() const;
    /// Draws them into the rectangle from its top left, made smaller when they do not fit.
    void paint(QPainter& painter, const QRectF& oTarget, const QColor& oTextColor) const;
    /// Width that they take to the right of a chart, margins included; 0 without any.
    double widthBeside() const;
    /// Draws them to the right in a picture, on 40 % of its width at most, and returns what remains for the chart.
    QRectF paintBeside(QPainter& painter, const QRectF& oPicture, const QColor& oTextColor) const;
    /// A chart with them to its right.
    QPixmap withChart(const QPixmap& oChart, const QColor& oBackground, const QColor& oTextColor) const;

signals:
    /// The user selected other classes.
    void selectedClassesChanged();

private:
    struct Legend
    {
        QWidget* m_pqGroup = nullptr;
        ElidedLabel* m_pqTitle = nullptr;
        QLegendListModel* m_pModel = nullptr;
        QLegendListView* m_pqView = nullptr;
        QString m_sName; ///< of the attribute
        bool m_bWanted = true;
        bool m_bOn = false; ///< its attribute is

        bool isSeen() const { return m_bWanted && m_bOn; }
    };

    Legend newLegend(QChartDrawingArea* pqCanvas, int iType);
    void connectLegend(const Legend& legend, const Legend& other);
    void slotSelected(const Legend& other);
    void slotScrolled(const Legend& legend, const Legend& other, int iValue);
    void showLegends();
    std::vector<const Legend*> seenLegends() const;

    Legend m_oColor;
    Legend m_oSymbol;
    QString m_sColorTitle;
    bool m_bFollowing = false; ///< one legend scrolls the other
};

} // namespace gkBase
