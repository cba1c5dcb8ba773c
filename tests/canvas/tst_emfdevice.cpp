// What EMFDevice writes, read back record by record.

#include <gkBase/EMFDevice.h>
#include <gkBase/MetafileClipboard.h>
#include <gkBase/QChartDrawingArea.h>
#include <gkBase/SymbolSpriteCache.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontMetricsF>
#include <QImage>
#include <QLinearGradient>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QPolygon>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTransform>
#include <QtEndian>

#include <cmath>
#include <functional>
#include <limits>

using namespace gkBase;

namespace {

using Paint = std::function<void(QPainter&)>;

// Record types, as the file format numbers them.
enum Type
{
    PolyBezier = 2,
    Polygon = 3,
    Polyline = 4,
    PolyPolygon = 8,
    EndOfFile = 14,
    SetPolyFillMode = 19,
    SetTextColor = 24,
    IntersectClipRect = 30,
    SaveContext = 33,
    RestoreContext = 34,
    SelectObject = 37,
    NewBrush = 39,
    DeleteObject = 40,
    Ellipse = 42,
    Rectangle = 43,
    CloseFigure = 61,
    StrokeAndFillPath = 63,
    StrokePath = 64,
    SelectClipPath = 67,
    StretchDIBits = 81,
    NewFont = 82,
    Text = 84,
    NewPen = 95
};

struct Record
{
    int m_iType = 0; ///< short forms of point records count as the long ones
    bool m_bShort = false;
    QByteArray m_oBytes; ///< with type and size

    quint32 u32(qsizetype iOffset) const { return qFromLittleEndian<quint32>(m_oBytes.constData() + iOffset); }
    int i32(qsizetype iOffset) const { return static_cast<int>(u32(iOffset)); }
    int i16(qsizetype iOffset) const { return qFromLittleEndian<qint16>(m_oBytes.constData() + iOffset); }
    /// Left, top, right, bottom as they stand.
    QList<int> rect(qsizetype iOffset = 8) const
    {
        return {i32(iOffset), i32(iOffset + 4), i32(iOffset + 8), i32(iOffset + 12)};
    }
    QPolygon points() const
    {
        QPolygon polygon;
        for (int i = 0; i < i32(24); ++i)
            polygon << (m_bShort ? QPoint(i16(28 + 4 * i), i16(30 + 4 * i)) : QPoint(i32(28 + 8 * i), i32(32 + 8 * i)));
        return polygon;
    }
    QString text() const
    {
        QString sText;
        for (int i = 0; i < i32(44); ++i)
            sText += QChar(qFromLittleEndian<quint16>(m_oBytes.constData() + i32(48) + 2 * i));
        return sText;
    }
};

/// A metafile taken apart; m_sFault tells the first breach of the format's rules.
class Metafile
{
public:
    explicit Metafile(const QByteArray& oBytes)
    {
        split(oBytes);
        if (m_sFault.isEmpty())
            checkHeader(oBytes);
        if (m_sFault.isEmpty())
            checkObjects();
    }

    QList<Record> all(int iType) const
    {
        QList<Record> lFound;
        for (const Record& record : m_lRecords)
            if (record.m_iType == iType)
                lFound << record;
        return lFound;
    }
    int count(int iType) const { return static_cast<int>(all(iType).size()); }
    Record first(int iType) const { return all(iType).value(0, Record{0, false, QByteArray(512, '\0')}); }
    QStringList texts() const
    {
        QStringList lTexts;
        for (const Record& record : all(Text))
            lTexts << record.text();
        return lTexts;
    }
    /// Types of the records that draw, and of fill modes and clips, in their order.
    QList<int> drawing() const
    {
        static const QSet<int> types{PolyBezier,        Polygon,       Polyline,  PolyPolygon,       SetPolyFillMode,
                                     IntersectClipRect, Ellipse,       Rectangle, StrokeAndFillPath, StrokePath,
                                     SelectClipPath,    StretchDIBits, Text};
        QList<int> lTypes;
        for (const Record& record : m_lRecords)
            if (types.contains(record.m_iType))
                lTypes << record.m_iType;
        return lTypes;
    }

