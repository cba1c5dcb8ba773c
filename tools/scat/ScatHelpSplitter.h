#pragma once

#include <QSplitter>

class QToolButton;

namespace gkBase {

class ScatDirectionFinder;

/// The directions with the help in finding them above the list of lines. Where the height is short, the diagrams of the
/// help are folded away, then its suggestions, and the list keeps some rows in sight; a button unfolds them all the
/// same.
class ScatHelpSplitter : public QSplitter
{
    Q_OBJECT
public:
    /// Takes both widgets; the finder is a child of the upper one.
    ScatHelpSplitter(QWidget* pqDirections, ScatDirectionFinder* pqFinder, QWidget* pqLines);

    /// Unfolds all help, or folds the diagrams. From the first click on, the height no longer does.
    QToolButton* foldButton() const { return m_pqFoldButton; }

    /// With help only when the user wants it.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* pEvent) override;

private:
    enum class Help
    {
        None,
        Suggestions,
        Diagrams ///< and suggestions
    };

    int helpHeight(Help eHelp) const;
    /// With that much help.
    int leastHeight(Help eHelp) const;
    void showHelp(Help eHelp);
    void showWhatFits();

    QWidget* m_pqDirections;
    ScatDirectionFinder* m_pqFinder;
    QWidget* m_pqLines;
    QToolButton* m_pqFoldButton;
    Help m_eHelp = Help::Diagrams;
    bool m_bUserChose = false;
};

} // namespace gkBase
