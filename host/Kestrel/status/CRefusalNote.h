#pragma once

#include "Kestrel/CElidedLabel.h"

#include <QTimer>

#include <functional>

/// The part of the status bar that says why the last command was refused: until the next one succeeds, at most for two
/// minutes. Hidden while there is nothing to say. GUI thread.
class CRefusalNote : public CElidedLabel
{
    Q_OBJECT

public:
    static constexpr int nShownMs = 120000;

    explicit CRefusalNote(QWidget* parent);

    /// fnText gives one line in the present language; it is asked again when the language has changed.
    void Say(const std::function<QString()>& fnText);

    /// A command has succeeded. One of the same turn or job as the refusal does not take the reason away: of many that
    /// were commanded at once some may be refused.
    void NoteSuccess();

    /// A job of the panel begins or ends.
    void SetBusy(bool bBusyNow);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Forget();
    void UpdateText();

    std::function<QString()> fnText;
    QTimer timer;
    bool bFresh = false; ///< of this turn or job
    bool bBusy = false;
};
