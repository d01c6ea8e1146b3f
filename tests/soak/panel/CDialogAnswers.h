#pragma once

#include <QDialog>
#include <QPointer>
#include <QQueue>
#include <QTimer>

#include <functional>

/// Answers every dialog that comes up: by the answer that waits, else by closing it. One that is still open after its answer is
/// closed, too.
class CDialogAnswers : public QObject
{
public:
    using FnAnswer = std::function<void(QDialog*)>;

    CDialogAnswers();

    /// The next dialog gets this answer, which runs inside its event loop.
    void Expect(const FnAnswer& fnAnswer);

    /// Drops the answers that were not asked for.
    void Forget();

private:
    void Look();
    void Deal();

    QTimer timer;
    QQueue<FnAnswer> queueAnswer;
    QPointer<QDialog> pLast; ///< answered already, or about to be
};
