#include "QDataStatisticSummary.h"

#include "FileCommit.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QMimeData>
#include <QPalette>
#include <QPointer>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

#include <memory>

namespace gkBase {

namespace {

/// A plain text as HTML shows it.
QString escaped(const QString& sText)
{
    return sText.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
}

/// A plain text in one line.
QString oneLine(QString sText)
{
    return sText.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

} // namespace

QDataStatisticSummary::QDataStatisticSummary(QWidget* pqParent)
    : QWidget(pqParent)
    , m_sGreenStyle(QStringLiteral("<p style=\"font-family:arial;font-size:150%;color:green\">"))
    , m_sTitleStyle(QStringLiteral("<p style=\"font-family:arial;font-size:150%;color:black\">"))
    , m_sObservationStyle(QStringLiteral("<p style=\"font-family:arial;font-size:150%;color:red\">"))
    , m_pqTextEdit(new QTextEdit)
    , m_pqDocument(new QTextDocument(this))
    , m_pqCopyBtn(new QPushButton(tr("Copy")))
    , m_pqSaveBtn(new QPushButton(tr("Save as HTML...")))
{
    createControls();
    connect(m_pqCopyBtn, &QPushButton::clicked, this, &QDataStatisticSummary::copyToClipboard);
    connect(m_pqSaveBtn, &QPushButton::clicked, this, &QDataStatisticSummary::slotSaveAsHtml);
}

QDataStatisticSummary::~QDataStatisticSummary() = default;

void QDataStatisticSummary::createControls()
{
    m_pqTextEdit->setObjectName(QStringLiteral("m_pqReportEdit"));
    m_pqTextEdit->setAccessibleName(tr("Report"));
    m_pqTextEdit->setReadOnly(true);
    m_pqTextEdit->setTabChangesFocus(true);
    m_pqTextEdit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // The report brings its own black texts, which a dark desktop would swallow.
    QPalette oPalette = m_pqTextEdit->palette();
    oPalette.setColor(QPalette::Base, Qt::white);
    oPalette.setColor(QPalette::Text, Qt::black);
    m_pqTextEdit->setPalette(oPalette);
    m_pqTextEdit->setDocument(m_pqDocument);
    m_pqCopyBtn->setObjectName(QStringLiteral("m_pqCopyReportBtn"));
    m_pqCopyBtn->setAccessibleName(tr("Copy Report"));
    m_pqCopyBtn->setToolTip(tr("Copy the selected part, or the whole report without a selection"));
    m_pqSaveBtn->setObjectName(QStringLiteral("m_pqSaveReportBtn"));
    m_pqSaveBtn->setAccessibleName(tr("Save Report as HTML"));
    m_pqSaveBtn->setToolTip(tr("Save the report to a file for browsers and text processors"));
    m_pqCopyBtn->setEnabled(false);
    m_pqSaveBtn->setEnabled(false);

    auto* pqButtons = new QHBoxLayout;
    pqButtons->addWidget(m_pqCopyBtn);
    pqButtons->addWidget(m_pqSaveBtn);
    pqButtons->addStretch(1);
    auto* pqLayout = new QVBoxLayout(this);
    pqLayout->addWidget(m_pqTextEdit, 1);
    pqLayout->addLayout(pqButtons);
}

// ---- composition: the texts go to files as they are, and are not translated ----------------------------------------

void QDataStatisticSummary::newDocument(const QString& observationName)
{
    m_sName = observationName;
    m_sText += m_sTitleStyle +
               QStringLiteral("<u><b>Summary of the Statistical Investigations of Spherical Data</b>:</u></p>");
    m_sText +=
        m_sObservationStyle + QStringLiteral("Observation Data: ") + escaped(observationName) + QStringLiteral("</p>");
    m_sPlainText += QStringLiteral("Summary of the Statistical Investigations of Spherical Data\nObservation Data: ") +
                    oneLine(observationName) + QLatin1Char('\n');
}

void QDataStatisticSummary::newTable(const QString& title)
{
    m_sText += QStringLiteral("<p><u><b> ") + escaped(title) + QStringLiteral("</b>:</u>");
    m_sText += QStringLiteral("<table align=center bgcolor=white border=1 cellpadding=2>");
    m_sPlainText += QLatin1Char('\n') + oneLine(title) + QLatin1Char('\n');
}

void QDataStatisticSummary::appendRow(const QString& label, const QString& value)
{
    // The cell of the value stays open: every reader of HTML closes it at the end of the row.
    m_sText += QStringLiteral("<tr>");
    m_sText += QStringLiteral("<td style=\"font-family:arial;font-size:80%;color:black\">") + escaped(label) +
               QStringLiteral("</td>");
    m_sText += QStringLiteral("<td align=right style=\"font-family:arial;font-size:80%;color:black\">") +
               escaped(value) + QStringLiteral("</tr>");
    m_sPlainText += oneLine(label) + QLatin1Char('\t') + oneLine(value) + QLatin1Char('\n');
}

void QDataStatisticSummary::endTable()
{
    m_sText += QStringLiteral("</table>");
    m_sText += QStringLiteral("<p>");
}

void QDataStatisticSummary::updateDocument()
{
    m_pqDocument->setHtml(m_sText);
    m_pqTextEdit->setDocument(m_pqDocument);
    m_pqTextEdit->verticalScrollBar()->setValue(0);
    // Reports that mark their data with an anchor are shown from there.
    m_pqTextEdit->scrollToAnchor(QStringLiteral("Observation Data"));
    m_sShown = m_sText;
    m_sShownPlainText = m_sPlainText;
    m_sText.clear();
    m_sPlainText.clear();
    m_pqCopyBtn->setEnabled(!m_sShown.isEmpty());
    m_pqSaveBtn->setEnabled(!m_sShown.isEmpty());
}

// ---- copies --------------------------------------------------------------------------------------------------------

QString QDataStatisticSummary::html() const
{
    if (m_sShown.isEmpty())
        return {};
    const QString sHead =
        QStringLiteral("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n"
                       "</head>\n<body>\n");
    // Concatenated: the report may hold what looks like another place marker.
    return sHead.arg(escaped(m_sName)) + m_sShown + QStringLiteral("\n</body>\n</html>\n");
}

void QDataStatisticSummary::copyToClipboard()
{
    if (m_pqTextEdit->textCursor().hasSelection()) {
        m_pqTextEdit->copy();
        return;
    }
    if (m_sShown.isEmpty())
        return;
    auto pqData = std::make_unique<QMimeData>();
    pqData->setHtml(html());
    pqData->setText(m_sShownPlainText);
    QApplication::clipboard()->setMimeData(pqData.release()); // the clipboard takes it over
}

bool QDataStatisticSummary::saveAsHtml(const QString& sPath, QString* psError) const
{
    QSaveFile file(sPath);
    const QByteArray aHtml = html().toUtf8();
    const bool bDone = file.open(QIODevice::WriteOnly) && file.write(aHtml) == aHtml.size() && commitWhole(file);
    if (!bDone && psError)
        *psError = tr("The report could not be written to %1: %2").arg(sPath, file.errorString());
    return bDone;
}

void QDataStatisticSummary::slotSaveAsHtml()
{
    const QPointer<QDataStatisticSummary> guard(this); // the panel may go while a dialog is open
    QString sPath = QFileDialog::getSaveFileName(this, tr("Save Report"), QStringLiteral("report.html"),
                                                 tr("HTML files (*.html *.htm)"));
    if (!guard || sPath.isEmpty())
        return;
    if (QFileInfo(sPath).suffix().isEmpty() && !QFileInfo::exists(sPath + QStringLiteral(".html")))
        sPath += QStringLiteral(".html"); // a file of that name would be replaced unasked
    QString sError;
    if (!saveAsHtml(sPath, &sError))
        QMessageBox::warning(this, tr("Save Report"), sError);
}

} // namespace gkBase
