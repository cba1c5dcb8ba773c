#include "MatrixData.h"
#include "MatrixDataRestore.h"
#include "MatrixDataStrike.h"
#include "QTreeItemModel.h"

#include <QColor>
#include <QDataStream>
#include <QIODevice>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace gkBase;

namespace {

const QString s_sMimeType = QStringLiteral("4dorrel/attribute.text.list");

MatrixData* addAttribute(MatrixData* poDataSet, const QString& sName, int iRecords)
{
    auto* poNode = new MatrixData(sName, iRecords, 1, QMetaType::Double, 3);
    for (int i = 0; i < iRecords; ++i)
        poNode->setValue(3 + i, 0, i + 0.5);
    poDataSet->appendChild(poNode, true);
    return poNode;
}

/// Two data sets: A (X, dip, azimuth, strike) and B (B0, B1, B2).
struct Tree
{
    Tree()
    {
        m_poA = new MatrixData(QStringLiteral("A"));
        m_poB = new MatrixData(QStringLiteral("B"));
        m_oRoot.appendChild(m_poA, false);
        m_oRoot.appendChild(m_poB, false);
        addAttribute(m_poA, QStringLiteral("X"), 4)->setVertex(true);
        addAttribute(m_poA, QStringLiteral("dip"), 4);
        m_poA->appendChild(
            new MatrixDataStrike(QStringLiteral("strike"), addAttribute(m_poA, QStringLiteral("azimuth"), 4)), true);
        for (const char* pcName : {"B0", "B1", "B2"})
            addAttribute(m_poB, QString::fromLatin1(pcName), 2);
        m_oRoot.clearUndoActions();
    }
    QStringList names() const
    {
        QStringList lNames;
        for (int i = 0; i < m_oRoot.childCount(); ++i)
            for (int k = 0; k < m_oRoot.child(i)->childCount(); ++k)
                lNames << m_oRoot.child(i)->child(k)->name();
        return lNames;
    }
    MatrixData m_oRoot{QStringLiteral("root")};
    MatrixData* m_poA;
    MatrixData* m_poB;
};

} // namespace

class tst_QTreeItemModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<gkBase::MatrixData*>("gkBase::MatrixData*"); }
    void structure();
    void rename_data();
    void rename();
    void check();
    void dropIntoDataSet();
    void dropOntoAttribute();
    void brokenPayload_data();
    void brokenPayload();
    void deleteAttributes();
    void color();
    void changesFromElsewhere();
    void questionThatDestroysTheTree();
};

void tst_QTreeItemModel::structure()
{
    Tree tree;
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QModelIndex b = model.index(1, 0);
    QCOMPARE(model.data(b).toString(), QStringLiteral("B(3)"));
    const QModelIndex b2 = model.index(2, 0, b);
    QCOMPARE(model.data(b2).toString(), QStringLiteral("B2(2)"));
    QCOMPARE(model.parent(b2).row(), 2); // the child's row
    QCOMPARE(model.nodeFromIndex(model.parent(b2)), tree.m_poB);
    QCOMPARE(model.indexFromNode(tree.m_poB), b);
    QCOMPARE(model.indexFromNode(tree.m_poB->child(2)), b2);
    QVERIFY(!model.index(3, 0, b).isValid());
    QVERIFY(model.data(b, Qt::DecorationRole).isNull());
    QVERIFY(!model.data(b2, Qt::DecorationRole).isNull());
    model.setDataRoot(nullptr);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.index(0, 0).isValid());
}

void tst_QTreeItemModel::rename_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("renamed");
    QTest::newRow("free") << "Dip of bedding" << true;
    QTest::newRow("taken") << "azimuth" << true;
    QTest::newRow("same") << "dip" << false;
    QTest::newRow("empty") << "" << false;
}

void tst_QTreeItemModel::rename()
{
    QFETCH(QString, name);
    QFETCH(bool, renamed);
    Tree tree;
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QSignalSpy oNames(&model, &QTreeItemModel::treeItemNameChanged);
    const QSignalSpy oChanges(&model, &QTreeItemModel::dataChanged);
    QCOMPARE(model.setData(model.indexFromNode(tree.m_poA->child(1)), name), renamed);
    QCOMPARE(tree.m_oRoot.sizeUndoActions(), renamed ? 1 : 0);
    QCOMPARE(oNames.count(), renamed ? 1 : 0);
    QCOMPARE(oChanges.count(), renamed ? 1 : 0);
    QCOMPARE(model.modified(), renamed);
    QStringList lNames = tree.names();
    QCOMPARE(lNames.removeDuplicates(), 0);
    if (renamed) {
        QCOMPARE(tree.m_oRoot.undoAction(0)->name(), QStringLiteral("Change Attribute Name"));
        QVERIFY(tree.m_oRoot.undo());
    }
    QCOMPARE(tree.names()[1], QStringLiteral("dip"));
}

