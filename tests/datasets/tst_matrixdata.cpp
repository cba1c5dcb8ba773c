#include "MatrixDataArray.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRestore.h"
#include "MatrixDataStrike.h"
#include "UnitRegistry.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace gkBase;

namespace {

MatrixData* attribute(MatrixData* poDataSet, const QString& sName, std::vector<double> vdCells)
{
    auto* poAttribute = new MatrixData(sName, 0, 1);
    poAttribute->setColumn(0, MatrixColumn::fromDoubles(std::move(vdCells)));
    poDataSet->appendChild(poAttribute, true);
    return poAttribute;
}

struct Tree
{
    Tree()
    {
        m_oRoot.appendChild(m_poWell, false);
        m_oRoot.appendChild(m_poOther, false);
        m_poDepth = attribute(m_poWell, "depth", {1, 2, 3, 4, 5, 6, 7});
        m_poAzimuth = attribute(m_poWell, "azimuth", {10, 90, 359.5});
        m_poDip = attribute(m_poOther, "dip", {45, 46});
    }
    MatrixData m_oRoot{"root"};
    MatrixData* m_poWell = new MatrixData("well");
    MatrixData* m_poOther = new MatrixData("other");
    MatrixData* m_poDepth;
    MatrixData* m_poAzimuth;
    MatrixData* m_poDip;
};

} // namespace

