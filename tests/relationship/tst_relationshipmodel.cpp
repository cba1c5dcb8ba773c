// The point model: points, selection, classes and what is computed from them.

#include <gkBase/MatrixData.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/UnitManager.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>
#include <random>
#include <vector>

using namespace gkBase;

namespace {

constexpr double dNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double dMissing = 99999.0;

std::vector<double> randomNumbers(int iCount, unsigned iSeed, double dMissingShare = 0.1)
{
    std::mt19937 generator(iSeed);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    std::vector<double> vdNumbers;
    for (int i = 0; i < iCount; ++i)
        vdNumbers.push_back(share(generator) < dMissingShare ? dNaN : 100.0 * share(generator));
    return vdNumbers;
}

} // namespace

class TestRelationshipModel : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void cellsAreRecords();
    void readsOnlyWhatChanged();
    void nodesMayGo();
    void selectionCountsHold();
    void classesSelectTheirPoints_data();
    void classesSelectTheirPoints();
    void kindsOfClasses_data();
    void kindsOfClasses();
    void chosenColorsStay();
    void bandsAreNamedInDisplayUnits();
    void regressionOfTheSelection();
    void binsPartitionTheRecords();
    void meanPlanesOfBins();
    void clustersByName();
    void tadpoles();
    void tableOfPoints();

private:
    MatrixData* add(const QString& sName, std::vector<double> vdValues);
    MatrixData* addColumn(const QString& sName, MatrixColumn oColumn);
    void show(std::vector<double> vdX, std::vector<double> vdY,
              QRelationshipItemModel::DisplayType eType = QRelationshipItemModel::CrossPlotDisplay);

    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poSet = nullptr;
    std::unique_ptr<QRelationshipItemModel> m_pModel;
};

void TestRelationshipModel::init()
{
    m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"));
    m_poSet = new MatrixData(QStringLiteral("Well"));
    m_poRoot->appendChild(m_poSet, false);
    m_pModel = std::make_unique<QRelationshipItemModel>();
}

void TestRelationshipModel::cleanup()
{
    m_pModel.reset();
    m_poRoot.reset();
}

MatrixData* TestRelationshipModel::addColumn(const QString& sName, MatrixColumn oColumn)
{
    auto* poNode = new MatrixData(sName, 0, 1, oColumn.type());
    poNode->setColumn(0, std::move(oColumn));
    m_poSet->appendChild(poNode, true);
    return poNode;
}

MatrixData* TestRelationshipModel::add(const QString& sName, std::vector<double> vdValues)
{
    return addColumn(sName, MatrixColumn::fromDoubles(std::move(vdValues)));
}

void TestRelationshipModel::show(std::vector<double> vdX, std::vector<double> vdY,
                                 QRelationshipItemModel::DisplayType eType)
{
    MatrixData* poX = add(QStringLiteral("x"), std::move(vdX));
    m_pModel->takeNewDataSet(-1, eType, poX, add(QStringLiteral("y"), std::move(vdY)), {});
}

void TestRelationshipModel::cellsAreRecords()
{
    show({1.0, dNaN, 3.0, dMissing, 5.0, 6.0}, {10.0, 20.0, 30.0, 40.0, dNaN});
    QCOMPARE(m_pModel->numberOfPoints(), 6);
    QCOMPARE(m_pModel->numberOfValidPoints(), 2);
    for (int i = 0; i < 6; ++i) {
        const bool bValid = i == 0 || i == 2;
        const auto n = static_cast<std::size_t>(i);
        QCOMPARE(m_pModel->isValid(i), bValid);
        QCOMPARE(std::isnan(m_pModel->x()[n]), !bValid);
        QCOMPARE(std::isnan(m_pModel->y()[n]), !bValid);
        const QPointF oPoint = bValid ? QPointF(1.0 + i, 10.0 + 10.0 * i) : QPointF(dMissing, dMissing);
        QCOMPARE(m_pModel->QRelationshipItemModel::data()->point(i), oPoint);
    }
    QCOMPARE(m_pModel->boundingBox(), QRectF(QPointF(1.0, 10.0), QPointF(3.0, 30.0)));
    QVERIFY(!m_pModel->isValid(-1) && !m_pModel->isValid(6));

    m_pModel->takeNewDataSet(5, QRelationshipItemModel::CrossPlotDisplay, m_pModel->nodeX(), m_pModel->nodeY(),
                             {2, 4, 77});
    QCOMPARE(m_pModel->numberOfPoints(), 5);
    QCOMPARE(m_pModel->numberOfValidPoints(), 1);
    QVERIFY(m_pModel->isValid(2));
    QCOMPARE(m_pModel->numberOfTableRows(), 3);
    QCOMPARE(m_pModel->tableRow(1), 4);
    QCOMPARE(m_pModel->tableRow(2), -1);

    m_pModel->takeNewDataSet(m_pModel->nodeX(), addColumn(QStringLiteral("text"), MatrixColumn(QMetaType::QString, 6)));
    QCOMPARE(m_pModel->numberOfPoints(), 0);
    QVERIFY(m_pModel->boundingBox().isNull());
    QVERIFY(!m_pModel->selection());
}

