// The histogram's model and panel on small data sets.

#include "ReferenceData.h"
#include "TestDataSets.h"

#include <gkBase/HistogramGeometry.h>
#include <gkBase/MatrixData.h>
#include <gkBase/MatrixDataRestore.h>
#include <gkBase/MetafileClipboard.h>
#include <gkBase/QCartesianAxisWidget.h>
#include <gkBase/QDoubleSpinBoxWithSlider.h>
#include <gkBase/QHistogramChartWidget.h>
#include <gkBase/QHistogramItemModel.h>
#include <gkBase/QHistogramPlotWidget.h>
#include <gkBase/UnitManager.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

using namespace gkBase;
using gkTest::attribute;
using gkTest::rootOf;

namespace {

std::vector<double> ramp(int iCount, double dStep = 1.0)
{
    std::vector<double> vdValues(static_cast<std::size_t>(iCount));
    for (int i = 0; i < iCount; ++i)
        vdValues[static_cast<std::size_t>(i)] = i * dStep;
    return vdValues;
}

QLabel* labelNamed(const QWidget& panel, const QString& sAccessibleName)
{
    for (QLabel* pqLabel : panel.findChildren<QLabel*>()) {
        if (pqLabel->accessibleName() == sAccessibleName)
            return pqLabel;
    }
    return nullptr;
}

QComboBox* chooserOf(const QWidget& panel)
{
    return panel.findChild<QComboBox*>(QStringLiteral("m_pqHistogramDataSetComboBox"));
}

} // namespace

class TestHistogram : public QObject
{
    Q_OBJECT
private slots:
    void heightsObeyTheirType_data();
    void heightsObeyTheirType();
    void intervalOfZeroIsChosen();
    void headers();
    void referenceCountsAndPercentiles();
    void percentilesDoNotDependOnTheType();
    void panelShowsAnAttribute();
    void equalValues();
    void noValues();
    void intervalControlDecimals_data();
    void intervalControlDecimals();
    void fixedAzimuthRange();
    void directionsAreMarkedOnAzimuthsOnly();
    void selectedRowsAreCounted();
    void removedAttributeLeavesAnEmptyChart();
    void rootMayDieFirst();
    void userPicksAnAttribute();
    void zoomMovesTheAxes();
    void displayUnitsAreShown();
    void exportWithoutAWindow();
    void vectorCopyHasTitleAndAxes();
};

void TestHistogram::heightsObeyTheirType_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("frequency") << 0;
    QTest::newRow("relative") << 1;
    QTest::newRow("cumulative") << 2;
    QTest::newRow("unknown type counts") << 7;
}

void TestHistogram::heightsObeyTheirType()
{
    QFETCH(int, type);
    std::vector<double> vdValues = ramp(100, 0.37);
    vdValues[3] = 99999.0;
    vdValues[9] = std::nan("");
    const std::unique_ptr<MatrixData> poData(attribute(QStringLiteral("a"), vdValues));
    QHistogramItemModel model;
    const QAbstractItemModelTester tester(&model);
    model.setIntervalSize(2.0);
    model.takeNewDataSet(poData.get(), type, {});
    QCOMPARE(model.numberOfPoints(), 98);
    QCOMPARE(model.intervalSize(), 2.0);
    QCOMPARE(model.min(), 0.0);
    double dSum = 0.0;
    double dShares = 0.0;
    for (int i = 0; i < model.rowCount(); ++i) {
        const double dHeight = model.index(i, 3).data().toDouble();
        dShares += model.intervalShare(i);
        dSum += dHeight;
        const double dExpected = type == 1   ? model.intervalShare(i)
                                 : type == 2 ? dShares
                                             : model.intervalShare(i) * 0.98;
        QVERIFY(std::abs(dHeight - dExpected) < 1e-9);
    }
    QVERIFY(std::abs(dShares - 100.0) < 1e-9);
    if (type == 2)
        QCOMPARE(model.maximumHeight(), 100.0);
    else
        QVERIFY(std::abs(dSum - (type == 1 ? 100.0 : 98.0)) < 1e-9);
}