    QList<Record> m_lRecords;
    QString m_sFault;

private:
    void split(const QByteArray& oBytes)
    {
        for (qsizetype iAt = 0; iAt < oBytes.size();) {
            Record record{0, false, oBytes.mid(iAt, 8)};
            const qsizetype iSize = record.m_oBytes.size() == 8 ? record.i32(4) : 0;
            if (iSize < 8 || iSize % 4 != 0 || iAt + iSize > oBytes.size()) {
                m_sFault = QStringLiteral("size %1 at %2").arg(iSize).arg(iAt);
                return;
            }
            record.m_oBytes = oBytes.mid(iAt, iSize);
            record.m_iType = record.i32(0);
            record.m_bShort = record.m_iType >= 85 && record.m_iType <= 89;
            record.m_iType -= record.m_bShort ? 83 : 0;
            m_lRecords << record;
            iAt += iSize;
        }
    }
    void checkHeader(const QByteArray& oBytes)
    {
        if (m_lRecords.size() < 2 || m_lRecords[0].m_iType != 1 || m_lRecords[0].u32(40) != 0x464D4520)
            m_sFault = QStringLiteral("no header");
        else if (m_lRecords[0].i32(48) != oBytes.size() || m_lRecords[0].i32(52) != m_lRecords.size())
            m_sFault = QStringLiteral("counts in the header");
        else if (m_lRecords.last().m_iType != EndOfFile || m_lRecords.last().i32(16) != m_lRecords.last().i32(4))
            m_sFault = QStringLiteral("end of file");
    }
    /// Every handle is created once before it is used, within the number that the header tells, and deleted at the end.
    void checkObjects()
    {
        const int iHandles = m_lRecords[0].i16(56);
        QSet<int> live;
        int iSaved = 0;
        for (const Record& record : m_lRecords) {
            const int iHandle = record.m_oBytes.size() > 8 ? record.i32(8) : 0;
            const bool bNew = record.m_iType == NewPen || record.m_iType == NewBrush || record.m_iType == NewFont;
            const bool bStock = record.m_iType == SelectObject && iHandle < 0;
            if (bNew && (live.contains(iHandle) || iHandle < 1 || iHandle >= iHandles))
                m_sFault = QStringLiteral("created handle %1").arg(iHandle);
            if (((record.m_iType == SelectObject && !bStock) || record.m_iType == DeleteObject) &&
                !live.contains(iHandle))
                m_sFault = QStringLiteral("used handle %1").arg(iHandle);
            if (bNew)
                live << iHandle;
            if (record.m_iType == DeleteObject)
                live.remove(iHandle);
            iSaved += record.m_iType == SaveContext ? 1 : record.m_iType == RestoreContext ? -1 : 0;
            if (iSaved < 0)
                m_sFault = QStringLiteral("restored more than was saved");
        }
        if (!live.isEmpty() || iSaved != 0)
            m_sFault = QStringLiteral("left over at the end");
    }
};

QByteArray painted(const Paint& paint, const QRect& oRect = QRect(0, 0, 400, 300),
                   const QColor& oBackground = Qt::white)
{
    EMFDevice device;
    device.setBoundingRect(oRect);
    device.setBackgroundColor(oBackground);
    QPainter painter(&device);
    painter.setPen(Qt::NoPen);
    paint(painter);
    painter.end();
    return device.metafile();
}

const QColor g_oRed(255, 0, 0);

/// A chart of one disc and one text, with an axis beside its visible part.
class DiscChart : public QChartDrawingArea
{
public:
    DiscChart()
        : QChartDrawingArea(nullptr, QStringLiteral("Disc"))
    {
    }
    void drawChart(QPainter& painter) override
    {
        painter.drawEllipse(QRect(QPoint(0, 0), chartSize()));
        painter.drawText(20, 20, QStringLiteral("inside"));
    }
    void drawAxis(QPainter& painter, QRect oVisible) override
    {
        painter.drawText(oVisible.topLeft(), QStringLiteral("axis"));
    }
};

} // namespace

Q_DECLARE_METATYPE(Paint)

class TestEMFDevice : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
    void headerTellsTheFrame();
    void shapesBecomeRecords_data();
    void shapesBecomeRecords();
    void colorsAreMixedWithTheBackground();
    void pensAreInUnits();
    void textKeepsItsPlaces_data();
    void textKeepsItsPlaces();
    void clipsNestAndReturn();
    void picturesAreFlattened();
    void manyColorsShareHandles();
    void manySymbolsStaySmall();
    void canvasCopiesItsVisiblePart();
};

