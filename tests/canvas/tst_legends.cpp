#include "MatrixData.h"
#include "QChartDrawingArea.h"
#include "QLegendListModel.h"
#include "QLegendListView.h"
#include "QRelationshipItemModel.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <algorithm>
#include <memory>
#include <vector>

using namespace gkBase;

namespace {

class Chart : public QChartDrawingArea
{
public:
    Chart()
        : QChartDrawingArea(nullptr, QStringLiteral("Chart"))
    {
        resize(100, 100);
    }
    void redraw() override
    {
        ++m_iRedraws;
        QChartDrawingArea::redraw();
    }

    int m_iRedraws = 0;
};

using Names = QMap<int, QVariant>;

Names names(int iClasses)
{
    Names result{{0, QString()}};
    for (int i = 1; i <= iClasses; ++i)
        result[i] = QStringLiteral("class %1").arg(i);
    return result;
}

QMap<int, QColor> colors(int iClasses)
{
    QMap<int, QColor> result{{0, Qt::gray}};
    for (int i = 1; i <= iClasses; ++i)
        result[i] = QColor(i % 250, 10, 200);
    return result;
}

/// Pixels of a colour.
int count(const QImage& oImage, const QColor& oColor)
{
    int iCount = 0;
    for (int y = 0; y < oImage.height(); ++y)
        for (int x = 0; x < oImage.width(); ++x)
            iCount += oImage.pixelColor(x, y) == oColor ? 1 : 0;
    return iCount;
}

struct Legend
{
    explicit Legend(QLegendListModel::LegendType eType, int iClasses = 5)
        : m_oModel(nullptr, &m_oChart, eType)
    {
        m_oModel.setClasses(names(iClasses), colors(iClasses));
        m_oView.setModel(&m_oModel);
        m_oView.resize(150, 100);
    }

    QAction* action(int i) { return m_oView.popupMenu()->actions().at(i); }

    Chart m_oChart;
    QLegendListModel m_oModel;
    QLegendListView m_oView{nullptr};
};

} // namespace

class tst_Legends : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void pictures();
    void storedColors();
    void recoloring_data();
    void recoloring();
    void neighboursGo();
    void menu();
    void selectedClasses();
    void toolTips();
    void scrolledTogether_data();
    void scrolledTogether();
    void wholeLegendIsCopied();
    void manyClasses();
};

void tst_Legends::rows_data()
{
    QTest::addColumn<Names>("classNames");
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<int>("cellType");
    QTest::newRow("no names") << Names() << 0 << int(QMetaType::Double);
    QTest::newRow("one") << Names{{0, 5}} << 0 << int(QMetaType::Int);
    QTest::newRow("many") << names(3) << 3 << int(QMetaType::QString);
    QTest::newRow("colours") << Names{{0, QColor(Qt::gray)}, {1, QColor(Qt::red)}} << 1 << int(QMetaType::QColor);
}

void tst_Legends::rows()
{
    QFETCH(Names, classNames);
    QFETCH(int, rowCount);
    QLegendListModel model(nullptr, nullptr, QLegendListModel::SymbolLegend);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.classNames() = classNames;
    model.classesChanged();
    QCOMPARE(model.rowCount(), rowCount);
    QTEST(model.cellType(), "cellType");
    for (int iRow = 0; iRow < rowCount; ++iRow) {
        QCOMPARE(model.index(iRow, 0).data(), classNames.value(iRow + 1));
        QCOMPARE(model.index(iRow, 1).data().toInt(), iRow + 1);
    }
    QVERIFY(!model.data(QModelIndex()).isValid());
    QVERIFY(!model.indexOfClass(0).isValid());
    QVERIFY(!model.indexOfClass(rowCount + 1).isValid());
}

