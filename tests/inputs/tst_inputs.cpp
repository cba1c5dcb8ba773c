#include "CategoryUnitItemDelegate.h"
#include "DisplayUnitManager.h"
#include "PropertyCategoryItemDelegate.h"
#include "QCartesianAxisWidget.h"
#include "QDecoratedToolBox.h"
#include "QDoubleSpinBoxWithSlider.h"
#include "QIntSpinBoxWithSlider.h"
#include "QUnitLineEdit.h"
#include "UnitRegistry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <boost/make_shared.hpp>

#include <cmath>
#include <limits>

using namespace gkBase;

namespace {

boost::shared_ptr<UnitManager> lengthInMetres()
{
    return boost::make_shared<UnitManager>(QStringLiteral("length"), QStringLiteral("m"));
}

void type(QWidget* pqWidget, const char* pcText, Qt::Key end = Qt::Key_unknown)
{
    auto* pqEdit = qobject_cast<QLineEdit*>(pqWidget);
    if (!pqEdit)
        pqEdit = pqWidget->findChild<QLineEdit*>();
    pqEdit->selectAll();
    QTest::keyClicks(pqWidget, QString::fromUtf8(pcText));
    if (end != Qt::Key_unknown)
        QTest::keyClick(pqWidget, end);
}

/// Smallest rectangle of the pixels in a colour.
QRect inkBox(const QImage& image, QRgb ink)
{
    QRect box;
    for (int iY = 0; iY < image.height(); ++iY) {
        for (int iX = 0; iX < image.width(); ++iX) {
            if (image.pixel(iX, iY) == ink)
                box |= QRect(iX, iY, 1, 1);
        }
    }
    return box;
}

} // namespace

class tst_Inputs : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void doubleSpinBox_keepsTheValueExactly();
    void doubleSpinBox_emitsOncePerChange();
    void doubleSpinBox_sliderReachesBothEnds();
    void doubleSpinBox_badRanges();
    void intSpinBox_couplesBoxAndSlider();
    void axis_gridLinesLieOnTheChartPicture();
    void axis_emitsGridLinesOnlyWhenTheyChange();
    void axis_ticksFollowTheDisplayUnit();
    void axis_fitNiceRangeIsNiceInDisplayUnits();
    void axis_drawsBesideTheArea_data();
    void axis_drawsBesideTheArea();
    void axis_showsTheVisiblePart();
    void unitLineEdit_readsNumbersWithUnits_data();
    void unitLineEdit_readsNumbersWithUnits();
    void unitLineEdit_keepsDigitsThatItDoesNotShow();
    void unitLineEdit_revertsWhatCannotBeRead();
    void unitLineEdit_missingValueIsAnEmptyLine();
    void toolBox_opensPagesByKeyboard();
    void delegates_commitTheChosenEntry();
};

void tst_Inputs::init()
{
    DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("length"), QString());
    QTest::failOnWarning(QRegularExpression(QStringLiteral("QObject::connect|No such (signal|slot)")));
}

void tst_Inputs::doubleSpinBox_keepsTheValueExactly()
{
    QDoubleSpinBoxWithSlider oWidget(0.001, 1.0 / 3.0, 10);
    auto* pqBox = oWidget.findChild<QDoubleSpinBox*>();
    QCOMPARE(oWidget.getValue(), 0.001); // the range has no zero
    oWidget.setValue(0.123456789);
    QCOMPARE(oWidget.getValue(), 0.123456789);
    QCOMPARE(pqBox->text(), QStringLiteral("0.12"));
    oWidget.setDecimals(4);
    QCOMPARE(pqBox->text(), QStringLiteral("0.1235"));
    QTest::keyClick(pqBox, Qt::Key_Return); // nothing typed, nothing taken
    QCOMPARE(oWidget.getValue(), 0.123456789);

    type(pqBox, "0.2718", Qt::Key_Return);
    QCOMPARE(oWidget.getValue(), 0.2718); // not drawn to one of the ten steps
    oWidget.setSuffix(QStringLiteral(" m, true"));
    type(pqBox, "0,05", Qt::Key_Return);
    QCOMPARE(oWidget.getValue(), 0.05);
}

