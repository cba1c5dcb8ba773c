#include "AttributeTable.h"
#include "QVertexItemModel.h"
#include "QVertexMinMaxItemModel.h"
#include "QVertexMinMaxModelTableView.h"
#include "QVertexModelTableView.h"

#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace gkBase;

class tst_QVertexModelTableView : public QObject
{
    Q_OBJECT

private slots:
    void rowSelection_data();
    void rowSelection();
    void selectionIsKept();
    void inverse();
    void vertices();
    void manyRanges();
    void selectingCells();
    void resets();
    void editingKeys();
    void typedTexts_data();
    void typedTexts();
    void clearing();
    void clipboard();
    void flagsAndColours();
    void summaryView();
};

namespace {

struct Window
{
    AttributeTable m_oTable;
    QVertexItemModel m_oModel;
    QVertexModelTableView m_oView;

    explicit Window(int iRecords = 25)
        : m_oTable(iRecords)
        , m_oModel(nullptr, m_oTable.m_poRoot.get(), -1)
    {
        m_oView.setModel(&m_oModel);
        m_oView.resize(700, 500);
        m_oView.show();
    }

    std::unique_ptr<bool[]> flags(int iCount, const std::vector<int>& viRecords) const
    {
        auto pbFlags = std::make_unique<bool[]>(static_cast<std::size_t>(iCount));
        for (const int iRecord : viRecords)
            pbFlags[static_cast<std::size_t>(iRecord)] = true;
        return pbFlags;
    }
    void selectNew(const std::vector<int>& viRecords, int iCount = 25)
    {
        m_oView.setNewRowSelection(flags(iCount, viRecords).get(), iCount);
    }
    void selectMore(const std::vector<int>& viRecords, int iCount = 25)
    {
        m_oView.setRowSelection(flags(iCount, viRecords).get(), iCount);
    }
    QLineEdit* editor() const { return m_oView.viewport()->findChild<QLineEdit*>(); }
    void click(int iRow, int iColumn)
    {
        QTest::mouseClick(m_oView.viewport(), Qt::LeftButton, Qt::NoModifier,
                          m_oView.visualRect(m_oModel.index(iRow, iColumn)).center());
    }
};

QList<int> list(const std::vector<int>& vi)
{
    return QList<int>(vi.begin(), vi.end());
}

} // namespace

void tst_QVertexModelTableView::rowSelection_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<QList<int>>("tableRows");
    QTest::addColumn<QList<int>>("records");
    QTest::newRow("plain") << -1 << QList<int>() << QList<int>{3, 12, 13, 22} << QList<int>{0, 9, 10, 19};
    QTest::newRow("thinned") << 10 << QList<int>() << QList<int>{0, 1, 2} << QList<int>{0, 9, 19};
    QTest::newRow("list") << -1 << QList<int>{5, 12, 22} << QList<int>{1, 2} << QList<int>{9, 19};
}

void tst_QVertexModelTableView::rowSelection()
{
    QFETCH(int, step);
    QFETCH(QList<int>, rows);
    QFETCH(QList<int>, tableRows);
    QFETCH(QList<int>, records);
    Window w;
    w.m_oModel.updateModel(step, {rows.begin(), rows.end()});
    w.selectNew({0, 9, 10, 19});
    QCOMPARE(list(w.m_oView.selectedRecords()), records);
    QCOMPARE(w.m_oView.selectedRowCount(), int(records.size()));
    QCOMPARE(list(rowsOfRuns(w.m_oView.selectedCells().fullRows())), tableRows);
    for (const int iRow : tableRows)
        QVERIFY(w.m_oView.selectionModel()->isRowSelected(iRow, QModelIndex()));
    std::vector<int> viSheetRows;
    w.m_oView.selectedRows(viSheetRows, 0);
    QCOMPARE(viSheetRows.front(), records.front() + 3);
}