void TestHistogram::intervalOfZeroIsChosen()
{
    const std::unique_ptr<MatrixData> poData(attribute(QStringLiteral("a"), ramp(200)));
    for (const double dSize : {0.0, 1e-9, -3.0, std::nan("")}) {
        QHistogramItemModel model;
        model.setIntervalSize(dSize);
        model.takeNewDataSet(poData.get(), 0, {});
        QVERIFY(model.intervalSize() > 1e-8 && model.intervalSize() < 200.0);
        QVERIFY(model.rowCount() > 1);
    }
}

void TestHistogram::headers()
{
    const std::unique_ptr<MatrixData> poData(attribute(QStringLiteral("a"), ramp(11)));
    QHistogramItemModel model;
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QString());
    QCOMPARE(model.headerData(0, Qt::Vertical).toString(), QString());
    model.setIntervalSize(2.5);
    model.takeNewDataSet(poData.get(), 0, {});
    QCOMPARE(model.headerData(0, Qt::Vertical).toString(), QStringLiteral("-2.50")); // one interval low
    QCOMPARE(model.headerData(2, Qt::Vertical).toString(), QStringLiteral("2.50"));
    QCOMPARE(model.index(0, 0).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    model.takeNewDataSet(nullptr, 0, {});
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.frequencyData());
}

void TestHistogram::referenceCountsAndPercentiles()
{
    GK_REQUIRE_REFERENCE();
    const QMap<QString, std::vector<double>> columns = gkTest::referenceColumns(QStringLiteral("rock"));
    const QJsonObject attributes =
        gkTest::referenceValues(QStringLiteral("rock"))[QStringLiteral("attributes")].toObject();
    int iHistograms = 0;
    int iPercentiles = 0;
    for (const QString& sName : attributes.keys()) {
        const QJsonObject expected = attributes[sName].toObject();
        const std::unique_ptr<MatrixData> poData(attribute(sName, columns[sName]));
        for (const QJsonValue& value : expected[QStringLiteral("histograms")].toArray()) {
            const QJsonObject histogram = value.toObject();
            QHistogramItemModel model;
            model.setIntervalSize(histogram[QStringLiteral("interval_size")].toDouble());
            model.takeNewDataSet(poData.get(), 0, {});
            const std::vector<double> vdCounts = gkTest::toDoubles(histogram[QStringLiteral("frequency")].toArray());
            QCOMPARE(model.intervals().size(), vdCounts.size());
            for (std::size_t i = 0; i < vdCounts.size(); ++i)
                QCOMPARE(model.intervals()[i].m_dHeight, vdCounts[i]);
            const std::vector<double> vdCumulative =
                gkTest::toDoubles(histogram[QStringLiteral("cumulative_percent")].toArray());
            const QJsonObject percentiles = histogram[QStringLiteral("percentiles")].toObject();
            const auto compare = [&](double dPercent, const char* pName, double dActual) {
                // Over empty classes the curve is averaged, which the reference does not do.
                const auto it = std::lower_bound(vdCumulative.begin(), vdCumulative.end(), dPercent);
                if (it == vdCumulative.begin() || std::count(vdCumulative.begin(), it + 1, *(it - 1)) > 1 ||
                    (it + 1 != vdCumulative.end() && *(it + 1) == *it))
                    return;
                const QJsonObject expectedValues = percentiles[QLatin1String(pName)].toObject();
                GK_COMPARE_CLOSE(dActual, expectedValues[QLatin1String("at_right_edges")].toDouble(), 1e-9);
                ++iPercentiles;
            };
            compare(10.0, "P10", model.percentiles().m_dP10);
            compare(50.0, "P50", model.percentiles().m_dP50);
            compare(90.0, "P90", model.percentiles().m_dP90);
            GK_COMPARE_CLOSE(model.standardDeviation(),
                             expected[QStringLiteral("standard_deviation_n_minus_1")].toDouble(), 1e-9);
            ++iHistograms;
        }
    }
    QVERIFY(iHistograms >= 4);
    QVERIFY2(iPercentiles >= 6, qPrintable(QString::number(iPercentiles)));
}

