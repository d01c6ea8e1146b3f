#pragma once

#include "CNameRegistry.h"
#include "double/SControlState.h"

/// What the doubled control objects have in common: the way into the journal and to the answers.
class CDoubledObject
{
protected:
    CDoubledObject(SControlState& stateIn, const char* pName) : state(stateIn), strObject(QLatin1String(pName)) { }
    ~CDoubledObject() = default;

    using CGuard = CDoubleJournal::CCallGuard;

    CGuard Read(const char* pOperation, const QString& strArguments = QString()) const
    {
        return Enter(CallRead, pOperation, strArguments);
    }

    CGuard Command(const char* pOperation, const QString& strArguments = QString()) const
    {
        return Enter(CallCommand, pOperation, strArguments);
    }

    void Subscribe(CObserver* pObserver)
    {
        const CGuard guard = Enter(CallSubscription, "Attach", QStringLiteral("observer"));
        state.hub.Attach(strObject, pObserver);
    }

    void Unsubscribe(CObserver* pObserver)
    {
        const CGuard guard = Enter(CallSubscription, "Detach", QStringLiteral("observer"));
        state.hub.Detach(strObject, pObserver);
    }

    /// fn gets the answers, guarded.
    template <class Fn> auto Answer(Fn fn) const
    {
        const std::lock_guard<std::mutex> lock(state.mutex);
        return fn(state.answers);
    }

    static QString Text(const QUuid& id)
    {
        return CNameRegistry::Instance().Text(id);
    }

    static QString Text(const std::vector<QUuid>& vecId)
    {
        return CNameRegistry::Instance().Text(vecId);
    }

    static QString Text(bool bValue)
    {
        return bValue ? QStringLiteral("true") : QStringLiteral("false");
    }

    static QString Text(const QString& strValue)
    {
        return QLatin1Char('"') + strValue + QLatin1Char('"');
    }

    SControlState& state;
    const QString strObject; ///< the name of the global

private:
    CGuard Enter(EnCallKind kind, const char* pOperation, const QString& strArguments) const
    {
        if (state.journal.IsStopped()) {
            return state.journal.EnterUnwritten();
        }
        return state.journal.Enter(kind, strObject + QLatin1Char('.') + QLatin1String(pOperation), strArguments);
    }
};
