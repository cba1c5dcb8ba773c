// Lines at depths: their parallel vectors, picking, moving and erasing; interval filter and scenarios of a model.

#include <gkBase/DepthLineField.h>
#include <gkBase/QRelationshipItemModel.h>

#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr double dNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double dMissing = 99999.0;

/// Every vector has an entry per line.
bool isParallel(const DepthLineField& lines)
{
    const auto iLines = static_cast<std::size_t>(lines.count());
    return lines.lineDepths().size() == iLines && lines.linesX().size() == iLines &&
           lines.lineNames().size() == iLines && lines.lineColors().size() == iLines &&
           lines.lineTypes().size() == iLines && lines.lineOrientations().size() == iLines &&
           lines.originalRowPos().size() == iLines && lines.originalDepthChanged().size() == iLines;
}

int insert(DepthLineField& lines, double dDepth, DepthLineField::DataType eType = DepthLineField::Horizon,
           double dTolerance = 0.0)
{
    return lines.insertHorizontalLine(dDepth, 0.0, QString::number(dDepth), Qt::blue, eType, {-1.0, -1.0},
                                      lines.count() + 10, dTolerance);
}

} // namespace

class TestDepthLineField : public QObject
{
    Q_OBJECT
private slots:
    void typesHaveTheirNames();
    void insertion();
    void picksNearestFirst();
    void erasingKeepsTheOthersTogether();
    void movesKeepDistances();
    void editsReachSelectedLinesOnly();
    void intervals();
    void boundariesByHand();
    void scenariosAreShared();
};

void TestDepthLineField::typesHaveTheirNames()
{
    for (int i = 0; i <= DepthLineField::AverageOrientation; ++i) {
        const auto eType = static_cast<DepthLineField::DataType>(i);
        QVERIFY(!DepthLineField::type(eType).isEmpty());
        QCOMPARE(DepthLineField::type(DepthLineField::type(eType).toUpper()), eType);
    }
    QCOMPARE(DepthLineField::type(QStringLiteral("river")), DepthLineField::IntervalBoundary);
    QVERIFY(DepthLineField::type(static_cast<DepthLineField::DataType>(7)).isEmpty());
}

void TestDepthLineField::insertion()
{
    DepthLineField lines;
    insert(lines, 100.0);
    lines.setModified(false);
    QCOMPARE(insert(lines, 100.5, DepthLineField::Horizon, 1.0), -1);
    QCOMPARE(insert(lines, dMissing), -1);
    QCOMPARE(insert(lines, dNaN), -1);
    QVERIFY(!lines.modified());
    QCOMPARE(insert(lines, 100.5, DepthLineField::Fault, 1.0), 1);
    QCOMPARE(insert(lines, 100.0), 2); // no tolerance
    QVERIFY(lines.modified() && isParallel(lines));
    // What is not finite would never compare equal.
    lines.insertHorizontalLine(1.0, dNaN, QString(), Qt::blue, DepthLineField::Horizon, {dNaN, 1.0});
    QCOMPARE(lines.linesX()[3], 0.0);
    QCOMPARE(lines.lineOrientations()[3], QPointF(-1.0, -1.0));
}

void TestDepthLineField::picksNearestFirst()
{
    DepthLineField lines;
    for (const double dDepth : {30.0, 10.0, 21.0, 18.0, 20.0})
        insert(lines, dDepth);
    QCOMPARE(lines.pickHorizontalLines({-5.0, 20.4}, 3.0), (std::vector<int>{4, 2, 3}));
    QCOMPARE(lines.pickHorizontalLines({0.0, 20.0}, 0.0), std::vector<int>{4});
    QVERIFY(lines.pickHorizontalLines({0.0, dNaN}, 3.0).empty());
    QCOMPARE(lines.linesByDepth(), (std::vector<int>{1, 3, 4, 2, 0}));
}

