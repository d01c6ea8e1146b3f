#include "CFaultWindow.h"

#include "Kestrel/player/PanelAccess.h"
#include "PaneRows.h"
#include "PaneText.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "nodes/EnNodeType.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int nMark = 7777; // a message that means nothing to anybody
constexpr int nListChanged = 1;
constexpr int nRoleNodeId = Qt::UserRole + 1;
constexpr int nSettled = 59;

QModelIndex FindRow(const QAbstractItemModel* pModel, const QModelIndex& indexParent, const QString& strName)
{
    for (int n = 0; n < pModel->rowCount(indexParent); ++n) {
        const QModelIndex index = pModel->index(n, 0, indexParent);
        if (index.data(Qt::AccessibleTextRole).toString().startsWith(strName + ", ")) {
            return index;
        }
        const QModelIndex indexFound = FindRow(pModel, index, strName);
        if (indexFound.isValid()) {
            return indexFound;
        }
    }
    return {};
}

void AddIds(const QJsonValue& value, QSet<QUuid>& setId)
{
    const QJsonArray array = value.toArray();
    for (const QJsonValue& entry : array) {
        AddIds(entry, setId);
    }
    const QUuid id(value.toString());
    if (!id.isNull()) {
        setId.insert(id);
    }
}

} // namespace

CFaultWindow::CFaultWindow()
{
    Name(CListWindow::List());
    Read();
    QTRY_COMPARE(ShownRows(), TrueRows());
    Settle();
    commands.Take();
}

void CFaultWindow::Name(const SProcessorAllNode& node)
{
    QList<SProcessorNode> listProcessor = node.listProcessor;
    for (const SProcessorGroupNode& group : node.listGroup) {
        commands.Name(group.idNode, group.strName);
        listProcessor += group.listProcessor;
    }
    for (const SProcessorNode& processor : std::as_const(listProcessor)) {
        commands.Name(processor.idNode, processor.strName);
    }
}

void CFaultWindow::Break(const QString& strStep) const
{
    QCOMPARE(TryBreak(strStep), QString());
}

QString CFaultWindow::TryBreak(const QString& strStep) const
{
    const QByteArray text = QStringLiteral("{%1}").arg(strStep).replace('\'', '"').toUtf8();
    return kestrel.pHost->TakeFault(QJsonDocument::fromJson(text).object());
}

void CFaultWindow::AndSettled(const std::function<void()>& fnRaise)
{
    g_pRuntimeControl->PostMessage(nMark);
    QTRY_VERIFY(commands.Messages().contains(nMark));
    QTRY_COMPARE(commands.Messages().constLast(), nSettled);
    commands.Forget();
    fnRaise();
    QTRY_VERIFY(commands.Messages().contains(nSettled));
}

void CFaultWindow::Read()
{
    AndSettled([] { g_pRuntimeControl->PostMessage(nListChanged); });
    QTRY_VERIFY(!commands.Pick("GetSimulatorTree").isEmpty());
}

QString CFaultWindow::ShownRows() const
{
    return PaneRows::GetShown(kestrel.Tree());
}

QString CFaultWindow::TrueRows() const
{
    return PaneRows::GetTruth(kestrel.pHost->GetSnapshot().discovered, g_pRuntimeControl->GetSelectedNodes(false));
}

QModelIndex CFaultWindow::Row(const QString& strName) const
{
    return FindRow(kestrel.Tree()->model(), kestrel.Tree()->model()->index(0, 0), strName);
}

QUuid CFaultWindow::Id(const QModelIndex& index)
{
    return PanelAccess::GetNodeId(index);
}

void CFaultWindow::Click(const QString& strName, Qt::KeyboardModifiers modifiers)
{
    QVERIFY2(Row(strName).isValid(), qPrintable(strName));
    PanelAccess::ClickRow(kestrel.Tree(), Row(strName), modifiers);
}

QModelIndex CFaultWindow::RowOf(const QUuid& id, int nWhich) const
{
    const QAbstractItemModel* pModel = kestrel.Tree()->model();
    QModelIndexList listRow = pModel->match(pModel->index(0, 0), nRoleNodeId, id, -1, Qt::MatchExactly | Qt::MatchRecursive);
    const auto isInfo = [](const QModelIndex& index) { return PanelAccess::GetNodeType(index) == NodeInfo; };
    listRow.erase(std::remove_if(listRow.begin(), listRow.end(), isInfo), listRow.end());
    return listRow.value(nWhich);
}

