#include "AttributeTable.h"
#include "CellBlock.h"
#include "QVertexItemModel.h"
#include "QVertexMinMaxItemModel.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace gkBase;

class tst_QVertexItemModel : public QObject
{
    Q_OBJECT

private slots:
    void structure();
    void reading();
    void edit_data();
    void edit();
    void untouchedEditor();
    void paste_data();
    void paste();
    void pasteExtends();
    void pasteIntoThinnedTable();
    void dragPayload();
    void damagedPayload();
    void modifyCells();
    void following();
    void summary();
};

void tst_QVertexItemModel::structure()
{
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    QVertexMinMaxItemModel summary(nullptr, table.m_poRoot.get(), -1);
    const QAbstractItemModelTester tester(&model);
    const QAbstractItemModelTester summaryTester(&summary);
    QCOMPARE(model.rowCount(), 28);
    QCOMPARE(model.columnCount(), 5);
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("2:N"));
    QVERIFY(!model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).isValid());
    model.updateModel(10, {});
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.row(model.index(2, 0)), 22);
    QCOMPARE(model.headerData(2, Qt::Vertical).toString(), QStringLiteral("20"));
    model.updateModel(2, {5, 7, 9});
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.row(model.index(1, 0)), 9);
    model.updateModel(-1, {});
    QCOMPARE(model.nodeFromIndex(QModelIndex()), table.m_poRoot.get());
    QCOMPARE(model.index(0, 2).internalPointer(), static_cast<void*>(table.m_poT));
    table.m_poN->setSelected(false);
    model.updateModel(-1, {});
    QCOMPARE(model.columnCount(), 4);
    table.m_poDataSet->removeChild(table.m_poX);
    QCOMPARE(model.getNode(0), table.m_poT);
    table.m_poRoot.reset();
    QCOMPARE(model.rowCount() + model.columnCount() + summary.columnCount(), 0);
}

void tst_QVertexItemModel::reading()
{
    AttributeTable table;
    table.append(QStringLiteral("Short"), QMetaType::Double, 2, [](int i) { return double(i); });
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    const QModelIndex x = model.index(4, 0);
    QCOMPARE(x.data(Qt::EditRole).toString(), QStringLiteral("1.12346"));
    QCOMPARE(x.data().toString(), QString::number(1.1234567890123, 'f', table.m_poX->unitManager()->precision()));
    QCOMPARE(x.data(Qt::TextAlignmentRole).toInt(), 130);
    QVERIFY(!x.data(Qt::CheckStateRole).isValid());
    QSignalSpy redrawn(&model, &QVertexItemModel::dataChanged);
    QVERIFY(table.m_poX->unitManager()->displayUnit(QStringLiteral("ft")));
    QVERIFY(!redrawn.isEmpty());
    QCOMPARE(x.data(Qt::EditRole).toString(), QString::number(1.1234567890123 / 0.3048, 'g', 6));
    QVERIFY(table.m_poX->unitManager()->displayUnit(QStringLiteral("m")));
    QVERIFY(!model.index(4, 3).data().isValid());
    QVERIFY(!model.index(4, 4).data().isValid());
    QCOMPARE(model.index(3, 3).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QCOMPARE(model.index(4, 3).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));

    const auto background = [&model](int iRow, int iColumn) {
        return model.index(iRow, iColumn).data(Qt::BackgroundRole).value<QBrush>().color();
    };
    QCOMPARE(background(2, 4), QColor(230, 230, 230));
    QCOMPARE(background(3, 0), QColor(255, 255, 255));
    QCOMPARE(background(7, 4), QColor(4, 0, 255));
    QCOMPARE(background(4, 5), QColor(255, 255, 255));
    QCOMPARE(background(5, 5), QColor(230, 230, 230)); // past the end of the short column

    table.m_poN->setEditable(false);
    const auto has = [&model](int iRow, int iColumn, Qt::ItemFlag eFlag) {
        return model.index(iRow, iColumn).flags().testFlag(eFlag);
    };
    QVERIFY(has(3, 0, Qt::ItemIsEditable) && !has(2, 0, Qt::ItemIsEditable) && !has(3, 1, Qt::ItemIsEditable));
    QVERIFY(has(3, 3, Qt::ItemIsUserCheckable) && !has(3, 3, Qt::ItemIsEditable));
    QVERIFY(has(2, 0, Qt::ItemIsSelectable) && has(2, 0, Qt::ItemIsDragEnabled));
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags(Qt::ItemIsDropEnabled));
}