void TestRelationshipModel::readsOnlyWhatChanged()
{
    show({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    MatrixData* poColor = add(QStringLiteral("colour"), {0.5, 1.5, 2.5});
    m_pModel->setColorAttribute(poColor);
    m_pModel->setSelected(1, true);
    m_pModel->buildClusters_KML(QStringLiteral("C"), 2);
    const quint64 iRevision = m_pModel->revision();
    const quint64 iPoints = m_pModel->pointsRevision();
    QSignalSpy resets(m_pModel.get(), &QAbstractItemModel::modelReset);
    m_pModel->takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, m_pModel->nodeX(), m_pModel->nodeY(), {});
    m_pModel->setColorAttribute(poColor);
    m_pModel->refresh();
    QCOMPARE(resets.count(), 0);
    QCOMPARE(m_pModel->revision(), iRevision);

    poColor->setValue(poColor->rowOffSet(), 2.5);
    m_pModel->refresh();
    QCOMPARE(resets.count(), 1);
    QCOMPARE(m_pModel->colorClasses().id(0), m_pModel->colorClasses().id(2));
    QCOMPARE(m_pModel->pointsRevision(), iPoints);

    m_pModel->nodeX()->setValue(m_pModel->nodeX()->rowOffSet() + 2, dMissing);
    m_pModel->refresh();
    QCOMPARE(m_pModel->numberOfValidPoints(), 2);
    QVERIFY(m_pModel->pointsRevision() > iPoints);
    QVERIFY(m_pModel->isSelected(1));
    QVERIFY(m_pModel->clusterCentroids());
    m_pModel->takeNewDataSet(m_pModel->nodeY(), m_pModel->nodeX());
    QVERIFY2(!m_pModel->clusterCentroids(), "but not another pair of attributes");

    m_poSet->appendRows(2);
    m_pModel->refresh();
    QCOMPARE(m_pModel->numberOfPoints(), 5);
    QCOMPARE(m_pModel->numberOfSelectedPoints(), 0);
    QCOMPARE(m_pModel->selectionMask().size(), std::size_t(5));
}

void TestRelationshipModel::nodesMayGo()
{
    show({1.0, 2.0, 3.0, 4.0}, {4.0, 5.0, 6.0, 9.0}, QRelationshipItemModel::DepthDisplay);
    m_pModel->setDataRoot(m_poRoot.get());
    m_pModel->setThirdDimAttribute(add(QStringLiteral("third"), {1.0, 2.0, 3.0, 4.0}));
    m_pModel->setColorAttribute(add(QStringLiteral("colour"), {1.5, 2.5, 3.5, 4.0}));
    m_pModel->setSymbolAttribute(m_pModel->colorAttribute());
    m_pModel->setTadPoleAzimuthDataNode(m_pModel->colorAttribute());
    m_pModel->setTadPoleQuality(m_pModel->colorAttribute(), 2.0);
    m_pModel->generateNumberOfIntervalFilter(2, 4.0, 9.0);
    m_pModel->generateDataDecimation();
    m_poRoot.reset();

    QVERIFY(!m_pModel->nodeX() && !m_pModel->nodeY() && !m_pModel->dataRoot());
    QCOMPARE(m_pModel->x()[3], 4.0);
    QVERIFY(!m_pModel->getColorName(1).isEmpty());
    QVERIFY(!m_pModel->tadPoleIsOpen(0));
    m_pModel->setColorMap(0.0, 1.0, 0.5, true);
    m_pModel->generateDataDecimation();
    m_pModel->buildClusters_KML(QStringLiteral("C"), 2);
    m_pModel->refresh();
    QCOMPARE(m_pModel->numberOfPoints(), 0);
    QVERIFY(!m_pModel->colorAttributeIsOn() && !m_pModel->symbolAttributeIsOn() && !m_pModel->tadpoleAttributeIsOn());
    QVERIFY(!m_pModel->decimationData() && !m_pModel->clusterCentroids());
}

void TestRelationshipModel::selectionCountsHold()
{
    constexpr int iRecords = 200;
    show(randomNumbers(iRecords, 1), randomNumbers(iRecords, 2));
    MatrixColumn oTexts(QMetaType::QString);
    for (int i = 0; i < iRecords; ++i)
        oTexts.appendText(QString::number(i % 7));
    m_pModel->setColorAttribute(addColumn(QStringLiteral("rock"), oTexts));
    const bool* pbSelection = m_pModel->selection();
    std::mt19937 generator(3);
    const auto random = [&generator](int n) { return static_cast<int>(generator() % static_cast<unsigned>(n)); };
    for (int i = 0; i < 3000; ++i) {
        const std::vector<int> viBefore = m_pModel->selectedRecords();
        const quint64 iRevision = m_pModel->revision();
        switch (random(6)) {
        case 0:
            m_pModel->setSelected(random(iRecords + 20) - 10, random(2));
            break;
        case 1:
            m_pModel->setSelected2(random(iRecords), true);
            break;
        case 2:
            m_pModel->setSelectedRecords({random(iRecords), random(iRecords), -1, iRecords});
            break;
        case 3: {
            std::vector<unsigned char> vbMask(static_cast<std::size_t>(random(iRecords)));
            for (unsigned char& bTaken : vbMask)
                bTaken = static_cast<unsigned char>(random(2));
            m_pModel->selectPoints(vbMask, random(2));
            break;
        }
        case 4:
            m_pModel->setSelectedColorClass(random(9), random(2));
            break;
        default:
            if (random(4) == 0)
                m_pModel->clearSelection();
        }
        QCOMPARE(m_pModel->selection(), pbSelection);
        QCOMPARE(m_pModel->numberOfSelectedPoints(),
                 static_cast<int>(std::count(pbSelection, pbSelection + iRecords, true)));
        QCOMPARE(m_pModel->revision() == iRevision, m_pModel->selectedRecords() == viBefore);
    }
}

void TestRelationshipModel::classesSelectTheirPoints_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("numbers") << int(QMetaType::Double);
    QTest::newRow("whole numbers") << int(QMetaType::Int);
    QTest::newRow("flags") << int(QMetaType::Bool);
    QTest::newRow("texts") << int(QMetaType::QString);
    QTest::newRow("colours") << int(QMetaType::QColor);
}

