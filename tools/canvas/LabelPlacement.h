#pragma once

#include "gkBaseToolsExport.h"

#include <QRectF>
#include <QSizeF>

#include <cstddef>
#include <span>
#include <vector>

namespace gkBase {

/// Finds places for labels so that none covers another. Labels are given in the order of their importance: each takes
/// the first of its places that is free, or is hidden. Taken boxes are looked up in buckets, so that a label costs the
/// same whether ten or ten thousand were placed before it.
class GKBASETOOLS_EXPORT LabelPlacement
{
public:
    /// Labels stay inside the area (pixels) and keep dGap pixels between them.
    explicit LabelPlacement(const QRectF& oArea, double dGap = 2.0);

    /// Takes a box without asking: something that labels shall not cover.
    void block(const QRectF& oBox);
    bool isFree(const QRectF& oBox) const;
    /// All boxes so far, each with the gap around it.
    std::span<const QRectF> taken() const { return m_voTaken; }
    /// The first of these boxes that is free and inside the area, which is taken by that; a null rectangle for none.
    QRectF place(std::span<const QRectF> voBoxes);
    /// A box of the size beside the anchor: to its right, left, above, below, then at its corners.
    QRectF place(const QRectF& oAnchor, const QSizeF& oSize);

private:
    /// Buckets that a box touches, as columns left to right and rows top to bottom.
    QRect bucketsOf(const QRectF& oBox) const;
    std::size_t bucketIndex(int iRow, int iColumn) const
    {
        return static_cast<std::size_t>(iRow) * static_cast<std::size_t>(m_iColumns) +
               static_cast<std::size_t>(iColumn);
    }

    QRectF m_oArea;
    double m_dGap;
    int m_iColumns;
    int m_iRows;
    std::vector<QRectF> m_voTaken;
    std::vector<std::vector<int>> m_vBuckets; ///< numbers in m_voTaken
};

/// Places one label per anchor, the first being the most important. Returns their boxes, null for those that are
/// hidden. Anchors and sizes are parallel.
GKBASETOOLS_EXPORT std::vector<QRectF> placeLabels(const QRectF& oArea, std::span<const QRectF> voAnchors,
                                                   std::span<const QSizeF> voSizes, double dGap = 2.0);

} // namespace gkBase