void tst_QVertexItemModel::edit_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("undoName");
    QTest::newRow("number in feet") << 0 << QVariant("100") << int(Qt::EditRole) << QVariant(30.48)
                                    << "Edit Cell: value=100, row=2, column=X";
    QTest::newRow("no number") << 0 << QVariant("sand") << int(Qt::EditRole) << QVariant(0.0)
                               << "Edit Cell: value=sand, row=2, column=X";
    QTest::newRow("int") << 1 << QVariant("-7") << int(Qt::EditRole) << QVariant(-7)
                         << "Edit Cell: value=-7, row=2, column=N";
    QTest::newRow("text with a mark") << 2 << QVariant("%1 clay") << int(Qt::EditRole) << QVariant("%1 clay")
                                      << "Edit Cell: value=%1 clay, row=2, column=T";
    QTest::newRow("clear") << 1 << QVariant("") << int(Qt::EditRole) << QVariant()
                           << "Clear Cell: value=101, row=2, column=N";
    QTest::newRow("check") << 3 << QVariant(int(Qt::Checked)) << int(Qt::CheckStateRole) << QVariant(true)
                           << "Check State Changed: row=2, column=B";
    QTest::newRow("colour") << 4 << QVariant(QColor(1, 2, 3)) << int(Qt::EditRole) << QVariant(QColor(1, 2, 3))
                            << "Edit Color Cell: row=2, column=C";
}

void tst_QVertexItemModel::edit()
{
    QFETCH(int, column);
    QFETCH(QVariant, value);
    QFETCH(QVariant, stored);
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    QVERIFY(table.m_poX->unitManager()->displayUnit(QStringLiteral("ft")));
    const MatrixData oBefore(*table.m_poRoot);
    QSignalSpy modified(&model, &QVertexItemModel::dataModified);
    const QModelIndex cell = model.index(4, column);
    QFETCH(int, role);
    QVERIFY(model.setData(cell, value, role));
    QVERIFY(table.m_poX->unitManager()->displayUnit(QStringLiteral("m")));
    const QVariant qNow = model.getNode(column)->value(4, 0);
    if (stored.typeId() == QMetaType::Double)
        QCOMPARE(qNow.toDouble(), stored.toDouble());
    else
        QCOMPARE(qNow, stored);
    QVERIFY(model.modified());
    QCOMPARE(modified.size(), 1);
    QTEST(table.undoName(), "undoName");
    QVERIFY(table.m_poRoot->undo());
    QVERIFY(table.m_poRoot->isIdenticalTo(oBefore));
    QVERIFY(table.m_poRoot->redo());
    QCOMPARE(model.getNode(column)->value(4, 0), qNow);
    QVERIFY(!model.setData(model.index(2, column), value, role)); // a summary
    model.enableUndoRedo(false);
    const int iRecords = table.m_poRoot->sizeUndoActions();
    QVERIFY(model.setData(model.index(6, column), value, role));
    QCOMPARE(table.m_poRoot->sizeUndoActions(), iRecords);
}

void tst_QVertexItemModel::untouchedEditor()
{
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    const QModelIndex cell = model.index(4, 0);
    QVERIFY(model.setData(cell, cell.data(Qt::EditRole), Qt::EditRole));
    QCOMPARE(table.m_poX->value(4, 0).toDouble(), 1.1234567890123);
    QVERIFY(!table.m_poRoot->canUndo() && !model.modified());
}

