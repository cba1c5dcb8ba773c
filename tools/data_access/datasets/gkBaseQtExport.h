#pragma once

#include <QtCore/qglobal.h>

#if defined(gkBaseQt_EXPORTS)
#define GKBASEQT_EXPORT Q_DECL_EXPORT
#else
#define GKBASEQT_EXPORT Q_DECL_IMPORT
#endif
