#include "CommandInput.h"

#include "AttributeName.h"
#include "CommandText.h"
#include "RecordFilter.h"

#include <gkBase/MissingValue.h>

#include <algorithm>
#include <cmath>

namespace gkHost {

namespace {

bool isNumeric(const gkBase::MatrixData& attribute)
{
    return attribute.type() == QMetaType::Double || attribute.type() == QMetaType::Int ||
           attribute.type() == QMetaType::Bool;
}

} // namespace

CommandInput::CommandInput()
    : m_poRoot(std::make_unique<gkBase::MatrixData>(QStringLiteral("Data")))
{
    m_poRoot->setRegistry(&m_registry);
    m_parser.addPositionalArgument(QStringLiteral("FILE"), text("The data file: CSV, other delimited text, or LAS."));
    m_parser.addOptions({{QStringLiteral("rows"), text("Only these records, counted from 1."), QStringLiteral("1,4-9")},
                         {QStringLiteral("where"), text("Only records with this value; may be repeated."),
                          QStringLiteral("NAME=VALUE")}});
    m_parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, text("Print this help.")});
}

CommandInput::~CommandInput() = default;

std::optional<CommandResult> CommandInput::parse(const QStringList& lArguments)
{
    const QString sCommand = lArguments.value(0);
    if (!m_parser.parse(lArguments))
        return CommandResult::badUsage(sCommand + QLatin1String(": ") + m_parser.errorText());
    if (m_parser.isSet(QStringLiteral("help")))
        return CommandResult::ok(helpText(sCommand));
    if (m_parser.positionalArguments().size() != 1)
        return CommandResult::badUsage(text("%1: give one FILE").arg(sCommand));
    m_sFile = m_parser.positionalArguments().constFirst();
    return std::nullopt;
}

QString CommandInput::helpText(const QString& sCommand) const
{
    // The parser does not know that a command stands before its options.
    QString sHelp = m_parser.helpText();
    sHelp.replace(0, sHelp.indexOf(QLatin1Char('\n')), text("Usage: gkanalyser %1 FILE [options]").arg(sCommand));
    return sHelp;
}

std::optional<CommandResult> CommandInput::load()
{
    RecordFilter filter;
    QString sError;
    if (isSet(QStringLiteral("rows")) && !filter.setRows(value(QStringLiteral("rows")), sError))
        return CommandResult::badUsage(sError);
    for (const QString& sCondition : m_parser.values(QStringLiteral("where")))
        if (!filter.addCondition(sCondition, sError))
            return CommandResult::badUsage(sError);

    m_file = readDataFile(m_sFile, m_registry);
    if (!m_file.isOk())
        return CommandResult::badInput(m_file.m_sError);
    if (!filter.apply(m_file.m_vDataSets, sError))
        return CommandResult::badInput(m_sFile + QLatin1String(": ") + sError);
    for (std::unique_ptr<gkBase::MatrixData>& poDataSet : m_file.m_vDataSets)
        m_poRoot->appendChild(poDataSet.release(), false);
    return std::nullopt;
}

std::optional<CommandResult> CommandInput::require(const QString& sOption) const
{
    if (isSet(sOption) && !value(sOption).isEmpty())
        return std::nullopt;
    return CommandResult::badUsage(text("--%1 is missing").arg(sOption));
}

std::optional<CommandResult> CommandInput::require(const QStringList& lOptions) const
{
    for (const QString& sOption : lOptions) {
        if (auto oMissing = require(sOption)) {
            return oMissing;
        }
    }
    return std::nullopt;
}

QStringList CommandInput::names(const QString& sOption) const
{
    QStringList lNames;
    for (const QString& sName : value(sOption).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        lNames << sName.trimmed();
    }
    return lNames;
}

std::optional<double> CommandInput::number(const QString& sOption, std::optional<CommandResult>& oError) const
{
    if (!isSet(sOption)) {
        return std::nullopt;
    }
    bool bOk = false;
    const double dValue = value(sOption).toDouble(&bOk);
    if (bOk && !gkBase::isMissing(dValue)) {
        return dValue;
    }
    oError = CommandResult::badUsage(text("--%1: \"%2\" is no number").arg(sOption, value(sOption)));
    return std::nullopt;
}

std::optional<int> CommandInput::wholeNumber(const QString& sOption, std::optional<CommandResult>& oError) const
{
    if (!isSet(sOption)) {
        return std::nullopt;
    }
    bool bOk = false;
    const int iValue = value(sOption).toInt(&bOk);
    if (bOk && iValue > 0) {
        return iValue;
    }
    oError = CommandResult::badUsage(text("--%1: \"%2\" is no whole number above 0").arg(sOption, value(sOption)));
    return std::nullopt;
}

