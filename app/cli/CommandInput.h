#pragma once

#include "Command.h"
#include "DataFile.h"

#include <gkBase/MatrixData.h>
#include <gkBase/UnitRegistry.h>

#include <QCommandLineParser>

#include <memory>
#include <optional>
#include <vector>

namespace gkHost {

/// The arguments that all commands share, FILE, --rows and --where, and the data sets that they name.
class CommandInput
{
public:
    CommandInput();
    ~CommandInput();
    CommandInput(const CommandInput&) = delete;
    CommandInput& operator=(const CommandInput&) = delete;

    /// A command adds its own options before parse().
    QCommandLineParser& parser() { return m_parser; }
    /// lArguments begins with the name of the command. A result when the command ends here: bad usage, bad input, or
    /// help was asked for.
    std::optional<CommandResult> parse(const QStringList& lArguments);
    /// Reads FILE and keeps the records that --rows and --where name.
    std::optional<CommandResult> load();

    gkBase::MatrixData& root() { return *m_poRoot; }
    const ImportReport& report() const { return m_file.m_oReport; }
    QString filePath() const { return m_sFile; }

    bool isSet(const QString& sOption) const { return m_parser.isSet(sOption); }
    QString value(const QString& sOption) const { return m_parser.value(sOption); }
    /// The attributes that an option lists, separated by commas.
    QStringList names(const QString& sOption) const;
    /// The value of an option that must be given; a message when it is not.
    std::optional<CommandResult> require(const QString& sOption) const;
    /// The same for several options: a message about the first one that is missing.
    std::optional<CommandResult> require(const QStringList& lOptions) const;
    /// A number of an option; empty when the option is absent. oError gets a message for anything else.
    std::optional<double> number(const QString& sOption, std::optional<CommandResult>& oError) const;
    /// The same for a number above 0, and for a whole one above 0.
    std::optional<double> positiveNumber(const QString& sOption, std::optional<CommandResult>& oError) const;
    std::optional<int> wholeNumber(const QString& sOption, std::optional<CommandResult>& oError) const;
    /// The index of the word that an option holds among its choices, 0 when it is absent; −1 with a message for any
    /// other word.
    int choice(const QString& sOption, const QStringList& lChoices, std::optional<CommandResult>& oError) const;

    /// The attribute NAME, exact case before any case, of the first data set that has it, or "DATA SET: NAME"; null
    /// with a message naming what there is.
    gkBase::MatrixData* attribute(const QString& sName, std::optional<CommandResult>& oError) const;
    /// As attribute(), but of numbers.
    gkBase::MatrixData* numericAttribute(const QString& sName, std::optional<CommandResult>& oError) const;
    /// Attributes of numbers whose records belong together: those of the first data set that has them all, else of
    /// data sets with equally many records. Empty, with a message, when there are none.
    std::vector<gkBase::MatrixData*> numericAttributes(const QStringList& lNames,
                                                       std::optional<CommandResult>& oError) const;

private:
    /// The message about an attribute of something else, with the first record that shows it.
    CommandResult noNumbers(const gkBase::MatrixData& attribute) const;
    QString helpText(const QString& sCommand) const;

    QCommandLineParser m_parser;
    QString m_sFile;
    gkBase::UnitRegistry m_registry;
    DataFile m_file;
    std::unique_ptr<gkBase::MatrixData> m_poRoot;
};

} // namespace gkHost
