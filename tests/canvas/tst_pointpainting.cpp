// Points of a model on a canvas: which look each variant gives them, what lies on top, and that drawing each pixel once
// shows what drawing every point shows.

#include <gkBase/ChartExporter.h>
#include <gkBase/LabelPlacement.h>
#include <gkBase/MatrixColumn.h>
#include <gkBase/MatrixData.h>
#include <gkBase/PointPainter.h>
#include <gkBase/QChartDrawingArea.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/SymbolStencilCache.h>

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <QTest>

#include <functional>
#include <memory>
#include <random>

using namespace gkBase;

namespace {

/// Chart units are pixels; draws nothing but the points.
class PointChart : public QChartDrawingArea
{
public:
    PointChart()
        : QChartDrawingArea(nullptr, QStringLiteral("Points"))
    {
        resize(120, 60);
    }
    QPointF transformInPixelPoint(const QPointF& oPoint) override { return oPoint; }
    void drawChart(QPainter& painter) override { drawPoints(&painter); }

    QImage picture()
    {
        QImage oPicture(size(), QImage::Format_RGB32);
        QPainter painter(&oPicture);
        renderTo(painter, rect());
        return oPicture;
    }
};

std::unique_ptr<MatrixData> numbers(const char* pName, std::vector<double> vdValues)
{
    auto poData = std::make_unique<MatrixData>(QString::fromLatin1(pName), 0, 1, QMetaType::Double);
    poData->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
    return poData;
}

/// Three points at (20, 30), (60, 30) and (100, 30) with attributes for every variant.
struct ThreePoints
{
    ThreePoints()
    {
        m_poColors = std::make_unique<MatrixData>(QStringLiteral("Stored"), 3, 1, QMetaType::QColor);
        m_poColors->setValue(m_poColors->rowOffSet() + 0, QColor(200, 10, 10));
        m_poColors->setValue(m_poColors->rowOffSet() + 1, QColor(10, 200, 10));
        m_poColors->setValue(m_poColors->rowOffSet() + 2, QColor(10, 10, 200));
        m_model.takeNewDataSet(m_poX.get(), m_poY.get());
        m_model.setPointPixelSize(6);
        m_chart.setModel(&m_model);
    }
    /// True for the symbol of a square, false for that of a circle or triangle.
    bool isSquare(const QImage& oPicture, int iRecord) const
    {
        return oPicture.pixelColor(20 + 40 * iRecord - 5, 30 - 5) != QColor(Qt::white);
    }

    std::unique_ptr<MatrixData> m_poX = numbers("x", {20.0, 60.0, 100.0});
    std::unique_ptr<MatrixData> m_poY = numbers("y", {30.0, 30.0, 30.0});
    std::unique_ptr<MatrixData> m_poClass = numbers("class", {1.0, 2.0, 3.0});
    std::unique_ptr<MatrixData> m_poValue = numbers("value", {1.5, 27.25, 61.5});
    std::unique_ptr<MatrixData> m_poAzimuth = numbers("azimuth", {90.0, 99999.0, 180.0});
    std::unique_ptr<MatrixData> m_poColors;
    QRelationshipItemModel m_model;
    PointChart m_chart;
};

/// Random points on a small picture, several per pixel, in five colour classes and as many styles.
struct Crowd
{
    explicit Crowd(int iCount)
    {
        std::mt19937 generator(3);
        std::uniform_real_distribution<double> x(-8.0, 108.0);
        std::uniform_real_distribution<double> y(-8.0, 88.0);
        for (int i = 0; i < iCount; ++i) {
            m_voPixels.emplace_back(x(generator), y(generator));
            m_viClasses.push_back(static_cast<int>(generator() % 5));
        }
        m_voPixels[7] = QPointF(qQNaN(), 3.0);
        m_batch.m_voPixels = m_voPixels;
        m_batch.m_oLook = {Circle, Qt::darkBlue, {}, 3};
    }
    void color()
    {
        m_batch.m_viColors = m_viClasses;
        m_batch.m_voColors = {Qt::red, Qt::green, Qt::blue, Qt::cyan, Qt::magenta};
    }
    QImage drawn(qreal dRatio = 1.0, PointPainter* pPainter = nullptr) const
    {
        PointPainter own;
        return picture(dRatio, [&](QPainter& painter) { (pPainter ? pPainter : &own)->draw(&painter, m_batch); });
    }
    /// Every record as a sprite, one after the other.
    QImage exact(qreal dRatio) const
    {
        SymbolSpriteCache sprites;
        return picture(dRatio, [&](QPainter& painter) {
            for (std::size_t i = 0; i < m_voPixels.size(); ++i)
                sprites.drawSymbols(&painter, {&m_voPixels[i], 1}, m_batch.look(i));
        });
    }
    static QImage picture(qreal dRatio, const std::function<void(QPainter&)>& draw)
    {
        QImage oPicture(QSize(100, 80) * dRatio, QImage::Format_RGB32);
        oPicture.setDevicePixelRatio(dRatio);
        oPicture.fill(Qt::white);
        QPainter painter(&oPicture);
        draw(painter);
        return oPicture;
    }

