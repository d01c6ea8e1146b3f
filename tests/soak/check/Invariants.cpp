#include "check/Invariants.h"

#include "check/KeptExceptions.h"

#include <QHash>

namespace {

using Check = QString (*)(const SPanelPicture&);

QString Describe(const SPictureKey& key)
{
    return QStringLiteral("%1 %2").arg(key.nType).arg(PanelPicture::GetText({ key.id }));
}

/// A row as the library's tree asks for it.
struct SWantedRow
{
    SPictureKey key;
    int nDepth;
    bool bExpanded;
    bool bOpens; ///< there is something to unfold
    bool bHidden;
};

bool Matches(SProcessorNode processor, const QString& strText)
{
    return processor.MatchText(strText);
}

void AddProcessors(QVector<SWantedRow>& vecWanted, const QList<SProcessorNode>& listProcessor, int nDepth, const QString& strText,
                   bool bAllShown)
{
    for (const SProcessorNode& processor : listProcessor) {
        const bool bHidden = !bAllShown && !Matches(processor, strText);
        vecWanted.append({ { NodeProcessor, processor.idNode }, nDepth, processor.bExpanded, true, bHidden });
        vecWanted.append({ { NodeInfo, processor.idNode }, nDepth + 1, false, false, bHidden });
    }
}

bool IsGroupShown(const SProcessorGroupNode& group, const QString& strText)
{
    const bool bName = group.strName.contains(strText, Qt::CaseInsensitive);
    return bName || std::any_of(group.listProcessor.cbegin(), group.listProcessor.cend(), [&](const SProcessorNode& processor) {
               return Matches(processor, strText);
           });
}

QVector<SWantedRow> GetWanted(const SPanelPicture& picture)
{
    const QString& strText = picture.strSearch;
    QVector<SWantedRow> vecWanted{ { { NodeAll, QUuid() }, 0, true, false, false } };
    for (const SProcessorGroupNode& group : picture.Tree().listGroup) {
        vecWanted.append(
            { { NodeGroup, group.idNode }, 1, group.bExpanded, !group.listProcessor.isEmpty(), !IsGroupShown(group, strText) });
        AddProcessors(vecWanted, group.listProcessor, 2, strText, group.strName.contains(strText, Qt::CaseInsensitive));
    }
    AddProcessors(vecWanted, picture.Tree().listProcessor, 1, strText, false);
    return vecWanted;
}

QString FindFirst(const SPanelPicture& picture, const std::vector<Check>& vecCheck)
{
    for (const Check check : vecCheck) {
        const QString strWrong = check(picture);
        if (!strWrong.isEmpty()) {
            return strWrong;
        }
    }
    return {};
}

} // namespace

QString Invariants::CheckRows(const SPanelPicture& picture)
{
    const QVector<SWantedRow> vecWanted = GetWanted(picture);
    for (int n = 0; n < qMax(vecWanted.size(), picture.vecRow.size()); ++n) {
        if (n >= vecWanted.size() || n >= picture.vecRow.size()) {
            return QStringLiteral("%1 rows for %2 of the library").arg(picture.vecRow.size()).arg(vecWanted.size());
        }
        const SWantedRow& wanted = vecWanted.at(n);
        const SPictureRow& row = picture.vecRow.at(n);
        if (!(row.key == wanted.key) || row.nDepth != wanted.nDepth) {
            return QStringLiteral("row %1 is %2, not %3").arg(n).arg(Describe(row.key), Describe(wanted.key));
        }
        if (wanted.bOpens && row.bExpanded != wanted.bExpanded && !picture.setFoldApart.contains(row.key.id)) {
            return QStringLiteral("row %1, %2, is open or folded unlike in the library").arg(n).arg(Describe(row.key));
        }
    }
    return {};
}

QString Invariants::CheckIdMap(const SPanelPicture& picture)
{
    int nNodes = 0;
    for (const SPictureRow& row : picture.vecRow) {
        nNodes += row.key.nType == NodeInfo ? 0 : 1;
        if (row.key.nType != NodeInfo && !row.bMapped) {
            return QStringLiteral("the map of ids does not lead to ") + Describe(row.key);
        }
    }
    return nNodes == picture.nMapped ? QString()
                                     : QStringLiteral("%1 ids in the map for %2 rows").arg(picture.nMapped).arg(nNodes);
}

QString Invariants::CheckFilter(const SPanelPicture& picture)
{
    QHash<SPictureKey, bool> hashHidden;
    const QVector<SWantedRow> vecWanted = GetWanted(picture);
    for (const SWantedRow& wanted : vecWanted) {
        hashHidden.insert(wanted.key, wanted.bHidden);
    }
    for (const SPictureRow& row : picture.vecRow) {
        if (row.bHidden != hashHidden.value(row.key, row.bHidden)) {
            return QStringLiteral("the filter \"%1\" is wrong about %2").arg(picture.strSearch, Describe(row.key));
        }
    }
    return {};
}

QString Invariants::CheckBusy(const SPanelPicture& picture)
{
    return picture.nBusy == 0 ? QString() : QStringLiteral("%1 SetBusy(true) too many").arg(picture.nBusy);
}

QString Invariants::CheckNothingOpen(const SPanelPicture& picture)
{
    return picture.listOpen.isEmpty() ? QString() : QStringLiteral("still open: ") + picture.listOpen.join(QLatin1String(", "));
}

QString Invariants::CheckPane(const SPanelPicture& picture)
{
    return picture.bSimulator == picture.bLibrarySimulator ? QString() : QStringLiteral("the library is in the other pane");
}

QString Invariants::CheckComplaints(const SPanelPicture& picture)
{
    for (const QString& strComplaint : picture.listComplaint) {
        if (!KeptExceptions::IsComplaint(strComplaint)) {
            return QStringLiteral("complaint: ") + strComplaint;
        }
    }
    return {};
}

QString Invariants::CheckSettled(const SPanelPicture& picture)
{
    return picture.bSettled ? QString() : QStringLiteral("messages or jobs without an end");
}

QString Invariants::CheckSelection(const SPanelPicture& picture, const std::array<CExpectedSelection, 2>& arrExpected)
{
    for (size_t n = 0; n < arrExpected.size(); ++n) {
        const std::vector<QUuid>& vecSelected = picture.arrSelected[n];
        const QString strWrong = Compare(QStringLiteral("the library has selected"), { vecSelected.cbegin(), vecSelected.cend() },
                                         arrExpected[n].GetStored());
        if (!strWrong.isEmpty()) {
            return strWrong;
        }
    }
    return Compare(QStringLiteral("selected rows"), PanelPicture::GetIds(PanelPicture::GetSelected(picture)),
                   PanelPicture::GetIds(arrExpected[picture.bSimulator ? 1 : 0].GetRows()));
}

QString Invariants::Compare(const QString& strWhat, const NodeIds& setFound, const NodeIds& setWanted)
{
    return setFound == setWanted
        ? QString()
        : QStringLiteral("%1 %2 instead of %3").arg(strWhat, PanelPicture::GetText(setFound), PanelPicture::GetText(setWanted));
}

QString Invariants::CheckUnderFault(const SPanelPicture& picture)
{
    return FindFirst(picture, { CheckSettled, CheckBusy, CheckNothingOpen, CheckComplaints });
}

QString Invariants::CheckAll(const SPanelPicture& picture)
{
    return FindFirst(
        picture, { CheckSettled, CheckBusy, CheckNothingOpen, CheckPane, CheckComplaints, CheckRows, CheckIdMap, CheckFilter });
}