void tst_QVertexItemModel::paste_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QList<QVariant>>("cells"); // X and N of records 0, 1, 2
    const QVariant x0(0.1234567890123), x1(1.1234567890123), x2(2.1234567890123);
    QTest::newRow("block") << "1\t2\r\n3\t4\r\n" << 3 << 0 << 2 << QList<QVariant>{1.0, 2, 3.0, 4, x2, 102};
    QTest::newRow("over summaries") << "9\n8\n7\n6" << 0 << 0 << 4 << QList<QVariant>{6.0, 100, x1, 101, x2, 102};
    QTest::newRow("empty cell clears, short line stops")
        << "\t5\n\n1" << 3 << 0 << 3 << QList<QVariant>{QVariant(), 5, QVariant(), 101, 1.0, 102};
    QTest::newRow("no number") << "a\t2.0" << 4 << 0 << 1 << QList<QVariant>{x0, 100, 0.0, 2, x2, 102};
}

void tst_QVertexItemModel::paste()
{
    QFETCH(QString, text);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, lines);
    QFETCH(QList<QVariant>, cells);
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    const MatrixData oBefore(*table.m_poRoot);
    QSignalSpy reset(&model, &QVertexItemModel::modelReset);
    QMimeData mime;
    mime.setText(text);
    QVERIFY(model.setMimeData(mime, row, column));
    QCOMPARE(reset.size(), 1);
    for (int i = 0; i < 6; ++i)
        QCOMPARE((i % 2 == 0 ? table.m_poX : table.m_poN)->value(3 + i / 2, 0), cells[i]);
    QCOMPARE(table.undoName(), QStringLiteral("Paste: rows=%1, column=X").arg(lines));
    QVERIFY(table.m_poRoot->undo());
    QVERIFY(table.m_poRoot->isIdenticalTo(oBefore));
}

void tst_QVertexItemModel::pasteExtends()
{
    AttributeTable table(2);
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    QMimeData mime;
    mime.setText(QStringLiteral("1\n2\n3\n"));
    QVERIFY(model.setMimeData(mime, 4, 1));
    QCOMPARE(model.rowCount(), 5);
    QCOMPARE(table.m_poN->value(4, 0).toInt(), 1);
    const MatrixData oBefore(*table.m_poRoot);
    model.setRowsCanBeExtended(true);
    QVERIFY(model.setMimeData(mime, 4, 1));
    QCOMPARE(model.rowCount(), 7);
    QCOMPARE(table.m_poN->value(6, 0).toInt(), 3);
    QCOMPARE(table.m_poT->recordCount(), 4); // all columns of a data set stay equally long
    QVERIFY(table.m_poRoot->undo());
    QVERIFY(table.m_poRoot->isIdenticalTo(oBefore));
    QCOMPARE(model.rowCount(), 5);
    model.extendRows();
    QCOMPARE(model.rowCount(), 6);
    QVERIFY(!model.setMimeData(QMimeData(), 3, 0));
    QVERIFY(!model.setMimeData(mime, 3, 9));
}

void tst_QVertexItemModel::pasteIntoThinnedTable()
{
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), 10);
    model.setRowsCanBeExtended(true);
    QMimeData mime;
    mime.setText(QStringLiteral("1\n2\n3\n4\n5"));
    QVERIFY(model.setMimeData(mime, 0, 1));
    QCOMPARE(table.m_poN->value(3, 0).toInt(), 1);
    QCOMPARE(table.m_poN->value(12, 0).toInt(), 2);
    QCOMPARE(table.m_poN->value(22, 0).toInt(), 3);
    QCOMPARE(table.m_poN->value(4, 0).toInt(), 101);
    QCOMPARE(table.m_poN->recordCount(), 25);
}

