#pragma once

#include "toolbar/EnToolBarButton.h"

#include <QLabel>
#include <QMap>
#include <QUuid>

#include <vector>

class CIconButton;
class QAction;

/// The strip of buttons under the trees: the menu (Search, Import, Export) at its left end, Add group,
/// Add and Delete at its right end. It carries out nothing: a press becomes SignalToolBar. It only
/// decides which commands are enabled, and only when it is called to: nothing here watches for changes. One
/// strip serves both panes. A label without text, so that a style sheet can dress it.
///
/// GUI thread only.
class CProcessorTreeToolBar : public QLabel
{
    Q_OBJECT

public:
    /// parent must not be null: its style sheet is copied.
    explicit CProcessorTreeToolBar(QWidget* parent);
    ~CProcessorTreeToolBar() override;

    /// Enables and disables everything, from the snapshot of the current pane and, for Delete, from
    /// the control library.
    void UpdateToolBarState();

signals:
    /// A command was given; id is an EnToolBarButton, never ToolBarMenu. A slot may end the tool bar.
    void SignalToolBar(int id);

protected:
    void changeEvent(QEvent* event) override;

private:
    void InitWidget();
    void InitButtons();
    void InitActions();
    void InitMenu();
    void InitLayout();
    void SetConnection();
    void Send(int id, QWidget* pClicked);
    void UpdateText();
    void UpdateActionIcon(int id, const QString& strDisabledIcon);
    bool IsDeleteEnabled(const std::vector<QUuid>& vecId, bool bLocked) const;

    QString GetToolTip(int id) const;
    QString GetNormalIcon(int id) const;
    QString GetDisableIcon(int id) const;

    QMap<int, CIconButton*> mapButton; ///< by EnToolBarButton, 0 to 3
    QMap<int, QAction*> mapAction;     ///< by EnToolBarButton, 5 to 7
};