void TestDepthLineField::erasingKeepsTheOthersTogether()
{
    std::mt19937 generator(5);
    DepthLineField lines;
    for (int i = 0; i < 200; ++i)
        insert(lines, static_cast<double>(generator() % 1000));
    while (lines.count() > 0) {
        const double dAt = static_cast<double>(generator() % 1000);
        const bool bNear = std::any_of(lines.lineDepths().begin(), lines.lineDepths().end(),
                                       [dAt](double dDepth) { return std::abs(dDepth - dAt) <= 40.0; });
        QCOMPARE(lines.eraseHorizontalLines({0.0, dAt}, 40.0), bNear);
        QVERIFY(lines.pickHorizontalLines({0.0, dAt}, 40.0).empty());
        QVERIFY(isParallel(lines));
        for (int i = 0; i < lines.count(); ++i) {
            const auto n = static_cast<std::size_t>(i);
            QCOMPARE(lines.lineNames()[n], QString::number(lines.lineDepths()[n]));
            QVERIFY(n == 0 || lines.originalRowPos()[n - 1] < lines.originalRowPos()[n]);
        }
    }
}

void TestDepthLineField::movesKeepDistances()
{
    DepthLineField lines;
    for (const double dDepth : {10.0, 12.5, 20.0, 40.0})
        insert(lines, dDepth);
    lines.setSelected({0, 1, 3, 99, -1});
    for (int iStep = 0; iStep < 8; ++iStep)
        lines.moveSelectedLines({0.25, iStep % 2 ? -1.5 : 4.0});
    QCOMPARE(lines.lineDepths(), (std::vector<double>{20.0, 22.5, 20.0, 50.0}));
    QCOMPARE(lines.linesX(), (std::vector<double>{2.0, 2.0, 0.0, 2.0}));
    QCOMPARE(lines.originalDepthChanged(), (std::vector<bool>{true, true, false, true}));

    lines.moveSelectedLines({0.0, dNaN});
    lines.moveSelectedLines({99999.0, 1.0});
    lines.updatePickedHorizon(4, 7.0);
    QCOMPARE(lines.lineDepths(), (std::vector<double>{20.0, 22.5, 20.0, 50.0}));
    lines.clearOriginalRowPos();
    QCOMPARE(lines.originalRowPos(), std::vector<int>(4, -1));
}

void TestDepthLineField::editsReachSelectedLinesOnly()
{
    DepthLineField lines;
    for (int i = 0; i < 3; ++i)
        insert(lines, i);
    lines.setModified(false);
    lines.changePickedLineName(QStringLiteral("Top"));
    QVERIFY(!lines.modified());
    lines.setSelected(1, true);
    lines.changePickedLineName(QStringLiteral("Top"));
    lines.changePickedLineColor(Qt::green);
    lines.changePickedOrientation({30.0, 120.0});
    QVERIFY(lines.modified());
    QCOMPARE(lines.lineNames(),
             (std::vector<QString>{QStringLiteral("0"), QStringLiteral("Top"), QStringLiteral("2")}));
    QCOMPARE(lines.lineColors()[1], QColor(Qt::green));
    QCOMPARE(lines.lineColors()[2], QColor(Qt::blue));
    QCOMPARE(lines.lineOrientations()[1], QPointF(30.0, 120.0));
    QCOMPARE(lines.lineOrientations()[0], QPointF(-1.0, -1.0));
    lines.erasePickedLine();
    QCOMPARE(lines.lineDepths(), (std::vector<double>{0.0, 2.0}));
    QVERIFY(!lines.isSomethingSelected());
}

