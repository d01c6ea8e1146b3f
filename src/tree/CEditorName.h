#pragma once

#include <QObject>
#include <QUuid>

class QLineEdit;

/// While it lives, an editor that opens in a view gets its name for screen readers, and has it before it gets the focus.
/// Does nothing while no screen reader listens. GUI thread.
class CEditorName : public QObject // clazy:exclude=missing-qobject-macro
{
public:
    /// The editor becomes a child of pViewport; id is that of the node whose name it holds.
    CEditorName(QObject* pViewport, const QUuid& idIn);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Name(QLineEdit* pEditor) const;

    const QUuid id;
};
