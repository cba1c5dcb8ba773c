// The Woodcock diagram: scaling between its reference sizes, lines of equal shape and strength, points and table.

#include <StereoWoodcockPage.h>
#include <WoodcockGeometry.h>
#include <gkBase/OrientationStatistics.h>
#include <gkBase/QWoodcockHelpWidget.h>

#include <QPainter>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include <cmath>
#include <vector>

using namespace gkBase;

namespace {

bool areClose(const QPointF& oFirst, const QPointF& oSecond)
{
    return std::hypot(oFirst.x() - oSecond.x(), oFirst.y() - oSecond.y()) < 1e-9;
}

QImage picture(QWoodcockHelpWidget& diagram, int iSize)
{
    QImage oImage(iSize, iSize, QImage::Format_RGB32);
    oImage.fill(Qt::gray);
    QPainter painter(&oImage);
    diagram.renderTo(painter, oImage.rect());
    return oImage;
}

/// Pixels of exactly that colour in a square about a point.
int pixelsOf(const QImage& oImage, const QColor& oColor, const QPointF& oCentre, int iReach)
{
    int iPixels = 0;
    const QRect oSquare(oCentre.toPoint() - QPoint(iReach, iReach), QSize(2 * iReach + 1, 2 * iReach + 1));
    const QRect oPart = oSquare.intersected(oImage.rect());
    for (int y = oPart.top(); y <= oPart.bottom(); ++y) {
        for (int x = oPart.left(); x <= oPart.right(); ++x)
            iPixels += oImage.pixelColor(x, y) == oColor ? 1 : 0;
    }
    return iPixels;
}

ClusterShape shapeOf(const QString& sName, const std::vector<double>& vdDips, const std::vector<double>& vdAzimuths)
{
    return {sName, vdDips.size(), orientationStatistics(OrientationType::Planes, vdDips, vdAzimuths).m_oWoodcock,
            Qt::red};
}

} // namespace

class TestWoodcock : public QObject
{
    Q_OBJECT
private slots:
    void axes_data();
    void axes();
    void linesKeepTheirValue();
    void edgeMarksKeepTheirShape();
    void pointsAreDrawnWhereTheyLie();
    void pointsOutsideAreMarked();
    void resetLeavesThePicture();
    void rowsAndPointsGoTogether();
};

void TestWoodcock::axes_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QPointF>("origin");
    QTest::addColumn<QPointF>("end");
    QTest::newRow("383") << QSizeF(383, 383) << QPointF(60, 338) << QPointF(330, 68);
    QTest::newRow("634") << QSizeF(634, 634) << QPointF(100, 561) << QPointF(546, 113);
    QTest::newRow("half way") << QSizeF(508.5, 508.5) << QPointF(80, 449.5) << QPointF(438, 90.5);
    QTest::newRow("width and height apart") << QSizeF(383, 634) << QPointF(60, 561) << QPointF(330, 113);
}

void TestWoodcock::axes()
{
    QFETCH(QSizeF, size);
    QFETCH(QPointF, origin);
    QFETCH(QPointF, end);
    const WoodcockAxes oAxes(size);
    QVERIFY(areClose(oAxes.pixel(0, 0), origin));
    QVERIFY(areClose(oAxes.pixel(5, 5), end));
    QVERIFY(areClose(oAxes.pixel(2.5, 2.5), (origin + end) / 2.0));
    QVERIFY(areClose(oAxes.pixel(10, 0), {2 * end.x() - origin.x(), origin.y()})); // goes on beyond 5
    QVERIFY(areClose(oAxes.values(oAxes.pixel(1.5, 7.25)), {1.5, 7.25}));
}

void TestWoodcock::linesKeepTheirValue()
{
    const QRectF oSquare(0, 0, 5, 5);
    for (const WoodcockLine& line : woodcockLinesOfK()) {
        QVERIFY(areClose(line.m_oLine.p1(), {0, 0}) && oSquare.contains(line.m_oLine.p2()));
        QVERIFY(std::abs(line.m_oLine.y2() / line.m_oLine.x2() - line.m_dValue) < 1e-12);
        QCOMPARE(std::max(line.m_oLine.x2(), line.m_oLine.y2()), 5.0); // to the edge
    }
    for (const WoodcockLine& line : woodcockLinesOfC()) {
        for (const QPointF& oEnd : {line.m_oLine.p1(), line.m_oLine.p2()})
            QVERIFY(oSquare.contains(oEnd) && std::abs(oEnd.x() + oEnd.y() - line.m_dValue) < 1e-12);
        QVERIFY(line.m_oLine.length() > 1.0);
    }
}

void TestWoodcock::edgeMarksKeepTheirShape()
{
    const WoodcockAxes oAxes(QSizeF(383, 383));
    const QRectF oArea(10, 10, 363, 363);
    QVERIFY(!woodcockEdgeMark(oArea, oAxes.m_oOrigin, oAxes.pixel(5, 5)));
    for (const QPointF& oFar : {QPointF(1, 9), QPointF(30, 2), QPointF(8, 8), QPointF(0, 12), QPointF(12, 0)}) {
        const auto oMark = woodcockEdgeMark(oArea, oAxes.m_oOrigin, oAxes.pixel(oFar.x(), oFar.y()));
        QVERIFY(oMark.has_value());
        QVERIFY(oArea.contains(*oMark) && !oArea.adjusted(1, 1, -1, -1).contains(*oMark));
        const QPointF oValues = oAxes.values(*oMark);
        QVERIFY(std::abs(oValues.x() * oFar.y() - oValues.y() * oFar.x()) < 1e-9);
    }
}

