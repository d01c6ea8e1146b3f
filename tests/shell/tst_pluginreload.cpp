#include "Flatness.h"
#include "TestMain.h"
#include "TreeText.h"
#include "double/CControlDouble.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/IUIManagement.h"

#include <QLibrary>
#include <QStackedLayout>
#include <QTreeView>

#include <dlfcn.h>

namespace {

constexpr char szEntryPoint[] = "_Z23CProcessorTreeView_InitPP13ICorvidWidgetP13IUIManagement";
constexpr int nLoads = 1000;
using FnInit = int (*)(ICorvidWidget**, IUIManagement*);

QString PluginPath()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/libProcessorTreeView.so");
}

/// A window with one panel in it, from a library that is loaded for it.
class CLoadedPanel final : public IUIManagement
{
public:
    CLoadedPanel() : plugin(PluginPath())
    {
        window.resize(300, 200);
        if (const auto fnInit = reinterpret_cast<FnInit>(plugin.resolve(szEntryPoint))) {
            fnInit(&pPanel, this);
            pPanel->GetWidget()->resize(window.size());
            window.show();
        }
    }

    virtual ~CLoadedPanel()
    {
        delete pPanel;
        plugin.unload();
    }
    Q_DISABLE_COPY(CLoadedPanel)

    QWidget* GetParentWidget() override
    {
        return &window;
    }

    QTreeView* Tree() const
    {
        return qobject_cast<QTreeView*>(pPanel->GetWidget()->findChild<QStackedLayout*>()->currentWidget());
    }

    QLibrary plugin;
    QWidget window;
    ICorvidWidget* pPanel = nullptr;
};

} // namespace

/// A host that loads and unloads the shipped library again and again.
class CPluginReloadTest : public QObject
{
    Q_OBJECT

private slots:
    void unloadingLeavesTheLibraryInMemory()
    {
        CControlDouble control;
        {
            const CLoadedPanel panel;
            QVERIFY2(panel.pPanel, qPrintable(panel.plugin.errorString()));
        }
        void* const pLibrary = dlopen(qPrintable(PluginPath()), RTLD_LAZY | RTLD_NOLOAD);
        QVERIFY2(pLibrary, "Qt keeps what the library has registered with it");
        dlclose(pLibrary);
    }

    void eachOfAThousandLoadsPaintsItsPanelAndLeavesNothing()
    {
        CControlDouble control;
        int nLoad = 0;
        const auto load = [&] {
            const QString strName = QString::number(++nLoad % 2);
            control.Set([&](SControlAnswers& answers) { answers.nodeDiscovered = Root({}, { Processor(strName).Primary() }); });
            const CLoadedPanel panel;
            QVERIFY2(panel.pPanel, qPrintable(panel.plugin.errorString()));
            QVERIFY(QTest::qWaitFor([&] { // a message may lie in the worker's queue until the next one
                control.Raise(1);
                return TreeText(panel.Tree()).contains("processor " + strName);
            }));
            QVERIFY(!panel.pPanel->GetWidget()->grab().isNull());
            control.ClearJournal();
        };
        QCOMPARE(Flatness::FindGrowth(nLoads, load), QString());
    }
};

PTV_TEST_MAIN(CPluginReloadTest)
#include "tst_pluginreload.moc"
