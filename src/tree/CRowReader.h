#pragma once

#include "model/SRowKey.h"
#include "tree/RowSpeech.h"

#include <QAccessible>
#include <QModelIndex>
#include <QObject>
#include <QTimer>

#include <optional>

class CProcessorTreeModel;
class QTreeView;

/// Gives the rows of a tree to screen readers. Rows hold no text, so while one listens this writes what is said of
/// them into their items, under Qt's roles for it; while none listens it writes and asks nothing. It changes no row
/// that is painted, and no view hears of what it writes. GUI thread.
///
/// Of the row that has the focus, and of no other, a change is announced, after the event that brought it; so is the
/// row that has taken the place of one that has gone.
class CRowReader : public QObject, public QAccessible::ActivationObserver // clazy:exclude=missing-qobject-macro
{
public:
    /// The tree is the parent and has the model; bDiscoveredIn is its pane.
    CRowReader(QTreeView& treeIn, CProcessorTreeModel& modelIn, bool bDiscoveredIn);
    ~CRowReader() override;
    Q_DISABLE_COPY(CRowReader)

    /// Before rows are replaced or said differently: notes what was said last of the row that has the focus.
    void Note();

    /// Writes what is said of each row now, as far as it differs, from one copy of the store. Nothing while another
    /// pane is the store's current one: its tree is written when it is built anew.
    void Write();

    /// The name of the tree, and all rows, in the present language.
    void UpdateText();

    /// The editor of a row that is being renamed says whose name it holds.
    void NameEditor(QWidget* pEditor, const QModelIndex& index) const;

protected:
    void accessibilityActiveChanged(bool active) override;

private:
    void DealChiefChanged();
    void WriteMembers(const SProcessorGroupNode& group, bool bChiefMode);
    void WriteProcessor(const SProcessorNode& node, const QString& strGroup, bool bChiefMode);
    void WriteRow(const SRowKey& key, const RowSpeech::SWords& words);
    RowSpeech::SWords GetWords(const QModelIndex& index) const;
    void Announce();
    void Send(QAccessible::Event event, const QModelIndex& index) const;

    QTreeView& tree;
    CProcessorTreeModel& model;
    const bool bDiscovered;
    bool bActive = false; ///< a screen reader listens
    QMetaObject::Connection connectionChief;
    std::optional<SRowKey> keyBefore; ///< the row that had the focus when it was noted; unset with nothing to compare
    RowSpeech::SWords wordsBefore;    ///< what was said of that row
    SRowKey keyAfter;                 ///< the row that had the focus after it
    QTimer timerAnnounce;             ///< for when the event has filtered and laid out the rows
};
