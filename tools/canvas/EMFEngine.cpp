#include "EMFEngine.h"

#include "EMFDevice.h"

#include <algorithm>
#include <cmath>

namespace gkBase {

namespace {

// Values that records take.
constexpr std::int32_t g_iMapModeText = 1; // one unit per pixel of the reference device, y downwards
constexpr std::int32_t g_iTransparentBackground = 1;
constexpr std::int32_t g_iAlignLeftOnBaseline = 24;
constexpr std::int32_t g_iAlternateFill = 1;
constexpr std::int32_t g_iWindingFill = 2;
constexpr std::int32_t g_iIntersectClip = 1;
constexpr std::int32_t g_iLastSaved = -1;

/// Gradients, hatchings and textures are not among them: the painter then hands over pictures of what they fill.
constexpr QPaintEngine::PaintEngineFeatures features()
{
    return QPaintEngine::PrimitiveTransform | QPaintEngine::PixmapTransform | QPaintEngine::AlphaBlend |
           QPaintEngine::PainterPaths | QPaintEngine::Antialiasing | QPaintEngine::ConstantOpacity |
           QPaintEngine::PaintOutsidePaintEvent;
}

QRect boundsOf(const std::vector<EMFFigure>& vFigures)
{
    QRect oBounds;
    for (const EMFFigure& figure : vFigures)
        oBounds |= EMFRecordWriter::bounds(figure.m_vPoints);
    return oBounds;
}

int mixed(int iColor, int iUnder, double dAlpha)
{
    return static_cast<int>(std::lround(iUnder + (iColor - iUnder) * dAlpha));
}

} // namespace

EMFEngine::EMFEngine()
    : QPaintEngine(features())
    , m_objects(m_writer)
{
}

bool EMFEngine::begin(QPaintDevice* pDevice)
{
    m_pDevice = static_cast<EMFDevice*>(pDevice);
    const QString sPicture = m_pDevice->description();
    m_writer.start(QStringLiteral("2DKastor"), sPicture.isEmpty() ? QStringLiteral("Metafile") : sPicture);
    m_writer.write(EMFRecord::SetMapMode, {g_iMapModeText});
    m_writer.write(EMFRecord::SetBackgroundMode, {g_iTransparentBackground});
    m_writer.write(EMFRecord::SetTextAlign, {g_iAlignLeftOnBaseline});
    m_writer.write(EMFRecord::SaveContext);
    m_oPen = QPen();
    m_oBrush = QBrush();
    m_oTransform = QTransform();
    m_dOpacity = 1.0;
    m_vClips.clear();
    m_bClipEnabled = m_bClipChanged = m_bClippedAway = false;
    m_objects.reset();
    forgetWritten();
    return true;
}

bool EMFEngine::end()
{
    m_writer.write(EMFRecord::RestoreContext, {g_iLastSaved});
    m_objects.deleteAll();
    m_pDevice->m_oMetafile = m_writer.finish(QRectF(m_pDevice->boundingRect()));
    m_pDevice = nullptr;
    return true;
}

// ---- state ---------------------------------------------------------------------------------------------------------

void EMFEngine::updateState(const QPaintEngineState& painterState)
{
    const DirtyFlags flags = painterState.state();
    if (flags & DirtyPen)
        m_oPen = painterState.pen();
    if (flags & DirtyBrush)
        m_oBrush = painterState.brush();
    if (flags & DirtyTransform)
        m_oTransform = painterState.transform();
    if (flags & DirtyOpacity)
        m_dOpacity = painterState.opacity();
    if (flags & (DirtyPen | DirtyBrush | DirtyTransform | DirtyOpacity))
        m_bInkChanged = true;
    if (flags & (DirtyClipEnabled | DirtyClipRegion | DirtyClipPath))
        updateClip(painterState);
}

bool EMFEngine::hasPen() const
{
    return m_oPen.style() != Qt::NoPen && m_oPen.color().alpha() > 0;
}

bool EMFEngine::hasBrush() const
{
    return m_oBrush.style() != Qt::NoBrush && m_oBrush.color().alpha() > 0;
}

bool EMFEngine::prepare(bool bPen, bool bBrush)
{
    if ((!bPen && !bBrush) || !(m_dOpacity > 0.0) || !prepareClip())
        return false;
    if (!m_bInkChanged && bPen == m_bPenSelected && bBrush == m_bBrushSelected)
        return true;
    m_bInkChanged = false;
    m_bPenSelected = bPen;
    m_bBrushSelected = bBrush;
    if (bPen) {
        const bool bScaled = !m_oPen.isCosmetic() && m_oPen.widthF() > 0.0;
        const double dPixels = bScaled ? m_oPen.widthF() * std::sqrt(std::abs(m_oTransform.determinant()))
                                       : std::max(1.0, m_oPen.widthF());
        m_objects.selectPen(m_oPen, dPixels * EMFRecordWriter::s_iUnitsPerPixel, opaque(m_oPen.color()));
    } else {
        m_objects.selectNoPen();
    }
    if (bBrush)
        m_objects.selectBrush(opaque(m_oBrush.color()));
    else
        m_objects.selectNoBrush();
    return true;
}

void EMFEngine::setFillRule(Qt::FillRule eRule)
{
    if (m_eWrittenFillRule == eRule)
        return;
    m_eWrittenFillRule = eRule;
    m_writer.write(EMFRecord::SetPolyFillMode, {eRule == Qt::WindingFill ? g_iWindingFill : g_iAlternateFill});
}

void EMFEngine::setTextColor(const QColor& oColor)
{
    if (m_oWrittenTextColor == oColor)
        return;
    m_oWrittenTextColor = oColor;
    m_writer.write(EMFRecord::SetTextColor, {EMFObjectTable::colorValue(oColor)});
}

QColor EMFEngine::opaque(const QColor& oColor) const
{
    const QColor oUnder = background();
    const double dAlpha = oColor.alphaF() * m_dOpacity;
    return {mixed(oColor.red(), oUnder.red(), dAlpha), mixed(oColor.green(), oUnder.green(), dAlpha),
            mixed(oColor.blue(), oUnder.blue(), dAlpha)};
}

QColor EMFEngine::background() const
{
    return m_pDevice->backgroundColor();
}

// ---- clip ----------------------------------------------------------------------------------------------------------

void EMFEngine::updateClip(const QPaintEngineState& painterState)
{
    m_bClipChanged = true;
    m_bClipEnabled = painterState.isClipEnabled();
    if (!(painterState.state() & (DirtyClipRegion | DirtyClipPath)))
        return;
    if (painterState.clipOperation() != Qt::IntersectClip)
        m_vClips.clear();
    if (painterState.clipOperation() == Qt::NoClip)
        return;
    // A painter that replays its clips does so with the transformation that each was set under.
    QPainterPath path = painterState.clipPath();
    bool bRect = false;
    if (!(painterState.state() & DirtyClipPath)) {
        path = QPainterPath();
        path.addRegion(painterState.clipRegion());
        bRect = painterState.clipRegion().rectCount() <= 1 && painterState.transform().type() <= QTransform::TxScale;
    }
    m_vClips.push_back({painterState.transform().map(path), bRect});
}

bool EMFEngine::prepareClip()
{
    if (!m_bClipChanged)
        return !m_bClippedAway;
    m_bClipChanged = false;
    const std::vector<Clip> vClips = m_bClipEnabled ? m_vClips : std::vector<Clip>();
    QRectF oLeft = vClips.empty() ? QRectF() : vClips.front().m_path.boundingRect();
    for (const Clip& clip : vClips)
        oLeft &= clip.m_path.boundingRect();
    m_bClippedAway = !vClips.empty() && oLeft.isEmpty();
    if (m_bClippedAway)
        return false;
    // Clips can only be narrowed; anything else starts from the context that was saved without one.
    const bool bNarrower = vClips.size() >= m_vWrittenClips.size() &&
                           std::equal(m_vWrittenClips.begin(), m_vWrittenClips.end(), vClips.begin());
    if (!bNarrower)
        restoreContext();
    for (std::size_t i = m_vWrittenClips.size(); i < vClips.size(); ++i)
        writeClip(vClips[i]);
    m_vWrittenClips = vClips;
    return true;
}

void EMFEngine::writeClip(const Clip& clip)
{
    if (clip.m_bRect) {
        m_writer.open(EMFRecord::IntersectClipRect);
        m_writer.put(emfUnits(clip.m_path.boundingRect()));
        m_writer.close();
        return;
    }
    setFillRule(clip.m_path.fillRule());
    writePath(emfFigures(clip.m_path));
    m_writer.write(EMFRecord::SelectClipPath, {g_iIntersectClip});
}

void EMFEngine::restoreContext()
{
    m_writer.write(EMFRecord::RestoreContext, {g_iLastSaved});
    m_writer.write(EMFRecord::SaveContext);
    forgetWritten();
}

void EMFEngine::forgetWritten()
{
    m_vWrittenClips.clear();
    m_eWrittenFillRule = Qt::OddEvenFill;
    m_oWrittenTextColor = Qt::black;
    m_objects.forgetSelection();
    m_bInkChanged = true;
}

// ---- shapes --------------------------------------------------------------------------------------------------------

void EMFEngine::drawRects(const QRectF* pRects, int iRects)
{
    for (int i = 0; i < iRects; ++i) {
        if (m_oTransform.type() > QTransform::TxScale) {
            QPainterPath path;
            path.addRect(pRects[i]);
            drawPath(path);
        } else if (prepare(hasPen(), hasBrush())) {
            m_writer.open(EMFRecord::Rectangle);
            m_writer.put(emfUnits(m_oTransform.mapRect(pRects[i])));
            m_writer.close();
        }
    }
}

void EMFEngine::drawEllipse(const QRectF& oRect)
{
    if (m_oTransform.type() > QTransform::TxScale) {
        QPainterPath path;
        path.addEllipse(oRect);
        drawFigures(emfFigures(m_oTransform.map(path)), path.fillRule());
    } else if (prepare(hasPen(), hasBrush())) {
        m_writer.open(EMFRecord::Ellipse);
        m_writer.put(emfUnits(m_oTransform.mapRect(oRect)));
        m_writer.close();
    }
}

void EMFEngine::drawPath(const QPainterPath& path)
{
    if (const std::optional<QRectF> oRect = ellipseRect(path))
        drawEllipse(*oRect);
    else
        drawFigures(emfFigures(m_oTransform.map(path)), path.fillRule());
}

void EMFEngine::drawPolygon(const QPointF* pPoints, int iPoints, PolygonDrawMode eMode)
{
    const bool bFinite = std::all_of(pPoints, pPoints + iPoints, [](const QPointF& oPoint) {
        return std::isfinite(oPoint.x()) && std::isfinite(oPoint.y());
    });
    if (iPoints < 2 || !bFinite)
        return;
    std::vector<EMFFigure> vFigures(1);
    EMFFigure& figure = vFigures.front();
    figure.m_bClosed = eMode != PolylineMode;
    figure.m_vPoints.reserve(static_cast<std::size_t>(iPoints));
    for (int i = 0; i < iPoints; ++i)
        figure.m_vPoints.push_back(emfUnits(m_oTransform.map(pPoints[i])));
    if (eMode != PolylineMode)
        drawFigures(vFigures, eMode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
    else if (hasPen() && prepare(true, false))
        writeOutline(figure);
}

void EMFEngine::drawFigures(const std::vector<EMFFigure>& vFigures, Qt::FillRule eRule)
{
    if (vFigures.empty())
        return;
    // Filling together with an outline would close open figures.
    const bool bAllClosed =
        std::all_of(vFigures.begin(), vFigures.end(), [](const EMFFigure& figure) { return figure.m_bClosed; });
    const bool bTogether = hasBrush() && hasPen() && bAllClosed;
    if (hasBrush() && prepare(bTogether, true))
        writeFilled(vFigures, eRule, bTogether);
    if (!hasPen() || bTogether || !prepare(true, false))
        return;
    for (const EMFFigure& figure : vFigures)
        writeOutline(figure);
}

void EMFEngine::writeFilled(const std::vector<EMFFigure>& vFigures, Qt::FillRule eRule, bool bOutlined)
{
    setFillRule(eRule);
    const bool bCurved =
        std::any_of(vFigures.begin(), vFigures.end(), [](const EMFFigure& figure) { return figure.m_bCurved; });
    if (bCurved)
        writePainted(bOutlined ? EMFRecord::StrokeAndFillPath : EMFRecord::FillPath, vFigures);
    else if (vFigures.size() > 1)
        writePolygons(vFigures);
    else
        m_writer.writePoints(EMFRecord::Polygon, vFigures.front().m_vPoints);
}

void EMFEngine::writeOutline(const EMFFigure& figure)
{
    if (figure.m_bCurved && figure.m_bClosed)
        writePainted(EMFRecord::StrokePath, {figure});
    else if (figure.m_bCurved)
        m_writer.writePoints(EMFRecord::PolyBezier, figure.m_vPoints);
    else
        m_writer.writePoints(figure.m_bClosed ? EMFRecord::Polygon : EMFRecord::Polyline, figure.m_vPoints);
}

void EMFEngine::writePath(const std::vector<EMFFigure>& vFigures)
{
    m_writer.write(EMFRecord::BeginPath);
    for (const EMFFigure& figure : vFigures) {
        const QPoint& oStart = figure.m_vPoints.front();
        m_writer.write(EMFRecord::MoveTo, {oStart.x(), oStart.y()});
        m_writer.writePoints(figure.m_bCurved ? EMFRecord::PolyBezierTo : EMFRecord::PolylineTo,
                             std::span(figure.m_vPoints).subspan(1));
        if (figure.m_bClosed)
            m_writer.write(EMFRecord::CloseFigure);
    }
    m_writer.write(EMFRecord::EndPath);
}

void EMFEngine::writePainted(EMFRecord ePaint, const std::vector<EMFFigure>& vFigures)
{
    writePath(vFigures);
    m_writer.open(ePaint);
    m_writer.put(boundsOf(vFigures));
    m_writer.close();
}

void EMFEngine::writePolygons(const std::vector<EMFFigure>& vFigures)
{
    std::size_t iPoints = 0;
    for (const EMFFigure& figure : vFigures)
        iPoints += figure.m_vPoints.size();
    m_writer.open(EMFRecord::PolyPolygon);
    m_writer.put(boundsOf(vFigures));
    m_writer.put(static_cast<std::int32_t>(vFigures.size()));
    m_writer.put(static_cast<std::int32_t>(iPoints));
    for (const EMFFigure& figure : vFigures)
        m_writer.put(static_cast<std::int32_t>(figure.m_vPoints.size()));
    for (const EMFFigure& figure : vFigures)
        m_writer.put(figure.m_vPoints);
    m_writer.close();
}

} // namespace gkBase
