#include "tsan/TsanOrder.h"
#include "tsan/TsanQt.h"

#include <QCoreApplication>
#include <QThread>

#include <private/qobject_p.h>

using TsanQt::Original;
using TsanQt::PutIn;
using TsanQt::PutOut;
using TsanQt::TakeIn;
using TsanQt::TakeOut;

// An event is ordered by its sender, where it has one, otherwise by its receiver.

void QMetaObject::activate(QObject* sender, const QMetaObject* metaObject, int local_signal_index, void** argv)
{
    static const auto fnOriginal
        = Original<void (*)(QObject*, const QMetaObject*, int, void**)>("_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    PutIn(sender);
    fnOriginal(sender, metaObject, local_signal_index, argv);
}

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot, Qt::ConnectionType type, void* ret)
{
    static const auto fnOriginal = Original<bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    PutIn(object);
    const bool bInvoked = fnOriginal(object, slot, type, ret);
    if (type == Qt::BlockingQueuedConnection) {
        TakeOut(object);
    }
    return bInvoked;
}

void QCoreApplication::postEvent(QObject* receiver, QEvent* event, int priority)
{
    static const auto fnOriginal
        = Original<void (*)(QObject*, QEvent*, int)>("_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    PutIn(receiver);
    fnOriginal(receiver, event, priority);
}

void QObject::deleteLater()
{
    static const auto fnOriginal = Original<void (*)(QObject*)>("_ZN7QObject11deleteLaterEv");
    PutIn(this);
    fnOriginal(this);
}

void TsanQt::BeforeDelivery(QObject* pReceiver, QEvent* pEvent)
{
    TakeIn(pReceiver);
    TakeIn(QThread::currentThread());
    if (pEvent->type() != QEvent::MetaCall) {
        return;
    }
    if (const QObject* pSender = static_cast<QAbstractMetaCallEvent*>(pEvent)->sender()) {
        TakeIn(pSender);
    }
}

void TsanQt::AfterDelivery(QObject* pReceiver)
{
    // The receiver may be gone; its address is all that is used. One that was a QThread has waited for its end.
    PutOut(pReceiver);
    TakeOut(pReceiver);
}