void tst_Inputs::doubleSpinBox_emitsOncePerChange()
{
    QDoubleSpinBoxWithSlider oWidget(0.0, 10.0, 100);
    auto* pqBox = oWidget.findChild<QDoubleSpinBox*>();
    auto* pqSlider = oWidget.findChild<QSlider*>();
    QSignalSpy spy(&oWidget, &QDoubleSpinBoxWithSlider::valueChanged);
    type(pqBox, "7.77");
    QCOMPARE(spy.count(), 0); // not while typing
    QTest::keyClick(pqBox, Qt::Key_Return);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().first().toDouble(), 7.77);
    QCOMPARE(pqSlider->value(), 78);

    QTest::keyClick(pqSlider, Qt::Key_Right);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(oWidget.getValue(), 7.9);
    QCOMPARE(pqBox->value(), 7.9);
    QTest::keyClick(pqBox, Qt::Key_Up);
    QCOMPARE(spy.count(), 3);
    QCOMPARE(oWidget.getValue(), 8.0);
    oWidget.setValue(8.0);
    oWidget.setValue(std::numeric_limits<double>::quiet_NaN());
    oWidget.setDecimals(0);
    QCOMPARE(spy.count(), 3);
    oWidget.setValue(99.0);
    QCOMPARE(spy.count(), 4);
    oWidget.initialise(0.0, 5.0, 10);
    QCOMPARE(spy.count(), 5);
    QCOMPARE(spy.last().first().toDouble(), 5.0);
}

void tst_Inputs::doubleSpinBox_sliderReachesBothEnds()
{
    // Far finer steps than the shown decimals can tell apart: the keys must get on all the same.
    QDoubleSpinBoxWithSlider oWidget(0.0004, 0.9996, 1000);
    oWidget.setDecimals(1);
    auto* pqSlider = oWidget.findChild<QSlider*>();
    for (int i = 0; i < 1000; ++i)
        QTest::keyClick(pqSlider, Qt::Key_Right);
    QCOMPARE(oWidget.getValue(), 0.9996);
    for (int i = 0; i < 1000; ++i)
        QTest::keyClick(pqSlider, Qt::Key_Left);
    QCOMPARE(oWidget.getValue(), 0.0004);
}

void tst_Inputs::doubleSpinBox_badRanges()
{
    QDoubleSpinBoxWithSlider oWidget(5.0, -5.0, 0);
    QCOMPARE(oWidget.minimum(), -5.0);
    QCOMPARE(oWidget.maximum(), 5.0);
    oWidget.initialise(0.0, std::numeric_limits<double>::infinity(), 10);
    QCOMPARE(oWidget.maximum(), 5.0);
    oWidget.initialise(2.0, 2.0, 10);
    QTest::keyClick(oWidget.findChild<QSlider*>(), Qt::Key_Right);
    QCOMPARE(oWidget.getValue(), 2.0);
}

void tst_Inputs::intSpinBox_couplesBoxAndSlider()
{
    QIntSpinBoxWithSlider oWidget(-100, 100, 4);
    auto* pqBox = oWidget.findChild<QSpinBox*>();
    auto* pqSlider = oWidget.findChild<QSlider*>();
    QCOMPARE(pqSlider->value(), 2);
    QSignalSpy spy(&oWidget, &QIntSpinBoxWithSlider::valueChanged);
    type(pqBox, "37", Qt::Key_Return);
    QCOMPARE(oWidget.getValue(), 37);
    QTest::keyClick(pqSlider, Qt::Key_Right);
    QCOMPARE(oWidget.getValue(), 100);
    QCOMPARE(spy.count(), 2);
    oWidget.initialise(0, 10, 100);
    QCOMPARE(spy.count(), 3);
    QCOMPARE(pqSlider->maximum(), 10); // no step without a value of its own
    oWidget.initialise(std::numeric_limits<int>::max(), std::numeric_limits<int>::min(), 3);
    QTest::keyClick(pqSlider, Qt::Key_End);
    QCOMPARE(oWidget.getValue(), std::numeric_limits<int>::max());
    QTest::keyClick(pqSlider, Qt::Key_Home);
    QCOMPARE(oWidget.getValue(), std::numeric_limits<int>::min());
}

