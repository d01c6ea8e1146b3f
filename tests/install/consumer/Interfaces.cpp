#include "interfaces/host/IUIManagement.h"

#include <QApplication>
#include <QWidget>

namespace {

class CHost final : public IUIManagement
{
public:
    QWidget* GetParentWidget() override
    {
        return &parent;
    }

private:
    QWidget parent;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    CHost host;
    IUIManagement& management = host;
    return management.GetParentWidget() ? 0 : 1;
}