void tst_QVertexModelTableView::selectionIsKept()
{
    Window w;
    w.selectNew({4});
    QCOMPARE(w.m_oView.selectionMode(), QAbstractItemView::MultiSelection);
    w.selectMore({6, 7});
    w.selectMore({});
    w.m_oView.selectTableRow(9);
    QCOMPARE(list(w.m_oView.selectedRecords()), (QList<int>{4, 6, 7, 9}));
    w.selectMore({24}, 100 /* more flags than records */);
    QCOMPARE(list(w.m_oView.selectedRecords()), (QList<int>{4, 6, 7, 9, 24}));
    w.click(3 + 6, 1); // multi-selection: takes one row out
    QCOMPARE(list(w.m_oView.selectedRecords()), (QList<int>{4, 7, 9, 24}));
    w.selectNew({});
    QVERIFY(w.m_oView.selectedCells().isEmpty());
    w.selectNew({1});
    QSignalSpy byUser(&w.m_oView, &QVertexModelTableView::selectionChangedByUser);
    QTest::keyClick(&w.m_oView, Qt::Key_Escape);
    QVERIFY(w.m_oView.selectedCells().isEmpty());
    QCOMPARE(w.m_oView.selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(byUser.size(), 1);
}

void tst_QVertexModelTableView::inverse()
{
    Window w;
    w.selectNew({0, 5, 24});
    w.m_oView.selectInverse();
    QCOMPARE(w.m_oView.selectedRowCount(), 22);
    QVERIFY(w.m_oView.selectionModel()->isRowSelected(0, QModelIndex())); // every cell, the summaries too
    w.m_oView.selectInverse();
    QCOMPARE(list(w.m_oView.selectedRecords()), (QList<int>{0, 5, 24}));
    w.m_oView.clearSelection();
    w.m_oView.selectionModel()->select(w.m_oModel.index(4, 1), QItemSelectionModel::Select);
    w.m_oView.selectInverse();
    QCOMPARE(w.m_oView.selectedCells().cellCount(), qint64(28 * 5 - 1));
    QVERIFY(!w.m_oView.selectedCells().contains(4, 1));
}

void tst_QVertexModelTableView::vertices()
{
    Window w;
    w.selectNew({2, 3});
    std::vector<std::vector<int>> vReported;
    connect(&w.m_oView, &QVertexModelTableView::verteciesSelected, this,
            [&vReported](const std::vector<int>& vi) { vReported.push_back(vi); });
    w.m_oView.slotVertexSelected(); // off: says nothing
    QVERIFY(vReported.empty());
    w.m_oView.slotVertexSelection(true);
    QCOMPARE(list(vReported.back()), (QList<int>{2, 3}));
    w.click(3 + 5, 0);
    QCOMPARE(list(vReported.back()), (QList<int>{2, 3, 5}));
    w.m_oView.slotVertexSelection(false);
    QVERIFY(vReported.back().empty());
    QCOMPARE(w.m_oView.selectedRowCount(), 3);
}

void tst_QVertexModelTableView::manyRanges()
{
    constexpr int iRecords = 10001;
    Window w(iRecords);
    std::vector<int> viEven;
    for (int i = 0; i < iRecords; i += 2)
        viEven.push_back(i);
    w.selectNew(viEven, iRecords);
    QVERIFY(w.m_oView.selectedRecords() == viEven);
    w.click(3, 0);
    w.click(4, 0);
    viEven[0] = 1;
    QVERIFY(w.m_oView.selectedRecords() == viEven);
    w.m_oView.selectInverse();
    QCOMPARE(w.m_oView.selectedRowCount(), iRecords - int(viEven.size()));
    w.m_oView.selectInverse();
    w.selectMore({3}, iRecords);
    QCOMPARE(w.m_oView.selectedRowCount(), int(viEven.size()) + 1);
    QTest::keyClick(&w.m_oView, Qt::Key_Escape);
    QVERIFY(w.m_oView.selectedCells().isEmpty());
}

void tst_QVertexModelTableView::selectingCells()
{
    Window w;
    w.m_oView.selectColumnCells(2, 1, false);
    QCOMPARE(w.m_oView.selectedCells().cellCount(), qint64(56));
    QCOMPARE(w.m_oView.firstSelectedCellType(), QMetaType::Int);
    w.m_oView.selectColumnCells(0, 0, true);
    QCOMPARE(w.m_oView.selectedCells().cellCount(), qint64(84));
    w.m_oView.selectCells(QStringLiteral("123"), QString(), CellCondition::Equal, false, false);
    QCOMPARE(w.m_oView.sortedSelectedIndexes(), (QModelIndexList{w.m_oModel.index(26, 1)}));
    w.m_oView.selectCells(QStringLiteral("-4"), QString(), CellCondition::Equal, true, false);
    QCOMPARE(list(w.m_oView.selectedRecords()), (QList<int>{4}));
    w.m_oView.selectAll();
    QCOMPARE(w.m_oView.selectedRowCount(), 25);
}

void tst_QVertexModelTableView::resets()
{
    Window w;
    w.selectNew({2, 3});
    w.m_oTable.m_poN->setSelected(false);
    w.m_oModel.updateModel(-1, {});
    QCOMPARE(list(w.m_oView.selectedRecords()), (QList<int>{2, 3}));
    QMimeData mime;
    mime.setText(QStringLiteral("7"));
    QVERIFY(w.m_oView.setMimeData(mime)); // at the first selected row
    QCOMPARE(w.m_oTable.m_poX->value(5, 0).toDouble(), 7.0);
    QCOMPARE(list(w.m_oView.selectedRecords()), (QList<int>{2, 3}));
    w.m_oModel.updateModel(10, {});
    QVERIFY(w.m_oView.selectedRecords().empty());
    w.m_oModel.updateModel(-1, {});
    w.m_oView.setCurrentIndex(w.m_oModel.index(4, 0));
    w.m_oView.resetEmpty();
    QVERIFY(w.m_oView.selectedCells().isEmpty() && !w.m_oView.currentIndex().isValid());
}

void tst_QVertexModelTableView::editingKeys()
{
    Window w(3);
    w.m_oView.setCurrentIndex(w.m_oModel.index(4, 0));
    QTest::keyClicks(w.m_oView.viewport(), QStringLiteral("8"));
    QVERIFY(w.editor());
    QTest::keyClicks(w.editor(), QStringLiteral("5"));
    QTest::keyClick(w.editor(), Qt::Key_Return);
    QCOMPARE(w.m_oTable.m_poX->value(4, 0).toDouble(), 85.0);
    QCOMPARE(w.m_oView.currentIndex(), w.m_oModel.index(5, 0));
    QCOMPARE(w.m_oTable.m_poRoot->sizeUndoActions(), 1);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(w.editor()); // goes on in the next cell
    QTest::keyClicks(w.editor(), QStringLiteral("99"));
    QTest::keyClick(w.editor(), Qt::Key_Escape);
    QCOMPARE(w.m_oTable.m_poX->value(5, 0).toDouble(), 2.1234567890123);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::keyClick(w.m_oView.viewport(), Qt::Key_F2);
    QVERIFY(w.editor());
    QTest::keyClick(w.editor(), Qt::Key_Tab); // untouched: writes nothing
    QCOMPARE(w.m_oView.currentIndex(), w.m_oModel.index(5, 1));
    QCOMPARE(w.m_oTable.m_poX->value(5, 0).toDouble(), 2.1234567890123);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    w.m_oModel.setRowsCanBeExtended(true);
    w.m_oView.setCurrentIndex(w.m_oModel.index(5, 2));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::keyClicks(w.m_oView.viewport(), QStringLiteral("a"));
    QVERIFY(w.editor());
    QTest::keyClick(w.editor(), Qt::Key_Enter); // in the last row
    QCOMPARE(w.m_oModel.rowCount(), 7);
    QCOMPARE(w.m_oView.currentIndex(), w.m_oModel.index(6, 2));
}

void tst_QVertexModelTableView::typedTexts_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVariant>("stored"); // invalid: the cell stays, and the editor open
    QTest::newRow("comma") << 0 << "1,5" << QVariant(1.5);
    QTest::newRow("own unit") << 0 << "1.5 m" << QVariant(1.5);
    QTest::newRow("other unit") << 0 << "10 ft" << QVariant(3.048);
    QTest::newRow("unit of something else") << 0 << "10 s" << QVariant();
    QTest::newRow("no number") << 0 << "sand" << QVariant();
    QTest::newRow("whole number") << 1 << "7.4" << QVariant(7);
    QTest::newRow("whole number in no unit") << 1 << "7 m" << QVariant();
    QTest::newRow("text") << 2 << "10 s" << QVariant(QStringLiteral("10 s"));
}

