// The help in finding T and L: suggestions, diagrams and selection.

#include "TestDataSets.h"

#include <gkBase/MatrixData.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/ScatDipAzimuthPlot.h>
#include <gkBase/ScatDirectionFinder.h>
#include <gkBase/ScatFoldCurve.h>
#include <gkBase/ScatTangentPlot.h>
#include <gkBase/UnitManager.h>

#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <cmath>
#include <memory>
#include <numeric>

using namespace gkBase;

namespace {

constexpr double g_dDegree = 57.29577951308232;

/// A fold about an axis that plunges 10 towards 220.
const std::vector<double> g_vdDips{22.02, 31.12, 22.02, 10.00, 12.71, 34.88, 40.61, 36.78};
const std::vector<double> g_vdAzimuths{155.85, 146.98, 155.85, 220.00, 258.56, 295.35, 298.13, 296.36};

struct Well
{
    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poDip;
    MatrixData* m_poAzimuth;

    Well(const std::vector<double>& vdDips, const std::vector<double>& vdAzimuths)
        : m_poDip(gkTest::attribute(QStringLiteral("dip"), vdDips))
        , m_poAzimuth(gkTest::attribute(QStringLiteral("azimuth"), vdAzimuths))
    {
        m_poRoot = gkTest::rootOf({m_poDip, m_poAzimuth});
    }
    int records() const { return m_poDip->rowCount() - m_poDip->rowOffSet(); }
    void showIn(ScatDirectionFinder& finder, const std::vector<int>& viTableRows = {})
    {
        finder.setData(records(), m_poDip, m_poAzimuth, viTableRows);
        finder.resize(340, 420);
        finder.show();
    }
};

QPushButton* button(const ScatDirectionFinder& finder, const char* pName)
{
    return finder.findChild<QPushButton*>(QLatin1String(pName));
}

void compareDirections(const TransverseDirections& actual, double dT, double dL, double dTolerance)
{
    QVERIFY2(std::abs(actual.m_dTransverse - dT) < dTolerance, qPrintable(QString::number(actual.m_dTransverse)));
    QVERIFY2(std::abs(actual.m_dLongitudinal - dL) < dTolerance, qPrintable(QString::number(actual.m_dLongitudinal)));
}

} // namespace

class TestScatDirectionFinder : public QObject
{
    Q_OBJECT
private slots:
    void suggestionsAreTakenWithAClick();
    void anglesMayBeRadians();
    void selectionIsFollowedOnceItIsSeen();
    void whatIsUndefinedIsNotOffered_data();
    void whatIsUndefinedIsNotOffered();
    void deadAttributesEmptyTheDiagrams();
    void selectingInADiagram_data();
    void selectingInADiagram();
    void marksStandAtTheirAzimuths();
    void curveOfAFold_data();
    void curveOfAFold();
    void rimHoldsTheDips_data();
    void rimHoldsTheDips();
};

void TestScatDirectionFinder::suggestionsAreTakenWithAClick()
{
    Well well(g_vdDips, g_vdAzimuths);
    ScatDirectionFinder finder;
    well.showIn(finder);
    compareDirections(finder.lineSuggestion(), 310.0, 220.0, 0.05);
    compareDirections(finder.firstGuess(), 307.0, 217.0, 0.5);
    QCOMPARE(button(finder, "m_pqLineBtn")->text(), QStringLiteral("Line: T 310.0, L 220.0"));
    QVERIFY(finder.tangentPlot()->foldAxisIsShown());
    QVERIFY(std::abs(finder.tangentPlot()->foldAxis().x() - 10.0) < 0.05);

    QSignalSpy suggested(&finder, &ScatDirectionFinder::directionsSuggested);
    for (const char* pName : {"m_pqLineBtn", "m_pqFirstGuessBtn"})
        button(finder, pName)->click();
    QCOMPARE(suggested.size(), 2);
    QCOMPARE(suggested[0][0].toDouble(), finder.lineSuggestion().m_dTransverse);
    QCOMPARE(suggested[1][0].toDouble(), finder.firstGuess().m_dTransverse);
    QCOMPARE(suggested[1][1].toDouble(), finder.firstGuess().m_dLongitudinal);
}