void tst_Inputs::axis_gridLinesLieOnTheChartPicture()
{
    QCartesianAxisWidget oAxis(QCartesianAxisWidget::Bottom, nullptr);
    oAxis.resize(401, 40);
    oAxis.setRange(0.0, 100.0);
    QCOMPARE(oAxis.gridLines().first(), 0);
    QCOMPARE(oAxis.gridLines().last(), 400);
    const qsizetype nAtFullView = oAxis.gridLines().size();
    oAxis.setZoom(5.0);
    QCOMPARE(oAxis.gridLines().last(), 2004);
    QVERIFY(oAxis.gridLines().size() > nAtFullView);

    oAxis.setPosition(QCartesianAxisWidget::Left);
    oAxis.resize(40, 301);
    oAxis.setZoom(1.0);
    const QList<double> vValues = oAxis.ticks().m_vMajor;
    QList<int> vUpwards = oAxis.gridLines();
    oAxis.setInverted(true);
    QCOMPARE(oAxis.gridLines().size(), vValues.size());
    for (qsizetype i = 0; i < vValues.size(); ++i) {
        QCOMPARE(oAxis.gridLines()[i], int(3.0 * vValues[i] + 1e-6));
        QVERIFY(std::abs(vUpwards[vValues.size() - 1 - i] + oAxis.gridLines()[i] - 300) <= 1);
    }
}

void tst_Inputs::axis_emitsGridLinesOnlyWhenTheyChange()
{
    QCartesianAxisWidget oAxis(QCartesianAxisWidget::Left, nullptr);
    oAxis.resize(60, 300);
    QSignalSpy spy(&oAxis, &QCartesianAxisWidget::gridLinesChanged);
    oAxis.setRange(0.0, 50.0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().first().value<QList<int>>(), oAxis.gridLines());
    oAxis.setRange(0.0, 50.0);
    oAxis.setOffset(17);
    oAxis.setTitle(QStringLiteral("Depth"));
    oAxis.setAxisColor(Qt::red);
    oAxis.redraw();
    oAxis.setRange(0.0, 500.0); // the same picture with other numbers
    QCOMPARE(spy.count(), 1);
    oAxis.setRange(std::numeric_limits<double>::quiet_NaN(), 50.0);
    QCOMPARE(spy.count(), 2);
    QVERIFY(oAxis.gridLines().isEmpty());
    oAxis.setMinValue(0.0);
    oAxis.setMaxValue(70.0);
    QCOMPARE(oAxis.maxValue(), 70.0);
    QVERIFY(!oAxis.gridLines().isEmpty());
}

void tst_Inputs::axis_ticksFollowTheDisplayUnit()
{
    QCartesianAxisWidget oAxis(QCartesianAxisWidget::Left, nullptr);
    oAxis.resize(60, 400);
    oAxis.setTitle(QStringLiteral("Depth"));
    oAxis.setUnitManager(lengthInMetres());
    oAxis.setRange(0.0, 30.48);
    QCOMPARE(oAxis.displayTitle(), QStringLiteral("Depth [m]"));
    DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("length"), QStringLiteral("ft"));
    QCOMPARE(oAxis.displayTitle(), QStringLiteral("Depth [ft]"));
    QCOMPARE(oAxis.maxValue(), 30.48);
    QCOMPARE(oAxis.ticks().m_vMajor.last(), 100.0);
    QCOMPARE(oAxis.gridLines().first(), 0);
    // A bound that happens to be the mark of missing values is a bound like any other.
    oAxis.setRange(0.0, 99999.0);
    QVERIFY(std::abs(oAxis.scale().maxValue() - 99999.0 / 0.3048) < 1e-6);
}

void tst_Inputs::axis_fitNiceRangeIsNiceInDisplayUnits()
{
    QCartesianAxisWidget oAxis;
    double dMin = 0.31;
    double dMax = 9.7;
    oAxis.fitNiceRange(dMin, dMax);
    QCOMPARE(dMin, 0.0);
    QCOMPARE(dMax, 10.0);
    oAxis.setUnitManager(lengthInMetres());
    DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("length"), QStringLiteral("ft"));
    dMin = 0.31; // 1.02 ft
    dMax = 9.7;  // 31.8 ft
    oAxis.fitNiceRange(dMin, dMax);
    QVERIFY(std::abs(dMin / 0.3048 - 0.0) < 1e-9);
    QVERIFY(std::abs(dMax / 0.3048 - 35.0) < 1e-9);
    QCOMPARE(oAxis.minValue(), 0.0);
    QCOMPARE(oAxis.maxValue(), 1.0);
}

