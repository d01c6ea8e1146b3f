#include "CorvidControl/tools/ExampleLists.h"

#include "CorvidControl/devices/DeviceTypes.h"

#include <QStringList>

namespace {

constexpr quint32 nFirstAddress = 0xC0A8010B; // 192.168.1.11: the panel's first proposal stays free
constexpr qint32 nPrimary = 1;
constexpr qint32 nBackup = 2;

QUuid BuildId(const QString& strKind, int nNumber)
{
    static const QUuid idSpace(QStringLiteral("{d2b8f0a4-3c55-4e1f-9a0e-7f3c5b1e6d90}"));
    return QUuid::createUuidV5(idSpace, strKind + QString::number(nNumber));
}

// Hands out ids and addresses in the order in which the nodes are built.
class CBuilder
{
public:
    SProcessorNode BuildProcessor(const QString& strName, const QString& strProject, qint32 nModel = 12)
    {
        SProcessorNode processor;
        processor.idNode = BuildId(QStringLiteral("processor"), nProcessor);
        processor.idAux = BuildId(QStringLiteral("aux"), nProcessor);
        processor.strName = strName;
        processor.nModel = nModel;
        processor.strType = DeviceTypes::GetName(nModel);
        processor.nIP = nFirstAddress + static_cast<quint32>(nProcessor / 240 * 256 + nProcessor % 240);
        processor.bOnline = true;
        processor.bExpanded = false;
        processor.strProject = strProject;
        ++nProcessor;
        return processor;
    }

    SProcessorGroupNode BuildGroup(const QString& strName, bool bExpanded)
    {
        SProcessorGroupNode group;
        group.idNode = BuildId(QStringLiteral("group"), ++nGroup);
        group.strName = strName;
        group.bExpanded = bExpanded;
        group.setAux = { nGroup, nGroup + 100 };
        return group;
    }

    // Processors "strName 1" and so on, all of one project.
    SProcessorGroupNode BuildRow(const QString& strGroup, const QString& strName, int nCount, const QString& strProject,
                                 qint32 nModel, bool bExpanded)
    {
        SProcessorGroupNode group = BuildGroup(strGroup, bExpanded);
        for (int n = 1; n <= nCount; ++n) {
            group.listProcessor.append(BuildProcessor(QStringLiteral("%1 %2").arg(strName).arg(n), strProject, nModel));
        }
        return group;
    }

private:
    int nProcessor = 0;
    int nGroup = 0;
};

void MakePair(SProcessorGroupNode& group, int nFirst)
{
    group.listProcessor[nFirst].nFailover = nPrimary;
    group.listProcessor[nFirst + 1].nFailover = nBackup;
}

void MakeChief(SProcessorGroupNode& group, int nIndex)
{
    group.idChief = group.listProcessor.at(nIndex).idNode;
    group.listProcessor[nIndex].nChief = 1;
}

SProcessorGroupNode BuildStage(CBuilder& builder)
{
    SProcessorGroupNode group = builder.BuildGroup(QStringLiteral("Main stage"), true);
    const QStringList listName{ QStringLiteral("Wall left"),   QStringLiteral("Wall left spare"),
                                QStringLiteral("Wall centre"), QStringLiteral("Wall centre spare"),
                                QStringLiteral("Wall right"),  QStringLiteral("Wall right spare"),
                                QStringLiteral("Floor"),       QStringLiteral("Ceiling"),
                                QStringLiteral("Portal"),      QStringLiteral("Stage monitor") };
    for (const QString& strName : listName) {
        group.listProcessor.append(builder.BuildProcessor(strName, QStringLiteral("Aurora"), 30));
    }
    MakePair(group, 0);
    MakePair(group, 2);
    MakePair(group, 4);
    MakeChief(group, 2);
    group.listProcessor[2].bExpanded = true;
    group.listProcessor[9].bOnline = false;
    return group;
}

SProcessorGroupNode BuildNames(CBuilder& builder)
{
    SProcessorGroupNode group = builder.BuildGroup(QStringLiteral("北京演播室"), true);
    const QStringList listName{ QStringLiteral("左侧大屏"),
                                QStringLiteral("右侧大屏"),
                                QStringLiteral("舞台地砖"),
                                QStringLiteral("リハーサル室モニター"),
                                QStringLiteral("서울 스튜디오 중앙 화면"),
                                QStringLiteral("演播室主屏幕左侧备用处理器第一号机柜上层左x"), // 64 bytes
                                QStringLiteral("A processor whose name is as long as a name can ever be, 64 byte") };
    for (const QString& strName : listName) {
        group.listProcessor.append(builder.BuildProcessor(strName, QStringLiteral("春节晚会"), 22));
    }
    MakePair(group, 0);
    group.listProcessor[4].bOnline = false;
    return group;
}

} // namespace

