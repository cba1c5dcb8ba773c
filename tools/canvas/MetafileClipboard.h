#pragma once

#include "gkBaseToolsExport.h"

#include <QByteArray>

class QWidget;

namespace gkBase {

/// The type under which other programs look for an enhanced metafile.
inline constexpr char g_sMetafileMimeType[] = "image/x-emf";

/// Replaces the clipboard's contents by an enhanced metafile (EMFDevice::metafile()), on Windows in the system's own
/// format too. The widget is the one that copies. Nothing is said when the clipboard cannot be opened.
GKBASETOOLS_EXPORT void copyMetafileToClipboard(const QByteArray& oMetafile, const QWidget* pqOwner);

} // namespace gkBase
