#pragma once

#include <QStandardItem>
#include <QUuid>

/// One row: the id of its node and its kind. It has no text and no icon; the delegate looks the node up in
/// the store by id whenever it paints. GUI thread.
///
/// A row builds its own children from the store's current pane, so that giving the root its id builds
/// the whole tree: groups first, then the processors that are in no group, and under every processor
/// exactly one information row.
class CProcessorItem : public QStandardItem
{
public:
    /// nType is an EnNodeType; the new row is 32 pixels high and has no children.
    explicit CProcessorItem(int nType);
    ~CProcessorItem() override;

    /// The id that SetNodeId was given. Null for an information row, which has its processor's id in
    /// RoleNodeId only.
    QUuid GetNodeId() const;

    /// Stores the id and builds the children.
    void SetNodeId(const QUuid& id);

    /// Replaces the children. A group that the store does not know is left without any.
    void UpdateChildren();

private:
    void BuildPane();
    void BuildMembers();
    void BuildInfo();

    QUuid idNode;
};
