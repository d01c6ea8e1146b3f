#pragma once

#include "Kestrel/CUnwinding.h"

#include <QSet>
#include <QString>

class QAction;
class QJsonObject;
class QMainWindow;
class QMenu;
struct SRecordedLine;

/// What came of a user's gestures on the screen: menus, dialogs, their answers, pane and search. It comes of the played
/// gestures too, and is waited for; what has not come is put right, so that the next gestures meet what they met. Files are
/// chosen as recorded, whatever the disk of today holds. GUI thread.
class CScreenFollower
{
public:
    /// How the replay differs from the recording on purpose.
    struct SCircumstances
    {
        bool bMasked = false;        ///< what was typed is not known
        bool bOtherLanguage = false; ///< of the window: its mnemonics are other letters
    };

    /// windowIn must outlive it.
    CScreenFollower(QMainWindow& windowIn, const SCircumstances& circumstancesIn);

    /// Whether it is about lines of that operation.
    static bool IsFor(const SRecordedLine& line);

    /// What stood on the screen where a run without its beginning begins.
    void Begin(const QJsonObject& screen);

    /// The entry that was chosen in the menus that close next; null when they were closed without one. Before what is said of
    /// the line that closes them.
    void ExpectEntry(const SRecordedLine* pLine);

    /// What is not yet as the line says, as a sentence; empty when all is, and for what a replay cannot have as it was.
    QString FindObstacle(const SRecordedLine& line) const;

    /// The line has come, or is not waited for any longer. False when what it says belongs to a part of the host that a
    /// replay does not have.
    bool Follow(const SRecordedLine& line);

    /// Scrolls the panes as the recording has them by now.
    void Scroll();

    /// Cancels a drag, menus and dialogs, as an unattended end did.
    void Unwind();

    /// Whether a gesture goes to a dialog that is not here as it was: one of a part of the host that a replay does not have, or
    /// one that asks for files.
    bool IsAway(const SRecordedLine& line) const;

    /// Whether a gesture goes to a menu that had closed before: it reached nobody.
    bool IsBehindMenu(const SRecordedLine& line) const;

    /// Whether the last gesture asked for a part of the host that a replay does not have: a dialog that does not come is then
    /// one of that part.
    void ExpectMissing(bool bExpected);

    /// Whether it is a key to a menu in another language, which may have been opened by another key.
    bool IsForeignMenuKey(const SRecordedLine& line) const;

    /// Whether it is a key that chose an entry of a menu by a letter of another language: the entry is chosen instead.
    bool IsForeignMnemonic(const SRecordedLine& line) const;

    /// Such a part: an entry that does nothing here.
    bool IsMissing(const QAction& action) const;

private:
    const QAction* FindEntry(const SRecordedLine& line) const;
    QString FindMenuFault(const SRecordedLine& line) const;
    QString FindDialogFault(const SRecordedLine& line) const;
    bool FollowMenu(const SRecordedLine& line);
    bool FollowMenuEnd(const SRecordedLine& line);
    bool FollowEntry(const SRecordedLine& line);
    bool FollowDialog(const SRecordedLine& line);
    bool FollowAnswer(const SRecordedLine& line);
    bool FollowScreen(const SRecordedLine& line);
    void ShowJournal(int nWidth);
    QString FindScreenFault(const SRecordedLine& line) const;

    QMainWindow& window;
    CUnwinding unwinding;
    const SCircumstances circumstances;
    QSet<QString> setAway;                     ///< paths of dialogs, see IsAway
    QSet<QString> setClosed;                   ///< paths of menus, see IsBehindMenu
    bool bMissing = false;                     ///< see ExpectMissing
    const SRecordedLine* pEntryNext = nullptr; ///< see ExpectEntry
    int nScrollDiscovered = 0;                 ///< as recorded last
    int nScrollSimulator = 0;
};
