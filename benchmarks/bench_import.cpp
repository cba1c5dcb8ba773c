#include "CsvImporter.h"
#include "LasImporter.h"

#include <QByteArray>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using gkHost::ImportResult;

constexpr int g_iColumns = 10;

/// Numbers of nine to ten characters, the same on every run.
void appendNumber(std::string& sText, std::uint64_t& iState)
{
    iState = iState * 6364136223846793005u + 1442695040888963407u;
    const double dValue = static_cast<double>(static_cast<std::int64_t>(iState) >> 20) / 8.0e9;
    char acNumber[32];
    const auto oEnd = std::to_chars(acNumber, acNumber + sizeof(acNumber), dValue, std::chars_format::fixed, 5);
    sText.append(acNumber, oEnd.ptr);
}

QByteArray table(const std::string& sHeader, std::int64_t iRows, char cDelimiter, bool bText)
{
    std::string sText = sHeader;
    sText.reserve(sText.size() + static_cast<std::size_t>(iRows) * g_iColumns * 12);
    std::uint64_t iState = 1;
    for (std::int64_t iRow = 0; iRow < iRows; ++iRow) {
        for (int i = 0; i < g_iColumns; ++i) {
            if (i > 0) {
                sText += cDelimiter;
            }
            if (bText && i == 3) {
                sText += iRow % 3 == 0 ? "sandstone" : "shale";
            } else {
                appendNumber(sText, iState);
            }
        }
        sText += '\n';
    }
    return QByteArray(sText.data(), static_cast<qsizetype>(sText.size()));
}

std::string csvHeader()
{
    std::string sHeader = "c0";
    for (int i = 1; i < g_iColumns; ++i) {
        sHeader.append(",c").append(std::to_string(i));
    }
    return sHeader + '\n';
}

void count(benchmark::State& state, const QByteArray& qBytes, const ImportResult& result)
{
    if (result.m_vTables.size() != 1 || result.m_vTables[0].rowCount() != state.range(0)) {
        state.SkipWithError("the table is not complete");
        return;
    }
    std::size_t iMemory = 0;
    for (const gkHost::ImportColumn& column : result.m_vTables[0].m_vColumns) {
        iMemory += column.m_oValues.memoryUsage();
    }
    state.SetBytesProcessed(state.iterations() * qBytes.size());
    state.counters["bytesPerCell"] = static_cast<double>(iMemory) / (static_cast<double>(state.range(0)) * g_iColumns);
}

void readCsvNumbers(benchmark::State& state)
{
    const QByteArray qBytes = table(csvHeader(), state.range(0), ',', false);
    ImportResult result;
    for (auto _ : state) {
        result = gkHost::CsvImporter::readBytes(qBytes, QStringLiteral("a.csv"));
        benchmark::DoNotOptimize(result.m_vTables.data());
    }
    count(state, qBytes, result);
}

void readCsvWithText(benchmark::State& state)
{
    const QByteArray qBytes = table(csvHeader(), state.range(0), ',', true);
    ImportResult result;
    for (auto _ : state) {
        result = gkHost::CsvImporter::readBytes(qBytes, QStringLiteral("a.csv"));
        benchmark::DoNotOptimize(result.m_vTables.data());
    }
    count(state, qBytes, result);
}

void readLas(benchmark::State& state)
{
    std::string sHeader = "~V\nVERS. 2.0 :\nWRAP. NO :\n~W\nNULL. -999.25 :\n~C\n";
    for (int i = 0; i < g_iColumns; ++i) {
        sHeader.append("C").append(std::to_string(i)).append(".M :\n");
    }
    const QByteArray qBytes = table(sHeader + "~A\n", state.range(0), ' ', false);
    ImportResult result;
    for (auto _ : state) {
        result = gkHost::LasImporter::readBytes(qBytes, QStringLiteral("a.las"));
        benchmark::DoNotOptimize(result.m_vTables.data());
    }
    count(state, qBytes, result);
}

} // namespace

BENCHMARK(readCsvNumbers)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(readCsvWithText)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(readLas)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
