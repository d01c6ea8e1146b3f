#include "double/CControlDouble.h"

#include "double/CConfigControlDouble.h"
#include "double/CPrcBasicControlDouble.h"
#include "double/CPrcListControlDouble.h"
#include "double/CPrcRuntimeControlDouble.h"
#include "double/CPreferenceControlDouble.h"
#include "double/CProjectManageControlDouble.h"
#include "double/CProtocalControlDouble.h"
#include "double/CRuntimeControlDouble.h"
#include "interfaces/control/CorvidControl.h"

#include <functional>

IConfigControl* g_pConfigControl = nullptr;
IPrcBasicControl* g_pPrcBasicControl = nullptr;
IPrcListControl* g_pPrcListControl = nullptr;
IPrcRuntimeControl* g_pPrcRuntimeControl = nullptr;
IPreferenceControl* g_pPreferenceControl = nullptr;
IProjectManageControl* g_pProjectManageControl = nullptr;
IProtocalControl* g_pProtocalControl = nullptr;
IRuntimeControl* g_pRuntimeControl = nullptr;

struct CControlDouble::CPrivate
{
    SControlState state;
    CConfigControlDouble config{ state };
    CPrcBasicControlDouble prcBasic{ state };
    CPrcListControlDouble prcList{ state };
    CPrcRuntimeControlDouble prcRuntime{ state };
    CPreferenceControlDouble preference{ state };
    CProjectManageControlDouble projectManage{ state };
    CProtocalControlDouble protocal{ state };
    CRuntimeControlDouble runtime{ state };

    QStringList Texts(const std::function<bool(const SCall&)>& fnWanted, bool bThread) const;
};

QStringList CControlDouble::CPrivate::Texts(const std::function<bool(const SCall&)>& fnWanted, bool bThread) const
{
    QStringList listText;
    for (const SCall& call : state.journal.Calls()) {
        if (fnWanted(call)) {
            listText.append(bThread ? call.strThread + QStringLiteral(": ") + call.Text() : call.Text());
        }
    }
    return listText;
}

namespace {

bool IsAny(const SCall&)
{
    return true;
}

bool IsCommand(const SCall& call)
{
    return call.kind == CallCommand;
}

bool IsSubscription(const SCall& call)
{
    return call.kind == CallSubscription;
}

} // namespace

CControlDouble::CAnswersGuard::CAnswersGuard(CControlDouble& control) : answers(control.d->state.answers), d(control.d.data())
{
    d->state.mutex.lock();
}

CControlDouble::CAnswersGuard::~CAnswersGuard()
{
    d->state.mutex.unlock();
}

CControlDouble::CControlDouble() : d(new CPrivate)
{
    g_pConfigControl = &d->config;
    g_pPrcBasicControl = &d->prcBasic;
    g_pPrcListControl = &d->prcList;
    g_pPrcRuntimeControl = &d->prcRuntime;
    g_pPreferenceControl = &d->preference;
    g_pProjectManageControl = &d->projectManage;
    g_pProtocalControl = &d->protocal;
    g_pRuntimeControl = &d->runtime;
}

CControlDouble::~CControlDouble()
{
    d->state.journal.ReleaseAll();
    d->state.journal.WaitForEnd();
    g_pConfigControl = nullptr;
    g_pPrcBasicControl = nullptr;
    g_pPrcListControl = nullptr;
    g_pPrcRuntimeControl = nullptr;
    g_pPreferenceControl = nullptr;
    g_pProjectManageControl = nullptr;
    g_pProtocalControl = nullptr;
    g_pRuntimeControl = nullptr;
}

SControlAnswers CControlDouble::Answers() const
{
    const std::lock_guard<std::mutex> lock(d->state.mutex);
    return d->state.answers;
}

void CControlDouble::Name(const QUuid& id, const QString& strName)
{
    CNameRegistry::Instance().Name(id, strName);
}

QStringList CControlDouble::Calls() const
{
    return d->Texts(&IsAny, false);
}

QStringList CControlDouble::Commands() const
{
    return d->Texts(&IsCommand, false);
}

QStringList CControlDouble::Subscriptions() const
{
    return d->Texts(&IsSubscription, false);
}

QStringList CControlDouble::CallsWithThread() const
{
    return d->Texts(&IsAny, true);
}

QStringList CControlDouble::CommandsWithThread() const
{
    return d->Texts(&IsCommand, true);
}

QList<SCall> CControlDouble::Journal() const
{
    return d->state.journal.Calls();
}

void CControlDouble::StopJournal()
{
    d->state.journal.Stop();
}

void CControlDouble::ClearJournal()
{
    d->state.journal.Clear();
}

int CControlDouble::CallCount(const QString& strOperation) const
{
    return d->state.journal.CallCount(strOperation);
}

void CControlDouble::During(const QString& strOperation, const std::function<void()>& fn)
{
    d->state.journal.During(strOperation, fn);
}

void CControlDouble::Hold(const QString& strOperation)
{
    d->state.journal.Hold(strOperation);
}

void CControlDouble::Release(const QString& strOperation)
{
    d->state.journal.Release(strOperation);
}

bool CControlDouble::WaitForCall(const QString& strOperation, int nCount, int nTimeout)
{
    return d->state.journal.WaitForCall(strOperation, nCount, nTimeout);
}

bool CControlDouble::WaitForHeld(const QString& strOperation, int nTimeout)
{
    return d->state.journal.WaitForHeld(strOperation, nTimeout);
}

void CControlDouble::Raise(int nMessage, const QString& strObject)
{
    d->state.hub.Raise(nMessage, strObject);
}

void CControlDouble::RaiseHere(int nMessage, const QString& strObject)
{
    d->state.hub.Deliver(nMessage, strObject);
}

bool CControlDouble::WaitForDelivery(int nTimeout)
{
    return d->state.hub.WaitForDelivery(nTimeout);
}

QStringList CControlDouble::Attached() const
{
    return d->state.hub.Attached();
}
