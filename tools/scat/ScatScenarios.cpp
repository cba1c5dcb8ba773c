#include "ScatScenarios.h"

#include "DepthLineFile.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"

#include <QFileInfo>
#include <QUndoStack>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gkBase {

/// An edit of one scenario, made before the command exists. It holds the lines of the other side of the edit and
/// exchanges them with the scenario's, so that a move can go on while its command lies in the history.
class ScatScenarios::LinesCommand : public QUndoCommand
{
public:
    LinesCommand(ScatScenarios& owner, const QUndoStack* pStack, const QString& sText, std::vector<Line> vBefore)
        : QUndoCommand(sText)
        , m_owner(owner)
        , m_pStack(pStack)
        , m_vOther(std::move(vBefore))
    {
    }

    /// The next undo() is the last: redo() will not bring the edit back.
    void cancel() { m_bCancelled = true; }
    /// Whether lines stand elsewhere than before, but for the rounding of many steps.
    bool hasMoved(const std::vector<Line>& vLines) const
    {
        const auto isNear = [](double a, double b) { return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a)); };
        return !std::equal(vLines.begin(), vLines.end(), m_vOther.begin(), m_vOther.end(),
                           [&isNear](const Line& a, const Line& b) {
                               return isNear(a.m_dDepth, b.m_dDepth) && isNear(a.m_dX, b.m_dX);
                           });
    }

    void undo() override
    {
        m_vOther = m_owner.exchangeLines(m_pStack, m_vOther);
        setObsolete(m_bCancelled);
    }
    void redo() override
    {
        // The stack calls it once when the command is pushed.
        if (std::exchange(m_bPushed, true))
            m_vOther = m_owner.exchangeLines(m_pStack, m_vOther);
    }

private:
    ScatScenarios& m_owner;
    const QUndoStack* m_pStack; ///< not owned; tells the scenario
    std::vector<Line> m_vOther;
    bool m_bPushed = false;
    bool m_bCancelled = false;
};

ScatScenarios::ScatScenarios(const Models& vpModels, QObject* pqParent)
    : QObject(pqParent)
    , m_vpModels(vpModels)
{
}

ScatScenarios::~ScatScenarios()
{
    // A history that goes says that it is clean.
    for (const auto& pStack : m_vStacks)
        pStack->disconnect(this);
}

// ---- scenarios ------------------------------------------------------------------------------------------------------

int ScatScenarios::active() const
{
    return m_vpModels.front()->activeScenario();
}

const DepthLineField* ScatScenarios::lines() const
{
    return m_vpModels.front()->structuralTops();
}

std::vector<DepthLineField*> ScatScenarios::fields(int iScenario) const
{
    std::vector<DepthLineField*> vpFields;
    if (iScenario < 0 || iScenario >= count())
        return vpFields;
    for (const QRelationshipItemModel* pModel : m_vpModels)
        vpFields.push_back(pModel->structuralTopsScenarios()[static_cast<std::size_t>(iScenario)].get());
    return vpFields;
}

QString ScatScenarios::name(int iScenario) const
{
    const std::vector<DepthLineField*> vpFields = fields(iScenario);
    return vpFields.empty() ? QString() : vpFields.front()->name();
}

QStringList ScatScenarios::names() const
{
    QStringList lNames;
    for (int i = 0; i < count(); ++i)
        lNames << name(i);
    return lNames;
}

bool ScatScenarios::isModified(int iScenario) const
{
    return iScenario >= 0 && iScenario < count() && !m_vStacks[static_cast<std::size_t>(iScenario)]->isClean();
}

void ScatScenarios::appendStack()
{
    m_vStacks.push_back(std::make_unique<QUndoStack>());
    QUndoStack* pStack = m_vStacks.back().get();
    m_oUndoGroup.addStack(pStack);
    connect(pStack, &QUndoStack::indexChanged, this, [this, pStack] {
        syncModified(pStack);
        emit linesChanged();
    });
    connect(pStack, &QUndoStack::cleanChanged, this, [this, pStack] {
        syncModified(pStack);
        emit modifiedChanged();
    });
    m_oUndoGroup.setActiveStack(pStack);
}