void TestRelationshipModel::classesSelectTheirPoints()
{
    QFETCH(int, type);
    constexpr int iRecords = 300;
    show(randomNumbers(iRecords, 4), randomNumbers(iRecords, 5));
    std::mt19937 generator(6);
    MatrixColumn oColumn(static_cast<QMetaType::Type>(type), iRecords);
    for (int i = 0; i < iRecords; ++i) {
        const int iValue = static_cast<int>(generator() % 9);
        if (iValue == 0)
            continue;
        if (type == QMetaType::QColor)
            oColumn.setValue(i, QColor::fromHsv(iValue * 30, 200, 200));
        else
            oColumn.setValue(i, type == QMetaType::Bool ? QVariant(iValue > 4) : QVariant(0.5 + iValue));
    }
    MatrixData* poAttribute = addColumn(QStringLiteral("class"), oColumn);
    m_pModel->setColorAttribute(poAttribute);
    m_pModel->setSymbolAttribute(poAttribute);
    const RelationshipClasses& classes = m_pModel->colorClasses();
    QVERIFY(classes.highestId() >= 2);
    QCOMPARE(m_pModel->cellType(), static_cast<QMetaType::Type>(type));
    int iSelected = 0;
    for (int iClass = 1; iClass <= classes.highestId(); ++iClass) {
        m_pModel->clearSelection();
        if (iClass % 2)
            m_pModel->setSelectedColorClass(iClass, true);
        else
            m_pModel->setSelectedSymbol(iClass, true);
        for (int i = 0; i < iRecords; ++i) {
            QCOMPARE(m_pModel->isSelected(i), m_pModel->isValid(i) && classes.id(i) == iClass);
            QColor oColor;
            int iSymbol = -1;
            QCOMPARE(m_pModel->getColorAndSymbolInfo(i, oColor, iSymbol), classes.id(i));
            QCOMPARE(iSymbol, classes.id(i));
            QCOMPARE(oColor, classes.color(classes.id(i)));
            QCOMPARE(classes.id(i) == 0, oColumn.isMissing(i));
        }
        iSelected += m_pModel->numberOfSelectedPoints();
    }
    int iWithValue = 0;
    for (int i = 0; i < iRecords; ++i)
        iWithValue += m_pModel->isValid(i) && !oColumn.isMissing(i);
    QCOMPARE(iSelected, iWithValue);
}