void tst_QVertexModelTableView::typedTexts()
{
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(QVariant, stored);
    Window w(3);
    const QVariant qOld = w.m_oModel.getNode(column)->value(4, 0);
    w.m_oView.setCurrentIndex(w.m_oModel.index(4, column));
    QTest::keyClick(w.m_oView.viewport(), Qt::Key_F2);
    QVERIFY(w.editor());
    w.editor()->selectAll();
    QTest::keyClicks(w.editor(), typed);
    QTest::keyClick(w.editor(), Qt::Key_Return);
    QCOMPARE(w.m_oModel.getNode(column)->value(4, 0), stored.isValid() ? stored : qOld);
    QCOMPARE(w.m_oView.currentIndex().row(), stored.isValid() ? 5 : 4);
    if (!stored.isValid()) {
        QCOMPARE(w.editor()->text(), typed);
        QTest::keyClick(w.editor(), Qt::Key_Tab); // leaving drops the text
        QCOMPARE(w.m_oModel.getNode(column)->value(4, 0), qOld);
    }
}

void tst_QVertexModelTableView::clearing()
{
    Window w;
    w.m_oView.setCurrentIndex(w.m_oModel.index(4, 1));
    QTest::keyClick(w.m_oView.viewport(), Qt::Key_Delete);
    QCOMPARE(w.m_oTable.undoName(), QStringLiteral("Clear Cell: value=101, row=2, column=N"));
    const MatrixData oBefore(*w.m_oTable.m_poRoot);
    const int iRecords = w.m_oTable.m_poRoot->sizeUndoActions();
    w.selectNew({0, 3, 4});
    QTest::keyClick(w.m_oView.viewport(), Qt::Key_Delete);
    QCOMPARE(w.m_oTable.m_poRoot->sizeUndoActions(), iRecords + 1);
    for (int iColumn = 0; iColumn < 5; ++iColumn)
        QVERIFY(!w.m_oModel.getNode(iColumn)->value(6, 0).isValid());
    QVERIFY(w.m_oTable.m_poX->value(4, 0).isValid());
    QVERIFY(w.m_oTable.m_poRoot->undo());
    QVERIFY(w.m_oTable.m_poRoot->isIdenticalTo(oBefore));
}

