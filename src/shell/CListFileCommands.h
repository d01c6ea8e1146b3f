#pragma once

#include <QPointer>
#include <QString>

class CProcessorTreeView;
class QFileDialog;

/// The two commands that replace the whole Discovered list by a file and write it to one. Asks, chooses
/// the file and tells the outcome; the bytes are the control library's. Texts are those of the panel's
/// translation context. Made for one command, GUI thread.
class CListFileCommands
{
public:
    /// pPanel is the parent of all dialogs and emits ImportFinished(); not owned.
    explicit CListFileCommands(CProcessorTreeView* pViewIn);

    /// Asks before a list that holds anything is overwritten. After a success the scan runs on a thread
    /// of the pool, busy, and nothing waits for it.
    void Import();

    /// A failure is not told, on purpose.
    void Export();

    /// Tells that the scan behind an import is done.
    void TellImportFinished();

private:
    bool ConfirmOverwrite();
    QString ChooseFile(QPointer<QFileDialog> pDialog);
    void TellImportFailed(int nResult);
    void StartImportJob();
    void Tell(const QString& strTitle, const QString& strText);

    CProcessorTreeView* pView;
};