SProcessorAllNode ExampleLists::BuildStudio()
{
    CBuilder builder;
    QList<SProcessorGroupNode> listGroup;
    listGroup.append(BuildStage(builder));
    listGroup.append(
        builder.BuildRow(QStringLiteral("Side screens"), QStringLiteral("Side screen"), 8, QStringLiteral("Aurora"), 12, true));
    listGroup.append(BuildNames(builder));
    listGroup.append(builder.BuildGroup(QStringLiteral("Spare rack"), true));
    listGroup.append(builder.BuildRow(QStringLiteral("Foyer and ticket hall"), QStringLiteral("Foyer"), 6,
                                      QStringLiteral("Welcome loop"), 41, false));
    listGroup.append(builder.BuildRow(QStringLiteral("Broadcast"), QStringLiteral("Studio B camera wall"), 9,
                                      QStringLiteral("Evening News"), 12, true));
    listGroup.append(
        builder.BuildRow(QStringLiteral("Touring rack 1"), QStringLiteral("Tour"), 10, QStringLiteral("Summer Tour"), 30, false));
    listGroup.append(builder.BuildRow(QStringLiteral("Rehearsal"), QStringLiteral("Rehearsal"), 4, QString(), 22, true));
    listGroup.append(builder.BuildGroup(QStringLiteral("Group 1"), false));
    listGroup.append(builder.BuildRow(QStringLiteral("Workshop"), QStringLiteral("Bench"), 5, QString(), 12, false));
    MakePair(listGroup[1], 0);
    MakePair(listGroup[5], 0);
    MakePair(listGroup[5], 2);
    MakeChief(listGroup[5], 0);
    MakePair(listGroup[6], 0);
    listGroup[1].listProcessor[5].bOnline = false;
    listGroup[7].listProcessor[0].bOnline = false;
    listGroup[9].listProcessor[3].bOnline = false;
    SProcessorAllNode node;
    node.listGroup = listGroup;
    const QStringList listSingle{ QStringLiteral("Lobby clock"), QStringLiteral("Roof sign"), QStringLiteral("Test bench"),
                                  QStringLiteral("Loan unit 7"), QStringLiteral("Service case") };
    QList<SProcessorNode>& listProcessor = node.listProcessor;
    for (const QString& strName : listSingle) {
        listProcessor.append(builder.BuildProcessor(strName, QStringLiteral("Welcome loop"), 41));
    }
    listProcessor[2].strProject.clear();
    listProcessor[3].bOnline = false;
    return node;
}

SProcessorAllNode ExampleLists::BuildLimits()
{
    CBuilder builder;
    SProcessorAllNode node;
    for (int n = 1; n <= 256; ++n) {
        SProcessorGroupNode group = builder.BuildGroup(QStringLiteral("Group %1").arg(n), n % 4 != 0);
        SProcessorNode processor
            = builder.BuildProcessor(QStringLiteral("Processor %1").arg(n), QStringLiteral("Project %1").arg(n % 8 + 1));
        processor.nFailover = n % 3;
        processor.bOnline = n % 16 != 0;
        group.listProcessor.append(processor);
        if (n % 32 == 0) {
            MakeChief(group, 0);
        }
        node.listGroup.append(group);
    }
    return node;
}

SProcessorAllNode ExampleLists::BuildSingle()
{
    CBuilder builder;
    SProcessorAllNode node;
    node.listProcessor.append(builder.BuildProcessor(QStringLiteral("Processor 1"), QStringLiteral("Aurora")));
    return node;
}

SProcessorAllNode ExampleLists::BuildEmpty()
{
    return {};
}
