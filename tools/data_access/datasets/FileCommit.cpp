#include "FileCommit.h"

#include <QSaveFile>

namespace gkBase {

bool commitWhole(QSaveFile& oFile)
{
    return oFile.flush() && oFile.error() == QFileDevice::NoError && oFile.commit();
}

} // namespace gkBase
