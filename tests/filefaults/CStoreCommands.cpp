#include "CStoreCommands.h"

#include "CorvidControl/file/ListFormat.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

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
    group.idNode = QUuid::createUuid();
    group.strName = strName;
    g_pPrcListControl->AddGroup(group, true);
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
    if (strCommand == QLatin1String("save")) {
        return QString::number(g_pPrcListControl->ExportList(options.strListFile, 0));
    }
    if (strCommand == QLatin1String("leave")) {
        return pHost->SaveList();
    }
    if (strCommand == QLatin1String("export")) {
        return QString::number(g_pPrcListControl->ExportList(strArgument, 0));
    }
    if (strCommand == QLatin1String("import")) {
        return QString::number(g_pPrcListControl->ImportList(strArgument));
    }
    if (strCommand == QLatin1String("list")) {
        return GetCheckSum();
    }
    return Change(strCommand, strArgument);
}

QString CStoreCommands::Start()
{
    pHost = CControlHost::Start(options);
    QObject::connect(pHost.get(), &CControlHost::LogLine, pHost.get(),
                     [this](const QString& strLine) { listWarning.append(strLine); }, Qt::DirectConnection);
    return pHost->GetListTrouble();
}

QString CStoreCommands::Change(const QString& strCommand, const QString& strArgument)
{
    if (strCommand == QLatin1String("rename")) {
        g_pPrcListControl->RenameGroup(GetFirstGroup(), strArgument);
    } else if (strCommand == QLatin1String("add")) {
        AddGroup(strArgument);
    } else if (strCommand == QLatin1String("delete")) {
        DeleteFirstGroup();
    } else if (strCommand == QLatin1String("earlier")) {
        return TakeEarlier();
    } else if (strCommand == QLatin1String("refused")) {
        return QString::number(pHost->UseRefusedList() ? 1 : 0);
    } else if (strCommand == QLatin1String("aside")) {
        QString strReason;
        return pHost->SaveListAside(strReason);
    } else if (strCommand == QLatin1String("warnings")) {
        return TakeWarnings();
    } else if (strCommand == QLatin1String("end")) {
        pHost.reset();
    } else {
        qFatal("no such command: %s", qPrintable(strCommand));
    }
    return {};
}

QString CStoreCommands::TakeEarlier()
{
    const QList<SEarlierList> listEarlier = pHost->GetEarlierLists();
    return QString::number(!listEarlier.isEmpty() && pHost->TakeEarlierList(listEarlier.first().strPath) ? 1 : 0);
}

QString CStoreCommands::TakeWarnings()
{
    const QString strLine = listWarning.join(QLatin1Char('|'));
    listWarning.clear();
    return strLine;
}

void CStoreCommands::DeleteFirstGroup()
{
    g_pRuntimeControl->SetBusy(true);
    g_pPrcListControl->DeleteGroup(GetFirstGroup(), true);
    g_pRuntimeControl->SetBusy(false);
}
