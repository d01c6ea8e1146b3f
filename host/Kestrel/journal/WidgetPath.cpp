#include "Kestrel/journal/WidgetPath.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace {

// Names that Qt gives to the windows of the system and the like hold numbers that change.
QString GetName(const QWidget* pWidget)
{
    const QString strName = pWidget->objectName();
    const bool bGood = !strName.isEmpty() && !strName.contains(QLatin1Char('/')) && !strName.contains(QLatin1Char('['));
    return bGood ? strName : QString::fromLatin1(pWidget->metaObject()->className());
}

QWidgetList GetSiblings(const QWidget* pParent)
{
    QWidgetList listWidget;
    if (pParent) {
        listWidget = pParent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    } else {
        listWidget = QApplication::topLevelWidgets();
        const auto isHidden = [](const QWidget* pWidget) { return !pWidget->isVisible() || pWidget->parentWidget(); };
        listWidget.erase(std::remove_if(listWidget.begin(), listWidget.end(), isHidden), listWidget.end());
    }
    return listWidget;
}

QWidgetList GetNamed(const QWidget* pParent, const QString& strName)
{
    QWidgetList listWidget = GetSiblings(pParent);
    const auto isOther = [&](const QWidget* pWidget) { return GetName(pWidget) != strName; };
    listWidget.erase(std::remove_if(listWidget.begin(), listWidget.end(), isOther), listWidget.end());
    return listWidget;
}

} // namespace

QString WidgetPath::Get(const QWidget* pWidget)
{
    QStringList listPart;
    for (; pWidget; pWidget = pWidget->parentWidget()) {
        const QString strName = GetName(pWidget);
        const int nNumber = GetNamed(pWidget->parentWidget(), strName).indexOf(const_cast<QWidget*>(pWidget));
        listPart.prepend(QStringLiteral("%1[%2]").arg(strName).arg(nNumber));
    }
    return listPart.join(QLatin1Char('/'));
}

QWidget* WidgetPath::Find(const QString& strPath)
{
    QWidget* pWidget = nullptr;
    const QStringList listPart = strPath.split(QLatin1Char('/'));
    for (const QString& strPart : listPart) {
        const int nNumber = strPart.section(QLatin1Char('['), 1).remove(QLatin1Char(']')).toInt();
        pWidget = GetNamed(pWidget, strPart.section(QLatin1Char('['), 0, 0)).value(nNumber);
        if (!pWidget) {
            return nullptr;
        }
    }
    return pWidget;
}
