#include "RelationshipSource.h"

#include "MatrixData.h"
#include "UnitManager.h"

#include <utility>

namespace gkBase {

RelationshipSource::Change RelationshipSource::takeChange()
{
    const MatrixData* poNode = get();
    const int iNode = poNode ? poNode->globalID() : -1;
    const quint64 iRevision = poNode ? poNode->revision() : 0;
    QString sUnit;
    if (poNode) {
        const boost::shared_ptr<UnitManager> poUnit = poNode->unitManager();
        sUnit = poUnit->getDisplayUnitTag() + u'/' + QString::number(poUnit->precision());
    }
    const bool bOtherNode = std::exchange(m_iReadNode, iNode) != iNode;
    const bool bOtherRevision = std::exchange(m_iReadRevision, iRevision) != iRevision;
    const bool bOtherUnit = std::exchange(m_sReadUnit, sUnit) != sUnit;
    return bOtherNode ? OtherNode : bOtherRevision || bOtherUnit ? OtherValues : Unchanged;
}

} // namespace gkBase
