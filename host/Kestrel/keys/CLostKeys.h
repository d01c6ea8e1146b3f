#pragma once

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QTreeView;
class QWidget;

/// What keys do that nobody in the window has taken, so that all can be done without a mouse:
/// - Escape leads back to the list of the panel, as does Return in its search;
/// - Return presses the button that has the focus, as Space does;
/// - Ctrl with Up or Down selects one processor more, where several are selected and the list moves none;
/// - Shift+F10 opens the context menu, as the menu key does.
/// GUI thread.
class CLostKeys : public QObject
{
    Q_OBJECT

public:
    /// The window must outlive this object.
    explicit CLostKeys(QWidget& windowIn);

    /// The panel may end first.
    void SetPanel(QWidget* pPanelIn);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Take(const QKeyEvent* pEvent);
    bool TakeEscape();
    bool TakeReturn(const QKeyEvent* pEvent);
    bool TakeMove(const QKeyEvent* pEvent);
    bool TakeMenuKey();
    QTreeView* FindTree() const;
    bool GoToTree();

    QWidget& window;
    QPointer<QWidget> pPanel;
};
