#include "MetafileClipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QString>
#include <QWidget>

#ifdef Q_OS_WIN
#include <cstring>
#include <qt_windows.h>
#endif

namespace gkBase {

#ifdef Q_OS_WIN

namespace {

void setMetafile(const QByteArray& oMetafile)
{
    const HENHMETAFILE hMetafile =
        SetEnhMetaFileBits(static_cast<UINT>(oMetafile.size()), reinterpret_cast<const BYTE*>(oMetafile.constData()));
    // The clipboard owns the handle once it has taken it.
    if (hMetafile && !SetClipboardData(CF_ENHMETAFILE, hMetafile))
        DeleteEnhMetaFile(hMetafile);
}

void setBytes(const QByteArray& oMetafile)
{
    const HGLOBAL hBytes = GlobalAlloc(GMEM_MOVEABLE, static_cast<SIZE_T>(oMetafile.size()));
    if (!hBytes)
        return;
    void* pBytes = GlobalLock(hBytes);
    if (pBytes) {
        std::memcpy(pBytes, oMetafile.constData(), static_cast<std::size_t>(oMetafile.size()));
        GlobalUnlock(hBytes);
    }
    const UINT iFormat = RegisterClipboardFormatA(g_sMetafileMimeType);
    if (!pBytes || !SetClipboardData(iFormat, hBytes))
        GlobalFree(hBytes);
}

} // namespace

void copyMetafileToClipboard(const QByteArray& oMetafile, const QWidget* pqOwner)
{
    if (oMetafile.isEmpty() || !pqOwner)
        return;
    QApplication::clipboard()->clear();
    if (!OpenClipboard(reinterpret_cast<HWND>(pqOwner->effectiveWinId())))
        return;
    EmptyClipboard();
    setMetafile(oMetafile);
    setBytes(oMetafile);
    CloseClipboard();
}

#else

void copyMetafileToClipboard(const QByteArray& oMetafile, const QWidget*)
{
    if (oMetafile.isEmpty())
        return;
    auto* pqData = new QMimeData;
    pqData->setData(QString::fromLatin1(g_sMetafileMimeType), oMetafile);
    QApplication::clipboard()->setMimeData(pqData); // takes it over
}

#endif

} // namespace gkBase
