#pragma once

#include "DepthLineField.h"
#include "gkBaseToolsExport.h"

#include <QColor>
#include <QObject>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QUndoGroup>

#include <array>
#include <functional>
#include <memory>
#include <vector>

class QUndoStack;

namespace gkBase {

class QRelationshipItemModel;

/// The interpretations of a well: named scenarios of lines, one of them active, held alike by the models of the four
/// tracks. Every edit is made in all four at once and can be undone; each scenario has a history of its own. A scenario
/// is modified while its lines differ from those in its file.
///
/// Scenarios are told apart by their index, because names may repeat. Without a scenario edits do nothing.
class GKBASETOOLS_EXPORT ScatScenarios : public QObject
{
    Q_OBJECT
public:
    static constexpr int s_iTracks = 4;
    /// Dip, azimuth, transverse dip, longitudinal dip. Not owned; they must outlive the scenarios.
    using Models = std::array<QRelationshipItemModel*, s_iTracks>;
    using Line = DepthLineField::Line;

    /// The models must have no scenarios yet, and each its own lines.
    explicit ScatScenarios(const Models& vpModels, QObject* pqParent = nullptr);
    ~ScatScenarios() override;

    // ---- scenarios -----------------------------------------------------------------------------------------------
    int count() const { return static_cast<int>(m_vStacks.size()); }
    int active() const; ///< −1 without one
    QStringList names() const;
    QString name(int iScenario) const; ///< empty for one that does not exist
    bool isModified(int iScenario) const;
    /// The lines of the active scenario, which are the same in all tracks; null without one.
    const DepthLineField* lines() const;
    /// The fields of a scenario, one per track, for how they are shown; empty for one that does not exist.
    std::vector<DepthLineField*> fields(int iScenario) const;

    /// Adds an empty scenario, which becomes the active one, and returns its index.
    int add(const QString& sName);
    /// The same with the name "Scenario_" and the number of scenarios that exist already.
    int addNew();
    void setActive(int iScenario);
    void rename(int iScenario, const QString& sName);
    /// Forgets the active scenario; asks nobody.
    void closeActive();
    /// Writes the lines of a scenario, which is then unmodified. On failure false with the reason in psError (may be
    /// null).
    bool save(int iScenario, const QString& sPath, QString* psError = nullptr);
    /// Adds a scenario with the lines of a file, named after the file, and returns its index; −1 with the reason in
    /// psError (may be null) when the file cannot be read.
    int import(const QString& sPath, QString* psError = nullptr);

    // ---- edits of the active scenario ----------------------------------------------------------------------------
    /// Adds a line and picks it alone. Makes the first scenario when there is none. False when there is such a line
    /// within the tolerance, or the depth is missing.
    bool insert(DepthLineField::DataType eType, const QPointF& oXAndDepth, const QString& sName, const QColor& oColor,
                double dTolerance);
    /// Picks these lines, with bAdd beside those that are picked.
    void pick(const std::vector<int>& viLines, bool bAdd);
    void deselectAll() { pick({}, false); }
    /// Moves the picked lines. All steps up to endMove(), or up to whatever else is done, are one edit: an undo in the
    /// middle takes them all back, and nudges by keyboard need no end of their own.
    void move(const QPointF& oStep);
    void endMove();
    /// Puts the lines back to where the move began, as if it had not been.
    void cancelMove();
    /// These change the picked lines.
    void erasePicked();
    void setPickedColor(const QColor& oColor);
    void setPickedName(const QString& sName);
    /// (dip, dip azimuth) in degrees; (−1, −1) takes it away.
    void setPickedOrientation(const QPointF& oDipAndAzimuth);
    /// Changes one line, as an edit with that text. The line keeps its number. Nothing for a line that does not exist
    /// or a missing depth.
    void setLine(int iLine, const Line& line, const QString& sUndoText);
    void clearAll();

    /// Follows the active scenario; gives undo and redo actions.
    QUndoGroup* undoGroup() { return &m_oUndoGroup; }

signals:
    /// A scenario came, went or has another name.
    void scenariosChanged();
    /// Another scenario is active, or none.
    void activeChanged();
    /// Lines of the active scenario changed, came or went; with undo and redo others may be picked, too.
    void linesChanged();
    /// Others are picked.
    void pickChanged();
    /// A scenario differs from its file now, or no longer.
    void modifiedChanged();

private:
    class LinesCommand;

    using Edit = std::function<void(DepthLineField&)>;

    /// Applies an edit to the fields of the active scenario and remembers it for undo. Nothing without a change.
    void edit(const QString& sUndoText, const Edit& fnEdit);
    /// Puts an edit of the active scenario that was made into its history, which keeps the command.
    LinesCommand* remember(const QString& sUndoText, std::vector<Line> vBefore);
    /// Gives the scenario of a history these lines, and returns those that it had.
    std::vector<Line> exchangeLines(const QUndoStack* pStack, const std::vector<Line>& vLines);
    /// Changes what is no edit (picks, names of scenarios) in the fields of one scenario.
    void forFields(int iScenario, const Edit& fnEdit);
    int indexOf(const QUndoStack* pStack) const;
    void appendStack();
    void syncModified(const QUndoStack* pStack);

    Models m_vpModels;
    std::vector<std::unique_ptr<QUndoStack>> m_vStacks; ///< one per scenario
    QUndoGroup m_oUndoGroup;
    LinesCommand* m_pMove = nullptr; ///< not owned; the last one of the active history while a move goes on
};

} // namespace gkBase
