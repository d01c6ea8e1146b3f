#include "CPanelWindow.h"

#include "Kestrel/player/PanelAccess.h"

#include <QApplication>
#include <QFile>
#include <QTreeView>
#include <QtTest>

namespace {

// As in the program, the look comes before the window.
void Prepare(const QString& strFile)
{
    QFile::copy(QStringLiteral(EXAMPLES_FOLDER "/studio.kvtl"), strFile);
    CTheme().Apply(*qApp);
}

} // namespace

CPanelWindow::CPanelWindow(const QString& strTheme) : CWindowFixture(Prepare)
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // as in the program
    theme.Set(strTheme);
    pPanel = loader.Load({}, window);
    window.SetPanel(pPanel->GetWidget());
    pPanel->UpdateWidget();
    QTRY_VERIFY(Row(QStringLiteral("Wall left")).isValid());
    // From wherever an earlier window has left the pointer, to where nothing lights up.
    QTest::mouseMove(window.windowHandle(), QPoint(1, window.height() - 2));
    QCoreApplication::processEvents();
}

QTreeView* CPanelWindow::Tree() const
{
    return PanelAccess::FindCurrentTree(window.GetPanel());
}

QModelIndex CPanelWindow::Row(const QString& strName) const
{
    return PanelAccess::FindRow(pointers, Tree(), strName);
}

QAbstractButton* CPanelWindow::Button(const QString& strToolTip) const
{
    return PanelAccess::FindButton(window.GetPanel(), strToolTip);
}

QImage CPanelWindow::Grab(const QWidget* pWidget)
{
    return window.grab(QRect(pWidget->mapTo(&window, QPoint()), pWidget->size())).toImage();
}

QImage CPanelWindow::Grab(const QRect& rcViewport)
{
    return window.grab(rcViewport.translated(Tree()->viewport()->mapTo(&window, QPoint()))).toImage();
}
