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

class QFontMetricsF;
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

/// The bands of a contour map with the per cent of their limits, and what the numbers mean: below the bands or, where
/// the room is low, beside them. The numbers of narrow bands are left out where they would overlap.
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

    /// Size at which all numbers have room; null when it is empty.
    QSizeF pictureSize() const;
    /// Draws it into the rectangle from its top left, arranged to use the room, and made smaller only when it does not
    /// fit otherwise.
    void paint(QPainter& painter, const QRectF& oTarget, const QColor& oTextColor) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// The least height at which it is as large as at its best: for scroll areas.
    int heightForWidth(int iWidth) const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    struct Arrangement
    {
        QSizeF m_oSize;
        double m_dScale = 1.0;
        bool m_bBeside = false; ///< the text stands beside the bands, else below
    };

    QString title() const;
    double textHeight(const QFontMetricsF& metrics, double dWidth) const;
    double bandsWidth(const QFontMetricsF& metrics) const;
    double mostBandsHeight(const QFontMetricsF& metrics) const;
    Arrangement arrangementFor(const QSizeF& oRoom) const;
    void drawBands(QPainter& painter, const QRectF& oRoom, const QColor& oTextColor) const;

    std::vector<Level> m_vLevels;
    ContourLegendInfo m_info;
};

} // namespace gkBase
