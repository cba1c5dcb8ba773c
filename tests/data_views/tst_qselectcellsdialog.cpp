#include "QSelectCellsDialog.h"
#include "UnitManager.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace gkBase;

class tst_QSelectCellsDialog : public QObject
{
    Q_OBJECT

private slots:
    void accept_data();
    void accept();
    void columns();
    void unitIsShown();
};

void tst_QSelectCellsDialog::accept_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("method");
    QTest::addColumn<QString>("value1");
    QTest::addColumn<QString>("value2");
    QTest::addColumn<bool>("accepted");
    using C = CellCondition;
    QTest::newRow("number") << int(QMetaType::Double) << int(C::Less) << "1.5"
                            << "" << true;
    QTest::newRow("no number") << int(QMetaType::Double) << int(C::Less) << "sand"
                               << "" << false;
    QTest::newRow("second is missing") << int(QMetaType::Double) << int(C::Between) << "1"
                                       << "" << false;
    QTest::newRow("second is not needed") << int(QMetaType::Int) << int(C::Equal) << "1"
                                          << "x" << true;
    QTest::newRow("both") << int(QMetaType::Double) << int(C::Outside) << "1"
                          << "2" << true;
    QTest::newRow("empty") << int(QMetaType::Double) << int(C::Empty) << "x"
                           << "" << true;
    QTest::newRow("colour") << int(QMetaType::QColor) << int(C::Equal) << "#00ff00"
                            << "" << true;
    QTest::newRow("any type") << int(QMetaType::UnknownType) << int(C::Equal) << "sand"
                              << "" << true;
}

void tst_QSelectCellsDialog::accept()
{
    QFETCH(int, type);
    QFETCH(int, method);
    QFETCH(QString, value1);
    QFETCH(QString, value2);
    QSelectCellsDialog dialog;
    QVERIFY(!dialog.acceptButton()->isEnabled());
    dialog.setAttribute(QStringLiteral("A"), static_cast<QMetaType::Type>(type), {});
    dialog.setMethod(static_cast<CellCondition::Method>(method));
    dialog.setValues(value1, value2);
    QTEST(dialog.acceptButton()->isEnabled(), "accepted");
    QCOMPARE(int(dialog.method()), method);
    if (CellCondition::valueCount(dialog.method()) < 2)
        QCOMPARE(dialog.value2(), QString());
    // An attribute of another type: input that no longer fits is refused.
    dialog.setAttribute(QStringLiteral("Flag"), QMetaType::Bool, {});
    QCOMPARE(dialog.acceptButton()->isEnabled(), dialog.condition().isValid(QMetaType::Bool));
}

void tst_QSelectCellsDialog::columns()
{
    QSelectCellsDialog dialog;
    dialog.setColumnSelection(true);
    QVERIFY(!dialog.isColumnSelection());
    dialog.setColumns({QStringLiteral("Depth"), QStringLiteral("Dip"), QStringLiteral("Azimuth")});
    dialog.setColumnSelection(true);
    dialog.setColumnRange(2, 1);
    QCOMPARE(dialog.columnFrom(), 1);
    QCOMPARE(dialog.columnTo(), 2);
    QVERIFY(dialog.acceptButton()->isEnabled());
    // A table with fewer columns keeps the range inside, one without ends the column selection.
    dialog.setColumns({QStringLiteral("Depth")});
    QCOMPARE(dialog.columnTo(), 0);
    dialog.setColumns({});
    QVERIFY(!dialog.isColumnSelection());
    QVERIFY(!dialog.acceptButton()->isEnabled());
}

void tst_QSelectCellsDialog::unitIsShown()
{
    const boost::shared_ptr<UnitManager> poUnit(new UnitManager(QStringLiteral("depth"), QStringLiteral("m")));
    QSelectCellsDialog dialog;
    dialog.setAttribute(QStringLiteral("Depth"), QMetaType::Double, poUnit);
    int iShown = 0;
    for (const QLabel* pqLabel : dialog.findChildren<QLabel*>())
        iShown += pqLabel->text() == poUnit->getDisplayUnitTag() && !pqLabel->isHidden() ? 1 : 0;
    QCOMPARE(iShown, 2);
}

QTEST_MAIN(tst_QSelectCellsDialog)
#include "tst_qselectcellsdialog.moc"
