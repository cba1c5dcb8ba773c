#include "ScatDialogs.h"

#include "QScatDepthPlotWidget.h"

#include <QFileDialog>
#include <QPointer>

namespace gkBase {

namespace {

/// Runs a dialog that may be destroyed with its parent while it is open; empty then and when it was cancelled.
QStringList chosenFiles(QFileDialog* pqNewDialog)
{
    const QPointer<QFileDialog> pqDialog(pqNewDialog);
    const bool bAccepted = pqDialog->exec() == QDialog::Accepted;
    if (!pqDialog)
        return {};
    QStringList lFiles = bAccepted ? pqDialog->selectedFiles() : QStringList();
    delete pqDialog;
    return lFiles;
}

ScatDialogs::Answer showBox(QMessageBox::Icon eIcon, QWidget* pqParent, const QString& sTitle, const QString& sText,
                            QMessageBox::StandardButtons eButtons)
{
    const QPointer<QMessageBox> pqBox = new QMessageBox(eIcon, sTitle, sText, eButtons, pqParent);
    pqBox->setTextFormat(Qt::PlainText); // names come from files
    const int iAnswer = pqBox->exec();
    delete pqBox;
    return static_cast<ScatDialogs::Answer>(iAnswer);
}

QString saveFile(QWidget* pqParent, const QString& sDirectory, const QString& sProposedName)
{
    auto* pqDialog = new QFileDialog(pqParent, QScatDepthPlotWidget::tr("Save"), sDirectory,
                                     QScatDepthPlotWidget::tr("Ascii (*.txt)"));
    pqDialog->setAcceptMode(QFileDialog::AcceptSave);
    pqDialog->setFileMode(QFileDialog::AnyFile);
    pqDialog->setDefaultSuffix(QStringLiteral("txt"));
    // To a name with a dot the dialog adds no suffix.
    pqDialog->selectFile(sProposedName.contains(QLatin1Char('.')) ? sProposedName + QStringLiteral(".txt")
                                                                  : sProposedName);
    return chosenFiles(pqDialog).value(0);
}

QStringList openFiles(QWidget* pqParent, const QString& sDirectory)
{
    auto* pqDialog = new QFileDialog(pqParent, QScatDepthPlotWidget::tr("Import Scenario"), sDirectory,
                                     QScatDepthPlotWidget::tr("File (*.txt)"));
    pqDialog->setAcceptMode(QFileDialog::AcceptOpen);
    pqDialog->setFileMode(QFileDialog::ExistingFiles);
    return chosenFiles(pqDialog);
}

} // namespace

ScatDialogs ScatDialogs::standard()
{
    return {[](QWidget* pqParent, const QString& sTitle, const QString& sText) {
                return showBox(QMessageBox::Question, pqParent, sTitle, sText,
                               QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            },
            [](QWidget* pqParent, const QString& sTitle, const QString& sText) {
                showBox(QMessageBox::Warning, pqParent, sTitle, sText, QMessageBox::Ok);
            },
            saveFile, openFiles};
}

} // namespace gkBase