void TestRelationshipModel::kindsOfClasses_data()
{
    QTest::addColumn<int>("values");
    QTest::addColumn<double>("step");
    QTest::addColumn<bool>("banded");
    QTest::newRow("cluster ids held as doubles") << 8 << 1.0 << false;
    QTest::newRow("as many whole numbers as have classes")
        << RelationshipClasses::s_iMaximumValueClasses << 3.0 << false;
    QTest::newRow("one more") << RelationshipClasses::s_iMaximumValueClasses + 1 << 1.0 << true;
    QTest::newRow("equal in their last digits") << RelationshipClasses::s_iMaximumValueClasses + 1 << 256.0 << true;
    QTest::newRow("very large") << 3 << 1e18 << false;
    QTest::newRow("fractions") << 3 << 0.5 << true;
}

void TestRelationshipModel::kindsOfClasses()
{
    QFETCH(int, values);
    QFETCH(double, step);
    QFETCH(bool, banded);
    std::vector<double> vdValues{dNaN};
    for (int i = 0; i < 3 * values; ++i)
        vdValues.push_back(i % values * step);
    const RelationshipClasses classes(add(QStringLiteral("v"), vdValues), {});
    QCOMPARE(classes.isBanded(), banded);
    QCOMPARE(classes.id(0), 0);
    if (!banded) {
        QCOMPARE(classes.highestId(), values);
        for (int i = 1; i <= 3 * values; ++i)
            QCOMPARE(classes.id(i), (i - 1) % values + 1);
    }
    m_pModel->setColorAttribute(m_poSet->child(0));
    QCOMPARE(m_pModel->getColorName(1).contains(u'–'), banded);
    QVERIFY(banded || m_pModel->getColorName(1) == QStringLiteral("0"));
}

void TestRelationshipModel::chosenColorsStay()
{
    show({1.0, 2.0, 3.0}, {1.0, 2.0, 3.0});
    MatrixData* poRock = add(QStringLiteral("rock"), {5.0, 7.0, 9.0});
    m_pModel->setColorAttribute(poRock);
    m_pModel->changeColorClass(2, Qt::magenta);
    m_pModel->changeColorClass(4, Qt::magenta);
    poRock->setValue(poRock->rowOffSet(), 9.0); // 7 is now the first class
    m_pModel->refresh();
    QColor oColor;
    QCOMPARE(m_pModel->getColor(1, oColor), 1);
    QCOMPARE(oColor, QColor(Qt::magenta));
    m_pModel->getColor(2, oColor);
    QVERIFY(oColor != QColor(Qt::magenta));
    m_pModel->setColorAttribute(nullptr);
    m_pModel->setColorAttribute(poRock);
    m_pModel->getColor(1, oColor);
    QVERIFY(oColor != QColor(Qt::magenta));
}

