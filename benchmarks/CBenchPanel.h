#pragma once

#include "double/CControlDouble.h"
#include "nodes/SProcessorAllNode.h"

#include <QObject>
#include <QScopedPointer>
#include <QWidget>

class CProcessorTree;
class ICorvidWidget;

/// The whole panel over a control library of plain data, shown in a window of a host.
class CBenchPanel : public QObject
{
public:
    static constexpr int nWidth = 320;
    static constexpr int nDefaultHeight = 800;

    /// nHeight is that of the tree's viewport, in pixels.
    explicit CBenchPanel(int nHeight = nDefaultHeight);
    ~CBenchPanel() override;

    /// The style sheet that both sides of a comparison wear.
    static QString Sheet();

    /// nProcessors spread evenly over nGroups groups; every second group open, no information row open.
    static SProcessorAllNode MakeGroupedTree(int nProcessors, int nGroups);

    /// A root with processors in no group, so that nRows rows show; each is online and has a role.
    static SProcessorAllNode MakeMarkedTree(int nRows);

    /// Gives the library a new tree and waits until it is on the screen.
    void SetTree(const SProcessorAllNode& node);
    const SProcessorAllNode& Tree() const;

    /// What the store names as selected; the rows follow with the next rebuild.
    void SelectFirstProcessor();

    /// The root, all groups and all processors, in the order of the rows.
    void SelectAll();

    /// The library drops one processor or gets it back; nobody is told yet.
    void ChangeOneProcessor();

    /// Raises the library's message and returns when the rows are painted.
    void SendMessageAndWaitForPaint();

    /// Delivers what is still under way, the second paint of a rebuild among it.
    void Settle();

    /// Rows, expansion, selection and layout anew from the store, as on a changed tree.
    void Rebuild();

    int RowCount() const;
    CProcessorTree& View();
    QWidget* Viewport() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ResizeViewport(int nHeight);

    CControlDouble control;
    QWidget window;
    ICorvidWidget* pPanel = nullptr;
    CProcessorTree* pTree = nullptr;
    SProcessorAllNode nodeTree;
    bool bTreeChanged = false; ///< the store has announced a changed tree
    bool bPainted = false;     ///< and the viewport was painted since
};
