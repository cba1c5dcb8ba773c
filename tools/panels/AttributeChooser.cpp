#include "AttributeChooser.h"

#include "MatrixData.h"
#include "MatrixDataNotifier.h"

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>

#include <algorithm>
#include <unordered_map>

namespace gkBase {

namespace {

constexpr int g_iNone = -1;
constexpr int g_iVisibleLetters = 12;

} // namespace

std::vector<AttributeEntry> attributeEntries(const MatrixData* poRoot, const MatrixData* poLeaving)
{
    std::vector<AttributeEntry> vEntries;
    if (!poRoot)
        return vEntries;
    std::unordered_map<const MatrixData*, int> records;
    for (MatrixData* poLeaf : poRoot->leafs()) {
        if (poLeaving && MatrixDataNotifier::contains(poLeaving, poLeaf))
            continue;
        int& iRecords = records[poLeaf->owner()];
        iRecords = std::max(iRecords, poLeaf->recordCount());
        vEntries.push_back({poLeaf, poLeaf->name(), 0});
    }
    for (AttributeEntry& entry : vEntries) {
        const MatrixData* poDataSet = entry.m_poNode->owner();
        entry.m_iRecords = records[poDataSet];
        if (poDataSet && records.size() > 1)
            entry.m_sName = poDataSet->name() + QLatin1String(": ") + entry.m_sName;
    }
    return vEntries;
}

int dataSetRecords(const MatrixData* poAttribute)
{
    if (!poAttribute)
        return -1;
    int iRecords = poAttribute->recordCount();
    if (const MatrixData* poDataSet = poAttribute->owner()) {
        for (const MatrixData* poLeaf : poDataSet->leafs())
            iRecords = std::max(iRecords, poLeaf->recordCount());
    }
    return iRecords;
}

bool isNumericAttribute(const MatrixData* poNode)
{
    if (!poNode)
        return false;
    const QMetaType::Type eType = poNode->type();
    return eType == QMetaType::Double || eType == QMetaType::Int || eType == QMetaType::Bool;
}

QIcon colorSwatch(const QComboBox& oBox, const QColor& oColor)
{
    const qreal dRatio = oBox.devicePixelRatioF();
    QPixmap oSwatch(oBox.iconSize() * dRatio);
    oSwatch.setDevicePixelRatio(dRatio);
    oSwatch.fill(Qt::transparent);
    QPainter painter(&oSwatch);
    painter.setPen(oBox.palette().color(QPalette::Text));
    painter.setBrush(oColor);
    painter.drawRect(QRect(QPoint(1, 1), oBox.iconSize() - QSize(3, 3)));
    return QIcon(oSwatch);
}

AttributeChooser::AttributeChooser(const QString& sAccessibleName, bool bOptional, QWidget* pqParent)
    : QComboBox(pqParent)
    , m_bOptional(bOptional)
{
    setAccessibleName(sAccessibleName);
    setPlaceholderText(tr("Select an Attribute"));
    // A long name must not push the panel wider than the window.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(g_iVisibleLetters);
    setEntries({}, {});
    connect(this, &QComboBox::activated, this, [this] { emit attributeChosen(chosenID()); });
}

void AttributeChooser::setEntries(const std::vector<AttributeEntry>& vEntries, const Filter& filter)
{
    const int iChosen = chosenID();
    const QSignalBlocker blocker(this);
    clear();
    if (m_bOptional)
        addItem(tr("None"), g_iNone);
    QHash<QRgb, QIcon> swatches; // many attributes share few colours
    for (const AttributeEntry& entry : vEntries) {
        if (filter && !filter(entry))
            continue;
        QIcon& oSwatch = swatches[entry.m_poNode->color().rgba()];
        if (oSwatch.isNull())
            oSwatch = colorSwatch(*this, entry.m_poNode->color());
        addItem(oSwatch, entry.m_sName, entry.m_poNode->globalID());
    }
    chooseID(iChosen);
}

void AttributeChooser::removeEntries(const std::unordered_set<int>& iGlobalIDs)
{
    const int iChosen = chosenID();
    const QSignalBlocker blocker(this);
    for (int iEntry = count() - 1; iEntry >= 0; --iEntry) {
        if (iGlobalIDs.contains(itemData(iEntry).toInt()))
            removeItem(iEntry);
    }
    chooseID(iChosen);
}

void AttributeChooser::choose(const MatrixData* poNode)
{
    chooseID(poNode ? poNode->globalID() : g_iNone);
}

void AttributeChooser::chooseID(int iGlobalID)
{
    const QSignalBlocker blocker(this);
    const int iEntry = findData(iGlobalID);
    setCurrentIndex(iEntry < 0 && m_bOptional ? 0 : iEntry);
}

int AttributeChooser::chosenID() const
{
    return currentIndex() < 0 ? g_iNone : currentData().toInt();
}

} // namespace gkBase
