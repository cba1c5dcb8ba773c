#include "MatrixColumn.h"

#include "MatrixTextTable.h"
#include "MissingValue.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace gkBase {

namespace {

constexpr std::uint8_t iMissingFlag = 2;

std::size_t index(int i)
{
    return static_cast<std::size_t>(i);
}

bool sameDouble(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

/// The nearest int; none for a number beyond its range, which a cast would turn into another one. Text as number, 0
/// when it is none.
std::optional<std::int32_t> intOf(const QVariant& qValue)
{
    const double dValue = std::round(qValue.toDouble());
    const bool bFits =
        dValue >= std::numeric_limits<std::int32_t>::min() && dValue <= std::numeric_limits<std::int32_t>::max();
    return bFits ? std::optional(static_cast<std::int32_t>(dValue)) : std::nullopt;
}

/// A truth value of a text: true, false or a number; none otherwise.
std::optional<bool> boolOf(const QString& sText)
{
    const QString sWord = sText.trimmed();
    for (const bool bWord : {true, false})
        if (sWord.compare(QLatin1String(bWord ? "true" : "false"), Qt::CaseInsensitive) == 0)
            return bWord;
    bool bOk = false;
    const double dValue = sWord.toDouble(&bOk);
    return bOk && std::isfinite(dValue) ? std::optional(dValue != 0.0) : std::nullopt;
}

} // namespace

MatrixColumn::MatrixColumn(QMetaType::Type eType, int iSize)
    : m_eType(columnType(eType))
{
    switch (m_eType) {
    case QMetaType::Int:
        m_cells = IntCells();
        break;
    case QMetaType::Bool:
        m_cells = BoolCells();
        break;
    case QMetaType::QString:
        m_cells = TextCells();
        break;
    case QMetaType::QColor:
        m_cells = ColorCells();
        break;
    default:
        break;
    }
    resize(std::max(iSize, 0));
}

MatrixColumn::MatrixColumn(const MatrixColumn& other) = default;
MatrixColumn::MatrixColumn(MatrixColumn&& other) noexcept = default;
MatrixColumn& MatrixColumn::operator=(const MatrixColumn& other) = default;
MatrixColumn& MatrixColumn::operator=(MatrixColumn&& other) noexcept = default;
MatrixColumn::~MatrixColumn() = default;

QMetaType::Type MatrixColumn::columnType(QMetaType::Type eType)
{
    switch (eType) {
    case QMetaType::Double:
    case QMetaType::Int:
    case QMetaType::Bool:
    case QMetaType::QColor:
        return eType;
    default:
        return QMetaType::QString;
    }
}

bool MatrixColumn::isNumeric() const
{
    return m_eType == QMetaType::Double || m_eType == QMetaType::Int || m_eType == QMetaType::Bool;
}

int MatrixColumn::size() const
{
    return std::visit(
        [](const auto& cells) {
            using Cells = std::decay_t<decltype(cells)>;
            if constexpr (std::is_same_v<Cells, IntCells> || std::is_same_v<Cells, ColorCells>)
                return static_cast<int>(cells.values.size());
            else if constexpr (std::is_same_v<Cells, TextCells>)
                return static_cast<int>(cells.codes.size());
            else
                return static_cast<int>(cells.size());
        },
        m_cells);
}

void MatrixColumn::resize(int iSize)
{
    const std::size_t nNew = index(std::max(iSize, 0));
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        pDoubles->resize(nNew, g_dEmptyCell);
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        const std::size_t nOld = pInts->values.size();
        if (nNew > nOld && pInts->missing.empty())
            pInts->missing.resize(nOld, false);
        pInts->values.resize(nNew, 0);
        if (!pInts->missing.empty() || nNew > nOld)
            pInts->missing.resize(nNew, true);
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        pFlags->resize(nNew, iMissingFlag);
    } else if (auto* pTexts = std::get_if<TextCells>(&m_cells)) {
        pTexts->codes.resize(nNew, -1);
        if (nNew == 0)
            pTexts->texts.reset();
    } else if (auto* pColors = std::get_if<ColorCells>(&m_cells)) {
        pColors->values.resize(nNew, 0);
    }
}

void MatrixColumn::reserve(int iSize)
{
    const std::size_t nSize = index(std::max(iSize, 0));
    std::visit(
        [nSize](auto& cells) {
            using Cells = std::decay_t<decltype(cells)>;
            if constexpr (std::is_same_v<Cells, IntCells> || std::is_same_v<Cells, ColorCells>)
                cells.values.reserve(nSize);
            else if constexpr (std::is_same_v<Cells, TextCells>)
                cells.codes.reserve(nSize);
            else
                cells.reserve(nSize);
        },
        m_cells);
}

