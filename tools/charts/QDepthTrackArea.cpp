#include "QDepthTrackArea.h"

#include "DepthTrackHeader.h"
#include "ElidedLabel.h"
#include "MatrixData.h"
#include "QCartesianAxisWidget.h"
#include "QDepthTrackPlot.h"
#include "QRelationshipItemModel.h"
#include "UnitManager.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace gkBase {

QDepthTrackArea::QDepthTrackArea(QWidget* pqParent, Lines eLines)
    : QWidget(pqParent)
    , m_pLines(new QRelationshipItemModel(this))
    , m_eLines(eLines)
    , m_oChartFont(font())
{
    createSurroundings();
    setBlackBackground(false);
    layoutTracks();
}

QDepthTrackArea::~QDepthTrackArea() = default;

void QDepthTrackArea::createSurroundings()
{
    m_pqFrame = new QFrame(this);
    m_pqFrame->setFrameShape(QFrame::StyledPanel);
    m_pqFrame->setAutoFillBackground(true);
    m_pqTitle = new ElidedLabel(m_pqFrame);
    m_pqTitle->setTextFormat(Qt::PlainText);
    QFont oBold = m_oChartFont;
    oBold.setBold(true);
    m_pqTitle->setFont(oBold);
    m_pqDepthHeader = new DepthTrackHeader(m_pqFrame);
    m_pqAxis = new QCartesianAxisWidget(QCartesianAxisWidget::Left, m_pqFrame);
    m_pqAxis->setInverted(true);
    m_pqAxis->setDrawTitle(false); // it stands in the header
    m_pqViewport = new QWidget(m_pqFrame);
    m_pqContent = new QWidget(m_pqViewport);
    m_pqMarkerColumn = new QDepthTrackPlot(m_pqFrame, tr("Markers"));
    m_pqMarkerColumn->setShowMarkerLabels(true);
    m_pqMarkerColumn->setGridIsOn(false); // lines would strike the labels out
    m_pqMarkerColumn->hide();
    connectPlot(m_pqMarkerColumn);
    m_pqMessage = new QLabel(m_pqFrame);
    m_pqMessage->setTextFormat(Qt::PlainText);
    m_pqMessage->setAlignment(Qt::AlignCenter);
    m_pqMessage->setWordWrap(true);
    m_pqMessage->hide();
    m_pqVerticalScrollBar = new QScrollBar(Qt::Vertical, this);
    m_pqVerticalScrollBar->setAccessibleName(tr("Position in the zoomed tracks"));
    m_pqHorizontalScrollBar = new QScrollBar(Qt::Horizontal, this);
    m_pqHorizontalScrollBar->setAccessibleName(tr("Position in the row of tracks"));
    connect(m_pqVerticalScrollBar, &QScrollBar::valueChanged, this, &QDepthTrackArea::panToRow);
    connect(m_pqHorizontalScrollBar, &QScrollBar::valueChanged, this,
            [this](int iValue) { m_pqContent->move(-iValue, 0); });
}

// ---- tracks ---------------------------------------------------------------------------------------------------------

void QDepthTrackArea::connectPlot(QDepthTrackPlot* pqPlot)
{
    connect(m_pqAxis, &QCartesianAxisWidget::gridLinesChanged, pqPlot, &QDepthTrackPlot::horizontalGridLinesChanged);
    connect(pqPlot, &QDepthTrackPlot::zoomAsked, this, &QDepthTrackArea::slotZoomAsked);
    connect(pqPlot, &QDepthTrackPlot::panAsked, this,
            [this, pqPlot](int iPixels) { panToRow(pqPlot->pixmapRect().top() + iPixels); });
    connect(pqPlot, &QChartDrawingArea::cursorPos, this,
            [this](const QPointF& oPosition) { setCursor(oPosition.y()); });
    connect(pqPlot, &QDepthTrackPlot::boundaryPressed, this, &QDepthTrackArea::boundaryPressed);
    connect(pqPlot, &QChartDrawingArea::dataPointsSelection, this,
            [this, pqPlot](bool* pbSelection, int iLength) { slotSelectionMade(pqPlot, pbSelection, iLength); });
    connect(pqPlot, &QChartDrawingArea::signalCopyToClipboard, this, &QDepthTrackArea::copyAsked);
    connect(pqPlot, &QCrossPlot::signalCopyWEMFToClipboard, this, &QDepthTrackArea::metafileCopyAsked);
    pqPlot->allowCopyToWMF(true);
}

