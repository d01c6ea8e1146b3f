#include "panel/SPanelPicture.h"

#include "CNameRegistry.h"

#include <algorithm>

namespace {

void AddIds(NodeIds& setId, const QList<SProcessorNode>& listProcessor)
{
    for (const SProcessorNode& processor : listProcessor) {
        setId.insert(processor.idNode);
    }
}

template <typename FnIs> RowKeys Pick(const SPanelPicture& picture, FnIs fnIs)
{
    RowKeys setRow;
    for (const SPictureRow& row : picture.vecRow) {
        if (fnIs(row)) {
            setRow.insert(row.key);
        }
    }
    return setRow;
}

} // namespace

QVector<int> PanelPicture::GetLaidOut(const SPanelPicture& picture)
{
    QVector<int> vecNumber;
    for (int n = 0; n < picture.vecRow.size(); ++n) {
        if (picture.vecRow.at(n).bLaidOut) {
            vecNumber.append(n);
        }
    }
    return vecNumber;
}

int PanelPicture::FindRow(const SPanelPicture& picture, const SPictureKey& key)
{
    const auto isIt = [&](const SPictureRow& row) { return row.key == key; };
    const auto it = std::find_if(picture.vecRow.cbegin(), picture.vecRow.cend(), isIt);
    return it == picture.vecRow.cend() ? -1 : static_cast<int>(it - picture.vecRow.cbegin());
}

RowKeys PanelPicture::GetSelected(const SPanelPicture& picture)
{
    return Pick(picture, [](const SPictureRow& row) { return row.bSelected; });
}

RowKeys PanelPicture::GetSeen(const SPanelPicture& picture)
{
    return Pick(picture, [](const SPictureRow& row) { return row.bSelected && !row.bHidden; });
}

NodeIds PanelPicture::GetIds(const RowKeys& setRow)
{
    NodeIds setId;
    for (const SPictureKey& key : setRow) {
        if (key.nType != NodeInfo) {
            setId.insert(key.id);
        }
    }
    return setId;
}

NodeIds PanelPicture::GetIds(const SProcessorAllNode& node)
{
    NodeIds setId{ QUuid() };
    for (const SProcessorGroupNode& group : node.listGroup) {
        setId.insert(group.idNode);
        AddIds(setId, group.listProcessor);
    }
    AddIds(setId, node.listProcessor);
    return setId;
}

QString PanelPicture::GetText(const NodeIds& setId)
{
    QStringList listName;
    for (const QUuid& id : setId) {
        listName.append(id.isNull() ? QStringLiteral("root") : CNameRegistry::Instance().Text(id));
    }
    listName.sort();
    return QLatin1Char('[') + listName.join(QLatin1String(", ")) + QLatin1Char(']');
}