void TestRelationshipModel::bandsAreNamedInDisplayUnits()
{
    MatrixData* poDepth = add(QStringLiteral("depth"), {0.5, 100.0});
    poDepth->setUnitManager(QStringLiteral("depth"));
    m_pModel->setColorAttribute(poDepth);
    m_pModel->setColorMap(0.0, 100.0, 100.0, false);
    const QString sMetres = m_pModel->getColorName(1);
    QVERIFY(poDepth->unitManager()->displayUnit(QStringLiteral("ft")));
    m_pModel->refresh();
    const QString sFeet = m_pModel->getColorName(1);
    poDepth->unitManager()->displayUnit(QString());
    QVERIFY2(sMetres.contains(QStringLiteral("100")), qPrintable(sMetres));
    QVERIFY2(sFeet.contains(QStringLiteral("328")), qPrintable(sFeet));
}

void TestRelationshipModel::regressionOfTheSelection()
{
    double dSlope = -1.0;
    double dIntercept = -1.0;
    double dCorrelation = -1.0;
    show({0, 1, dNaN, 2, 3, 4, 5, 3, 3, 3}, {1, 3, 8, 5, 7, -40, 60, 1, 2, 3});
    const auto lineOf = [&](const std::vector<int>& viRecords) {
        m_pModel->setSelectedRecords(viRecords);
        m_pModel->calculateRegressionLine(dSlope, dIntercept, dCorrelation);
    };
    m_pModel->setPartSelection(true);
    lineOf({0, 1, 2, 3, 4});
    QVERIFY(std::abs(dSlope - 2.044776) < 1e-6);
    QVERIFY(std::abs(dIntercept - 0.746269) < 1e-6);
    QVERIFY(std::abs(dCorrelation - 0.996687) < 1e-6);
    for (const std::vector<int>& viFew : {std::vector<int>{}, std::vector<int>{2, 3, 4, 5}}) {
        lineOf(viFew);
        QCOMPARE((std::vector<double>{dSlope, dIntercept, dCorrelation}), std::vector<double>(3, 0.0));
    }
    lineOf({4, 7, 8, 9});
    QCOMPARE(dSlope, dMissing);

    // Other charts draw the line of all points.
    double dAll = 0.0;
    m_pModel->setPartSelection(false);
    m_pModel->calculateRegressionLine(dAll, dIntercept, dCorrelation);
    m_pModel->setPartSelection(true);
    m_pModel->takeNewDataSet(-1, QRelationshipItemModel::DepthDisplay, m_pModel->nodeX(), m_pModel->nodeY(), {});
    m_pModel->calculateRegressionLine(dSlope, dIntercept, dCorrelation);
    QCOMPARE(dSlope, dAll);
    QVERIFY(dAll != dMissing);
}

void TestRelationshipModel::binsPartitionTheRecords()
{
    constexpr int iRecords = 500;
    show(randomNumbers(iRecords, 7), randomNumbers(iRecords, 8), QRelationshipItemModel::DepthDisplay);
    m_pModel->setDataRoot(m_poRoot.get());
    for (const double dDepth : {70.0, 10.0, 40.0, 40.5, 40.1, 40.5, 200.0, 300.0}) // in any order, one of them twice
        m_pModel->insertIntervalBoundary(dDepth, 0.0);
    m_pModel->generateDataDecimation();
    const std::vector<double>& vdBounds = m_pModel->decimationBoundaries();
    QCOMPARE(vdBounds, (std::vector<double>{10.0, 40.0, 40.1, 40.5, 70.0, 200.0, 300.0}));
    const auto iBins = static_cast<int>(vdBounds.size()) - 1;
    QCOMPARE(m_pModel->decimationData()->recordCount(), iBins);
    QCOMPARE(m_pModel->decimationCount()->unitCategory(), QStringLiteral("dimensionless"));
    QVERIFY(m_pModel->decimationAngle().empty());

    std::vector<int> viCounts(static_cast<std::size_t>(iBins), 0);
    std::vector<double> vdSums(static_cast<std::size_t>(iBins), 0.0);
    for (int i = 0; i < iRecords; ++i) {
        const double dDepth = m_pModel->y()[static_cast<std::size_t>(i)];
        const int iBin = m_pModel->decimationBin(i);
        const bool bInside = m_pModel->isValid(i) && dDepth >= 10.0 && dDepth <= 300.0;
        QCOMPARE(iBin >= 0, bInside);
        if (!bInside)
            continue;
        const auto n = static_cast<std::size_t>(iBin);
        QVERIFY(dDepth >= vdBounds[n] && dDepth < vdBounds[n + 1]);
        ++viCounts[n];
        vdSums[n] += m_pModel->x()[static_cast<std::size_t>(i)];
    }
    for (int iBin = 0; iBin < iBins; ++iBin) {
        const auto n = static_cast<std::size_t>(iBin);
        QCOMPARE(static_cast<int>(m_pModel->decimationCount()->recordNumber(iBin)), viCounts[n]);
        QCOMPARE(m_pModel->decimationData()->cell(iBin, 0), 0.5 * (vdBounds[n] + vdBounds[n + 1]));
        const double dMean = viCounts[n] ? vdSums[n] / viCounts[n] : dMissing;
        QVERIFY(std::abs(m_pModel->decimationData()->cell(iBin, 1) - dMean) < 1e-9);
        const int iNearest = m_pModel->decimationTableRows()[n];
        QCOMPARE(iNearest < 0, viCounts[n] == 0);
        QVERIFY(iNearest < 0 || m_pModel->decimationBin(iNearest) == iBin);
    }
    QCOMPARE(viCounts.back(), 0);

    // Selected points only, and no bins at all.
    m_pModel->setSelectedColorClass(1, true);
    m_pModel->setPartSelection(true);
    m_pModel->generateDataDecimation();
    QCOMPARE(m_pModel->decimationCount()->recordNumber(0), 0.0);
    m_pModel->deleteIntervalBoundaries();
    m_pModel->generateDataDecimation();
    QCOMPARE(m_pModel->decimationData()->recordCount(), 0);
}