    std::vector<QPointF> m_voPixels;
    std::vector<int> m_viClasses;
    std::vector<unsigned char> m_vbSelected;
    PointBatch m_batch;
};

} // namespace

class TestPointPainting : public QObject
{
    Q_OBJECT
private slots:
    void plainPointsAreDrawnInThePointPen();
    void tadpolesPointAlongTheirAzimuth();
    void coloursComeFromTheAttribute();
    void symbolsComeFromTheAttribute();
    void thinnedPictureIsTheExactOne_data();
    void thinnedPictureIsTheExactOne();
    void lastRecordLiesOnTopAndSelectedOnesAbove();
    void selectionDoesNotDependOnWhatWasDrawnBefore();
    void vectorFilesHoldEveryPoint();
    void vectorFilesHoldNoCoveredPoint();
    void modelMayGoFirst();
    void labelsNeverCollide();
};

void TestPointPainting::plainPointsAreDrawnInThePointPen()
{
    ThreePoints points;
    points.m_chart.setPointFillColor(QColor(1, 2, 3));
    points.m_model.setPointStyle(Square);
    QImage oPicture = points.m_chart.picture();
    QCOMPARE(oPicture.pixelColor(60, 30), QColor(1, 2, 3));
    QVERIFY(points.isSquare(oPicture, 1));
    points.m_model.setOutLinePointStyle(true);
    oPicture = points.m_chart.picture();
    QCOMPARE(oPicture.pixelColor(60, 30), QColor(Qt::white));
    QCOMPARE(oPicture.pixelColor(60 - 6, 30), QColor(1, 2, 3));
    points.m_model.setPointStyle(Pixel);
    oPicture = points.m_chart.picture();
    QCOMPARE(oPicture.pixelColor(60, 30), QColor(1, 2, 3));
    QCOMPARE(oPicture.pixelColor(60 - 6, 30), QColor(Qt::white));
    // Dark blue stays to be seen on black.
    points.m_chart.setPointFillColor(Qt::darkBlue);
    points.m_chart.setLabelColor(Qt::white);
    QVERIFY(points.m_chart.picture().pixelColor(60, 30).lightness() > 90);
    points.m_chart.setLabelColor(Qt::black);
    QCOMPARE(points.m_chart.picture().pixelColor(60, 30), QColor(Qt::darkBlue));
    points.m_model.setDrawSymbols(false);
    QCOMPARE(points.m_chart.picture().pixelColor(60, 30), QColor(Qt::white));
}

