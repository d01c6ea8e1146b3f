#include "interfaces/widgets/CSearchBox.h"

#include <QApplication>
#include <QLineEdit>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    CSearchBox box(nullptr, true);
    box.findChild<QLineEdit*>()->setText(QStringLiteral("stage"));
    return box.GetText() == QLatin1String("stage") ? 0 : 1;
}
