#pragma once

#include "DepthPlotSettings.h"
#include "gkBaseToolsExport.h"

#include <QString>
#include <QVariant>

#include <vector>

namespace gkBase {

class MatrixData;

/// A line across the tracks that a record with a name asks for.
struct DepthMarker
{
    enum Kind
    {
        Top,
        Horizon,
        Fault,
        Scat ///< a structural plane of the dipmeter window
    };

    double m_dDepth = 0.0; ///< model units of the well's depth
    Kind m_eKind = Top;
    QString m_sName;

    bool operator==(const DepthMarker&) const = default;
};

/// A decimated plane, drawn as a large tadpole.
struct DepthTadpole
{
    double m_dDepth = 0.0;
    double m_dDip = 0.0;
    double m_dAzimuth = 0.0;

    bool operator==(const DepthTadpole&) const = default;
};

/// What marker attributes say that a depth plot should show.
struct DepthMarkers
{
    std::vector<DepthMarker> m_vLines; ///< by rising depth
    std::vector<DepthTadpole> m_vTadpoles;

    bool operator==(const DepthMarkers&) const = default;
};

/// The default value of "$V" that shows or hides all markers, whatever their own cells say.
GKBASETOOLS_EXPORT QVariant markerDefaultOfAll(bool bVisible);
/// The default value of "$V" that hides the markers whose cells are empty and lets the others decide for themselves.
GKBASETOOLS_EXPORT QVariant markerDefaultOfRows();
GKBASETOOLS_EXPORT bool isMarkerDefaultOfAll(const QVariant& qDefault);

/// Collects the markers that the data sets of one well below the root have, in the model unit of poDepth, and the
/// decimated tadpoles: the records of such a set that have both "Decimated:dip" and "Decimated:azimuth" (in any case).
/// The well is that of the data set of poDepth; which data sets are of the same one wellOf() tells. Records that "$V"
/// switches off are left out, and so are kinds that are switched off. Nothing without a root or depth. Linear in the
/// number of records.
///
/// Text attributes make a marker of a record: "Top", "Horizon" and "Fault" hold the name of a marker of that kind;
/// "Type" holds the kind ("Top", "Horizon", "Fault" or a structural plane such as "Axial Plane") of a record that none
/// of them names, and "Name", where there is one, its name.
///
/// "$V": a default value that is a bool decides for all records of its data set; the same goes, by the first "$V" of
/// the tree, for data sets without one. With any other default the cells decide: a number other than 0 (or true) shows
/// the record, 0 hides it, and an empty cell follows the default, or is shown when there is none.
GKBASETOOLS_EXPORT DepthMarkers collectDepthMarkers(const MatrixData* poRoot, const MatrixData* poDepth,
                                                    const DepthMarkerSwitches& switches);

} // namespace gkBase
