#include "Kestrel/CFinalSave.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/status/ListTrouble.h"
#include "controlhost/IControlHost.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "journal/SControlPointers.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QThread>

CFinalSave::CFinalSave(IControlHost& hostIn, const SControlPointers& pointersIn, QWidget& windowIn)
    : host(hostIn), pointers(pointersIn), window(windowIn)
{ }

QString CFinalSave::Save()
{
    Q_ASSERT(GuiThread::IsCurrent());
    strFault.clear();
    return ListTrouble::GetReason(host.SaveList());
}

bool CFinalSave::Ask(const QString& strReason)
{
    QString strNow = strReason;
    while (!strNow.isEmpty()) {
        const EnAnswer answer = AskOnce(strNow);
        if (answer != AnswerElsewhere) {
            return answer == AnswerDiscard;
        }
        const QString strPath = ChooseFile();
        strNow = strPath.isEmpty() ? strReason : SaveTo(strPath);
    }
    return true;
}

void CFinalSave::SaveAside(const QString& strReason)
{
    QString strAsideReason;
    QString strPath = host.SaveListAside(strAsideReason);
    if (strPath.isEmpty()) {
        strPath = SaveInOtherFolder();
    }
    strFault = strPath.isEmpty() ? QStringLiteral("The list could not be saved anywhere. %1; %2").arg(strReason, strAsideReason)
                                 : QStringLiteral("The list is in %1, not at its place. %2").arg(strPath, strReason);
}

QString CFinalSave::GetFault() const
{
    return strFault;
}

CFinalSave::EnAnswer CFinalSave::AskOnce(const QString& strReason)
{
    QMessageBox box(QMessageBox::Warning, tr("List not saved"),
                    tr("The list could not be saved at its place.") + QStringLiteral("\n\n") + strReason, QMessageBox::NoButton,
                    &window);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* pElsewhere = box.addButton(tr("&Save elsewhere…"), QMessageBox::AcceptRole);
    const QPushButton* pDiscard = box.addButton(tr("&Quit without saving"), QMessageBox::DestructiveRole);
    QPushButton* pStay = box.addButton(tr("&Cancel"), QMessageBox::RejectRole);
    box.setEscapeButton(pStay);
    // A box is kept narrow on a small screen; side by side long texts would not fit it.
    box.findChild<QDialogButtonBox*>()->setOrientation(Qt::Vertical);
    box.exec();
    if (box.clickedButton() == pElsewhere) {
        return AnswerElsewhere;
    }
    return box.clickedButton() == pDiscard ? AnswerDiscard : AnswerStay;
}

// The path, or an empty one when the user thought better of it.
QString CFinalSave::ChooseFile()
{
    QFileDialog dialog(&window, tr("Save the list"), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                       QStringLiteral("*.kvtl"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("kvtl"));
    dialog.selectFile(QFileInfo((*pointers.ppConfig)->GetListFilePath()).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

// Empty, or the reason why not. The library says it in its log, on the thread of the call; the lines of other
// threads are about other things.
QString CFinalSave::SaveTo(const QString& strPath)
{
    strLogged = strPath;
    const QMetaObject::Connection connection = QObject::connect(
        &host, &IControlHost::LogLine, &window,
        [this](const QString& strLine) {
            if (QThread::currentThread() == window.thread()) {
                strLogged = strLine;
            }
        },
        Qt::DirectConnection);
    const bool bSaved = (*pointers.ppPrcList)->ExportList(strPath, 0) == 0;
    QObject::disconnect(connection);
    return bSaved ? QString() : strLogged;
}

// The path of the file, or an empty one.
QString CFinalSave::SaveInOtherFolder()
{
    const QString strName = QStringLiteral("%1.unsaved-%2-%3.kvtl")
                                .arg(QFileInfo((*pointers.ppConfig)->GetListFilePath()).completeBaseName(),
                                     QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss")))
                                .arg(QCoreApplication::applicationPid());
    for (const QString& strFolder :
         { QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation), QDir::tempPath() }) {
        const QString strPath = QDir(strFolder).filePath(strName);
        if (QDir().mkpath(strFolder) && SaveTo(strPath).isEmpty()) {
            return strPath;
        }
    }
    return {};
}
