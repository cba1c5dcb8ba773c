#include <gkBase/DerivedAttributes.h>
#include <gkBase/MatrixDataArray.h>
#include <gkBase/QRelationshipItemModel.h>
#include <gkBase/UnitManager.h>
#include <gkBase/UnitRegistry.h>

#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace gkBase;

/// What charts write into the tree: where it stands, what it holds, and that undo takes it away again.
class tst_DerivedAttributes : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_poRoot = std::make_unique<MatrixData>(QStringLiteral("root"), -1, -1, QMetaType::Double, 3);
        m_poRoot->setRegistry(&m_registry);
        auto poWell = std::make_unique<MatrixData>(QStringLiteral("Well"), -1, -1, QMetaType::Double, 3);
        m_poWell = poWell.get();
        m_poRoot->appendChild(poWell.release(), false);
        m_poDepth = addAttribute(QStringLiteral("Depth"), {0, 1, 2, 3, 10, 11, NAN, 30}, QStringLiteral("depth"));
        m_poDip = addAttribute(QStringLiteral("Dip"), {10, 12, 10, 12, 60, 60, 60, 5}, QStringLiteral("orientation"));
        m_poAzimuth =
            addAttribute(QStringLiteral("Azimuth"), {350, 10, 350, 10, 90, 90, 90, 5}, QStringLiteral("orientation"));
        m_model.setDataRoot(m_poRoot.get());
        m_model.takeNewDataSet(-1, QRelationshipItemModel::DepthDisplay, m_poDip, m_poDepth, {});
    }

    void cleanup() { m_model.clear(); }

    void clustersAreAnAttributeOfTheirGroupUntilUndo()
    {
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        QVERIFY(!addClusterAttribute(*m_poRoot, QStringLiteral("Sets"), m_model));
        QVERIFY(m_model.buildClusters_KML(QStringLiteral("Sets"), 2));
        const MatrixData* poIds = addClusterAttribute(*m_poRoot, QStringLiteral("Sets"), m_model);

        QVERIFY(poIds);
        QCOMPARE(poIds->owner()->name(), QStringLiteral("Cluster Distributions"));
        QCOMPARE(poIds->unitCategory(), QStringLiteral("dimensionless"));
        QVERIFY(poIds->isSelected());
        QVERIFY2(poIds->column().isMissing(6), "a record without depth has no cluster");
        for (const int iRecord : {0, 4, 7})
            QCOMPARE(poIds->recordNumber(iRecord), m_model.clusterID(iRecord));

        // The same name again replaces the values, another one joins them.
        QVERIFY(m_model.buildClusters_KML(QStringLiteral("Sets"), 3));
        QCOMPARE(addClusterAttribute(*m_poRoot, QStringLiteral("Sets"), m_model), poIds);
        QCOMPARE(addClusterAttribute(*m_poRoot, QStringLiteral("More"), m_model)->owner(), poIds->owner());

        const std::unique_ptr<MatrixData> poAfter(m_poRoot->clone());
        for (int i = 0; i < 3; ++i)
            QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
        QVERIFY(!m_poRoot->canUndo());
        while (m_poRoot->redo()) {
        }
        QVERIFY(m_poRoot->isIdenticalTo(*poAfter));
    }

    void clustersOfALongerDataSetStandApart()
    {
        m_model.buildClusters_KML(QStringLiteral("Sets"), 2);
        const MatrixData* poFirst = addClusterAttribute(*m_poRoot, QStringLiteral("Sets"), m_model);
        m_poWell->appendRows(3);
        m_model.refresh();
        m_model.buildClusters_KML(QStringLiteral("Sets"), 2);
        const MatrixData* poSecond = addClusterAttribute(*m_poRoot, QStringLiteral("Sets"), m_model);
        QCOMPARE(poFirst->recordCount(), 8);
        QCOMPARE(poSecond->recordCount(), 11);
        QVERIFY(poFirst->owner() != poSecond->owner());
    }

    void decimationHasRowsOfItsOwn()
    {
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        QVERIFY(!addDecimationAttributes(*m_poRoot, m_model, true, false, m_poDip, true));
        decimate(5.0);
        const MatrixData* poMean = addDecimationAttributes(*m_poRoot, m_model, true, false, m_poDip, true);
        QVERIFY(poMean);
        const MatrixData* poSet = poMean->owner();
        QCOMPARE(poSet->name(), QStringLiteral("Data Decimation"));
        QCOMPARE(poMean->name(), QStringLiteral("Decimated:Dip"));
        QCOMPARE(poMean->recordCount(), 3);
        QCOMPARE(poMean->recordNumber(0), 11.0);
        QVERIFY2(poMean->column().isMissing(1), "a bin without points is an empty cell");
        QCOMPARE(poMean->recordNumber(2), 60.0);
        const MatrixData* poDepths = poSet->getNodeFromName(QStringLiteral("Decimated:Depth"));
        QCOMPARE(poDepths->recordNumber(2), 12.5);
        QCOMPARE(poDepths->unitCategory(), QStringLiteral("depth"));
        const MatrixData* poCounts = poSet->getNodeFromName(QStringLiteral("Dip_Count"));
        QCOMPARE(poCounts->recordNumber(0), 4.0);
        QCOMPARE(poCounts->recordNumber(1), 0.0);

        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
    }

    void anglesOfDecimatedPlanesAndTheNearestRecord()
    {
        m_model.setTadPoleAzimuthDataNode(m_poAzimuth);
        decimate(5.0);
        const MatrixData* poDip = addDecimationAttributes(*m_poRoot, m_model, true, false, nullptr, true);
        const MatrixData* poAzimuth = poDip->owner()->getNodeFromName(QStringLiteral("Decimated:azimuth"));
        QCOMPARE(poDip->name(), QStringLiteral("Decimated:dip"));
        const double dAzimuth = poAzimuth->recordNumber(0);
        QVERIFY2(dAzimuth < 5.0 || dAzimuth > 355.0, "azimuths around north average to north");
        QVERIFY(poDip->recordNumber(0) > 10.0 && poDip->recordNumber(0) < 12.0);

        // Centre 2.5: the record at 2 or 3.
        addDecimationAttributes(*m_poRoot, m_model, false, false, nullptr, true);
        QVERIFY(poAzimuth->recordNumber(0) == 350.0 || poAzimuth->recordNumber(0) == 10.0);
    }

    void azimuthsAloneGoRoundTheCircle()
    {
        m_model.takeNewDataSet(-1, QRelationshipItemModel::DepthDisplay, m_poAzimuth, m_poDepth, {});
        decimate(5.0);
        const double dMean = addDecimationAttributes(*m_poRoot, m_model, true, false, nullptr, true)->recordNumber(0);
        QVERIFY2(std::min(dMean, 360.0 - dMean) < 1e-9, qPrintable(QString::number(dMean)));
    }

    void rotatedOrientationsAndWeightsKeepTheirRecords()
    {
        showOrientations();
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        QVERIFY(!addRotatedAttributes(*m_poRoot, m_model));
        QVERIFY(!addBiasWeightAttribute(*m_poRoot, QStringLiteral("Bias Weights"), m_model));
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));

        m_model.rotateDataAboutRotationAxis(nullptr, {0.0, 90.0}, 60.0, true);
        const MatrixData* poDip = addRotatedAttributes(*m_poRoot, m_model);
        const MatrixData* poSet = poDip->owner();
        QCOMPARE(poSet->name(), QStringLiteral("Orientation Data"));
        QCOMPARE(poDip->name(), QStringLiteral("Rotated:Dip"));
        const MatrixData* poAzimuth = poSet->getNodeFromName(QStringLiteral("Rotated:Dip Azimuth"));
        QVERIFY(poSet->childCount() == 2 && poDip->recordCount() == 8);
        QCOMPARE(poAzimuth->unitCategory(), QStringLiteral("orientation"));
        for (int i = 0; i < 8; ++i) {
            const bool bHole = i == 2;
            QVERIFY(poDip->column().isMissing(i) == bHole && poAzimuth->column().isMissing(i) == bHole);
            QVERIFY(bHole || QPointF(poDip->recordNumber(i), poAzimuth->recordNumber(i)) == m_model.rotatedData(i));
        }

        m_model.setScanline(90.0, 0.0, 80.0);
        const MatrixData* poWeights = addBiasWeightAttribute(*m_poRoot, QStringLiteral("Bias Weights"), m_model);
        QCOMPARE(poWeights->owner(), poSet);
        QCOMPARE(poWeights->unitCategory(), QStringLiteral("fraction"));
        QVERIFY(poWeights->column().isMissing(2) && poWeights->recordNumber(4) > poWeights->recordNumber(0));

        // Another rotation overwrites, in one step of its own.
        const std::unique_ptr<MatrixData> poOnce(m_poRoot->clone());
        m_model.rotateDataAboutRotationAxis(nullptr, {40.0, 10.0}, -20.0, true);
        QCOMPARE(addRotatedAttributes(*m_poRoot, m_model), poDip);
        QCOMPARE(poSet->childCount(), 3);
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poOnce));
        QVERIFY(m_poRoot->undo() && m_poRoot->undo() && !m_poRoot->canUndo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
    }

    void resultsOfOtherDataSetsStandApart()
    {
        showOrientations();
        m_model.rotateDataAboutRotationAxis(nullptr, {0.0, 90.0}, 60.0, true);
        MatrixData* poDip = addRotatedAttributes(*m_poRoot, m_model);
        // What the user made of the unit does not hold for the degrees that are written next.
        poDip->setUnitManager(m_registry.managerForUnit(QStringLiteral("rad")));
        QCOMPARE(addRotatedAttributes(*m_poRoot, m_model), poDip);
        QCOMPARE(poDip->unitManager()->modelUnit(), m_poDip->unitManager()->modelUnit());

        std::unique_ptr<MatrixData> poOther(m_poWell->clone());
        poOther->setName(QStringLiteral("Other Well"));
        MatrixData* poOtherWell = poOther.get();
        m_poRoot->appendChild(poOther.release(), false);
        QRelationshipItemModel other;
        other.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, poOtherWell->child(1),
                             poOtherWell->child(2), nullptr, nullptr, false, {});
        other.rotateDataAboutRotationAxis(nullptr, {0.0, 0.0}, 20.0, true);
        const MatrixData* poOtherDip = addRotatedAttributes(*m_poRoot, other);
        QCOMPARE(poOtherDip->owner()->name(), QStringLiteral("Orientation Data_1"));
        QCOMPARE(addRotatedAttributes(*m_poRoot, m_model), poDip);
        QCOMPARE(addRotatedAttributes(*m_poRoot, other), poOtherDip);

        // What was turned already goes back to where it stands.
        other.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, poDip, poDip->owner()->child(1), nullptr,
                             nullptr, false, {});
        other.rotateDataAboutRotationAxis(nullptr, {0.0, 0.0}, 20.0, true);
        QCOMPARE(addRotatedAttributes(*m_poRoot, other), poDip);
    }

    void replaceMakesRoomForOtherBins()
    {
        decimate(5.0);
        addDecimationAttributes(*m_poRoot, m_model, true, false, m_poDip, true);
        decimate(3.0);
        addDecimationAttributes(*m_poRoot, m_model, true, false, m_poDip, true);
        QCOMPARE(m_poRoot->childCount(), 3);
        const std::unique_ptr<MatrixData> poBefore(m_poRoot->clone());
        decimate(7.5);
        addDecimationAttributes(*m_poRoot, m_model, true, true, m_poDip, true);
        QCOMPARE(m_poRoot->childCount(), 3);
        QVERIFY(m_poRoot->undo());
        QVERIFY(m_poRoot->isIdenticalTo(*poBefore));
    }

