#pragma once

#include "Kestrel/status/CElidedLabel.h"
#include "journal/guard/SGuiHold.h"

/// A field of the status bar: how often the GUI thread was held up, and by what last. Hidden until it was.
class CGuardField : public CElidedLabel
{
    Q_OBJECT

public:
    explicit CGuardField(QWidget* parent);

    /// nCountIn reports so far, holdIn being the last.
    void SetState(int nCountIn, const SGuiHold& holdIn);

protected:
    void changeEvent(QEvent* event) override;

private:
    void UpdateText();
    QString GetText() const;

    int nCount = 0;
    SGuiHold holdLast;
};
