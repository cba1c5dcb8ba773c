#pragma once

#include "ImportOptions.h"
#include "TextReading.h"

#include <string_view>

namespace gkHost {

/// How a delimited file is written.
struct CsvDialect
{
    char m_cDelimiter = ',';
    char m_cDecimalMark = '.';
    int m_iColumns = 1; ///< the most frequent number of cells of a row in the sample
    bool m_bHeaderLine = false;
    bool m_bUnitsLine = false; ///< below the header line
};

/// Finds the dialect from a sample of the bytes behind the leading comments: its first rows, and for the decimal mark
/// places throughout the file. What the options force is not guessed.
///
/// The delimiter is the one that parts the most rows into the same number of cells, and these into the most numbers.
/// The header is a first row without a number; the units are a second row that holds only words for units.
CsvDialect detectDialect(std::string_view sBytes, const ImportOptions& options, const MissingMarks& marks);

} // namespace gkHost
