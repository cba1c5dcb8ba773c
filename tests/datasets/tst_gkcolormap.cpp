#include <gkBase/GKColormap.h>
#include <gkBase/MatrixData.h>

#include <QTest>

#include <limits>

using namespace gkBase;

namespace {
const double dNaN = std::numeric_limits<double>::quiet_NaN();
}

class TestGKColormap : public QObject
{
    Q_OBJECT

private slots:
    void levels_data();
    void levels();
    void spectrum();
    void bandsOfValues();
    void symbolIds();
    void idsOfManyValues();
    void colorMapIds();
};

void TestGKColormap::levels_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("interval");
    QTest::addColumn<int>("count");
    QTest::newRow("automatic") << 0.0 << 38.0 << 99999.0 << 20;
    QTest::newRow("a nineteenth") << 0.3 << 7.1 << (7.1 - 0.3) / 19 << 20;
    QTest::newRow("zero interval") << 0.0 << 1.0 << 0.0 << 20;
    QTest::newRow("NaN interval") << 0.0 << 1.0 << dNaN << 20;
    QTest::newRow("too many") << 0.0 << 1.0 << 1e-9 << 20;
    QTest::newRow("rest") << 0.0 << 1.0 << 0.4 << 4;
    QTest::newRow("rounded tenths") << 0.0 << 0.3 << 0.1 << 4;
    QTest::newRow("wider than the range") << 0.0 << 1.0 << 5.0 << 2;
    QTest::newRow("one value") << 2.0 << 2.0 << 0.5 << 1;
    QTest::newRow("NaN bound") << dNaN << 2.0 << 0.5 << 0;
}

void TestGKColormap::levels()
{
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, interval);
    QFETCH(int, count);
    GKColormap colormap;
    colormap.fill_spectrum_color_list(min, max, interval, false);
    QCOMPARE(static_cast<int>(colormap.size()), count);
    if (count < 2)
        return;
    QCOMPARE(colormap.begin()->first, min);
    QCOMPARE(std::prev(colormap.end())->first, max);
    for (auto it = std::next(colormap.begin()); it != colormap.end(); ++it)
        QCOMPARE(it->second.first, std::prev(it)->second.second); // a band ends in the colour in which it began
}

void TestGKColormap::spectrum()
{
    GKColormap colormap;
    colormap.fill_spectrum_color_list(0.0, 4.0, 1.0, false);
    QCOMPARE(colormap.value_to_color(0.0), QColor(Qt::blue));
    QCOMPARE(colormap.value_to_color(1.0), QColor(Qt::cyan));
    QCOMPARE(colormap.value_to_color(2.0), QColor(Qt::green));
    QCOMPARE(colormap.value_to_color(3.0), QColor(Qt::yellow));
    QCOMPARE(colormap.value_to_color(4.0), QColor(Qt::red));
    colormap.fill_spectrum_color_list(0.0, 4.0, 1.0, true);
    QCOMPARE(colormap.value_to_color(0.0), QColor(Qt::red));
    QCOMPARE(colormap.value_to_color(4.0), QColor(Qt::blue));
}

void TestGKColormap::bandsOfValues()
{
    GKColormap colormap;
    colormap.fill_spectrum_color_list(0.0, 4.0, 1.0, false);
    QCOMPARE(colormap.value_to_color(1.5), QColor(0, 255, 128)); // halfway from cyan to green
    QVERIFY(!colormap.value_to_color(dNaN).isValid());
    QVERIFY(!colormap.value_to_color(99999.0).isValid());
    colormap.interpolation(GKColormap::Stepwise);
    QCOMPARE(colormap.value_to_color(1.999), colormap.value_to_color(1.0));
    QVERIFY(colormap.value_to_color(2.0) != colormap.value_to_color(1.0));
    QCOMPARE(colormap.value_to_color(-10.0), QColor(Qt::blue));
    QCOMPARE(colormap.value_to_color(10.0), QColor(Qt::red));
}