std::optional<double> CommandInput::positiveNumber(const QString& sOption, std::optional<CommandResult>& oError) const
{
    if (!isSet(sOption))
        return std::nullopt;
    bool bOk = false;
    const double dValue = value(sOption).toDouble(&bOk);
    if (bOk && std::isfinite(dValue) && dValue > 0.0)
        return dValue;
    oError = CommandResult::badUsage(text("--%1: \"%2\" is no number above 0").arg(sOption, value(sOption)));
    return std::nullopt;
}

int CommandInput::choice(const QString& sOption, const QStringList& lChoices,
                         std::optional<CommandResult>& oError) const
{
    if (!isSet(sOption)) {
        return 0;
    }
    const qsizetype i = lChoices.indexOf(value(sOption));
    if (i < 0) {
        oError = CommandResult::badUsage(
            text("--%1: \"%2\" is none of %3").arg(sOption, value(sOption), lChoices.join(QLatin1String(", "))));
    }
    return static_cast<int>(i);
}

gkBase::MatrixData* CommandInput::attribute(const QString& sName, std::optional<CommandResult>& oError) const
{
    gkBase::MatrixData* poFound = nullptr;
    QStringList lNames;
    const bool bSeveral = m_poRoot->childCount() > 1;
    for (int iSet = 0; iSet < m_poRoot->childCount(); ++iSet) {
        const gkBase::MatrixData& dataSet = *m_poRoot->child(iSet);
        gkBase::MatrixData* poAttribute = attributeNamed(dataSet, sName);
        // The first data set has it, but an exact name in a later one goes before another case in an earlier one.
        if (poAttribute && (!poFound || (poFound->name() != sName && poAttribute->name() == sName)))
            poFound = poAttribute;
        for (int i = 0; i < dataSet.childCount(); ++i)
            lNames << (bSeveral ? dataSet.name() + QLatin1String(": ") : QString()) + dataSet.child(i)->name();
    }
    if (poFound)
        return poFound;
    oError = CommandResult::badInput(
        text("%1: there is no attribute \"%2\"; there are %3").arg(m_sFile, sName, lNames.join(QLatin1String(", "))));
    return nullptr;
}

gkBase::MatrixData* CommandInput::numericAttribute(const QString& sName, std::optional<CommandResult>& oError) const
{
    gkBase::MatrixData* poAttribute = attribute(sName, oError);
    if (!poAttribute || isNumeric(*poAttribute))
        return poAttribute;
    oError = noNumbers(*poAttribute);
    return nullptr;
}

CommandResult CommandInput::noNumbers(const gkBase::MatrixData& attribute) const
{
    const gkBase::MatrixColumn& column = attribute.column();
    for (int i = 0; i < column.size(); ++i) {
        bool bNumber = false;
        column.text(i).toDouble(&bNumber);
        if (!bNumber && !column.text(i).isEmpty()) {
            return CommandResult::badInput(text("%1: the attribute \"%2\" holds no numbers: record %3 is \"%4\"")
                                               .arg(m_sFile, attribute.name(), QString::number(i + 1), column.text(i)));
        }
    }
    return CommandResult::badInput(text("%1: the attribute \"%2\" holds no numbers").arg(m_sFile, attribute.name()));
}

std::vector<gkBase::MatrixData*> CommandInput::numericAttributes(const QStringList& lNames,
                                                                 std::optional<CommandResult>& oError) const
{
    std::vector<gkBase::MatrixData*> vpAttributes;
    for (int iSet = 0; iSet < m_poRoot->childCount() && vpAttributes.empty(); ++iSet) {
        for (const QString& sName : lNames) {
            vpAttributes.push_back(attributeNamed(*m_poRoot->child(iSet), sName));
        }
        if (std::find(vpAttributes.begin(), vpAttributes.end(), nullptr) != vpAttributes.end()) {
            vpAttributes.clear();
        }
    }
    for (qsizetype i = static_cast<qsizetype>(vpAttributes.size()); i < lNames.size() && !oError; ++i) {
        vpAttributes.push_back(attribute(lNames[i], oError));
    }
    for (std::size_t i = 0; i < vpAttributes.size() && !oError; ++i) {
        if (!isNumeric(*vpAttributes[i])) {
            oError = noNumbers(*vpAttributes[i]);
        } else if (vpAttributes[i]->recordCount() != vpAttributes.front()->recordCount()) {
            oError = CommandResult::badInput(text("%1: \"%2\" and \"%3\" belong to data sets of different length")
                                                 .arg(m_sFile, lNames.front(), lNames[static_cast<qsizetype>(i)]));
        }
    }
    return oError ? std::vector<gkBase::MatrixData*>() : vpAttributes;
}

} // namespace gkHost
