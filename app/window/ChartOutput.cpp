#include "ChartOutput.h"

#include "ExportChartDialog.h"

#include <gkBase/ChartExporter.h>

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace gkHost::ChartOutput {

namespace {

QString tr(const char* pcText)
{
    return QCoreApplication::translate("ChartOutput", pcText);
}

} // namespace

QString withExtension(const QString& sPath, const QString& sExtension)
{
    return sPath.isEmpty() || !QFileInfo(sPath).suffix().isEmpty() ? sPath : sPath + QLatin1Char('.') + sExtension;
}

QString write(QWidget* pqParent, const QString& sStart,
              const std::function<bool(const QString&, const QSize&, QString*)>& fnWrite)
{
    ExportChartDialog dialog(pqParent);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString sFilters = gkBase::ChartExporter::nameFilters().join(QLatin1String(";;"));
    QString sPath = withExtension(QFileDialog::getSaveFileName(pqParent, tr("Export Chart"), sStart, sFilters),
                                  QStringLiteral("png"));
    if (sPath.isEmpty())
        return {};
    QString sError;
    if (fnWrite(sPath, dialog.chartSize(), &sError))
        return sPath;
    QMessageBox::warning(pqParent, tr("Export Chart"), sError);
    return {};
}

void print(QWidget* pqParent, const QString& sName, const std::function<void(QPrinter&)>& fnPrint)
{
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(sName);
    QPrintPreviewDialog dialog(&printer, pqParent);
    dialog.setWindowTitle(tr("Print Chart"));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, pqParent,
                     [&fnPrint](QPrinter* pPrinter) { fnPrint(*pPrinter); });
    dialog.exec();
    if (printer.printerState() == QPrinter::Error)
        QMessageBox::warning(pqParent, tr("Print Chart"), tr("The printer does not take the chart."));
}

} // namespace gkHost::ChartOutput
