#pragma once

#include "Kestrel/status/CElidedLabel.h"

/// A field of the status bar: why the journal is not being written. Hidden while it is.
class CJournalField : public CElidedLabel
{
    Q_OBJECT

public:
    explicit CJournalField(QWidget* parent);

    /// One line; empty while all is well.
    void SetReason(const QString& strReasonIn);

protected:
    void changeEvent(QEvent* event) override;

private:
    void UpdateText();

    QString strReason;
};
