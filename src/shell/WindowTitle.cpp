#include "shell/WindowTitle.h"

#include "data/GuiThread.h"

#include <QApplication>
#include <QMainWindow>

QMainWindow* WindowTitle::GetMainWindow()
{
    const QWidgetList listWidget = QApplication::topLevelWidgets();
    for (QWidget* pWidget : listWidget) {
        if (auto* pMainWindow = qobject_cast<QMainWindow*>(pWidget)) {
            return pMainWindow;
        }
    }
    return nullptr;
}

void WindowTitle::ShowProject(const QString& strProject)
{
    Q_ASSERT(GuiThread::IsCurrent());
    QMainWindow* pMainWindow = GetMainWindow();
    if (!pMainWindow) {
        return;
    }
    const QString strApplication = QStringLiteral("Kestrel");
    pMainWindow->setWindowTitle(strProject.isEmpty() ? strApplication : strProject + QStringLiteral(" - ") + strApplication);
}
