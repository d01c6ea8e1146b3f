#include "Kestrel/undo/CUndoSteps.h"

#include "Kestrel/GuiThread.h"
#include "Kestrel/undo/StepName.h"
#include "controlhost/IControlHost.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

namespace {

constexpr int nStuckAfter = 2; ///< refusals in a row

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Drop: // the release that ends a drag reaches nobody
        return true;
    default:
        return false;
    }
}

// Waiting helps, or unlocking; everything else may be so for the whole day.
bool IsPassing(EnRefusalReason reason)
{
    return reason == ReasonListLocked || reason == ReasonBusy;
}

} // namespace

/// A step on the stack. What it does to the list is done before the stack moves, which cannot refuse.
class CStepCommand : public QUndoCommand
{
public:
    explicit CStepCommand(const SUndoStep& stepIn) : step(stepIn) { }

    const SUndoStep step;
    int nRefused = 0; ///< in a row, for reasons that do not pass
};

CUndoSteps::CUndoSteps(IControlHost& controlHost) : host(controlHost)
{
    Q_ASSERT(GuiThread::IsCurrent());
    stack.setUndoLimit(nMostSteps);
    SetConnection();
    qApp->installEventFilter(this);
}

bool CUndoSteps::CanUndo() const
{
    return stack.canUndo() && IsAllowed();
}

bool CUndoSteps::CanRedo() const
{
    return stack.canRedo() && IsAllowed();
}

QString CUndoSteps::GetUndoName() const
{
    return stack.canUndo() ? StepName::Get(GetCommand(stack.index() - 1)->step) : QString();
}

QString CUndoSteps::GetRedoName() const
{
    return stack.canRedo() ? StepName::Get(GetCommand(stack.index())->step) : QString();
}

void CUndoSteps::Undo()
{
    Q_ASSERT(GuiThread::IsCurrent());
    TakePending();
    if (!CanUndo()) {
        return;
    }
    CStepCommand* pCommand = GetCommand(stack.index() - 1);
    if (!Restore(pCommand->step, false)) {
        NoteRefusal(*pCommand, false);
        return;
    }
    pCommand->nRefused = 0;
    stack.undo();
    emit CommandDone(0);
}

void CUndoSteps::Redo()
{
    Q_ASSERT(GuiThread::IsCurrent());
    TakePending();
    if (!CanRedo()) {
        return;
    }
    CStepCommand* pCommand = GetCommand(stack.index());
    if (!Restore(pCommand->step, true)) {
        NoteRefusal(*pCommand, true);
        return;
    }
    stack.redo();
    emit CommandDone(0);
}

bool CUndoSteps::IsStuck() const
{
    return stack.canUndo() && GetCommand(stack.index() - 1)->nRefused >= nStuckAfter;
}

// The stack lets go of a command that has become obsolete while it is undone.
void CUndoSteps::Skip()
{
    if (IsStuck()) {
        GetCommand(stack.index() - 1)->setObsolete(true);
        stack.undo();
    }
}

// Posted, as the edits are: what was commanded before stands before it in the queue.
bool CUndoSteps::eventFilter(QObject* watched, QEvent* event)
{
    if (IsInput(event->type())) {
        QMetaObject::invokeMethod(this, [this] { collector.EndTurn(); }, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void CUndoSteps::SetConnection()
{
    // All queued, so that one queue has the order of edits, jobs and inputs.
    connect(&host, &IControlHost::ListEdited, this, &CUndoSteps::TakeEdit, Qt::QueuedConnection);
    connect(
        &host, &IControlHost::BusyChanged, this,
        [this](bool bBusy) {
            collector.SetBusy(bBusy);
            emit Changed();
        },
        Qt::QueuedConnection);
    connect(&host, &IControlHost::JobsChanged, this, &CUndoSteps::Changed, Qt::QueuedConnection);
    connect(&host, &IControlHost::StateChanged, this, &CUndoSteps::Changed, Qt::QueuedConnection);
    connect(&collector, &CStepCollector::StepReady, this, &CUndoSteps::Push);
    connect(&collector, &CStepCollector::StepBegun, this, &CUndoSteps::CommandDone);
    connect(&stack, &QUndoStack::indexChanged, this, &CUndoSteps::Changed);
}

void CUndoSteps::TakeEdit(const SListEdit& edit)
{
    collector.TakeEdit(edit);
    EndTurnSoon();
}

// Behind what is posted already: the other commands of the same turn.
void CUndoSteps::EndTurnSoon()
{
    if (bTurnOpen) {
        return;
    }
    bTurnOpen = true;
    const auto end = [this] {
        bTurnOpen = false;
        collector.EndTurn();
    };
    QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
}

// The last command may be waiting in the queue still, when undo follows it at once.
void CUndoSteps::TakePending()
{
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    collector.EndTurn();
}

void CUndoSteps::Push(const SUndoStep& step)
{
    stack.push(new CStepCommand(step));
}

EnRefusalReason CUndoSteps::GetHindrance() const
{
    if (host.IsListLocked()) {
        return ReasonListLocked;
    }
    return host.IsBusy() || !host.GetRunningJobs().isEmpty() ? ReasonBusy : ReasonNone;
}

bool CUndoSteps::IsAllowed() const
{
    return GetHindrance() == ReasonNone;
}

// The stack hands out what it owns as const; what is counted here is nothing of the list.
CStepCommand* CUndoSteps::GetCommand(int nIndex) const
{
    return const_cast<CStepCommand*>(static_cast<const CStepCommand*>(stack.command(nIndex)));
}

// All of the step or nothing: what was restored before a pair is refused is put back. Should that be refused too, the
// next attempt finds those pairs done, which a restore allows.
bool CUndoSteps::Restore(SUndoStep step, bool bRedo)
{
    QList<SUndoStep::SPair>& listPair = step.listPair;
    if (!bRedo) {
        std::reverse(listPair.begin(), listPair.end());
    }
    for (int n = 0; n < listPair.size(); ++n) {
        if (RestorePair(listPair.at(n), bRedo)) {
            continue;
        }
        const SRefusal refusal = refusalLast;
        while (n > 0) {
            RestorePair(listPair.at(--n), !bRedo);
        }
        refusalLast = refusal;
        return false;
    }
    return true;
}

// The call answers without a reason; that comes within it, on this thread. Others may be refused on theirs meanwhile.
bool CUndoSteps::RestorePair(const SUndoStep::SPair& pair, bool bRedo)
{
    const auto keep = [this](const SRefusal& refusal) {
        if (GuiThread::IsCurrent()) {
            refusalLast = refusal;
        }
    };
    const QMetaObject::Connection connection = connect(&host, &IControlHost::CommandRefused, this, keep, Qt::DirectConnection);
    const bool bDone = bRedo ? host.RestoreList(pair.before, pair.after) : host.RestoreList(pair.after, pair.before);
    disconnect(connection);
    return bDone;
}

void CUndoSteps::NoteRefusal(CStepCommand& command, bool bRedo)
{
    if (!bRedo) {
        command.nRefused = IsPassing(refusalLast.reason) ? 0 : command.nRefused + 1;
    }
    emit RestoreRefused(command.step, bRedo, refusalLast);
    emit Changed();
}
