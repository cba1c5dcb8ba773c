#include "MatrixDataArray.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRestore.h"
#include "MatrixDataStrike.h"
#include "UnitManager.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace gkBase;

namespace {

MatrixData* addAttribute(MatrixData* poDataSet, const QString& sName, QMetaType::Type eType, int iRows)
{
    auto* poAttribute = new MatrixData(sName, iRows, 1, eType);
    for (int i = 0; i < iRows; ++i)
        poAttribute->setValue(3 + i, 0, i % 7 == 6 ? QVariant() : QVariant(10.1 * i));
    poDataSet->appendChild(poAttribute, true);
    return poAttribute;
}

std::unique_ptr<MatrixData> makeTree()
{
    auto poRoot = std::make_unique<MatrixData>("root");
    for (int iWell = 0; iWell < 2; ++iWell) {
        auto* poWell = new MatrixData(QString("well %1").arg(iWell));
        poRoot->appendChild(poWell, false);
        addAttribute(poWell, QString("depth %1").arg(iWell), QMetaType::Double, 20);
        auto* poAzimuth = addAttribute(poWell, QString("azimuth %1").arg(iWell), QMetaType::Double, 20);
        poWell->appendChild(new MatrixDataStrike(QString("strike %1").arg(iWell), poAzimuth), true);
        for (QMetaType::Type eType : {QMetaType::Int, QMetaType::Bool, QMetaType::QString, QMetaType::QColor})
            addAttribute(poWell, QString("%1 %2").arg(QMetaType(eType).name()).arg(iWell), eType, 20);
    }
    return poRoot;
}

/// Applies random edits the way the models do: record first, then the edit.
class Editor
{
public:
    Editor(MatrixData& oRoot, quint32 iSeed)
        : m_oRoot(oRoot)
        , m_random(iSeed)
    {
    }

    static constexpr int iKinds = 12;

    void edit(int iKind)
    {
        const std::vector<MatrixData*> vpLeafs = m_oRoot.leafs();
        if (vpLeafs.empty())
            return;
        MatrixData* poNode = vpLeafs[size_t(below(int(vpLeafs.size())))];
        auto* poRecord = new MatrixDataRestore(poNode, QString::number(iKind), iKind == 5);
        if (iKind < 4)
            editCells(iKind, poNode, poRecord);
        else if (iKind < 9)
            editTree(iKind, poNode, poRecord);
        else
            editWhole(iKind, poNode, poRecord);
    }

private:
    int below(int n) { return n > 0 ? int(m_random.bounded(n)) : 0; }
    QVariant randomValue() { return below(4) == 0 ? QVariant() : QVariant(below(3600) / 10.0); }
    void record(MatrixDataRestore* poRecord) { m_oRoot.appendUndoAction(poRecord, below(3) != 0); }

    void editCells(int iKind, MatrixData* poNode, MatrixDataRestore* poRecord)
    {
        const int iRecords = poNode->recordCount();
        if (iKind == 0) { // one cell, sometimes past the end, sometimes twice
            const int iRow = 3 + below(iRecords + 2);
            poRecord->dataStore(iRow, poNode->value(iRow, 0));
            record(poRecord);
            poNode->setValue(iRow, 0, randomValue());
        } else if (iKind == 1) { // a block over two columns of the data set, growing it
            MatrixData* poOwner = poNode->owner();
            MatrixData* poSecond = poOwner->child(below(poOwner->childCount()));
            const int iFirst = 3 + below(iRecords);
            poRecord->storeRowCount(&m_oRoot); // checkValidRowCount() may change any length
            for (int iRow = iFirst; iRow < iFirst + 12; ++iRow)
                for (MatrixData* poColumn : {poNode, poSecond})
                    poRecord->dataStore(poColumn, iRow, 0, poColumn->value(iRow, 0));
            record(poRecord);
            for (int iRow = iFirst; iRow < iFirst + 12; ++iRow)
                for (MatrixData* poColumn : {poNode, poSecond})
                    poColumn->setValue(iRow, 0, randomValue());
            m_oRoot.checkValidRowCount();
        } else if (iKind == 2) { // a list of records at once
            std::vector<int> viRecords;
            for (int i = below(3); i < iRecords; i += 2)
                viRecords.push_back(i);
            poRecord->storeRecords(poNode, 0, viRecords);
            record(poRecord);
            for (int i : viRecords)
                poNode->setValue(3 + i, 0, randomValue());
        } else {
            poRecord->storeRowCount(&m_oRoot);
            record(poRecord);
            m_oRoot.appendOneRowForEachColumn();
        }
    }