private:
    MatrixData* addAttribute(const QString& sName, std::vector<double> vdValues, const QString& sCategory)
    {
        auto poNode = std::make_unique<MatrixData>(sName, 0, 1, QMetaType::Double, 3);
        poNode->setColumn(0, MatrixColumn::fromDoubles(std::move(vdValues)));
        MatrixData* poAttribute = poNode.get();
        m_poWell->appendChild(poNode.release(), true);
        poAttribute->setUnitManager(sCategory);
        return poAttribute;
    }

    /// Planes with a hole at record 2.
    void showOrientations()
    {
        m_poAzimuth->mutableColumn().setMissing(2);
        m_poAzimuth->valuesChanged();
        m_model.takeNewDataSet(-1, QRelationshipItemModel::OrientationDisplay, m_poDip, m_poAzimuth, nullptr, nullptr,
                               false, {});
    }

    void decimate(double dSize)
    {
        m_model.generateAquidistantIntervalFilter(dSize, 0.0, 15.0);
        m_model.generateDataDecimation();
    }

    UnitRegistry m_registry;
    std::unique_ptr<MatrixData> m_poRoot;
    MatrixData* m_poWell = nullptr;
    MatrixData* m_poDepth = nullptr;
    MatrixData* m_poDip = nullptr;
    MatrixData* m_poAzimuth = nullptr;
    QRelationshipItemModel m_model;
};

QTEST_GUILESS_MAIN(tst_DerivedAttributes)
#include "tst_derivedattributes.moc"
