#pragma once

#include "nodes/SProcessorAllNode.h"

/// Records for tests, written as they are read:
///
///     Root({ Group("Stage", { Processor("alpha").Online().Primary(), Processor("beta").Ip("10.0.0.7") }) },
///          { Processor("loose").Type(12, "KX-4").Expanded(false) })
///
/// What is not set has the record's own default. Ids come from the name (ProcessorId, GroupId of
/// CNameRegistry.h) and are the same in every run; Id("alpha/2") gives a second one of the same name
/// an id of its own, which prints as "alpha/2".
class CProcessorBuilder
{
public:
    explicit CProcessorBuilder(const QString& strName);

    CProcessorBuilder& Id(const QString& strIdName);
    CProcessorBuilder& NodeId(const QUuid& id);
    CProcessorBuilder& Aux(const QUuid& id);
    CProcessorBuilder& Online(bool bOnline = true);
    CProcessorBuilder& Expanded(bool bExpanded = true);
    CProcessorBuilder& Primary(); ///< nFailover 1
    CProcessorBuilder& Backup();  ///< nFailover 2
    CProcessorBuilder& Failover(qint32 nFailover);
    CProcessorBuilder& Chief(qint32 nChief = 1);
    CProcessorBuilder& Project(const QString& strProject);
    CProcessorBuilder& Ip(const QString& strIP); ///< dotted
    CProcessorBuilder& Ip(quint32 nIP);          ///< host order
    CProcessorBuilder& Ports(quint32 nPortA, quint32 nPortB);
    CProcessorBuilder& Type(qint32 nModel, const QString& strType);

    operator SProcessorNode() const // NOLINT: implicit on purpose, so that lists read well
    {
        return node;
    }

private:
    SProcessorNode node;
};

/// As CProcessorBuilder, for a group.
class CGroupBuilder
{
public:
    CGroupBuilder(const QString& strName, const QList<SProcessorNode>& listProcessor);

    CGroupBuilder& Id(const QString& strIdName);
    CGroupBuilder& NodeId(const QUuid& id);
    CGroupBuilder& Expanded(bool bExpanded = true);
    CGroupBuilder& Chief(const QString& strProcessor); ///< the processor of that name is the Chief
    CGroupBuilder& Aux(const QSet<int>& setAux);

    operator SProcessorGroupNode() const // NOLINT: implicit on purpose, so that lists read well
    {
        return node;
    }

private:
    SProcessorGroupNode node;
};

CProcessorBuilder Processor(const QString& strName);
CGroupBuilder Group(const QString& strName, const QList<SProcessorNode>& listProcessor = {});
SProcessorAllNode Root(const QList<SProcessorGroupNode>& listGroup, const QList<SProcessorNode>& listProcessor = {});

/// The list that takes most bytes as a file and most time to read: as many groups and processors as there
/// may be, with texts as long as they may be.
SProcessorAllNode BuildLongestList();
