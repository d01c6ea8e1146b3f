#pragma once

#include <QObject>
#include <QPointer>
#include <QThreadPool>

/// Runs what blocks for the disk beside the GUI thread, one after the other, and hands the result back to it. Its end
/// waits for what runs. Made and used on the GUI thread.
class CDiskWork : public QObject
{
    Q_OBJECT

public:
    CDiskWork();
    ~CDiskWork() override;

    /// fnWork runs on another thread; fnDone gets its result on the GUI thread, unless pFor has ended meanwhile.
    template <typename Work, typename Done> void Run(QObject* pFor, const Work& fnWork, const Done& fnDone)
    {
        const QPointer<QObject> pAsker(pFor);
        pool.start([this, pAsker, fnWork, fnDone] {
            const auto result = fnWork();
            const auto handBack = [pAsker, fnDone, result] {
                if (pAsker) {
                    fnDone(result);
                }
            };
            QMetaObject::invokeMethod(this, handBack, Qt::QueuedConnection);
        });
    }

private:
    QThreadPool pool;
};
