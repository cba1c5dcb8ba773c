#include "MatrixDataArray.h"
#include "MatrixDataStrike.h"
#include "UnitManager.h"
#include "UnitRegistry.h"

#include <QDataStream>
#include <QTest>

#include <cmath>
#include <limits>

using namespace gkBase;

namespace {

MatrixData* attribute(MatrixData* poDataSet, const QString& sName, QMetaType::Type eType, const QVariantList& lCells)
{
    auto* poAttribute = new MatrixData(sName, int(lCells.size()), 1, eType);
    for (int i = 0; i < lCells.size(); ++i)
        poAttribute->setValue(3 + i, lCells[i]);
    poDataSet->appendChild(poAttribute, true);
    return poAttribute;
}

/// Every kind of node, type and property.
std::unique_ptr<MatrixData> sampleTree(UnitRegistry& registry)
{
    auto poRoot = std::make_unique<MatrixData>("root");
    poRoot->setRegistry(&registry);
    auto* poWell = new MatrixData(QString::fromUtf8("Bohrung Ω"));
    poRoot->appendChild(poWell, false);
    auto* poDepth = attribute(poWell, "depth", QMetaType::Double, {-0.0, 99999.0, QVariant(), 1e300});
    poDepth->setUnitManager(boost::shared_ptr<UnitManager>(new UnitManager("depth", "ft")));
    poDepth->setVertex(true);
    auto* poAzimuth = attribute(poWell, "azimuth", QMetaType::Double, {10.0, QVariant(), 359.5});
    poAzimuth->setUnitManager("orientation");
    poWell->appendChild(new MatrixDataStrike("strike", poAzimuth), true);
    attribute(poWell, "int", QMetaType::Int, {1, QVariant(), std::numeric_limits<int>::min()})->setColor(Qt::red);
    attribute(poWell, "bool", QMetaType::Bool, {true, QVariant(), false})->setEditable(false);
    attribute(poWell, "text", QMetaType::QString, {"a", "", QVariant(), "a"})->setDefaultValue1(QString("x"));
    attribute(poWell, "color", QMetaType::QColor, {QColor(Qt::black), QVariant(), QColor(1, 2, 3)})->setSelected(true);
    auto* poGrid = new MatrixDataArray("grid", 2, 3, QMetaType::Double);
    poGrid->setCell(1, 2, std::nan(""));
    poGrid->setIntervalSize(0.25);
    auto* poPoints = new MatrixDataArray("points", 2, 1, QMetaType::QPointF);
    poPoints->setPoint(1, 0, {3.5, -4.0});
    auto* poTable = new MatrixData("table", 2, 3, QMetaType::Double, 0);
    poTable->setColumnHeaders({"a", "b"});
    poTable->setValue(1, 2, 7.0);
    for (MatrixData* poNode : {static_cast<MatrixData*>(poGrid), static_cast<MatrixData*>(poPoints), poTable})
        poRoot->appendChild(poNode, false);
    return poRoot;
}

QByteArray streamed(const MatrixData& node)
{
    QByteArray oBytes;
    QDataStream stream(&oBytes, QIODevice::WriteOnly);
    node.putDataOnStream(stream);
    return oBytes;
}

} // namespace