void tst_Legends::pictures()
{
    Legend symbols(QLegendListModel::SymbolLegend);
    const auto picture = [&](int iClassId) {
        return symbols.m_oModel.indexOfClass(iClassId).data(Qt::DecorationRole).value<QPixmap>();
    };
    QVERIFY(!picture(3).isNull());
    QVERIFY(picture(4).isNull());
    symbols.m_oModel.setHighestSymbolId(4);
    symbols.m_oModel.setLowestSymbolId(2);
    QVERIFY(!picture(4).isNull());
    QVERIFY(picture(1).isNull());
    QVERIFY(count(picture(2).toImage(), QColor(2, 10, 200)) > 50); // a filled square

    // Black mode of the chart leaves the pictures alone, and the pictures leave the chart alone.
    const QImage oBefore = picture(3).toImage();
    QCOMPARE(oBefore.pixelColor(0, 0), QColor(Qt::white));
    symbols.m_oChart.setLabelColor(Qt::white);
    const QColor oBackground = symbols.m_oChart.backgroundColor();
    QCOMPARE(picture(3).toImage(), oBefore);
    QCOMPARE(symbols.m_oChart.backgroundColor(), oBackground);

    const Legend swatches(QLegendListModel::ColorLegend);
    QCOMPARE(swatches.m_oModel.indexOfClass(5).data(Qt::DecorationRole).value<QColor>(), QColor(5, 10, 200));
    const QColor oHollow(2, 10, 200);
    QVERIFY(count(symbols.m_oModel.symbol(2).toImage(), oHollow) >
            count(swatches.m_oModel.symbol(2).toImage(), oHollow));
}

void tst_Legends::storedColors()
{
    auto poNode = std::make_unique<MatrixData>(QStringLiteral("Colour"), 1, 1, QMetaType::QColor);
    Legend legend(QLegendListModel::SymbolLegend);
    legend.m_oModel.setSymbolNode(poNode.get());
    legend.m_oModel.setClasses({{0, QColor(Qt::gray)}, {1, QColor(1, 2, 3)}}, {});
    QCOMPARE(legend.m_oModel.index(0, 0).data(Qt::DecorationRole).value<QColor>(), QColor(1, 2, 3));
    poNode.reset();
    QCOMPARE(legend.m_oModel.getSymbolNode(), nullptr);
    QCOMPARE(legend.m_oModel.index(0, 0).data(Qt::DecorationRole).value<QColor>(), QColor(1, 2, 3));
}

void tst_Legends::recoloring_data()
{
    QTest::addColumn<bool>("isSymbolLegend");
    QTest::newRow("symbols") << true;
    QTest::newRow("colours") << false;
}

void tst_Legends::recoloring()
{
    QFETCH(bool, isSymbolLegend);
    MatrixData oRoot(QStringLiteral("Root"));
    auto* poSet = new MatrixData(QStringLiteral("Set"));
    oRoot.appendChild(poSet, false);
    auto* poRock = new MatrixData(QStringLiteral("Rock"), 4, 1, QMetaType::QString);
    auto* poX = new MatrixData(QStringLiteral("X"), 4, 1);
    poSet->appendChild(poRock, true);
    poSet->appendChild(poX, true);
    for (int i = 0; i < 4; ++i) {
        poRock->setValue(i + 3, 0, QStringLiteral("rock %1").arg(i));
        poX->setValue(i + 3, 0, 1.0 * i);
    }
    QRelationshipItemModel points;
    QRelationshipItemModel lineation;
    for (QRelationshipItemModel* pModel : {&points, &lineation}) {
        pModel->takeNewDataSet(-1, QRelationshipItemModel::CrossPlotDisplay, poX, poX, {});
        isSymbolLegend ? pModel->setSymbolAttribute(poRock) : pModel->setColorAttribute(poRock);
    }
    const auto color = [&](const QRelationshipItemModel& model, int iClass) {
        return (isSymbolLegend ? model.symbolClasses() : model.colorClasses()).color(iClass);
    };

    Legend legend(isSymbolLegend ? QLegendListModel::SymbolLegend : QLegendListModel::ColorLegend, 4);
    legend.m_oChart.setModel(&points);
    legend.m_oModel.setLineationModel(&lineation);
    legend.m_oView.show();
    legend.m_oView.setSelectedIDs({2, 3});
    QColor oAnswer;
    legend.m_oView.setColorChooser(
        [&](const QColor& oInitial, QWidget*) { return oInitial == QColor(Qt::white) ? oAnswer : QColor(Qt::black); });
    const int iRedraws = legend.m_oChart.m_iRedraws;
    const QColor oOld = color(points, 2);
    legend.action(0)->trigger(); // cancelled
    QCOMPARE(color(points, 2), oOld);
    QCOMPARE(legend.m_oChart.m_iRedraws, iRedraws);

    oAnswer = QColor(1, 2, 3);
    legend.action(0)->trigger();
    for (const int iClass : {1, 2, 3, 4}) {
        const bool bSelected = iClass == 2 || iClass == 3;
        QCOMPARE(color(points, iClass) == oAnswer, bSelected);
        QCOMPARE(color(lineation, iClass) == oAnswer, bSelected);
        QCOMPARE(legend.m_oModel.classColors().value(iClass) == oAnswer, bSelected);
    }
    QCOMPARE(legend.m_oChart.m_iRedraws, iRedraws + 1);
    legend.m_oModel.changeSymbolColor(QModelIndex(), Qt::green);
    QVERIFY(!legend.m_oModel.classColors().values().contains(QColor(Qt::green)));
}