bool MatrixColumn::isMissing(int i) const
{
    if (!inRange(i))
        return true;
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells))
        return std::isnan((*pDoubles)[index(i)]);
    if (auto* pInts = std::get_if<IntCells>(&m_cells))
        return !pInts->missing.empty() && pInts->missing[index(i)];
    if (auto* pFlags = std::get_if<BoolCells>(&m_cells))
        return (*pFlags)[index(i)] == iMissingFlag;
    if (auto* pTexts = std::get_if<TextCells>(&m_cells))
        return pTexts->codes[index(i)] < 0;
    return std::get<ColorCells>(m_cells).values[index(i)] == 0;
}

void MatrixColumn::setMissing(int i)
{
    if (!inRange(i))
        return;
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        (*pDoubles)[index(i)] = g_dEmptyCell;
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        if (pInts->missing.empty())
            pInts->missing.resize(pInts->values.size(), false);
        pInts->missing[index(i)] = true;
        pInts->values[index(i)] = 0;
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        (*pFlags)[index(i)] = iMissingFlag;
    } else if (auto* pTexts = std::get_if<TextCells>(&m_cells)) {
        pTexts->codes[index(i)] = -1;
    } else {
        std::get<ColorCells>(m_cells).values[index(i)] = 0;
    }
}

QVariant MatrixColumn::value(int i) const
{
    if (isMissing(i))
        return QVariant();
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells))
        return (*pDoubles)[index(i)];
    if (auto* pInts = std::get_if<IntCells>(&m_cells))
        return static_cast<int>(pInts->values[index(i)]);
    if (auto* pFlags = std::get_if<BoolCells>(&m_cells))
        return (*pFlags)[index(i)] == 1;
    if (std::holds_alternative<TextCells>(m_cells))
        return text(i);
    return color(i);
}

void MatrixColumn::setPresent(IntCells& cells, int i, std::int32_t iValue)
{
    cells.values[index(i)] = iValue;
    if (!cells.missing.empty())
        cells.missing[index(i)] = false;
}

void MatrixColumn::setValue(int i, const QVariant& qValue)
{
    if (!inRange(i))
        return;
    const bool bColor = qValue.typeId() == QMetaType::QColor;
    const bool bNaN = qValue.typeId() == QMetaType::Double && std::isnan(qValue.toDouble());
    if (!qValue.isValid() || bNaN || (bColor && isNumeric())) {
        setMissing(i);
        return;
    }
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        (*pDoubles)[index(i)] = qValue.toDouble();
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        const std::optional<std::int32_t> oInt = intOf(qValue);
        if (oInt)
            setPresent(*pInts, i, *oInt);
        else
            setMissing(i);
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        (*pFlags)[index(i)] = qValue.toBool() ? 1 : 0;
    } else if (std::holds_alternative<TextCells>(m_cells)) {
        setText(i, qValue.toString());
    } else {
        const QColor oColor = bColor ? qValue.value<QColor>() : QColor(qValue.toString());
        std::get<ColorCells>(m_cells).values[index(i)] = oColor.isValid() ? (oColor.rgb() | 0xff000000u) : 0;
    }
}

void MatrixColumn::appendValue(const QVariant& qValue)
{
    const int iCell = size();
    if (auto* pInts = std::get_if<IntCells>(&m_cells); pInts && pInts->missing.empty() && qValue.isValid()) {
        pInts->values.push_back(0); // keeps the column free of missing bits
    } else {
        resize(iCell + 1);
    }
    setValue(iCell, qValue);
}

void MatrixColumn::insertValue(int i, const QVariant& qValue)
{
    if (i < 0)
        return;
    if (i >= size()) {
        resize(i);
        appendValue(qValue);
        return;
    }
    const std::ptrdiff_t iCell = i;
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        pDoubles->insert(pDoubles->begin() + iCell, g_dEmptyCell);
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        pInts->values.insert(pInts->values.begin() + iCell, 0);
        if (!pInts->missing.empty())
            pInts->missing.insert(pInts->missing.begin() + iCell, true);
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        pFlags->insert(pFlags->begin() + iCell, iMissingFlag);
    } else if (auto* pTexts = std::get_if<TextCells>(&m_cells)) {
        pTexts->codes.insert(pTexts->codes.begin() + iCell, -1);
    } else {
        auto& vColors = std::get<ColorCells>(m_cells).values;
        vColors.insert(vColors.begin() + iCell, 0);
    }
    setValue(i, qValue);
}

double MatrixColumn::number(int i) const
{
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        if (i < 0 || index(i) >= pDoubles->size())
            return g_dEmptyCell;
        const double d = (*pDoubles)[index(i)];
        return gkBase::isMissing(d) ? g_dEmptyCell : d;
    }
    if (isMissing(i))
        return g_dEmptyCell;
    if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        const std::int32_t iValue = pInts->values[index(i)];
        return iValue == static_cast<std::int32_t>(g_dMissingValue) ? g_dEmptyCell : iValue;
    }
    if (auto* pFlags = std::get_if<BoolCells>(&m_cells))
        return (*pFlags)[index(i)];
    return g_dEmptyCell;
}