    void editTree(int iKind, MatrixData* poNode, MatrixDataRestore* poRecord)
    {
        MatrixData* poOwner = poNode->owner();
        if (iKind == 4) {
            QString sName = "name";
            m_oRoot.createUniqueName(sName, poNode);
            poRecord->storeName(poNode);
            record(poRecord);
            poNode->setName(sName);
        } else if (iKind == 5) {
            record(poRecord);
            m_oRoot.removeChild(poNode);
        } else if (iKind == 6) { // an empty placeholder that then gets values
            auto* poNew = new MatrixData("new", -1, -1, QMetaType::QString, 3);
            poNew->setOwner(poOwner);
            poOwner->insertChild(below(poOwner->childCount()), poNew);
            poRecord->storeInsertion(poNew);
            record(poRecord);
        } else if (iKind == 7) {
            poRecord->storeColor(poNode);
            record(poRecord);
            poNode->setColor(QColor(below(256), 0, 0));
        } else {
            poRecord->storeUnit(poNode);
            record(poRecord);
            poNode->setUnitManager(boost::shared_ptr<UnitManager>(new UnitManager("length", below(2) ? "m" : "ft")));
        }
    }

    void editWhole(int iKind, MatrixData* poNode, MatrixDataRestore* poRecord)
    {
        if (iKind == 9) {
            poRecord->storeColumn(poNode, 0);
            record(poRecord);
            poNode->setColumn(0, MatrixColumn::fromDoubles(std::vector<double>(size_t(below(30)), 1.5)));
        } else if (iKind == 10) {
            poRecord->storeContents(poNode);
            record(poRecord);
            if (!poNode->isDerived())
                *poNode = MatrixData("replaced", 5, 2, QMetaType::Int);
        } else {
            poRecord->storeColumn(poNode, 0);
            record(poRecord);
            poNode->insertValue(3 + below(poNode->recordCount()), randomValue());
        }
    }

    MatrixData& m_oRoot;
    QRandomGenerator m_random;
};

} // namespace

