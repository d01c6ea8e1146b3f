#include "Builders.h"

#include "CNameRegistry.h"

#include <QHostAddress>

#include <limits>

CProcessorBuilder::CProcessorBuilder(const QString& strName)
{
    node.strName = strName;
    node.idNode = ProcessorId(strName);
}

CProcessorBuilder& CProcessorBuilder::Id(const QString& strIdName)
{
    return NodeId(ProcessorId(strIdName));
}

CProcessorBuilder& CProcessorBuilder::NodeId(const QUuid& id)
{
    node.idNode = id;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Aux(const QUuid& id)
{
    node.idAux = id;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Online(bool bOnline)
{
    node.bOnline = bOnline;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Expanded(bool bExpanded)
{
    node.bExpanded = bExpanded;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Primary()
{
    return Failover(1);
}

CProcessorBuilder& CProcessorBuilder::Backup()
{
    return Failover(2);
}

CProcessorBuilder& CProcessorBuilder::Failover(qint32 nFailover)
{
    node.nFailover = nFailover;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Chief(qint32 nChief)
{
    node.nChief = nChief;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Project(const QString& strProject)
{
    node.strProject = strProject;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Ip(const QString& strIP)
{
    return Ip(QHostAddress(strIP).toIPv4Address());
}

CProcessorBuilder& CProcessorBuilder::Ip(quint32 nIP)
{
    node.nIP = nIP;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Ports(quint32 nPortA, quint32 nPortB)
{
    node.nPortA = nPortA;
    node.nPortB = nPortB;
    return *this;
}

CProcessorBuilder& CProcessorBuilder::Type(qint32 nModel, const QString& strType)
{
    node.nModel = nModel;
    node.strType = strType;
    return *this;
}

CGroupBuilder::CGroupBuilder(const QString& strName, const QList<SProcessorNode>& listProcessor)
{
    node.strName = strName;
    node.idNode = GroupId(strName);
    node.listProcessor = listProcessor;
}

CGroupBuilder& CGroupBuilder::Id(const QString& strIdName)
{
    return NodeId(GroupId(strIdName));
}

CGroupBuilder& CGroupBuilder::NodeId(const QUuid& id)
{
    node.idNode = id;
    return *this;
}

CGroupBuilder& CGroupBuilder::Expanded(bool bExpanded)
{
    node.bExpanded = bExpanded;
    return *this;
}

CGroupBuilder& CGroupBuilder::Chief(const QString& strProcessor)
{
    node.idChief = ProcessorId(strProcessor);
    return *this;
}

CGroupBuilder& CGroupBuilder::Aux(const QSet<int>& setAux)
{
    node.setAux = setAux;
    return *this;
}

CProcessorBuilder Processor(const QString& strName)
{
    return CProcessorBuilder(strName);
}

CGroupBuilder Group(const QString& strName, const QList<SProcessorNode>& listProcessor)
{
    return CGroupBuilder(strName, listProcessor);
}

SProcessorAllNode Root(const QList<SProcessorGroupNode>& listGroup, const QList<SProcessorNode>& listProcessor)
{
    SProcessorAllNode node;
    node.listGroup = listGroup;
    node.listProcessor = listProcessor;
    return node;
}

SProcessorAllNode BuildLongestList()
{
    constexpr int nNodes = 256;
    constexpr int nNumbers = 32;
    constexpr int nNameBytes = 64;
    constexpr int nTextBytes = 256;
    QSet<int> setAux;
    for (int n = 0; n < nNumbers; ++n) {
        setAux.insert(std::numeric_limits<int>::min() + n);
    }
    const QString strName(nNameBytes, QLatin1Char('"')); // two bytes each in a file
    const QString strText(nTextBytes, QLatin1Char('"'));
    SProcessorAllNode node;
    for (int n = 0; n < nNodes; ++n) {
        const QString strId = QStringLiteral("longest %1").arg(n);
        const SProcessorNode processor = Processor(strName)
                                             .Id(strId)
                                             .Aux(ProcessorId(strId))
                                             .Project(strText)
                                             .Type(std::numeric_limits<qint32>::min(), strText)
                                             .Chief(std::numeric_limits<qint32>::min())
                                             .Ports(std::numeric_limits<quint32>::max(), std::numeric_limits<quint32>::max())
                                             .Ip(0xC8C8C800U + static_cast<quint32>(n));
        node.listGroup.append(Group(strName, { processor }).Id(strId).Aux(setAux));
    }
    return node;
}
