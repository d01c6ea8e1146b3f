#include "Kestrel/replay/CListingNames.h"

#include "journal/replay/SRecordedLine.h"
#include "nodes/SProcessorAllNode.h"

#include <QRegularExpression>

namespace {

QString GetId(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces);
}

} // namespace

void CListingNames::Follow(const SRecordedLine& line)
{
    if (!line.pTree) {
        return;
    }
    strRoot = line.pTree->strName.isEmpty() ? strRoot : line.pTree->strName;
    for (const SProcessorGroupNode& group : line.pTree->listGroup) {
        mapName.insert(GetId(group.idNode), group.strName);
        for (const SProcessorNode& processor : group.listProcessor) {
            mapName.insert(GetId(processor.idNode), processor.strName);
        }
    }
    for (const SProcessorNode& processor : line.pTree->listProcessor) {
        mapName.insert(GetId(processor.idNode), processor.strName);
    }
}

QString CListingNames::GetNode(const QString& strId) const
{
    if (QUuid(strId).isNull()) {
        return strRoot;
    }
    const QString strName = mapName.value(strId);
    return strName.isEmpty() ? strId : QStringLiteral("%1 (%2)").arg(strName, strId);
}

QString CListingNames::AddNames(const QString& strText) const
{
    static const QRegularExpression expression(QStringLiteral("\"([0-9a-f]{8}(?:-[0-9a-f]{4}){3}-[0-9a-f]{12})\""));
    QString strNamed;
    int nEnd = 0;
    for (auto it = expression.globalMatch(strText); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QString strId = match.captured(1);
        strNamed += strText.mid(nEnd, match.capturedStart() - nEnd) + (QUuid(strId).isNull() ? strId : GetNode(strId));
        nEnd = match.capturedEnd();
    }
    return strNamed + strText.mid(nEnd);
}
