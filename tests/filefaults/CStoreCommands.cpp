#include "CStoreCommands.h"

#include "CorvidControl/file/ListFormat.h"
#include "interfaces/control/CorvidControl.h"

#include <QCryptographicHash>

namespace {

SProcessorAllNode GetTree()
{
    SProcessorAllNode node;
    g_pPrcListControl->GetDiscoveredTree(node);
    return node;
}

QUuid GetFirstGroup()
{
    const SProcessorAllNode node = GetTree();
    return node.listGroup.isEmpty() ? QUuid() : node.listGroup.first().idNode;
}

void AddGroup(const QString& strName)
{
    SProcessorGroupNode group;
    group.idNode = QUuid::createUuidV5(QUuid(), strName); // the same list each time
    group.strName = strName;
    g_pPrcListControl->AddGroup(group, true);
}

void DeleteFirstGroup()
{
    g_pRuntimeControl->SetBusy(true);
    g_pPrcListControl->DeleteGroup(GetFirstGroup(), true);
    g_pRuntimeControl->SetBusy(false);
}

QString GetCheckSum()
{
    return QString::fromLatin1(QCryptographicHash::hash(ListFormat::Write(GetTree()), QCryptographicHash::Sha256).toHex());
}

} // namespace

CStoreCommands::CStoreCommands(const QString& strListFile)
{
    options.strListFile = strListFile;
    options.bQuietDay = false;
    options.nReleaseMs = 0;
}

QString CStoreCommands::Run(const QString& strCommand, const QString& strArgument)
{
    if (strCommand == QLatin1String("start")) {
        return Start();
    }
    if (strCommand == QLatin1String("list")) {
        return GetCheckSum();
    }
    if (strCommand == QLatin1String("warnings")) {
        return TakeWarnings();
    }
    if (strCommand == QLatin1String("end")) {
        return End();
    }
    return Change(strCommand, strArgument);
}

QString CStoreCommands::Start()
{
    pLibrary = std::make_unique<CControlLibrary>(options);
    pLibrary->keeper.Stop(); // on a busy machine it would save in the middle of anything
    QObject::connect(
        &pLibrary->events, &CHostEvents::LogLine, &pLibrary->events,
        [this](const QString& strLine) { listWarning.append(strLine); }, Qt::DirectConnection);
    return pLibrary->store.GetTrouble();
}

QString CStoreCommands::Change(const QString& strCommand, const QString& strArgument)
{
    if (strCommand == QLatin1String("rename")) {
        g_pPrcListControl->RenameGroup(GetFirstGroup(), strArgument);
    } else if (strCommand == QLatin1String("add")) {
        AddGroup(strArgument);
    } else if (strCommand == QLatin1String("delete")) {
        DeleteFirstGroup();
    } else if (strCommand == QLatin1String("import")) {
        return QString::number(g_pPrcListControl->ImportList(strArgument));
    } else if (strCommand == QLatin1String("earlier")) {
        return TakeEarlier();
    } else if (strCommand == QLatin1String("refused")) {
        return QString::number(pLibrary->store.UseRefused() ? 1 : 0);
    } else {
        return Save(strCommand, strArgument);
    }
    return {};
}

QString CStoreCommands::Save(const QString& strCommand, const QString& strArgument)
{
    if (strCommand == QLatin1String("save")) {
        return QString::number(g_pPrcListControl->ExportList(options.strListFile, 0));
    }
    if (strCommand == QLatin1String("leave")) {
        return pLibrary->store.Save();
    }
    if (strCommand == QLatin1String("export")) {
        return QString::number(g_pPrcListControl->ExportList(strArgument, 0));
    }
    if (strCommand != QLatin1String("aside")) {
        qFatal("no such command: %s", qPrintable(strCommand));
    }
    QString strReason;
    return pLibrary->store.SaveAside(strReason);
}

QString CStoreCommands::TakeEarlier()
{
    const QList<SEarlierList> listEarlier = pLibrary->store.FindEarlier();
    return QString::number(!listEarlier.isEmpty() && pLibrary->store.TakeEarlier(listEarlier.first().strPath) ? 1 : 0);
}

QString CStoreCommands::TakeWarnings()
{
    const QString strLine = listWarning.join(QLatin1Char('|'));
    listWarning.clear();
    return strLine;
}

QString CStoreCommands::End()
{
    const bool bSecured = pLibrary->store.SaveSoon();
    pLibrary.reset();
    return QString::number(bSecured ? 1 : 0);
}