void TestPointPainting::tadpolesPointAlongTheirAzimuth()
{
    ThreePoints points;
    points.m_model.setTadPoleAzimuthDataNode(points.m_poAzimuth.get());
    points.m_model.setTadPoleQuality(points.m_poClass.get(), 2.0);
    const QImage oPicture = points.m_chart.picture();
    const QColor oBack(Qt::white);
    // East, with an open head; nothing without an azimuth; south, filled.
    QCOMPARE(oPicture.pixelColor(20, 30), oBack);
    QVERIFY(oPicture.pixelColor(20 + 15, 30) != oBack);
    QCOMPARE(oPicture.pixelColor(20 - 15, 30), oBack);
    QCOMPARE(oPicture.pixelColor(60, 30), oBack);
    QCOMPARE(oPicture.pixelColor(100, 30), points.m_chart.pointFillColor());
    QVERIFY(oPicture.pixelColor(100, 30 + 15) != oBack);
    // In colours they stay tadpoles.
    points.m_model.setColorAttribute(points.m_poValue.get());
    const QImage oColoured = points.m_chart.picture();
    QCOMPARE(oColoured.pixelColor(60, 30), oBack);
    QVERIFY(oColoured.pixelColor(100, 30 + 15) != oBack);
    // Files mark missing numbers by such values.
    for (const double dFar : {1e18, -9.99e33, 1e37}) {
        const int iStep = SymbolStencilCache::tailStep(dFar);
        QVERIFY(iStep >= 0 && iStep < SymbolStencilCache::s_iTailSteps);
    }
}

void TestPointPainting::coloursComeFromTheAttribute()
{
    ThreePoints points;
    points.m_model.setColorAttribute(points.m_poValue.get());
    QImage oPicture = points.m_chart.picture();
    for (int i = 0; i < 3; ++i) {
        QColor oColor;
        QVERIFY(points.m_model.getColor(i, oColor) > 0);
        QCOMPARE(oPicture.pixel(20 + 40 * i, 30), oColor.rgb());
        QVERIFY(!points.isSquare(oPicture, i));
    }
    points.m_model.setColorAttribute(points.m_poColors.get());
    QCOMPARE(points.m_model.cellType(), QMetaType::QColor);
    for (const bool bSymbols : {false, true}) {
        points.m_model.setSymbolAttribute(bSymbols ? points.m_poClass.get() : nullptr);
        oPicture = points.m_chart.picture();
        QCOMPARE(oPicture.pixelColor(20 + 1, 30), QColor(200, 10, 10)); // on the arm when it is a cross
        QCOMPARE(oPicture.pixelColor(60, 30), QColor(10, 200, 10));
        QCOMPARE(oPicture.pixelColor(100, 30), QColor(10, 10, 200));
        QCOMPARE(points.isSquare(oPicture, 1), bSymbols);
    }
}

void TestPointPainting::symbolsComeFromTheAttribute()
{
    ThreePoints points;
    points.m_model.setSymbolAttribute(points.m_poClass.get());
    const auto classOf = [&points](int i) { return points.m_model.symbolClasses().id(i); };
    for (const bool bColorOnly : {false, true}) {
        points.m_chart.setSymbolColorOnly(bColorOnly);
        const QImage oPicture = points.m_chart.picture();
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(oPicture.pixel(20 + 40 * i, 30), points.m_model.symbolClasses().color(classOf(i)).rgb());
            QCOMPARE(points.isSquare(oPicture, i), !bColorOnly && classOf(i) == Square);
        }
    }
    // With a colour attribute on, the symbol attribute gives the symbol only.
    points.m_model.setColorAttribute(points.m_poValue.get());
    const QImage oPicture = points.m_chart.picture();
    for (int i = 0; i < 3; ++i) {
        QColor oColor;
        points.m_model.getColor(i, oColor);
        QCOMPARE(oPicture.pixel(20 + 40 * i, 30), oColor.rgb());
        QCOMPARE(points.isSquare(oPicture, i), classOf(i) == Square);
    }
}

void TestPointPainting::thinnedPictureIsTheExactOne_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("coloured");
    QTest::addColumn<bool>("styles");
    QTest::addColumn<bool>("hollow");
    QTest::addColumn<double>("ratio");
    QTest::newRow("circles") << int(Circle) << false << false << false << 1.0;
    QTest::newRow("coloured pixels") << int(Pixel) << true << false << false << 1.0;
    QTest::newRow("coloured triangles") << int(Triangle1) << true << false << false << 1.0;
    QTest::newRow("many styles") << int(Circle) << true << true << false << 1.0;
    QTest::newRow("hollow") << int(BigCross2) << true << false << true << 1.0;
    QTest::newRow("fine screen") << int(Circle) << true << true << false << 2.0;
    QTest::newRow("odd screen") << int(Pixel) << true << false << false << 1.5;
}

