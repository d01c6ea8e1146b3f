#pragma once

#include "Builders.h"
#include "CNameRegistry.h"
#include "Patience.h"
#include "double/SControlAnswers.h"

#include <QScopedPointer>
#include <QStringList>

#include <functional>

class CObserver;
struct SCall;

/// All eight control objects, with plain data behind them, for one test at a time. While it lives the
/// eight globals point to it. Every operation of it and of the objects may be called on any thread.
///
///     CControlDouble control;
///     control.Set([](SControlAnswers& answers) { answers.nodeDiscovered = Root({ Group("Stage") }); });
///     control.Raise(1);
///     QTRY_COMPARE(TreeText(pTree), ...);
///     control.ClearJournal();
///     QTest::keyClick(pTree, Qt::Key_Delete);
///     QTRY_COMPARE(control.Commands().last(), "g_pRuntimeControl.SetBusy(false)");
///
/// It must outlive the panel. Its end lets go what is held and waits for the calls under way.
class CControlDouble
{
public:
    CControlDouble();
    ~CControlDouble();
    Q_DISABLE_COPY(CControlDouble)

    /// Changes the answers: fn(SControlAnswers&) runs while no operation reads them.
    template <class Fn> void Set(Fn fn)
    {
        const CAnswersGuard guard(*this);
        fn(guard.answers);
    }
    SControlAnswers Answers() const;

    /// id prints as strName in journals and trees; the builders' ids have their names already.
    static void Name(const QUuid& id, const QString& strName);

    /// The journal as text, in the order of arrival: "g_pRuntimeControl.SetSelectedNodes([{null}])".
    /// Texts in quotes, ids by name, addresses dotted.
    QStringList Calls() const;         ///< all
    QStringList Commands() const;      ///< those that change something, without Attach and Detach
    QStringList Subscriptions() const; ///< Attach and Detach

    /// The same with the thread in front, "gui: ", "worker: " (a QThread), "pool: " (the thread pool)
    /// or "other: " (a std::thread).
    QStringList CallsWithThread() const;
    QStringList CommandsWithThread() const;

    QList<SCall> Journal() const;
    void ClearJournal();

    /// From now on no call is written down or held, which is what takes most of a call's time.
    void StopJournal();

    /// Calls of an operation since the last ClearJournal(). Operations are named with their object,
    /// "g_pRuntimeControl.SetBusy", or without, "SetBusy", which then means each object's.
    int CallCount(const QString& strOperation) const;

    /// fn runs once, inside the next call of the operation and on its thread: what a library does that runs an
    /// event loop of its own, or that is slow in a way of its own.
    void During(const QString& strOperation, const std::function<void()>& fn);

    /// From now on calls of the operation are written down and then wait until Release().
    void Hold(const QString& strOperation);
    void Release(const QString& strOperation);

    /// True when such a call (the nCount-th since ClearJournal) has arrived, or stands at its gate,
    /// within nTimeout milliseconds. Blocks without an event loop: where the call needs one, in a
    /// queued slot, use QTRY_COMPARE(control.CallCount(...), ...) instead.
    bool WaitForCall(const QString& strOperation, int nCount = 1, int nTimeout = nPatience);
    bool WaitForHeld(const QString& strOperation, int nTimeout = nPatience);

    /// Sends a message on the double's own thread and returns at once. Without strObject each attached
    /// observer hears it once; with it ("g_pProtocalControl") those that are attached there.
    void Raise(int nMessage, const QString& strObject = QString());

    /// As Raise, on the calling thread, for storms of a test's own threads.
    void RaiseHere(int nMessage, const QString& strObject = QString());

    /// True when all raised and posted messages are delivered within nTimeout milliseconds.
    bool WaitForDelivery(int nTimeout = nPatience);

    /// The names of the objects that have an observer, in the order of attaching.
    QStringList Attached() const;

private:
    struct CPrivate;

    class CAnswersGuard
    {
    public:
        explicit CAnswersGuard(CControlDouble& control);
        ~CAnswersGuard();
        Q_DISABLE_COPY(CAnswersGuard)
        SControlAnswers& answers;

    private:
        CPrivate* d;
    };

    QScopedPointer<CPrivate> d;
};
