#include "RecordingDevice.h"

#include "PolarChartFrame.h"
#include "QPolarPlotWidget.h"

#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QTest>

#include <cmath>
#include <memory>
#include <numbers>

using namespace gkBase;
using namespace gkTest;

namespace {

class Polar : public QPolarPlotWidget
{
public:
    explicit Polar(const QSize& oSize)
        : QPolarPlotWidget(nullptr, QStringLiteral("Rose Diagram"))
    {
        resize(oSize);
        updateChart();
    }
    using QPolarPlotWidget::clipRegion;
    using QPolarPlotWidget::drawArrow;
    using QPolarPlotWidget::drawSector;
    using QPolarPlotWidget::rotation;
    QRectF plotRect() const { return m_oPlotRect; }
    QString pointsText() const override
    {
        ++m_iAsked;
        return m_sPoints.isEmpty() ? QPolarPlotWidget::pointsText() : m_sPoints;
    }
    QString m_sPoints;
    mutable int m_iAsked = 0;
};

double distance(const QPointF& a, const QPointF& b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

/// The shapes of drawSector() on a chart of radius 160.
QVector<QPolygonF> sector(const QPointF& a, const QPointF& b, const QPointF& c, bool bAsChord)
{
    Polar polar(QSize(400, 400));
    RecordingDevice device(QSize(400, 400));
    QPainter painter(&device);
    polar.drawSector(a, b, c, &painter, bAsChord);
    painter.end();
    return device.recording().m_voShapes;
}

QPointF circumcentre(const QPointF& a, const QPointF& b, const QPointF& c)
{
    const double d = 2.0 * (a.x() * (b.y() - c.y()) + b.x() * (c.y() - a.y()) + c.x() * (a.y() - b.y()));
    const auto square = [](const QPointF& p) { return QPointF::dotProduct(p, p); };
    return {(square(a) * (b.y() - c.y()) + square(b) * (c.y() - a.y()) + square(c) * (a.y() - b.y())) / d,
            (square(a) * (c.x() - b.x()) + square(b) * (a.x() - c.x()) + square(c) * (b.x() - a.x())) / d};
}

Recording recorded(QPolarPlotWidget& polar, const QSize& oSize)
{
    RecordingDevice device(oSize);
    QPainter painter(&device);
    polar.renderTo(painter, QRect(QPoint(0, 0), oSize));
    painter.end();
    return device.recording();
}

} // namespace

class tst_PolarPlot : public QObject
{
    Q_OBJECT
private slots:
    void circleFitsTheChart_data();
    void circleFitsTheChart();
    void arcGoesThroughItsPoints_data();
    void arcGoesThroughItsPoints();
    void sectorsWithoutAnArc();
    void arrowPointsAwayFromTheCentre();
    void rotationTurnsAboutTheCentreOfAPannedChart();
    void labelsNeitherOverlapNorReachIntoTheCircle_data();
    void labelsNeitherOverlapNorReachIntoTheCircle();
    void annotationModes();
    void pansLeaveNothingBehind();
    void picturesContainTitleBoxAndNorthArrow();
    void firstPictureMakesRoomForTheCount();
    void cornersKeepClearOfTheCircle();
};

void tst_PolarPlot::circleFitsTheChart_data()
{
    QTest::addColumn<QSize>("oSize");
    QTest::addColumn<double>("dZoom");
    QTest::addColumn<QPoint>("oCentre");
    QTest::addColumn<int>("iRadius");
    QTest::newRow("wide") << QSize(300, 200) << 1.0 << QPoint(149, 99) << 80;
    QTest::newRow("square") << QSize(400, 400) << 1.0 << QPoint(199, 199) << 160;
    QTest::newRow("high, cut to whole pixels") << QSize(201, 333) << 1.0 << QPoint(100, 166) << 80;
    QTest::newRow("magnified") << QSize(400, 400) << 4.0 << QPoint(799, 799) << 640;
}

void tst_PolarPlot::circleFitsTheChart()
{
    QFETCH(QSize, oSize);
    QFETCH(double, dZoom);
    QFETCH(QPoint, oCentre);
    QFETCH(int, iRadius);
    Polar polar(oSize);
    polar.zoom(dZoom);
    polar.updateChart();
    QCOMPARE(polar.centre(), oCentre);
    QCOMPARE(polar.radius(), iRadius);
    QCOMPARE(polar.plotRect(), QRectF(oCentre.x() - iRadius, oCentre.y() - iRadius, 2 * iRadius, 2 * iRadius));
    // The clip region is the disc, neither its square nor more.
    QVERIFY(polar.clipRegion().contains(oCentre + QPoint(0, iRadius - 2)));
    QVERIFY(!polar.clipRegion().contains(oCentre + QPoint(iRadius - 2, iRadius - 2)));
    QVERIFY(!polar.clipRegion().contains(oCentre + QPoint(0, iRadius + 2)));
    // Another size for a picture does not stay.
    recorded(polar, QSize(100, 100));
    QCOMPARE(polar.radius(), iRadius);
}

void tst_PolarPlot::arcGoesThroughItsPoints_data()
{
    QTest::addColumn<double>("dDip");
    QTest::addColumn<double>("dRadius"); // of the arc for a circle of radius 100
    // In the equal-angle projection the great circle of a plane is an arc of radius R / cos(dip).
    for (const double dDip : {0.5, 30.0, 60.0, 89.0})
        QTest::addRow("dip %g", dDip) << dDip << 100.0 / std::cos(dDip * std::numbers::pi / 180.0);
    QTest::newRow("30, by hand") << 30.0 << 115.47;
}

void tst_PolarPlot::arcGoesThroughItsPoints()
{
    QFETCH(double, dDip);
    QFETCH(double, dRadius);
    const double dApex = 100.0 * std::tan((90.0 - dDip) * std::numbers::pi / 360.0);
    for (const double dStrike : {0.0, 77.0, 180.0, 290.0}) {
        const auto point = [](double dDirection, double dDistance) {
            const double dAngle = (dDirection - 90.0) * std::numbers::pi / 180.0;
            return QPointF(199.0 + dDistance * std::cos(dAngle), 199.0 + dDistance * std::sin(dAngle));
        };
        const QPointF a = point(dStrike + 90.0, dApex);
        const QPointF b = point(dStrike, 100.0);
        const QPointF c = point(dStrike + 180.0, 100.0);
        const QPointF oCentre = circumcentre(a, b, c);
        QVERIFY(std::abs(distance(a, oCentre) - dRadius) < 1e-3 * dRadius);
        const QVector<QPolygonF> voShapes = sector(a, b, c, false);
        QCOMPARE(voShapes.size(), 1);
        const QPolygonF& oArc = voShapes.first();
        QVERIFY(oArc.size() >= 51);
        QVERIFY(distance(oArc.first(), b) < 1e-6 && distance(oArc.last(), c) < 1e-6);
        double dToApex = 1e9;
        for (const QPointF& oPoint : oArc) {
            QVERIFY(std::abs(distance(oPoint, oCentre) - distance(a, oCentre)) < 1e-6);
            dToApex = std::min(dToApex, distance(oPoint, a));
        }
        QVERIFY(dToApex < 1e-6);
        // The chord form is the same arc, closed.
        QCOMPARE(sector(a, b, c, true).first(), oArc);
    }
}

void tst_PolarPlot::sectorsWithoutAnArc()
{
    // Points on a line: the diameter that callers turn to the strike.
    const QVector<QPolygonF> voShapes = sector({50, 50}, {20, 50}, {90, 50}, false);
    QCOMPARE(voShapes.size(), 1);
    QCOMPARE(voShapes.first(), QPolygonF({QPointF(199, 359), QPointF(199, 39)}));
    QVERIFY(sector({50, 50}, {50, 50}, {90, 50}, false).isEmpty());
    QVERIFY(sector({50, 50}, {20, 50}, {20, 50}, true).isEmpty());
    QVERIFY(sector({qQNaN(), 50}, {20, 50}, {90, 60}, false).isEmpty());
}

void tst_PolarPlot::arrowPointsAwayFromTheCentre()
{
    Polar polar(QSize(400, 400));
    RecordingDevice device(QSize(400, 400));
    QPainter painter(&device);
    polar.drawArrow(&painter, QPointF(199, 199));
    QVERIFY(device.recording().m_voShapes.isEmpty());
    const QPointF oTip = polar.pointAt(90.0, 100.0);
    polar.drawArrow(&painter, oTip);
    painter.end();
    QCOMPARE(device.recording().m_voShapes.size(), 2);
    for (const QPolygonF& oBarb : device.recording().m_voShapes) {
        QVERIFY(distance(oBarb.first(), oTip) < 1e-9);
        QVERIFY(std::abs(oBarb.last().x() - 289.0) < 1e-9);
        QVERIFY(std::abs(std::abs(oBarb.last().y() - 199.0) - 6.0) < 1e-9);
    }
}

void tst_PolarPlot::rotationTurnsAboutTheCentreOfAPannedChart()
{
    Polar polar(QSize(400, 400));
    QImage oImage(400, 400, QImage::Format_RGB32);
    QPainter painter(&oImage);
    painter.translate(-30, -20);
    polar.rotation(&painter, 90.0);
    const QPointF oEast = painter.worldTransform().map(polar.pointAt(0.0, 100.0));
    QVERIFY(distance(oEast, polar.pointAt(90.0, 100.0) - QPointF(30, 20)) < 1e-9);
}

void tst_PolarPlot::labelsNeitherOverlapNorReachIntoTheCircle_data()
{
    QTest::addColumn<QSize>("oSize");
    QTest::addColumn<int>("iPointSize");
    QTest::addColumn<bool>("bWords");
    for (const QSize& oSize : {QSize(200, 200), QSize(300, 200), QSize(400, 400), QSize(1200, 900)}) {
        for (const int iPointSize : {6, 9, 14, 24}) {
            for (const bool bWords : {false, true})
                QTest::addRow("%d x %d, %d pt, %s", oSize.width(), oSize.height(), iPointSize,
                              bWords ? "words" : "degrees")
                    << oSize << iPointSize << bWords;
        }
    }
}

void tst_PolarPlot::labelsNeitherOverlapNorReachIntoTheCircle()
{
    QFETCH(QSize, oSize);
    QFETCH(int, iPointSize);
    QFETCH(bool, bWords);
    Polar polar(oSize);
    QFont oFont = polar.font();
    oFont.setPointSize(iPointSize);
    polar.setFont(oFont);
    polar.setAnnotationLabelAsAngle(!bWords);
    polar.setAnnotationLabelAsDirectionOn(bWords);
    polar.updateChart();
    QVector<RecordedText> vTexts = recorded(polar, oSize).m_vTexts;
    vTexts.removeIf([](const RecordedText& text) { return text.m_sText == QLatin1String("0"); }); // under 360
    QVERIFY(vTexts.size() >= 5); // the quarters and the north arrow
    const QRectF oChart(QPointF(0, 0), oSize);
    for (int i = 0; i < vTexts.size(); ++i) {
        const QRectF& oBox = vTexts[i].m_oBox;
        QVERIFY2(oChart.contains(oBox), qPrintable(vTexts[i].m_sText));
        const QPointF oNearest(std::clamp<double>(polar.centre().x(), oBox.left(), oBox.right()),
                               std::clamp<double>(polar.centre().y(), oBox.top(), oBox.bottom()));
        QVERIFY2(distance(oNearest, polar.centre()) > polar.radius() + 5, qPrintable(vTexts[i].m_sText));
        for (int j = i + 1; j < vTexts.size(); ++j)
            QVERIFY2(!oBox.intersects(vTexts[j].m_oBox),
                     qPrintable(vTexts[i].m_sText + QLatin1Char('/') + vTexts[j].m_sText));
    }
}

void tst_PolarPlot::annotationModes()
{
    Polar polar(QSize(600, 600));
    const QStringList lAngles = recorded(polar, polar.size()).textList();
    QCOMPARE(lAngles.size(), 38); // one every 10 degrees, two at north, and the "N" of the arrow
    QCOMPARE(lAngles.indexOf(QStringLiteral("360")), lAngles.indexOf(QStringLiteral("0")) + 1); // over it
    polar.setAnnotationLabelAsAngle(false);
    polar.setAnnotationLabelAsDirectionOn(true);
    QStringList lWords = recorded(polar, polar.size()).textList();
    lWords.sort();
    QCOMPARE(lWords, QStringList({"East", "N", "North", "South", "West"}));
    polar.setAnnotationLabelAsDirectionOn(false);
    polar.changeHeaderTitle(QStringLiteral("Azimuth"));
    polar.setShowPointsCount(true);
    const Recording bare = recorded(polar, polar.size());
    QCOMPARE(bare.textList(), QStringList({"Rose Diagram: Azimuth", "points = 0"}));
    // Nothing but the background, the boxes and the circle is left.
    const auto iLines = std::count_if(bare.m_voShapes.begin(), bare.m_voShapes.end(),
                                      [](const QPolygonF& oShape) { return oShape.size() == 2; });
    QCOMPARE(iLines, 0);
    polar.showCircleFrame(false);
    QVERIFY(recorded(polar, polar.size()).m_voShapes.size() < bare.m_voShapes.size());
}

void tst_PolarPlot::pansLeaveNothingBehind()
{
    auto* pqPanned = new Polar(QSize(400, 400));
    PolarChartFrame panned(pqPanned);
    panned.resize(420, 460);
    panned.setTitle(QStringLiteral("Azimuth"));
    panned.setZoom(4.0);
    panned.grab();
    for (int i = 0; i <= 10; ++i) {
        pqPanned->xoffset(10 * i);
        pqPanned->yoffset(100 - 10 * i);
        panned.grab();
    }
    pqPanned->xoffset(50);
    pqPanned->yoffset(50);
    auto* pqFresh = new Polar(QSize(400, 400));
    PolarChartFrame fresh(pqFresh);
    fresh.resize(420, 460);
    fresh.setTitle(QStringLiteral("Azimuth"));
    fresh.setZoom(4.0);
    fresh.grab(); // lays a hidden frame out
    QCOMPARE(pqPanned->size(), pqFresh->size());
    QCOMPARE(panned.grabChart().toImage(), fresh.grabChart().toImage());
    const auto vpqBars = panned.findChildren<QScrollBar*>();
    QVERIFY(std::all_of(vpqBars.begin(), vpqBars.end(), [](QScrollBar* pqBar) { return !pqBar->isHidden(); }));
    panned.setZoom(1.0);
    QVERIFY(std::all_of(vpqBars.begin(), vpqBars.end(), [](QScrollBar* pqBar) { return pqBar->isHidden(); }));
}

void tst_PolarPlot::picturesContainTitleBoxAndNorthArrow()
{
    auto* pqPolar = new Polar(QSize(400, 400));
    PolarChartFrame frame(pqPolar);
    frame.setTitle(QStringLiteral("Azimuth"));
    frame.setZoom(3.0);
    pqPolar->setShowPointsCount(true);
    RecordingDevice device(QSize(500, 500));
    QPainter painter(&device);
    frame.picture().m_fnRender(painter, QRectF(50, 50, 400, 400));
    painter.end();
    for (const char* pText : {"Rose Diagram: Azimuth", "points = 0", "N", "360"})
        QCOMPARE(device.recording().textList().count(QString::fromLatin1(pText)), 1);
    for (const RecordedText& text : device.recording().m_vTexts)
        QVERIFY2(QRectF(50, 50, 400, 400).contains(text.m_oBox), qPrintable(text.m_sText));
}

void tst_PolarPlot::firstPictureMakesRoomForTheCount()
{
    Polar polar(QSize(500, 400)); // laid out without a count
    polar.changeHeaderTitle(QStringLiteral("Azimuth of a joint set"));
    polar.m_sPoints = QStringLiteral("points = 1234567 (123456 beyond 60 degrees)");
    polar.setShowPointsCount(true);
    const QVector<RecordedText> vTexts = recorded(polar, polar.size()).m_vTexts;
    const auto points = std::find_if(vTexts.begin(), vTexts.end(),
                                     [&polar](const RecordedText& text) { return text.m_sText == polar.m_sPoints; });
    QVERIFY(points != vTexts.end());
    for (const RecordedText& text : vTexts)
        QVERIFY2(&text == &*points || !text.m_oBox.intersects(points->m_oBox), qPrintable(text.m_sText));
    // Counting may take long: once per layout, not at each paint.
    polar.grab();
    const int iAsked = polar.m_iAsked;
    polar.grab();
    QCOMPARE(polar.m_iAsked, iAsked);
}

void tst_PolarPlot::cornersKeepClearOfTheCircle()
{
    const auto texts = [](const QSize& oSize, int iPointSize) {
        Polar polar(oSize);
        QFont oFont = polar.font();
        oFont.setPointSize(iPointSize);
        polar.setFont(oFont);
        polar.changeHeaderTitle(QStringLiteral("Azimuth of joints"));
        polar.setShowPointsCount(true);
        const QVector<RecordedText> vTexts = recorded(polar, oSize).m_vTexts;
        QStringList lTexts;
        for (const RecordedText& text : vTexts) {
            const QPointF oNearest(std::clamp<double>(polar.centre().x(), text.m_oBox.left(), text.m_oBox.right()),
                                   std::clamp<double>(polar.centre().y(), text.m_oBox.top(), text.m_oBox.bottom()));
            if (distance(oNearest, polar.centre()) < polar.radius() + 2.0)
                return QStringList(QStringLiteral("in the circle: ") + text.m_sText);
            lTexts << text.m_sText;
        }
        return lTexts;
    };
    // Large texts shrink, and the data's title is worth more than the name of the chart.
    QVERIFY(texts(QSize(500, 500), 30).contains(QStringLiteral("points = 0")));
    QVERIFY(texts(QSize(300, 200), 9).contains(QStringLiteral("Azimuth of joints")));
    QVERIFY(texts(QSize(1200, 500), 30).contains(QStringLiteral("Rose Diagram: Azimuth of joints")));
}

QTEST_MAIN(tst_PolarPlot)
#include "tst_polarplot.moc"