void TestGKColormap::symbolIds()
{
    std::vector<int> vIds;
    QMap<int, QVariant> names;
    QMap<int, QColor> colors;
    MatrixData texts(QStringLiteral("Facies"), 5, 1, QMetaType::QString);
    const char* apcTexts[] = {"shale", "sand", nullptr, "shale", "clay"};
    for (int i = 0; i < 5; ++i)
        if (apcTexts[i])
            texts.setValue(texts.rowOffSet() + i, QString::fromLatin1(apcTexts[i]));
    texts.createSymbolIDs(vIds, names, colors);
    QCOMPARE(vIds, (std::vector<int>{3, 2, 0, 3, 1}));
    QCOMPARE(names.value(1).toString(), QStringLiteral("clay"));
    QCOMPARE(names.size(), 4);
    QCOMPARE(colors.keys(), names.keys());
    texts.setValue(texts.rowOffSet() + 4, QStringLiteral("sand")); // a text that no cell uses any more has no class
    texts.createSymbolIDs(vIds, names, colors);
    QCOMPARE(vIds, (std::vector<int>{2, 1, 0, 2, 1}));

    MatrixData numbers(QStringLiteral("Set"), 4, 1);
    const double adValues[] = {10.0, 99999.0, -1.0, 10.0};
    for (int i = 0; i < 4; ++i)
        numbers.setValue(numbers.rowOffSet() + i, adValues[i]);
    numbers.createSymbolIDs(vIds, names, colors);
    QCOMPARE(vIds, (std::vector<int>{2, 0, 1, 2}));
    QCOMPARE(names.value(2).toDouble(), 10.0);

    MatrixData swatches(QStringLiteral("Colour"), 3, 1, QMetaType::QColor);
    swatches.setValue(swatches.rowOffSet(), QColor(Qt::red));
    swatches.setValue(swatches.rowOffSet() + 2, QColor(Qt::blue));
    swatches.createColorMapSymbolIDs(vIds, names, colors, 0.0, 1.0, 0.1, false);
    QCOMPARE(vIds, (std::vector<int>{2, 0, 1}));
    QCOMPARE(names.first().typeId(), static_cast<int>(QMetaType::QColor));
    QCOMPARE(colors.value(2), QColor(Qt::red));
}

void TestGKColormap::idsOfManyValues()
{
    constexpr int iValues = 5000;
    MatrixData numbers(QStringLiteral("Number"), iValues + 1, 1, QMetaType::Int);
    for (int i = 0; i < iValues; ++i)
        numbers.mutableColumn().setValue(i, 2 * (iValues - i));
    std::vector<int> vIds;
    QMap<int, QVariant> names;
    QMap<int, QColor> colors;
    numbers.createSymbolIDs(vIds, names, colors);
    for (int i = 0; i < iValues; ++i)
        QCOMPARE(names.value(vIds[static_cast<std::size_t>(i)]).toInt(), 2 * (iValues - i));
    QCOMPARE(vIds.back(), 0);
    QCOMPARE(names.lastKey(), iValues);
}

void TestGKColormap::colorMapIds()
{
    MatrixData node(QStringLiteral("Porosity"), 7, 1);
    const double adValues[] = {-5.0, 0.0, 0.99, 1.0, 3.0, 8.0, dNaN};
    for (int i = 0; i < 7; ++i)
        node.setValue(node.rowOffSet() + i, adValues[i]);
    std::vector<int> vIds;
    QMap<int, QVariant> names;
    QMap<int, QColor> colors;
    node.createColorMapSymbolIDs(vIds, names, colors, 0.0, 3.0, 1.0, true);
    QCOMPARE(vIds, (std::vector<int>{1, 1, 1, 2, 3, 3, 0}));
    QCOMPARE(names.size(), 4);
    QCOMPARE(colors.value(1), QColor(Qt::red));
    QCOMPARE(colors.value(3), QColor(Qt::blue));
}

QTEST_GUILESS_MAIN(TestGKColormap)
#include "tst_gkcolormap.moc"
