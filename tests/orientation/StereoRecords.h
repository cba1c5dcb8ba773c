#pragma once

#include "TestDataSets.h"

#include <gkBase/QRelationshipItemModel.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <vector>

namespace gkTest {

/// Orientations with a model over them.
struct StereoRecords
{
    StereoRecords(const std::vector<double>& vdAngles, const std::vector<double>& vdAzimuths, bool bLines = false)
        : m_poAngles(attribute(QStringLiteral("Dip"), vdAngles))
        , m_poAzimuths(attribute(QStringLiteral("Dip Azimuth"), vdAzimuths))
    {
        m_model.takeNewDataSet(-1, gkBase::QRelationshipItemModel::OrientationDisplay, m_poAngles.get(),
                               m_poAzimuths.get(), nullptr, nullptr, bLines, {});
        m_model.updateOrientationResults();
    }

    /// Even over the hemisphere.
    static StereoRecords even(int iCount, bool bLines = false)
    {
        std::mt19937 generator(17);
        std::uniform_real_distribution<double> uniform(0.0, 1.0);
        std::vector<double> vdAngles(static_cast<std::size_t>(iCount));
        std::vector<double> vdAzimuths(vdAngles.size());
        for (std::size_t i = 0; i < vdAngles.size(); ++i) {
            vdAngles[i] = std::acos(uniform(generator)) * 180.0 / std::numbers::pi;
            vdAzimuths[i] = 360.0 * uniform(generator);
        }
        return {vdAngles, vdAzimuths, bLines};
    }

    std::unique_ptr<gkBase::MatrixData> m_poAngles;
    std::unique_ptr<gkBase::MatrixData> m_poAzimuths;
    gkBase::QRelationshipItemModel m_model;
};

inline void sendMouse(QWidget& widget, QEvent::Type eType, const QPointF& oPosition,
                      Qt::KeyboardModifiers eModifiers = Qt::NoModifier, Qt::MouseButton eButton = Qt::LeftButton)
{
    const Qt::MouseButtons eHeld = eType == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(eButton);
    QMouseEvent event(eType, oPosition, widget.mapToGlobal(oPosition),
                      eType == QEvent::MouseMove ? Qt::NoButton : eButton, eHeld, eModifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void dragMouse(QWidget& widget, const std::vector<QPointF>& voPath,
                      Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
{
    sendMouse(widget, QEvent::MouseButtonPress, voPath.front(), eModifiers);
    for (const QPointF& oPosition : voPath)
        sendMouse(widget, QEvent::MouseMove, oPosition, eModifiers);
    sendMouse(widget, QEvent::MouseButtonRelease, voPath.back(), eModifiers);
}

} // namespace gkTest
