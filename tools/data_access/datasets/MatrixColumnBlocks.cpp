// Taking many cells out of a column and exchanging them, without a variant per cell: what undo records do.

#include "MatrixColumn.h"
#include "MatrixTextTable.h"

#include <algorithm>

namespace gkBase {

namespace {

std::size_t index(std::int32_t i)
{
    return static_cast<std::size_t>(i);
}

/// The cells that are in range, missing for the others.
template <typename Cell>
void gatherInto(std::vector<Cell>& vResult, const std::vector<Cell>& vCells, std::span<const std::int32_t> viCells)
{
    for (std::size_t i = 0; i < viCells.size(); ++i)
        if (viCells[i] >= 0 && index(viCells[i]) < vCells.size())
            vResult[i] = vCells[index(viCells[i])];
}

/// The codes of some text cells in another table; codeOf() tells the code of a text there.
template <typename CodeOf>
void translateCodes(std::vector<std::int32_t>& viCodes, const std::vector<QString>& vsTexts, CodeOf codeOf)
{
    std::vector<std::int32_t> viNewCodes(vsTexts.size(), -1);
    for (std::int32_t& iCode : viCodes) {
        if (iCode < 0)
            continue;
        std::int32_t& iNew = viNewCodes[index(iCode)];
        if (iNew < 0)
            iNew = codeOf(vsTexts[index(iCode)]);
        iCode = iNew;
    }
}

} // namespace

MatrixColumn MatrixColumn::gather(std::span<const std::int32_t> viCells) const
{
    MatrixColumn result(m_eType, static_cast<int>(viCells.size()));
    if (auto* pTexts = std::get_if<TextCells>(&m_cells)) {
        auto& cells = std::get<TextCells>(result.m_cells);
        // A few cells of very many texts take their own: as long as the table is shared, the next new text of this
        // column would copy all of it.
        if (viCells.size() < texts().size() / 2) {
            for (std::size_t i = 0; i < viCells.size(); ++i)
                if (!isMissing(viCells[i]))
                    cells.codes[i] = result.codeOf(cells, text(viCells[i]));
            return result;
        }
        cells.texts = pTexts->texts;
        gatherInto(cells.codes, pTexts->codes, viCells);
    } else if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        gatherInto(std::get<std::vector<double>>(result.m_cells), *pDoubles, viCells);
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        gatherInto(std::get<BoolCells>(result.m_cells), *pFlags, viCells);
    } else if (auto* pColors = std::get_if<ColorCells>(&m_cells)) {
        gatherInto(std::get<ColorCells>(result.m_cells).values, pColors->values, viCells);
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        auto& cells = std::get<IntCells>(result.m_cells);
        gatherInto(cells.values, pInts->values, viCells);
        for (std::size_t i = 0; i < viCells.size(); ++i)
            if (!isMissing(viCells[i]))
                cells.missing[i] = false;
        if (std::find(cells.missing.begin(), cells.missing.end(), true) == cells.missing.end())
            cells.missing.clear();
    }
    return result;
}

void MatrixColumn::swapCell(int i, MatrixColumn& other, int j)
{
    if (m_eType != other.m_eType || !inRange(i) || !other.inRange(j))
        return;
    const std::size_t iOwn = index(i);
    const std::size_t iOther = index(j);
    if (auto* pDoubles = std::get_if<std::vector<double>>(&m_cells)) {
        std::swap((*pDoubles)[iOwn], std::get<std::vector<double>>(other.m_cells)[iOther]);
    } else if (auto* pFlags = std::get_if<BoolCells>(&m_cells)) {
        std::swap((*pFlags)[iOwn], std::get<BoolCells>(other.m_cells)[iOther]);
    } else if (auto* pColors = std::get_if<ColorCells>(&m_cells)) {
        std::swap(pColors->values[iOwn], std::get<ColorCells>(other.m_cells).values[iOther]);
    } else if (auto* pInts = std::get_if<IntCells>(&m_cells)) {
        auto& others = std::get<IntCells>(other.m_cells);
        const bool bOwnMissing = isMissing(i);
        const bool bOtherMissing = other.isMissing(j);
        std::swap(pInts->values[iOwn], others.values[iOther]);
        if (bOwnMissing == bOtherMissing)
            return;
        pInts->missing.resize(pInts->values.size(), false);
        others.missing.resize(others.values.size(), false);
        pInts->missing[iOwn] = bOtherMissing;
        others.missing[iOther] = bOwnMissing;
    } else if (auto* pTexts = std::get_if<TextCells>(&m_cells)) {
        auto& others = std::get<TextCells>(other.m_cells);
        // Many cells come to share the table with their first one; a few keep their own, see gather().
        if (pTexts->texts != others.texts && others.codes.size() >= texts().size() / 2) {
            translateCodes(others.codes, other.texts(), [&](const QString& sText) { return codeOf(*pTexts, sText); });
            others.texts = pTexts->texts;
        }
        if (pTexts->texts == others.texts) {
            std::swap(pTexts->codes[iOwn], others.codes[iOther]);
            return;
        }
        const bool bOwnMissing = isMissing(i);
        const QString sOwn = text(i);
        pTexts->codes[iOwn] = other.isMissing(j) ? -1 : codeOf(*pTexts, other.text(j));
        others.codes[iOther] = bOwnMissing ? -1 : other.codeOf(others, sOwn);
    }
}

} // namespace gkBase
