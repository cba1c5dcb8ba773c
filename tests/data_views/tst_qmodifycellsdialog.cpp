#include "AttributeTable.h"
#include "QModifyCellsDialog.h"
#include "QValueChangeOnOffWidget.h"
#include "QVertexItemModel.h"
#include "QVertexModelTableView.h"
#include "ValueChangeWidget.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace gkBase;

using M = CellModification::Method;

class tst_QModifyCellsDialog : public QObject
{
    Q_OBJECT

private slots:
    void previewTellsWhatHappens();
    void inputIsCheckedAsItIsTyped();
    void inputStaysWithItsAttribute();
    void keyboard();
    void modelGoes();
    void selectionIsTold();
};

namespace {

struct Dialog
{
    explicit Dialog(int iRecords = 25)
        : m_oTable(iRecords)
    {
        m_oDialog.show();
    }

    void setCells(int iColumn, int iFirstRow, int iLastRow)
    {
        CellRuns oCells(m_oModel.columnCount());
        oCells.setColumn(iColumn, {{iFirstRow, iLastRow}});
        m_oDialog.setCells(&m_oModel, oCells, iColumn);
    }

    void input(int iColumn, M eMethod, const QString& sValue)
    {
        m_oDialog.valueChange(iColumn)->setOn(true);
        m_oDialog.valueChange(iColumn)->valueChange()->setMethod(eMethod);
        m_oDialog.valueChange(iColumn)->valueChange()->setValue(sValue);
    }

    bool shows(const QString& sText) const
    {
        QCoreApplication::processEvents();
        for (const QLabel* pqLabel : m_oDialog.findChildren<QLabel*>())
            if (pqLabel->isVisible() && pqLabel->text().contains(sText))
                return true;
        return false;
    }

    AttributeTable m_oTable;
    QVertexItemModel m_oModel{nullptr, m_oTable.m_poRoot.get(), -1};
    QModifyCellsDialog m_oDialog;
};

} // namespace

void tst_QModifyCellsDialog::previewTellsWhatHappens()
{
    Dialog d;
    QVERIFY(!d.m_oDialog.acceptButton()->isEnabled());
    d.setCells(0, 0, 12);
    d.m_oTable.m_poX->setValue(3, 0, QVariant());
    d.input(0, M::Add, QStringLiteral("2"));
    QVERIFY(d.shows(QStringLiteral("9 of 10 cells"))); // the summary rows and the missing cell do not count
    QVERIFY(d.shows(QStringLiteral("row 2: 1.12 m → 3.12 m")));
    d.input(0, M::Add, QStringLiteral("0.00001")); // below the shown decimals
    QVERIFY(d.shows(QStringLiteral("1.1234667890123 m")));
    QVERIFY(d.m_oTable.m_poX->unitManager()->displayUnit(QStringLiteral("ft")));
    QVERIFY(d.shows(QStringLiteral(" ft → ")));
    QVERIFY(d.m_oTable.m_poX->unitManager()->displayUnit(QString()));
    d.input(0, M::Clear, QString());
    QVERIFY(d.shows(QStringLiteral("1.12 m → empty")));
    d.input(0, M::Interpolate, QString());
    QVERIFY(d.shows(QStringLiteral("10 cells stay")));

    QSignalSpy modified(&d.m_oDialog, &QModifyCellsDialog::cellsModified);
    d.input(0, M::Set, QStringLiteral("7"));
    d.m_oDialog.acceptButton()->click();
    QCOMPARE(modified.count(), 1);
    QCOMPARE(d.m_oTable.m_poX->value(12, 0).toDouble(), 7.0);
    QVERIFY(d.m_oTable.m_poX->value(13, 0).toDouble() != 7.0);
    QVERIFY(d.shows(QStringLiteral("10 cells were changed")));
    QVERIFY(d.m_oTable.m_poRoot->undo());
    QVERIFY(d.shows(QStringLiteral("10 of 10 cells"))); // it follows the data
}

void tst_QModifyCellsDialog::inputIsCheckedAsItIsTyped()
{
    Dialog d;
    d.m_oDialog.setCells(&d.m_oModel, CellRuns::ofRows({{3, 8}}, 5), 1);
    QVERIFY(!d.m_oDialog.valueChange(0)->isOn() && d.m_oDialog.valueChange(1)->isOn());
    const QPushButton* pqAccept = d.m_oDialog.acceptButton();
    QVERIFY(!pqAccept->isEnabled());
    d.input(1, M::Divide, QStringLiteral("0"));
    QVERIFY(!pqAccept->isEnabled());
    QVERIFY(d.shows(QStringLiteral("divided by 0")));
    d.input(1, M::Divide, QStringLiteral("2"));
    QVERIFY(pqAccept->isEnabled());
    d.input(2, M::Add, QStringLiteral("clay")); // a text cannot add, and is set
    QCOMPARE(int(d.m_oDialog.valueChange(2)->change().method()), int(M::Set));
    d.input(4, M::Set, QStringLiteral("no colour"));
    QVERIFY(!pqAccept->isEnabled());
    d.m_oDialog.valueChange(4)->setOn(false); // what is off may be wrong
    QVERIFY(pqAccept->isEnabled());
    QCOMPARE(int(d.m_oDialog.changes().size()), 2);
    d.m_oDialog.valueChange(1)->setOn(false);
    d.m_oDialog.valueChange(2)->setOn(false);
    QVERIFY(!pqAccept->isEnabled());
}