void tst_QTreeItemModel::check()
{
    Tree tree;
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QSignalSpy oSelected(&model, &QTreeItemModel::treeItemSelected);
    const QModelIndex dip = model.index(1, 0, model.index(0, 0));
    QVERIFY(model.setData(dip, static_cast<int>(Qt::Checked), Qt::CheckStateRole));
    QCOMPARE(model.data(dip, Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Checked));
    QCOMPARE(tree.m_oRoot.numberOfSelectedItems(), 1);
    QVERIFY(model.setData(dip, static_cast<int>(Qt::PartiallyChecked), Qt::CheckStateRole));
    QCOMPARE(tree.m_oRoot.numberOfSelectedItems(), 0);
    QVERIFY(!model.setData(dip, QStringLiteral("yes"), Qt::CheckStateRole));
    QCOMPARE(oSelected.count(), 2);
    QVERIFY(!model.modified());
}

void tst_QTreeItemModel::dropIntoDataSet()
{
    Tree tree;
    const MatrixData oBefore(tree.m_oRoot);
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QModelIndex a = model.index(0, 0);
    const std::unique_ptr<QMimeData> pqData(model.mimeData({a, model.index(0, 0, a), model.index(1, 0, a)}));
    const QSignalSpy oResets(&model, &QTreeItemModel::modelReset);
    QVERIFY(!model.dropMimeData(pqData.get(), Qt::CopyAction, -1, -1, QModelIndex()));
    QVERIFY(model.dropMimeData(pqData.get(), Qt::CopyAction, 1, 0, model.index(1, 0)));
    QCOMPARE(oResets.count(), 1);
    QCOMPARE(tree.m_poB->childCount(), 5);
    QVERIFY(tree.m_poB->child(2)->name().startsWith(QStringLiteral("dip")));
    QStringList lNames = tree.names();
    QCOMPARE(lNames.removeDuplicates(), 0);
    QVERIFY(!tree.m_poB->child(1)->isVertex());
    QVERIFY(tree.m_poB->child(1)->column() == tree.m_poA->child(0)->column());
    QVERIFY(model.modified());
    QCOMPARE(tree.m_oRoot.sizeUndoActions(), 2);
    while (tree.m_oRoot.undo()) {
    }
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));

    // A data set alone gives an empty payload: nothing changes, but the views are told.
    const std::unique_ptr<QMimeData> pqNone(model.mimeData({model.index(0, 0)}));
    const QSignalSpy oModified(&model, &QTreeItemModel::dataModified);
    const QSignalSpy oUpdates(&model, &QTreeItemModel::updateView);
    QVERIFY(model.dropMimeData(pqNone.get(), Qt::CopyAction, -1, -1, model.index(1, 0)));
    QCOMPARE(oModified, (QList<QVariantList>{{false}}));
    QCOMPARE(oUpdates.count(), 1);
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));
}

void tst_QTreeItemModel::dropOntoAttribute()
{
    Tree tree;
    const MatrixData oBefore(tree.m_oRoot);
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QModelIndex a = model.index(0, 0);
    const std::unique_ptr<QMimeData> pqData(
        model.mimeData({model.index(1, 0, a), model.index(2, 0, a), model.index(0, 0, a)}));
    QStringList lAsked;
    // Three items onto the last but one attribute, which is kept: the last one gets the first item.
    model.setOverwriteQuestion([&lAsked](const MatrixData* poNode) {
        lAsked << poNode->name();
        return lAsked.size() > 1;
    });
    QVERIFY(model.dropMimeData(pqData.get(), Qt::CopyAction, -1, -1, model.indexFromNode(tree.m_poB->child(1))));
    QCOMPARE(lAsked, QStringList({QStringLiteral("B1"), QStringLiteral("B2")}));
    QCOMPARE(tree.m_poB->child(1)->recordCount(), 2);
    QCOMPARE(tree.m_poB->child(2)->name(), QStringLiteral("B2"));
    QVERIFY(tree.m_poB->child(2)->column() == tree.m_poA->child(1)->column());
    QCOMPARE(tree.m_oRoot.sizeUndoActions(), 1);
    QVERIFY(tree.m_oRoot.undo());
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));

    model.setOverwriteQuestion([](const MatrixData*) { return false; });
    QVERIFY(model.dropMimeData(pqData.get(), Qt::CopyAction, -1, -1, model.indexFromNode(tree.m_poB->child(1))));
    QVERIFY(!model.modified());
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));
}