void TestEMFDevice::headerTellsTheFrame()
{
    // A drawing without a stroke is a valid file, wherever its frame lies.
    const Metafile file(painted([](QPainter&) {}, QRect(96, 48, 192, 96)));
    QCOMPARE(file.m_sFault, QString());
    const Record& header = file.m_lRecords[0];
    QCOMPARE(header.rect(8), (QList<int>{96 * 16, 48 * 16, 288 * 16, 144 * 16}));
    QCOMPARE(header.rect(24), (QList<int>{2540, 1270, 7620, 3810})); // 0.01 mm at 96 per inch
    // Device pixels per millimetre agree with the frame: 16 × 96 per inch.
    QCOMPARE(header.i32(72) * 254, header.i32(80) * 16 * 96 * 10);
    QString sDescription;
    for (int i = 0; i < header.i32(60); ++i)
        sDescription += QChar(static_cast<char16_t>(header.i16(header.i32(64) + 2 * i)));
    QCOMPARE(sDescription, QString::fromLatin1("2DKastor\0Metafile\0\0", 19));
}

void TestEMFDevice::shapesBecomeRecords_data()
{
    QTest::addColumn<Paint>("paint");
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<bool>("outlined");
    QTest::addColumn<QList<int>>("drawing");
    QTest::addColumn<QList<int>>("numbers"); // rectangle or points of the last one
    const QTransform none;
    const auto row = [](const char* pName, const Paint& paint, const QTransform& transform, bool bOutlined,
                        const QList<int>& lDrawing, const QList<int>& lNumbers) {
        QTest::newRow(pName) << paint << transform << bOutlined << lDrawing << lNumbers;
    };
    const auto path = [](const QPainterPath& shape) { return [shape](QPainter& p) { p.drawPath(shape); }; };
    QPainterPath disc;
    disc.addEllipse(QRectF(10, 20, 30, 40));
    QPainterPath ring;
    ring.addRect(0, 0, 10, 10);
    ring.addRect(2, 2, 4, 4);
    QPainterPath windingRing = ring;
    windingRing.setFillRule(Qt::WindingFill);
    QPainterPath open(QPointF(0, 0));
    open.lineTo(10, 0);
    open.lineTo(10, 10);
    QPainterPath curve(QPointF(0, 0));
    curve.cubicTo(1, 0, 2, 1, 2, 2);
    const QPolygonF triangle({{1, 2}, {11, 2}, {1, 12}});
    const QPolygonF broken = QPolygonF(triangle) << QPointF(std::numeric_limits<double>::quiet_NaN(), 0);
    const Paint ellipse = [](QPainter& p) { p.drawEllipse(QRectF(10, 20, 30, 40)); };
    const Paint rectangle = [](QPainter& p) { p.drawRect(QRectF(1, 2, 3.5, 4)); };
    const Paint windingTriangle = [triangle](QPainter& p) { p.drawPolygon(triangle, Qt::WindingFill); };
    const Paint missingCorner = [broken](QPainter& p) { p.drawPolygon(broken); };
    const Paint farAway = [](QPainter& p) { p.drawPolyline(QPolygonF({{-1, 0}, {3000, 1e12}})); };
    const Paint noInk = [](QPainter& p) { p.fillRect(0, 0, 9, 9, Qt::transparent); };
    const Paint onePoint = [](QPainter& p) { p.drawPoint(10, 10); };
    const Paint curveOnly = [curve](QPainter& p) { p.strokePath(curve, p.pen()); };
    const QTransform moved(2, 0, 0, 0.5, 5, 0);
    const QTransform turned = QTransform().rotate(90);
    row("ellipse", ellipse, none, true, {Ellipse}, {160, 320, 640, 960});
    row("ellipse as a path", path(disc), moved, false, {Ellipse}, {400, 160, 1360, 480});
    row("slanting ellipse", ellipse, QTransform().rotate(30), true, {StrokeAndFillPath}, {});
    row("rectangle", rectangle, none, false, {Rectangle}, {16, 32, 72, 96});
    row("turned rectangle", rectangle, turned, false, {Polygon}, {-32, 16, -32, 72, -96, 72, -96, 16});
    row("winding", windingTriangle, none, true, {SetPolyFillMode, Polygon}, {16, 32, 176, 32, 16, 192});
    row("missing corner", missingCorner, none, true, {}, {});
    row("far away", farAway, none, true, {Polyline}, {-16, 0, 48000, 1 << 26});
    row("hole", path(ring), none, true, {PolyPolygon}, {});
    row("hole that winding fills", path(windingRing), none, true, {SetPolyFillMode, PolyPolygon}, {});
    row("open path", path(open), none, true, {Polygon, Polyline}, {0, 0, 160, 0, 160, 160});
    row("open curve", curveOnly, none, true, {PolyBezier}, {0, 0, 16, 0, 32, 16, 32, 32});
    row("no ink", noInk, none, true, {}, {});
    row("one point", onePoint, none, true, {Rectangle}, {128, 128, 192, 192});
}

