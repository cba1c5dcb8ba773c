#pragma once

#include "TestDataSets.h"

#include <gkBase/DepthLineField.h>
#include <gkBase/MatrixData.h>
#include <gkBase/QCrossPlot.h>
#include <gkBase/QRelationshipItemModel.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <memory>
#include <random>
#include <utility>
#include <vector>

/// A cross plot's canvas for tests, and the gestures of a user on it.
namespace gkTest {

inline void send(QWidget& widget, QEvent::Type eType, const QPointF& oPosition,
                 Qt::MouseButton eButton = Qt::LeftButton, Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
{
    const Qt::MouseButtons eHeld = eType == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(eButton);
    QMouseEvent event(eType, oPosition, widget.mapToGlobal(oPosition),
                      eType == QEvent::MouseMove ? Qt::NoButton : eButton, eHeld, eModifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

/// A drag without its release.
inline void press(QWidget& widget, const std::vector<QPointF>& voPath, Qt::MouseButton eButton = Qt::LeftButton,
                  Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
{
    send(widget, QEvent::MouseButtonPress, voPath.front(), eButton, eModifiers);
    for (std::size_t i = 1; i < voPath.size(); ++i)
        send(widget, QEvent::MouseMove, voPath[i], eButton, eModifiers);
}

inline void drag(QWidget& widget, const std::vector<QPointF>& voPath, Qt::MouseButton eButton = Qt::LeftButton,
                 Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
{
    press(widget, voPath, eButton, eModifiers);
    send(widget, QEvent::MouseButtonRelease, voPath.back(), eButton, eModifiers);
}

inline void pressKey(QWidget& widget, int iKey)
{
    QKeyEvent event(QEvent::KeyPress, iKey, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

inline std::vector<QPointF> box(double dLeft, double dTop, double dRight, double dBottom)
{
    return {{dLeft, dTop}, {dRight, dTop}, {dRight, dBottom}, {dLeft, dBottom}};
}

/// Random points in 0 … 100 on a canvas of 400 × 300 whose y grows upwards.
struct Plot
{
    explicit Plot(int iCount = 2000)
    {
        std::mt19937 generator(11);
        std::uniform_real_distribution<double> uniform(0.0, 100.0);
        std::vector<double> vdX(static_cast<std::size_t>(iCount));
        std::vector<double> vdY(static_cast<std::size_t>(iCount));
        for (std::size_t i = 0; i < vdX.size(); ++i) {
            vdX[i] = uniform(generator);
            vdY[i] = uniform(generator);
        }
        vdY[5] = 99999.0;
        m_poX.reset(attribute(QStringLiteral("Porosity"), vdX));
        m_poY.reset(attribute(QStringLiteral("Density"), vdY));
        m_model.takeNewDataSet(m_poX.get(), m_poY.get());
        m_plot.resize(400, 300);
        m_plot.setModel(&m_model);
        m_plot.setRange({0.0, 0.0}, {100.0, 100.0});
    }
    gkBase::DepthLineField& tops()
    {
        if (!m_model.structuralTops())
            m_model.addStructuralTopsSenario(QStringLiteral("Tops"));
        return *m_model.structuralTops();
    }
    void addLines(const std::vector<double>& vdDepths)
    {
        for (const double dDepth : vdDepths)
            tops().insertHorizontalLine(dDepth, 0.0, QStringLiteral("Top"), Qt::red, gkBase::DepthLineField::Horizon);
    }
    /// The row of the widget at a y in chart units.
    double rowAt(double dY) { return m_plot.transformInPixelPoint({0.0, dY}).y() - m_plot.pixmapRect().top(); }

    std::unique_ptr<gkBase::MatrixData> m_poX;
    std::unique_ptr<gkBase::MatrixData> m_poY;
    gkBase::QRelationshipItemModel m_model;
    gkBase::QCrossPlot m_plot;
};

} // namespace gkTest
