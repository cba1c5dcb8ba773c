#pragma once

#include "PointBatch.h"
#include "PointLayer.h"
#include "SymbolStencilCache.h"
#include "gkBaseToolsExport.h"

#include <QImage>

#include <cstddef>
#include <cstdint>

class QPainter;

namespace gkBase {

/// Draws the points of a chart: unselected ones first, selected ones above them with a pen and a halo of their own,
/// each in the order of records.
///
/// On screens and images the points are written as pixels, points of one style on one pixel once, in the look of the
/// last of them: that is what drawing all of them leaves to be seen. A picture without selection that fills a
/// quarter of its device is kept, so that a new selection writes only the selected points. On vector devices (SVG, PDF)
/// and through painters that turn or scale, every point that the clip leaves in sight is drawn as an outline, of more
/// than s_iMostOutlines only those whose symbol no later one of the same style covers.
class GKBASETOOLS_EXPORT PointPainter
{
public:
    static constexpr std::size_t s_iMostOutlines = 20000;

    void draw(QPainter* pPainter, const PointBatch& batch);
    /// Forgets the kept picture.
    void clear() { m_oKept = QImage(); }
    qint64 memory() const { return m_oKept.sizeInBytes(); }

private:
    void drawPixels(QPainter* pPainter, const PointBatch& batch);
    void updateKept(const PointBatch& batch, const PointTarget& target);

    SymbolStencilCache m_stencils;
    QImage m_oKept; ///< all points as if none were selected
    QPoint m_oKeptTopLeft;
    PointTarget m_oKeptTarget;
    std::uint64_t m_iKeptFingerprint = 0;
};

} // namespace gkBase