int ScatScenarios::add(const QString& sName)
{
    endMove();
    for (QRelationshipItemModel* pModel : m_vpModels)
        pModel->addStructuralTopsSenario(sName);
    appendStack();
    emit scenariosChanged();
    emit activeChanged();
    return count() - 1;
}

int ScatScenarios::addNew()
{
    return add(QStringLiteral("Scenario_%1").arg(count()));
}

void ScatScenarios::setActive(int iScenario)
{
    if (iScenario < 0 || iScenario >= count() || iScenario == active())
        return;
    endMove();
    for (QRelationshipItemModel* pModel : m_vpModels)
        pModel->setActiveScenario(iScenario);
    m_oUndoGroup.setActiveStack(m_vStacks[static_cast<std::size_t>(iScenario)].get());
    emit activeChanged();
}

void ScatScenarios::rename(int iScenario, const QString& sName)
{
    if (name(iScenario) == sName)
        return;
    forFields(iScenario, [&sName](DepthLineField& oField) { oField.setName(sName); });
    emit scenariosChanged();
}

void ScatScenarios::closeActive()
{
    const int iScenario = active();
    if (iScenario < 0)
        return;
    endMove();
    for (QRelationshipItemModel* pModel : m_vpModels)
        pModel->eraseActiveStructuralTopsSenario();
    const std::unique_ptr<QUndoStack> pClosed = std::move(m_vStacks[static_cast<std::size_t>(iScenario)]);
    pClosed->disconnect(this);
    m_vStacks.erase(m_vStacks.begin() + iScenario);
    m_oUndoGroup.setActiveStack(active() < 0 ? nullptr : m_vStacks[static_cast<std::size_t>(active())].get());
    emit scenariosChanged();
    emit activeChanged();
}

bool ScatScenarios::save(int iScenario, const QString& sPath, QString* psError)
{
    const std::vector<DepthLineField*> vpFields = fields(iScenario);
    if (vpFields.empty())
        return false;
    endMove();
    if (!writeDepthLineFile(*vpFields.front(), sPath, psError))
        return false;
    m_vStacks[static_cast<std::size_t>(iScenario)]->setClean();
    return true;
}

int ScatScenarios::import(const QString& sPath, QString* psError)
{
    DepthLineField field;
    if (!readDepthLineFile(sPath, field, psError))
        return -1;
    const int iScenario = add(QFileInfo(sPath).completeBaseName());
    const std::vector<Line> vLines = field.lines();
    forFields(iScenario, [&vLines](DepthLineField& oField) { oField.setLines(vLines); });
    syncModified(m_vStacks.back().get()); // what was read is no change
    emit linesChanged();
    return iScenario;
}

void ScatScenarios::syncModified(const QUndoStack* pStack)
{
    const bool bModified = !pStack->isClean();
    forFields(indexOf(pStack), [bModified](DepthLineField& oField) { oField.setModified(bModified); });
}

// ---- edits ----------------------------------------------------------------------------------------------------------

int ScatScenarios::indexOf(const QUndoStack* pStack) const
{
    const auto it = std::find_if(m_vStacks.begin(), m_vStacks.end(),
                                 [pStack](const auto& pOther) { return pOther.get() == pStack; });
    return it == m_vStacks.end() ? -1 : static_cast<int>(it - m_vStacks.begin());
}

void ScatScenarios::forFields(int iScenario, const Edit& fnEdit)
{
    for (DepthLineField* pField : fields(iScenario))
        fnEdit(*pField);
}

std::vector<ScatScenarios::Line> ScatScenarios::exchangeLines(const QUndoStack* pStack, const std::vector<Line>& vLines)
{
    m_pMove = nullptr;
    const std::vector<DepthLineField*> vpFields = fields(indexOf(pStack));
    std::vector<Line> vOld = vpFields.front()->lines();
    for (DepthLineField* pField : vpFields)
        pField->setLines(vLines);
    return vOld;
}

ScatScenarios::LinesCommand* ScatScenarios::remember(const QString& sUndoText, std::vector<Line> vBefore)
{
    QUndoStack* pStack = m_vStacks[static_cast<std::size_t>(active())].get();
    auto* pCommand = new LinesCommand(*this, pStack, sUndoText, std::move(vBefore));
    pStack->push(pCommand);
    return pCommand;
}