void TestWoodcock::pointsAreDrawnWhereTheyLie()
{
    QWoodcockHelpWidget tiny; // has no room for marks at its edge
    tiny.addPoint(30, 30, Circle, Qt::red, "A");
    QVERIFY(!picture(tiny, 20).isNull());
    for (const int iSize : {200, 383, 500, 634}) {
        QWoodcockHelpWidget diagram;
        const QImage oEmpty = picture(diagram, iSize);
        diagram.addPoint(0, 0, Circle, Qt::red);
        diagram.addPoint(2.5, 2.5, Square, Qt::blue);
        diagram.addPoint(4.5, 0.5, Triangle1, Qt::magenta);
        diagram.addPoint(99999.0, 1.0, Circle, Qt::green);
        const QImage oImage = picture(diagram, iSize);
        const WoodcockAxes oAxes(QSizeF(iSize, iSize));
        QVERIFY(pixelsOf(oImage, Qt::red, oAxes.pixel(0, 0), 5) > 20);
        QVERIFY(pixelsOf(oImage, Qt::blue, oAxes.pixel(2.5, 2.5), 5) > 20);
        QVERIFY(pixelsOf(oImage, Qt::magenta, oAxes.pixel(4.5, 0.5), 5) > 10);
        QCOMPARE(pixelsOf(oImage, Qt::green, {}, iSize), 0);
        diagram.setCurrentPoint(2.5, 2.5);
        const QImage oCurrent = picture(diagram, iSize);
        QVERIFY(pixelsOf(oCurrent, Qt::yellow, oAxes.pixel(2.5, 2.5), 9) > 60);
        QCOMPARE(pixelsOf(oCurrent, Qt::blue, {}, iSize), 0);
        QCOMPARE(picture(diagram, iSize), oCurrent); // nothing adds up
        diagram.setCurrentPoint(1.0, 3.0);           // none of the points
        QVERIFY(pixelsOf(picture(diagram, iSize), Qt::yellow, oAxes.pixel(1.0, 3.0), 9) > 60);
    }
}

void TestWoodcock::pointsOutsideAreMarked()
{
    QWoodcockHelpWidget diagram;
    diagram.resize(383, 383);
    QCOMPARE(diagram.transformInPixelPoint({5, 5}), QPointF(330, 68));
    diagram.addPoint(1, 30, Circle, Qt::red);
    const QImage oImage = diagram.grab().toImage();
    QVERIFY(pixelsOf(oImage, Qt::red, {}, 383) > 30);
    int iAtTop = -1;
    for (int x = 0; x < 383 && iAtTop < 0; ++x)
        iAtTop = diagram.pointAt(QPointF(x, 18));
    QCOMPARE(iAtTop, 0); // it can be asked for its values
    diagram.resetPoints();
    for (int x = 0; x < 383; ++x) // also before the next drawing
        QCOMPARE(diagram.pointAt(QPointF(x, 18)), -1);
}

void TestWoodcock::resetLeavesThePicture()
{
    QWoodcockHelpWidget diagram;
    const QImage oEmpty = picture(diagram, 383);
    diagram.addPoint(2, 2, Circle, Qt::red, "A");
    QVERIFY(picture(diagram, 383) != oEmpty);
    diagram.resetPoints();
    QCOMPARE(picture(diagram, 383), oEmpty);
    diagram.setCurrentPoint(2, 2);
    QVERIFY(pixelsOf(picture(diagram, 383), Qt::yellow, WoodcockAxes(QSizeF(383, 383)).pixel(2, 2), 9) > 60);
}

void TestWoodcock::rowsAndPointsGoTogether()
{
    StereoWoodcockPage page;
    page.resize(290, 600);
    page.show();
    const std::vector<ClusterShape> vShapes{shapeOf("0", {30, 35, 25, 30, 40}, {90, 95, 85, 80, 100}),
                                            shapeOf("1", {90, 90, 90}, {0, 30, 50}), // in one plane
                                            shapeOf("2", {30, 80, 25, 60}, {90, 200, 85, 80}), shapeOf("3", {}, {})};
    page.showShapes(vShapes);
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    page.diagram()->redraw();
    auto* pqTable = page.findChild<QTableWidget*>();
    QCOMPARE(pqTable->rowCount(), 4);
    QCOMPARE(page.text().split('\n').at(1), "0\t5\t4.46\t2.59\t1.72\t7.05");
    QCOMPARE(pqTable->item(1, 5)->text(), "---"); // C is unbounded, not 0
    QVERIFY(!pqTable->item(1, 5)->toolTip().isEmpty());
    QSignalSpy chosen(&page, &StereoWoodcockPage::shapeChosen);
    const auto& parameters = vShapes[2].m_oParameters;
    const QPointF oPixel = page.diagram()->transformInPixelPoint({parameters.m_dLnS2S3, parameters.m_dLnS1S2});
    QTest::mouseClick(page.diagram(), Qt::LeftButton, {}, oPixel.toPoint());
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(page.currentShape(), 2);
    QCOMPARE(page.diagram()->currentPoint().x(), parameters.m_dLnS2S3);
    pqTable->selectRow(1); // it has no place in the diagram
    QCOMPARE(chosen.size(), 2);
    QCOMPARE(page.diagram()->currentPoint(), QPointF(99999.0, 99999.0));
    page.setCurrentShape(0);
    page.showShapes(vShapes); // the same ones again
    QCOMPARE(page.currentShape(), 0);
    QCOMPARE(chosen.size(), 2);
    page.showNothing("No clusters");
    QCOMPARE(page.diagram()->numberOfPoints(), 0);
    QVERIFY(page.text().isEmpty());
}

QTEST_MAIN(TestWoodcock)
#include "tst_woodcock.moc"
