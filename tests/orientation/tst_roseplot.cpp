// The canvas of rose diagrams: shapes, what is drawn, the mouse.

#include "RecordingDevice.h"
#include "TestDataSets.h"

#include "MissingValue.h"
#include "QRelationshipItemModel.h"
#include "QRosePlotWidget.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <memory>

using namespace gkBase;
using namespace gkTest;

namespace {

constexpr int g_iSide = 401; // radius 160, centre 200

/// Ten records at 45°, five at 135°, one at 225° and one without a value, in sectors of 90°.
struct Rose
{
    explicit Rose(bool bClassified = false, int iSectorSize = 90)
        : m_iSectorSize(iSectorSize)
    {
        std::vector<double> vdAzimuth(10, 45.0);
        vdAzimuth.insert(vdAzimuth.end(), 5, 135.0);
        vdAzimuth.insert(vdAzimuth.end(), {225.0, g_dEmptyCell});
        std::vector<double> vdClass(vdAzimuth.size(), 1.0);
        for (std::size_t i = 0; i < 4; ++i)
            vdClass[i] = 2.0;
        vdClass[4] = g_dEmptyCell;
        m_poRoot =
            rootOf({attribute(QStringLiteral("azimuth"), vdAzimuth), attribute(QStringLiteral("class"), vdClass)});
        m_plot.resize(g_iSide, g_iSide);
        m_plot.setModel(&m_model);
        m_plot.setEqualAreaScaling(false);
        m_plot.setDirectionData(node("azimuth"), {});
        m_model.setColorAttribute(bClassified ? node("class") : nullptr);
        count();
    }
    MatrixData* node(const char* pName) { return m_poRoot->getNodeFromName(QLatin1String(pName)); }
    void count()
    {
        const bool bClassified = m_model.colorAttributeIsOn();
        const RoseSettings settings{double(m_iSectorSize), 0.0, !m_plot.isUnidirectional()};
        m_plot.setRoseData(roseBins(m_model.x(), settings, m_plot.takenMask(), {},
                                    bClassified ? m_model.colorClasses().ids() : std::span<const int>(),
                                    bClassified ? m_model.colorClasses().highestId() + 1 : 0),
                           roseMeans(m_model.x(), m_plot.takenMask()));
        m_plot.updateChart();
    }
    QImage picture()
    {
        m_plot.showResultantMeanDirection(false);
        m_plot.showGridCircles(false);
        QImage oImage(g_iSide, g_iSide, QImage::Format_RGB32);
        QPainter painter(&oImage);
        m_plot.renderTo(painter, oImage.rect());
        return oImage;
    }
    Recording recording()
    {
        RecordingDevice device(QSize(g_iSide, g_iSide));
        QPainter painter(&device);
        m_plot.renderTo(painter, QRect(0, 0, g_iSide, g_iSide));
        painter.end();
        return device.recording();
    }
    void click(double dDirection, double dShare, Qt::KeyboardModifiers eModifiers = Qt::NoModifier)
    {
        const QPoint oPosition = m_plot.pointAt(dDirection, dShare * m_plot.radius()).toPoint();
        QTest::mouseClick(&m_plot, Qt::LeftButton, eModifiers, oPosition);
    }
    QColor colorAt(const QImage& oImage, double dDirection, double dShare)
    {
        return oImage.pixelColor(m_plot.pointAt(dDirection, dShare * m_plot.radius()).toPoint());
    }

    int m_iSectorSize;
    std::unique_ptr<MatrixData> m_poRoot;
    QRelationshipItemModel m_model;
    QRosePlotWidget m_plot{nullptr, QStringLiteral("Rose Diagram")};
};

std::vector<double> outerRadii(const QRosePlotWidget& plot)
{
    std::vector<double> vdRadii;
    for (const RosePetal& petal : plot.petals())
        vdRadii.push_back(std::round(petal.m_dOuter * plot.radius()));
    return vdRadii;
}

} // namespace

class tst_RosePlot : public QObject
{
    Q_OBJECT
private slots:
    void radii_data();
    void radii();
    void gridCirclesStopInsideTheRim();
    void petalsStandAtTheirAzimuths();
    void classesLieFromTheInsideOut();
    void unitVectorsBeginAtTheCentre();
    void meansAreToldApart();
    void clicksSelectSectors();
    void readOut();
    void emptyRose();
};

void tst_RosePlot::radii_data()
{
    QTest::addColumn<bool>("bEqualArea");
    QTest::addColumn<int>("iZeroCircle");
    QTest::addColumn<std::vector<double>>("vdRadii"); // of 10, 5, 1 and 0 counts, R = 160
    QTest::newRow("linear") << false << 0 << std::vector<double>{160, 80, 16};
    QTest::newRow("area") << true << 0 << std::vector<double>{160, 113, 51};
    QTest::newRow("zero circle") << false << 50 << std::vector<double>{160, 120, 88, 80};
    QTest::newRow("area, zero circle") << true << 50 << std::vector<double>{160, 137, 105, 80};
}

