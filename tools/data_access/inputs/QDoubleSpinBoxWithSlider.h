#pragma once

#include "gkBaseQtExport.h"

#include <QWidget>

class QDoubleSpinBox;
class QSlider;

/// A double spin box coupled with a slider. The slider moves over a grid of steps across the range; a value that is
/// typed or set keeps all its digits and is not drawn to that grid, and a set value is not rounded to the shown
/// decimals either.
class GKBASEQT_EXPORT QDoubleSpinBoxWithSlider : public QWidget
{
    Q_OBJECT
public:
    /// bSideBySide: true puts the slider to the right of the box, false above it (for narrow panels).
    explicit QDoubleSpinBoxWithSlider(double dMin = 0.0, double dMax = 100.0, int iSteps = 100,
                                      QWidget* pqParent = nullptr, bool bSideBySide = true);

    /// Sets the range and the number of slider steps (at least 1). Bounds in the wrong order are exchanged, bounds that
    /// are not finite are ignored altogether. A value outside the new range moves to its nearest bound, with the
    /// signal.
    void initialise(double dMin, double dMax, int iSteps);
    double minimum() const { return m_dMin; }
    double maximum() const { return m_dMax; }

    /// The value as set, typed or picked, not as rounded for display.
    double getValue() const { return m_dValue; }
    /// Decimals shown in the box; values picked with the slider are rounded to them.
    void setDecimals(int iDecimals);
    void setSpinBoxWidth(int iPixels);
    /// Unit text behind the number, with its leading space (" m").
    void setSuffix(const QString& sSuffix);
    /// Step of the box's arrows; 0 (default) takes a 1-2-5 value near the slider's step.
    void setSingleStep(double dStep);
    /// The name that assistive technology reads for the box and the slider.
    void setControlName(const QString& sName);

public slots:
    /// Clamps into the range and emits valueChanged() when the value changes; NaN is ignored.
    void setValue(double dValue);

signals:
    /// Once for each change, whichever control it came from.
    void valueChanged(double dValue);

private:
    void slotBoxChanged(double dValue);
    void slotSliderChanged(int iPosition);
    void takeValue(double dValue);
    void showInBox();
    void showInSlider();
    void updateSteps();

    QDoubleSpinBox* m_pqSpinBox;
    QSlider* m_pqSlider;
    double m_dMin = 0.0;
    double m_dMax = 0.0;
    double m_dValue = 0.0;
    double m_dSingleStep = 0.0; ///< 0: chosen from the range
};
