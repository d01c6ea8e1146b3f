#pragma once

#include "Kestrel/status/CElidedLabel.h"
#include "controlhost/SRefusal.h"

#include <QTimer>

#include <functional>

/// The part of the status bar that says why the last command was refused: until the next one succeeds or the reason has
/// gone, at most for two minutes. Of many that were commanded at once it is the first: the others follow from it. Hidden
/// while there is nothing to say. GUI thread.
class CRefusalNote : public CElidedLabel
{
    Q_OBJECT

public:
    static constexpr int nShownMs = 120000;

    explicit CRefusalNote(QWidget* parent);

    /// fnTextNew gives one line in the present language; it is asked again when the language has changed.
    void Say(const SRefusal& refusalNew, const std::function<QString()>& fnTextNew);

    /// A command of that SListEdit::nJob has succeeded. One of the same turn or job as the refusal does not take the
    /// reason away: of many that were commanded at once some may be refused.
    void NoteSuccess(quint64 nJob);

    /// Jobs of the panel are under way or have all ended.
    void SetBusy(bool bBusyNow);

    /// Takes the reason away when isOver says so of what is shown.
    void Review(const std::function<bool(const SRefusal&)>& isOver);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Forget();
    void UpdateText();

    SRefusal refusal; ///< what is shown
    std::function<QString()> fnText;
    QTimer timer;
    bool bFresh = false; ///< of this turn or job
    bool bBusy = false;
};
