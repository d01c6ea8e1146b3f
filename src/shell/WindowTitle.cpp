#include "shell/WindowTitle.h"

#include <QApplication>
#include <QMainWindow>

QMainWindow* GetMainWindow()
{
    const QWidgetList listWidget = QApplication::topLevelWidgets();
    for (QWidget* pWidget : listWidget) {
        if (auto* pMainWindow = qobject_cast<QMainWindow*>(pWidget)) {
            return pMainWindow;
        }
    }
    return nullptr;
}

void SetMainWindowTitle(const QString& strProject)
{
    QMainWindow* pMainWindow = GetMainWindow();
    if (!pMainWindow) {
        return;
    }
    const QString strApplication = QStringLiteral("Kestrel");
    pMainWindow->setWindowTitle(strProject.isEmpty() ? strApplication : strProject + QStringLiteral(" - ") + strApplication);
}
