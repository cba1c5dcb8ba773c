// The interpretation in the dipmeter window: gestures that edit lines, the orientation mode, scenarios and their files.

#include "DepthLineFile.h"
#include "QDepthTrackArea.h"
#include "QDepthTrackPlot.h"
#include "QRelationshipItemModel.h"
#include "QScatDepthPlotWidget.h"
#include "ScatCreationGroup.h"
#include "ScatScenarioGroup.h"
#include "ScatScenarios.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace gkBase {

// ---- lines ----------------------------------------------------------------------------------------------------------

QUndoGroup* QScatDepthPlotWidget::undoGroup() const
{
    return m_pScenarios->undoGroup();
}

const DepthLineField* QScatDepthPlotWidget::structuralTops() const
{
    return m_pScenarios->lines();
}

void QScatDepthPlotWidget::clearAllStructuralTops()
{
    m_pScenarios->clearAll();
}

void QScatDepthPlotWidget::addStructuralTopsSenario(const QString& sName)
{
    m_pScenarios->add(sName);
}

void QScatDepthPlotWidget::deselectAllStructuralTops()
{
    m_pScenarios->deselectAll();
}

void QScatDepthPlotWidget::showLines()
{
    for (int iTrack = 0; iTrack < NumberOfTracks; ++iTrack)
        plot(iTrack)->updateLines();
    const DepthLineField* pLines = m_pScenarios->lines();
    const bool bLines = pLines && pLines->count() > 0;
    m_pqCreateMarkersButton->setEnabled(bLines && hasData());
    m_pqDeleteMarkersButton->setEnabled(hasData()); // markers outlive their scenario
}

void QScatDepthPlotWidget::setCreationTypeOfTracks(int iType)
{
    for (int iTrack = 0; iTrack < NumberOfTracks; ++iTrack)
        plot(iTrack)->setDataCreationType(iType);
}

void QScatDepthPlotWidget::setDataCreationType()
{
    setOrientationMode(false);
    setCreationTypeOfTracks(m_pqCreationGroup->type() ? QCrossPlot::StructuralTopCreation : QCrossPlot::NoCreation);
}

void QScatDepthPlotWidget::slotInsertScatUpdate(QPointF oPosition)
{
    const std::optional<DepthLineField::DataType> eType = m_pqCreationGroup->type();
    if (!hasData() || !eType)
        return;
    if (m_pScenarios->active() < 0)
        slotNewScenario();
    ScatLineDefaults defaults = m_lineDefaults;
    const QString sName = defaults.nextName(*eType, m_pScenarios->lines());
    const double dTolerance = plot(DipTrack)->pickingEpsY();
    const bool bInserted =
        m_pScenarios->insert(*eType, oPosition, sName, ScatLineDefaults::nextColor(*eType), dTolerance);
    if (bInserted)
        m_lineDefaults = defaults; // a line that was not made takes no number
    if (!isTypeSeen(*eType))
        showNotice(bInserted ? tr("Lines of this type are hidden: %1 is not seen on the tracks.").arg(sName)
                             : tr("There is a hidden line of this type already."));
}

/// Takes the place of the cursor's position for a while.
void QScatDepthPlotWidget::showNotice(const QString& sText)
{
    m_pqNoticeLabel->setText(sText);
    m_pqNoticeLabel->show();
    m_pqNoticeTimer->start();
}

void QScatDepthPlotWidget::slotPickPosUpdate(const std::vector<int>& viLines)
{
    m_pScenarios->pick(viLines, QApplication::keyboardModifiers().testFlag(Qt::ControlModifier));
}

/// What is not seen on any track must not be moved or deleted with the lines that are.
void QScatDepthPlotWidget::deselectHiddenLines()
{
    const DepthLineField* pLines = m_pScenarios->lines();
    if (!pLines || !pLines->isSomethingSelected())
        return;
    const std::vector<int> viPicked = pLines->selectedLines();
    std::vector<int> viSeen;
    std::copy_if(viPicked.begin(), viPicked.end(), std::back_inserter(viSeen),
                 [&](int iLine) { return isTypeSeen(pLines->line(iLine).m_eType); });
    if (viSeen != viPicked)
        m_pScenarios->pick(viSeen, false);
}

bool QScatDepthPlotWidget::isTypeSeen(DepthLineField::DataType eType) const
{
    const std::vector<DepthLineField*> vpFields = m_pScenarios->fields(m_pScenarios->active());
    return std::any_of(vpFields.begin(), vpFields.end(),
                       [eType](const DepthLineField* pField) { return pField->isShown(eType); });
}