void tst_QModifyCellsDialog::inputStaysWithItsAttribute()
{
    Dialog d;
    d.m_oDialog.setCells(&d.m_oModel, CellRuns::ofRows({{3, 8}}, 5), 0);
    d.input(0, M::Add, QStringLiteral("3"));
    d.input(1, M::Multiply, QStringLiteral("4"));
    d.m_oTable.m_poX->setSelected(false); // its column leaves the table, which resets the model
    d.m_oModel.updateModel(-1, {});
    d.m_oDialog.setCells(&d.m_oModel, CellRuns::ofRows({{3, 8}}, 4), 0);
    QCOMPARE(d.m_oDialog.valueChange(0)->attributeName(), QStringLiteral("N"));
    QVERIFY(d.m_oDialog.valueChange(0)->isOn());
    QCOMPARE(d.m_oDialog.valueChange(0)->change(), CellChange(M::Multiply, QStringLiteral("4")));
    d.setCells(0, 0, 2); // summary rows only
    QVERIFY(!d.m_oDialog.valueChange(0));
    QVERIFY(!d.m_oDialog.acceptButton()->isEnabled());
    d.m_oTable.m_poB->setEditable(false);
    d.setCells(2, 3, 8);
    QVERIFY(!d.m_oDialog.valueChange(2)->isOn());
}

void tst_QModifyCellsDialog::keyboard()
{
    Dialog d;
    d.m_oDialog.hide();
    d.m_oDialog.setCells(&d.m_oModel, CellRuns::ofRows({{3, 8}}, 5), 1);
    d.m_oDialog.show();
    QVERIFY(d.m_oDialog.valueChange(1)->isAncestorOf(d.m_oDialog.focusWidget()));
    QTest::keyClicks(d.m_oDialog.focusWidget(), QStringLiteral("42"));
    int iTabs = 0; // by way of the switches of the other rows
    while (d.m_oDialog.focusWidget() != d.m_oDialog.acceptButton() && ++iTabs < 20)
        QTest::keyClick(d.m_oDialog.focusWidget(), Qt::Key_Tab);
    QCOMPARE(iTabs, 4);
    QTest::keyClick(d.m_oDialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(d.m_oTable.m_poN->value(8, 0).toInt(), 42);
}

void tst_QModifyCellsDialog::modelGoes()
{
    AttributeTable table;
    auto poModel = std::make_unique<QVertexItemModel>(nullptr, table.m_poRoot.get(), -1);
    QModifyCellsDialog dialog;
    dialog.show();
    dialog.setCells(poModel.get(), CellRuns::ofRows({{3, 8}}, 5), 0);
    dialog.valueChange(0)->valueChange()->setValue(QStringLiteral("1"));
    QVERIFY(dialog.acceptButton()->isEnabled());
    // Until the owner hands over cells of the new table there is nothing to modify.
    table.m_poDataSet->removeChild(table.m_poX);
    QVERIFY(!dialog.acceptButton()->isEnabled());
    QCoreApplication::processEvents();
    QVERIFY(!dialog.valueChange(0));
    dialog.setCells(poModel.get(), CellRuns::ofRows({{3, 8}}, 4), 0);
    poModel.reset();
    QCoreApplication::processEvents();
    QVERIFY(!dialog.acceptButton()->isEnabled());
}

void tst_QModifyCellsDialog::selectionIsTold()
{
    AttributeTable table(10000);
    QVertexItemModel model(nullptr, table.m_poRoot.get(), -1);
    QVertexModelTableView view;
    view.setModel(&model);
    QSignalSpy changed(&view, &QVertexModelTableView::selectedCellsChanged);
    QVERIFY(!view.hasSelectedCells());
    view.selectCells(QStringLiteral("true"), QString(), CellCondition::Equal, true, false, 3); // every other row
    QCOMPARE(changed.count(), 1);
    QVERIFY(view.hasSelectedCells());
    view.selectionModel()->select(model.index(3, 0), QItemSelectionModel::ClearAndSelect);
    QVERIFY(changed.count() > 1);
    QCOMPARE(view.selectedCells().cellCount(), 1);
    view.clearSelection();
    QVERIFY(!view.hasSelectedCells());
}

QTEST_MAIN(tst_QModifyCellsDialog)
#include "tst_qmodifycellsdialog.moc"
