#include "check/CExpectedSelection.h"

#include <utility>

namespace {

RowKeys PickIds(const RowKeys& setRow, const NodeIds& setId)
{
    RowKeys setPicked;
    for (const SPictureKey& key : setRow) {
        if (setId.contains(key.id)) {
            setPicked.insert(key);
        }
    }
    return setPicked;
}

} // namespace

void CExpectedSelection::Begin(const SPanelPicture& picture)
{
    before = picture;
    setAsked.reset();
    bRebuild = false;
    bRangeUnsure = false;
}

void CExpectedSelection::Press(const SPictureKey& key, Qt::KeyboardModifiers modifiers)
{
    if (key.nType == NodeInfo) {
        return;
    }
    const RowKeys setBefore = GetRows();
    if (modifiers & Qt::ShiftModifier) {
        PrepareRange(key);
        SelectRange(key);
    } else {
        Select(key, modifiers & Qt::ControlModifier);
        keyAnchor = key;
    }
    before.keyCurrent = key;
    Report(setBefore);
}

void CExpectedSelection::PressRight(const SPictureKey& key, Qt::KeyboardModifiers modifiers)
{
    if (key.nType == NodeInfo) {
        return;
    }
    const RowKeys setBefore = GetRows();
    const bool bLeavesAlone = modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
    if (!bLeavesAlone && !setBefore.contains(key)) {
        Select(key, false);
    }
    keyAnchor = key;
    before.keyCurrent = key;
    Report(setBefore);
}

void CExpectedSelection::StepTo(const SPictureKey& key, Qt::KeyboardModifiers modifiers)
{
    const RowKeys setBefore = GetRows();
    if (modifiers & Qt::ShiftModifier) {
        setLast = { key };
        bDeselects = false;
        bRangeUnsure = bUnsure;
    } else {
        Select(key, modifiers & Qt::ControlModifier);
        keyAnchor = key;
    }
    before.keyCurrent = key;
    Report(setBefore);
}

void CExpectedSelection::MoveTo(const SPictureKey& key, Qt::KeyboardModifiers modifiers)
{
    const RowKeys setBefore = GetRows();
    if (modifiers & Qt::ShiftModifier) {
        SelectRange(key);
    } else {
        if (!(modifiers & Qt::ControlModifier)) {
            Select(key, false);
        }
        keyAnchor = key;
    }
    before.keyCurrent = key;
    Report(setBefore);
}

void CExpectedSelection::NoteCurrent(const SPictureKey& key)
{
    before.keyCurrent = key;
}

const SPictureKey& CExpectedSelection::GetCurrent() const
{
    return before.keyCurrent;
}

// A range from a row that is folded away begins at the top of what is seen: that depends on where the view has scrolled.
void CExpectedSelection::PrepareMove()
{
    PrepareRange(before.keyCurrent);
    if (before.keyCurrent.nType == 0 && PanelPicture::FindRow(before, keyAnchor) >= 0) {
        before.keyCurrent = keyAnchor;
    }
}

void CExpectedSelection::PressSpace(bool bToggles)
{
    const RowKeys setBefore = GetRows();
    Finalise();
    if (before.keyCurrent.nType == 0) {
        return;
    }
    bDeselects = bToggles && setKept.contains(before.keyCurrent);
    setLast = { before.keyCurrent };
    Report(setBefore);
}

void CExpectedSelection::SelectAll()
{
    const RowKeys setBefore = GetRows();
    setKept.clear();
    setLast.clear();
    bDeselects = false;
    for (const SPictureRow& row : std::as_const(before.vecRow)) {
        if (row.bLaidOut) {
            setLast.insert(row.key);
        }
    }
    Report(setBefore);
}

void CExpectedSelection::OpenEditor()
{
    bSuppressed = true;
}

void CExpectedSelection::CloseEditor(const SPictureKey& keyCurrent)
{
    if (!keyCurrent.id.isNull()) {
        Finalise();
        apart = ApartEditor;
        setLast = { { keyCurrent.nType == NodeInfo ? NodeProcessor : keyCurrent.nType, keyCurrent.id } };
    }
    bSuppressed = false;
}

void CExpectedSelection::EndSuppression()
{
    bSuppressed = false;
}

void CExpectedSelection::SelectInLibrary(const NodeIds& setId)
{
    setAsked = setId;
}

void CExpectedSelection::Rebuild()
{
    bRebuild = true;
}

void CExpectedSelection::End(const SPanelPicture& picture, bool bSimulator)
{
    const NodeIds setKnown = PanelPicture::GetIds(picture.arrTree[bSimulator ? 1 : 0]);
    const NodeIds setBefore = setStored;
    if (!setStored.isEmpty() && setStored.intersect(setKnown).isEmpty()) {
        setStored = { QUuid() };
    }
    setKept = PickIds(setKept, setKnown);
    setLast = PickIds(setLast, setKnown);
    if (bSimulator != picture.bSimulator) {
        return;
    }
    before = picture;
    const bool bAsked = TakeAsked(setKnown);
    if (bAsked || setStored != setBefore) {
        if (bRebuild) { // by the panel itself, before it has heard of the change
            PlaceRows(setBefore);
        }
        ReportRestored(); // behind the rows, if they were replaced, too
    } else if (picture.bRebuilt || bRebuild) {
        RestoreRows();
    }
}

// False when that is no change.
bool CExpectedSelection::TakeAsked(const NodeIds& setKnown)
{
    const NodeIds setTaken = setAsked ? NodeIds(*setAsked).intersect(setKnown) : NodeIds();
    if (setTaken.isEmpty() || setTaken == setStored) {
        return false;
    }
    setStored = setTaken;
    return true;
}