void tst_Legends::neighboursGo()
{
    auto poChart = std::make_unique<Chart>();
    auto poPoints = std::make_unique<QRelationshipItemModel>();
    QLegendListModel model(nullptr, poChart.get(), QLegendListModel::SymbolLegend);
    model.setClasses(names(2), colors(2));
    model.setLineationModel(poPoints.get());
    poChart.reset();
    poPoints.reset();
    QVERIFY(!model.chart());
    model.changeSymbolColor(model.index(0, 0), Qt::red);
    QCOMPARE(model.classColors().value(1), QColor(Qt::red));
    QVERIFY(!model.symbol(1).isNull());
}

void tst_Legends::menu()
{
    Legend legend(QLegendListModel::ColorLegend);
    QCOMPARE(legend.action(0)->text(), QStringLiteral("Edit Legend Color..."));
    QCOMPARE(legend.action(1)->text(), QStringLiteral("Copy Legend"));
    legend.m_oView.show();
    const auto openMenu = [&] {
        QTest::mouseClick(legend.m_oView.viewport(), Qt::RightButton, {}, QPoint(20, 10));
        const bool bShown = legend.m_oView.popupMenu()->isVisible();
        legend.m_oView.popupMenu()->close();
        return bShown;
    };
    QVERIFY(openMenu());
    QVERIFY(legend.action(0)->isEnabled());
    QCOMPARE(legend.m_oView.getSelectedIDs(), std::vector<int>{1}); // the press selects

    legend.m_oModel.setClasses({{0, QColor(Qt::gray)}, {1, QColor(Qt::red)}}, {});
    QVERIFY(openMenu());
    QVERIFY(!legend.action(0)->isEnabled());
}

void tst_Legends::selectedClasses()
{
    Legend legend(QLegendListModel::ColorLegend, 40);
    legend.m_oView.show();
    QSignalSpy selected(&legend.m_oView, &QLegendListView::selectedClassesChanged);
    legend.m_oView.setSelectedIDs({40, 3, 4, 99, 0, -1, 4});
    QCOMPARE(selected.count(), 0);
    std::vector<int> viIds = legend.m_oView.getSelectedIDs();
    std::sort(viIds.begin(), viIds.end());
    QCOMPARE(viIds, (std::vector<int>{3, 4, 40}));
    const QRect oRow = legend.m_oView.visualRect(legend.m_oModel.indexOfClass(2));
    QTest::mouseClick(legend.m_oView.viewport(), Qt::LeftButton, {}, oRow.center());
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<std::vector<int>>(), std::vector<int>{2});
    // Colours that change alone leave the selection, other classes do not.
    legend.m_oModel.setClasses(names(40), {});
    QCOMPARE(legend.m_oView.getSelectedIDs(), std::vector<int>{2});
    legend.m_oModel.setClasses(names(39), {});
    QVERIFY(legend.m_oView.getSelectedIDs().empty());
}

