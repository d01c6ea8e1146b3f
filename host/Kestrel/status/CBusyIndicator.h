#pragma once

#include "controlhost/SRunningJob.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class CElidedLabel;
class CSpinner;
class CTheme;

/// The part of the status bar that says what is busy, how far it is and since when: a job that never ends must not leave
/// an operator guessing.
class CBusyIndicator : public QWidget
{
    Q_OBJECT

public:
    /// The colours of the arc are the theme's, which must outlive it or change no more.
    CBusyIndicator(const CTheme& theme, QWidget* parent);

    /// timeSince is looked at only when bBusy; vecJob holds the calls under way, oldest first.
    void SetState(bool bBusy, const QDateTime& timeSince, const QVector<SRunningJob>& vecJob);

    /// A text to show instead, until an empty one.
    void SetMessage(const QString& strText);

    /// What it shows; "Ready", translated, while nothing is busy.
    QString GetText() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void UpdateColours(const CTheme& theme);
    void UpdateText();
    QString GetWhat() const;
    QString GetBusyText() const;
    static QString GetProgressText(const SRunningJob& job);
    static QString GetJobText(const QString& strJob);

    CSpinner* pSpinner;
    CElidedLabel* pLabel;
    QTimer timer; ///< counts the seconds while busy
    QString strMessage;
    bool bShown = false;
    QDateTime timeBegin;
    QElapsedTimer timerBusy; ///< the seconds: timeBegin is a reading of a clock that may be set back
    QVector<SRunningJob> vecRunning;
};
