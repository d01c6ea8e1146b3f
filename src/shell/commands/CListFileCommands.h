#pragma once

#include <QCoreApplication>
#include <QPointer>
#include <QString>

#include <functional>

class QFileDialog;
class QWidget;

/// The two commands that replace the whole Discovered list by a file and write it to one. Asks, chooses the
/// file and reports the outcome; the bytes are the control library's. One object per command, GUI thread.
class CListFileCommands
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorTreeView)

public:
    /// pParentIn is the parent of all dialogs; not owned. It may be destroyed under an open file dialog.
    /// fnAnnounceImportIn announces that the scan behind an import is done; called on a thread of the pool.
    CListFileCommands(QWidget* pParentIn, std::function<void()> fnAnnounceImportIn);

    /// Asks before a list that holds anything is overwritten. After a success the scan runs on a thread
    /// of the pool, busy, and nothing waits for it.
    void Import();

    /// A failure is not reported: by the contract with the host only a success is.
    void Export();

    /// Reports that the scan behind an import is done.
    void ShowImportFinished();

private:
    bool ConfirmOverwrite();
    QString ChooseFile(QPointer<QFileDialog> pDialog);
    void ShowImportFailed(int nResult);
    void StartImportJob();
    void Inform(const QString& strTitle, const QString& strText);

    QWidget* pParent;
    std::function<void()> fnAnnounceImport;
};
