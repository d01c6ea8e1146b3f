#include "Kestrel/status/CRefusalNote.h"

#include "Kestrel/GuiThread.h"

#include <QEvent>
#include <QTextDocument>

namespace {

constexpr int nLeastLetters = 18;

} // namespace

CRefusalNote::CRefusalNote(QWidget* parent) : CElidedLabel(parent)
{
    setObjectName(QStringLiteral("RefusalBadge"));
    setTextFormat(Qt::PlainText);
    SetLeastCharacters(nLeastLetters);
    timer.setSingleShot(true);
    timer.setInterval(nShownMs);
    connect(&timer, &QTimer::timeout, this, &CRefusalNote::Forget);
    Forget();
}

void CRefusalNote::Say(const SRefusal& refusalNew, const std::function<QString()>& fnTextNew)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (bFresh && refusal.nJob == refusalNew.nJob) {
        return;
    }
    refusal = refusalNew;
    fnText = fnTextNew;
    bFresh = true;
    // Behind the other commands of the turn, which are in the queue already.
    QMetaObject::invokeMethod(this, [this] { bFresh = bFresh && bBusy && refusal.nJob != 0; }, Qt::QueuedConnection);
    UpdateText();
    show();
    timer.start();
}

void CRefusalNote::NoteSuccess(quint64 nJob)
{
    if (!bFresh || nJob != refusal.nJob) {
        Forget();
    }
}

void CRefusalNote::SetBusy(bool bBusyNow)
{
    bFresh = bFresh && (bBusyNow || !bBusy);
    bBusy = bBusyNow;
}

void CRefusalNote::Review(const std::function<bool(const SRefusal&)>& isOver)
{
    if (fnText && isOver(refusal)) {
        Forget();
    }
}

void CRefusalNote::changeEvent(QEvent* event)
{
    CElidedLabel::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && fnText) {
        UpdateText();
    }
}

void CRefusalNote::Forget()
{
    fnText = nullptr;
    bFresh = false;
    timer.stop();
    hide();
}

void CRefusalNote::UpdateText()
{
    setText(fnText());
    // As rich text it is broken into lines.
    setToolTip(Qt::convertFromPlainText(text(), Qt::WhiteSpaceNormal));
}
