#pragma once

#include <QString>

namespace gkBase {
class MatrixData;
}

namespace gkHost {

/// The attribute of a data set that a command names: NAME in exact case, else NAME in any case, else "DATA SET: NAME"
/// with the name of this data set. Null when there is none.
gkBase::MatrixData* attributeNamed(const gkBase::MatrixData& dataSet, const QString& sName);

/// True when sName begins with the data set's name and a colon.
bool namesDataSet(const QString& sName, const gkBase::MatrixData& dataSet);

} // namespace gkHost