void TestPointPainting::thinnedPictureIsTheExactOne()
{
    QFETCH(int, style);
    QFETCH(bool, coloured);
    QFETCH(bool, styles);
    QFETCH(bool, hollow);
    QFETCH(double, ratio);
    Crowd crowd(styles ? 3000 : 5000);
    crowd.m_batch.m_oLook.m_iStyle = style;
    crowd.m_batch.m_bHollow = hollow;
    if (coloured)
        crowd.color();
    if (styles)
        crowd.m_batch.m_viStyles = crowd.m_viClasses;
    const QImage oThinned = crowd.drawn(ratio);
    const QImage oExact = crowd.exact(ratio);
    int iWrong = 0;
    int iCovered = 0;
    for (int y = 0; y < oExact.height(); ++y) {
        for (int x = 0; x < oExact.width(); ++x) {
            const QColor a = oThinned.pixelColor(x, y);
            const QColor b = oExact.pixelColor(x, y);
            iCovered += b != QColor(Qt::white);
            // Drawing an edge twice darkens it; symbols without soft edges have to agree to the bit.
            const int iOff =
                std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
            iWrong += iOff > (style == Pixel ? 0 : 96);
        }
    }
    QVERIFY(iCovered > 1000);
    QCOMPARE(iWrong, 0);
}

void TestPointPainting::lastRecordLiesOnTopAndSelectedOnesAbove()
{
    Crowd crowd(2000);
    crowd.color();
    std::fill(crowd.m_voPixels.begin(), crowd.m_voPixels.end(), QPointF(50.2, 39.9));
    crowd.m_viClasses.back() = 2;
    QCOMPARE(crowd.drawn().pixelColor(50, 40), QColor(Qt::blue));
    crowd.m_vbSelected.assign(2000, 0);
    crowd.m_vbSelected[11] = 1;
    crowd.m_viClasses[11] = 1;
    crowd.m_batch.m_vbSelected = crowd.m_vbSelected;
    const QImage oPicture = crowd.drawn();
    QCOMPARE(oPicture.pixelColor(50, 40), QColor(Qt::green));
    QCOMPARE(oPicture.pixelColor(50 - 3, 40), QColor::fromRgb(PointBatch::s_oSelectionColor));
    // Its halo is soft.
    QVERIFY(oPicture.pixelColor(50 - 6, 40).lightness() < 160);
}

void TestPointPainting::selectionDoesNotDependOnWhatWasDrawnBefore()
{
    Crowd crowd(4000);
    crowd.color();
    PointPainter kept;
    const QImage oWithout = crowd.drawn(1.0, &kept);
    crowd.m_vbSelected.assign(4000, 0);
    std::fill_n(crowd.m_vbSelected.begin() + 100, 50, 1);
    crowd.m_batch.m_vbSelected = crowd.m_vbSelected;
    const QImage oSelected = crowd.drawn(1.0, &kept);
    QVERIFY(oSelected != oWithout);
    QCOMPARE(oSelected, crowd.drawn());
    crowd.m_batch.m_vbSelected = {};
    QCOMPARE(crowd.drawn(1.0, &kept), oWithout);
    // A colour of one class changes the kept picture.
    crowd.m_batch.m_voColors[3] = Qt::black;
    QCOMPARE(crowd.drawn(1.0, &kept), crowd.drawn());
}

void TestPointPainting::vectorFilesHoldEveryPoint()
{
    ThreePoints points;
    points.m_poX->setValue(points.m_poX->rowOffSet() + 1, 20.0); // on the first one
    points.m_model.refresh();
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(points.m_chart.size());
    QPainter painter(&generator);
    points.m_chart.renderTo(painter, points.m_chart.rect());
    painter.end();
    const QByteArray oFill = points.m_chart.pointFillColor().name().toLatin1();
    QCOMPARE(buffer.data().count("fill=\"" + oFill), 3);
    QVERIFY(!buffer.data().contains("<image"));

    // A point far outside stands on no integer pixel, which metafiles have.
    points.m_poX->setValue(points.m_poX->rowOffSet() + 1, 99998.0);
    points.m_model.refresh();
    const auto metafile = [&points] {
        return ChartExporter::metafile(points.m_chart.size(),
                                       {Qt::white, QString(), [&](QPainter& p, const QRectF& oTarget) {
                                            points.m_chart.renderTo(p, oTarget.toRect());
                                        }});
    };
    const QByteArray oBeside = metafile();
    points.m_poX->setValue(points.m_poX->rowOffSet() + 1, -1e12);
    points.m_model.refresh();
    QCOMPARE(metafile(), oBeside);
}

