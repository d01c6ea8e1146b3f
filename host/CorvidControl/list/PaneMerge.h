#pragma once

#include "nodes/SProcessorAllNode.h"

#include <QHash>

/// What becomes of a pane when an edit is taken back or made again.
struct SPaneMerge
{
    SProcessorAllNode result;       ///< the pane as it is to be
    bool bChanged = false;          ///< result is another than the present tree
    QList<SProcessorNode> listGone; ///< processors of the present tree that go, as they are there
    QList<SProcessorNode> listBack; ///< as they are in result: processors that come back, or that get another type or address

    /// An address of those that come back or get another one that another processor of the result has too, unless it was so
    /// before; 0 when there is none.
    quint32 nTakenIP = 0;
};

/// The three-way comparison behind undo. Pure functions, for any thread; no rule about what a list may hold, and
/// no lock.
namespace PaneMerge {

/// What differs between from and to is changed in present, and nothing else. Nodes that are in to alone come back,
/// those that are at the root again to their place and name, unless they are in a group; those in from alone go. A Chief that
/// came since stays, but where the Chief is all that differs in a group. Names, Chiefs, groups, order and what only a file
/// changes (type, address, ports) become those of to where to differs from from. What came since stays, so does what is folded
/// and what devices report. hashHeard has what is known now of processors that come back; others come as they are in to.
SPaneMerge Merge(const SProcessorAllNode& from, const SProcessorAllNode& to, const SProcessorAllNode& present,
                 const QHash<QUuid, SProcessorNode>& hashHeard = {});

/// The order of the ids in setMember, of one group or of the root. Those in listPresent stay as they are there,
/// but for those that changed places between listFrom and listTo; all others come behind their nearest earlier neighbour of
/// listTo that is there, or to the front. Ids that are in none of the lists are left out.
QList<QUuid> MergeOrder(const QList<QUuid>& listFrom, const QList<QUuid>& listTo, const QList<QUuid>& listPresent,
                        const QSet<QUuid>& setMember);

} // namespace PaneMerge
