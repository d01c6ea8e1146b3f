#include "CUserHand.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QPushButton>
#include <QWindow>
#include <QtTest>

namespace {

QString Plain(QString strText)
{
    return strText.remove('&');
}

/// The offscreen platform activates the windows of menus, a moment after they are shown; that would take
/// the focus from what the chosen entry opens. Other platforms never do.
bool IsSettled(const QMenu* pMenu)
{
    return QGuiApplication::platformName() != QLatin1String("offscreen")
        || (pMenu->windowHandle() && pMenu->windowHandle() == QGuiApplication::focusWindow());
}

const int nPatience = 5000; // milliseconds, for a menu whose activation fell out

QAction* FindEntry(const QMenu* pMenu, const QString& strText)
{
    for (QAction* const pAction : pMenu->actions()) {
        if (pAction->text() == strText) {
            return pAction;
        }
    }
    return nullptr;
}

/// Lets a test that has failed go on: its menu would wait for ever.
void CloseMenus()
{
    while (QWidget* const pMenu = QApplication::activePopupWidget()) {
        pMenu->close();
    }
}

} // namespace

CUserHand::CUserHand(const FnMenu& fnAct)
{
    Watch([fnAct, deadline = QDeadlineTimer(QDeadlineTimer::Forever)]() mutable {
        auto* const pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (pMenu && deadline.isForever()) {
            deadline.setRemainingTime(nPatience);
        }
        if (!pMenu || (!IsSettled(pMenu) && !deadline.hasExpired())) {
            return false;
        }
        fnAct(pMenu);
        return true;
    });
}

CUserHand::CUserHand(const FnDialog& fnAct)
{
    Watch([fnAct] {
        auto* const pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!pDialog || !pDialog->isVisible()) {
            return false;
        }
        fnAct(pDialog);
        return true;
    });
}

void CUserHand::Watch(const std::function<bool()>& fnTry)
{
    QObject::connect(&timer, &QTimer::timeout, &timer, [this, fnTry] {
        if (bActed) {
            return;
        }
        bActed = true; // before the act, which may run an event loop of its own
        bActed = fnTry();
        if (bActed) {
            timer.stop();
        }
    });
    timer.start(1);
}

bool CUserHand::HasActed() const
{
    return bActed;
}

void CUserHand::Choose(QMenu* pMenu, const QStringList& listPath)
{
    QAction* const pAction = FindEntry(pMenu, listPath.first());
    if (!pAction) {
        CloseMenus();
        QFAIL(qPrintable("no entry " + listPath.first()));
    }
    const QPointer<QMenu> pSubMenu = pAction->menu();
    QTest::mouseClick(pMenu->windowHandle(), Qt::LeftButton, Qt::NoModifier, pMenu->actionGeometry(pAction).center());
    if (listPath.size() > 1) {
        QVERIFY(pSubMenu && QTest::qWaitFor([&] { return pSubMenu && pSubMenu->isVisible(); }));
        Choose(pSubMenu, listPath.mid(1));
    }
}

void CUserHand::ChooseByKey(QMenu* pMenu, const QString& strEntry)
{
    QAction* const pAction = FindEntry(pMenu, strEntry);
    if (!pAction) {
        CloseMenus();
        QFAIL(qPrintable("no entry " + strEntry));
    }
    pMenu->setActiveAction(pAction);
    QTest::keyPress(pMenu->windowHandle(), Qt::Key_Return); // the window may have gone before the release
}

QStringList CUserHand::Entries(const QMenu* pMenu)
{
    QStringList listEntry;
    for (const QAction* pAction : pMenu->actions()) {
        QString strEntry = pAction->isEnabled() ? pAction->text() : QStringLiteral("(%1)").arg(pAction->text());
        if (const QMenu* const pSubMenu = pAction->menu()) {
            strEntry += QStringLiteral(": [%1]").arg(Entries(pSubMenu).join(", "));
        }
        listEntry.append(strEntry);
    }
    return listEntry;
}

void CUserHand::ClickButton(QDialog* pDialog, const QString& strText)
{
    for (QPushButton* const pButton : pDialog->findChildren<QPushButton*>()) {
        if (Plain(pButton->text()) == strText) {
            QTest::mouseClick(pButton, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable("no button " + strText));
}

QStringList CUserHand::Buttons(const QDialog* pDialog)
{
    QStringList listText;
    for (const QPushButton* pButton : pDialog->findChildren<QPushButton*>()) {
        listText.append(Plain(pButton->text()));
    }
    return listText;
}
