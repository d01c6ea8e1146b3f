#pragma once

#include <QHash>
#include <QObject>

class ICallRecorder;
class QAction;
class QDialog;
class QMenu;
class QWidget;

/// Records menus with the entry that was chosen, and dialogs with their texts and answers. Only looks. GUI thread.
class CPopupJournal : public QObject
{
    Q_OBJECT

public:
    /// recorderIn must outlive it.
    explicit CPopupJournal(ICallRecorder& recorderIn);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FollowMenu(QMenu& menu);
    void FollowDialog(QDialog& dialog);
    void NoteAction(QAction* pAction);
    void ForgetAction();
    void NoteAnswer(QDialog& dialog, int nResult);
    bool IsFirst(QWidget& widget);

    ICallRecorder& recorder;
    QHash<QObject*, QString> mapFollowed; ///< menus and dialogs, by their paths when they last came up: hidden ones have none
    QAction* pNoted = nullptr;            ///< a sub-menu's entry is reported by each menu above it too
};