QDepthTrackArea::View QDepthTrackArea::newView(int iTrack)
{
    View view;
    view.m_pModel = new QRelationshipItemModel(this);
    if (m_eLines == Lines::Shared)
        view.m_pModel->shareLines(*m_pLines);
    view.m_bGrid = m_bGrid;
    view.m_pqPlot = new QDepthTrackPlot(m_pqContent, tr("Depth Plot"));
    view.m_pqPlot->setModel(view.m_pModel);
    view.m_pqPlot->setDepthRange(m_dFrom, m_dTo);
    view.m_pqPlot->setMarkers(m_pMarkers);
    view.m_pqPlot->setBoundaryEditing(m_bBoundaryEditing);
    view.m_pqPlot->horizontalGridLinesChanged(m_pqAxis->gridLines());
    view.m_pqPlot->zoomY(m_dZoom);
    view.m_pqHeader = new DepthTrackHeader(m_pqContent);
    applyLooks(view.m_pqPlot);
    applyLooks(view.m_pqHeader);
    view.m_pqPlot->setGridIsOn(view.m_bGrid);
    connectPlot(view.m_pqPlot);
    connect(view.m_pqHeader, &DepthTrackHeader::clicked, this, [this, iTrack] { emit trackClicked(iTrack); });
    view.m_pqPlot->show();
    view.m_pqHeader->show();
    return view;
}

void QDepthTrackArea::removeLastView()
{
    const View view = m_vViews.back();
    m_vViews.pop_back();
    // A signal of the plot itself may be what asks for it.
    view.m_pqPlot->hide();
    view.m_pqPlot->setModel(nullptr);
    view.m_pqPlot->deleteLater();
    view.m_pqHeader->hide();
    view.m_pqHeader->deleteLater();
    delete view.m_pModel;
}

void QDepthTrackArea::fillView(View& view)
{
    QRelationshipItemModel* pModel = view.m_pModel;
    MatrixData* poValues = view.m_oTrack.m_poValues.get();
    if (!poValues || !m_poDepth) {
        pModel->clear();
        pModel->setTadPoleAzimuthDataNode(nullptr);
        pModel->setTadPoleQuality(nullptr, 0.0);
    } else {
        pModel->takeNewDataSet(m_iRecords, QRelationshipItemModel::DepthDisplay, poValues, m_poDepth.get(),
                               m_viTableRows);
        const bool bTadpoles = view.m_oTrack.m_eKind == DepthTrack::Tadpoles;
        pModel->setTadPoleAzimuthDataNode(bTadpoles ? view.m_oTrack.m_poAzimuth.get() : nullptr);
        pModel->setTadPoleQuality(bTadpoles ? view.m_oTrack.m_poQuality.get() : nullptr,
                                  view.m_oTrack.m_dMinimumQuality);
        pModel->setSelectedRecords(m_viSelected);
    }
    showTrack(view);
}

void QDepthTrackArea::showTrack(View& view)
{
    const DepthTrackStyle& style = view.m_oTrack.m_oStyle;
    const bool bTadpoles = view.m_oTrack.m_eKind == DepthTrack::Tadpoles;
    view.m_pModel->setDrawSymbols(style.m_bPoints || bTadpoles);
    view.m_pModel->setPointPixelSize(style.m_iPointSize);
    view.m_pqPlot->setTrack(view.m_oTrack);
    view.m_pqPlot->setPointFillColor(view.m_oTrack.pointColor());
    view.m_pqPlot->verticalGridLinesChanged(gridColumns(view.m_oTrack, view.m_pqPlot->width()));
    view.m_pqHeader->setContent(depthTrackHeaderContent(view.m_oTrack));
}

void QDepthTrackArea::setDepth(MatrixData* poDepth, int iRecords)
{
    m_poDepth = MatrixDataPointer(poDepth);
    m_iRecords = iRecords;
    m_bOrderOutdated = true;
    m_viSelected.clear();
    m_pqAxis->setUnitManager(poDepth ? poDepth->unitManager() : boost::shared_ptr<UnitManager>());
    showDepthHeader();
    for (View& view : m_vViews)
        fillView(view);
    showWholeRange();
    layoutTracks();
}

void QDepthTrackArea::showDepthHeader()
{
    const DepthTrack depth = DepthTrack::curve(m_poDepth.get());
    DepthTrackHeaderContent content;
    content.m_sName = depth.name();
    content.m_sUnit = depth.unitTag();
    content.m_bLine = false;
    m_pqDepthHeader->setContent(content);
}

void QDepthTrackArea::setTracks(const std::vector<DepthTrack>& vTracks)
{
    while (m_vViews.size() > vTracks.size())
        removeLastView();
    while (m_vViews.size() < vTracks.size())
        m_vViews.push_back(newView(numberOfTracks()));
    for (std::size_t i = 0; i < vTracks.size(); ++i) {
        m_vViews[i].m_oTrack = vTracks[i];
        m_vViews[i].m_pqPlot->setDecimation({});
        fillView(m_vViews[i]);
    }
    layoutTracks();
}

