#pragma once

#include "gkBaseQtExport.h"

#include <QWidget>

class QSlider;
class QSpinBox;

/// An integer spin box coupled with a slider. The slider moves over a grid of steps across the range; a value that is
/// typed or set is not drawn to that grid.
class GKBASEQT_EXPORT QIntSpinBoxWithSlider : public QWidget
{
    Q_OBJECT
public:
    /// bSideBySide: true puts the slider to the right of the box, false above it (for narrow panels).
    explicit QIntSpinBoxWithSlider(int iMin = 0, int iMax = 100, int iSteps = 100, QWidget* pqParent = nullptr,
                                   bool bSideBySide = true);

    /// Sets the range and the number of slider steps (1 to the width of the range, clamped). Bounds in the wrong order
    /// are exchanged. A value outside the new range moves to its nearest bound, with the signal.
    void initialise(int iMin, int iMax, int iSteps);
    int minimum() const;
    int maximum() const;

    int getValue() const;
    /// Step of the box's arrows (default 1); values below 1 count as 1.
    void setSingleStep(int iStep);
    void setSpinBoxWidth(int iPixels);
    /// Unit text behind the number, with its leading space (" px").
    void setSuffix(const QString& sSuffix);
    /// The name that assistive technology reads for the box and the slider.
    void setControlName(const QString& sName);

public slots:
    /// Clamps into the range and emits valueChanged() when the value changes.
    void setValue(int iValue);

signals:
    /// Once for each change, whichever control it came from.
    void valueChanged(int iValue);

private:
    void slotBoxChanged(int iValue);
    void slotSliderChanged(int iPosition);
    void showInSlider();

    QSpinBox* m_pqSpinBox;
    QSlider* m_pqSlider;
};
