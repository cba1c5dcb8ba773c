#include "ClassLegends.h"

#include "ElidedLabel.h"
#include "MatrixData.h"
#include "QLegendListModel.h"
#include "QLegendListView.h"
#include "QRelationshipItemModel.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace gkBase {

namespace {

constexpr double g_dTitleGap = 4.0;
constexpr double g_dLegendGap = 12.0;
/// Around legends beside a chart.
constexpr double g_dMargin = 10.0;
/// Of a picture's width.
constexpr double g_dLargestShare = 0.4;

QString titleOf(const MatrixData* poAttribute)
{
    return poAttribute ? poAttribute->name() : QString();
}

/// The names of the classes as the user reads them, but for colours, which are their own names.
template <typename ClassName>
QMap<int, QVariant> shownNames(const RelationshipClasses& classes, ClassName className)
{
    QMap<int, QVariant> names = classes.names();
    if (classes.cellType() == QMetaType::QColor)
        return names;
    for (auto it = names.begin(); it != names.end(); ++it)
        it.value() = className(it.key());
    return names;
}

QFont titleFont(const QWidget& oWidget)
{
    QFont oFont = oWidget.font();
    oFont.setBold(true);
    return oFont;
}

} // namespace

ClassLegends::ClassLegends(QChartDrawingArea* pqCanvas, QWidget* pqParent)
    : QWidget(pqParent)
    , m_oColor(newLegend(pqCanvas, QLegendListModel::ColorLegend))
    , m_oSymbol(newLegend(pqCanvas, QLegendListModel::SymbolLegend))
{
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->addWidget(m_oColor.m_pqGroup, 1);
    pqLayout->addWidget(m_oSymbol.m_pqGroup, 1);
    m_oColor.m_pqView->setObjectName(QStringLiteral("m_pqColorLegend"));
    m_oColor.m_pqView->setAccessibleName(tr("Color Legend"));
    m_oSymbol.m_pqView->setObjectName(QStringLiteral("m_pqSymbolLegend"));
    m_oSymbol.m_pqView->setAccessibleName(tr("Symbol Legend"));
    connectLegend(m_oColor, m_oSymbol);
    connectLegend(m_oSymbol, m_oColor);
    showLegends();
}

ClassLegends::Legend ClassLegends::newLegend(QChartDrawingArea* pqCanvas, int iType)
{
    Legend legend;
    legend.m_pqGroup = new QWidget;
    legend.m_pqTitle = new ElidedLabel;
    legend.m_pqTitle->setTextFormat(Qt::PlainText);
    legend.m_pModel = new QLegendListModel(this, pqCanvas, static_cast<QLegendListModel::LegendType>(iType));
    legend.m_pqView = new QLegendListView(legend.m_pqGroup);
    legend.m_pqView->setModel(legend.m_pModel);
    legend.m_pqView->setToolTip(tr("Click a class to select its points; Ctrl adds those of another"));
    auto* pqLayout = new QVBoxLayout(legend.m_pqGroup);
    pqLayout->setContentsMargins(0, 0, 0, 0);
    pqLayout->setSpacing(2);
    pqLayout->addWidget(legend.m_pqTitle);
    pqLayout->addWidget(legend.m_pqView);
    return legend;
}

void ClassLegends::connectLegend(const Legend& legend, const Legend& other)
{
    connect(legend.m_pqView, &QLegendListView::selectedClassesChanged, this, [this, &other] { slotSelected(other); });
    connect(legend.m_pqView->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this, &legend, &other](int iValue) { slotScrolled(legend, other, iValue); });
}

void ClassLegends::slotSelected(const Legend& other)
{
    // Without Ctrl a click in one legend takes the place of whatever is selected in the other.
    if (!(QApplication::keyboardModifiers() & Qt::ControlModifier))
        other.m_pqView->setSelectedIDs({});
    emit selectedClassesChanged();
}