void QDepthTrackArea::setTrack(int iTrack, const DepthTrack& track)
{
    if (iTrack < 0 || iTrack >= numberOfTracks())
        return;
    View& view = m_vViews[static_cast<std::size_t>(iTrack)];
    view.m_oTrack = track;
    view.m_pModel->setTadPoleQuality(track.m_poQuality.get(), track.m_dMinimumQuality);
    showTrack(view);
}

void QDepthTrackArea::refillTrack(int iTrack, const DepthTrack& track)
{
    if (iTrack < 0 || iTrack >= numberOfTracks())
        return;
    View& view = m_vViews[static_cast<std::size_t>(iTrack)];
    view.m_oTrack = track;
    fillView(view);
}

std::vector<DepthTrack> QDepthTrackArea::tracks() const
{
    std::vector<DepthTrack> vTracks;
    for (const View& view : m_vViews)
        vTracks.push_back(view.m_oTrack);
    return vTracks;
}

QDepthTrackPlot* QDepthTrackArea::plot(int iTrack) const
{
    return iTrack >= 0 && iTrack < numberOfTracks() ? m_vViews[static_cast<std::size_t>(iTrack)].m_pqPlot : nullptr;
}

QRelationshipItemModel* QDepthTrackArea::model(int iTrack) const
{
    return iTrack >= 0 && iTrack < numberOfTracks() ? m_vViews[static_cast<std::size_t>(iTrack)].m_pModel : nullptr;
}

std::vector<QDepthTrackPlot*> QDepthTrackArea::allPlots() const
{
    std::vector<QDepthTrackPlot*> vpPlots{m_pqMarkerColumn};
    for (const View& view : m_vViews)
        vpPlots.push_back(view.m_pqPlot);
    return vpPlots;
}

void QDepthTrackArea::refresh(int iRecords)
{
    m_iRecords = iRecords;
    m_bOrderOutdated = true;
    showDepthHeader();
    if (m_bWholeRange)
        showWholeRange();
    for (View& view : m_vViews)
        fillView(view);
    layoutTracks();
}

void QDepthTrackArea::setTableRows(const std::vector<int>& viRecords)
{
    if (viRecords == m_viTableRows)
        return;
    m_viTableRows = viRecords;
    for (View& view : m_vViews)
        fillView(view);
}

bool QDepthTrackArea::setSelectedRecords(const std::vector<int>& viRecords)
{
    if (viRecords == m_viSelected)
        return false;
    m_viSelected = viRecords;
    for (View& view : m_vViews) {
        if (view.m_pModel->setSelectedRecords(viRecords))
            view.m_pqPlot->scheduleRedraw();
    }
    return true;
}

int QDepthTrackArea::trackOf(const QDepthTrackPlot* pqPlot) const
{
    const auto it =
        std::find_if(m_vViews.begin(), m_vViews.end(), [pqPlot](const View& v) { return v.m_pqPlot == pqPlot; });
    return it == m_vViews.end() ? -1 : static_cast<int>(it - m_vViews.begin());
}

void QDepthTrackArea::slotSelectionMade(QDepthTrackPlot* pqPlot, bool* pbSelection, int iLength)
{
    const int iTrack = trackOf(pqPlot);
    QRelationshipItemModel* pModel = model(iTrack);
    if (m_bKeepsSelection && (!pModel || pModel->numberOfSelectedPoints() == 0)) {
        if (pModel && pModel->setSelectedRecords(m_viSelected))
            pqPlot->scheduleRedraw();
        if (pModel && !pqPlot->gestureIsUnderWay()) // the press of a pick clears the model, too, and goes on
            emit nothingSelected(iTrack);
        return;
    }
    if (pModel)
        m_viSelected = pModel->selectedRecords();
    for (View& view : m_vViews) {
        if (view.m_pqPlot != pqPlot && view.m_pModel->setSelectedRecords(m_viSelected))
            view.m_pqPlot->scheduleRedraw();
    }
    emit selectionMade(pbSelection, iLength, iTrack);
}

void QDepthTrackArea::setMarkers(std::shared_ptr<const DepthMarkers> pMarkers)
{
    m_pMarkers = std::move(pMarkers);
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->setMarkers(m_pMarkers);
    layoutTracks();
}

void QDepthTrackArea::setDecimation(int iTrack, std::vector<DepthBin> vBins)
{
    if (QDepthTrackPlot* pqPlot = plot(iTrack))
        pqPlot->setDecimation(std::move(vBins));
}

void QDepthTrackArea::linesChanged()
{
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->scheduleRedraw();
}

// ---- looks ----------------------------------------------------------------------------------------------------------

void QDepthTrackArea::applyLooks(QDepthTrackPlot* pqPlot)
{
    const int iTrack = trackOf(pqPlot);
    if (iTrack >= 0)
        pqPlot->setGridIsOn(m_vViews[static_cast<std::size_t>(iTrack)].m_bGrid);
    pqPlot->setLabelColor(m_bBlack ? Qt::white : Qt::black);
    pqPlot->setFont(m_oChartFont);
}

