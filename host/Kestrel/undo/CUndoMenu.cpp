#include "Kestrel/undo/CUndoMenu.h"

#include "Kestrel/CLanguage.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/status/CRefusalNote.h"
#include "Kestrel/status/RefusalText.h"
#include "Kestrel/undo/CEarlierLists.h"
#include "Kestrel/undo/CUndoSteps.h"
#include "Kestrel/undo/StepName.h"
#include "controlhost/IControlHost.h"
#include "interfaces/widgets/CMessageBox.h"
#include "nodes/EnNodeType.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTreeView>

namespace {

constexpr int nMostNameWidth = 320; ///< pixels of a step's name in the menu

const QKeySequence& GetUndoKey()
{
    static const QKeySequence key(QStringLiteral("Ctrl+Z"));
    return key;
}

const QList<QKeySequence>& GetRedoKeys()
{
    static const QList<QKeySequence> listKey{ QKeySequence(QStringLiteral("Ctrl+Shift+Z")),
                                              QKeySequence(QStringLiteral("Ctrl+Y")) };
    return listKey;
}

bool IsUndoKey(const QKeyEvent& event)
{
    const QKeySequence key(event.key() | int(event.modifiers() & ~Qt::KeypadModifier));
    return key == GetUndoKey() || GetRedoKeys().contains(key);
}

// A name may hold what a menu takes for a mnemonic, and may be longer than a menu should be wide.
QString GetMenuText(const QMenu& menu, const QString& strText, const QString& strName)
{
    QString strShown = menu.fontMetrics().elidedText(strName, Qt::ElideRight, nMostNameWidth);
    return strText.arg(strShown.replace(QLatin1Char('&'), QStringLiteral("&&")));
}

const SProcessorGroupNode* FindGroup(const SProcessorAllNode& node, const QUuid& idGroup)
{
    for (const SProcessorGroupNode& group : node.listGroup) {
        if (group.idNode == idGroup) {
            return &group;
        }
    }
    return nullptr;
}

bool IsChief(const SListSnapshot& snapshot, const QUuid& idGroup, const QUuid& idProcessor)
{
    for (const SProcessorAllNode* pNode : { &snapshot.discovered, &snapshot.simulators }) {
        const SProcessorGroupNode* pGroup = FindGroup(*pNode, idGroup);
        if (pGroup) {
            return pGroup->idChief == idProcessor;
        }
    }
    return false;
}

} // namespace

CUndoMenu::CUndoMenu(QWidget& windowIn, QMenu& menuIn, QWidget& frame, IControlHost& hostIn, CUndoSteps& stepsIn,
                     CRefusalNote& noteIn, const CLanguage& languageIn)
    : QObject(&windowIn), window(windowIn), menu(menuIn), host(hostIn), steps(stepsIn), note(noteIn), language(languageIn),
      refused(hostIn, work, windowIn)
{
    MakeActions(frame);
    SetConnection();
    UpdateText();
    qApp->installEventFilter(this);
}

void CUndoMenu::SetPanel(QWidget* pWidget)
{
    pPanel = pWidget;
}

void CUndoMenu::UpdateText()
{
    pChief->setText(tr("Chief of its &group"));
    pEarlier->setText(tr("&Earlier lists…"));
    pRefused->setText(tr("Use this list &nevertheless…"));
    UpdateState();
}

bool CUndoMenu::eventFilter(QObject* watched, QEvent* event)
{
    const bool bKept = event->type() == QEvent::ShortcutOverride && qobject_cast<QLineEdit*>(watched)
        && IsUndoKey(*static_cast<QKeyEvent*>(event));
    if (bKept) {
        event->accept();
    }
    return bKept;
}

// Undo and redo first, as everywhere; the rest behind what is there.
void CUndoMenu::MakeActions(QWidget& frame)
{
    QAction* pFirst = menu.actions().value(0);
    pUndo = new QAction(this);
    pRedo = new QAction(this);
    menu.insertActions(pFirst, { pUndo, pRedo });
    QAction* pSeparator = menu.insertSeparator(pFirst);
    QAction* pEndSeparator = menu.addSeparator();
    pChief = menu.addAction(QString());
    pChief->setCheckable(true);
    pEarlier = menu.addAction(QString());
    pRefused = menu.addAction(QString());
    pUndo->setShortcut(GetUndoKey());
    pRedo->setShortcuts(GetRedoKeys());
    for (QAction* pAction : { pUndo, pRedo }) {
        pAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        frame.addAction(pAction);
    }
    for (QAction* pAction : { pUndo, pRedo, pSeparator, pEndSeparator, pChief, pEarlier }) {
        pAction->setVisible(host.CanRestore());
    }
}

