#pragma once

#include "EMFRecordWriter.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QPen>

#include <cstdint>
#include <vector>

class QFont;

namespace gkBase {

/// Pens, brushes and fonts of a metafile under way: creates each once, selects it when it is not selected, and reuses
/// the handle of the one that was idle longest when there are very many. All sizes are units of the writer.
class EMFObjectTable
{
public:
    /// The writer is not owned and lives longer.
    explicit EMFObjectTable(EMFRecordWriter& writer)
        : m_writer(writer)
    {
    }

    /// For a new metafile: forgets all objects.
    void reset();
    /// Deletes what was created.
    void deleteAll();
    /// After a context was restored: the first selection of each kind is written whatever it is.
    void forgetSelection();

    /// Outlines: width in units, colour opaque. A pen without a style selects none.
    void selectPen(const QPen& oPen, double dWidth, const QColor& oColor);
    void selectNoPen() { select(Pen, s_iNullPen); }
    void selectBrush(const QColor& oColor);
    void selectNoBrush() { select(Brush, s_iNullBrush); }
    /// iHeight: the em square in units; iTenthsOfDegree: counter-clockwise direction of the text.
    void selectFont(const QFont& oFont, int iHeight, int iTenthsOfDegree);

    /// The form in which records hold colours.
    static std::int32_t colorValue(const QColor& oColor);

private:
    enum Kind
    {
        Pen,
        Brush,
        Font,
        NumberOfKinds
    };
    struct Object
    {
        QByteArray m_oDefinition; ///< record type and values behind the handle; empty for a free handle
        std::uint64_t m_iLastUse = 0;
    };

    static constexpr std::uint32_t s_iNullBrush = 0x80000005;
    static constexpr std::uint32_t s_iNullPen = 0x80000008;
    static constexpr std::uint32_t s_iNothing = 0;

    void select(Kind eKind, std::uint32_t iHandle);
    void select(Kind eKind, EMFRecord eType, const QByteArray& oDefinition);
    std::uint32_t create(EMFRecord eType, const QByteArray& oDefinition);
    std::uint32_t freeHandle();
    bool isSelected(std::uint32_t iHandle) const;

    EMFRecordWriter& m_writer;
    std::vector<Object> m_vObjects; ///< handle − 1
    QHash<QByteArray, std::uint32_t> m_handles;
    std::uint32_t m_iSelected[NumberOfKinds] = {s_iNothing, s_iNothing, s_iNothing};
    std::uint64_t m_iUses = 0;
};

} // namespace gkBase