void QDepthTrackArea::applyLooks(DepthTrackHeader* pqHeader)
{
    pqHeader->setTextColor(m_bBlack ? Qt::white : Qt::black);
    pqHeader->setFont(m_oChartFont);
}

void QDepthTrackArea::setTitle(const QString& sChart, const QString& sName)
{
    m_pqMarkerColumn->changeHeaderTitle(sName);
    m_pqTitle->setText(sName.isEmpty() ? QString() : sChart + QStringLiteral(": ") + sName);
    layoutTracks();
}

QString QDepthTrackArea::title() const
{
    return m_pqTitle->text();
}

void QDepthTrackArea::setMessage(const QString& sMessage)
{
    m_pqMessage->setText(sMessage);
    m_pqMessage->setVisible(!sMessage.isEmpty());
    for (QWidget* pqPart :
         {static_cast<QWidget*>(m_pqViewport), static_cast<QWidget*>(m_pqAxis), static_cast<QWidget*>(m_pqDepthHeader)})
        pqPart->setVisible(sMessage.isEmpty());
    layoutTracks();
}

QString QDepthTrackArea::message() const
{
    return m_pqMessage->text();
}

void QDepthTrackArea::setGridIsOn(bool bOn)
{
    m_bGrid = bOn;
    for (int i = 0; i < numberOfTracks(); ++i)
        setTrackGrid(i, bOn);
}

void QDepthTrackArea::setTrackGrid(int iTrack, bool bOn)
{
    if (iTrack < 0 || iTrack >= numberOfTracks())
        return;
    View& view = m_vViews[static_cast<std::size_t>(iTrack)];
    view.m_bGrid = bOn;
    view.m_pqPlot->setGridIsOn(bOn);
}

QColor QDepthTrackArea::backgroundColor() const
{
    return m_pqMarkerColumn->backgroundColor();
}

QColor QDepthTrackArea::labelColor() const
{
    return m_pqMarkerColumn->labelColor();
}

void QDepthTrackArea::setBlackBackground(bool bBlack)
{
    m_bBlack = bBlack;
    for (QDepthTrackPlot* pqPlot : allPlots())
        applyLooks(pqPlot);
    applyLooks(m_pqDepthHeader);
    for (const View& view : m_vViews)
        applyLooks(view.m_pqHeader);
    // Axis, title and message stand on the chart's background, whatever the desktop's colours are.
    QPalette oPalette = m_pqFrame->palette();
    oPalette.setColor(QPalette::Window, backgroundColor());
    oPalette.setColor(QPalette::WindowText, labelColor());
    m_pqFrame->setPalette(oPalette);
    m_pqTitle->setPalette(oPalette);
    m_pqMessage->setPalette(oPalette);
    m_pqAxis->setAxisColor(labelColor());
}

void QDepthTrackArea::setFontSize(double dPointSize)
{
    if (!(dPointSize > 0.0))
        return;
    m_oChartFont = font();
    m_oChartFont.setPointSizeF(dPointSize);
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->setFont(m_oChartFont);
    m_pqDepthHeader->setFont(m_oChartFont);
    for (const View& view : m_vViews)
        view.m_pqHeader->setFont(m_oChartFont);
    m_pqAxis->setFont(m_oChartFont);
    m_pqMessage->setFont(m_oChartFont);
    QFont oBold = m_oChartFont;
    oBold.setBold(true);
    m_pqTitle->setFont(oBold);
    layoutTracks();
}

void QDepthTrackArea::setMarkerLabels(bool bShow)
{
    m_bMarkerLabels = bShow;
    layoutTracks();
}

void QDepthTrackArea::setCurrentTrack(int iTrack)
{
    for (int i = 0; i < numberOfTracks(); ++i)
        m_vViews[static_cast<std::size_t>(i)].m_pqHeader->setCurrent(i == iTrack);
}

void QDepthTrackArea::setMarkedTracks(const std::vector<int>& viTracks)
{
    for (int i = 0; i < numberOfTracks(); ++i)
        m_vViews[static_cast<std::size_t>(i)].m_pqHeader->setCurrent(std::find(viTracks.begin(), viTracks.end(), i) !=
                                                                     viTracks.end());
}

void QDepthTrackArea::setBoundaryEditing(bool bEditing)
{
    m_bBoundaryEditing = bEditing;
    for (QDepthTrackPlot* pqPlot : allPlots())
        pqPlot->setBoundaryEditing(bEditing);
}

QPixmap QDepthTrackArea::grabChart()
{
    return m_pqFrame->grab();
}

void QDepthTrackArea::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    layoutTracks();
}

void QDepthTrackArea::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::StyleChange)
        layoutTracks();
}

} // namespace gkBase
