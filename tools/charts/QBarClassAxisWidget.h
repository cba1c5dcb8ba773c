#pragma once

#include "BarDiagramGeometry.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QWidget>

#include <memory>

namespace gkBase {

/// The names of the classes below a bar chart, with a title; a name that had to be cut is told as a tool tip. Names
/// that do not fit side by side read upwards. Stands as wide as the chart, directly below it.
class GKBASETOOLS_EXPORT QBarClassAxisWidget : public QWidget
{
    Q_OBJECT
public:
    explicit QBarClassAxisWidget(QWidget* pqParent = nullptr);

    /// Null or no bars: an axis without names. classesChanged() tells that their bars are others.
    void setClasses(std::shared_ptr<const BarDiagramClasses> pClasses);
    void classesChanged();
    void setTitle(const QString& sTitle);
    void setAxisColor(const QColor& oColor);
    /// Names that read upwards are cut to this many pixels.
    void setMostDepth(double dPixels);

    /// Draws the same axis for another window below a chart; the painter has the chart's co-ordinates. dMostDepth as
    /// for setMostDepth().
    void drawAxis(QPainter& painter, const QRect& oChart, const BarWindow& window, double dMostDepth) const;
    /// Pixels that drawAxis() needs below a chart of that width.
    int thickness(const BarWindow& window, int iWidth, double dMostDepth) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    /// The part of the bars that the chart shows.
    void setWindow(const gkBase::BarWindow& window);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    bool event(QEvent* pEvent) override;

private:
    BarLabels labels(const BarWindow& window, int iWidth, double dMostDepth) const;
    void updateLayout();

    std::shared_ptr<const BarDiagramClasses> m_pClasses;
    BarWindow m_oWindow;
    BarLabels m_oLabels;
    QString m_sTitle;
    QColor m_oAxisColor = Qt::black;
    double m_dMostDepth = 120.0;
    double m_dWidest = 0.0; ///< pixels of the widest name
};

} // namespace gkBase