void TestEMFDevice::shapesBecomeRecords()
{
    QFETCH(Paint, paint);
    QFETCH(QTransform, transform);
    QFETCH(bool, outlined);
    QFETCH(QList<int>, drawing);
    QFETCH(QList<int>, numbers);
    const Metafile file(painted([&](QPainter& painter) {
        painter.setTransform(transform);
        painter.setPen(outlined ? QPen(Qt::black, 4) : QPen(Qt::NoPen));
        painter.setBrush(g_oRed);
        paint(painter);
    }));
    QCOMPARE(file.m_sFault, QString());
    QCOMPARE(file.drawing(), drawing);
    if (numbers.isEmpty())
        return;
    const Record record = file.first(drawing.last());
    QList<int> lNumbers;
    if (record.m_iType == Ellipse || record.m_iType == Rectangle)
        lNumbers = record.rect();
    else
        for (const QPoint& oPoint : record.points())
            lNumbers << oPoint.x() << oPoint.y();
    QCOMPARE(lNumbers, numbers);
}

void TestEMFDevice::colorsAreMixedWithTheBackground()
{
    const Paint paint = [](QPainter& painter) {
        painter.setOpacity(0.5);
        painter.fillRect(0, 0, 9, 9, QColor(200, 100, 0));
    };
    QCOMPARE(Metafile(painted(paint)).first(NewBrush).u32(16), 0x80B2E4U); // blue, green, red
    QCOMPARE(Metafile(painted(paint, QRect(0, 0, 9, 9), Qt::black)).first(NewBrush).u32(16), 0x003264U);
}