void tst_QVertexItemModel::dragPayload()
{
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    QModelIndexList lCells;
    for (int iRow = 3; iRow < 5; ++iRow)
        for (int iColumn = 0; iColumn < 5; ++iColumn)
            lCells << model.index(iRow, iColumn);
    const std::unique_ptr<QMimeData> pMime(model.mimeData(lCells));
    QCOMPARE(model.supportedDragActions(), Qt::DropActions(Qt::CopyAction));
    QVERIFY(pMime->hasFormat(model.mimeTypes().value(0)));
    QVERIFY(pMime->html().contains(QStringLiteral("<tr><td>0.1234567890123<td>100<td>0<td>true")));
    QVERIFY(!model.dropMimeData(pMime.get(), Qt::CopyAction, -1, -1, model.index(2, 0)));
    QVERIFY(!model.dropMimeData(pMime.get(), Qt::MoveAction, -1, -1, model.index(9, 0)));
    QVERIFY(model.dropMimeData(pMime.get(), Qt::CopyAction, -1, -1, model.index(9, 0)));
    QCOMPARE(table.undoName(), QStringLiteral("Drag/Drop: rows=2, column=X"));
    for (int iColumn = 0; iColumn < 5; ++iColumn)
        for (int iRow = 9; iRow < 11; ++iRow)
            QCOMPARE(model.getNode(iColumn)->value(iRow, 0), model.getNode(iColumn)->value(iRow - 6, 0));
    QVERIFY(table.m_poRoot->undo());
    QCOMPARE(table.m_poN->value(9, 0).toInt(), 106);
    QVERIFY(!model.mimeDataForCopy(QModelIndexList()));
}

void tst_QVertexItemModel::damagedPayload()
{
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    const std::unique_ptr<QMimeData> pMime(model.mimeDataForCopy({model.index(3, 0), model.index(4, 2)}));
    const QByteArray oWhole = pMime->data(CellBlock::mimeType());
    QVERIFY(CellBlock::fromBytes(oWhole));
    for (int iLength = 0; iLength < oWhole.size(); ++iLength)
        QVERIFY(!CellBlock::fromBytes(oWhole.left(iLength)));
    QVERIFY(!CellBlock::fromBytes(oWhole + 'x'));
    for (int i = 0; i < oWhole.size(); ++i) { // any wrong byte: nothing or some block, but no crash
        QByteArray oWrong = oWhole;
        oWrong[i] = char(~oWrong[i]);
        QMimeData mime;
        mime.setData(CellBlock::mimeType(), oWrong);
        model.dropMimeData(&mime, Qt::CopyAction, 5, 0, QModelIndex());
    }
}

void tst_QVertexItemModel::modifyCells()
{
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    const MatrixData oBefore(*table.m_poRoot);
    const QModelIndexList lCells{model.index(1, 1), model.index(3, 1), model.index(4, 1), model.index(4, 2)};
    QVERIFY(model.modifySelectedCells(lCells, 5, CellModification::Add));
    QCOMPARE(table.m_poN->value(3, 0).toInt(), 105);
    QCOMPARE(table.m_poN->value(4, 0).toInt(), 106);
    QCOMPARE(table.m_poT->value(4, 0).toString(), QStringLiteral("-1")); // a text does not calculate
    QVERIFY(table.undoName().startsWith(QStringLiteral("Modify Cell(s):")));
    QVERIFY(table.undoName().endsWith(QStringLiteral(": column=N")));
    QVERIFY(table.m_poRoot->undo());
    QVERIFY(!model.modifySelectedCells(lCells, QStringLiteral("x"), CellModification::Multiply));
    QVERIFY(!model.modifySelectedCells({lCells.first()}, 5, CellModification::Add)); // a summary
    QVERIFY(table.m_poRoot->isIdenticalTo(oBefore));

    const QModelIndexList lGap{model.index(5, 0), model.index(6, 0)};
    QVERIFY(model.modifySelectedCells(lGap, QVariant(), CellModification::Clear));
    QVERIFY(!table.m_poX->value(5, 0).isValid());
    QVERIFY(model.interpolate(lGap));
    QVERIFY(qAbs(table.m_poX->value(6, 0).toDouble() - 3.1234567890123) < 1e-12);
    QVERIFY(table.m_poRoot->undo() && table.m_poRoot->undo());
    QVERIFY(table.m_poRoot->isIdenticalTo(oBefore));
}