void CUndoMenu::SetConnection()
{
    connect(pUndo, &QAction::triggered, &steps, &CUndoSteps::Undo);
    connect(pRedo, &QAction::triggered, &steps, &CUndoSteps::Redo);
    connect(pChief, &QAction::triggered, this, &CUndoMenu::ToggleChief);
    connect(pEarlier, &QAction::triggered, this, &CUndoMenu::ShowEarlier);
    connect(pRefused, &QAction::triggered, &refused, &CRefusedList::Offer);
    connect(&menu, &QMenu::aboutToShow, this, &CUndoMenu::UpdateChief);
    connect(&steps, &CUndoSteps::Changed, this, &CUndoMenu::UpdateState);
    connect(&steps, &CUndoSteps::RestoreRefused, this, &CUndoMenu::SayRefusal);
    connect(&steps, &CUndoSteps::CommandDone, &note, &CRefusalNote::NoteSuccess);
    connect(&refused, &CRefusedList::Changed, this, &CUndoMenu::UpdateState);
}

void CUndoMenu::UpdateState()
{
    const QString strUndo = steps.GetUndoName();
    const QString strRedo = steps.GetRedoName();
    pUndo->setText(strUndo.isEmpty() ? tr("&Undo") : GetMenuText(menu, tr("&Undo: %1"), strUndo));
    pRedo->setText(strRedo.isEmpty() ? tr("&Redo") : GetMenuText(menu, tr("&Redo: %1"), strRedo));
    pUndo->setEnabled(steps.CanUndo());
    pRedo->setEnabled(steps.CanRedo());
    SRefusal refusal;
    refusal.reason = steps.GetHindrance();
    const bool bFree = refusal.reason == ReasonNone;
    for (QAction* pAction : { pUndo, pRedo, pEarlier, pRefused }) {
        pAction->setStatusTip(RefusalText::GetReason(refusal)); // grey for a reason that may stand in no other place
    }
    pEarlier->setEnabled(bFree);
    pRefused->setEnabled(bFree);
    pRefused->setVisible(host.CanRestore() && refused.IsThere());
}

void CUndoMenu::UpdateChief()
{
    QUuid idGroup;
    const QUuid idProcessor = FindProcessor(idGroup);
    pChief->setEnabled(!idProcessor.isNull());
    pChief->setChecked(!idProcessor.isNull() && IsChief(host.GetSnapshot(), idGroup, idProcessor));
}

void CUndoMenu::ToggleChief(bool bOn)
{
    QUuid idGroup;
    const QUuid idProcessor = FindProcessor(idGroup);
    if (!idProcessor.isNull()) {
        host.SetChief(idGroup, bOn ? idProcessor : QUuid());
    }
}

void CUndoMenu::ShowEarlier()
{
    CEarlierLists dialog(host, work, language.GetLocale(), &window);
    dialog.exec();
}

void CUndoMenu::SayRefusal(const SUndoStep& step, bool bRedo, const SRefusal& refusal)
{
    note.Say(refusal, [step, bRedo, refusal] {
        const QString strWhich = bRedo ? tr("Redo of “%1”") : tr("Undo of “%1”");
        return RefusalText::Join(strWhich.arg(StepName::Get(step)), refusal);
    });
    if (!bRedo && steps.IsStuck()) {
        OfferSkip(step, refusal);
    }
}

// The second time, so that a reason that has passed meanwhile costs no question.
void CUndoMenu::OfferSkip(const SUndoStep& step, const SRefusal& refusal)
{
    const QString strText = tr("“%1” cannot be taken back: %2.").arg(StepName::Get(step), RefusalText::GetReason(refusal))
        + QStringLiteral("\n\n") + tr("Leave this step out, so that the ones before it can be taken back?");
    const CMessageBox::StandardButton answer = CMessageBox::question(
        &window, tr("Undo"), strText, CMessageBox::ButtonYes | CMessageBox::ButtonNo, CMessageBox::ButtonNo);
    if (answer == CMessageBox::ButtonYes) {
        steps.Skip();
    }
}

// The one that is selected, when it is in a group; null else.
QUuid CUndoMenu::FindProcessor(QUuid& idGroup) const
{
    const QTreeView* pTree = pPanel ? PanelAccess::FindCurrentTree(pPanel) : nullptr;
    const QModelIndexList listSelected = pTree ? pTree->selectionModel()->selectedIndexes() : QModelIndexList();
    if (listSelected.size() != 1 || PanelAccess::GetNodeType(listSelected.first()) != NodeProcessor
        || PanelAccess::GetNodeType(listSelected.first().parent()) != NodeGroup) {
        return {};
    }
    idGroup = PanelAccess::GetNodeId(listSelected.first().parent());
    return PanelAccess::GetNodeId(listSelected.first());
}
