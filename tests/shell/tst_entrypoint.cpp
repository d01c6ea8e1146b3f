#include "CPrcBasicControlStub.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "interfaces/host/IUIManagement.h"
#include "interfaces/host/ProcessorTreeViewInit.h"
#include "shell/CProcessorTreeView.h"

#include <cstring>
#include <stdexcept>

namespace {

class CCountingHost final : public IUIManagement
{
public:
    QWidget* GetParentWidget() override
    {
        ++nAsked;
        return &parent;
    }

    QWidget parent;
    int nAsked = 0;
};

/// A control object to which nothing can be attached.
class CFailingBasicControl final : public CPrcBasicControlStub
{
public:
    void Attach(CObserver*) override
    {
        throw std::runtime_error("no room for an observer");
    }
};

/// The slot of a virtual operation, as the compiler's pointer to it tells.
template <class Fn> int Slot(Fn fnOperation)
{
    std::ptrdiff_t nValue = 0;
    std::memcpy(&nValue, &fnOperation, sizeof nValue);
    return int((nValue - 1) / std::ptrdiff_t(sizeof(void*)));
}

} // namespace

/// How a host gets the panel, reaches it and ends it.
class CEntryPointTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CStoreFixture);
        pHost.reset(new CCountingHost);
    }

    void cleanup()
    {
        pHost.reset();
        pFixture.reset();
    }

    void aNullPlaceForThePanelGivesZeroAndTouchesNothing()
    {
        const int nWidgets = QApplication::allWidgets().size();

        QCOMPARE(CProcessorTreeView_Init(nullptr, pHost.data()), 0);
        QCOMPARE(CProcessorTreeView_Init(nullptr, nullptr), 0);

        QCOMPARE(pHost->nAsked, 0);
        QCOMPARE(QApplication::allWidgets().size(), nWidgets);
        QCOMPARE(pFixture->control.Calls(), QStringList());
    }

    void thePanelIsCreatedInTheWidgetThatTheHostNames()
    {
        ICorvidWidget* pPanel = nullptr;

        QCOMPARE(CProcessorTreeView_Init(&pPanel, pHost.data()), 1);

        QVERIFY(pPanel);
        QCOMPARE(pHost->nAsked, 1);
        QCOMPARE(pPanel->GetWidget()->parentWidget(), &pHost->parent);
        QVERIFY(!pPanel->GetWidget()->isWindow());
        delete pPanel;
    }

    void twoPanelsCanLiveSideBySide()
    {
        ICorvidWidget* pFirst = CreatePanel();
        ICorvidWidget* pSecond = CreatePanel();

        QVERIFY(pFirst != pSecond);
        QCOMPARE(pFixture->control.Attached().size(), 14);

        delete pFirst;
        QCOMPARE(pFixture->control.Attached().size(), 7);
        delete pSecond;
        QCOMPARE(pFixture->control.Attached().size(), 0);
    }

    void twoPanelsMayReadTheLibraryAtTheSameTime()
    {
        const QScopedPointer<ICorvidWidget> pFirst(CreatePanel());
        const QScopedPointer<ICorvidWidget> pSecond(CreatePanel());
        CControlDouble& control = pFixture->control;
        control.ClearJournal();
        control.Hold("GetDiscoveredTree");
        control.Raise(1);
        QVERIFY(control.WaitForCall("GetDiscoveredTree", 2));
        control.Release("GetDiscoveredTree");
        QVERIFY(control.WaitForCall("IsChiefMode", 2));
    }

    void allThreeFormsOfGetWidgetAnswerTheView()
    {
        const QScopedPointer<ICorvidWidget> pPanel(CreatePanel());
        QWidget* pView = dynamic_cast<CProcessorTreeView*>(pPanel.data());

        QCOMPARE(pPanel->GetWidget(), pView);
        QCOMPARE(pPanel->GetWidgetAlias1(), pView);
        QCOMPARE(pPanel->GetWidgetAlias2(), pView);
    }

    void theDefaultFlagIsOne()
    {
        const QScopedPointer<ICorvidWidget> pPanel(CreatePanel());

        QCOMPARE(pPanel->GetDefaultFlag(), 1);
    }

    void theInterfaceIsReachedByItsName()
    {
        const QScopedPointer<ICorvidWidget> pPanel(CreatePanel());
        QWidget* pView = pPanel->GetWidget();

        QCOMPARE(qobject_cast<ICorvidWidget*>(pView), pPanel.data());
        QCOMPARE(static_cast<ICorvidWidget*>(pView->qt_metacast("ICorvidWidget")), pPanel.data());
    }

    void theViewIsReachedByItsClassName()
    {
        const QScopedPointer<ICorvidWidget> pPanel(CreatePanel());
        QWidget* pView = pPanel->GetWidget();

        QCOMPARE(pView->qt_metacast("CProcessorTreeView"), static_cast<void*>(pView));
        QCOMPARE(pView->qt_metacast("QWidget"), static_cast<void*>(pView));
        QCOMPARE(QByteArray(pView->metaObject()->className()), QByteArray("CProcessorTreeView"));
    }

    void anUnknownNameReachesNothing()
    {
        const QScopedPointer<ICorvidWidget> pPanel(CreatePanel());

        QCOMPARE(pPanel->GetWidget()->qt_metacast("ICorvid"), nullptr);
        QCOMPARE(pPanel->GetWidget()->qt_metacast(nullptr), nullptr);
    }

    void theViewIsAWidgetFirstAndTheInterfaceSecond()
    {
        const QScopedPointer<ICorvidWidget> pPanel(CreatePanel());
        auto* pView = static_cast<CProcessorTreeView*>(pPanel.data());

        QCOMPARE(static_cast<void*>(static_cast<QWidget*>(pView)), static_cast<void*>(pView));
        QCOMPARE(reinterpret_cast<char*>(pPanel.data()), reinterpret_cast<char*>(pView) + sizeof(QWidget));
    }

    void theInterfaceHasItsOperationsInTheAgreedSlots()
    {
        // The slots 0 and 1 are the two forms of the destructor.
        QCOMPARE(Slot(&ICorvidWidget::UpdateWidget), 2);
        QCOMPARE(Slot(&ICorvidWidget::GetWidget), 3);
        QCOMPARE(Slot(&ICorvidWidget::GetWidgetAlias1), 4);
        QCOMPARE(Slot(&ICorvidWidget::GetWidgetAlias2), 5);
        QCOMPARE(Slot(&ICorvidWidget::GetDefaultFlag), 6);
    }

    void theViewHasItsOwnOperationsInTheAgreedSlots()
    {
        const int nFirst = Slot(&CProcessorTreeView::GetWidgetAlias1);

        QVERIFY(nFirst > Slot(&QWidget::setVisible));
        QCOMPARE(Slot(&CProcessorTreeView::GetWidgetAlias2), nFirst + 1);
        QCOMPARE(Slot(&CProcessorTreeView::UpdateWidget), nFirst + 2);
        QCOMPARE(Slot(&CProcessorTreeView::GetWidget), nFirst + 3);
    }

    void aHostThatKnowsOnlyTheSlotsCanCallThem()
    {
        const QScopedPointer<ICorvidWidget> pPanel(CreatePanel());
        void** arrSlot = *reinterpret_cast<void***>(pPanel.data());
        const auto getWidget
            = [&](int nSlot) { return reinterpret_cast<QWidget* (*)(ICorvidWidget*)>(arrSlot[nSlot])(pPanel.data()); };
        QWidget* pView = pPanel->GetWidget();

        reinterpret_cast<void (*)(ICorvidWidget*)>(arrSlot[2])(pPanel.data());
        QCOMPARE(getWidget(3), pView);
        QCOMPARE(getWidget(4), pView);
        QCOMPARE(getWidget(5), pView);
        QCOMPARE(reinterpret_cast<int (*)(ICorvidWidget*)>(arrSlot[6])(pPanel.data()), 1);
    }

    void deletingTheInterfaceEndsTheWidgetWithItsChildren()
    {
        const int nWidgets = QApplication::allWidgets().size();
        ICorvidWidget* pPanel = CreatePanel();
        const QPointer<QWidget> pView = pPanel->GetWidget();
        QVERIFY(QApplication::allWidgets().size() > nWidgets);

        delete pPanel;

        QVERIFY(!pView);
        QCOMPARE(QApplication::allWidgets().size(), nWidgets);
        QVERIFY(pHost->parent.children().isEmpty());
    }

    void whatTheHostThrowsPassesThrough()
    {
        class CThrowingHost final : public IUIManagement
        {
        public:
            QWidget* GetParentWidget() override
            {
                throw std::runtime_error("no parent");
            }
        } host;
        ICorvidWidget* pPanel = nullptr;

        QVERIFY_EXCEPTION_THROWN(CProcessorTreeView_Init(&pPanel, &host), std::runtime_error);

        QVERIFY(!pPanel);
    }

    void whatTheConstructionThrowsPassesThroughAndLeavesNothing()
    {
        const int nWidgets = QApplication::allWidgets().size();
        const CFailingBasicControl failing;
        ICorvidWidget* pPanel = nullptr;

        QVERIFY_EXCEPTION_THROWN(CProcessorTreeView_Init(&pPanel, pHost.data()), std::runtime_error);

        QVERIFY(!pPanel);
        QCOMPARE(QApplication::allWidgets().size(), nWidgets);
        QCOMPARE(pFixture->control.CallCount(QStringLiteral("ExportList")), 0);
    }

private:
    ICorvidWidget* CreatePanel()
    {
        ICorvidWidget* pPanel = nullptr;
        CProcessorTreeView_Init(&pPanel, pHost.data());
        return pPanel;
    }

    QScopedPointer<CStoreFixture> pFixture;
    QScopedPointer<CCountingHost> pHost;
};

PTV_TEST_MAIN(CEntryPointTest)
#include "tst_entrypoint.moc"
