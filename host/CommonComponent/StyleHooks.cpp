#include "CommonComponent/StyleHooks.h"

#include <QFile>
#include <QVariant>
#include <QWidget>

namespace {

void Repolish(QWidget* pWidget)
{
    pWidget->style()->unpolish(pWidget);
    pWidget->style()->polish(pWidget);
    pWidget->update();
}

} // namespace

void SetStyleProperty(QWidget* pWidget, const char* szName, const QVariant& value)
{
    if (pWidget->property(szName) == value) {
        return;
    }
    pWidget->setProperty(szName, value);
    Repolish(pWidget);
    const QList<QWidget*> listChild = pWidget->findChildren<QWidget*>();
    for (QWidget* pChild : listChild) {
        Repolish(pChild);
    }
}

QIcon LoadWidgetIcon(const QString& strPath, QStyle::StandardPixmap fallback, const QWidget* pWidget)
{
    return QFile::exists(strPath) ? QIcon(strPath) : pWidget->style()->standardIcon(fallback, nullptr, pWidget);
}