void TestHistogram::percentilesDoNotDependOnTheType()
{
    // Uniform values: the percentile is the value below which so many per cent lie, within an interval.
    const std::unique_ptr<MatrixData> poData(attribute(QStringLiteral("a"), ramp(1001, 0.1)));
    QHistogramItemModel model;
    model.setIntervalSize(0.5);
    for (const int iType : {0, 1, 2}) {
        model.takeNewDataSet(poData.get(), iType, {});
        QVERIFY(std::abs(model.percentiles().m_dP10 - 10.0) < 0.5);
        QVERIFY(std::abs(model.percentiles().m_dP50 - 50.0) < 0.5);
        QVERIFY(std::abs(model.percentiles().m_dP90 - 90.0) < 0.5);
    }
}

void TestHistogram::panelShowsAnAttribute()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf({attribute(QStringLiteral("GR"), ramp(101))});
    MatrixData* poData = poRoot->leafs().front();
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0)); // a data set stands for its first numeric attribute
    QCOMPARE(panel.currentSelectedDataSet(), poData);
    QCOMPARE(chooserOf(panel)->currentData().toInt(), poData->globalID());
    QCOMPARE(labelNamed(panel, QStringLiteral("Number of Points:"))->text(), QStringLiteral("101"));
    const double dDeviation = std::sqrt(101.0 * 102.0 / 12.0); // of 0 … 100 with n − 1
    QCOMPARE(labelNamed(panel, QStringLiteral("Stand. Deviation:"))->text(), QString::number(dDeviation, 'f', 3));

    const QHistogramItemModel& model = *panel.histogramItemModel();
    const HistogramBoundaries shown = panel.drawingArea()->boundaries();
    QVERIFY(shown.m_oLowerLeft.x() <= model.min());
    QVERIFY(shown.m_oUpperRight.x() >= model.min() + (model.rowCount() + 1) * model.intervalSize());
    QCOMPARE(shown.m_oUpperRight.y(), model.maximumHeight());
}

