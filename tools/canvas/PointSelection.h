#pragma once

#include "gkBaseToolsExport.h"

#include <QPointF>
#include <QVector>
#include <Qt>

#include <span>
#include <vector>

class QColor;
class QPainter;

namespace gkBase {

class QRelationshipItemModel;

/// The record whose pixel is nearest to a position and within dDistance; −1 for none. Of equally near ones the last,
/// which is drawn on top.
GKBASETOOLS_EXPORT int nearestPoint(std::span<const QPointF> voPixels, const QPointF& oPosition, double dDistance);

/// How many different pixels an outline touches, counted up to three.
GKBASETOOLS_EXPORT int distinctCorners(std::span<const QPointF> voCorners);

/// One flag per point: 1 for those inside the outline, which is closed by itself and moved by the offset into the
/// pixels of the points. An outline without an area is a click: the point nearest to its end, within dReach.
GKBASETOOLS_EXPORT std::vector<unsigned char> pointsInOutline(std::span<const QPointF> voPixels,
                                                              std::span<const QPointF> voOutline,
                                                              const QPointF& oOffset, double dReach);

/// The outline of a selection while it is drawn, in any painter's pixels.
void drawSelectionOutline(QPainter& painter, const QVector<QPointF>& voOutline, const QColor& oBackground,
                          const QColor& oLabel);

/// What a selecting gesture does to a model from the press of the button to its release: the press clears what was
/// selected unless Ctrl adds, the release selects, and who gives up gets the former selection back.
class PointSelectionGesture
{
public:
    /// Tells whether the press cleared a selection. Null: no points.
    bool begin(QRelationshipItemModel* pModel, Qt::KeyboardModifiers eModifiers);
    /// Adds to, or replaces, the selection by the points of the mask.
    void select(QRelationshipItemModel* pModel, std::span<const unsigned char> vbMask);
    void giveUp(QRelationshipItemModel* pModel);
    void end() { m_viBefore.clear(); }

    bool isAdding() const { return m_bAdding; }
    bool hasCleared() const { return !m_bAdding && !m_viBefore.empty(); }

private:
    bool m_bAdding = false;
    std::vector<int> m_viBefore; ///< records selected at the press
};

} // namespace gkBase
