#pragma once

#include <QObject>

/// Hears SIGTERM, SIGINT and SIGHUP and reports them on the GUI thread. While it lives none of them ends the
/// process by itself, however often it comes; one that was ignored when the program started stays so, as
/// nohup wants it. One object at a time.
class CEndSignals : public QObject
{
    Q_OBJECT

public:
    CEndSignals();

    /// Gives the signals back their former actions.
    ~CEndSignals() override;

signals:
    void EndRequested();
};