void ScatScenarios::edit(const QString& sUndoText, const Edit& fnEdit)
{
    if (!lines())
        return;
    endMove();
    std::vector<Line> vBefore = lines()->lines();
    forFields(active(), fnEdit);
    if (vBefore != lines()->lines())
        remember(sUndoText, std::move(vBefore));
}

bool ScatScenarios::insert(DepthLineField::DataType eType, const QPointF& oXAndDepth, const QString& sName,
                           const QColor& oColor, double dTolerance)
{
    if (isMissing(oXAndDepth.y()))
        return false;
    if (active() < 0)
        addNew();
    bool bInserted = false;
    edit(tr("Insert %1").arg(DepthLineField::type(eType)), [&](DepthLineField& oField) {
        const int iLine = oField.insertHorizontalLine(oXAndDepth.y(), oXAndDepth.x(), sName, oColor, eType,
                                                      QPointF(-1.0, -1.0), -1, dTolerance);
        bInserted = iLine >= 0;
        if (!bInserted)
            return;
        oField.deselectAll();
        oField.setSelected(iLine, true);
    });
    return bInserted;
}

void ScatScenarios::pick(const std::vector<int>& viLines, bool bAdd)
{
    if (!lines())
        return;
    endMove();
    const std::vector<int> viBefore = lines()->selectedLines();
    forFields(active(), [&](DepthLineField& oField) {
        if (!bAdd)
            oField.deselectAll();
        oField.setSelected(viLines);
    });
    if (viBefore != lines()->selectedLines())
        emit pickChanged();
}

void ScatScenarios::move(const QPointF& oStep)
{
    if (!lines() || !lines()->isSomethingSelected())
        return;
    const auto fnMove = [&oStep](DepthLineField& oField) { oField.moveSelectedLines(oStep); };
    if (m_pMove) {
        forFields(active(), fnMove);
        emit linesChanged();
        return;
    }
    std::vector<Line> vBefore = lines()->lines();
    forFields(active(), fnMove);
    if (vBefore != lines()->lines())
        m_pMove = remember(tr("Move Lines"), std::move(vBefore));
}

void ScatScenarios::endMove()
{
    // Lines that were dragged there and back are where they were, to the last digit.
    if (m_pMove && !m_pMove->hasMoved(lines()->lines()))
        cancelMove();
    m_pMove = nullptr;
}

void ScatScenarios::cancelMove()
{
    if (!m_pMove)
        return;
    m_pMove->cancel();
    m_oUndoGroup.undo();
}

void ScatScenarios::erasePicked()
{
    edit(tr("Delete Lines"), [](DepthLineField& oField) { oField.erasePickedLine(); });
}

void ScatScenarios::setPickedColor(const QColor& oColor)
{
    if (oColor.isValid())
        edit(tr("Change Colour of Lines"), [&oColor](DepthLineField& oField) { oField.changePickedLineColor(oColor); });
}

void ScatScenarios::setPickedName(const QString& sName)
{
    edit(tr("Rename Lines"), [&sName](DepthLineField& oField) { oField.changePickedLineName(sName); });
}

void ScatScenarios::setPickedOrientation(const QPointF& oDipAndAzimuth)
{
    if (isMissing(oDipAndAzimuth.x()) || isMissing(oDipAndAzimuth.y()))
        return;
    edit(tr("Change Orientation of Lines"),
         [&oDipAndAzimuth](DepthLineField& oField) { oField.changePickedOrientation(oDipAndAzimuth); });
}

void ScatScenarios::setLine(int iLine, const Line& line, const QString& sUndoText)
{
    if (!lines() || iLine < 0 || iLine >= lines()->count() || isMissing(line.m_dDepth))
        return;
    std::vector<Line> vLines = lines()->lines();
    const auto i = static_cast<std::size_t>(iLine);
    const bool bDepthChanged = vLines[i].m_bDepthChanged || vLines[i].m_dDepth != line.m_dDepth;
    vLines[i] = line;
    vLines[i].m_bDepthChanged = bDepthChanged;
    edit(sUndoText, [&vLines](DepthLineField& oField) { oField.setLines(vLines); });
}

void ScatScenarios::clearAll()
{
    edit(tr("Delete All Lines"), [](DepthLineField& oField) { oField.clearAll(); });
}

} // namespace gkBase
