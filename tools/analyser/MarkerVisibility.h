#pragma once

#include "gkBaseToolsExport.h"

#include <QString>

namespace gkBase {

class MatrixData;

/// Which markers a switch of visibility is for.
enum class MarkerKind
{
    Scat,      ///< structural planes
    Decimated, ///< rows with a value of "Decimated:dip" or "Decimated:azimuth"
    Type,      ///< rows whose "Type" has a given text; "Top" and "Fault" also name the attributes of these markers
    Top        ///< horizons, by "Horizon" or "Type"
};

/// What the user wants to see of the markers.
struct MarkerVisibilityChoice
{
    bool m_bAll = false; ///< the kinds do not count then
    bool m_bScat = false;
    bool m_bDecimated = false;
    bool m_bTops = false; ///< and horizons
    bool m_bFaults = false;
    bool m_bVisible = false;
};

/// Whether there is an attribute "$V" below the root.
GKBASETOOLS_EXPORT bool hasMarkerVisibility(const MatrixData* poRoot);

/// Whether "$V" can hide the markers of the kind: there is one, and in every data set that has such a marker. sType as
/// for setMarkersVisible().
GKBASETOOLS_EXPORT bool canMarkersBeHidden(const MatrixData& root, MarkerKind eKind, const QString& sType);

/// Whether the default value of each "$V" hides all its markers. False without "$V".
GKBASETOOLS_EXPORT bool areMarkersHidden(const MatrixData& root);

/// Writes every "$V" below the root, as one undo step; tells whether one changed. For all markers the default value
/// alone decides (markerDefaultOfAll()), cells keep what they hold. For chosen kinds the default becomes
/// markerDefaultOfRows(), and the cells of their rows the visibility: rows that nobody ever switched are hidden then.
GKBASETOOLS_EXPORT bool setMarkerVisibility(MatrixData& root, const MarkerVisibilityChoice& choice);

/// Writes "$V" in the rows of the kind (sType: the text of "Type" for MarkerKind::Type), as one undo step; tells
/// whether a row changed. False without "$V". The default stays as it is.
GKBASETOOLS_EXPORT bool setMarkersVisible(MatrixData& root, MarkerKind eKind, const QString& sType, bool bVisible);

} // namespace gkBase
