#pragma once

#include "model/SRowKey.h"
#include "tree/RowSpeech.h"

#include <QAccessible>
#include <QObject>
#include <QTimer>

class CProcessorTreeModel;
class QTreeView;

/// Gives the rows of a tree to screen readers. Rows hold no text, so while one listens this writes what is said of
/// them into their items, under Qt's roles for it; while none listens it writes and asks nothing. It changes no row
/// that is painted, and no view hears of what it writes. GUI thread.
///
/// The view announces the row to which the user moves. This announces the current row of a tree with the focus
/// whenever a reader has heard something else of it: it is said differently now, another has taken its place, or the
/// tree has just got the focus. It does so once, after the event that brought it, as a row that gets the focus: the
/// name and the description are said together, by an object that the reader takes for the focused one.
class CRowReader : public QObject, public QAccessible::ActivationObserver // clazy:exclude=missing-qobject-macro
{
public:
    /// The tree is the parent and has the model; bDiscoveredIn is its pane.
    CRowReader(QTreeView& treeIn, CProcessorTreeModel& modelIn, bool bDiscoveredIn);
    ~CRowReader() override;
    Q_DISABLE_COPY(CRowReader)

    /// Writes what is said of each row now, as far as it differs, from one copy of the tree's own pane, be it the
    /// current one or not. Rows whose nodes have gone keep their words.
    void Write();

    /// After the current row may have changed without the view's knowledge.
    void Follow();

    /// The name of the tree, and all rows, in the present language. No row is announced for it.
    void UpdateText();

protected:
    void accessibilityActiveChanged(bool active) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What a reader has heard last of the rows of a tree.
    struct SSaid
    {
        SRowKey key;
        RowSpeech::SWords words;
    };

    void NoteSaid();
    bool IsSaid() const;
    void Announce();

    QTreeView& tree;
    CProcessorTreeModel& model;
    const bool bDiscovered;
    bool bActive = false; ///< a screen reader listens
    SSaid said;
    QTimer timerAnnounce; ///< for when the event has filtered and laid out the rows
};