void TestScatDirectionFinder::anglesMayBeRadians()
{
    std::vector<double> vdDips = g_vdDips;
    for (double& dDip : vdDips)
        dDip /= g_dDegree;
    vdDips.push_back(99999.0);
    std::vector<double> vdAzimuths = g_vdAzimuths;
    vdAzimuths.push_back(12.0);
    Well well(vdDips, vdAzimuths);
    well.m_poDip->setUnitManager(
        boost::shared_ptr<UnitManager>(new UnitManager(QStringLiteral("orientation"), QStringLiteral("rad"))));
    ScatDirectionFinder finder;
    well.showIn(finder);
    compareDirections(finder.lineSuggestion(), 310.0, 220.0, 0.05);
    QCOMPARE(finder.fit().m_iCount, std::size_t(8));
    QCOMPARE(finder.fit().m_iMissing, std::size_t(1));
}

void TestScatDirectionFinder::selectionIsFollowedOnceItIsSeen()
{
    // A second fold, turned by 60 degrees, below the first.
    std::vector<double> vdDips = g_vdDips;
    vdDips.insert(vdDips.end(), g_vdDips.begin(), g_vdDips.end());
    std::vector<double> vdAzimuths = g_vdAzimuths;
    for (const double dAzimuth : g_vdAzimuths)
        vdAzimuths.push_back(std::fmod(dAzimuth + 60.0, 360.0));
    Well well(vdDips, vdAzimuths);
    ScatDirectionFinder finder;
    well.showIn(finder);
    finder.setSelectedRecords({0, 1, 2, 3, 4, 5, 6, 7});
    compareDirections(finder.lineSuggestion(), 310.0, 220.0, 0.05);
    finder.hide();
    finder.setSelectedRecords({8, 9, 10, 11, 12, 13, 14, 15});
    compareDirections(finder.lineSuggestion(), 310.0, 220.0, 0.05); // nobody looks
    finder.show();
    compareDirections(finder.lineSuggestion(), 10.0, 280.0, 0.05);
    // Data that come again keep what is selected; values that change are read.
    finder.setData(well.records(), well.m_poDip, well.m_poAzimuth, {});
    compareDirections(finder.lineSuggestion(), 10.0, 280.0, 0.05);
    well.m_poAzimuth->setColumn(0, MatrixColumn::fromDoubles(std::vector<double>(16, 45.0)));
    finder.refresh();
    QVERIFY(std::abs(finder.firstGuess().m_dTransverse - 45.0) < 0.01);
}

void TestScatDirectionFinder::whatIsUndefinedIsNotOffered_data()
{
    QTest::addColumn<QList<double>>("dips");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("guess");
    QTest::newRow("nothing") << QList<double>{} << "Line: no planes"
                             << "First guess: no planes";
    QTest::newRow("missing") << QList<double>{99999.0, std::nan("")} << "Line: no planes"
                             << "First guess: no planes";
    QTest::newRow("one plane") << QList<double>{20.0} << "Line: needs two planes"
                               << "First guess: needs two planes";
    QTest::newRow("level planes") << QList<double>{0.0, 0.0, 0.0} << "Line: no direction stands out"
                                  << "First guess: no direction stands out";
    QTest::newRow("too steep for a line") << QList<double>{86.0, 88.0} << "Line: no direction stands out"
                                          << "First guess: T 030.0, L 120.0";
}

void TestScatDirectionFinder::whatIsUndefinedIsNotOffered()
{
    QFETCH(QList<double>, dips);
    Well well({dips.begin(), dips.end()}, std::vector<double>(static_cast<std::size_t>(dips.size()), 30.0));
    ScatDirectionFinder finder;
    well.showIn(finder);
    QTEST(button(finder, "m_pqLineBtn")->text(), "line");
    QVERIFY(!button(finder, "m_pqLineBtn")->isEnabled());
    QTEST(button(finder, "m_pqFirstGuessBtn")->text(), "guess");
    QCOMPARE(button(finder, "m_pqFirstGuessBtn")->isEnabled(), finder.firstGuess().m_dTransverse != 99999.0);
    QVERIFY(!finder.tangentPlot()->foldAxisIsShown());
    finder.grab();
}

