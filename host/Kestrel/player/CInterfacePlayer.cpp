#include "Kestrel/player/CInterfacePlayer.h"

#include "Kestrel/CMainWindow.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/player/WindowPicture.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QJsonObject>
#include <QLineEdit>
#include <QPixmap>
#include <QTimer>
#include <QTreeView>

namespace {

constexpr double dMsPerSecond = 1000.0;
constexpr int nNumberDigits = 2;
constexpr int nDecimal = 10;

} // namespace

CInterfacePlayer::CInterfacePlayer(CMainWindow& windowIn, const SControlPointers& pointersIn, const QJsonArray& marksIn,
                                   const QString& strFolderIn)
    : window(windowIn), pointers(pointersIn), marks(marksIn), strFolder(strFolderIn)
{ }

void CInterfacePlayer::Start()
{
    for (const QJsonValue& value : marks) {
        const QJsonObject mark = value.toObject();
        const int nMs = qRound(mark.value(QLatin1String("at")).toDouble() * dMsPerSecond);
        QTimer::singleShot(nMs, Qt::PreciseTimer, this, [this, mark] { Play(mark); });
    }
    if (marks.isEmpty()) {
        QTimer::singleShot(0, this, &CInterfacePlayer::Finished);
    }
}

QString CInterfacePlayer::TakePicture(const QString& strFile) const
{
    const bool bWritten = WindowPicture::Take(window).save(strFile, "PNG");
    return bWritten ? QString() : QStringLiteral("Cannot write the picture '%1'").arg(strFile);
}

bool CInterfacePlayer::HasMovedJournal() const
{
    return bJournalMoved;
}

void CInterfacePlayer::Play(const QJsonObject& mark)
{
    // Counted first: a pressed button may open a dialog, and the marks behind it are played within that call.
    const bool bLast = ++nDone == marks.size();
    if (mark.contains(QLatin1String("shot"))) {
        TakeNumberedPicture(mark.value(QLatin1String("shot")).toString());
    } else if (mark.contains(QLatin1String("search"))) {
        Search(mark.value(QLatin1String("search")).toString());
    } else if (mark.contains(QLatin1String("pane"))) {
        ChoosePane(mark.value(QLatin1String("pane")).toString());
    } else if (mark.contains(QLatin1String("select"))) {
        Select(mark.value(QLatin1String("select")).toArray());
    } else if (mark.contains(QLatin1String("journal"))) {
        ShowJournal(mark.value(QLatin1String("journal")).toBool());
    } else {
        Press(mark.value(QLatin1String("press")).toString());
    }
    if (bLast) {
        emit Finished();
    }
}

void CInterfacePlayer::TakeNumberedPicture(const QString& strName)
{
    if (strFolder.isEmpty()) {
        return;
    }
    const QString strNumber = QStringLiteral("%1").arg(++nPictures, nNumberDigits, nDecimal, QLatin1Char('0'));
    const QString strFile = QDir(strFolder).filePath(QStringLiteral("%1-%2.png").arg(strNumber, strName));
    const QString strReason = TakePicture(strFile);
    if (strReason.isEmpty()) {
        emit PictureTaken(strFile);
    } else {
        emit MarkFailed(strReason);
    }
}

void CInterfacePlayer::Search(const QString& strText)
{
    QAction* pSearch = PanelAccess::FindAction(window.GetPanel(), "CProcessorTreeToolBar", "Search");
    QLineEdit* pEdit = PanelAccess::FindSearchEdit(window.GetPanel());
    auto* pClose = window.GetPanel()->findChild<QAbstractButton*>(QStringLiteral("CloseSearchBox"));
    if (!pSearch || !pEdit || !pClose) {
        emit MarkFailed(QStringLiteral("The panel has no search row"));
    } else if (strText.isEmpty()) {
        pClose->click();
    } else {
        pSearch->trigger();
        PanelAccess::TypeText(pEdit, strText);
    }
}

void CInterfacePlayer::ChoosePane(const QString& strPane)
{
    const bool bSimulator = strPane == QLatin1String("simulator");
    QAbstractButton* pTab = PanelAccess::FindTab(window.GetPanel(), bSimulator);
    if (pTab) {
        pTab->click();
    } else {
        emit MarkFailed(QStringLiteral("The panel has no tab '%1'").arg(strPane));
    }
}

void CInterfacePlayer::Select(const QJsonArray& listName)
{
    QTreeView* pTree = PanelAccess::FindCurrentTree(window.GetPanel());
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    for (const QJsonValue& name : listName) {
        const QModelIndex index = PanelAccess::FindRow(pointers, pTree, name.toString());
        if (index.isValid()) {
            PanelAccess::ClickRow(pTree, index, modifiers);
        } else {
            emit MarkFailed(QStringLiteral("No row '%1'").arg(name.toString()));
        }
        modifiers = Qt::ControlModifier;
    }
}

void CInterfacePlayer::Press(const QString& strToolTip)
{
    QAbstractButton* pButton = PanelAccess::FindButton(window.GetPanel(), strToolTip);
    if (pButton) {
        pButton->click();
    } else {
        emit MarkFailed(QStringLiteral("The panel has no button '%1'").arg(strToolTip));
    }
}

void CInterfacePlayer::ShowJournal(bool bShown)
{
    bJournalMoved = true;
    window.findChild<QDockWidget*>(QStringLiteral("JournalDock"))->setVisible(bShown);
}
