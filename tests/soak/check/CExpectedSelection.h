#pragma once

#include "panel/SPanelPicture.h"

#include <optional>

/// Why what looks selected is not what the library has selected.
enum EnApart
{
    ApartNot,
    ApartSuppressed, ///< a rename keeps selections from going out, also where no editor has opened
    ApartEmptied,    ///< the last selected row was taken out
    ApartFilter,     ///< a selected row is hidden, or was as the selection went out
    ApartEditor      ///< the end of a rename has selected its row, without a report
};

/// What has to be selected in one pane after what the user, the panel's commands and the library have done: on the screen, and
/// in the library. Works from the picture before a step and never looks at what became of it, but for whether rows were replaced.
///
/// The view's rules: a click selects alone, with Ctrl it changes one row, with Shift it draws a range in place of the last one.
/// The panel's: a selection goes out when it changes, without what the filter hides, unless nothing of it is left or a
/// rename is under way; replaced rows are selected as the library says. An information row is no node: alone it is reported as
/// none at all.
class CExpectedSelection
{
public:
    /// A step begins with these rows.
    void Begin(const SPanelPicture& picture);

    /// The current row is another by now, as after the focus has come.
    void NoteCurrent(const SPictureKey& key);
    const SPictureKey& GetCurrent() const; ///< where a key sets out from

    /// Below: what the user does with a row that is laid out.
    /// @{
    void Press(const SPictureKey& key, Qt::KeyboardModifiers modifiers);
    void PressRight(const SPictureKey& key, Qt::KeyboardModifiers modifiers);
    void StepTo(const SPictureKey& key, Qt::KeyboardModifiers modifiers); ///< by Up or Down
    void MoveTo(const SPictureKey& key, Qt::KeyboardModifiers modifiers); ///< by a key of the base class
    void PrepareMove(); ///< before MoveTo with Shift, also where it does not move
    void PressSpace(bool bToggles);
    void SelectAll();
    /// @}

    /// An editor was asked for, for the one row that is selected; where none opens the selection stays unreported.
    void OpenEditor();
    void CloseEditor(const SPictureKey& keyCurrent); ///< with that current row
    void EndSuppression();                           ///< its row was replaced, or a group was made

    /// Somebody asks the library for this selection; ids that it does not know are left out.
    void SelectInLibrary(const NodeIds& setId);

    /// All rows are replaced, whether or not that can be seen.
    void Rebuild();

    /// The step is over.
    void End(const SPanelPicture& picture, bool bSimulator);

    /// Whether it cannot be said where the range of this step began, since something had gone wrong before.
    bool IsUnsure() const
    {
        return bRangeUnsure;
    }

    /// Takes what is there for right.
    void Adopt(const SPanelPicture& picture, bool bSimulator);

    /// What the library has to have selected.
    const NodeIds& GetStored() const
    {
        return setStored;
    }

    RowKeys GetRows() const;        ///< that are selected on the screen or hidden
    RowKeys GetSeen() const;        ///< without the hidden ones
    QUuid GetNodeAboveRows() const; ///< which takes over when the selected rows go; null for the root
    EnApart GetApart() const;       ///< why screen and library differ

private:
    void Select(const SPictureKey& key, bool bToggles);
    void Finalise();
    void SelectRange(const SPictureKey& keyEnd);
    void PrepareRange(const SPictureKey& keyEnd);
    void Report(const RowKeys& setBefore);
    void RestoreRows();
    void PlaceRows(const NodeIds& setSelected);
    bool TakeAsked(const NodeIds& setKnown);
    void ReportRestored();
    void SelectHiddenAgain();
    bool IsLaidOut(const SPictureKey& key) const;

    SPanelPicture before;
    RowKeys setKept;         ///< selected rows that a new range leaves alone
    RowKeys setLast;         ///< those of the last click or range
    bool bDeselects = false; ///< the last click took its row out of the selection
    SPictureKey keyAnchor;   ///< where ranges start
    NodeIds setStored{ QUuid() };
    std::optional<NodeIds> setAsked; ///< of the library in this step
    bool bSuppressed = false;
    bool bRebuild = false;
    bool bUnsure = false;      ///< where a range would begin and what it would replace
    bool bRangeUnsure = false; ///< and there was one in this step
    EnApart apart = ApartNot;  ///< since the last report
};
