// The canvas as a widget: when it draws, how much it holds, colours, wheel, copies and picture files.

#include <gkBase/ChartExporter.h>
#include <gkBase/QChartDrawingArea.h>
#include <gkBase/SymbolGeometry.h>
#include <gkBase/SymbolSpriteCache.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <QXmlStreamReader>

using namespace gkBase;

namespace {

/// A chart whose colour at a pixel tells where on the chart it lies, and that counts what it is asked to do.
class PlaidChart : public QChartDrawingArea
{
public:
    PlaidChart()
        : QChartDrawingArea(nullptr, QStringLiteral("Plaid"))
    {
    }

    static QColor colorAt(const QPoint& oChart) { return QColor((oChart.x() / 8) % 256, (oChart.y() / 8) % 256, 77); }

    void layoutChart() override { ++m_iLayouts; }
    void drawChart(QPainter& painter) override
    {
        ++m_iDraws;
        const QRect oClip = painter.clipBoundingRect().toAlignedRect() & QRect(QPoint(0, 0), chartSize());
        m_iDrawnPixels += static_cast<qint64>(oClip.width()) * oClip.height();
        for (int y = oClip.top() & ~7; y <= oClip.bottom(); y += 8) {
            for (int x = oClip.left() & ~7; x <= oClip.right(); x += 8)
                painter.fillRect(x, y, 8, 8, colorAt({x, y}));
        }
    }
    using QChartDrawingArea::drawTadPole;