void ClassLegends::slotScrolled(const Legend& legend, const Legend& other, int iValue)
{
    if (m_bFollowing)
        return;
    const QScopedValueRollback<bool> guard(m_bFollowing, true);
    other.m_pqView->slotLegendsVerticalScrollBarChanged(legend.m_pModel, iValue);
}

// ---- contents -------------------------------------------------------------------------------------------------------

void ClassLegends::setClasses(const QRelationshipItemModel& model)
{
    m_oColor.m_bOn = model.colorAttributeIsOn();
    m_oSymbol.m_bOn = model.symbolAttributeIsOn();
    m_oColor.m_sName = titleOf(model.colorAttribute());
    m_oColor.m_pqTitle->setText(m_sColorTitle.isEmpty() ? m_oColor.m_sName : m_sColorTitle);
    m_oSymbol.m_pqTitle->setText(titleOf(model.symbolAttribute()));
    m_oColor.m_pModel->setSymbolNode(model.colorAttribute());
    m_oSymbol.m_pModel->setSymbolNode(model.symbolAttribute());
    m_oSymbol.m_pModel->setHighestSymbolId(std::max(0, model.symbolClasses().highestId()));
    const RelationshipClasses& colors = model.colorClasses();
    const RelationshipClasses& symbols = model.symbolClasses();
    m_oColor.m_pModel->setClasses(shownNames(colors, [&model](int iClass) { return model.getColorName(iClass); }),
                                  colors.colors());
    m_oSymbol.m_pModel->setClasses(shownNames(symbols, [&model](int iClass) { return model.getSymbolName(iClass); }),
                                   symbols.colors());
    showLegends();
}

void ClassLegends::setWanted(bool bColorLegend, bool bSymbolLegend)
{
    m_oColor.m_bWanted = bColorLegend;
    m_oSymbol.m_bWanted = bSymbolLegend;
    showLegends();
}

void ClassLegends::setColorTitle(const QString& sTitle)
{
    m_sColorTitle = sTitle;
    m_oColor.m_pqTitle->setText(sTitle.isEmpty() ? m_oColor.m_sName : sTitle);
}

void ClassLegends::showLegends()
{
    m_oColor.m_pqGroup->setVisible(m_oColor.isSeen());
    m_oSymbol.m_pqGroup->setVisible(m_oSymbol.isSeen());
    setVisible(!isEmpty());
}

bool ClassLegends::isEmpty() const
{
    return !m_oColor.isSeen() && !m_oSymbol.isSeen();
}

std::vector<int> ClassLegends::selectedColorClasses() const
{
    return m_oColor.m_pqView->getSelectedIDs();
}

std::vector<int> ClassLegends::selectedSymbolClasses() const
{
    return m_oSymbol.m_pqView->getSelectedIDs();
}

std::vector<unsigned char> ClassLegends::selectedRecords(const QRelationshipItemModel& model) const
{
    std::vector<unsigned char> vbMask(static_cast<std::size_t>(model.numberOfPoints()), 0);
    const auto addClasses = [&vbMask](const RelationshipClasses& classes, const std::vector<int>& viClasses) {
        std::vector<unsigned char> vbWanted(static_cast<std::size_t>(std::max(0, classes.highestId() + 1)), 0);
        for (const int iClass : viClasses) {
            if (iClass >= 0 && iClass <= classes.highestId())
                vbWanted[static_cast<std::size_t>(iClass)] = 1;
        }
        const std::span<const int> viIds = classes.ids();
        for (std::size_t i = 0; i < std::min(viIds.size(), vbMask.size()); ++i)
            vbMask[i] |= vbWanted[static_cast<std::size_t>(viIds[i])];
    };
    addClasses(model.colorClasses(), selectedColorClasses());
    addClasses(model.symbolClasses(), selectedSymbolClasses());
    return vbMask;
}

