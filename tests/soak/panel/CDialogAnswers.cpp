#include "panel/CDialogAnswers.h"

#include <QApplication>

CDialogAnswers::CDialogAnswers()
{
    timer.setInterval(1);
    connect(&timer, &QTimer::timeout, this, &CDialogAnswers::Look);
    timer.start();
}

void CDialogAnswers::Expect(const FnAnswer& fnAnswer)
{
    queueAnswer.enqueue(fnAnswer);
}

void CDialogAnswers::Forget()
{
    queueAnswer.clear();
}

void CDialogAnswers::Look()
{
    auto* const pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (pDialog && pDialog->isActiveWindow() && pDialog != pLast) {
        pLast = pDialog;
        // From a call of its own: a timer does not fire again inside its own timeout.
        QMetaObject::invokeMethod(this, &CDialogAnswers::Deal, Qt::QueuedConnection);
    }
}

void CDialogAnswers::Deal()
{
    if (!pLast) {
        return;
    }
    const FnAnswer fnAnswer = queueAnswer.isEmpty() ? [](QDialog* pDialog) { pDialog->reject(); } : queueAnswer.dequeue();
    fnAnswer(pLast);
    if (pLast && pLast->isVisible()) {
        pLast->reject();
    }
}
