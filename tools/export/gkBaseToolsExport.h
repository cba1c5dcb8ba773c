#pragma once

#include <QtCore/qglobal.h>

#if defined(gkBaseTools_EXPORTS)
#define GKBASETOOLS_EXPORT Q_DECL_EXPORT
#else
#define GKBASETOOLS_EXPORT Q_DECL_IMPORT
#endif
