#include "MatrixDataNotifier.h"

#include "MatrixData.h"

namespace gkBase {

bool MatrixDataNotifier::contains(const MatrixData* poBranch, const MatrixData* poNode)
{
    if (!poBranch)
        return false;
    for (; poNode; poNode = poNode->parentNode())
        if (poNode == poBranch)
            return true;
    return false;
}

} // namespace gkBase
