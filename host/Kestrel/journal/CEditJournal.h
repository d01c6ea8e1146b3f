#pragma once

#include <QObject>
#include <QSet>

class ICallRecorder;
class QLineEdit;

/// Records what stands in a line of text at each change that the user makes: by keys, an input method, the clipboard or the
/// mouse. Only looks. GUI thread.
class CEditJournal : public QObject
{
    Q_OBJECT

public:
    /// recorderIn must outlive it.
    explicit CEditJournal(ICallRecorder& recorderIn);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow(QLineEdit& edit);

    ICallRecorder& recorder;
    QSet<QObject*> setFollowed;
};
