#include "CommonComponent/CComboBoxAccess.h"

#include "interfaces/widgets/CComboBox.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace {

QAccessibleInterface* CreateAccess(const QString&, QObject* pObject)
{
    auto* pBox = qobject_cast<CComboBox*>(pObject);
    return pBox ? new CComboBoxAccess(pBox) : nullptr;
}

} // namespace

void CComboBoxAccess::Install()
{
    static const bool bInstalled = [] {
        QAccessible::installFactory(CreateAccess);
        return true;
    }();
    Q_UNUSED(bInstalled)
}

CComboBoxAccess::CComboBoxAccess(CComboBox* pBoxIn) : QAccessibleWidget(pBoxIn, QAccessible::ComboBox), pBox(pBoxIn) { }

QString CComboBoxAccess::text(QAccessible::Text t) const
{
    return t == QAccessible::Value ? pBox->GetCurSelText() : QAccessibleWidget::text(t);
}

QAccessible::State CComboBoxAccess::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = pBox->property("MenuOpen").toBool();
    state.hasPopup = true;
    return state;
}

QStringList CComboBoxAccess::actionNames() const
{
    return { showMenuAction() };
}

void CComboBoxAccess::doAction(const QString& strAction)
{
    if (strAction == showMenuAction()) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_F4, Qt::NoModifier);
        QCoreApplication::sendEvent(pBox, &event);
    }
}
