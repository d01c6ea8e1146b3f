#include "TestMain.h"
#include "double/CControlDouble.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/IUIManagement.h"

#include <QLibrary>
#include <QProcess>
#include <QWidget>

namespace {

const char szEntryPoint[] = "_Z23CProcessorTreeView_InitPP13ICorvidWidgetP13IUIManagement";
using FnInit = int (*)(ICorvidWidget**, IUIManagement*);

QString PluginPath()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/libProcessorTreeView.so");
}

/// What a tool of the compiler's prints about the plug-in, line by line.
QStringList Inspect(const QString& strTool, const QStringList& listOption)
{
    QProcess process;
    process.start(strTool, listOption + QStringList(PluginPath()));
    if (!process.waitForFinished(nPatience) || process.exitCode() != 0) {
        return QStringList({ strTool, process.errorString() });
    }
    return QString::fromLocal8Bit(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

class CHost final : public IUIManagement
{
public:
    QWidget* GetParentWidget() override
    {
        return &parent;
    }

    QWidget parent;
};

} // namespace

/// The shipped library, in a program that knows only the contract's headers.
class CPluginFileTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLibrary library(PluginPath());
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        fnInit = reinterpret_cast<FnInit>(library.resolve(szEntryPoint));
        QVERIFY(fnInit);
    }

    void init()
    {
        pControl.reset(new CControlDouble);
        pHost.reset(new CHost);
        QCOMPARE(fnInit(&pPanel, pHost.data()), 1);
    }

    void cleanup()
    {
        delete pPanel;
        pPanel = nullptr;
        pHost.reset();
        pControl.reset();
    }

    void theLibraryExportsItsEntryPointAndNothingElse()
    {
        const QStringList listLine = Inspect(QStringLiteral("nm"), { "--dynamic", "--defined-only", "--format=posix" });

        QCOMPARE(listLine.size(), 1);
        QVERIFY2(listLine.first().startsWith(QString::fromLatin1(szEntryPoint) + " T "), qPrintable(listLine.first()));
    }

    void theLibraryNeedsTheHostsLibrariesAndQtOnly()
    {
        static const QRegularExpression needed(QStringLiteral("\\(NEEDED\\).*\\[(.*)\\]"));
        static const QRegularExpression expected(QStringLiteral(
            "^(libQt5(Core|Gui|Widgets|Network|Svg|Concurrent)\\.so\\.5|libCommonComponent\\.so\\.0|libCorvidControl\\.so\\.0"
            "|libstdc\\+\\+\\.so\\.6|libgcc_s\\.so\\.1|libc\\.so\\.6|libm\\.so\\.6|lib(a|ub|t)san\\.so\\.\\d+)$"));
        int nNeeded = 0;

        const QStringList listLine = Inspect(QStringLiteral("readelf"), { "--dynamic" });

        for (const QString& strLine : listLine) {
            const QRegularExpressionMatch match = needed.match(strLine);
            if (!match.hasMatch()) {
                continue;
            }
            ++nNeeded;
            QVERIFY2(expected.match(match.captured(1)).hasMatch(), qPrintable(strLine));
        }
        QVERIFY(nNeeded > 0);
    }

    void aNullPlaceForThePanelGivesZero()
    {
        QCOMPARE(fnInit(nullptr, pHost.data()), 0);
        QCOMPARE(fnInit(nullptr, nullptr), 0);
    }

    void thePanelAnswersThroughItsInterface()
    {
        QWidget* pView = pPanel->GetWidget();

        QCOMPARE(pView->parentWidget(), &pHost->parent);
        QCOMPARE(pPanel->GetWidgetAlias1(), pView);
        QCOMPARE(pPanel->GetWidgetAlias2(), pView);
        QCOMPARE(pPanel->GetDefaultFlag(), 1);
        pPanel->UpdateWidget();
    }

    void thePanelIsCastByNameBothWays()
    {
        QWidget* pView = pPanel->GetWidget();

        QCOMPARE(qobject_cast<ICorvidWidget*>(pView), pPanel);
        QCOMPARE(pView->qt_metacast("CProcessorTreeView"), static_cast<void*>(pView));
        QVERIFY(pView->inherits("CProcessorTreeView"));
    }

    void theOperationsAreCalledBySlot()
    {
        void** arrSlot = *reinterpret_cast<void***>(pPanel);
        QWidget* pView = pPanel->GetWidget();

        reinterpret_cast<void (*)(ICorvidWidget*)>(arrSlot[2])(pPanel);
        for (int nSlot : { 3, 4, 5 }) {
            QCOMPARE(reinterpret_cast<QWidget* (*)(ICorvidWidget*)>(arrSlot[nSlot])(pPanel), pView);
        }
        QCOMPARE(reinterpret_cast<int (*)(ICorvidWidget*)>(arrSlot[6])(pPanel), 1);
    }

    void thePanelLivesAndEndsByItsInterface()
    {
        const QPointer<QWidget> pView = pPanel->GetWidget();
        pHost->parent.show();
        pControl->Set([](SControlAnswers& answers) { answers.nodeDiscovered = Root({}, { Processor("alpha") }); });
        do {
            pControl->Raise(1);
        } while (!pControl->WaitForCall(QStringLiteral("GetDiscoveredTree"), 1, 250));
        QCoreApplication::processEvents();

        delete pPanel;
        pPanel = nullptr;

        QVERIFY(!pView);
        QCOMPARE(pControl->Attached(), QStringList());
        QCOMPARE(pControl->Commands().last(), QStringLiteral("g_pPrcListControl.ExportList(\"\", 0)"));
    }

private:
    FnInit fnInit = nullptr;
    QScopedPointer<CControlDouble> pControl;
    QScopedPointer<CHost> pHost;
    ICorvidWidget* pPanel = nullptr;
};

PTV_TEST_MAIN(CPluginFileTest)
#include "tst_pluginfile.moc"