void tst_Inputs::axis_drawsBesideTheArea_data()
{
    QTest::addColumn<QCartesianAxisWidget::Position>("position");
    QTest::addColumn<Qt::Orientation>("labels");
    using A = QCartesianAxisWidget;
    for (const Qt::Orientation labels : {Qt::Horizontal, Qt::Vertical}) {
        const char* pcLabels = labels == Qt::Horizontal ? "" : ", upright labels";
        QTest::addRow("left%s", pcLabels) << A::Left << labels;
        QTest::addRow("right%s", pcLabels) << A::Right << labels;
        QTest::addRow("top%s", pcLabels) << A::Top << labels;
        QTest::addRow("bottom%s", pcLabels) << A::Bottom << labels;
    }
}

void tst_Inputs::axis_drawsBesideTheArea()
{
    QFETCH(QCartesianAxisWidget::Position, position);
    QFETCH(Qt::Orientation, labels);
    QCartesianAxisWidget oAxis(position, nullptr);
    oAxis.setLabelOrientation(labels);
    oAxis.setTitle(QStringLiteral("Depth"));
    oAxis.setRange(0.0, 1000.0);
    oAxis.setAxisColor(Qt::black);

    QImage image(600, 500, QImage::Format_RGB32);
    image.fill(Qt::white);
    const QRect area(150, 100, 300, 250);
    {
        QPainter painter(&image);
        oAxis.drawAxis(painter, area);
    }
    const QRect ink = inkBox(image, qRgb(0, 0, 0));
    const int iThickness = oAxis.thickness();
    QRect allowed;
    switch (position) {
    case QCartesianAxisWidget::Left:
        allowed = QRect(area.left() - iThickness, area.top(), iThickness, area.height());
        QCOMPARE(ink.right(), area.left() - 1);
        break;
    case QCartesianAxisWidget::Right:
        allowed = QRect(area.right() + 1, area.top(), iThickness, area.height());
        QCOMPARE(ink.left(), area.right() + 1);
        break;
    case QCartesianAxisWidget::Top:
        allowed = QRect(area.left(), area.top() - iThickness, area.width(), iThickness);
        QCOMPARE(ink.bottom(), area.top() - 1);
        break;
    case QCartesianAxisWidget::Bottom:
        allowed = QRect(area.left(), area.bottom() + 1, area.width(), iThickness);
        QCOMPARE(ink.top(), area.bottom() + 1);
        break;
    }
    QVERIFY2(allowed.contains(ink), "nothing lies beyond the ends or outside of the axis' thickness");
    const bool bVertical = oAxis.orientation() == Qt::Vertical;
    QCOMPARE(bVertical ? ink.height() : ink.width(), bVertical ? area.height() : area.width());
    QVERIFY2((bVertical ? ink.width() : ink.height()) > iThickness / 2, "ticks, labels and title are there");
}

void tst_Inputs::axis_showsTheVisiblePart()
{
    QCartesianAxisWidget oAxis(QCartesianAxisWidget::Bottom, nullptr);
    oAxis.resize(400, oAxis.sizeHint().height());
    oAxis.setRange(0.0, 100.0);
    oAxis.setZoom(4.0);
    oAxis.setOffset(700);
    oAxis.setAxisColor(Qt::black);
    oAxis.setBackgroundColor(Qt::white);
    const QImage image = oAxis.grab().toImage().convertToFormat(QImage::Format_RGB32);
    // Five pixels below the line only major ticks are seen.
    for (int iX = 0; iX < 400; ++iX)
        QCOMPARE(image.pixel(iX, 5) == qRgb(0, 0, 0), oAxis.gridLines().contains(iX + 700));
}

