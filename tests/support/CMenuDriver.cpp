#include "CMenuDriver.h"

#include "Patience.h"

#include <QApplication>
#include <QWindow>
#include <QtTest>

namespace {

constexpr int nLongestActivation = 5000; // milliseconds; a menu is used without it then

/// The offscreen platform activates the windows of menus, a moment after they are shown; that would take
/// the focus from what the chosen entry opens. Other platforms never do.
bool IsSettled(const QMenu* pMenu)
{
    return QGuiApplication::platformName() != QLatin1String("offscreen")
        || (pMenu->windowHandle() && pMenu->windowHandle() == QGuiApplication::focusWindow());
}

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

CMenuDriver::CMenuDriver(const FnMenu& fnActIn) : fnAct(fnActIn)
{
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { Look(); });
    timer.start(1);
}

void CMenuDriver::Look()
{
    auto* const pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (pMenu && deadlineActivation.isForever()) {
        deadlineActivation.setRemainingTime(nLongestActivation);
    }
    if (pMenu && (IsSettled(pMenu) || deadlineActivation.hasExpired())) {
        bActed = true;
        timer.stop(); // the act may run an event loop of its own
        fnAct(pMenu);
    }
}

bool CMenuDriver::HasActed() const
{
    return bActed;
}

void CMenuDriver::Choose(QMenu* pMenu, const QStringList& listPath)
{
    QAction* const pAction = FindEntry(pMenu, listPath.first());
    if (!pAction) {
        CloseMenus();
        QFAIL(qPrintable("no entry " + listPath.first()));
    }
    const QPointer<QMenu> pSubMenu = pAction->menu();
    QTest::mouseClick(pMenu->windowHandle(), Qt::LeftButton, Qt::NoModifier, pMenu->actionGeometry(pAction).center());
    if (listPath.size() > 1) {
        QVERIFY(pSubMenu && QTest::qWaitFor([&] { return pSubMenu && pSubMenu->isVisible(); }, nPatience));
        Choose(pSubMenu, listPath.mid(1));
    }
}

void CMenuDriver::ChooseByKey(QMenu* pMenu, const QString& strEntry)
{
    QAction* const pAction = FindEntry(pMenu, strEntry);
    if (!pAction) {
        CloseMenus();
        QFAIL(qPrintable("no entry " + strEntry));
    }
    pMenu->setActiveAction(pAction);
    QTest::keyPress(pMenu->windowHandle(), Qt::Key_Return); // the window may have gone before the release
}

QStringList CMenuDriver::Entries(const QMenu* pMenu)
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