void QScatDepthPlotWidget::slotMoveSelectedUpdate(QPointF oStep)
{
    deselectHiddenLines();
    m_pScenarios->move(oStep);
}

void QScatDepthPlotWidget::slotMoveSelectedUpdateStop()
{
    m_pScenarios->endMove();
}

void QScatDepthPlotWidget::slotMoveSelectedCancel()
{
    m_pScenarios->cancelMove();
}

void QScatDepthPlotWidget::slotSendScatUpdate(QColor oColor)
{
    m_pScenarios->setPickedColor(oColor);
}

void QScatDepthPlotWidget::slotSendScatUpdate(const QString& sName)
{
    m_pScenarios->setPickedName(sName);
}

void QScatDepthPlotWidget::slotDeleteSelected()
{
    deselectHiddenLines();
    m_pScenarios->erasePicked();
}

// ---- orientations of lines ------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::slotModifySelectedOrientation()
{
    if (!hasData() || !m_pScenarios->lines())
        return;
    if (!m_bOrientationMode) {
        setOrientationMode(true);
        setCreationTypeOfTracks(QCrossPlot::OrientationCreation);
        return;
    }
    // Back to what the radio buttons say, which is no creation for "None": a click must not create what is not chosen.
    setDataCreationType();
}

void QScatDepthPlotWidget::slotModifySelectedOrientation(QCrossPlot* pqPlot)
{
    if (!pqPlot)
        return;
    slotModifySelectedOrientation();
    pqPlot->setFocus(); // Escape ends the mode
}

void QScatDepthPlotWidget::setOrientationMode(bool bOn)
{
    if (std::exchange(m_bOrientationMode, bOn) == bOn)
        return;
    m_pqOrientationLabel->setVisible(bOn);
    if (bOn)
        return;
    setSelectedRecords({});
    QRelationshipItemModel* pModel = m_pqArea->model(DipTrack);
    emit dataPointsSelection(pModel->selection(), pModel->numberOfPoints());
}

void QScatDepthPlotWidget::updateMeanOrientation(const QPointF& oDipAndAzimuth)
{
    if (m_bOrientationMode)
        m_pScenarios->setPickedOrientation(oDipAndAzimuth);
}

/// Undo or redo when the key is theirs, null for others.
QAction* QScatDepthPlotWidget::editAction(const QKeyEvent& event) const
{
    for (QAction* pqAction : {m_pqUndoAction, m_pqRedoAction}) {
        if (pqAction->shortcuts().contains(QKeySequence(event.keyCombination())))
            return pqAction;
    }
    return nullptr;
}

bool QScatDepthPlotWidget::event(QEvent* pEvent)
{
    // A combo box would swallow the key; it is left to the shortcut then.
    const bool bKeyIsOurs = pEvent->type() == QEvent::ShortcutOverride &&
                            editAction(*static_cast<QKeyEvent*>(pEvent)) &&
                            !qobject_cast<QComboBox*>(QApplication::focusWidget());
    if (!bKeyIsOurs)
        return QWidget::event(pEvent);
    pEvent->accept();
    return true;
}

void QScatDepthPlotWidget::keyPressEvent(QKeyEvent* pEvent)
{
    if (QAction* pqAction = editAction(*pEvent))
        pqAction->trigger();
    else if (pEvent->key() == Qt::Key_Delete && pEvent->modifiers() == Qt::NoModifier)
        slotDeleteSelected();
    else if (pEvent->key() == Qt::Key_Escape && m_bOrientationMode)
        slotModifySelectedOrientation();
    else if (pEvent->key() == Qt::Key_Escape && selectedRecords().empty())
        deselectAllStructuralTops();
    else if (pEvent->key() == Qt::Key_Escape)
        clearSelection();
    else
        QWidget::keyPressEvent(pEvent);
}

// ---- scenarios ------------------------------------------------------------------------------------------------------

void QScatDepthPlotWidget::showScenarios()
{
    m_pqScenarioGroup->showScenarios(*m_pScenarios);
}

void QScatDepthPlotWidget::slotNewScenario()
{
    m_lineDefaults.restart();
    m_pScenarios->addNew();
}

void QScatDepthPlotWidget::slotSelectScenario(int iScenario)
{
    m_pScenarios->setActive(iScenario);
}