void tst_Inputs::unitLineEdit_readsNumbersWithUnits_data()
{
    QTest::addColumn<QString>("sDisplayUnit");
    QTest::addColumn<QString>("sTyped");
    QTest::addColumn<double>("dModel"); // NaN: cannot be read
    const double dUnreadable = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("point") << ""
                           << "12.5" << 12.5;
    QTest::newRow("comma") << ""
                           << "12,5" << 12.5;
    QTest::newRow("exponent") << ""
                              << "+1.25e1" << 12.5;
    QTest::newRow("negative, true minus") << "" << u"\u22123"_qs << -3.0;
    QTest::newRow("display unit") << "ft"
                                  << "10" << 3.048;
    QTest::newRow("display unit written") << "ft"
                                          << " 10ft " << 3.048;
    QTest::newRow("model unit") << "ft"
                                << "10 m" << 10.0;
    QTest::newRow("third unit") << "ft"
                                << "250 cm" << 2.5;
    QTest::newRow("third unit without a choice") << ""
                                                 << "10 ft" << 3.048;
    QTest::newRow("another kind of unit") << ""
                                          << "10 s" << dUnreadable;
    QTest::newRow("no unit") << ""
                             << "10 bananas" << dUnreadable;
    QTest::newRow("two marks") << ""
                               << "1,234.5" << dUnreadable;
    QTest::newRow("grouped") << ""
                             << "1 234" << dUnreadable;
    QTest::newRow("two signs") << ""
                               << "+-3" << dUnreadable;
    QTest::newRow("not finite") << ""
                                << "inf" << dUnreadable;
    QTest::newRow("too large") << ""
                               << "1e999" << dUnreadable;
    QTest::newRow("unit only") << ""
                               << "m" << dUnreadable;
}

void tst_Inputs::unitLineEdit_readsNumbersWithUnits()
{
    QFETCH(QString, sDisplayUnit);
    QFETCH(QString, sTyped);
    QFETCH(double, dModel);
    QUnitLineEdit oEdit;
    oEdit.unitManager(lengthInMetres());
    oEdit.setModelValue(1.0, false);
    DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("length"), sDisplayUnit);
    QSignalSpy spy(&oEdit, &QUnitLineEdit::modelValueChanged);
    oEdit.selectAll();
    oEdit.insert(sTyped); // as pasting does; the test keyboard has no signs beyond ASCII
    QCOMPARE(oEdit.isTextValid(), !std::isnan(dModel));
    QCOMPARE(spy.count(), 0);
    QTest::keyClick(&oEdit, Qt::Key_Return);
    if (std::isnan(dModel)) {
        QCOMPARE(spy.count(), 0);
        QCOMPARE(oEdit.modelValue(), 1.0);
        QCOMPARE(oEdit.text(), sTyped); // still there to be mended
    } else {
        QCOMPARE(spy.count(), 1);
        QVERIFY(std::abs(oEdit.modelValue() - dModel) < 1e-12);
    }
}

void tst_Inputs::unitLineEdit_keepsDigitsThatItDoesNotShow()
{
    QUnitLineEdit oEdit;
    oEdit.unitManager(lengthInMetres());
    QSignalSpy spy(&oEdit, &QUnitLineEdit::modelValueChanged);
    oEdit.setModelValue(12.3456789, true);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(oEdit.text(), QStringLiteral("12.35 m"));
    QTest::keyClick(&oEdit, Qt::Key_Return);
    DisplayUnitManager::instance().setDisplayUnit(QStringLiteral("length"), QStringLiteral("ft"));
    QCOMPARE(oEdit.text(), QStringLiteral("40.50 ft"));
    QTest::keyClick(&oEdit, Qt::Key_Return);
    QCOMPARE(oEdit.modelValue(), 12.3456789);
    oEdit.setModelValue(2.0, false);
    QCOMPARE(spy.count(), 1);
}

void tst_Inputs::unitLineEdit_revertsWhatCannotBeRead()
{
    QWidget oWindow;
    auto* pqEdit = new QUnitLineEdit(&oWindow);
    auto* pqOther = new QLineEdit(&oWindow);
    pqOther->move(0, 50);
    pqEdit->unitManager(lengthInMetres());
    pqEdit->setModelValue(5.0, false);
    oWindow.show();
    QVERIFY(QTest::qWaitForWindowActive(&oWindow));

    pqEdit->setFocus();
    type(pqEdit, "five", Qt::Key_Escape);
    QCOMPARE(pqEdit->text(), QStringLiteral("5.00 m"));
    QVERIFY(pqEdit->isTextValid());
    type(pqEdit, "five");
    pqOther->setFocus();
    QCOMPARE(pqEdit->text(), QStringLiteral("5.00 m"));
    pqEdit->setFocus();
    type(pqEdit, "6");
    pqOther->setFocus();
    QCOMPARE(pqEdit->modelValue(), 6.0);
}