// Each row that comes back is reported, without what the filter hides.
void CExpectedSelection::ReportRestored()
{
    RestoreRows();
    const NodeIds setSeen = PanelPicture::GetIds(GetSeen());
    if (!setSeen.isEmpty() && !bSuppressed) {
        apart = setSeen == setStored ? ApartNot : ApartFilter;
        setStored = setSeen;
    }
    SelectHiddenAgain();
}

// One processor that the library has selected and that does not show is selected once more: the next range replaces it.
void CExpectedSelection::SelectHiddenAgain()
{
    const RowKeys setRow = GetRows();
    if (setRow.size() == 1 && setRow.cbegin()->nType == NodeProcessor && GetSeen().isEmpty()) {
        setKept.clear();
        setLast = setRow;
    }
}

void CExpectedSelection::Adopt(const SPanelPicture& picture, bool bSimulator)
{
    const std::vector<QUuid>& vecSelected = picture.arrSelected[bSimulator ? 1 : 0];
    setStored = NodeIds(vecSelected.cbegin(), vecSelected.cend());
    if (bSimulator == picture.bSimulator) {
        before = picture;
        setKept.clear();
        setLast = PanelPicture::GetSelected(picture);
        bDeselects = false;
        bUnsure = true;
        apart = PanelPicture::GetIds(setLast) == setStored ? ApartNot : apart;
    }
}

RowKeys CExpectedSelection::GetRows() const
{
    return bDeselects ? RowKeys(setKept).subtract(setLast) : RowKeys(setKept).unite(setLast);
}

RowKeys CExpectedSelection::GetSeen() const
{
    RowKeys setSeen = GetRows();
    for (const SPictureRow& row : before.vecRow) {
        if (row.bHidden) {
            setSeen.remove(row.key);
        }
    }
    return setSeen;
}

// The children of folded groups do not count, what the filter hides does.
QUuid CExpectedSelection::GetNodeAboveRows() const
{
    const RowKeys setRow = GetRows();
    QUuid idAbove;
    bool bOpen = false;
    for (const SPictureRow& row : before.vecRow) {
        const bool bShownMember = row.nDepth == 2 && row.key.nType == NodeProcessor && bOpen;
        bOpen = row.nDepth == 1 ? row.key.nType == NodeGroup && row.bExpanded : bOpen;
        if (row.nDepth != 1 && !bShownMember) {
            continue;
        }
        if (setRow.contains(row.key)) {
            break;
        }
        idAbove = row.key.id;
    }
    return idAbove;
}

void CExpectedSelection::Select(const SPictureKey& key, bool bToggles)
{
    if (bToggles) {
        Finalise();
        bDeselects = setKept.contains(key);
    } else {
        setKept.clear();
        bDeselects = false;
        bUnsure = false;
    }
    setLast = { key };
}

void CExpectedSelection::Finalise()
{
    setKept = GetRows();
    setLast.clear();
    bDeselects = false;
}

// From where ranges start, as long as that row can be seen.
void CExpectedSelection::PrepareRange(const SPictureKey& keyEnd)
{
    if (!IsLaidOut(keyAnchor)) {
        keyAnchor = IsLaidOut(before.keyCurrent) ? before.keyCurrent : keyEnd;
    }
}

void CExpectedSelection::SelectRange(const SPictureKey& keyEnd)
{
    bRangeUnsure = bUnsure || !IsLaidOut(keyAnchor);
    bDeselects = false;
    setLast.clear();
    bool bInside = false;
    for (const SPictureRow& row : std::as_const(before.vecRow)) {
        const bool bLimit = row.key == keyAnchor || row.key == keyEnd;
        if (row.bLaidOut && (bInside || bLimit)) {
            setLast.insert(row.key);
        }
        bInside = bInside != (bLimit && !(keyAnchor == keyEnd));
    }
}

void CExpectedSelection::Report(const RowKeys& setBefore)
{
    const RowKeys setSeen = GetSeen();
    if (GetRows() == setBefore) {
        return;
    }
    if (bSuppressed || setSeen.isEmpty()) {
        apart = bSuppressed ? ApartSuppressed : GetRows().isEmpty() ? ApartEmptied : ApartFilter;
        return;
    }
    setStored = PanelPicture::GetIds(setSeen);
    apart = GetRows() == setSeen ? ApartNot : ApartFilter;
}

EnApart CExpectedSelection::GetApart() const
{
    return GetRows() == GetSeen() ? apart : ApartFilter;
}

// As the library says; a pane without a recorded selection gets its root.
void CExpectedSelection::RestoreRows()
{
    if (setStored.isEmpty()) {
        setStored = { QUuid() };
    }
    apart = ApartNot;
    PlaceRows(setStored);
}

void CExpectedSelection::PlaceRows(const NodeIds& setSelected)
{
    const RowKeys setKeptBefore = std::exchange(setKept, {});
    setLast.clear();
    bDeselects = false;
    for (const SPictureRow& row : std::as_const(before.vecRow)) {
        if (row.key.nType != NodeInfo && setSelected.contains(row.key.id)) {
            (setKeptBefore.contains(row.key) ? setKept : setLast).insert(row.key);
        }
    }
}

bool CExpectedSelection::IsLaidOut(const SPictureKey& key) const
{
    const int nRow = PanelPicture::FindRow(before, key);
    return nRow >= 0 && before.vecRow.at(nRow).bLaidOut;
}