void TestEMFDevice::pensAreInUnits()
{
    const Metafile file(painted([](QPainter& painter) {
        painter.scale(3, 3);
        painter.setPen(QPen(g_oRed, 2, Qt::DotLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawLine(0, 0, 9, 9);
        painter.setPen(QPen(g_oRed, 0));
        painter.drawLine(0, 0, 9, 9);
        QPen dashed(g_oRed, 1, Qt::SolidLine, Qt::FlatCap);
        dashed.setDashPattern({3, 2});
        painter.setPen(dashed);
        painter.drawLine(0, 0, 9, 9);
    }));
    QCOMPARE(file.m_sFault, QString());
    const QList<Record> lPens = file.all(NewPen);
    QCOMPARE(lPens.size(), 3);
    QCOMPARE(lPens[0].u32(28), 0x12202U); // geometric, miter, flat caps so that gaps stay open, dotted
    QCOMPARE(lPens[0].i32(32), 3 * 2 * 16);
    QCOMPARE(lPens[1].i32(32), 15); // a hairline is about one pixel at any scale
    QCOMPARE(lPens[2].u32(28) & 15U, 7U);
    QCOMPARE(lPens[2].i32(48), 2);
    QCOMPARE(lPens[2].i32(52), 3 * 3 * 16);
    QCOMPARE(lPens[2].i32(56), 2 * 3 * 16);
}

void TestEMFDevice::textKeepsItsPlaces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("angle"); // clockwise
    QTest::addColumn<int>("escapement");
    QTest::addColumn<double>("scale");
    QTest::newRow("plain") << "Depth [m]" << 0.0 << 0 << 1.0;
    QTest::newRow("odd length, other scripts") << QString::fromUtf8("12° Äµ漢") << 0.0 << 0 << 1.0;
    QTest::newRow("upwards") << "GR [API]" << -90.0 << 900 << 1.0;
    QTest::newRow("slanting, magnified") << "Dip" << 30.0 << 3300 << 2.0;
}

void TestEMFDevice::textKeepsItsPlaces()
{
    QFETCH(QString, text);
    QFETCH(double, angle);
    QFETCH(int, escapement);
    QFETCH(double, scale);
    QFont oFont = QApplication::font();
    oFont.setPointSizeF(9.0); // 12 pixels
    oFont.setBold(true);
    double dWidth = 0.0;
    const Metafile file(painted([&](QPainter& painter) {
        painter.setFont(oFont);
        painter.setPen(g_oRed);
        painter.translate(50, 60);
        painter.rotate(angle);
        painter.scale(scale, scale);
        painter.drawText(0, 0, text);
        dWidth = QFontMetricsF(oFont, painter.device()).horizontalAdvance(text);
    }));
    QCOMPARE(file.m_sFault, QString());
    QString sTexts;
    int iWidth = 0;
    for (const Record& record : file.all(Text)) {
        sTexts += record.text();
        for (int i = 0; i < record.i32(44); ++i)
            iWidth += record.i32(record.i32(72) + 4 * i);
    }
    QCOMPARE(sTexts, text);
    QVERIFY2(std::abs(iWidth - dWidth * scale * 16) <= 2.0, qPrintable(QString::number(iWidth)));
    const Record record = file.first(Text);
    QCOMPARE(QPoint(record.i32(36), record.i32(40)), QPoint(800, 960));
    QCOMPARE(file.first(SetTextColor).u32(8), 0x0000FFU);
    const Record font = file.first(NewFont);
    QCOMPARE(font.i32(12), -static_cast<int>(12 * 16 * scale));
    QCOMPARE(font.i32(20), escapement);
    QCOMPARE(font.i32(28), 700);
}

void TestEMFDevice::clipsNestAndReturn()
{
    QPainterPath disc;
    disc.addEllipse(QRectF(0, 0, 50, 50));
    const Metafile file(painted([&disc](QPainter& painter) {
        painter.setBrush(g_oRed);
        const auto draw = [&painter] { painter.drawRect(0, 0, 400, 300); };
        painter.setClipRect(10, 20, 30, 40);
        draw();
        painter.save();
        painter.translate(5, 5);
        painter.setClipPath(disc, Qt::IntersectClip);
        draw(); // narrower: written on top
        painter.setClipRect(300, 0, 9, 9, Qt::IntersectClip);
        draw(); // nothing is left
        painter.restore();
        draw(); // the first clip again
        draw();
        painter.setClipping(false);
        draw();
    }));
    QCOMPARE(file.m_sFault, QString());
    QCOMPARE(file.drawing(), (QList<int>{IntersectClipRect, Rectangle, SelectClipPath, Rectangle, IntersectClipRect,
                                         Rectangle, Rectangle, Rectangle}));
    for (const Record& record : file.all(IntersectClipRect))
        QCOMPARE(record.rect(), (QList<int>{160, 320, 640, 960}));
    QCOMPARE(file.count(RestoreContext), 3); // for the return, for no clip, and at the end
    QCOMPARE(file.count(CloseFigure), 1);
    // A restored context has forgotten its brush.
    int iSelectedSince = 0;
    for (const Record& record : file.m_lRecords) {
        iSelectedSince = record.m_iType == RestoreContext ? 0 : iSelectedSince + (record.m_iType == SelectObject);
        QVERIFY(record.m_iType != Rectangle || iSelectedSince >= 2);
    }
}

void TestEMFDevice::picturesAreFlattened()
{
    QImage oImage(3, 2, QImage::Format_ARGB32);
    oImage.fill(QColor(0, 0, 255));
    oImage.setPixelColor(0, 0, QColor(255, 0, 0, 51));
    const Metafile opaque(painted([&oImage](QPainter& painter) { painter.drawImage(QRectF(1, 2, 6, 4), oImage); }));
    QCOMPARE(opaque.m_sFault, QString());
    QCOMPARE(opaque.drawing(), QList<int>{StretchDIBits});
    const Record picture = opaque.first(StretchDIBits);
    QCOMPARE(picture.rect(24).mid(0, 2), (QList<int>{16, 32}));
    QCOMPARE((QList<int>{picture.i32(72), picture.i32(76)}), (QList<int>{96, 64}));
    QCOMPARE((QList<int>{picture.i32(84), picture.i32(88)}), (QList<int>{3, 2}));
    QCOMPARE(picture.i32(60), 2 * 12); // lines padded to four bytes
    const QByteArray oPixels = picture.m_oBytes.mid(picture.i32(56));
    QCOMPARE(oPixels.mid(0, 3), QByteArray("\xFF\0\0", 3));      // lower left, blue first
    QCOMPARE(oPixels.mid(12, 3), QByteArray("\xCC\xCC\xFF", 3)); // a fifth of red on white

    // What shines through stays as it was: gaps are clipped away, wholly transparent pictures left out.
    oImage.setPixelColor(1, 1, Qt::transparent);
    QPixmap oNothing(3, 2);
    oNothing.fill(Qt::transparent);
    const Metafile holed(painted([&](QPainter& painter) {
        painter.drawImage(0, 0, oImage);
        painter.drawPixmap(0, 0, oNothing);
        QLinearGradient gradient(0, 0, 40, 0);
        gradient.setColorAt(0, g_oRed);
        painter.setBrush(gradient);
        painter.drawEllipse(0, 0, 40, 40);
    }));
    QCOMPARE(holed.m_sFault, QString());
    QCOMPARE(holed.drawing(), (QList<int>{SelectClipPath, StretchDIBits, SelectClipPath, StretchDIBits}));
}

void TestEMFDevice::manyColorsShareHandles()
{
    const Metafile file(painted([](QPainter& painter) {
        for (int i = 0; i < 3000; ++i)
            painter.fillRect(i % 400, i / 400, 1, 1, QColor(i % 256, i / 256, 1));
    }));
    QCOMPARE(file.m_sFault, QString());
    QCOMPARE(file.count(Rectangle), 3000);
    QCOMPARE(file.count(NewBrush), 3000);
    QVERIFY(file.m_lRecords[0].i16(56) < 1000);
}

void TestEMFDevice::manySymbolsStaySmall()
{
    constexpr int iSymbols = 20000;
    std::vector<QPointF> points;
    for (int i = 0; i < iSymbols; ++i)
        points.emplace_back(i % 997, i % 601);
    for (const int iStyle : {0, 2, 6}) { // disc, square, plus
        const QByteArray oBytes = painted(
            [&](QPainter& painter) {
                SymbolSpriteCache sprites;
                sprites.drawSymbols(&painter, points, {iStyle, g_oRed, Qt::blue, 3});
            },
            QRect(0, 0, 1000, 610));
        const Metafile file(oBytes);
        QCOMPARE(file.m_sFault, QString());
        QCOMPARE(file.drawing().size(), iSymbols); // outlines all of them, none thinned out, no pixels copied
        QCOMPARE(file.count(StretchDIBits), 0);
        QVERIFY(oBytes.size() < 80 * iSymbols);
    }
}

void TestEMFDevice::canvasCopiesItsVisiblePart()
{
    DiscChart chart;
    chart.resize(200, 100);
    chart.zoom(3.0);
    chart.xoffset(100);
    chart.setLabelColor(Qt::white);
    QCOMPARE(chart.actions().size(), 2);
    QAction* pqAction = chart.actions().last();
    QCOMPARE(pqAction->text(), QStringLiteral("Copy to Enhanced metafile"));
    QVERIFY(!pqAction->isVisible());
    chart.allowCopyToWMF(true);
    QVERIFY(pqAction->isVisible());

    const auto copied = [] {
        const QMimeData* pData = QApplication::clipboard()->mimeData();
        return pData ? pData->data(QString::fromLatin1(g_sMetafileMimeType)) : QByteArray();
    };
    pqAction->trigger();
    const Metafile file(copied());
    QCOMPARE(file.m_sFault, QString());
    QCOMPARE(file.m_lRecords[0].rect(), (QList<int>{400 * 16, 100 * 16, 600 * 16, 200 * 16}));
    QCOMPARE(file.first(IntersectClipRect).rect(), file.m_lRecords[0].rect());
    QCOMPARE(file.first(NewBrush).u32(16), 0U); // the background of white texts
    QCOMPARE(file.first(Ellipse).rect(), (QList<int>{0, 0, 600 * 16, 300 * 16}));
    QCOMPARE(file.texts(), (QStringList{"inside", "axis"}));

    // An owner makes a copy of its own.
    int iCopies = 0;
    chart.setMetafileCopy([&iCopies] { ++iCopies; });
    QApplication::clipboard()->clear();
    chart.slotCopyWEMFToClipboard();
    QCOMPARE(iCopies, 1);
    QVERIFY(copied().isEmpty());
}

QTEST_MAIN(TestEMFDevice)
#include "tst_emfdevice.moc"
