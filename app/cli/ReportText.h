#pragma once

#include <QJsonValue>
#include <QString>

namespace gkHost {

/// Null for a missing value.
QJsonValue numberToJson(double dValue);

/// Ten digits; "---" for a missing value.
QString shownNumber(double dValue);

/// A report of a command for people: a title, and lines of a name and a value.
class ReportText
{
public:
    explicit ReportText(const QString& sTitle);

    void addHeading(const QString& sHeading);
    void addLine(const QString& sName, const QString& sValue);
    /// A remark that stands out.
    void addNote(const QString& sNote);
    /// A line as it is, indented.
    void addRow(const QString& sRow);
    const QString& toString() const { return m_sText; }

private:
    QString m_sText;
};

} // namespace gkHost
