#pragma once

#include <QObject>
#include <QTimer>

/// Brings the program back to its main loop from whatever the user has open: a drag, menus, modal dialogs.
/// Each is cancelled, from the top; what was asked is answered as by Escape. GUI thread.
class CUnwinding : public QObject
{
    Q_OBJECT

public:
    CUnwinding();

    /// May be called at any depth and again at any time: Unwound follows, once, and never within the call.
    void Begin();

signals:
    /// Emitted from the main loop, with nothing of the above open.
    void Unwound();

private:
    void Step();

    QTimer timer;
};
