#pragma once

#include "OrientationRecognizer.h"

#include <QDialog>

#include <vector>

class QTableWidget;

namespace gkHost {

/// Shows the orientations found in a table, each with its columns and the conventions they may follow, for the user
/// to confirm, change or drop.
class OrientationDialog : public QDialog
{
    Q_OBJECT
public:
    OrientationDialog(const ImportTable& table, const std::vector<OrientationProposal>& vProposals,
                      QWidget* pqParent = nullptr);

    /// The ticked proposals with the chosen conventions.
    std::vector<OrientationProposal> chosen() const;

    /// Runs the dialog; none when the user leaves the columns as they are.
    static std::vector<OrientationProposal>
    choose(const ImportTable& table, const std::vector<OrientationProposal>& vProposals, QWidget* pqParent);

private:
    void addRow(int iRow, const ImportTable& table);

    std::vector<OrientationProposal> m_vProposals;
    QTableWidget* m_pqTable;
};

} // namespace gkHost
