#include "Kestrel/CUnwinding.h"
#include "Kestrel/GuiThread.h"

#include <QApplication>
#include <QDialog>
#include <QDrag>
#include <QThread>

namespace {

constexpr int nStepMs = 10; // something that refuses to go must not keep the processor busy
constexpr int nMainLoop = 1;

bool IsNested()
{
    return QThread::currentThread()->loopLevel() > nMainLoop;
}

// One at a time: the code behind a dialog goes on only when the step has returned, and may open the next.
bool CancelTopmost()
{
    QWidget* pPopup = QApplication::activePopupWidget();
    QWidget* pModal = QApplication::activeModalWidget();
    if (pPopup) {
        pPopup->close();
    } else if (auto* pDialog = qobject_cast<QDialog*>(pModal)) {
        pDialog->reject();
    } else if (pModal) {
        pModal->close();
    } else if (IsNested()) {
        QDrag::cancel();
    }
    return pPopup || pModal || IsNested();
}

} // namespace

CUnwinding::CUnwinding()
{
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &CUnwinding::Step);
}

void CUnwinding::Begin()
{
    Q_ASSERT(GuiThread::IsCurrent());
    timer.start(0);
}

void CUnwinding::Step()
{
    if (CancelTopmost()) {
        timer.start(nStepMs);
    } else {
        emit Unwound();
    }
}
