#include "ScatScenarios.h"

#include "DepthLineFile.h"
#include "MissingValue.h"
#include "QRelationshipItemModel.h"

#include <QFileInfo>
#include <QUndoStack>

#include <algorithm>
#include <utility>

namespace gkBase {

/// Exchanges the lines of one scenario. The edit itself was made before the command exists.
class ScatScenarios::LinesCommand : public QUndoCommand
{
public:
    LinesCommand(ScatScenarios& owner, const QUndoStack* pStack, const QString& sText, std::vector<Line> vBefore,
                 std::vector<Line> vAfter)
        : QUndoCommand(sText)
        , m_owner(owner)
        , m_pStack(pStack)
        , m_vBefore(std::move(vBefore))
        , m_vAfter(std::move(vAfter))
    {
    }

    void undo() override { m_owner.setLines(m_pStack, m_vBefore); }
    void redo() override
    {
        // The stack calls it once when the command is pushed.
        if (!std::exchange(m_bPushed, true))
            return;
        m_owner.setLines(m_pStack, m_vAfter);
    }

private:
    ScatScenarios& m_owner;
    const QUndoStack* m_pStack; ///< not owned; tells the scenario
    std::vector<Line> m_vBefore;
    std::vector<Line> m_vAfter;
    bool m_bPushed = false;
};

ScatScenarios::ScatScenarios(const Models& vpModels, QObject* pqParent)
    : QObject(pqParent)
    , m_vpModels(vpModels)
{
}

ScatScenarios::~ScatScenarios()
{
    // The histories tell the group when they go; nobody else is to hear it.
    blockSignals(true);
    m_vStacks.clear();
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
    connect(pStack, &QUndoStack::cleanChanged, this, [this, pStack] { syncModified(pStack); });
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
    syncModified(m_vStacks[static_cast<std::size_t>(iScenario)].get());
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
    syncModified(m_vStacks.back().get());
    emit linesChanged();
    return iScenario;
}

void ScatScenarios::syncModified(const QUndoStack* pStack)
{
    const bool bModified = !pStack->isClean();
    forFields(indexOf(pStack), [bModified](DepthLineField& oField) { oField.setModified(bModified); });
    emit modifiedChanged();
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

void ScatScenarios::setLines(const QUndoStack* pStack, const std::vector<Line>& vLines)
{
    forFields(indexOf(pStack), [&vLines](DepthLineField& oField) { oField.setLines(vLines); });
    emit linesChanged();
}

void ScatScenarios::remember(const QString& sUndoText, std::vector<Line> vBefore)
{
    QUndoStack* pStack = m_vStacks[static_cast<std::size_t>(active())].get();
    pStack->push(new LinesCommand(*this, pStack, sUndoText, std::move(vBefore), lines()->lines()));
    syncModified(pStack);
}

void ScatScenarios::edit(const QString& sUndoText, const Edit& fnEdit)
{
    if (!lines())
        return;
    endMove();
    std::vector<Line> vBefore = lines()->lines();
    forFields(active(), fnEdit);
    if (vBefore == lines()->lines())
        return;
    remember(sUndoText, std::move(vBefore));
    emit linesChanged();
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
    if (!std::exchange(m_bMoving, true))
        m_vBeforeMove = lines()->lines();
    forFields(active(), [&oStep](DepthLineField& oField) { oField.moveSelectedLines(oStep); });
    emit linesChanged();
}

void ScatScenarios::endMove()
{
    if (!std::exchange(m_bMoving, false))
        return;
    std::vector<Line> vBefore = std::exchange(m_vBeforeMove, {});
    if (vBefore != lines()->lines())
        remember(tr("Move Lines"), std::move(vBefore));
}

void ScatScenarios::cancelMove()
{
    if (!std::exchange(m_bMoving, false))
        return;
    QUndoStack* pStack = m_vStacks[static_cast<std::size_t>(active())].get();
    setLines(pStack, std::exchange(m_vBeforeMove, {}));
    syncModified(pStack);
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