std::vector<double> MatrixColumn::numbers() const
{
    std::vector<double> vdNumbers;
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        vdNumbers = *pDoubles;
        std::replace_if(
            vdNumbers.begin(), vdNumbers.end(), [](double d) { return gkBase::isMissing(d); }, g_dEmptyCell);
        return vdNumbers;
    }
    vdNumbers.resize(index(size()), g_dEmptyCell);
    if (isNumeric())
        for (int i = 0; i < size(); ++i)
            vdNumbers[index(i)] = number(i);
    return vdNumbers;
}

std::span<const double> MatrixColumn::doubles() const
{
    auto* pDoubles = std::get_if<std::vector<double>>(&m_cells);
    return pDoubles ? std::span<const double>(*pDoubles) : std::span<const double>();
}

std::span<double> MatrixColumn::mutableDoubles()
{
    auto* pDoubles = std::get_if<std::vector<double>>(&m_cells);
    return pDoubles ? std::span<double>(*pDoubles) : std::span<double>();
}

std::span<const std::int32_t> MatrixColumn::ints() const
{
    auto* pInts = std::get_if<IntCells>(&m_cells);
    return pInts ? std::span<const std::int32_t>(pInts->values) : std::span<const std::int32_t>();
}

std::span<const std::uint8_t> MatrixColumn::flags() const
{
    auto* pFlags = std::get_if<BoolCells>(&m_cells);
    return pFlags ? std::span<const std::uint8_t>(*pFlags) : std::span<const std::uint8_t>();
}

std::span<const QRgb> MatrixColumn::colors() const
{
    auto* pColors = std::get_if<ColorCells>(&m_cells);
    return pColors ? std::span<const QRgb>(pColors->values) : std::span<const QRgb>();
}

std::span<const std::int32_t> MatrixColumn::textCodes() const
{
    auto* pTexts = std::get_if<TextCells>(&m_cells);
    return pTexts ? std::span<const std::int32_t>(pTexts->codes) : std::span<const std::int32_t>();
}

const std::vector<QString>& MatrixColumn::texts() const
{
    static const std::vector<QString> vNone;
    auto* pTexts = std::get_if<TextCells>(&m_cells);
    return pTexts && pTexts->texts ? pTexts->texts->texts() : vNone;
}

QString MatrixColumn::text(int i) const
{
    auto* pTexts = std::get_if<TextCells>(&m_cells);
    if (!pTexts || isMissing(i))
        return QString();
    return pTexts->texts->texts()[index(pTexts->codes[index(i)])];
}

std::int32_t MatrixColumn::codeOf(TextCells& cells, const QString& sText)
{
    if (!cells.texts) {
        cells.texts = std::make_shared<MatrixTextTable>();
    } else if (cells.texts.use_count() > 1) {
        if (const std::int32_t iKnown = std::as_const(*cells.texts).find(sText); iKnown >= 0)
            return iKnown;
        cells.texts = std::make_shared<MatrixTextTable>(*cells.texts);
    }
    return cells.texts->code(sText);
}

void MatrixColumn::setText(int i, const QString& sText)
{
    if (auto* pTexts = std::get_if<TextCells>(&m_cells)) {
        if (inRange(i))
            pTexts->codes[index(i)] = codeOf(*pTexts, sText);
    } else {
        setValue(i, sText);
    }
}

void MatrixColumn::appendText(const QString& sText)
{
    if (auto* pTexts = std::get_if<TextCells>(&m_cells))
        pTexts->codes.push_back(codeOf(*pTexts, sText));
    else
        appendValue(sText);
}

void MatrixColumn::appendDouble(double dValue)
{
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells))
        pDoubles->push_back(dValue);
    else
        appendValue(dValue);
}

QColor MatrixColumn::color(int i) const
{
    auto* pColors = std::get_if<ColorCells>(&m_cells);
    return pColors && !isMissing(i) ? QColor(pColors->values[index(i)]) : QColor();
}

MatrixColumn MatrixColumn::converted(QMetaType::Type eType) const
{
    if (columnType(eType) == m_eType)
        return *this;
    MatrixColumn result(eType, size());
    for (int i = 0; i < size(); ++i) {
        const QVariant qValue = value(i);
        if (!qValue.isValid())
            continue;
        if (m_eType == QMetaType::QString &&
            (result.m_eType == QMetaType::Double || result.m_eType == QMetaType::Int)) {
            bool bOk = false;
            const double dValue = qValue.toString().trimmed().toDouble(&bOk);
            if (bOk && std::isfinite(dValue))
                result.setValue(i, dValue);
        } else if (m_eType == QMetaType::QString && result.m_eType == QMetaType::Bool) {
            if (const std::optional<bool> oFlag = boolOf(qValue.toString()))
                result.setValue(i, *oFlag);
        } else {
            result.setValue(i, qValue);
        }
    }
    return result;
}

