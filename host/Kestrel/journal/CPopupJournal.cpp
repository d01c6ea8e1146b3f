#include "Kestrel/journal/CPopupJournal.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/journal/UserLine.h"
#include "Kestrel/journal/WidgetPath.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

namespace {

bool IsSubMenu(const QMenu* pMenu)
{
    return pMenu && qobject_cast<QMenu*>(pMenu->parentWidget());
}

// Those of a sub-menu may be names of groups. Any other may have a name too: what it would undo.
SPrivateText GetEntry(const QAction& action, const QMenu* pMenu)
{
    return SPrivateText(action.text(), IsSubMenu(pMenu) ? PrivateName : PrivateText);
}

QMenu* FindMenu(const QAction& action)
{
    const QList<QWidget*> listWidget = action.associatedWidgets();
    for (QWidget* pWidget : listWidget) {
        if (auto* pMenu = qobject_cast<QMenu*>(pWidget)) {
            return pMenu;
        }
    }
    return nullptr;
}

SPrivateTexts GetLabels(const QDialog& dialog)
{
    SPrivateTexts texts;
    const QList<QLabel*> listLabel = dialog.findChildren<QLabel*>();
    for (const QLabel* pLabel : listLabel) {
        if (!pLabel->text().isEmpty()) {
            texts.vecText.emplace_back(pLabel->text(), PrivateText);
        }
    }
    return texts;
}

/// What was put into its fields, in their order: edits, boxes of choices, check marks.
SPrivateTexts GetValues(const QDialog& dialog)
{
    SPrivateTexts texts;
    const QList<QWidget*> listWidget = dialog.findChildren<QWidget*>();
    for (const QWidget* pWidget : listWidget) {
        const auto* pButton = qobject_cast<const QAbstractButton*>(pWidget);
        if (const auto* pEdit = qobject_cast<const QLineEdit*>(pWidget)) {
            texts.vecText.emplace_back(pEdit->text(), PrivateText);
        } else if (const auto* pBox = qobject_cast<const QComboBox*>(pWidget)) {
            texts.vecText.emplace_back(pBox->currentText(), PrivateText);
        } else if (pButton && pButton->isCheckable()) {
            texts.vecText.emplace_back(QString::number(pButton->isChecked()), PrivateText);
        }
    }
    return texts;
}

SPrivateTexts GetFiles(const QDialog& dialog)
{
    SPrivateTexts texts;
    if (const auto* pFileDialog = qobject_cast<const QFileDialog*>(&dialog)) {
        const QStringList listFile = pFileDialog->selectedFiles();
        for (const QString& strFile : listFile) {
            texts.vecText.emplace_back(strFile, PrivatePath);
        }
    }
    return texts;
}

} // namespace

CPopupJournal::CPopupJournal(ICallRecorder& recorderIn) : recorder(recorderIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    qApp->installEventFilter(this);
}

bool CPopupJournal::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show) {
        return false;
    }
    if (auto* pMenu = qobject_cast<QMenu*>(watched)) {
        FollowMenu(*pMenu);
    } else if (auto* pDialog = qobject_cast<QDialog*>(watched)) {
        FollowDialog(*pDialog);
    }
    return false;
}

void CPopupJournal::FollowMenu(QMenu& menu)
{
    SPrivateTexts texts;
    const QList<QAction*> listAction = menu.actions();
    for (const QAction* pAction : listAction) {
        texts.vecText.push_back(GetEntry(*pAction, &menu));
    }
    UserLine::Write(recorder, "menu", { { "menu", WidgetPath::Get(&menu) }, { "entries", texts } });
    if (IsFirst(menu)) {
        connect(&menu, &QMenu::triggered, this, &CPopupJournal::NoteAction);
        connect(&menu, &QMenu::aboutToHide, this,
                [this, &menu] { UserLine::Write(recorder, "menu closed", { { "menu", mapFollowed.value(&menu) } }); });
    }
}

void CPopupJournal::FollowDialog(QDialog& dialog)
{
    UserLine::Write(recorder, "dialog",
                    { { "dialog", WidgetPath::Get(&dialog) },
                      { "title", SPrivateText(dialog.windowTitle(), PrivateText) },
                      { "texts", GetLabels(dialog) } });
    if (IsFirst(dialog)) {
        connect(&dialog, &QDialog::finished, this, [this, &dialog](int nResult) { NoteAnswer(dialog, nResult); });
    }
}

void CPopupJournal::NoteAction(QAction* pAction)
{
    if (pAction == pNoted) {
        return;
    }
    pNoted = pAction;
    QMetaObject::invokeMethod(this, &CPopupJournal::ForgetAction, Qt::QueuedConnection);
    const QMenu* pMenu = FindMenu(*pAction);
    const int nEntry = pMenu ? pMenu->actions().indexOf(pAction) : -1;
    UserLine::Write(recorder, "entry",
                    { { "menu", pMenu ? WidgetPath::Get(pMenu) : QString() },
                      { "number", qint64(nEntry) },
                      { "entry", GetEntry(*pAction, pMenu) } });
}

void CPopupJournal::ForgetAction()
{
    pNoted = nullptr;
}

void CPopupJournal::NoteAnswer(QDialog& dialog, int nResult)
{
    UserLine::Write(recorder, "answer",
                    { { "dialog", mapFollowed.value(&dialog) },
                      { "result", qint64(nResult) },
                      { "values", GetValues(dialog) },
                      { "files", GetFiles(dialog) } });
}

bool CPopupJournal::IsFirst(QWidget& widget)
{
    const bool bFirst = !mapFollowed.contains(&widget);
    mapFollowed[&widget] = WidgetPath::Get(&widget);
    if (bFirst) {
        connect(&widget, &QObject::destroyed, this, [this](QObject* pGone) { mapFollowed.remove(pGone); });
    }
    return bFirst;
}