void tst_QVertexItemModel::following()
{
    AttributeTable table;
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    QSignalSpy reset(&model, &QVertexItemModel::modelReset);
    QSignalSpy changed(&model, &QVertexItemModel::dataChanged);
    QSignalSpy header(&model, &QVertexItemModel::headerDataChanged);
    table.m_poN->setValue(5, 0, 1);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(reset.size(), 0);
    model.changeColumnHeaderName(table.m_poDataSet);
    QCOMPARE(header.size(), 0);
    table.m_poT->setName(QStringLiteral("Rock"));
    QCOMPARE(header.last().value(1).toInt(), 2);
    table.m_poN->setValue(40, 0, 1);
    QCOMPARE(model.rowCount(), 41);
    QCOMPARE(reset.size(), 1);
    double dMin = 0;
    double dMax = 0;
    table.m_poN->setSelected(false);
    table.m_poB->setSelected(false);
    model.updateModel(-1, {});
    model.getMinMaxRange(dMin, dMax);
    QCOMPARE(dMin, 0.1234567890123);
    QCOMPARE(dMax, 24.1234567890123);
    model.getStackedMinMaxRange(dMin, dMax);
    QCOMPARE(dMin, 0.0);
}

void tst_QVertexItemModel::summary()
{
    AttributeTable table;
    QVertexMinMaxItemModel model(nullptr, table.m_poRoot.get(), -1);
    QCOMPARE(model.rowCount(), 5);
    QCOMPARE(model.headerData(4, Qt::Vertical).toString(), QStringLiteral("Unit Category"));
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(), QStringLiteral("Wells"));
    QCOMPARE(model.index(1, 1).data(Qt::EditRole).toString(), QStringLiteral("112"));
    QCOMPARE(model.index(2, 1).data().toString(), QStringLiteral("124"));
    QCOMPARE(model.index(3, 0).data(Qt::TextAlignmentRole).toInt(), 129);
    QCOMPARE(model.index(2, 0).data(Qt::TextAlignmentRole).toInt(), 130);
    QVERIFY(!model.index(2, 0).flags().testFlag(Qt::ItemIsEditable));
    QVERIFY(model.index(3, 0).flags().testFlag(Qt::ItemIsEditable));

    const QModelIndex category = model.index(QVertexMinMaxItemModel::UnitCategory, 0);
    QSignalSpy changed(&model, &QVertexMinMaxItemModel::unitCategoryChanged);
    QVERIFY(!model.setData(category, QStringLiteral("no such category")));
    QVERIFY(!model.setData(model.index(0, 0), 5));
    QCOMPARE(category.data().toString(), QStringLiteral("length"));
    QCOMPARE(changed.size(), 0);
    QVERIFY(model.setData(category, QStringLiteral("dimensionless")));
    QCOMPARE(table.m_poX->unitCategory(), QStringLiteral("dimensionless"));
    QCOMPARE(changed.size(), 1);
    QVERIFY(table.m_poRoot->undo());
    QCOMPARE(category.data().toString(), QStringLiteral("length"));

    const QModelIndex unit = model.index(QVertexMinMaxItemModel::Unit, 0);
    QVERIFY(model.choices(unit).contains(QStringLiteral("ft")));
    QVERIFY(model.setData(unit, QStringLiteral("ft")));
    QCOMPARE(model.currentChoice(unit), QStringLiteral("ft"));
    QCOMPARE(model.index(0, 0).data(Qt::EditRole).toString(), QString::number(0.1234567890123 / 0.3048, 'g', 6));
    QVERIFY(model.setData(unit, QStringLiteral("m")));
}

QTEST_GUILESS_MAIN(tst_QVertexItemModel)
#include "tst_qvertexitemmodel.moc"