void tst_RosePlot::radii()
{
    QFETCH(bool, bEqualArea);
    QFETCH(int, iZeroCircle);
    QFETCH(std::vector<double>, vdRadii);
    Rose rose;
    rose.m_plot.setEqualAreaScaling(bEqualArea);
    rose.m_plot.setZeroCircleSize(iZeroCircle);
    rose.m_plot.updateChart();
    QCOMPARE(outerRadii(rose.m_plot), vdRadii);
    QCOMPARE(rose.m_plot.getGridCircleDistance(), 2);
    QVERIFY(rose.m_plot.gridRadii().front() > 160 * iZeroCircle / 100);
}

void tst_RosePlot::gridCirclesStopInsideTheRim()
{
    Rose rose;
    rose.m_plot.setGridCircleDistance(5);
    rose.m_plot.updateChart();
    QCOMPARE(rose.m_plot.gridRadii(), std::vector<int>{80});
    rose.m_plot.setGridCircleDistance(0);
    rose.m_plot.updateChart();
    QVERIFY(rose.m_plot.gridRadii().empty());
}

void tst_RosePlot::petalsStandAtTheirAzimuths()
{
    Rose rose;
    const QColor oColor(20, 140, 60);
    rose.node("azimuth")->setColor(oColor);
    const QImage oImage = rose.picture();
    for (const double dDirection : {5.0, 45.0, 85.0}) // the first sector, clockwise from north
        QCOMPARE(rose.colorAt(oImage, dDirection, 0.9), oColor);
    QCOMPARE(rose.colorAt(oImage, 135.0, 0.45), oColor);
    QCOMPARE(rose.colorAt(oImage, 135.0, 0.55), QColor(Qt::white));
    QCOMPARE(rose.colorAt(oImage, 225.0, 0.05), oColor);
    QCOMPARE(rose.colorAt(oImage, 315.0, 0.05), QColor(Qt::white));
}

void tst_RosePlot::classesLieFromTheInsideOut()
{
    Rose rose(true);
    const QImage oImage = rose.picture();
    // The petal of 10: one record without a class, then 5 of class "1", then 4 of class "2".
    const RelationshipClasses& classes = rose.m_model.colorClasses();
    QCOMPARE(rose.colorAt(oImage, 45.0, 0.3), classes.color(1));
    QCOMPARE(rose.colorAt(oImage, 45.0, 0.58), classes.color(1));
    QCOMPARE(rose.colorAt(oImage, 45.0, 0.63), classes.color(2));
    QCOMPARE(rose.colorAt(oImage, 45.0, 0.95), classes.color(2));
    QVERIFY(rose.colorAt(oImage, 45.0, 0.05) != classes.color(1));
    // A class that is coloured anew needs no new count.
    rose.m_model.changeColorClass(2, Qt::magenta);
    QCOMPARE(rose.colorAt(rose.picture(), 45.0, 0.95), QColor(Qt::magenta));
}

void tst_RosePlot::unitVectorsBeginAtTheCentre()
{
    Rose rose;
    rose.m_plot.showDirectionAsRosePlot(false);
    rose.m_plot.showGridCircles(false);
    rose.m_plot.showResultantMeanDirection(false);
    rose.m_plot.setZeroCircleSize(50); // not for these circles
    QSet<int> iRadii;
    for (const QPolygonF& oShape : rose.recording().m_voShapes) {
        const QRectF oBox = oShape.boundingRect();
        if (oShape.size() > 20 && std::abs(oBox.width() - oBox.height()) < 1e-6)
            iRadii.insert(qRound(oBox.width() / 2));
    }
    QCOMPARE(iRadii, QSet<int>({160, 80, 16}));
}

void tst_RosePlot::meansAreToldApart()
{
    Rose rose;
    rose.m_plot.setUnidirectional(false);
    rose.count();
    const QStringList lTexts = rose.recording().textList();
    // Unit vectors of 10 at 45°, 5 at 135° and 1 at 225°: 9 along 45°, 5 along 135°, of 16; axes: 11 at 45°, 5 at 135°.
    QVERIFY2(lTexts.contains("mean 74.1°, R = 0.64"), qPrintable(lTexts.join('|')));
    QVERIFY2(lTexts.contains("axis 45.0°, R = 0.38"), qPrintable(lTexts.join('|')));
    QVERIFY(lTexts.join(' ').contains("n = 16"));
    rose.m_plot.setUnidirectional(true);
    rose.count();
    QVERIFY(!rose.recording().textList().join(' ').contains("axis"));
    // The arrow ends at the mean length, or just beyond the rim.
    const auto reach = [&rose](bool bLength) {
        rose.m_plot.showResultantMeanLength(bLength);
        double dLongest = 0.0;
        for (const QPolygonF& oShape : rose.recording().m_voShapes) {
            if (oShape.size() == 2 && oShape.first() == QPointF(rose.m_plot.centre()) &&
                std::abs(QLineF(oShape.first(), oShape.last()).angle() - (90.0 - 74.05)) < 1.0)
                dLongest = std::max(dLongest, QLineF(oShape.first(), oShape.last()).length());
        }
        return qRound(dLongest);
    };
    QCOMPARE(reach(true), qRound(160 * std::hypot(9.0, 5.0) / 16.0));
    QVERIFY(reach(false) > 160);
}

