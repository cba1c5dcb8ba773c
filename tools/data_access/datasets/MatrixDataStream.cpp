#include "MatrixData.h"
#include "MatrixDataArray.h"
#include "MatrixDataNotifier.h"
#include "MatrixDataRange.h"
#include "MatrixDataStrike.h"
#include "MatrixDataUndoStack.h"
#include "UnitManager.h"
#include "UnitRegistry.h"

#include <QDataStream>

#include <algorithm>
#include <typeinfo>

namespace gkBase {

namespace {

constexpr quint32 iMagic = 0x474b4d44; // "GKMD"
constexpr quint16 iVersion = 1;
constexpr int iMaxDepth = 16;
constexpr int iMaxRowOffSet = 1000;

enum NodeFlag : quint8
{
    SelectedFlag = 1,
    VertexFlag = 2,
    NotEditableFlag = 4,
    OwnerFlag = 8,
    UnitFlag = 16,
    ColorFlag = 32
};

/// Gives a stream the fixed form of the payload, and its own form back at the end.
class StreamForm
{
public:
    explicit StreamForm(QDataStream& stream)
        : m_stream(stream)
        , m_iVersion(stream.version())
        , m_eOrder(stream.byteOrder())
        , m_ePrecision(stream.floatingPointPrecision())
    {
        stream.setVersion(QDataStream::Qt_6_0);
        stream.setByteOrder(QDataStream::BigEndian);
        stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
    }
    ~StreamForm()
    {
        m_stream.setVersion(m_iVersion);
        m_stream.setByteOrder(m_eOrder);
        m_stream.setFloatingPointPrecision(m_ePrecision);
    }
    StreamForm(const StreamForm&) = delete;
    StreamForm& operator=(const StreamForm&) = delete;

private:
    QDataStream& m_stream;
    int m_iVersion;
    QDataStream::ByteOrder m_eOrder;
    QDataStream::FloatingPointPrecision m_ePrecision;
};

/// A variant of one of the column types, as a column of one cell; no cell for any other.
void writeVariant(QDataStream& stream, const QVariant& qValue)
{
    const auto eType = static_cast<QMetaType::Type>(qValue.typeId());
    MatrixColumn oCell(eType);
    if (qValue.isValid() && oCell.type() == eType)
        oCell.appendValue(qValue);
    oCell.write(stream);
}

bool readVariant(QDataStream& stream, QVariant& qValue)
{
    const std::optional<MatrixColumn> oCell = MatrixColumn::read(stream);
    if (oCell)
        qValue = oCell->value(0);
    return oCell.has_value();
}

bool readHeaders(QDataStream& stream, QStringList& lHeaders)
{
    qint32 iHeaders = 0;
    stream >> iHeaders;
    for (qint32 i = 0; i < iHeaders; ++i) { // one by one: a wrong number ends with the stream
        QString sHeader;
        stream >> sHeader;
        if (stream.status() != QDataStream::Ok)
            return false;
        lHeaders.append(sHeader);
    }
    return stream.status() == QDataStream::Ok && iHeaders >= 0;
}

boost::shared_ptr<UnitManager> unitManagerFor(const UnitRegistry* poRegistry, const QString& sCategory,
                                              const QString& sModelUnit)
{
    if (poRegistry) {
        const auto it = poRegistry->find_category(sCategory);
        if (it != poRegistry->categories_end() && it->second && it->second->modelUnit() == sModelUnit)
            return it->second;
    }
    return boost::shared_ptr<UnitManager>(new UnitManager(sCategory, sModelUnit));
}

} // namespace

/// Writes and reads the insides of nodes.
struct MatrixDataStreamAccess
{
    static void write(const MatrixData& node, QDataStream& stream, int iRecords);
    /// bAsAttribute reads the values of a strike into a plain attribute.
    static std::unique_ptr<MatrixData> read(QDataStream& stream, const UnitRegistry* poRegistry, bool bAsAttribute);

private:
    static void writeNode(const MatrixData& node, QDataStream& stream, int iRecords);
    static std::unique_ptr<MatrixData> readNode(QDataStream& stream, const UnitRegistry* poRegistry, bool bAsAttribute,
                                                int iDepth, bool& bOwner);
    static bool readProperties(MatrixData& node, QDataStream& stream, const UnitRegistry* poRegistry, bool& bOwner);
    static bool readColumns(MatrixData& node, QDataStream& stream);
    static bool readChildren(MatrixData& node, QDataStream& stream, const UnitRegistry* poRegistry, int iDepth);
};

void MatrixDataStreamAccess::write(const MatrixData& node, QDataStream& stream, int iRecords)
{
    const StreamForm form(stream);
    stream << iMagic << iVersion;
    writeNode(node, stream, iRecords);
}

void MatrixDataStreamAccess::writeNode(const MatrixData& node, QDataStream& stream, int iRecords)
{
    const bool bUnit = node.m_poUnitManager != nullptr;
    quint8 iFlags = 0;
    iFlags |= node.m_bSelected ? SelectedFlag : 0;
    iFlags |= node.m_bVertex ? VertexFlag : 0;
    iFlags |= node.m_bEditable ? 0 : NotEditableFlag;
    iFlags |= node.m_poOwner ? OwnerFlag : 0;
    iFlags |= bUnit ? UnitFlag : 0;
    iFlags |= node.m_oColor.isValid() ? ColorFlag : 0;
    stream << static_cast<quint8>(node.streamKind()) << node.m_sName << iFlags
           << static_cast<qint32>(node.m_iRowOffSet);
    if (bUnit)
        stream << node.m_poUnitManager->category() << node.m_poUnitManager->modelUnit();
    if (node.m_oColor.isValid())
        stream << static_cast<quint64>(node.m_oColor.rgba64());
    writeVariant(stream, node.m_qDefaultValue1);
    stream << node.m_dDefaultValue2 << static_cast<qint32>(node.m_lColumnHeaders.size());
    for (const QString& sHeader : node.m_lColumnHeaders)
        stream << sHeader;

    const int iColumns = node.streamKind() == MatrixData::StreamKind::Array ? 0 : node.columnCount();
    MatrixColumn(node.m_eType).write(stream);
    stream << static_cast<qint32>(iColumns);
    for (int i = 0; i < iColumns; ++i)
        node.column(i).write(stream, iRecords);
    stream << static_cast<qint32>(node.childCount());
    for (int i = 0; i < node.childCount(); ++i)
        writeNode(*node.child(i), stream, iRecords);
    node.writeExtras(stream, iRecords);
}

std::unique_ptr<MatrixData> MatrixDataStreamAccess::read(QDataStream& stream, const UnitRegistry* poRegistry,
                                                         bool bAsAttribute)
{
    const StreamForm form(stream);
    quint32 iReadMagic = 0;
    quint16 iReadVersion = 0;
    stream >> iReadMagic >> iReadVersion;
    bool bOwner = false; // the node that was asked for keeps the owner that it has
    std::unique_ptr<MatrixData> poNode;
    if (stream.status() == QDataStream::Ok && iReadMagic == iMagic && iReadVersion == iVersion)
        poNode = readNode(stream, poRegistry, bAsAttribute, 0, bOwner);
    if (!poNode && stream.status() == QDataStream::Ok)
        stream.setStatus(QDataStream::ReadCorruptData);
    return poNode;
}

std::unique_ptr<MatrixData> MatrixDataStreamAccess::readNode(QDataStream& stream, const UnitRegistry* poRegistry,
                                                             bool bAsAttribute, int iDepth, bool& bOwner)
{
    quint8 iKind = 0;
    stream >> iKind;
    std::unique_ptr<MatrixData> poNode;
    const auto eKind = static_cast<MatrixData::StreamKind>(iKind);
    const bool bStrike = eKind == MatrixData::StreamKind::Strike;
    if (eKind == MatrixData::StreamKind::Attribute || (bStrike && bAsAttribute))
        poNode = std::make_unique<MatrixData>();
    else if (bStrike)
        poNode = std::make_unique<MatrixDataStrike>(QString(), nullptr);
    else if (eKind == MatrixData::StreamKind::Array)
        poNode = std::make_unique<MatrixDataArray>(QString(), 0, 0, QMetaType::Double);

    if (!poNode || iDepth > iMaxDepth || !readProperties(*poNode, stream, poRegistry, bOwner) ||
        !readColumns(*poNode, stream) || !readChildren(*poNode, stream, poRegistry, iDepth))
        return nullptr;
    if (bStrike && bAsAttribute) {
        QString sAzimuth;
        stream >> sAzimuth;
    } else if (!poNode->readExtras(stream)) {
        return nullptr;
    }
    return stream.status() == QDataStream::Ok ? std::move(poNode) : nullptr;
}

bool MatrixDataStreamAccess::readProperties(MatrixData& node, QDataStream& stream, const UnitRegistry* poRegistry,
                                            bool& bOwner)
{
    quint8 iFlags = 0;
    qint32 iRowOffSet = 0;
    stream >> node.m_sName >> iFlags >> iRowOffSet;
    if (stream.status() != QDataStream::Ok || iRowOffSet < 0 || iRowOffSet > iMaxRowOffSet)
        return false;
    node.m_iRowOffSet = iRowOffSet;
    node.m_bSelected = iFlags & SelectedFlag;
    node.m_bVertex = iFlags & VertexFlag;
    node.m_bEditable = !(iFlags & NotEditableFlag);
    bOwner = iFlags & OwnerFlag;
    if (iFlags & UnitFlag) {
        QString sCategory;
        QString sModelUnit;
        stream >> sCategory >> sModelUnit;
        if (stream.status() != QDataStream::Ok)
            return false;
        node.m_poUnitManager = unitManagerFor(poRegistry, sCategory, sModelUnit);
    }
    if (iFlags & ColorFlag) {
        quint64 iColor = 0;
        stream >> iColor;
        node.m_oColor = QColor::fromRgba64(QRgba64::fromRgba64(iColor));
    }
    if (!readVariant(stream, node.m_qDefaultValue1))
        return false;
    stream >> node.m_dDefaultValue2;
    return readHeaders(stream, node.m_lColumnHeaders);
}

bool MatrixDataStreamAccess::readColumns(MatrixData& node, QDataStream& stream)
{
    const std::optional<MatrixColumn> oType = MatrixColumn::read(stream);
    qint32 iColumns = 0;
    stream >> iColumns;
    if (!oType || stream.status() != QDataStream::Ok || iColumns < 0)
        return false;
    node.m_eType = oType->type();
    for (qint32 i = 0; i < iColumns; ++i) { // one by one: a wrong number ends with the stream
        std::optional<MatrixColumn> oColumn = MatrixColumn::read(stream);
        if (!oColumn || oColumn->type() != node.m_eType)
            return false;
        if (!node.isDerived())
            node.m_vColumns.push_back(std::move(*oColumn));
    }
    return true;
}

bool MatrixDataStreamAccess::readChildren(MatrixData& node, QDataStream& stream, const UnitRegistry* poRegistry,
                                          int iDepth)
{
    qint32 iChildren = 0;
    stream >> iChildren;
    if (stream.status() != QDataStream::Ok || iChildren < 0)
        return false;
    std::vector<MatrixData*> vpChildren;
    for (qint32 i = 0; i < iChildren; ++i) {
        bool bOwner = false;
        std::unique_ptr<MatrixData> poChild = readNode(stream, poRegistry, false, iDepth + 1, bOwner);
        if (!poChild)
            return false;
        if (bOwner)
            poChild->setOwner(&node);
        vpChildren.push_back(poChild.get());
        node.attachChild(node.childCount(), std::move(poChild));
    }
    for (MatrixData* poChild : vpChildren)
        poChild->resolveLinks(vpChildren);
    return true;
}

void MatrixData::putDataOnStream(QDataStream& stream) const
{
    MatrixDataStreamAccess::write(*this, stream, -1);
}

void MatrixData::putDataOnStream(int iRecords, QDataStream& stream) const
{
    MatrixDataStreamAccess::write(*this, stream, std::max(iRecords, 0));
}

std::unique_ptr<MatrixData> MatrixData::fromStream(QDataStream& stream, UnitRegistry* poRegistry)
{
    return MatrixDataStreamAccess::read(stream, poRegistry, false);
}

bool MatrixData::getDataFromStream(QDataStream& stream)
{
    const bool bPlain = typeid(*this) == typeid(MatrixData);
    const std::unique_ptr<MatrixData> poRead = MatrixDataStreamAccess::read(stream, registry(), bPlain);
    if (!poRead)
        return false;
    const MatrixData& read = *poRead;
    if (typeid(read) != typeid(*this)) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    swapContents(*poRead);
    if (m_poParent) {
        std::vector<MatrixData*> vpSiblings;
        for (const auto& poSibling : m_poParent->m_vChildren)
            vpSiblings.push_back(poSibling.get());
        resolveLinks(vpSiblings);
    }
    notifyAttributes();
    valuesChanged();
    return true;
}

bool MatrixData::getDataFromStream(int iRecords, int iColumn, QDataStream& stream)
{
    if (isDerived() || iColumn < 0 || iColumn > columnCount())
        return false;
    const std::unique_ptr<MatrixData> poRead = MatrixDataStreamAccess::read(stream, registry(), true);
    if (!poRead)
        return false;
    ensureColumn(iColumn, 0);
    m_vColumns[static_cast<std::size_t>(iColumn)] = poRead->column(0).mid(0, iRecords).converted(m_eType);
    valuesChanged();
    return true;
}

void MatrixData::writeExtras(QDataStream&, int) const {}

bool MatrixData::readExtras(QDataStream&)
{
    return true;
}

void MatrixData::resolveLinks(const std::vector<MatrixData*>&) {}

} // namespace gkBase
