#include "ImportOptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

namespace gkHost {

namespace {

using Choices = QList<std::pair<QString, QVariant>>;

/// A combo box whose first entry, with an invalid value, leaves the matter to detection.
QComboBox* newChoice(const Choices& choices, QWidget* pqParent)
{
    auto* pqBox = new QComboBox(pqParent);
    pqBox->addItem(ImportOptionsDialog::tr("Detect"));
    for (const auto& [sText, qValue] : choices)
        pqBox->addItem(sText, qValue);
    return pqBox;
}

QVariant character(char cCharacter)
{
    return static_cast<int>(cCharacter);
}

std::optional<char> characterOf(const QComboBox* pqBox)
{
    const QVariant qValue = pqBox->currentData();
    return qValue.isValid() ? std::optional<char>(static_cast<char>(qValue.toInt())) : std::nullopt;
}

std::optional<bool> flagOf(const QComboBox* pqBox)
{
    const QVariant qValue = pqBox->currentData();
    return qValue.isValid() ? std::optional<bool>(qValue.toBool()) : std::nullopt;
}

} // namespace

ImportOptionsDialog::ImportOptionsDialog(QWidget* pqParent)
    : QDialog(pqParent)
    , m_pqMissing(new QLineEdit(this))
    , m_pqDetectMissing(new QCheckBox(tr("Read repeated values such as -999.25 as empty"), this))
{
    setWindowTitle(tr("Import Options"));
    m_pqEncoding = newChoice({{tr("UTF-8"), static_cast<int>(TextEncoding::Utf8)},
                              {tr("Latin-1 (Windows-1252)"), static_cast<int>(TextEncoding::Windows1252)},
                              {tr("UTF-16, little endian"), static_cast<int>(TextEncoding::Utf16LittleEndian)},
                              {tr("UTF-16, big endian"), static_cast<int>(TextEncoding::Utf16BigEndian)}},
                             this);
    m_pqDelimiter = newChoice({{tr("Comma"), character(',')},
                               {tr("Semicolon"), character(';')},
                               {tr("Tab"), character('\t')},
                               {tr("Vertical bar"), character('|')},
                               {tr("Blanks"), character(' ')}},
                              this);
    m_pqDecimalMark = newChoice({{tr("Point (1.5)"), character('.')}, {tr("Comma (1,5)"), character(',')}}, this);
    m_pqHeaderLine = newChoice({{tr("Yes"), true}, {tr("No"), false}}, this);
    m_pqUnitsLine = newChoice({{tr("Yes"), true}, {tr("No"), false}}, this);
    m_pqMissing->setPlaceholderText(tr("for example -999.25 none"));
    m_pqMissing->setToolTip(tr("Numbers and words, with blanks between, that mark an empty cell"));
    m_pqDetectMissing->setChecked(ImportOptions().m_bDetectMissingNumbers);

    auto* pqButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(pqButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pqButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* pqLayout = new QFormLayout(this);
    pqLayout->addRow(tr("&Encoding:"), m_pqEncoding);
    pqLayout->addRow(tr("&Delimiter:"), m_pqDelimiter);
    pqLayout->addRow(tr("De&cimal mark:"), m_pqDecimalMark);
    pqLayout->addRow(tr("&Header line:"), m_pqHeaderLine);
    pqLayout->addRow(tr("&Units line:"), m_pqUnitsLine);
    pqLayout->addRow(tr("&Missing marks:"), m_pqMissing);
    pqLayout->addRow(m_pqDetectMissing);
    pqLayout->addRow(pqButtons);
}

ImportOptions ImportOptionsDialog::options() const
{
    ImportOptions options;
    const QVariant qEncoding = m_pqEncoding->currentData();
    if (qEncoding.isValid())
        options.m_eEncoding = static_cast<TextEncoding>(qEncoding.toInt());
    options.m_oDelimiter = characterOf(m_pqDelimiter);
    options.m_oDecimalMark = characterOf(m_pqDecimalMark);
    options.m_oHeaderLine = flagOf(m_pqHeaderLine);
    options.m_oUnitsLine = flagOf(m_pqUnitsLine);
    for (const QString& sMark : m_pqMissing->text().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        bool bNumber = false;
        const double dNumber = sMark.toDouble(&bNumber);
        if (bNumber)
            options.m_vdMissingNumbers.push_back(dNumber);
        else
            options.m_lMissingTexts << sMark;
    }
    options.m_bDetectMissingNumbers = m_pqDetectMissing->isChecked();
    return options;
}

} // namespace gkHost