void tst_RosePlot::clicksSelectSectors()
{
    Rose rose;
    std::vector<int> viSelected;
    int iClicks = 0;
    connect(&rose.m_plot, &QChartDrawingArea::dataPointsSelection, this, [&](const bool* pbSelection, int iLength) {
        ++iClicks;
        viSelected.clear();
        for (int i = 0; i < iLength; ++i) {
            if (pbSelection[i])
                viSelected.push_back(i);
        }
        rose.m_plot.setDirectionData(rose.node("azimuth"), viSelected);
        rose.count();
    });
    rose.click(100.0, 0.9); // beyond the petal, but in its sector
    QCOMPARE(viSelected, (std::vector<int>{10, 11, 12, 13, 14}));
    QCOMPARE(rose.m_plot.maximum(), 5.0);
    rose.click(230.0, 0.5, Qt::ControlModifier);
    QCOMPARE(viSelected, (std::vector<int>{10, 11, 12, 13, 14, 15}));
    rose.click(230.0, 1.2, Qt::ControlModifier); // a slip
    QCOMPARE(iClicks, 2);
    rose.click(230.0, 1.2);
    QVERIFY(viSelected.empty());
    QCOMPARE(rose.m_plot.maximum(), 10.0);
    // Both ends of an axis are one sector.
    rose.m_plot.setUnidirectional(false);
    rose.count();
    rose.click(45.0, 0.5);
    QCOMPARE(int(viSelected.size()), 11);
}

void tst_RosePlot::readOut()
{
    Rose rose(true, 100); // 0 – 300°, the rest is uncovered
    const auto text = [&rose](double dDirection, double dShare) {
        return rose.m_plot.sectorText(rose.m_plot.pointAt(dDirection, dShare * rose.m_plot.radius()));
    };
    QCOMPARE(text(45.0, 0.95), QString("0° – 100°: 10 (62.5 % of 16); 2: 4 (25.0 % of 16)"));
    QCOMPARE(text(45.0, 0.05), QString("0° – 100°: 10 (62.5 % of 16); no value: 1 (6.3 % of 16)"));
    QCOMPARE(text(150.0, 0.9), QString("100° – 200°: 5 (31.3 % of 16)"));
    QCOMPARE(text(330.0, 0.5), QString("300° – 360°: no sector"));
    QVERIFY(text(45.0, 1.1).isEmpty());
    // Of bidirectional records both ends count: 11 of 32 directions lie between 0° and 90°.
    Rose axes;
    axes.m_plot.setUnidirectional(false);
    axes.count();
    QCOMPARE(axes.m_plot.sectorText(axes.m_plot.pointAt(45.0, 20.0)),
             QString("0° – 90°: 11 (34.4 % of 16 records, both ends)"));
    // The part that is seen moves with the view.
    rose.m_plot.zoom(4.0);
    rose.m_plot.updateChart();
    const QPointF oInView = rose.m_plot.pointAt(150.0, 100.0) - QPointF(rose.m_plot.pixmapRect().topLeft());
    QVERIFY(rose.m_plot.sectorText(oInView).startsWith("100° – 200°"));
}

void tst_RosePlot::emptyRose()
{
    Rose rose;
    rose.m_plot.setDirectionData(nullptr, {});
    rose.m_plot.setMessage(QStringLiteral("nothing to count"));
    rose.count();
    QVERIFY(rose.m_plot.petals().empty());
    QVERIFY(rose.recording().textList().contains("nothing to count"));
    QSignalSpy spy(&rose.m_plot, &QChartDrawingArea::dataPointsSelection);
    rose.click(45.0, 0.5);
    QCOMPARE(spy.count(), 0);
    QRosePlotWidget alone(nullptr, QStringLiteral("Rose Diagram"));
    alone.resize(100, 100);
    QVERIFY(!alone.setDirectionData(rose.node("azimuth"), {}));
    alone.grab();
    alone.resize(1, 1);
    alone.grab();
}

QTEST_MAIN(tst_RosePlot)
#include "tst_roseplot.moc"
