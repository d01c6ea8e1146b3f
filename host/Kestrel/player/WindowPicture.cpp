#include "Kestrel/player/WindowPicture.h"
#include "Kestrel/GuiThread.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

QPixmap WindowPicture::Take(QWidget& window)
{
    Q_ASSERT(GuiThread::IsCurrent());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // what has just been opened or shut has its place
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    const QWidgetList listWidget = QApplication::topLevelWidgets();
    for (QWidget* pWidget : listWidget) {
        if (pWidget != &window && pWidget->isVisible()) {
            painter.drawPixmap(pWidget->pos() - window.pos(), pWidget->grab());
        }
    }
    return picture;
}