void CFaultWindow::AwaitReadings()
{
    const int nBefore = commands.Pick("GetSimulatorTree").size();
    QTRY_VERIFY(commands.Pick("GetSimulatorTree").size() >= nBefore + 2);
}

QSet<QUuid> CFaultWindow::CommandedIds()
{
    static const QStringList listOperation{ "DeleteProcessor", "DeleteGroup", "RenameProcessor", "RenameGroup", "MoveProcessor" };
    QSet<QUuid> setId;
    for (const QString& strOperation : listOperation) {
        for (const QJsonObject& line : commands.Pick(strOperation)) {
            AddIds(line.value("args"), setId);
        }
    }
    for (const QJsonObject& line : commands.Pick("AddGroup")) {
        setId.remove(QUuid(line.value("args").toArray().first().toObject().value("id").toString()));
    }
    return setId;
}

QSet<QUuid> CFaultWindow::ReportedIds()
{
    QSet<QUuid> setId;
    for (const QJsonObject& line : commands.Pick("SetSelectedNodes")) {
        const QJsonArray array = line.value("args").toArray().first().toArray();
        for (const QJsonValue& id : array) {
            setId.insert(QUuid(id.toString()));
        }
    }
    return setId;
}

QList<QUuid> CFaultWindow::FirstIds(const QString& strOperation)
{
    QList<QUuid> listId;
    for (const QJsonObject& line : commands.Pick(strOperation)) {
        if (line.value("kind").toString() == "call") {
            listId.append(QUuid(line.value("args").toArray().first().toString()));
        }
    }
    return listId;
}

QString CFaultWindow::Shown(bool bSimulator) const
{
    return PaneText::GetShown(Tree(bSimulator));
}

QString CFaultWindow::Truth(bool bSimulator)
{
    return PaneText::GetTruth(bSimulator);
}

bool CFaultWindow::IsTrueAfterTheNextMessage()
{
    SProcessorGroupNode group;
    group.idNode = QUuid::createUuid();
    group.strName = QStringLiteral("Later %1").arg(++nGroups);
    g_pPrcListControl->AddGroup(group, true);
    const bool bSimulator = g_pRuntimeControl->IsSimulatorPane();
    return QTest::qWaitFor([&] { return Shown(bSimulator).contains(group.strName) && Shown(bSimulator) == Truth(bSimulator); },
                           nPatience);
}

bool CFaultWindow::HasSent(const QStringList& listCommand)
{
    QStringList listRest = commands.Get();
    if (listRest.mid(0, listCommand.size()) != listCommand) {
        return false;
    }
    listRest = listRest.mid(listCommand.size());
    listRest.removeAll(commands.GetSelecting(g_pRuntimeControl->GetSelectedNodes(g_pRuntimeControl->IsSimulatorPane())));
    listRest.removeAll(QStringLiteral("gui: PrcListControl.AddGroup(Later %1, true)").arg(nGroups)); // by the test
    return listRest.isEmpty();
}

bool CFaultWindow::Settle()
{
    return QTest::qWaitFor([this] { return !kestrel.jobs.IsBusy() && kestrel.jobs.GetRunning().isEmpty(); }, nPatience);
}

void CFaultWindow::OpenPanel()
{
    kestrel.pPanel = kestrel.loader.Load({}, kestrel.window);
    kestrel.window.SetPanel(kestrel.pPanel->GetWidget());
}

QStringList CFaultWindow::Operations()
{
    QStringList listOperation;
    const QDir folder(QStringLiteral(INTERFACES_FOLDER));
    for (const QString& strFile : folder.entryList({ QStringLiteral("I*.h") })) {
        QFile file(folder.filePath(strFile));
        file.open(QIODevice::ReadOnly);
        static const QRegularExpression expression(QStringLiteral("virtual .*?(\\w+)\\([^\\n]*= 0;"));
        for (auto it = expression.globalMatch(QString::fromUtf8(file.readAll())); it.hasNext();) {
            listOperation.append(strFile.mid(1, strFile.size() - 3) + QLatin1Char('.') + it.next().captured(1));
        }
    }
    listOperation.sort();
    return listOperation;
}

QTreeView* CFaultWindow::Tree(bool bSimulator) const
{
    return PaneText::FindTree(kestrel.pPanel->GetWidget(), bSimulator);
}