class TestMatrixData : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void findsNodesInTreeOrder()
    {
        Tree tree;
        QCOMPARE(tree.m_oRoot.leafs(), (std::vector<MatrixData*>{tree.m_poDepth, tree.m_poAzimuth, tree.m_poDip}));
        QCOMPARE(tree.m_oRoot.getFirstChildWithData(), tree.m_poDepth);
        QCOMPARE(tree.m_oRoot.getNodeFromName("other"), tree.m_poOther);
        QCOMPARE(tree.m_oRoot.nodeFromID(tree.m_poDip->globalID()), tree.m_poDip);
        QCOMPARE(tree.m_poDip->root(), &tree.m_oRoot);
        QCOMPARE(tree.m_poDip->owner(), tree.m_poOther);
        QVERIFY(!tree.m_poOther->owner());

        tree.m_poDip->setSelected(true);
        tree.m_poAzimuth->setSelected(true);
        QCOMPARE(tree.m_oRoot.numberOfSelectedItems(), 2);
        QCOMPARE(tree.m_oRoot.getNode(0), tree.m_poAzimuth);
        QCOMPARE(tree.m_oRoot.getNode(1), tree.m_poDip);
        QVERIFY(!tree.m_oRoot.getNode(2) && !tree.m_oRoot.getNode(-1));
    }

    void refusesImpossibleMoves()
    {
        Tree tree;
        tree.m_poWell->appendChild(tree.m_poWell, false);
        tree.m_poWell->insertChild(0, &tree.m_oRoot);
        tree.m_poWell->removeChild(tree.m_poDip); // stands elsewhere
        tree.m_poWell->removeChild(nullptr);
        QCOMPARE(tree.m_oRoot.leafs().size(), size_t(3));
        tree.m_poOther->insertChild(-5, tree.m_poDepth); // moves it
        QCOMPARE(tree.m_poOther->child(0), tree.m_poDepth);
        QCOMPARE(tree.m_poWell->childCount(), 1);
    }

    void makesNamesUnique()
    {
        Tree tree;
        attribute(tree.m_poOther, "dip_1", {});
        QString sName = "dip";
        tree.m_oRoot.createUniqueName(sName);
        QCOMPARE(sName, QString("dip_2"));
        sName = "dip";
        tree.m_oRoot.createUniqueName(sName, tree.m_poDip);
        QCOMPARE(sName, QString("dip"));
    }

    void selectsDataSets()
    {
        Tree tree;
        tree.m_poDip->setSelected(true);
        QVERIFY(tree.m_poOther->isSelected() && tree.m_oRoot.isSelected() && !tree.m_poWell->isSelected());
        tree.m_poWell->setSelected(true, true);
        QVERIFY(tree.m_poDepth->isSelected() && tree.m_poAzimuth->isSelected() && !tree.m_poDip->isSelected());
        tree.m_poDepth->setSelected(false, false);
        QVERIFY(tree.m_poWell->isSelected());
        tree.m_poDepth->setSelected(true, true);
        QVERIFY(!tree.m_poAzimuth->isSelected());
    }

    void countsTableRows_data()
    {
        QTest::addColumn<int>("iStep");
        QTest::addColumn<int>("iList");
        QTest::addColumn<int>("iRows");
        QTest::newRow("all") << -1 << 0 << 10;
        QTest::newRow("thinned by 3") << 3 << 0 << 3;
        QTest::newRow("thinned by 7") << 7 << 0 << 2;
        QTest::newRow("list") << -1 << 5 << 5;
        QTest::newRow("thinned list") << 2 << 5 << 3;
        QTest::newRow("thinned list, exact") << 2 << 4 << 2;
    }
    void countsTableRows()
    {
        QFETCH(int, iStep);
        QFETCH(int, iList);
        Tree tree;
        tree.m_poWell->setSelected(true);
        QTEST(tree.m_oRoot.maxNumbOfSelectedRows(iStep, iList), "iRows");
    }

    void readsSummaryRows()
    {
        Tree tree;
        QCOMPARE(tree.m_poDepth->value(0, 0), QVariant(1.0));
        QCOMPARE(tree.m_poDepth->value(1, 0), QVariant(4.0));
        QCOMPARE(tree.m_poDepth->toDouble(2, 0), 7.0);
        tree.m_poDepth->setValue(9, 0, 14.0); // the cached range must follow
        QCOMPARE(tree.m_poDepth->value(1, 0), QVariant(5.0));
        QCOMPARE(tree.m_poDepth->value(2, 0), QVariant(14.0));
        tree.m_poDepth->setValue(2, 0, 99.0); // not writable
        QCOMPARE(tree.m_poDepth->toDouble(2, 0), 14.0);
        QVERIFY(!tree.m_poDepth->value(-1, 0).isValid() && !tree.m_poDepth->value(0, 1).isValid());
        tree.m_poDepth->setType(QMetaType::QString);
        QVERIFY(!tree.m_poDepth->value(0, 0).isValid());
        QCOMPARE(tree.m_poDepth->value(3, 0), QVariant("1"));
    }

    void growsAndTrimsRows()
    {
        Tree tree;
        tree.m_poAzimuth->setValue(3 + 9, 0, 5.0); // past the end
        QCOMPARE(tree.m_poAzimuth->recordCount(), 10);
        QVERIFY(!tree.m_poAzimuth->value(3 + 8, 0).isValid());
        tree.m_oRoot.checkValidRowCount();
        QCOMPARE(tree.m_poDepth->recordCount(), 10);
        QCOMPARE(tree.m_poDip->recordCount(), 2);
        tree.m_oRoot.appendOneRowForEachColumn();
        QCOMPARE(tree.m_poDepth->recordCount(), 11);
        QCOMPARE(tree.m_poDip->recordCount(), 3);
        tree.m_poAzimuth->setValue(3 + 9, 0, QVariant());
        tree.m_oRoot.resetRowCount(false);
        QCOMPARE(tree.m_poDepth->recordCount(), 7);
        QCOMPARE(tree.m_poAzimuth->recordCount(), 7);
    }

    void strikeFollowsItsAzimuth()
    {
        Tree tree;
        auto* poStrike = new MatrixDataStrike("strike", tree.m_poAzimuth);
        tree.m_poWell->appendChild(poStrike, true);
        QCOMPARE(poStrike->value(3, 0), QVariant(280.0));
        QCOMPARE(poStrike->column().number(1), 0.0);
        QCOMPARE(poStrike->toDouble(2, 0), 280.0); // maximum
        QSignalSpy spy(tree.m_oRoot.notifier(), &MatrixDataNotifier::valuesChanged);
        poStrike->setValue(3, 0, 300.0);
        QCOMPARE(spy.count(), 2); // the azimuth and the strike
        QCOMPARE(tree.m_poAzimuth->value(3, 0), QVariant(30.0));
        QCOMPARE(poStrike->toDouble(2, 0), 300.0);
        QCOMPARE(poStrike->column().number(0), 300.0);

        // 30 gon are a right angle short of 330.
        tree.m_poAzimuth->setUnitManager(UnitRegistry::standard().managerForUnit("gon"));
        QCOMPARE(poStrike->column().number(0), 330.0);
        poStrike->setValue(3, 0, 350.0);
        QCOMPARE(tree.m_poAzimuth->value(3, 0), QVariant(50.0));

        const std::unique_ptr<MatrixData> poCopy(tree.m_poWell->clone());
        auto* poCopiedStrike = dynamic_cast<MatrixDataStrike*>(poCopy->getNodeFromName("strike"));
        QCOMPARE(poCopiedStrike->azimuth(), poCopy->getNodeFromName("azimuth"));
        QCOMPARE(poCopiedStrike->owner(), poCopy.get());
        QVERIFY(poCopy->isIdenticalTo(*tree.m_poWell));

        tree.m_oRoot.removeChild(tree.m_poAzimuth); // without a record: destroyed
        QVERIFY(!poStrike->azimuth() && poStrike->recordCount() == 0 && !poStrike->value(3, 0).isValid());
        QCOMPARE(poStrike->column().size(), 0);
        poStrike->setValue(3, 0, 1.0);
    }

    void arrayReadsAsColumns()
    {
        MatrixDataArray array("grid", 2, 3, QMetaType::Double);
        array.addValue(1, 2, 4.0);
        array.addValue(1, 2, 0.5);
        array.addValue(2, 0, 1.0); // out of range
        QCOMPARE(array.value(1, 2), QVariant(4.5));
        QCOMPARE(array.column(2).numbers(), (std::vector<double>{0.0, 4.5}));
        array.setValue(0, 2, 1.5);
        QCOMPARE(array.column(2).number(0), 1.5);
        const std::unique_ptr<MatrixData> poCopy(array.clone());
        QVERIFY(poCopy->isIdenticalTo(array));
        array.setCell(0, 0, -0.0);
        QVERIFY(!poCopy->isIdenticalTo(array));
        MatrixDataArray points("points", 2, 1, QMetaType::QPointF);
        points.setValue(1, 0, QPointF(1, 2));
        QCOMPARE(points.point(1), QPointF(1, 2));
        QCOMPARE(points.point(2), QPointF(99999.0, 99999.0));
    }

    void announcesOncePerOperation()
    {
        Tree tree;
        MatrixDataNotifier* pqNotifier = tree.m_oRoot.notifier();
        QSignalSpy values(pqNotifier, &MatrixDataNotifier::valuesChanged);
        QSignalSpy attributes(pqNotifier, &MatrixDataNotifier::attributesChanged);
        {
            const MatrixDataNotifier::Batch outer(&tree.m_oRoot);
            const MatrixDataNotifier::Batch inner(tree.m_poDepth);
            for (int i = 0; i < 50; ++i)
                tree.m_poDepth->setValue(3 + i, 0, 1.0 * i);
            tree.m_poDip->setName("Dip");
            tree.m_oRoot.removeChild(tree.m_poAzimuth);
            QCOMPARE(values.count() + attributes.count(), 0);
        }
        QCOMPARE(values.count(), 1);
        QCOMPARE(attributes.count(), 1);
        tree.m_oRoot.setSelected(true);
        QCOMPARE(attributes.count(), 2);
    }

    /// Removal is announced while the node is whole and in its place; destruction before anything is gone.
    void announcesRemovalBeforeItHappens()
    {
        auto poTree = std::make_unique<Tree>();
        MatrixDataNotifier* pqNotifier = poTree->m_oRoot.notifier();
        const MatrixDataPointer poDepth(poTree->m_poDepth);
        bool bWhole = false;
        connect(pqNotifier, &MatrixDataNotifier::nodeAboutToBeRemoved, this, [&](MatrixData* poBranch) {
            bWhole = poBranch == poTree->m_poWell && poTree->m_poWell->parentNode() == &poTree->m_oRoot &&
                     MatrixDataNotifier::contains(poBranch, poTree->m_poDepth);
        });
        poTree->m_oRoot.removeChild(poTree->m_poWell);
        QVERIFY(bWhole);
        QVERIFY(!poDepth);
        int iLeafs = 0;
        connect(pqNotifier, &MatrixDataNotifier::rootAboutToBeDestroyed, this,
                [&, poRoot = &poTree->m_oRoot] { iLeafs = int(poRoot->leafs().size()); });
        const MatrixDataPointer poDip(poTree->m_poDip);
        poTree.reset();
        QCOMPARE(iLeafs, 1);
        QVERIFY(!poDip);
    }
};

QTEST_GUILESS_MAIN(TestMatrixData)
#include "tst_matrixdata.moc"
