#include "StereoNetSettings.h"

#include <QCoreApplication>

namespace gkBase {

const char* stereoResultName(StereoResult eResult)
{
    static constexpr const char* apNames[g_iStereoResults] = {
        QT_TRANSLATE_NOOP("StereoResult", "Mean Resultant Pole"),
        QT_TRANSLATE_NOOP("StereoResult", "Mean Principal Pole"),
        QT_TRANSLATE_NOOP("StereoResult", "T Pole"),
        QT_TRANSLATE_NOOP("StereoResult", "L Pole"),
        QT_TRANSLATE_NOOP("StereoResult", "Mean Resultant Azimuth"),
        QT_TRANSLATE_NOOP("StereoResult", "Mean Principal Azimuth"),
        QT_TRANSLATE_NOOP("StereoResult", "T Azimuth"),
        QT_TRANSLATE_NOOP("StereoResult", "L Azimuth"),
        QT_TRANSLATE_NOOP("StereoResult", "Mean Principal Plane"),
        QT_TRANSLATE_NOOP("StereoResult", "Mean Resultant Plane"),
        QT_TRANSLATE_NOOP("StereoResult", "Suggested Section Plane"),
        QT_TRANSLATE_NOOP("StereoResult", "Best-Fit Girdle"),
        QT_TRANSLATE_NOOP("StereoResult", "α95"),
    };
    const auto i = static_cast<std::size_t>(eResult);
    return i < g_iStereoResults ? apNames[i] : "";
}

} // namespace gkBase