void ClassLegends::clearSelection()
{
    m_oColor.m_pqView->setSelectedIDs({});
    m_oSymbol.m_pqView->setSelectedIDs({});
}

// ---- pictures -------------------------------------------------------------------------------------------------------

std::vector<const ClassLegends::Legend*> ClassLegends::seenLegends() const
{
    std::vector<const Legend*> vpSeen;
    for (const Legend* pLegend : {&m_oColor, &m_oSymbol}) {
        if (pLegend->isSeen())
            vpSeen.push_back(pLegend);
    }
    return vpSeen;
}

QSizeF ClassLegends::pictureSize() const
{
    const QFontMetricsF metrics(titleFont(*this));
    QSizeF oSize(0.0, 0.0);
    for (const Legend* pLegend : seenLegends()) {
        const QSizeF oLegend = pLegend->m_pqView->wholeLegendSize();
        const double dTitle = metrics.horizontalAdvance(pLegend->m_pqTitle->text());
        oSize.setWidth(std::max({oSize.width(), oLegend.width(), dTitle}));
        oSize.rheight() += metrics.height() + g_dTitleGap + oLegend.height() + g_dLegendGap;
    }
    return oSize;
}

void ClassLegends::paint(QPainter& painter, const QRectF& oTarget, const QColor& oTextColor) const
{
    const QSizeF oSize = pictureSize();
    if (oSize.isEmpty())
        return;
    const QFont oTitleFont = titleFont(*this);
    const double dTitleHeight = QFontMetricsF(oTitleFont).height();
    const double dScale = std::min({1.0, oTarget.width() / oSize.width(), oTarget.height() / oSize.height()});
    painter.save();
    painter.translate(oTarget.topLeft());
    painter.scale(dScale, dScale);
    double dY = 0.0;
    for (const Legend* pLegend : seenLegends()) {
        painter.setFont(oTitleFont);
        painter.setPen(oTextColor);
        painter.drawText(QRectF(0.0, dY, oSize.width(), dTitleHeight), Qt::AlignLeft | Qt::TextSingleLine,
                         pLegend->m_pqTitle->text());
        dY += dTitleHeight + g_dTitleGap;
        painter.setFont(pLegend->m_pqView->font());
        pLegend->m_pqView->paintLegend(painter, QPointF(0.0, dY), oTextColor);
        dY += pLegend->m_pqView->wholeLegendSize().height() + g_dLegendGap;
    }
    painter.restore();
}

double ClassLegends::widthBeside() const
{
    return isEmpty() ? 0.0 : pictureSize().width() + 2.0 * g_dMargin;
}

QRectF ClassLegends::paintBeside(QPainter& painter, const QRectF& oPicture, const QColor& oTextColor) const
{
    const double dWidth = std::min(widthBeside(), oPicture.width() * g_dLargestShare);
    const QRectF oBeside(oPicture.right() - dWidth, oPicture.top(), dWidth, oPicture.height());
    paint(painter, oBeside.adjusted(0.0, g_dMargin, -g_dMargin, -g_dMargin), oTextColor);
    return oPicture.adjusted(0.0, 0.0, -dWidth, 0.0);
}

QPixmap ClassLegends::withChart(const QPixmap& oChart, const QColor& oBackground, const QColor& oTextColor) const
{
    const QSizeF oChartSize = oChart.deviceIndependentSize();
    QPixmap oPicture((oChartSize + QSizeF(widthBeside(), 0.0)).toSize() * oChart.devicePixelRatio());
    oPicture.setDevicePixelRatio(oChart.devicePixelRatio());
    oPicture.fill(oBackground);
    QPainter painter(&oPicture);
    painter.drawPixmap(QPointF(0.0, 0.0), oChart);
    const QRectF oBeside(oChartSize.width(), g_dMargin, widthBeside(), oChartSize.height() - 2.0 * g_dMargin);
    paint(painter, oBeside, oTextColor);
    return oPicture;
}

} // namespace gkBase