void TestScatDirectionFinder::deadAttributesEmptyTheDiagrams()
{
    Well well(g_vdDips, g_vdAzimuths);
    ScatDirectionFinder finder;
    well.showIn(finder);
    well.m_poDip->parentNode()->removeChild(well.m_poAzimuth);
    QCOMPARE(finder.tangentPlot()->model()->numberOfPoints(), 0);
    QVERIFY(!button(finder, "m_pqLineBtn")->isEnabled());

    Well other(g_vdDips, g_vdAzimuths);
    other.showIn(finder);
    QVERIFY(button(finder, "m_pqLineBtn")->isEnabled());
    other.m_poRoot.reset();
    QVERIFY(!button(finder, "m_pqLineBtn")->isEnabled());
    finder.refresh();
    finder.grab();
}

void TestScatDirectionFinder::selectingInADiagram_data()
{
    QTest::addColumn<int>("page");
    QTest::newRow("tangent diagram") << 0;
    QTest::newRow("dip against azimuth") << 1;
}

void TestScatDirectionFinder::selectingInADiagram()
{
    QFETCH(int, page);
    Well well(g_vdDips, g_vdAzimuths);
    ScatDirectionFinder finder;
    well.showIn(finder, {1, 3, 4, 6}); // a filtered table
    finder.findChild<QTabWidget*>()->setCurrentIndex(page);
    finder.grab();
    QChartDrawingArea* pqPlot = page == 0 ? static_cast<QChartDrawingArea*>(finder.tangentPlot())
                                          : static_cast<QChartDrawingArea*>(finder.dipAzimuthPlot());
    QList<QList<int>> lviSelections;
    connect(&finder, &ScatDirectionFinder::dataPointsSelection, this, [&](const bool* pbSelection, int iLength) {
        QList<int> viRecords;
        for (int i = 0; i < iLength; ++i)
            if (pbSelection[i])
                viRecords << i;
        lviSelections << viRecords;
    });
    const auto pixelOf = [&](std::size_t i) {
        return pqPlot->transformInPixelPoint({g_vdDips[i], g_vdAzimuths[i]}).toPoint();
    };
    QTest::mouseClick(pqPlot, Qt::LeftButton, Qt::NoModifier, pixelOf(4));
    QTest::mouseClick(pqPlot, Qt::LeftButton, Qt::ControlModifier, pixelOf(6));
    QCOMPARE(lviSelections, (QList<QList<int>>{{4}, {4, 6}}));
    QCOMPARE(finder.fit().m_iCount, std::size_t(2));
    // A click beside all records tells nothing, and the selection that others show stays.
    QTest::mouseClick(pqPlot, Qt::LeftButton, Qt::NoModifier, QPoint(pqPlot->width() - 3, 3));
    QTest::mouseClick(pqPlot, Qt::LeftButton, Qt::NoModifier, pixelOf(0)); // filtered out
    QCOMPARE(lviSelections.size(), 2);
    QCOMPARE(finder.tangentPlot()->model()->selectedRecords(), (std::vector<int>{4, 6}));
    QCOMPARE(finder.fit().m_iCount, std::size_t(2));
}