void TestRelationshipModel::meanPlanesOfBins()
{
    // Azimuths about north, a pair of steep planes that face each other, a bin without an azimuth, an empty bin.
    show({40.0, 40.0, 80.0, 80.0, 30.0}, {0.5, 0.6, 1.5, 1.6, 2.5}, QRelationshipItemModel::DepthDisplay);
    m_pModel->setTadPoleAzimuthDataNode(add(QStringLiteral("azimuth"), {350.0, 10.0, 90.0, 270.0, dNaN}));
    m_pModel->generateNumberOfIntervalFilter(4, 0.0, 4.0);
    m_pModel->generateDataDecimation();
    const std::vector<QPointF>& voAngles = m_pModel->decimationAngle();
    QCOMPARE(voAngles.size(), std::size_t(4));
    QVERIFY(voAngles[0].x() > 39.0 && voAngles[0].x() < 40.0);
    QVERIFY(std::min(voAngles[0].y(), 360.0 - voAngles[0].y()) < 1e-9);
    QVERIFY(std::abs(voAngles[1].x()) < 1e-9);
    QCOMPARE(voAngles[2], QPointF(dMissing, dMissing));
    QCOMPARE(voAngles[3], QPointF(dMissing, dMissing));
    QCOMPARE(m_pModel->decimationData()->cell(0, 2), voAngles[0].y());
}

void TestRelationshipModel::clustersByName()
{
    show({0.0, 0.1, 10.0, 10.1, dNaN, 5.0}, {0.0, 0.1, 10.0, 10.1, 3.0, 20.0});
    QVERIFY(!m_pModel->buildClusters_KML(QStringLiteral("none"), 0));
    QVERIFY(!m_pModel->clusterCentroids());
    QVERIFY(m_pModel->buildClusters_KML(QStringLiteral("three"), 3));
    QCOMPARE(m_pModel->clusterCentroids()->arrayRows(), 3);
    QCOMPARE(m_pModel->clusterCentroids()->arrayColumns(), 2);
    QCOMPARE(m_pModel->clusterID(0), m_pModel->clusterID(1));
    QCOMPARE(m_pModel->clusterID(2), m_pModel->clusterID(3));
    QCOMPARE(m_pModel->clusterID(4), -1);
    QVERIFY(m_pModel->clusterID(5) >= 0 && m_pModel->clusterID(6) == -1);
    QVERIFY(std::abs(m_pModel->clusterDistortion() - 0.02) < 1e-9);

    m_pModel->setThirdDimAttribute(add(QStringLiteral("third"), {1.0, 1.0, 1.0, dNaN, 1.0, 1.0}));
    m_pModel->setSelectedRecords({0, 3, 5});
    m_pModel->setPartSelection(true);
    QVERIFY(m_pModel->buildClusters_KML(QStringLiteral("part"), 7));
    QCOMPARE(m_pModel->clusterAttributeName(), QStringLiteral("part"));
    QCOMPARE(m_pModel->clusterCentroids()->arrayRows(), 2);
    QCOMPARE(m_pModel->clusterCentroids()->arrayColumns(), 3);
    QCOMPARE(m_pModel->clusterID(3), -1);

    m_pModel->setClusterAttributeName(QStringLiteral("three"));
    QCOMPARE(m_pModel->clusterCentroids()->arrayRows(), 3);
    QVERIFY(m_pModel->clusterID(3) >= 0);
    QCOMPARE(m_pModel->findClusterCentroids(QStringLiteral("new"))->arrayRows(), 0);
    m_pModel->clearClusters();
    QVERIFY(!m_pModel->clusterCentroids() && m_pModel->clusterIDs().empty());
}