class TestMatrixDataStream : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void roundTripsBitForBit()
    {
        UnitRegistry registry;
        const auto poRoot = sampleTree(registry);
        const QByteArray oBytes = streamed(*poRoot);
        QDataStream in(oBytes);
        MatrixData read;
        read.setRegistry(&registry);
        QVERIFY(read.getDataFromStream(in));
        QVERIFY(in.atEnd());
        QVERIFY(read.isIdenticalTo(*poRoot));
        QVERIFY(streamed(read) == oBytes);
        // The link of the strike leads into the new tree.
        auto* poStrike = dynamic_cast<MatrixDataStrike*>(read.getNodeFromName("strike"));
        QVERIFY(poStrike);
        QCOMPARE(poStrike->azimuth(), read.getNodeFromName("azimuth"));
        QCOMPARE(poStrike->azimuth()->unitManager().get(), registry.find_category("orientation")->second.get());
    }

    /// The form of the payload does not follow the stream's settings, which stay.
    void leavesTheStreamAsItWas()
    {
        UnitRegistry registry;
        const auto poRoot = sampleTree(registry);
        QByteArray oBytes;
        QDataStream out(&oBytes, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_4_0);
        out.setByteOrder(QDataStream::LittleEndian);
        poRoot->putDataOnStream(out);
        QCOMPARE(out.version(), int(QDataStream::Qt_4_0));
        QCOMPARE(out.byteOrder(), QDataStream::LittleEndian);
        QVERIFY(oBytes == streamed(*poRoot));
    }

    /// A payload that is cut anywhere, or has any byte changed, either reads whole or leaves the node alone; length
    /// fields full of ones must not ask for memory either.
    void survivesHostilePayloads()
    {
        UnitRegistry registry;
        const auto poRoot = sampleTree(registry);
        const QByteArray oBytes = streamed(*poRoot);
        const MatrixData untouched("untouched", 3, 1, QMetaType::Int);
        MatrixData node(untouched);
        for (qsizetype n = 0; n < oBytes.size(); ++n) {
            QDataStream in(oBytes.first(n));
            QVERIFY2(!node.getDataFromStream(in), qPrintable(QString::number(n)));
            QVERIFY(in.status() != QDataStream::Ok);
            QVERIFY(node.isIdenticalTo(untouched));
        }
        for (qsizetype n = 0; n + 4 <= oBytes.size(); ++n) {
            for (const char* pBits : {"\xff\xff\xff\xff", "\x7f\xff\xff\xff", "\x00\x00\x00\x01"}) {
                QByteArray oBad = oBytes;
                oBad.replace(n, 4, pBits, 4);
                QDataStream in(oBad);
                MatrixData victim(untouched);
                if (!victim.getDataFromStream(in))
                    QVERIFY(victim.isIdenticalTo(untouched));
            }
        }
    }

    void readsKindsAcross()
    {
        UnitRegistry registry;
        const auto poRoot = sampleTree(registry);
        auto* poStrike = poRoot->getNodeFromName("strike");
        auto* poGrid = poRoot->getNodeFromName("grid");

        MatrixData plain;
        QDataStream strike(streamed(*poStrike));
        QVERIFY(plain.getDataFromStream(strike)); // an attribute takes the values of a strike
        QVERIFY(plain.column() == poStrike->column());
        QCOMPARE(plain.value(3, 0), QVariant(280.0));

        const MatrixData before(plain);
        QDataStream grid(streamed(*poGrid));
        QVERIFY(!plain.getDataFromStream(grid));
        QVERIFY(plain.isIdenticalTo(before));
        QDataStream gridAgain(streamed(*poGrid));
        const auto poArray = MatrixData::fromStream(gridAgain);
        QVERIFY(poArray && poArray->isIdenticalTo(*poGrid));
    }

    void readsTheFirstRecordsOnly()
    {
        UnitRegistry registry;
        const auto poRoot = sampleTree(registry);
        QByteArray oBytes;
        QDataStream out(&oBytes, QIODevice::WriteOnly);
        poRoot->getNodeFromName("azimuth")->putDataOnStream(2, out);
        MatrixData read;
        QDataStream in(oBytes);
        QVERIFY(read.getDataFromStream(in));
        QCOMPARE(read.recordCount(), 2);

        MatrixData target("target", 1, 2, QMetaType::Double);
        QDataStream again(oBytes);
        QVERIFY(target.getDataFromStream(1, 1, again));
        QCOMPARE(target.value(3, 1), QVariant(10.0));
        QCOMPARE(target.name(), QString("target"));
    }
};

QTEST_GUILESS_MAIN(TestMatrixDataStream)
#include "tst_matrixdatastream.moc"
