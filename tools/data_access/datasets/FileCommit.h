#pragma once

#include "gkBaseQtExport.h"

class QSaveFile;

namespace gkBase {

/// Replaces the file by what was written, when all of it reached the disk. QSaveFile::commit() alone also takes a file
/// whose last part did not fit. False leaves the old file; the reason is the device's errorString().
GKBASEQT_EXPORT bool commitWhole(QSaveFile& oFile);

} // namespace gkBase
