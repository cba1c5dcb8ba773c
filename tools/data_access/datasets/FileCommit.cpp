#include "FileCommit.h"

#include <QSaveFile>

namespace gkBase {

bool commitWhole(QSaveFile& oFile)
{
    if (oFile.error() != QFileDevice::NoError)
        return false;
    // A disk that fills up takes a part and gives the reason with the next call only.
    if (!oFile.flush()) {
        oFile.unsetError();
        if (!oFile.flush())
            return false;
    }
    return oFile.commit();
}

} // namespace gkBase
