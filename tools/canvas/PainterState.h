#pragma once

#include <QPainter>

namespace gkBase {

/// Saves a painter's state, and restores it at the end of the scope.
class PainterState
{
public:
    explicit PainterState(QPainter* pPainter)
        : m_pPainter(pPainter)
    {
        m_pPainter->save();
    }
    ~PainterState() { m_pPainter->restore(); }
    PainterState(const PainterState&) = delete;
    PainterState& operator=(const PainterState&) = delete;

private:
    QPainter* m_pPainter;
};

} // namespace gkBase