    int m_iLayouts = 0;
    int m_iDraws = 0;
    qint64 m_iDrawnPixels = 0;
};

void turnWheel(QWidget& widget, const QPoint& oDelta)
{
    const QPointF oPos = widget.rect().center();
    QWheelEvent event(oPos, widget.mapToGlobal(oPos), QPoint(), oDelta, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&widget, &event);
}

QByteArray contents(const QString& sPath)
{
    QFile file(sPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestChartDrawingArea : public QObject
{
    Q_OBJECT
private slots:
    void panShowsTheRightPixels();
    void panBelowTheBudgetNeverDraws();
    void largeZoomHoldsAndDrawsLittle();
    void hiddenWidgetKnowsItsOffsets();
    void wheelZoomsAndTells();
    void labelColourChoosesTheBackground_data();
    void labelColourChoosesTheBackground();
    void headerTitle();
    void comboBoxHoldsStyles();
    void spritesEqualOutlines();
    void tadpoleNeedsAnAzimuth();
    void copyHasTheWidgetsSize();
    void renderElsewhereKeepsTheScreen();
    void exportWritesEachFormat();
    void exportFailsCleanly();
};

void TestChartDrawingArea::panShowsTheRightPixels()
{
    PlaidChart chart;
    chart.resize(200, 150);
    // The second zoom is above the budget: tiles, moved and patched by small and large pans.
    for (const double dZoom : {3.0, 40.0}) {
        chart.zoom(dZoom);
        for (const int iPercent : {50, 51, 52, 55, 20, 100, 99, 0, 1}) {
            chart.xoffset(iPercent);
            chart.yoffset(100 - iPercent);
            const QImage oImage = chart.grab().toImage();
            const QPoint oOffset = chart.pixmapRect().topLeft();
            for (const QPoint& oPos : {QPoint(0, 0), QPoint(199, 0), QPoint(100, 75), QPoint(0, 149), QPoint(199, 149)})
                QCOMPARE(oImage.pixelColor(oPos), PlaidChart::colorAt(oPos + oOffset));
        }
    }
}

void TestChartDrawingArea::panBelowTheBudgetNeverDraws()
{
    PlaidChart chart;
    chart.resize(300, 200);
    chart.zoom(4.0);
    chart.grab();
    QCOMPARE(chart.m_iDraws, 1);
    QCOMPARE(chart.m_iLayouts, 1);
    for (int iPercent = 0; iPercent <= 100; iPercent += 5) {
        chart.xoffset(iPercent);
        chart.yoffset(iPercent);
        chart.grab();
    }
    QCOMPARE(chart.m_iDraws, 1);
    chart.resize(310, 200);
    chart.grab();
    QCOMPARE(chart.m_iDraws, 2);
}

void TestChartDrawingArea::largeZoomHoldsAndDrawsLittle()
{
    PlaidChart chart;
    chart.resize(1920, 1080);
    chart.zoom(20.0);
    chart.grab();
    QCOMPARE(chart.chartSize(), QSize(38400, 21600));
    QVERIFY(chart.pixelMemory() <= ChartBackingStore::s_iDefaultBudget);
    // One per cent is 365 pixels: small pans stay inside the tile or patch it, and never lay out again.
    const qint64 iFull = chart.m_iDrawnPixels;
    chart.m_iDrawnPixels = 0;
    for (int iPercent = 51; iPercent <= 55; ++iPercent) {
        chart.xoffset(iPercent);
        chart.grab();
    }
    QVERIFY2(chart.m_iDrawnPixels < iFull, qPrintable(QString::number(chart.m_iDrawnPixels)));
    QVERIFY(chart.m_iDrawnPixels > 0);
    QCOMPARE(chart.m_iLayouts, 1);
}

void TestChartDrawingArea::hiddenWidgetKnowsItsOffsets()
{
    PlaidChart chart;
    chart.resize(400, 300);
    chart.xoffset(100);
    chart.yoffset(100);
    QCOMPARE(chart.pixmapRect(), QRect(0, 0, 400, 300));
    chart.zoom(2.0);
    QCOMPARE(chart.pixmapRect(), QRect(400, 300, 400, 300));
    chart.resize(200, 100); // the offsets follow from the percentages
    QCOMPARE(chart.pixmapRect(), QRect(200, 100, 200, 100));
}

void TestChartDrawingArea::wheelZoomsAndTells()
{
    PlaidChart chart;
    chart.resize(100, 100);
    QSignalSpy spy(&chart, &QChartDrawingArea::zoomChanged);
    turnWheel(chart, {0, -120});
    turnWheel(chart, {0, 60});
    turnWheel(chart, {120, 0});
    QCOMPARE(spy.size(), 0);
    turnWheel(chart, {0, 240});
    QCOMPARE(spy.size(), 1);
    QVERIFY(std::abs(spy.first().first().toDouble() - 1.2) < 1e-12);
    QCOMPARE(chart.chartSize(), QSize(120, 120));
    // A zoom of the height stays one.
    chart.zoomY(2.0);
    turnWheel(chart, {0, 1200});
    QCOMPARE(chart.chartSize(), QSize(100, 300));
    spy.remove(1);
    chart.enableMouseZoom(false);
    turnWheel(chart, {0, 240});
    QCOMPARE(spy.size(), 1);
}

void TestChartDrawingArea::labelColourChoosesTheBackground_data()
{
    QTest::addColumn<QColor>("label");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("grid");
    QTest::newRow("white") << QColor(Qt::white) << QColor(Qt::black) << QColor(Qt::lightGray);
    QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white) << QColor(Qt::gray);
    QTest::newRow("no red") << QColor(0, 255, 255) << QColor(Qt::white) << QColor(Qt::gray);
    QTest::newRow("a trace of red") << QColor(1, 0, 0) << QColor(Qt::black) << QColor(Qt::lightGray);
}

void TestChartDrawingArea::labelColourChoosesTheBackground()
{
    QFETCH(QColor, label);
    QFETCH(QColor, background);
    QFETCH(QColor, grid);
    QChartDrawingArea chart(nullptr, QStringLiteral("Chart"));
    chart.resize(20, 20);
    chart.grab();
    chart.setLabelColor(label);
    QCOMPARE(chart.labelColor().rgb(), label.rgb());
    QCOMPARE(chart.gridColor().rgb(), grid.rgb());
    QCOMPARE(chart.grab().toImage().pixelColor(10, 10).rgb(), background.rgb());
}

void TestChartDrawingArea::headerTitle()
{
    QChartDrawingArea chart(nullptr, QStringLiteral("Histogram"));
    chart.changeHeaderTitle(QStringLiteral("Well 1"));
    QCOMPARE(chart.headerTitle(), QStringLiteral("Histogram: Well 1"));
    chart.changeHeaderTitle(QString());
    QCOMPARE(chart.headerTitle(), QString());
}

void TestChartDrawingArea::comboBoxHoldsStyles()
{
    QChartDrawingArea chart(nullptr, QStringLiteral("Chart"));
    QComboBox box;
    box.addItem(QStringLiteral("old"));
    chart.initializePointSytleComboBox(&box, true);
    QCOMPARE(box.count(), 16);
    QCOMPARE(box.findData(static_cast<int>(BigCross4)), 15);
    QCOMPARE(box.itemText(1), QStringLiteral("Pixel"));
    for (int i = 0; i < box.count(); ++i)
        QVERIFY(!box.itemIcon(i).isNull());
    int iStyle = 200;
    chart.getSymbolPixmap(iStyle, Qt::red, true);
    QCOMPARE(iStyle, static_cast<int>(Circle));
}

void TestChartDrawingArea::spritesEqualOutlines()
{
    // A sprite covers what the outline covers, give or take a pixel of smoothing; both stand on the same centre.
    for (const PointStyle eStyle : offeredPointStyles(true)) {
        const SymbolLook look{eStyle, Qt::black, Qt::black, 6};
        QImage oSprites(60, 60, QImage::Format_RGB32);
        QImage oOutlines(60, 60, QImage::Format_RGB32);
        oSprites.fill(Qt::white);
        oOutlines.fill(Qt::white);
        SymbolSpriteCache cache;
        const QList<QPointF> points{QPointF(30, 30), QPointF(NAN, 5.0), QPointF(1e18, 4.0)};
        QPainter sprites(&oSprites);
        cache.drawSymbols(&sprites, points, look);
        QPainter outlines(&oOutlines);
        drawSymbol(&outlines, points.first(), look);
        sprites.end();
        outlines.end();
        const auto darkBox = [](const QImage& oImage) {
            QRect oBox;
            for (int y = 0; y < oImage.height(); ++y) {
                for (int x = 0; x < oImage.width(); ++x) {
                    if (qGray(oImage.pixel(x, y)) < 128)
                        oBox |= QRect(x, y, 1, 1);
                }
            }
            return oBox;
        };
        const QRect oSpriteBox = darkBox(oSprites);
        const QRect oOutlineBox = darkBox(oOutlines);
        QVERIFY2(oOutlineBox.adjusted(-1, -1, 1, 1).contains(oSpriteBox), qPrintable(pointStyleName(eStyle)));
        QVERIFY2(oSpriteBox.adjusted(-1, -1, 1, 1).contains(oOutlineBox), qPrintable(pointStyleName(eStyle)));
        QCOMPARE(cache.size(), 1);
    }
}

void TestChartDrawingArea::tadpoleNeedsAnAzimuth()
{
    PlaidChart chart;
    QImage oImage(60, 60, QImage::Format_RGB32);
    const auto painted = [&](double dAzimuth, const QPointF& oCentre) {
        oImage.fill(Qt::white);
        QPainter painter(&oImage);
        painter.translate(3, 0); // the chart's own translation must survive
        chart.drawTadPole(&painter, oCentre, dAzimuth, Qt::red, 4);
        return painter.worldTransform().dx() == 3.0;
    };
    QVERIFY(painted(99999.0, {20, 30}));
    QCOMPARE(oImage.pixelColor(23, 30), QColor(Qt::white));
    QVERIFY(painted(90.0, {20, 30}));
    QCOMPARE(oImage.pixelColor(23, 30), QColor(Qt::red));
    QCOMPARE(oImage.pixelColor(23 + 15, 30), QColor(Qt::red));
    QVERIFY(painted(0.0, {20, 10})); // a disc without its tail
    QCOMPARE(oImage.pixelColor(23, 10), QColor(Qt::red));
    QCOMPARE(oImage.pixelColor(23, 3), QColor(Qt::white));
}

void TestChartDrawingArea::copyHasTheWidgetsSize()
{
    PlaidChart chart;
    chart.resize(120, 80);
    chart.zoom(3.0);
    QSignalSpy spy(&chart, &QChartDrawingArea::signalCopyToClipboard);
    chart.copyToClipboard();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(QApplication::clipboard()->pixmap().size(), QSize(120, 80) * chart.devicePixelRatioF());
}

void TestChartDrawingArea::renderElsewhereKeepsTheScreen()
{
    PlaidChart chart;
    chart.resize(200, 150);
    chart.zoom(5.0);
    chart.xoffset(30);
    const QImage oBefore = chart.grab().toImage();
    QImage oTarget(400, 300, QImage::Format_RGB32);
    oTarget.fill(Qt::green);
    QPainter painter(&oTarget);
    chart.renderTo(painter, QRect(50, 40, 320, 240));
    painter.end();
    QCOMPARE(oTarget.pixelColor(50 + 100, 40 + 90), PlaidChart::colorAt({100, 90}));
    QCOMPARE(oTarget.pixelColor(45, 45), QColor(Qt::green)); // nothing outside
    QCOMPARE(chart.grab().toImage(), oBefore);
    QCOMPARE(chart.chartSize(), QSize(1000, 750));
}

void TestChartDrawingArea::exportWritesEachFormat()
{
    QTemporaryDir folder;
    const auto render = [](QPainter& painter, const QRectF& oRect) {
        painter.drawEllipse(oRect.adjusted(20, 20, -20, -20));
        painter.drawText(oRect, Qt::AlignCenter, QStringLiteral("chart"));
    };
    for (const QString& sFormat : ChartExporter::formats()) {
        QString sError;
        const QString sPath = folder.filePath(QStringLiteral("chart.") + sFormat.toUpper());
        QVERIFY2(ChartExporter::write(sPath, {320, 240}, {Qt::black, QStringLiteral("A < B & C"), render}, &sError),
                 qPrintable(sError));
        QVERIFY(sError.isEmpty());
    }
    const QImage oPng(folder.filePath(QStringLiteral("chart.PNG")));
    QCOMPARE(oPng.size(), QSize(320, 240));
    QCOMPARE(oPng.pixelColor(2, 2), QColor(Qt::black));

    int iShapes = 0;
    bool bText = false;
    QXmlStreamReader xml(contents(folder.filePath(QStringLiteral("chart.SVG"))));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        QVERIFY(xml.name() != QLatin1String("image"));
        iShapes += xml.name() == QLatin1String("path") || xml.name() == QLatin1String("circle") ||
                   xml.name() == QLatin1String("ellipse");
        bText |= xml.name() == QLatin1String("text");
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QVERIFY(iShapes >= 1 && bText);

    const QByteArray oPdf = contents(folder.filePath(QStringLiteral("chart.PDF")));
    QVERIFY(oPdf.startsWith("%PDF"));
    QVERIFY(oPdf.contains("/MediaBox [0 0 240")); // 320 pixels of 1/96 inch in points
    QVERIFY(!oPdf.contains("/Subtype /Image"));

    // Printed, the chart is laid out for the page and remains a drawing.
    QPrinter printer;
    printer.setOutputFileName(folder.filePath(QStringLiteral("print.pdf")));
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    QVERIFY(ChartExporter::print(printer, {Qt::white, QString(), [&](QPainter& painter, const QRectF& oRect) {
                                               QVERIFY(oRect.width() > 1000 && oRect.width() < 1123 &&
                                                       oRect.height() > 690 && oRect.height() < 794);
                                               render(painter, oRect);
                                           }}));
    const QByteArray oPrint = contents(printer.outputFileName());
    QVERIFY(oPrint.contains("/MediaBox [0 0 842") && !oPrint.contains("/Subtype /Image"));
}

void TestChartDrawingArea::exportFailsCleanly()
{
    QTemporaryDir folder;
    const auto render = [](QPainter&, const QRectF&) {};
    const QString sOld = folder.filePath(QStringLiteral("old.png"));
    QFile file(sOld);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    file.close();
    struct Case
    {
        QString m_sPath;
        QSize m_oSize;
    };
    const QList<Case> lCases{{folder.filePath(QStringLiteral("no/such/folder/chart.png")), {10, 10}},
                             {folder.filePath(QStringLiteral("chart.bmp")), {10, 10}},
                             {folder.filePath(QStringLiteral("chart")), {10, 10}},
                             {sOld, {0, 10}},
                             {sOld, {10, 1000000}}};
    for (const Case& oCase : lCases) {
        QString sError;
        QVERIFY(!ChartExporter::write(oCase.m_sPath, oCase.m_oSize, {Qt::white, QString(), render}, &sError));
        QVERIFY(!sError.isEmpty());
        QVERIFY(!ChartExporter::write(oCase.m_sPath, oCase.m_oSize, {Qt::white, QString(), render}, nullptr));
    }
    QCOMPARE(contents(sOld), QByteArray("old"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

QTEST_MAIN(TestChartDrawingArea)
#include "tst_chartdrawingarea.moc"
