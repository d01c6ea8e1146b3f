#include "Builders.h"

#include "CNameRegistry.h"

#include <QHostAddress>

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
