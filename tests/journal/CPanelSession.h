#pragma once

#include "CDialogDriver.h"
#include "fixtures/CFreshStore.h"

#include <QWidget>

#include <functional>

class CProcessorTree;
class CProcessorTreeView;
class ICorvidWidget;
class QPushButton;
class QToolButton;

/// The real panel in a window, over whatever the eight globals point to, and a user who works with it. Rows go by their names.
class CPanelSession
{
public:
    CPanelSession();
    ~CPanelSession();
    Q_DISABLE_COPY(CPanelSession)

    /// Ends the panel, as a host does.
    void Delete();

    /// Waits until the panel shows what its worker has read.
    static void Settle();

    /// The row is there, in the current pane.
    bool Has(const QString& strName) const;

    /// The rows of both panes, and what is selected there: "Stage* (alpha, beta*)".
    QString GetText() const;

    void Click(const QString& strName, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Press(Qt::Key key);
    void Type(const QString& strText);
    void PressButton(const QString& strToolTip);
    bool CanPress(const QString& strToolTip) const; ///< the button is enabled
    void Refresh();
    bool CanRefresh() const; ///< the button is enabled
    void ChoosePane(bool bSimulator);
    bool HasPane(bool bSimulator) const; ///< its tab is chosen
    void ChooseInMenu(const QString& strName, const QStringList& listPath);
    void TriggerEntry(const QString& strText);
    void Fold(const QString& strName);

    /// What comes up next is answered so, after fnBeforeAnswer.
    void Answer(const QString& strHow);
    void AnswerByFile(const QString& strPath);

    /// Runs while a dialog is open, before it is answered.
    std::function<void()> fnBeforeAnswer;

    CDialogDriver driver;

private:
    CProcessorTreeView* View() const;
    CProcessorTree* Tree() const;
    QPushButton* Tab(bool bSimulator) const;
    QToolButton* Button(const QString& strToolTip) const; ///< of the tool bar; null for none
    QModelIndex Row(const QString& strName) const;

    CFreshStore store;
    QWidget window;
    ICorvidWidget* pWidget = nullptr;
};
