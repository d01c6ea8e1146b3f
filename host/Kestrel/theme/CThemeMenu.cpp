#include "Kestrel/theme/CThemeMenu.h"

#include "Kestrel/theme/CTheme.h"

#include <QActionGroup>
#include <QEvent>

CThemeMenu::CThemeMenu(CTheme& themeIn, QWidget* parent) : QMenu(parent), theme(themeIn), pThemes(new QActionGroup(this))
{
    const QStringList listName = CTheme::GetNames();
    for (const QString& strName : listName) {
        QAction* pAction = addAction(QString());
        pAction->setData(strName);
        pAction->setCheckable(true);
        pThemes->addAction(pAction);
    }
    connect(pThemes, &QActionGroup::triggered, this, [this](const QAction* pAction) { theme.Set(pAction->data().toString()); });
    connect(&theme, &CTheme::Changed, this, &CThemeMenu::UpdateState);
    UpdateState();
    UpdateText();
}

void CThemeMenu::changeEvent(QEvent* event)
{
    QMenu::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
}

void CThemeMenu::UpdateState()
{
    const QList<QAction*> listAction = pThemes->actions();
    for (QAction* pAction : listAction) {
        pAction->setChecked(pAction->data().toString() == theme.GetName());
    }
}

void CThemeMenu::UpdateText()
{
    setTitle(tr("&Theme"));
    const QList<QAction*> listAction = pThemes->actions();
    for (QAction* pAction : listAction) {
        pAction->setText(GetText(pAction->data().toString()));
    }
}

QString CThemeMenu::GetText(const QString& strName)
{
    return strName == QLatin1String("contrast") ? tr("&High contrast") : tr("&Dark");
}