void TestScatDirectionFinder::marksStandAtTheirAzimuths()
{
    ScatDipAzimuthPlot plot;
    plot.resize(361, 100); // a pixel for each degree
    plot.setDirections(310.0, 220.0);
    QStringList lMarks;
    for (const ScatDipAzimuthPlot::Mark& mark : plot.marks())
        lMarks << QStringLiteral("%1 %2").arg(mark.m_sName).arg(mark.m_dX);
    QCOMPARE(lMarks, (QStringList{"T+180 130", "L 220", "T 310"}));
    plot.setDirections(99999.0, std::nan(""));
    QVERIFY(plot.marks().empty());

    // In the tangent diagram they run through the centre.
    ScatTangentPlot diagram;
    diagram.resize(300, 300);
    const auto darkAt = [&](double dDirection) {
        QImage oPicture(300, 300, QImage::Format_RGB32);
        QPainter painter(&oPicture);
        diagram.renderTo(painter, oPicture.rect());
        painter.end();
        return qGray(oPicture.pixel(diagram.pointAt(dDirection, 0.5 * diagram.radius()).toPoint())) < 60;
    };
    QVERIFY(!darkAt(305.0) && !darkAt(125.0));
    diagram.setDirections(305.0, 99999.0);
    QVERIFY(darkAt(305.0) && darkAt(125.0) && !darkAt(215.0));
}

void TestScatDirectionFinder::curveOfAFold_data()
{
    QTest::addColumn<double>("plunge");
    QTest::addColumn<double>("azimuth");
    QTest::addColumn<int>("pieces");
    QTest::newRow("plunging") << 10.0 << 220.0 << 1;
    QTest::newRow("across north") << 25.0 << 300.0 << 2;
    QTest::newRow("across north on the left") << 25.0 << 10.0 << 2;
    QTest::newRow("horizontal") << 0.0 << 150.0 << 1;
    QTest::newRow("vertical") << 90.0 << 180.0 << 1;
    QTest::newRow("none") << 99999.0 << 99999.0 << 0;
}

void TestScatDirectionFinder::curveOfAFold()
{
    QFETCH(double, plunge);
    QFETCH(double, azimuth);
    const std::vector<QPolygonF> vPieces = cylindricalFoldCurve({plunge, azimuth});
    QTEST(static_cast<int>(vPieces.size()), "pieces");
    double dLength = 0.0; // in azimuth: half the circle, whatever the axis
    for (const QPolygonF& piece : vPieces) {
        const QRectF oBox = piece.boundingRect();
        QVERIFY(oBox.left() >= 0.0 && oBox.right() <= 360.0 && oBox.top() >= 0.0 && oBox.bottom() <= 90.0 + 1e-9);
        dLength += oBox.width();
        for (const QPointF& oPoint : piece) {
            // The pole of each plane lies across the axis: sin(plunge) cos(dip) = cos(plunge) sin(dip) cos(difference).
            const double dLeft = std::sin(plunge / g_dDegree) * std::cos(oPoint.y() / g_dDegree);
            const double dRight = std::cos(plunge / g_dDegree) * std::sin(oPoint.y() / g_dDegree) *
                                  std::cos((oPoint.x() - azimuth) / g_dDegree);
            QVERIFY2(std::abs(dLeft - dRight) < 2e-3, qPrintable(QString::number(oPoint.x()))); // at the cut a chord
        }
    }
    if (!vPieces.empty())
        QVERIFY2(std::abs(dLength - 180.0) < 1e-6, qPrintable(QString::number(dLength)));
}

void TestScatDirectionFinder::rimHoldsTheDips_data()
{
    QTest::addColumn<int>("percentAt20");
    QTest::addColumn<double>("others");
    QTest::addColumn<double>("rim");
    QTest::newRow("gentle") << 100 << 20.0 << 30.0;
    QTest::newRow("a few steep ones stay outside") << 99 << 84.0 << 30.0;
    QTest::newRow("more of them do not") << 98 << 62.0 << 65.0;
    QTest::newRow("upright") << 50 << 89.0 << 85.0;
    QTest::newRow("missing ones do not count") << 50 << 99999.0 << 30.0;
    QTest::newRow("without dips") << 0 << 99999.0 << 60.0;
}

void TestScatDirectionFinder::rimHoldsTheDips()
{
    QFETCH(int, percentAt20);
    QFETCH(double, others);
    std::vector<double> vdDips(static_cast<std::size_t>(percentAt20), 20.0);
    vdDips.resize(100, others);
    QTEST(tangentRimAngle(vdDips), "rim");
}

QTEST_MAIN(TestScatDirectionFinder)
#include "tst_scatdirectionfinder.moc"