class TestMatrixDataRestore : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void takesBackEveryKindOfEdit_data()
    {
        QTest::addColumn<int>("iKind");
        for (int iKind = 0; iKind < Editor::iKinds; ++iKind)
            QTest::addRow("kind %d", iKind) << iKind;
        QTest::newRow("mixed") << -1;
    }
    /// Every state on the way back and forth equals the one on the way there, bit for bit.
    void takesBackEveryKindOfEdit()
    {
        QFETCH(int, iKind);
        for (quint32 iSeed = 1; iSeed <= 10; ++iSeed) {
            const auto poRoot = makeTree();
            Editor editor(*poRoot, iSeed);
            std::map<int, std::unique_ptr<MatrixData>> states; // by undo state
            QRandomGenerator random(iSeed);
            states[poRoot->undoState()] = std::make_unique<MatrixData>(*poRoot);
            for (int i = 0; i < 25; ++i) {
                editor.edit(iKind < 0 ? int(random.bounded(Editor::iKinds)) : iKind);
                states[poRoot->undoState()] = std::make_unique<MatrixData>(*poRoot);
            }
            const int iRecords = poRoot->sizeUndoActions();
            const auto matches = [&] { return poRoot->isIdenticalTo(*states.at(poRoot->undoState())); };
            for (int iRound = 0; iRound < 2; ++iRound) {
                while (poRoot->undo())
                    QVERIFY2(matches(), qPrintable(QString("seed %1, undone %2").arg(iSeed).arg(poRoot->redoText())));
                QCOMPARE(poRoot->sizeUndoActions(), 0);
                while (poRoot->redo())
                    QVERIFY2(matches(), qPrintable(QString("seed %1, redone %2").arg(iSeed).arg(poRoot->undoText())));
                QCOMPARE(poRoot->sizeUndoActions(), iRecords);
            }
            for (int i = 0; i < 4; ++i)
                poRoot->undo();
            const int iLeft = poRoot->sizeUndoActions();
            editor.edit(4);
            QCOMPARE(poRoot->sizeUndoActions(), iLeft + 1);
            QVERIFY(!poRoot->canRedo());
            while (poRoot->undo()) {
            }
            QVERIFY(poRoot->isIdenticalTo(*states.at(0)));
        }
    }

    void groupsSteps()
    {
        const auto poRoot = makeTree();
        MatrixData* poNode = poRoot->leafs().front();
        const int iBefore = poRoot->undoState();
        for (int i = 0; i < 3; ++i) {
            auto* poRecord = new MatrixDataRestore(poNode, QString("step %1").arg(i));
            poRecord->dataStore(3, poNode->value(3, 0));
            poRoot->appendUndoAction(poRecord, i == 2); // the first begins a step all the same
            poNode->setValue(3, 0, 100.0 + i);
        }
        QCOMPARE(poRoot->sizeUndoActions(), 3);
        QCOMPARE(poRoot->undoText(), QString("step 2"));
        QVERIFY(poRoot->undo());
        QCOMPARE(poNode->value(3, 0), QVariant(101.0));
        QCOMPARE(poRoot->undoText(), QString("step 0"));
        QCOMPARE(poRoot->redoText(), QString("step 2"));
        QVERIFY(poRoot->undo());
        QCOMPARE(poNode->value(3, 0), QVariant(0.0));
        QCOMPARE(poRoot->undoState(), iBefore);
        QVERIFY(!poRoot->undo());
        QVERIFY(poRoot->redo());
        QCOMPARE(poNode->value(3, 0), QVariant(101.0));
        QCOMPARE(poRoot->redoText(), QString("step 2"));
    }

    void restoresACellThatWasStoredTwice()
    {
        const auto poRoot = makeTree();
        MatrixData* poNode = poRoot->leafs().front();
        auto* poRecord = new MatrixDataRestore(poNode, "twice");
        for (double dValue : {1.0, 2.0}) {
            poRecord->dataStore(3, poNode->value(3, 0));
            poNode->setValue(3, 0, dValue);
        }
        poRoot->appendUndoAction(poRecord, true);
        QVERIFY(poRoot->undo());
        QCOMPARE(poNode->value(3, 0), QVariant(0.0));
        QVERIFY(poRoot->redo());
        QCOMPARE(poNode->value(3, 0), QVariant(2.0));
    }

    void putsTheSameObjectBack()
    {
        const auto poRoot = makeTree();
        MatrixData* poWell = poRoot->child(0);
        MatrixData* poAzimuth = poWell->getNodeFromName("azimuth 0");
        auto* poStrike = dynamic_cast<MatrixDataStrike*>(poWell->getNodeFromName("strike 0"));
        QSignalSpy removed(poRoot->notifier(), &MatrixDataNotifier::nodeAboutToBeRemoved);
        QSignalSpy applied(poRoot->notifier(), &MatrixDataNotifier::undoApplied);
        poRoot->appendUndoAction(new MatrixDataRestore(poAzimuth, "Delete", true), true);
        poRoot->removeChild(poAzimuth);
        QVERIFY(!poStrike->azimuth() && !poStrike->value(3, 0).isValid());
        QVERIFY(poRoot->undo());
        QCOMPARE(poWell->child(1), poAzimuth);
        QCOMPARE(poStrike->azimuth(), poAzimuth);
        QCOMPARE(poStrike->value(3, 0), QVariant(270.0));
        QVERIFY(poRoot->redo());
        QCOMPARE(removed.count(), 2);
        QCOMPARE(applied.count(), 2);
        QVERIFY(!poStrike->azimuth());
    }

    /// Nodes that records speak of may be destroyed in any order.
    void outlivesNodes()
    {
        auto poRoot = makeTree();
        MatrixData* poWell = poRoot->child(0);
        MatrixData* poDepth = poWell->child(0);
        auto* poEdit = new MatrixDataRestore(poDepth, "Edit");
        poEdit->dataStore(3, poDepth->value(3, 0));
        poRoot->appendUndoAction(poEdit, true);
        poDepth->setValue(3, 0, 5.0);
        MatrixData* poInt = poWell->child(3);
        poRoot->appendUndoAction(new MatrixDataRestore(poInt, "Delete", true), true);
        const MatrixDataPointer poRemoved(poInt);
        poRoot->removeChild(poInt);
        poRoot->removeChild(poWell); // no record: destroyed with what stands below
        QVERIFY(poRemoved);
        QVERIFY(poRoot->undo() && poRoot->undo()); // nothing to put them into
        QVERIFY(!poEdit->node());
        QCOMPARE(poRoot->childCount(), 1);
        poRoot->clearUndoActions();
        QVERIFY(!poRemoved);

        MatrixData* poOther = poRoot->child(0);
        poRoot->appendUndoAction(new MatrixDataRestore(poOther, "Delete", true), true);
        const MatrixDataPointer poHeld(poOther);
        poRoot->removeChild(poOther);
        QVERIFY(poHeld);
        poRoot.reset();
        QVERIFY(!poHeld);
    }

    void wholeColumnCostsItsCells()
    {
        MatrixData oNode("a", 100000, 1);
        MatrixDataRestore whole(&oNode, "whole");
        whole.storeColumn(&oNode, 0);
        QVERIFY(whole.memoryUsage() < 8 * 100000 + 1000);
        MatrixDataRestore cells(&oNode, "cells");
        std::vector<int> viRecords(100000);
        for (size_t i = 0; i < viRecords.size(); ++i)
            viRecords[i] = int(i);
        cells.storeRecords(&oNode, 0, viRecords);
        QCOMPARE(cells.size(), 100000);
        QVERIFY(cells.memoryUsage() < 12 * 100000 + 1000);
    }
};

QTEST_GUILESS_MAIN(TestMatrixDataRestore)
#include "tst_matrixdatarestore.moc"
