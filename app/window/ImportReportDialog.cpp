#include "ImportReportDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace gkHost {

ImportReportDialog::ImportReportDialog(const std::vector<ImportReport>& vReports, QWidget* pqParent)
    : QDialog(pqParent)
    , m_vReports(vReports.rbegin(), vReports.rend())
    , m_pqFiles(new QComboBox(this))
    , m_pqText(new QPlainTextEdit(this))
{
    setWindowTitle(tr("Import Report"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_pqFiles->setAccessibleName(tr("File"));
    for (const ImportReport& report : m_vReports)
        m_pqFiles->addItem(QFileInfo(report.file()).fileName());
    m_pqText->setAccessibleName(tr("Report"));
    m_pqText->setReadOnly(true);
    m_pqText->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    m_pqText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    auto* pqButtons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* pqSave = pqButtons->addButton(tr("Save As…"), QDialogButtonBox::ActionRole);
    pqSave->setEnabled(!m_vReports.empty());
    connect(pqSave, &QPushButton::clicked, this, &ImportReportDialog::save);
    connect(pqButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const auto showReport = [this](int i) {
        m_pqText->setPlainText(i < 0 ? QString() : m_vReports[static_cast<std::size_t>(i)].toText());
    };
    connect(m_pqFiles, &QComboBox::currentIndexChanged, this, showReport);
    showReport(m_pqFiles->currentIndex());

    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(m_pqFiles);
    pqLayout->addWidget(m_pqText, 1);
    pqLayout->addWidget(pqButtons);
    resize(720, 480);
}

void ImportReportDialog::save()
{
    const ImportReport& report = m_vReports[static_cast<std::size_t>(m_pqFiles->currentIndex())];
    const QString sPath =
        QFileDialog::getSaveFileName(this, tr("Save Import Report"), report.file() + QStringLiteral(".report.txt"),
                                     tr("Text (*.txt);;All files (*)"));
    QString sError;
    if (!sPath.isEmpty() && !report.save(sPath, &sError))
        QMessageBox::warning(this, windowTitle(), sError);
}

} // namespace gkHost