void TestHistogram::equalValues()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf({attribute(QStringLiteral("a"), std::vector<double>(8, 3.0))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    const HistogramBoundaries shown = panel.drawingArea()->boundaries();
    QCOMPARE(shown.m_oLowerLeft, QPointF(-1.0, 0.0)); // 3 ± 8 / 2
    QCOMPARE(shown.m_oUpperRight, QPointF(7.0, 8.0));
    QCOMPARE(labelNamed(panel, QStringLiteral("P(50)"))->text(), QStringLiteral("3.000"));
}

void TestHistogram::noValues()
{
    const std::unique_ptr<MatrixData> poRoot =
        rootOf({attribute(QStringLiteral("a"), std::vector<double>(5, 99999.0))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    for (const char* pName : {"Number of Points:", "Stand. Deviation:", "P(10)", "P(50)", "P(90)"})
        QCOMPARE(labelNamed(panel, QLatin1String(pName))->text(), QStringLiteral("---"));
    panel.resize(800, 500);
    QVERIFY(!panel.grab().isNull());
}

void TestHistogram::intervalControlDecimals_data()
{
    QTest::addColumn<double>("range");
    QTest::addColumn<int>("decimals");
    QTest::newRow("wide") << 250.0 << 2;
    QTest::newRow("exactly 1") << 1.0 << 2;
    QTest::newRow("below 1") << 0.99 << 4;
}

void TestHistogram::intervalControlDecimals()
{
    QFETCH(double, range);
    QFETCH(int, decimals);
    const std::unique_ptr<MatrixData> poRoot =
        rootOf({attribute(QStringLiteral("a"), {0.0, range * 0.3, range * 0.4, range * 0.7, range})});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    const auto* pqInterval = panel.findChild<QDoubleSpinBoxWithSlider*>(QStringLiteral("m_pqIntervalSizeSpinBox"));
    QCOMPARE(pqInterval->minimum(), range / 1000.0);
    QCOMPARE(pqInterval->maximum(), range / 3.0);
    QCOMPARE(pqInterval->findChild<QDoubleSpinBox*>()->decimals(), decimals);
    QVERIFY(std::abs(pqInterval->getValue() - panel.histogramItemModel()->intervalSize()) < 1e-12);
}

void TestHistogram::fixedAzimuthRange()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf({attribute(QStringLiteral("azimuth"), ramp(120))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    panel.setAzimuthScaling(true);
    QCOMPARE(panel.drawingArea()->boundaries().m_oUpperRight.x(), 360.0);
    panel.setMercatorScaling(true);
    QCOMPARE(panel.drawingArea()->boundaries().m_oUpperRight.x(), 180.0);
    panel.setAzimuthScaling(false);
    QVERIFY(panel.drawingArea()->boundaries().m_oUpperRight.x() < 180.0);

    // The azimuth of a data set needs no asking.
    panel.setMercatorScaling(false);
    MatrixData* poAzimuth = poRoot->getNodeFromName(QStringLiteral("azimuth"));
    poAzimuth->setUnitManager(QStringLiteral("orientation"));
    panel.setDataSet(poAzimuth);
    QCOMPARE(panel.drawingArea()->boundaries().m_oUpperRight.x(), 360.0);
}

void TestHistogram::directionsAreMarkedOnAzimuthsOnly()
{
    const std::unique_ptr<MatrixData> poRoot =
        rootOf({attribute(QStringLiteral("azimuth"), ramp(120)), attribute(QStringLiteral("GR"), ramp(400))});
    poRoot->getNodeFromName(QStringLiteral("azimuth"))->setUnitManager(QStringLiteral("orientation"));
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setTandLdirection(310.0, 220.0);
    panel.setDataSet(poRoot->getNodeFromName(QStringLiteral("azimuth")));
    QHistogramPlotWidget* pqPlot = panel.drawingArea();

    // There are no bars beyond 120: what is dark in these columns of a picture are the marks.
    const auto darkShare = [&](double dAzimuth) {
        QImage oPicture(721, 200, QImage::Format_RGB32);
        QPainter painter(&oPicture);
        pqPlot->setGridIsOn(false);
        pqPlot->renderTo(painter, oPicture.rect());
        painter.end();
        const int iX = static_cast<int>(dAzimuth / 360.0 * 720.0);
        int iDark = 0;
        for (int iY = 100; iY < 195; ++iY) // below the labels
            iDark += qGray(oPicture.pixel(iX, iY)) < 100 ? 1 : 0;
        return iDark / 95.0;
    };
    QCOMPARE(darkShare(310.0), 1.0);
    QVERIFY(darkShare(220.0) > 0.4 && darkShare(220.0) < 0.9); // dashed
    QCOMPARE(darkShare(265.0), 0.0);

    panel.setDataSet(poRoot->getNodeFromName(QStringLiteral("GR")));
    darkShare(0.0); // lays out
    QVERIFY(pqPlot->directionMarks().empty());
    panel.setDataSet(poRoot->getNodeFromName(QStringLiteral("azimuth")));
    panel.setTandLdirection(99999.0, 99999.0);
    QCOMPARE(darkShare(310.0), 0.0);
}

void TestHistogram::selectedRowsAreCounted()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf({attribute(QStringLiteral("a"), ramp(50))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    QSignalSpy resets(panel.histogramItemModel(), &QAbstractItemModel::modelReset);
    panel.setSelectedRows({2, 3, 5, 7, 11});
    QCOMPARE(panel.histogramItemModel()->numberOfPoints(), 5);
    panel.setSelectedRows({2, 3, 5, 7, 11});
    QCOMPARE(resets.size(), 1);
    panel.setSelectedRows({});
    QCOMPARE(panel.histogramItemModel()->numberOfPoints(), 50);
}

void TestHistogram::removedAttributeLeavesAnEmptyChart()
{
    const std::unique_ptr<MatrixData> poRoot =
        rootOf({attribute(QStringLiteral("a"), ramp(50)), attribute(QStringLiteral("b"), ramp(60))});
    const std::vector<MatrixData*> vpLeafs = poRoot->leafs();
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(vpLeafs[1]);
    QCOMPARE(chooserOf(panel)->count(), 2);
    poRoot->removeChild(vpLeafs[0]); // another attribute goes: the chart stays
    QCOMPARE(chooserOf(panel)->count(), 1);
    QCOMPARE(panel.histogramItemModel()->numberOfPoints(), 60);
    poRoot->removeChild(vpLeafs[1]);
    QCOMPARE(panel.currentSelectedDataSet(), nullptr);
    QCOMPARE(panel.histogramItemModel()->rowCount(), 0);
    QCOMPARE(chooserOf(panel)->currentIndex(), -1);
    panel.updateHistogram();
    panel.resize(600, 400);
    panel.grab();
}

void TestHistogram::rootMayDieFirst()
{
    std::unique_ptr<MatrixData> poRoot = rootOf({attribute(QStringLiteral("a"), ramp(50))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    poRoot.reset();
    QCOMPARE(panel.currentSelectedDataSet(), nullptr);
    QCOMPARE(chooserOf(panel)->count(), 0);
    panel.updateDataSetSelectionBox();
    panel.updateHistogram();
}

void TestHistogram::userPicksAnAttribute()
{
    const std::unique_ptr<MatrixData> poRoot =
        rootOf({attribute(QStringLiteral("a"), ramp(50)), attribute(QStringLiteral("b"), ramp(60, 100.0))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->leafs()[0]);
    const double dOldInterval = panel.histogramItemModel()->intervalSize();
    QSignalSpy picked(&panel, &QHistogramChartWidget::dataSetSelected);
    panel.setCurrentDataSet(poRoot->leafs()[1]->globalID());
    QCOMPARE(picked.size(), 0);
    panel.setDataSet(poRoot->leafs()[0]);
    QComboBox* pqChooser = chooserOf(panel);
    pqChooser->setCurrentIndex(1);
    emit pqChooser->activated(1);
    QCOMPARE(picked.size(), 1);
    QCOMPARE(panel.currentSelectedDataSet(), poRoot->leafs()[1]);
    QVERIFY(panel.histogramItemModel()->intervalSize() > dOldInterval); // chosen anew
}

void TestHistogram::zoomMovesTheAxes()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf({attribute(QStringLiteral("a"), ramp(50))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    panel.resize(900, 600);
    panel.grab();
    QHistogramPlotWidget* pqPlot = panel.drawingArea();
    emit pqPlot->zoomChanged((pqPlot->zoom(3.0), 3.0)); // as the wheel does
    panel.grab();
    for (const auto* pqAxis : pqPlot->parentWidget()->findChildren<QCartesianAxisWidget*>()) {
        const bool bVertical = pqAxis->orientation() == Qt::Vertical;
        QCOMPARE(pqAxis->zoom(), 3.0);
        QCOMPARE(bVertical ? pqAxis->height() : pqAxis->width(), bVertical ? pqPlot->height() : pqPlot->width());
        QCOMPARE(pqAxis->offset(), bVertical ? pqPlot->pixmapRect().top() : pqPlot->pixmapRect().left());
        QCOMPARE(pqAxis->gridLines(), bVertical ? pqPlot->horizontalGridLines() : pqPlot->verticalGridLines());
        const double dRight = pqAxis->scale().toPixel(pqAxis->maxValue());
        QCOMPARE(dRight, bVertical ? 0.0 : pqPlot->chartSize().width() - 1.0);
    }
    panel.updateHistogram(); // a rebuild keeps the zoom that is switched on
    QCOMPARE(pqPlot->zoomFactor(), 3.0);
}

void TestHistogram::displayUnitsAreShown()
{
    auto* poAttribute = attribute(QStringLiteral("Depth"), ramp(301));
    const boost::shared_ptr<UnitManager> poUnit(new UnitManager(QStringLiteral("length"), QStringLiteral("m")));
    poAttribute->setUnitManager(poUnit);
    const std::unique_ptr<MatrixData> poRoot = rootOf({poAttribute});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    const QLabel* pqP50 = labelNamed(panel, QStringLiteral("P(50)"));
    const auto* pqInterval = panel.findChild<QDoubleSpinBoxWithSlider*>(QStringLiteral("m_pqIntervalSizeSpinBox"));
    const double dP50 = panel.histogramItemModel()->percentiles().m_dP50;
    const double dInterval = panel.histogramItemModel()->intervalSize();
    QCOMPARE(pqP50->text(), QString::number(dP50, 'f', 3) + QStringLiteral(" m"));
    QVERIFY(poUnit->displayUnit(QStringLiteral("ft")));
    const QString sInFeet = pqP50->text();
    const double dShownInterval = pqInterval->getValue();
    auto* pqFeet = panel.findChild<QDoubleSpinBoxWithSlider*>(QStringLiteral("m_pqIntervalSizeSpinBox"));
    pqFeet->setValue(100.0);
    const double dHundredFeet = panel.histogramItemModel()->intervalSize();
    pqFeet->setValue(dShownInterval);
    poUnit->displayUnit(QStringLiteral("m"));
    QVERIFY(std::abs(dHundredFeet - 30.48) < 1e-9);
    QCOMPARE(sInFeet, QString::number(dP50 / 0.3048, 'f', 3) + QStringLiteral(" ft"));
    QVERIFY(std::abs(dShownInterval - dInterval / 0.3048) < 1e-9);
    QVERIFY(std::abs(panel.histogramItemModel()->intervalSize() - dInterval) < 1e-9); // bars stay as they are
    QCOMPARE(pqP50->text(), QString::number(dP50, 'f', 3) + QStringLiteral(" m"));
}

void TestHistogram::vectorCopyHasTitleAndAxes()
{
    const std::unique_ptr<MatrixData> poRoot = rootOf({attribute(QStringLiteral("Depth"), ramp(500))});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    panel.resize(900, 600);
    panel.drawingArea()->slotCopyWEMFToClipboard(); // from the canvas's menu
    const QMimeData* pData = QApplication::clipboard()->mimeData();
    const QByteArray oMetafile = pData->data(QString::fromLatin1(g_sMetafileMimeType));
    for (const char* pText : {"Depth", "Frequency", "P10", "Histogram: Well"}) {
        const QString sText = QString::fromLatin1(pText);
        const QByteArray oUtf16(reinterpret_cast<const char*>(sText.utf16()), sText.size() * 2);
        QVERIFY2(oMetafile.contains(oUtf16), pText);
    }
}

void TestHistogram::exportWithoutAWindow()
{
    auto* poAttribute = attribute(QStringLiteral("Depth"), ramp(500));
    poAttribute->setUnitManager(
        boost::shared_ptr<UnitManager>(new UnitManager(QStringLiteral("length"), QStringLiteral("m"))));
    const std::unique_ptr<MatrixData> poRoot = rootOf({poAttribute});
    QHistogramChartWidget panel;
    panel.setDataRoot(poRoot.get());
    panel.setDataSet(poRoot->child(0));
    QTemporaryDir folder;
    QString sError;
    QVERIFY2(panel.exportChart(folder.filePath(QStringLiteral("h.svg")), {1000, 800}, &sError), qPrintable(sError));
    QFile svg(folder.filePath(QStringLiteral("h.svg")));
    QVERIFY(svg.open(QIODevice::ReadOnly));
    const QByteArray oSvg = svg.readAll();
    QVERIFY(!oSvg.contains("<image"));
    for (const char* pText : {"Depth [m]", "Frequency", "P10", "P50", "P90", "Histogram: Well"})
        QVERIFY2(oSvg.contains(pText), pText);
    QVERIFY(oSvg.count("<path") + oSvg.count("<rect") > panel.histogramItemModel()->rowCount());

    // The bars have the attribute's colour, and the picture covers the page.
    QVERIFY(panel.exportChart(folder.filePath(QStringLiteral("h.png")), {640, 480}, &sError));
    const QImage oImage(folder.filePath(QStringLiteral("h.png")));
    QCOMPARE(oImage.size(), QSize(640, 480));
    int iBarPixels = 0;
    for (int y = 0; y < oImage.height(); ++y) {
        for (int x = 0; x < oImage.width(); ++x)
            iBarPixels += oImage.pixelColor(x, y).rgb() == poAttribute->color().rgb();
    }
    QVERIFY(iBarPixels > 640 * 480 / 4);
    QVERIFY(!panel.exportChart(folder.filePath(QStringLiteral("none/h.png")), {640, 480}, &sError));
    QVERIFY(!sError.isEmpty());
    // A page too small for the axes stays a page.
    QVERIFY(panel.exportChart(folder.filePath(QStringLiteral("tiny.png")), {5, 5}, &sError));
}

QTEST_MAIN(TestHistogram)
#include "tst_histogram.moc"
