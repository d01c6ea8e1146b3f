#pragma once

#include <QMetaObject>

#include <functional>

class QWidget;

/// Watches the editor of a rename until it has closed, or until a rebuild has taken it away with its row.
/// The tree owns the watch, the view the editor. GUI thread.
class CRenameWatch
{
public:
    using FnLost = std::function<void()>;

    /// fnLostIn is called when the watched editor dies without having closed.
    explicit CRenameWatch(FnLost fnLostIn);

    /// Ends the watch: an editor may die later, and then reaches nobody.
    ~CRenameWatch();
    Q_DISABLE_COPY(CRenameWatch)

    /// Watches this editor from now on, in place of the last one.
    void Start(QWidget* pEditorIn);

    /// Ends the watch. An editor that has closed is destroyed later, which must not end the next rename.
    void Stop();

    /// The editor that is open; null when none is.
    QWidget* GetEditor() const;

private:
    void DealDestroyed();

    FnLost fnLost;
    QWidget* pEditor = nullptr;
    QMetaObject::Connection connectionDestroyed;
};