void tst_QTreeItemModel::brokenPayload_data()
{
    Tree tree;
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QModelIndex a = model.index(0, 0);
    const std::unique_ptr<QMimeData> pqData(model.mimeData({model.index(0, 0, a), model.index(1, 0, a)}));
    const QByteArray oWhole = pqData->data(s_sMimeType);
    const auto fnWithCount = [&oWhole](qint32 iCount) {
        QByteArray oHead;
        QDataStream(&oHead, QIODevice::WriteOnly) << iCount;
        return oHead + oWhole.mid(4);
    };
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("negative count") << fnWithCount(-1);
    QTest::newRow("more than there are") << fnWithCount(3);
    QTest::newRow("absurd count") << fnWithCount(0x7fffffff);
    QTest::newRow("cut off in the second") << oWhole.left(oWhole.size() - 5);
    QByteArray oTable;
    QDataStream tableStream(&oTable, QIODevice::WriteOnly);
    tableStream << qint32(1);
    MatrixData("no summary rows", 4, 1, QMetaType::Double, 0).putDataOnStream(tableStream);
    QTest::newRow("other row offset") << oTable;
    QTest::newRow("something else") << QByteArray("\0\0\0\1 a text from elsewhere", 26);
}

void tst_QTreeItemModel::brokenPayload()
{
    QFETCH(QByteArray, payload);
    Tree tree;
    const MatrixData oBefore(tree.m_oRoot);
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    model.setOverwriteQuestion([](const MatrixData*) { return true; });
    QMimeData data;
    data.setData(s_sMimeType, payload);
    QVERIFY(!model.dropMimeData(&data, Qt::CopyAction, -1, -1, model.index(1, 0)));
    QVERIFY(!model.dropMimeData(&data, Qt::CopyAction, -1, -1, model.indexFromNode(tree.m_poB->child(0))));
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));
    QCOMPARE(tree.m_oRoot.sizeUndoActions(), 0);
}

void tst_QTreeItemModel::deleteAttributes()
{
    Tree tree;
    const MatrixData oBefore(tree.m_oRoot);
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QModelIndex a = model.index(0, 0);
    model.deleteSelectedRows({a, model.index(0, 0, a), QModelIndex()}); // data set, vertex, root
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));
    const QModelIndex azimuth = model.indexFromNode(tree.m_oRoot.getNodeFromName(QStringLiteral("azimuth")));
    const QPersistentModelIndex kept(azimuth);
    model.deleteSelectedRows({azimuth, azimuth});
    QVERIFY(!kept.isValid());
    QVERIFY(!model.modified());
    QCOMPARE(tree.m_poA->childCount(), 2); // the strike went with it
    QCOMPARE(tree.m_oRoot.sizeUndoActions(), 2);
    while (tree.m_oRoot.undo()) {
    }
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));
}

void tst_QTreeItemModel::color()
{
    Tree tree;
    const MatrixData oBefore(tree.m_oRoot);
    QTreeItemModel model(nullptr, &tree.m_oRoot);
    const QSignalSpy oChanges(&model, &QTreeItemModel::dataChanged);
    const QModelIndex b = model.index(1, 0);
    model.changeAttributeColor({model.index(0, 0, b), model.index(1, 0, b)}, QColor(1, 2, 3));
    QCOMPARE(tree.m_poB->child(1)->color(), QColor(1, 2, 3));
    QCOMPARE(oChanges.count(), 0);
    QVERIFY(model.modified());
    QCOMPARE(tree.m_oRoot.sizeUndoActions(), 2);
    while (tree.m_oRoot.undo()) {
    }
    QVERIFY(tree.m_oRoot.isIdenticalTo(oBefore));
}

void tst_QTreeItemModel::changesFromElsewhere()
{
    auto pTree = std::make_unique<Tree>();
    QTreeItemModel model(nullptr, &pTree->m_oRoot);
    QSignalSpy oResets(&model, &QTreeItemModel::modelReset);
    const QPersistentModelIndex b1(model.indexFromNode(pTree->m_poB->child(1)));
    pTree->m_oRoot.removeChild(pTree->m_poB->child(1));
    QVERIFY(!b1.isValid());
    QCOMPARE(oResets.count(), 1);
    addAttribute(pTree->m_poB, QStringLiteral("New"), 1);
    QCOMPARE(oResets.count(), 2);

    QSignalSpy oChanges(&model, &QTreeItemModel::dataChanged);
    for (int i = 0; i < 100; ++i)
        pTree->m_poB->child(0)->setValue(3 + i, i);
    QTRY_VERIFY(!oChanges.isEmpty());
    QVERIFY(oChanges.count() < 10);

    pTree.reset();
    QCOMPARE(model.dataRoot(), nullptr);
    QCOMPARE(model.rowCount(), 0);
}

void tst_QTreeItemModel::questionThatDestroysTheTree()
{
    auto pTree = std::make_unique<Tree>();
    QTreeItemModel model(nullptr, &pTree->m_oRoot);
    const std::unique_ptr<QMimeData> pqData(model.mimeData({model.index(0, 0, model.index(0, 0))}));
    model.setOverwriteQuestion([&pTree](const MatrixData*) {
        pTree.reset();
        return true;
    });
    QVERIFY(!model.dropMimeData(pqData.get(), Qt::CopyAction, -1, -1, model.indexFromNode(pTree->m_poB->child(0))));
}

QTEST_MAIN(tst_QTreeItemModel)
#include "tst_qtreeitemmodel.moc"