void TestPointPainting::vectorFilesHoldNoCoveredPoint()
{
    const auto svg = [](const PointBatch& batch) {
        QBuffer buffer;
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        QPainter painter(&generator);
        PointPainter().draw(&painter, batch);
        painter.end();
        return buffer.data();
    };
    // Many points on 20 pixels: what a file holds of them is what it holds of the last on each.
    const std::size_t iMany = PointPainter::s_iMostOutlines + 50;
    std::vector<QPointF> voPixels;
    std::vector<int> viClasses;
    for (std::size_t i = 0; i < iMany; ++i) {
        voPixels.emplace_back(30.0 + 2.0 * static_cast<double>(i % 20) + 0.4, 20.0);
        viClasses.push_back(static_cast<int>(i % 7));
    }
    PointBatch batch;
    batch.m_voColors = {Qt::red, Qt::green, Qt::blue, Qt::cyan, Qt::magenta, Qt::black, Qt::gray};
    batch.m_oLook = {Square, Qt::darkBlue, {}, 3};
    batch.m_voPixels = voPixels;
    batch.m_viColors = viClasses;
    const QByteArray sMany = svg(batch);
    batch.m_voPixels = std::span(voPixels).last(20);
    batch.m_viColors = std::span<const int>(viClasses).last(20);
    QCOMPARE(sMany, svg(batch));
    // A few are all there, covered or not.
    batch.m_voPixels = std::span(voPixels).last(40);
    batch.m_viColors = std::span<const int>(viClasses).last(40);
    QVERIFY(svg(batch).size() > sMany.size());
    // A selected point and one that is not on its pixel are both there.
    std::vector<unsigned char> vbSelected(iMany);
    vbSelected[3] = 1;
    batch.m_voPixels = voPixels;
    batch.m_viColors = viClasses;
    batch.m_vbSelected = vbSelected;
    QVERIFY(svg(batch).size() > sMany.size());
}

void TestPointPainting::modelMayGoFirst()
{
    PointChart chart;
    {
        ThreePoints points;
        chart.setModel(&points.m_model);
        chart.picture();
    }
    QVERIFY(!chart.model());
    QVERIFY(chart.pointPixels().empty());
    QCOMPARE(chart.picture().pixelColor(60, 30), QColor(Qt::white));
}

void TestPointPainting::labelsNeverCollide()
{
    std::mt19937 generator(5);
    std::uniform_real_distribution<double> place(-20.0, 420.0);
    std::vector<QRectF> voAnchors;
    std::vector<QSizeF> voSizes;
    for (int i = 0; i < 400; ++i) {
        voAnchors.emplace_back(place(generator), place(generator), 4.0, 4.0);
        voSizes.emplace_back(20.0 + i % 60, 14.0);
    }
    const QRectF oArea(10.0, 5.0, 380.0, 290.0);
    const std::vector<QRectF> voBoxes = placeLabels(oArea, voAnchors, voSizes, 2.0);
    int iPlaced = 0;
    for (std::size_t i = 0; i < voBoxes.size(); ++i) {
        if (voBoxes[i].isNull())
            continue;
        ++iPlaced;
        QVERIFY(oArea.contains(voBoxes[i]));
        QCOMPARE(voBoxes[i].size(), voSizes[i]);
        for (std::size_t j = 0; j < i; ++j)
            QVERIFY(voBoxes[j].isNull() || !voBoxes[i].adjusted(-1.9, -1.9, 1.9, 1.9).intersects(voBoxes[j]));
    }
    QVERIFY(iPlaced > 50);
    // The first one inside the area always finds its first place.
    QCOMPARE(placeLabels(oArea, std::vector{QRectF(100, 100, 4, 4)}, std::vector{QSizeF(30, 14)})[0],
             QRectF(106, 95, 30, 14));
}

QTEST_MAIN(TestPointPainting)
#include "tst_pointpainting.moc"