void tst_Legends::toolTips()
{
    Legend legend(QLegendListModel::ColorLegend);
    const QString sLong = QStringLiteral("limestone & marl with a name that no legend has room for");
    Names classNames = names(3);
    classNames[2] = sLong;
    legend.m_oModel.setClasses(classNames, colors(3));
    legend.m_oView.setToolTip(QStringLiteral("Click a class"));
    legend.m_oView.show();
    const auto toolTip = [&](int iClassId) {
        const QPoint oPlace = legend.m_oView.visualRect(legend.m_oModel.indexOfClass(iClassId)).center();
        QHelpEvent event(QEvent::ToolTip, oPlace, legend.m_oView.viewport()->mapToGlobal(oPlace));
        QApplication::sendEvent(legend.m_oView.viewport(), &event);
        return QToolTip::text();
    };
    QCOMPARE(toolTip(1), QStringLiteral("Click a class"));
    QCOMPARE(toolTip(2), sLong.toHtmlEscaped());
    QCOMPARE(toolTip(3), QStringLiteral("Click a class"));
}

void tst_Legends::scrolledTogether_data()
{
    QTest::addColumn<int>("classes");
    QTest::newRow("as many") << 30;
    QTest::newRow("three times as many") << 90;
    QTest::newRow("all in sight") << 2;
}

void tst_Legends::scrolledTogether()
{
    QFETCH(int, classes);
    Legend leader(QLegendListModel::ColorLegend, classes);
    Legend follower(QLegendListModel::SymbolLegend, 30);
    leader.m_oView.show();
    follower.m_oView.show();
    QScrollBar* pqLeader = leader.m_oView.verticalScrollBar();
    QScrollBar* pqFollower = follower.m_oView.verticalScrollBar();
    QVERIFY(pqFollower->maximum() > 10);
    QCOMPARE(pqLeader->maximum(), std::max(classes - pqLeader->pageStep(), 0));
    int iLast = -1;
    for (int iValue = 0; iValue <= pqLeader->maximum(); ++iValue) {
        follower.m_oView.slotLegendsVerticalScrollBarChanged(&leader.m_oModel, iValue);
        QVERIFY(pqFollower->value() >= iLast);
        iLast = pqFollower->value();
        if (classes == 30)
            QCOMPARE(pqFollower->value(), iValue);
    }
    QCOMPARE(pqFollower->value(), classes > 2 ? pqFollower->maximum() : 0);
    follower.m_oView.slotLegendsVerticalScrollBarChanged(nullptr, 1);
}

void tst_Legends::wholeLegendIsCopied()
{
    Legend legend(QLegendListModel::ColorLegend, 60);
    legend.m_oView.show();
    legend.m_oView.verticalScrollBar()->setValue(7);
    legend.action(1)->trigger();
    const QImage oCopy = QApplication::clipboard()->image();
    QCOMPARE(oCopy.size(), legend.m_oView.wholeLegendSize() * legend.m_oView.devicePixelRatioF());
    for (int iClass = 1; iClass <= 60; ++iClass)
        QVERIFY2(count(oCopy, QColor(iClass, 10, 200)) > 100, qPrintable(QString::number(iClass)));

    // The panel places it beside an exported chart of any background.
    QImage oExport(300, 2000, QImage::Format_RGB32);
    oExport.fill(Qt::black);
    QPainter painter(&oExport);
    legend.m_oView.paintLegend(painter, QPointF(100, 20), Qt::yellow);
    painter.end();
    QVERIFY(count(oExport, QColor(60, 10, 200)) > 100);
    QVERIFY(count(oExport, Qt::yellow) > 100);
    QCOMPARE(count(oExport.copy(0, 0, 100, 2000), Qt::black), 100 * 2000);

    legend.m_oModel.setClasses({}, {});
    QVERIFY(legend.m_oView.wholeLegend().isNull());
    legend.action(1)->trigger(); // an empty legend leaves the clipboard alone
    QVERIFY(!QApplication::clipboard()->image().isNull());
}

void tst_Legends::manyClasses()
{
    Legend legend(QLegendListModel::SymbolLegend, 100000);
    legend.m_oModel.setHighestSymbolId(15);
    legend.m_oView.show();
    const QSize oSize = legend.m_oView.wholeLegendSize();
    QVERIFY(oSize.width() < 32768 && oSize.height() < 32768);
    QVERIFY(!legend.m_oView.wholeLegend().isNull());
    QVERIFY(!legend.m_oView.horizontalScrollBar()->isVisible());
}

QTEST_MAIN(tst_Legends)
#include "tst_legends.moc"