void TestDepthLineField::intervals()
{
    QRelationshipItemModel model;
    const DepthLineField& filter = *model.intervalFilter();
    QCOMPARE(filter.name(), QStringLiteral("Interval Filter"));
    model.generateAquidistantIntervalFilter(2.5, 10.0, 16.0);
    QCOMPARE(filter.lineDepths(), (std::vector<double>{10.0, 12.5, 15.0, 17.5}));
    QCOMPARE(filter.lineNames(), std::vector<QString>(4, QStringLiteral("Name")));
    QCOMPARE(filter.lineColors(), std::vector<QColor>(4, QColor(Qt::red)));
    QCOMPARE(filter.lineTypes(), std::vector<DepthLineField::DataType>(4, DepthLineField::IntervalBoundary));
    QCOMPARE(filter.linesX(), std::vector<double>(4, 0.0));
    QCOMPARE(filter.lineOrientations(), std::vector<QPointF>(4, QPointF(-1.0, -1.0)));
    model.generateAquidistantIntervalFilter(100.0, 10.0, 16.0);
    QCOMPARE(filter.lineDepths(), (std::vector<double>{10.0, 110.0}));
    model.generateNumberOfIntervalFilter(3, 10.0, 16.0);
    QCOMPARE(filter.lineDepths(), (std::vector<double>{10.0, 12.0, 14.0, 16.0}));

    for (const double dSize : {0.0, -1.0, dNaN})
        model.generateAquidistantIntervalFilter(dSize, 0.0, 1.0);
    model.generateNumberOfIntervalFilter(0, 0.0, 1.0);
    model.generateNumberOfIntervalFilter(3, dMissing, 1.0);
    QCOMPARE(filter.count(), 4);
    model.generateAquidistantIntervalFilter(1e-9, 0.0, 1.0);
    QCOMPARE(filter.count(), 100000);
}

void TestDepthLineField::boundariesByHand()
{
    QRelationshipItemModel model;
    QSignalSpy inserted(&model, &QRelationshipItemModel::manuellBinInserted);
    model.insertIntervalBoundary(20.0, 1.0);
    model.insertIntervalBoundary(20.5, 1.0);
    model.insertIntervalBoundary(dMissing, 1.0);
    QCOMPARE(inserted.count(), 1);
    QVERIFY(inserted.takeFirst().first().toBool());
    QCOMPARE(model.intervalFilter()->lineNames(), std::vector<QString>{QStringLiteral("Boundary")});
    QVERIFY(!model.eraseIntervalBoundary({0.0, 22.0}, 1.0));
    QVERIFY(model.eraseIntervalBoundary({0.0, 20.9}, 1.0));
    QVERIFY(!inserted.takeFirst().first().toBool());
    QCOMPARE(model.intervalFilter()->count(), 0);
    // Of several within reach the nearest one goes.
    model.generateAquidistantIntervalFilter(1.0, 0.0, 4.0);
    QVERIFY(model.eraseIntervalBoundary({0.0, 1.8}, 10.0));
    QCOMPARE(model.intervalFilter()->lineDepths(), (std::vector<double>{0.0, 1.0, 3.0, 4.0}));
}

void TestDepthLineField::scenariosAreShared()
{
    QRelationshipItemModel model;
    auto pOther = std::make_unique<QRelationshipItemModel>();
    QVERIFY(!model.structuralTops());
    model.addStructuralTopsSenario(QStringLiteral("A"));
    pOther->shareLines(model);
    pOther->addStructuralTopsSenario(QStringLiteral("B"));
    pOther->addStructuralTopsSenario(QStringLiteral("C"));
    QCOMPARE(model.activeScenario(), 2);
    model.activateStructuralTopsSenario(QStringLiteral("B"));
    model.activateStructuralTopsSenario(QStringLiteral("Z"));
    model.setActiveScenario(3);
    QCOMPARE(pOther->structuralTops()->name(), QStringLiteral("B"));
    pOther->structuralTops()->insertHorizontalLine(5.0, 0.0, QStringLiteral("h"), Qt::blue, DepthLineField::Horizon);
    pOther->insertIntervalBoundary(3.0, 0.0);
    pOther.reset();
    QCOMPARE(model.structuralTops()->count(), 1);
    QCOMPARE(model.intervalFilter()->count(), 1);
    for (const QString& sLeft : {QStringLiteral("A"), QStringLiteral("C")}) {
        model.eraseActiveStructuralTopsSenario();
        QCOMPARE(model.structuralTops()->name(), sLeft);
    }
    model.eraseActiveStructuralTopsSenario();
    model.eraseActiveStructuralTopsSenario();
    QCOMPARE(model.activeScenario(), -1);
}

QTEST_GUILESS_MAIN(TestDepthLineField)
#include "tst_depthlinefield.moc"