MatrixColumn MatrixColumn::mid(int iFirst, int iCount) const
{
    const int iBegin = std::clamp(iFirst, 0, size());
    const int iEnd = iBegin + std::clamp(iCount, 0, size() - iBegin);
    MatrixColumn result(m_eType);
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        result.m_cells = std::vector<double>(pDoubles->begin() + iBegin, pDoubles->begin() + iEnd);
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        IntCells cells;
        cells.values.assign(pInts->values.begin() + iBegin, pInts->values.begin() + iEnd);
        if (!pInts->missing.empty())
            cells.missing.assign(pInts->missing.begin() + iBegin, pInts->missing.begin() + iEnd);
        result.m_cells = std::move(cells);
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        result.m_cells = BoolCells(pFlags->begin() + iBegin, pFlags->begin() + iEnd);
    } else if (auto* pTexts = std::get_if<TextCells>(&m_cells)) {
        TextCells cells;
        cells.codes.assign(pTexts->codes.begin() + iBegin, pTexts->codes.begin() + iEnd);
        cells.texts = pTexts->texts;
        result.m_cells = std::move(cells);
    } else {
        const auto& vColors = std::get<ColorCells>(m_cells).values;
        result.m_cells = ColorCells{std::vector<QRgb>(vColors.begin() + iBegin, vColors.begin() + iEnd)};
    }
    return result;
}

void MatrixColumn::append(const MatrixColumn& other)
{
    if (other.m_eType != m_eType) {
        append(other.converted(m_eType));
        return;
    }
    const int iOld = size();
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        const auto& vdOther = std::get<std::vector<double>>(other.m_cells);
        pDoubles->insert(pDoubles->end(), vdOther.begin(), vdOther.end());
        return;
    }
    if (iOld == 0) {
        *this = other;
        return;
    }
    resize(iOld + other.size());
    for (int i = 0; i < other.size(); ++i)
        setValue(iOld + i, other.value(i));
}

int MatrixColumn::usedSize() const
{
    int iSize = size();
    while (iSize > 0 && isMissing(iSize - 1))
        --iSize;
    return iSize;
}

bool MatrixColumn::operator==(const MatrixColumn& other) const
{
    if (m_eType != other.m_eType || size() != other.size())
        return false;
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        const auto& vdOther = std::get<std::vector<double>>(other.m_cells);
        return std::equal(pDoubles->begin(), pDoubles->end(), vdOther.begin(), sameDouble);
    }
    if (auto* pFlags = std::get_if<BoolCells>(&m_cells))
        return *pFlags == std::get<BoolCells>(other.m_cells);
    if (auto* pColors = std::get_if<ColorCells>(&m_cells))
        return pColors->values == std::get<ColorCells>(other.m_cells).values;
    if (auto* pInts = std::get_if<IntCells>(&m_cells)) { // missing cells hold 0
        const auto& otherInts = std::get<IntCells>(other.m_cells);
        if (pInts->values != otherInts.values)
            return false;
        for (int i = 0; i < size(); ++i)
            if (isMissing(i) != other.isMissing(i))
                return false;
        return true;
    }
    if (auto* pTexts = std::get_if<TextCells>(&m_cells);
        pTexts && pTexts->texts == std::get<TextCells>(other.m_cells).texts)
        return pTexts->codes == std::get<TextCells>(other.m_cells).codes;
    for (int i = 0; i < size(); ++i)
        if (value(i) != other.value(i))
            return false;
    return true;
}

std::size_t MatrixColumn::memoryUsage() const
{
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells))
        return pDoubles->capacity() * sizeof(double);
    if (auto* pInts = std::get_if<IntCells>(&m_cells))
        return pInts->values.capacity() * sizeof(std::int32_t) + pInts->missing.capacity() / 8;
    if (auto* pFlags = std::get_if<BoolCells>(&m_cells))
        return pFlags->capacity();
    if (auto* pTexts = std::get_if<TextCells>(&m_cells))
        return pTexts->codes.capacity() * sizeof(std::int32_t) + (pTexts->texts ? pTexts->texts->memoryUsage() : 0);
    return std::get<ColorCells>(m_cells).values.capacity() * sizeof(QRgb);
}

MatrixColumn MatrixColumn::fromDoubles(std::vector<double> vdValues)
{
    MatrixColumn column(QMetaType::Double);
    column.m_cells = std::move(vdValues);
    return column;
}

} // namespace gkBase
