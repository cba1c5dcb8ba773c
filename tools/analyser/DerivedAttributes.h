#pragma once

#include "MatrixColumn.h"
#include "MatrixData.h"
#include "gkBaseToolsExport.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <span>
#include <vector>

namespace gkBase {

class MatrixDataRestore;
class QRelationshipItemModel;
class UnitManager;

/// Puts attributes that were derived in a chart into the tree, all of them as one undo step. They live in a data set
/// of their group's name under the root, which is found or made; group names of data sets whose number of records
/// or source differs get a running number.
class GKBASETOOLS_EXPORT DerivedAttributes
{
public:
    /// Begins the undo step with its text, or (bNewStep false) joins the step before.
    DerivedAttributes(MatrixData& root, const QString& sUndoText, bool bNewStep = true);

    /// The data set of that name, or of name_1, name_2 …, with that many records, for what comes from poSource: one
    /// that holds attributes of another source is left alone. Those of data sets that were read from a file are not
    /// known to have one; the first that writes there is it. Null: any will do.
    MatrixData* dataSet(const QString& sGroup, int iRecords, const MatrixData* poSource);
    /// As above, but the first attribute has these values, or the data set is a new one. With bReplace a data set of
    /// exactly that name with other values makes room. Data sets of other sources are left alone here too.
    MatrixData* dataSetAt(const QString& sGroup, const QString& sDepthName, const MatrixColumn& oDepths,
                          boost::shared_ptr<UnitManager> poUnit, bool bReplace, const MatrixData* poSource = nullptr);
    /// A new data set under the root of that name, made unique, that comes from poSource (may be null).
    MatrixData* newDataSet(const QString& sName, const MatrixData* poSource);
    /// Takes a data set or an attribute out of the tree.
    void remove(MatrixData& node);
    /// The data set's attribute of that name gets the values; it is made, and switched on, when there is none.
    MatrixData* setAttribute(MatrixData& dataSet, const QString& sName, MatrixColumn oValues,
                             boost::shared_ptr<UnitManager> poUnit);
    MatrixData* setAttribute(MatrixData& dataSet, const QString& sName, MatrixColumn oValues,
                             const QString& sUnitCategory);
    /// The same for angles.
    MatrixData* setAngles(MatrixData& dataSet, const QString& sName, std::span<const double> vdDegrees);

private:
    MatrixDataRestore& addRecord(MatrixData& node, bool bRemoval = false);
    static bool isGroupName(const QString& sName, const QString& sGroup);

    MatrixData& m_root;
    QString m_sUndoText;
    bool m_bNewStep;
};

/// Writes the clusters of a model as an attribute of ids from 0; records without a cluster stay empty. Null, and
/// nothing is written, without clusters.
GKBASETOOLS_EXPORT MatrixData* addClusterAttribute(MatrixData& root, const QString& sName,
                                                   const QRelationshipItemModel& model);

/// Writes the last decimation of a model: the depth of each bin, its values ("Decimated:" and the name of x, or dip
/// and azimuth) and the count of its points. bBinAverage false takes the values of the record nearest to the bin's
/// centre. bReplace: an earlier decimation with other bins makes room. poOriginal is the attribute that was
/// decimated; null takes the model's x. Null, and nothing is written, without a decimation.
GKBASETOOLS_EXPORT MatrixData* addDecimationAttributes(MatrixData& root, const QRelationshipItemModel& model,
                                                       bool bBinAverage, bool bReplace, const MatrixData* poOriginal,
                                                       bool bNewStep);

/// Writes the turned orientations of a model as "Rotated:Dip" and "Rotated:Dip Azimuth" (of lines their plunge and
/// azimuth), in degrees; records without a point stay empty. Earlier ones of the same data set are overwritten. Returns
/// the dips; null, and nothing is written, without a rotation.
GKBASETOOLS_EXPORT MatrixData* addRotatedAttributes(MatrixData& root, const QRelationshipItemModel& model);

/// Writes the bias weight of each record, which add up to the number of records, as an attribute of that name, as
/// above. Null, and nothing is written, without a scan line.
GKBASETOOLS_EXPORT MatrixData* addBiasWeightAttribute(MatrixData& root, const QString& sName,
                                                      const QRelationshipItemModel& model);

} // namespace gkBase
