#pragma once

#include "gkBaseToolsExport.h"

#include <QString>
#include <QWidget>

class QPushButton;
class QTextDocument;
class QTextEdit;

namespace gkBase {

/// The report "Summary of the Statistical Investigations of Spherical Data": its owner composes it row by row, the
/// user reads it, copies it and saves it as HTML.
class GKBASETOOLS_EXPORT QDataStatisticSummary : public QWidget
{
    Q_OBJECT
public:
    explicit QDataStatisticSummary(QWidget* pqParent = nullptr);
    ~QDataStatisticSummary() override;

    /// A report is built by newDocument(), any number of tables, and updateDocument(), which shows it. Names, titles,
    /// labels and values are plain texts: what HTML would read as its own is escaped, line breaks are kept.
    void newDocument(const QString& observationName);
    void newTable(const QString& title);
    void appendRow(const QString& label, const QString& value);
    void endTable();
    void updateDocument();

    /// The report shown, as a whole HTML file in UTF-8; empty before the first one.
    QString html() const;
    /// Writes html() to a file, which is replaced as a whole or, on failure, left alone; the reason goes into psError
    /// (may be null) as a sentence for the user.
    bool saveAsHtml(const QString& sPath, QString* psError) const;
    QTextEdit* textEdit() const { return m_pqTextEdit; }

public slots:
    /// The selected part, or the whole report without a selection: as HTML and as plain text.
    void copyToClipboard();

private:
    void createControls();
    void slotSaveAsHtml();

    QString m_sText; ///< of the report being built
    QString m_sPlainText;
    QString m_sShown; ///< of the report shown
    QString m_sShownPlainText;
    QString m_sName; ///< of its data
    /// Beginnings of paragraphs: green (no text of the report has it), black and red.
    const QString m_sGreenStyle;
    const QString m_sTitleStyle;
    const QString m_sObservationStyle;
    QTextEdit* m_pqTextEdit;
    QTextDocument* m_pqDocument;
    QPushButton* m_pqCopyBtn;
    QPushButton* m_pqSaveBtn;
};

} // namespace gkBase
