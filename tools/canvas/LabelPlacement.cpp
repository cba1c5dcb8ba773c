#include "LabelPlacement.h"

#include <QRect>

#include <algorithm>
#include <array>
#include <cmath>

namespace gkBase {

namespace {

constexpr double g_dBucketWidth = 64.0;
constexpr double g_dBucketHeight = 16.0;
/// Areas larger than any chart get larger buckets' worth of collisions, not more memory.
constexpr int g_iMaxBucketsPerSide = 1024;

int bucketCount(double dLength, double dBucket)
{
    return std::isfinite(dLength)
               ? static_cast<int>(std::clamp(std::ceil(dLength / dBucket), 1.0, double(g_iMaxBucketsPerSide)))
               : 1;
}

int bucketOf(double dPosition, double dBucket, int iCount)
{
    return static_cast<int>(std::clamp(std::floor(dPosition / dBucket), 0.0, iCount - 1.0));
}

bool overlaps(const QRectF& a, const QRectF& b)
{
    return a.left() < b.right() && b.left() < a.right() && a.top() < b.bottom() && b.top() < a.bottom();
}

} // namespace

LabelPlacement::LabelPlacement(const QRectF& oArea, double dGap)
    : m_oArea(oArea.normalized())
    , m_dGap(std::max(dGap, 0.0))
    , m_iColumns(bucketCount(m_oArea.width(), g_dBucketWidth))
    , m_iRows(bucketCount(m_oArea.height(), g_dBucketHeight))
    , m_vBuckets(static_cast<std::size_t>(m_iColumns) * static_cast<std::size_t>(m_iRows))
{
}

QRect LabelPlacement::bucketsOf(const QRectF& oBox) const
{
    return {QPoint(bucketOf(oBox.left() - m_oArea.left(), g_dBucketWidth, m_iColumns),
                   bucketOf(oBox.top() - m_oArea.top(), g_dBucketHeight, m_iRows)),
            QPoint(bucketOf(oBox.right() - m_oArea.left(), g_dBucketWidth, m_iColumns),
                   bucketOf(oBox.bottom() - m_oArea.top(), g_dBucketHeight, m_iRows))};
}

void LabelPlacement::block(const QRectF& oBox)
{
    const int iBox = static_cast<int>(m_voTaken.size());
    m_voTaken.push_back(oBox.adjusted(-m_dGap, -m_dGap, m_dGap, m_dGap));
    const QRect oBuckets = bucketsOf(m_voTaken.back());
    for (int iRow = oBuckets.top(); iRow <= oBuckets.bottom(); ++iRow) {
        for (int iColumn = oBuckets.left(); iColumn <= oBuckets.right(); ++iColumn) {
            m_vBuckets[bucketIndex(iRow, iColumn)].push_back(iBox);
        }
    }
}

bool LabelPlacement::isFree(const QRectF& oBox) const
{
    const QRect oBuckets = bucketsOf(oBox);
    for (int iRow = oBuckets.top(); iRow <= oBuckets.bottom(); ++iRow) {
        for (int iColumn = oBuckets.left(); iColumn <= oBuckets.right(); ++iColumn) {
            for (const int iBox : m_vBuckets[bucketIndex(iRow, iColumn)]) {
                if (overlaps(m_voTaken[static_cast<std::size_t>(iBox)], oBox)) {
                    return false;
                }
            }
        }
    }
    return true;
}

QRectF LabelPlacement::place(std::span<const QRectF> voBoxes)
{
    for (const QRectF& oBox : voBoxes) {
        if (m_oArea.contains(oBox) && isFree(oBox)) {
            block(oBox);
            return oBox;
        }
    }
    return {};
}

QRectF LabelPlacement::place(const QRectF& oAnchor, const QSizeF& oSize)
{
    const double dMiddle = oAnchor.center().y() - oSize.height() / 2.0;
    const double dCentre = oAnchor.center().x() - oSize.width() / 2.0;
    const double dLeft = oAnchor.left() - m_dGap - oSize.width();
    const double dRight = oAnchor.right() + m_dGap;
    const double dAbove = oAnchor.top() - m_dGap - oSize.height();
    const double dBelow = oAnchor.bottom() + m_dGap;
    const std::array<QRectF, 8> voBoxes{QRectF({dRight, dMiddle}, oSize), QRectF({dLeft, dMiddle}, oSize),
                                        QRectF({dCentre, dAbove}, oSize), QRectF({dCentre, dBelow}, oSize),
                                        QRectF({dRight, dAbove}, oSize),  QRectF({dRight, dBelow}, oSize),
                                        QRectF({dLeft, dAbove}, oSize),   QRectF({dLeft, dBelow}, oSize)};
    return place(voBoxes);
}

std::vector<QRectF> placeLabels(const QRectF& oArea, std::span<const QRectF> voAnchors, std::span<const QSizeF> voSizes,
                                double dGap)
{
    LabelPlacement placement(oArea, dGap);
    std::vector<QRectF> voBoxes(voAnchors.size());
    for (std::size_t i = 0; i < std::min(voAnchors.size(), voSizes.size()); ++i) {
        voBoxes[i] = placement.place(voAnchors[i], voSizes[i]);
    }
    return voBoxes;
}

} // namespace gkBase