void TestRelationshipModel::tadpoles()
{
    show({10.0, 20.0, 30.0}, {1.0, 2.0, 3.0});
    QCOMPARE(m_pModel->azimuthTadPole(0), dMissing);
    m_pModel->setTadPoleAzimuthDataNode(add(QStringLiteral("azimuth"), {350.0, dNaN}));
    QCOMPARE(m_pModel->azimuthTadPole(0), 350.0);
    for (const int i : {-1, 1, 2, 3})
        QCOMPARE(m_pModel->azimuthTadPole(i), dMissing);
    QCOMPARE(m_pModel->tadpoleAttributeName(), QStringLiteral("azimuth"));
    QVERIFY(!m_pModel->tadPoleIsOpen(0));
    m_pModel->setTadPoleQuality(add(QStringLiteral("quality"), {2.0, 1.9, dNaN}), 2.0);
    QVERIFY(!m_pModel->tadPoleIsOpen(0));
    QVERIFY(m_pModel->tadPoleIsOpen(1) && m_pModel->tadPoleIsOpen(2));
}

void TestRelationshipModel::tableOfPoints()
{
    QAbstractItemModelTester tester(m_pModel.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    show({1.0, dNaN, 3.0}, {4.0, 5.0, 6.0});
    m_pModel->setColorAttribute(add(QStringLiteral("rock"), {1.0, 1.0, 2.0}));
    m_pModel->buildClusters_KML(QStringLiteral("Sets"), 2);
    const auto cell = [this](int iRow, int iColumn, int iRole = Qt::DisplayRole) {
        return m_pModel->data(m_pModel->index(iRow, iColumn), iRole);
    };
    QCOMPARE(cell(2, QRelationshipItemModel::YColumn).toDouble(), 6.0);
    QVERIFY(!cell(1, QRelationshipItemModel::YColumn).isValid());
    QVERIFY(!cell(1, QRelationshipItemModel::ClusterColumn).isValid());
    QCOMPARE(cell(2, QRelationshipItemModel::ColorClassColumn).toDouble(), 2.0);
    QCOMPARE(m_pModel->headerData(0, Qt::Horizontal).toString(), QStringLiteral("x"));
    QCOMPARE(m_pModel->headerData(QRelationshipItemModel::ClusterColumn, Qt::Horizontal).toString(),
             QStringLiteral("Sets"));

    QSignalSpy changes(m_pModel.get(), &QAbstractItemModel::dataChanged);
    const QModelIndex oSelected = m_pModel->index(2, QRelationshipItemModel::SelectedColumn);
    QVERIFY(m_pModel->setData(oSelected, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(changes.count(), 1);
    QVERIFY(m_pModel->isSelected(2));
    QCOMPARE(cell(2, QRelationshipItemModel::SelectedColumn, Qt::CheckStateRole).toInt(), int(Qt::Checked));
    m_pModel->clearSelection();
    QCOMPARE(changes.count(), 2);
    QVERIFY(!m_pModel->setData(m_pModel->index(0, 0), 7.0));
    m_pModel->clear();
    QCOMPARE(m_pModel->rowCount(), 0);
}

QTEST_GUILESS_MAIN(TestRelationshipModel)
#include "tst_relationshipmodel.moc"