void tst_Inputs::unitLineEdit_missingValueIsAnEmptyLine()
{
    QUnitLineEdit oEdit;
    QCOMPARE(oEdit.modelValue(), 99999.0);
    oEdit.setModelValue(0.125, false);
    QCOMPARE(oEdit.text(), QStringLiteral("0.125")); // no unit, no rounding
    oEdit.setModelValue(std::numeric_limits<double>::quiet_NaN(), false);
    QVERIFY(oEdit.text().isEmpty());
    QCOMPARE(oEdit.modelValue(), 99999.0);
    oEdit.setModelValue(3.0, false);
    QSignalSpy spy(&oEdit, &QUnitLineEdit::modelValueChanged);
    oEdit.selectAll();
    QTest::keyClick(&oEdit, Qt::Key_Delete);
    QTest::keyClick(&oEdit, Qt::Key_Return);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(oEdit.modelValue(), 99999.0);
}

void tst_Inputs::toolBox_opensPagesByKeyboard()
{
    QDecoratedToolBox oToolBox;
    for (const char* pcTitle : {"One", "Two", "Three"})
        oToolBox.addItem(new QSlider, QString::fromLatin1(pcTitle));
    oToolBox.setItemEnabled(2, false);
    oToolBox.resize(200, 300);
    oToolBox.show();
    QVERIFY(QTest::qWaitForWindowActive(&oToolBox));
    const auto vHeaders = oToolBox.findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(vHeaders.size(), 3);
    vHeaders[0]->setFocus();
    // Through the open page to the next header.
    for (int i = 0; i < 4 && !vHeaders[1]->hasFocus(); ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(vHeaders[1]->hasFocus());
    QTest::keyClick(vHeaders[1], Qt::Key_Return);
    QCOMPARE(oToolBox.currentIndex(), 1);
    QTest::keyClick(vHeaders[0], Qt::Key_Space);
    QCOMPARE(oToolBox.currentIndex(), 0);
    QTest::keyClick(vHeaders[2], Qt::Key_Return);
    QCOMPARE(oToolBox.currentIndex(), 0);
}

void tst_Inputs::delegates_commitTheChosenEntry()
{
    QStandardItemModel oModel(1, 3);
    oModel.setItem(0, 0, new QStandardItem(QStringLiteral("an old category")));
    oModel.setItem(0, 1, new QStandardItem(QStringLiteral("m")));
    oModel.setItem(0, 2, new QStandardItem(QStringLiteral("m")));
    UnitRegistry oRegistry;
    QTableView oView;
    oView.setModel(&oModel);
    oView.setItemDelegateForColumn(0, new PropertyCategoryItemDelegate(&oRegistry, &oView));
    oView.setItemDelegateForColumn(
        1, new CategoryUnitItemDelegate([](const QModelIndex&) { return lengthInMetres(); }, &oView));
    oView.setItemDelegateForColumn(2, new CategoryUnitItemDelegate([](const QModelIndex&) { return nullptr; }, &oView));
    oView.show();

    const auto choose = [&](int iColumn, const QString& sChoice) {
        QSignalSpy changedSpy(&oModel, &QAbstractItemModel::dataChanged);
        oView.edit(oModel.index(0, iColumn));
        auto* pqComboBox = oView.viewport()->findChild<QComboBox*>();
        if (!pqComboBox)
            return -1;
        const QString sOld = pqComboBox->currentText();
        pqComboBox->setCurrentText(sChoice);
        emit pqComboBox->activated(pqComboBox->currentIndex());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const bool bClosed = !oView.viewport()->findChild<QComboBox*>();
        return bClosed && sOld != oModel.item(0, iColumn)->text() ? int(changedSpy.count()) : 0;
    };
    QCOMPARE(choose(0, QStringLiteral("an old category")), 0);
    QCOMPARE(choose(0, QStringLiteral("length")), 1);
    QCOMPARE(oModel.item(0, 0)->text(), QStringLiteral("length"));
    QCOMPARE(choose(1, QStringLiteral("ft")), 1);
    QCOMPARE(oModel.item(0, 1)->text(), QStringLiteral("ft"));
    QCOMPARE(choose(2, QStringLiteral("ft")), -1);
}

QTEST_MAIN(tst_Inputs)
#include "tst_inputs.moc"
