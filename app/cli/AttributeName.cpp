#include "AttributeName.h"

#include <gkBase/MatrixData.h>

namespace gkHost {

namespace {

gkBase::MatrixData* childNamed(const gkBase::MatrixData& dataSet, const QString& sName)
{
    for (const Qt::CaseSensitivity eCase : {Qt::CaseSensitive, Qt::CaseInsensitive})
        for (int i = 0; i < dataSet.childCount(); ++i)
            if (dataSet.child(i)->name().compare(sName, eCase) == 0)
                return dataSet.child(i);
    return nullptr;
}

} // namespace

bool namesDataSet(const QString& sName, const gkBase::MatrixData& dataSet)
{
    return sName.startsWith(dataSet.name() + QLatin1Char(':'), Qt::CaseInsensitive);
}

gkBase::MatrixData* attributeNamed(const gkBase::MatrixData& dataSet, const QString& sName)
{
    gkBase::MatrixData* poAttribute = childNamed(dataSet, sName);
    if (!poAttribute && namesDataSet(sName, dataSet))
        poAttribute = childNamed(dataSet, sName.mid(dataSet.name().size() + 1).trimmed());
    return poAttribute;
}

} // namespace gkHost
