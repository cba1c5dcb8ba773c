#include "EMFDevice.h"

#include "EMFEngine.h"

#include <algorithm>
#include <limits>

namespace gkBase {

namespace {

constexpr double g_dMillimetresPerInch = 25.4;
constexpr int g_iColorDepth = 24;

int millimetres(int iPixels)
{
    return qRound(iPixels * g_dMillimetresPerInch / EMFRecordWriter::s_iPixelsPerInch);
}

} // namespace

EMFDevice::EMFDevice(const QString& sDescription)
    : m_sDescription(sDescription)
    , m_poEngine(std::make_unique<EMFEngine>())
{
}

EMFDevice::~EMFDevice() = default;

QPaintEngine* EMFDevice::paintEngine() const
{
    return m_poEngine.get();
}

int EMFDevice::metric(PaintDeviceMetric eMetric) const
{
    // The device reaches from (0, 0) to the far corner of the picture, wherever that starts.
    const int iWidth = std::max(0, m_oBoundingRect.right() + 1);
    const int iHeight = std::max(0, m_oBoundingRect.bottom() + 1);
    switch (eMetric) {
    case PdmWidth:
        return iWidth;
    case PdmHeight:
        return iHeight;
    case PdmWidthMM:
        return millimetres(iWidth);
    case PdmHeightMM:
        return millimetres(iHeight);
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDepth:
        return g_iColorDepth;
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return EMFRecordWriter::s_iPixelsPerInch;
    case PdmDevicePixelRatio:
        return 1;
    default:
        return QPaintDevice::metric(eMetric);
    }
}

} // namespace gkBase
