#pragma once

#include "gkBaseToolsExport.h"

#include <QString>
#include <Qt>

#include <unordered_map>
#include <vector>

namespace gkBase {

class MatrixData;

/// The parents of the attributes below a node, each once, in tree order.
GKBASETOOLS_EXPORT std::vector<MatrixData*> dataSetsBelow(const MatrixData& node);

/// Records of the longest attribute of a data set.
GKBASETOOLS_EXPORT int recordsOf(const MatrixData& dataSet);

/// The attribute of that name in a data set, null when there is none.
GKBASETOOLS_EXPORT MatrixData* attributeNamed(const MatrixData& dataSet, const QString& sName,
                                              Qt::CaseSensitivity eCase = Qt::CaseSensitive);

/// Notes that the rows of a data set were derived from those of another one. Known as long as the root lives; it is
/// neither saved nor copied.
GKBASETOOLS_EXPORT void noteSource(MatrixData& dataSet, const MatrixData& source);
/// The identifier (MatrixData::globalID()) of that other data set, −1 when none was noted.
GKBASETOOLS_EXPORT int sourceID(MatrixData& dataSet);

/// True for a data set whose rows mark places along a well instead of being measurements: one of decimated data, or
/// one with a marker attribute ("Top", "Horizon", "Fault", "Type", as texts) that either holds no numbers but depths
/// and "$V", or has "Type" and with it "$V" or "Origin".
GKBASETOOLS_EXPORT bool isMarkerTable(const MatrixData& dataSet);

/// The data set of measurements that stands for the well of a data set:
/// - the well of the data set that its rows were derived from (noteSource()),
/// - the well of the data set that it stands below in the tree,
/// - of a marker table the data set whose name, and a blank, its own begins with, the longest of them ("A Tops" and
///   "A Markers" go with "A", and "A Tops_1" with "A_1" when there is one), among those with the same parent,
/// - of a marker table that names no data set the only well of its branch of the tree,
/// - itself, if it is no marker table.
/// Null for a marker table that may be of several wells, or of none.
GKBASETOOLS_EXPORT MatrixData* wellOf(MatrixData& dataSet);

/// wellOf() of many data sets, which finds out once what it has to know of each. Valid while their trees stay as they
/// are.
class GKBASETOOLS_EXPORT WellFinder
{
public:
    MatrixData* wellOf(MatrixData& dataSet);

private:
    struct Kind
    {
        bool m_bDepth = false;   ///< has a depth
        bool m_bMarkers = false; ///< isMarkerTable()
        bool m_bWell = false;    ///< measurements along a depth
    };

    const Kind& kindOf(const MatrixData& dataSet);
    /// The data sets of measurements below a node that are not part of another one.
    const std::vector<MatrixData*>& wellsBelow(const MatrixData& branch);
    /// What the data set's name begins with; null for none.
    MatrixData* namesake(const MatrixData& dataSet, const MatrixData& parent);
    /// The well below the nearest node above that has one; null when there are several.
    MatrixData* onlyWellAround(const MatrixData& dataSet);
    /// One step towards the well; the data set itself when it is one.
    MatrixData* nextTowardsWell(MatrixData& dataSet);

    std::unordered_map<const MatrixData*, Kind> m_kinds;
    std::unordered_map<const MatrixData*, std::vector<MatrixData*>> m_wellsBelow;
};

} // namespace gkBase
