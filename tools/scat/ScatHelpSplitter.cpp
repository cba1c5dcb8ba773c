#include "ScatHelpSplitter.h"

#include "ScatDirectionFinder.h"

#include <QEvent>
#include <QLayout>
#include <QToolButton>

namespace gkBase {

ScatHelpSplitter::ScatHelpSplitter(QWidget* pqDirections, ScatDirectionFinder* pqFinder, QWidget* pqLines)
    : QSplitter(Qt::Vertical)
    , m_pqDirections(pqDirections)
    , m_pqFinder(pqFinder)
    , m_pqLines(pqLines)
    , m_pqFoldButton(new QToolButton)
{
    setChildrenCollapsible(false);
    addWidget(pqDirections);
    addWidget(pqLines);
    setStretchFactor(0, 1);
    setStretchFactor(1, 1);
    m_pqFoldButton->setText(tr("Help"));
    m_pqFoldButton->setObjectName(QStringLiteral("m_pqHelpBtn"));
    m_pqFoldButton->setToolTip(tr("Show the diagrams and suggestions that help to find the directions"));
    m_pqFoldButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_pqFoldButton->setAutoRaise(true);
    m_pqFoldButton->setCheckable(true);
    showHelp(m_eHelp);
    connect(m_pqFoldButton, &QToolButton::clicked, this, [this](bool bShow) {
        m_bUserChose = true;
        showHelp(bShow ? Help::Diagrams : Help::Suggestions);
    });
}

int ScatHelpSplitter::helpHeight(Help eHelp) const
{
    if (eHelp == Help::None)
        return 0;
    const int iSuggestions = m_pqDirections->layout()->spacing() + m_pqFinder->suggestionsHeight();
    return eHelp == Help::Suggestions ? iSuggestions : iSuggestions + m_pqFinder->diagramsHeight();
}

int ScatHelpSplitter::leastHeight(Help eHelp) const
{
    return m_pqDirections->minimumSizeHint().height() - helpHeight(m_eHelp) + helpHeight(eHelp) + handleWidth() +
           m_pqLines->minimumSizeHint().height();
}

QSize ScatHelpSplitter::minimumSizeHint() const
{
    return {QSplitter::minimumSizeHint().width(), leastHeight(m_bUserChose ? m_eHelp : Help::None)};
}

bool ScatHelpSplitter::event(QEvent* pEvent)
{
    const bool bHandled = QSplitter::event(pEvent);
    // The heights that the parts need change with the font, and with the width that texts are wrapped at.
    if (!m_bUserChose && (pEvent->type() == QEvent::Resize || pEvent->type() == QEvent::LayoutRequest))
        showWhatFits();
    return bHandled;
}

void ScatHelpSplitter::showWhatFits()
{
    Help eFits = Help::None;
    for (const Help eHelp : {Help::Suggestions, Help::Diagrams}) {
        if (height() >= leastHeight(eHelp))
            eFits = eHelp;
    }
    if (eFits != m_eHelp)
        showHelp(eFits);
}

void ScatHelpSplitter::showHelp(Help eHelp)
{
    m_eHelp = eHelp;
    const bool bDiagrams = eHelp == Help::Diagrams;
    m_pqFoldButton->setChecked(bDiagrams);
    m_pqFoldButton->setArrowType(bDiagrams ? Qt::DownArrow : Qt::RightArrow);
    m_pqFinder->setVisible(eHelp != Help::None);
    m_pqFinder->showDiagrams(bDiagrams);
    updateGeometry();
    if (bDiagrams)
        setSizes({m_pqDirections->sizeHint().height(), m_pqLines->minimumSizeHint().height()});
    else
        setSizes({m_pqDirections->minimumSizeHint().height(), height()}); // the list takes what the help leaves
}

} // namespace gkBase
