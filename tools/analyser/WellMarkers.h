#pragma once

#include "gkBaseToolsExport.h"

namespace gkBase {

class DepthLineField;
class MatrixData;
struct DepthMarkerSwitches;

/// Makes the markers of a well those that were interpreted: one row for each structural plane, horizon and fault of the
/// lines, in a data set "<well> Markers" beside the well's (see wellOf()), which is made at need and switched off in
/// the table. A table of the well that holds such rows is used whatever its name is now; of several the first, and the
/// others lose theirs. One undo step; tells whether something changed. Nothing for a depth that stands in no tree.
///
/// The rows hold the depth (an attribute named like the well's, the lines' depths are in its model unit), "Type"
/// (DepthLineField::type()), "Name", "Dip" and "Azimuth" (degrees, empty for a line without orientation), "$V" (empty:
/// the row follows its default value) and "Origin", which is "SCAT" and tells these rows from all others. Rows of
/// another origin, and further attributes, stay as they are.
///
/// Rows that were sent before become those of the lines again: a row is that of the line of its type that has the same
/// name and depth, or else the same name and the nearest depth, or else the same depth. It keeps its "$V" and what
/// stands in further attributes. Rows of lines that are gone are taken out, without a remaining row the data set too.
GKBASETOOLS_EXPORT bool createWellMarkers(MatrixData& root, const DepthLineField& lines, const MatrixData& depth);

/// Takes out the rows that createWellMarkers() wrote for the well of a depth, from all tables, and each data set of
/// which no row is left. One undo step; tells whether there were such rows.
GKBASETOOLS_EXPORT bool deleteWellMarkers(MatrixData& root, const MatrixData& depth);

/// The lines that can be markers, and those of them that are markers which a depth plot shows.
struct ShownWellMarkers
{
    int m_iLines = 0;
    int m_iShown = 0;
};
/// What a depth plot of the well with these switches shows of the lines, by kind and depth.
GKBASETOOLS_EXPORT ShownWellMarkers shownWellMarkers(const MatrixData& root, const DepthLineField& lines,
                                                     const MatrixData& depth, const DepthMarkerSwitches& switches);

} // namespace gkBase
