#pragma once

#include "NetProjection.h"
#include "QStereoPlotWidget.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <vector>

class QPainter;

namespace gkBase {

/// What the numbers of a contour map mean.
struct ContourLegendInfo
{
    std::size_t m_iRecords = 0;  ///< N
    double m_dMaximum = 99999.0; ///< largest node in per cent; 99999.0 leaves the highest band open
    int m_iColumns = 0;          ///< nodes of the grid
    int m_iRows = 0;
    bool m_bWeighted = false; ///< per cent of the sum of the weights
    NetLayout m_eLayout = NetLayout::EqualArea;
    bool m_bFilled = true; ///< bands are filled; else lines only
};

/// The bands of a contour map beside the per cent of their limits, and below them what the numbers mean. The numbers
/// of narrow bands are left out where they would overlap.
class GKBASETOOLS_EXPORT ContourLegend : public QWidget
{
    Q_OBJECT
public:
    explicit ContourLegend(QWidget* pqParent = nullptr);

    using Level = QStereoPlotWidget::ContourLevel;
    /// Rising levels with the colours of the bands above them. Without any the legend is empty and hides.
    void setLevels(const std::vector<Level>& vLevels, const ContourLegendInfo& info);
    bool isEmpty() const { return m_vLevels.empty(); }
    /// What the numbers mean, in words.
    QString explanation() const;

    /// Size at which it is drawn without being made smaller; null when it is empty.
    QSizeF pictureSize() const;
    /// Draws it into the rectangle from its top left, made smaller when it does not fit.
    void paint(QPainter& painter, const QRectF& oTarget, const QColor& oTextColor) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    /// Draws it into (0, 0) … oSize in the painter's font; the bands take the height that the text leaves.
    void draw(QPainter& painter, const QSizeF& oSize, const QColor& oTextColor) const;

    std::vector<Level> m_vLevels;
    ContourLegendInfo m_info;
};

} // namespace gkBase
