#pragma once

#include "Kestrel/keys/CLostKeys.h"

#include <QObject>
#include <QPointer>

#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QWidget;

/// The ways of the keys about the window: round its parts and to the search. Tab leaves the list of the panel for good, since
/// the list takes the focus by a click alone; these bring it back. GUI thread.
class CKeyWays : public QObject
{
    Q_OBJECT

public:
    /// Adds its entries to menuView. Both must outlive this object.
    CKeyWays(QMainWindow& windowIn, QMenu& menuView);

    /// Before it the keys reach the journal alone. The panel may end first.
    void SetPanel(QWidget* pPanelIn);

    /// All texts, after the language has changed.
    void UpdateText();

private:
    /// A part of the window.
    struct SPart
    {
        QWidget* pArea;   ///< has the part's keys while the focus is in it
        QWidget* pTarget; ///< gets the focus
    };

    /// Shows the search of the panel as its own button does, with the caret in it and its text selected.
    void Find();

    /// To the next part (1) or the one before (-1); from none of them to the first or last.
    void Go(int nStep);

    /// What is shown, in the order of the round: list, search, tool bar, journal.
    std::vector<SPart> GetParts() const;
    void AddTree(std::vector<SPart>& vecPart) const;
    void AddSearch(std::vector<SPart>& vecPart) const;
    void AddToolBar(std::vector<SPart>& vecPart) const;
    void AddJournal(std::vector<SPart>& vecPart) const;

    QMainWindow& window;
    CLostKeys lostKeys;
    QPointer<QWidget> pPanel;
    QAction* pFind;
    QAction* pNext;
    QAction* pPrevious;
};