void QScatDepthPlotWidget::setDialogs(ScatDialogs dialogs)
{
    const ScatDialogs former = std::exchange(m_dialogs, std::move(dialogs));
    if (!m_dialogs.m_fnAsk)
        m_dialogs.m_fnAsk = former.m_fnAsk;
    if (!m_dialogs.m_fnWarn)
        m_dialogs.m_fnWarn = former.m_fnWarn;
    if (!m_dialogs.m_fnSaveFile)
        m_dialogs.m_fnSaveFile = former.m_fnSaveFile;
    if (!m_dialogs.m_fnOpenFiles)
        m_dialogs.m_fnOpenFiles = former.m_fnOpenFiles;
}

void QScatDepthPlotWidget::slotSaveScenario()
{
    saveScenario(m_pScenarios->active());
}

/// Writes first: a file that cannot be written leaves the scenario as it is.
bool QScatDepthPlotWidget::saveScenario(int iScenario)
{
    if (iScenario < 0)
        return false;
    const QPointer<QScatDepthPlotWidget> pqThis(this);
    const QString sPath = m_dialogs.m_fnSaveFile(this, m_settings.m_sDirectory, m_pScenarios->name(iScenario));
    if (!pqThis || sPath.isEmpty())
        return false;
    const QFileInfo file(sPath);
    m_settings.m_sDirectory = file.absolutePath();
    QString sError;
    if (!m_pScenarios->save(iScenario, sPath, &sError)) {
        m_dialogs.m_fnWarn(this, tr("Save"), sError);
        return false;
    }
    m_pScenarios->rename(iScenario, file.completeBaseName());
    slotSelectScenario(iScenario);
    const QStringList lLost = depthLineNamesNotReadBack(*m_pScenarios->lines());
    if (!lLost.isEmpty())
        m_dialogs.m_fnWarn(this, tr("Save"),
                           tr("%1\nThe file has no room for these names. It was written, but their lines will not be "
                              "read back as they are:\n%2")
                               .arg(sPath, lLost.join(QLatin1Char('\n'))));
    return true;
}

bool QScatDepthPlotWidget::importScenario(const QString& sPath, QString* psError)
{
    if (m_pScenarios->import(sPath, psError) < 0)
        return false;
    m_settings.m_sDirectory = QFileInfo(sPath).absolutePath();
    return true;
}

void QScatDepthPlotWidget::slotOpenScenario()
{
    const QPointer<QScatDepthPlotWidget> pqThis(this);
    const QStringList lFiles = m_dialogs.m_fnOpenFiles(this, m_settings.m_sDirectory);
    if (!pqThis)
        return;
    QStringList lErrors;
    for (const QString& sFile : lFiles) {
        QString sError;
        if (!importScenario(sFile, &sError))
            lErrors << sError;
    }
    if (!lErrors.isEmpty())
        m_dialogs.m_fnWarn(this, tr("Import Scenario"), lErrors.join(QLatin1Char('\n')));
}

void QScatDepthPlotWidget::slotCloseScenario()
{
    const int iScenario = m_pScenarios->active();
    const QPointer<QScatDepthPlotWidget> pqThis(this);
    if (iScenario < 0 || !canClose(iScenario) || !pqThis)
        return;
    setDataCreationType();
    m_pScenarios->closeActive();
}

bool QScatDepthPlotWidget::canClose(int iScenario)
{
    if (!m_pScenarios->isModified(iScenario))
        return true;
    const QPointer<QScatDepthPlotWidget> pqThis(this);
    const ScatDialogs::Answer eAnswer = m_dialogs.m_fnAsk(
        this, tr("Close"), tr("Do you want to save the changes you made to '%1' ?").arg(m_pScenarios->name(iScenario)));
    if (!pqThis)
        return false;
    return eAnswer == QMessageBox::Yes ? saveScenario(iScenario) : eAnswer == QMessageBox::No;
}

bool QScatDepthPlotWidget::canClose()
{
    const QPointer<QScatDepthPlotWidget> pqThis(this);
    for (int iScenario = 0; iScenario < m_pScenarios->count(); ++iScenario) {
        if (!m_pScenarios->isModified(iScenario))
            continue;
        slotSelectScenario(iScenario); // its lines are seen behind the question
        if (!canClose(iScenario) || !pqThis)
            return false;
    }
    return true;
}

void QScatDepthPlotWidget::closeEvent(QCloseEvent* pEvent)
{
    pEvent->setAccepted(canClose());
}

} // namespace gkBase