void tst_QVertexModelTableView::clipboard()
{
    Window w;
    for (int iRow = 4; iRow < 6; ++iRow)
        for (int iColumn = 0; iColumn < 2; ++iColumn)
            w.m_oView.selectionModel()->select(w.m_oModel.index(iRow, iColumn), QItemSelectionModel::Select);
    QTest::keyClick(&w.m_oView, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("1.1234567890123\t101\n2.1234567890123\t102\n"));
    w.m_oView.clearSelection();
    w.m_oView.setCurrentIndex(w.m_oModel.index(0, 0)); // a summary: the paste begins with the first record
    QTest::keyClick(&w.m_oView, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(w.m_oTable.undoName(), QStringLiteral("Paste: rows=2, column=X"));
    QCOMPARE(w.m_oTable.m_poX->value(3, 0).toDouble(), 1.1234567890123);
    QCOMPARE(w.m_oTable.m_poN->value(4, 0).toInt(), 102);
    QCOMPARE(w.m_oTable.m_poN->value(5, 0).toInt(), 102);
}

void tst_QVertexModelTableView::flagsAndColours()
{
    Window w;
    w.m_oView.setCurrentIndex(w.m_oModel.index(4, 3));
    QTest::keyClick(w.m_oView.viewport(), Qt::Key_Space);
    QCOMPARE(w.m_oTable.m_poB->value(4, 0).toBool(), true);
    QCOMPARE(w.m_oTable.undoName(), QStringLiteral("Check State Changed: row=2, column=B"));

    QColor oAsked;
    QColor oAnswer;
    w.m_oView.setColorChooser([&](const QColor& oInitial, QWidget*) {
        oAsked = oInitial;
        return oAnswer;
    });
    const QPoint oCell = w.m_oView.visualRect(w.m_oModel.index(7, 4)).center();
    const auto doubleClick = [&] {
        QTest::mouseClick(w.m_oView.viewport(), Qt::LeftButton, Qt::NoModifier, oCell);
        QTest::mouseDClick(w.m_oView.viewport(), Qt::LeftButton, Qt::NoModifier, oCell);
    };
    doubleClick(); // cancelled
    QCOMPARE(oAsked, QColor(4, 0, 255));
    QCOMPARE(w.m_oTable.m_poC->value(7, 0).value<QColor>(), QColor(4, 0, 255));
    oAnswer = QColor(9, 8, 7);
    doubleClick();
    QCOMPARE(w.m_oTable.m_poC->value(7, 0).value<QColor>(), oAnswer);
    QCOMPARE(w.m_oTable.undoName(), QStringLiteral("Edit Color Cell: row=5, column=C"));
}

void tst_QVertexModelTableView::summaryView()
{
    Window w;
    QVertexMinMaxItemModel model(nullptr, w.m_oTable.m_poRoot.get(), -1);
    QVertexMinMaxModelTableView view;
    view.setModel(&model);
    view.resize(300, view.sizeHint().height());
    view.show();
    w.m_oView.resize(300, 200);
    view.slotSliderMoved(60);
    QCOMPARE(view.horizontalScrollBar()->value(), 60);
    QVERIFY(view.visualRect(model.index(4, 0)).bottom() < view.viewport()->height());
    view.setColorChooser([](const QColor&, QWidget*) { return QColor(Qt::red); });
    view.setCurrentIndex(model.index(4, 4)); // a colour column has no colour in its summary
    QTest::keyClick(view.viewport(), Qt::Key_Return);
    QVERIFY(!w.m_oTable.m_poRoot->canUndo());
}

QTEST_MAIN(tst_QVertexModelTableView)
#include "tst_qvertexmodeltableview.moc"
