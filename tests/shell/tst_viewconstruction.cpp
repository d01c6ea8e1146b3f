#include "CMapTranslator.h"
#include "IconColour.h"
#include "TestMain.h"
#include "double/SCall.h"
#include "fixtures/CPanelFixture.h"
#include "interfaces/widgets/CSearchBox.h"
#include "interfaces/widgets/CSeperator.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QButtonGroup>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStackedLayout>
#include <QThread>
#include <QToolButton>

namespace {

/// Writes down in which order objects become children of anything.
class CBirthRegister : public QObject
{
public:
    CBirthRegister()
    {
        qApp->installEventFilter(this);
    }

    /// The place of pObject's first appearance; -1 when it was never seen.
    int PlaceOf(const QObject* pObject) const
    {
        return listBorn.indexOf(pObject);
    }

    /// The parent that pObject was born to.
    const QObject* ParentOf(const QObject* pObject) const
    {
        return listParent.value(PlaceOf(pObject));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ChildAdded) {
            const QObject* pChild = static_cast<QChildEvent*>(event)->child();
            if (!listBorn.contains(pChild)) {
                listBorn.append(pChild);
                listParent.append(watched);
            }
        }
        return false;
    }

private:
    QList<const QObject*> listBorn;
    QList<const QObject*> listParent; ///< the first parent of each
};

QString Margins(const QLayout* pLayout)
{
    const QMargins margins = pLayout->contentsMargins();
    return QStringLiteral("%1 %2 %3 %4").arg(margins.left()).arg(margins.top()).arg(margins.right()).arg(margins.bottom());
}

QColor CentreColour(const QIcon& icon)
{
    const QImage image = icon.pixmap(24, 24).toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

} // namespace

/// What the panel looks like when the host has just got it.
class CViewConstructionTest : public QObject
{
    Q_OBJECT

private slots:
    void theStyleSheetPaintsThePanelItself()
    {
        CPanelFixture panel;
        panel.View()->setStyleSheet(QStringLiteral("#ProcessorTreeView { border-right: 1px solid #123456 }"));
        const QImage image = panel.View()->grab().toImage();
        QCOMPARE(image.pixelColor(image.width() - 1, image.height() / 2), QColor("#123456")); // right of the trees
    }

    void theStyleSheetFindsItsHooks_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("className");
        QTest::addColumn<int>("count");
        QTest::newRow("header") << "Header"
                                << "QLabel" << 1;
        QTest::newRow("tabs") << "Tab"
                              << "QPushButton" << 2;
        QTest::newRow("refresh") << "IconButtonTitle"
                                 << "QToolButton" << 1;
        QTest::newRow("close search") << "CloseSearchBox"
                                      << "QToolButton" << 1;
        QTest::newRow("trees") << "ProcessorTree"
                               << "CProcessorTree" << 2;
        QTest::newRow("tool bar") << "ProcessorTreeToolBar"
                                  << "CProcessorTreeToolBar" << 1;
    }

    void theStyleSheetFindsItsHooks()
    {
        QFETCH(QString, name);
        QFETCH(QString, className);
        CPanelFixture panel;

        const auto listWidget = panel.View()->findChildren<QWidget*>(name);

        QCOMPARE(panel.View()->objectName(), QStringLiteral("ProcessorTreeView"));
        QTEST(listWidget.size(), "count");
        for (const QWidget* pWidget : listWidget) {
            QCOMPARE(QString::fromLatin1(pWidget->metaObject()->className()), className);
        }
    }

    void theStyleSheetOfTheHostIsCopied()
    {
        const CStoreFixture fixture;
        QWidget host;
        host.setStyleSheet(QStringLiteral("QPushButton { color: #112233 }"));

        const QScopedPointer<CProcessorTreeView> pView(new CProcessorTreeView(&host));
        host.setStyleSheet(QString());

        QCOMPARE(pView->styleSheet(), QStringLiteral("QPushButton { color: #112233 }"));
        QCOMPARE(pView->findChild<CProcessorTreeToolBar*>()->styleSheet(), pView->styleSheet());
    }

    void theStyleSheetPaintsTheView()
    {
        CPanelFixture panel;
        panel.View()->setStyleSheet(QStringLiteral("#ProcessorTreeView { background: #FF00FF }"));

        const QImage image = panel.View()->grab().toImage();

        // The column that the outer layout leaves free at the right.
        QCOMPARE(image.pixelColor(image.width() - 1, 100), QColor(0xFF, 0x00, 0xFF));
    }

    void theViewTakesTheFocusByAClick()
    {
        CPanelFixture panel;

        QCOMPARE(panel.View()->focusPolicy(), Qt::ClickFocus);
    }

    void membersAreCreatedInOrder()
    {
        CBirthRegister births;
        CPanelFixture panel;
        const QList<const QObject*> listMember = {
            panel.DiscoveredTab(),
            panel.SimulatorTab(),
            panel.View()->findChild<QLabel*>(QStringLiteral("Header")),
            panel.RefreshButton(),
            panel.Tree(false),
            panel.Tree(true),
            panel.ToolBar(),
            panel.SearchBox(),
            panel.CloseSearchButton(),
            panel.View()->findChild<QButtonGroup*>(),
            panel.View()->findChild<CSeperator*>(),
            panel.View()->findChild<QThread*>(),
        };

        int nBefore = -1;
        for (const QObject* pMember : listMember) {
            QVERIFY2(births.PlaceOf(pMember) > nBefore, pMember->metaObject()->className());
            QCOMPARE(births.ParentOf(pMember), static_cast<const QObject*>(panel.View()));
            nBefore = births.PlaceOf(pMember);
        }
    }

    void theTabsAreAnExclusivePairWithDiscoveredChecked()
    {
        CPanelFixture panel;

        QVERIFY(panel.DiscoveredTab()->isCheckable());
        QVERIFY(panel.SimulatorTab()->isCheckable());
        QVERIFY(panel.DiscoveredTab()->isChecked());
        QVERIFY(!panel.SimulatorTab()->isChecked());
        QVERIFY(panel.DiscoveredTab()->group());
        QCOMPARE(panel.DiscoveredTab()->group(), panel.SimulatorTab()->group());
        QVERIFY(panel.DiscoveredTab()->group()->exclusive());
        QCOMPARE(panel.DiscoveredTab()->group()->parent(), panel.View());
    }

    void theTabsKnowTheirGroupUnderNoNumber()
    {
        CPanelFixture panel;
        const QButtonGroup* pGroup = panel.DiscoveredTab()->group();

        // -1 lets the group number its buttons itself, downwards from -2.
        QCOMPARE(pGroup->id(panel.DiscoveredTab()), -2);
        QCOMPARE(pGroup->id(panel.SimulatorTab()), -3);
    }

    void sizesAreFixed_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("minimumWidth");
        QTest::addColumn<int>("maximumWidth");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("iconSize");
        QTest::newRow("tabs") << "Tab" << 0 << QWIDGETSIZE_MAX << 32 << -1;
        QTest::newRow("refresh") << "IconButtonTitle" << 32 << 32 << 32 << 24;
        QTest::newRow("close search") << "CloseSearchBox" << 32 << 32 << 32 << 20;
    }

    void sizesAreFixed()
    {
        QFETCH(QString, name);
        QFETCH(int, height);
        QFETCH(int, iconSize);
        CPanelFixture panel;

        const auto listButton = panel.View()->findChildren<QAbstractButton*>(name);

        QVERIFY(!listButton.isEmpty());
        for (const QAbstractButton* pButton : listButton) {
            QTEST(pButton->minimumWidth(), "minimumWidth");
            QTEST(pButton->maximumWidth(), "maximumWidth");
            QCOMPARE(pButton->minimumHeight(), height);
            QCOMPARE(pButton->maximumHeight(), height);
            if (iconSize >= 0) {
                QCOMPARE(pButton->iconSize(), QSize(iconSize, iconSize));
            }
        }
    }

    void iconButtonsShowTheirIcons()
    {
        CPanelFixture panel;

        QCOMPARE(CentreColour(panel.RefreshButton()->icon()), IconColour(QStringLiteral(":/image/control/refresh/refresh.svg")));
        QCOMPARE(CentreColour(panel.CloseSearchButton()->icon()), IconColour(QStringLiteral(":/image/control/close/close.svg")));
    }

    void theRowsStandUnderOneAnother()
    {
        CPanelFixture panel;
        const QLayout* pLayout = panel.View()->layout();
        QCOMPARE(pLayout->count(), 6);

        QCOMPARE(pLayout->itemAt(0)->widget(), panel.View()->findChild<QLabel*>(QStringLiteral("Header")));
        QCOMPARE(pLayout->itemAt(1)->spacerItem()->sizeHint(), QSize(0, 2));
        QCOMPARE(pLayout->itemAt(2)->layout(), panel.Stack());
        QCOMPARE(pLayout->itemAt(3)->layout()->itemAt(0)->widget(), panel.SearchBox());
        QCOMPARE(pLayout->itemAt(3)->layout()->itemAt(1)->widget(), panel.CloseSearchButton());
        QCOMPARE(pLayout->itemAt(4)->widget(), panel.View()->findChild<CSeperator*>());
        QCOMPARE(pLayout->itemAt(5)->widget(), panel.ToolBar());
    }

    void theOuterLayoutLeavesOnePixelAtTheRight()
    {
        CPanelFixture panel;
        const auto* pLayout = qobject_cast<QVBoxLayout*>(panel.View()->layout());
        QVERIFY(pLayout);

        QCOMPARE(Margins(pLayout), QStringLiteral("0 0 1 0"));
        QCOMPARE(pLayout->spacing(), 0);
        QCOMPARE(pLayout->stretch(2), 1);
        QCOMPARE(pLayout->stretch(3), 0);
        QCOMPARE(Margins(panel.Stack()), QStringLiteral("0 0 0 0"));
        QCOMPARE(Margins(pLayout->itemAt(3)->layout()), QStringLiteral("8 0 8 0"));
        QCOMPARE(pLayout->itemAt(3)->layout()->spacing(), 4);
    }

    void theHeaderHoldsTabsStretchAndRefresh()
    {
        CPanelFixture panel;
        const auto* pLayout = qobject_cast<QHBoxLayout*>(panel.DiscoveredTab()->parentWidget()->layout());
        QVERIFY(pLayout);

        QCOMPARE(pLayout->parentWidget()->objectName(), QStringLiteral("Header"));
        QCOMPARE(Margins(pLayout), QStringLiteral("0 0 0 0"));
        QCOMPARE(pLayout->spacing(), 0);
        QCOMPARE(pLayout->count(), 4);
        QCOMPARE(pLayout->itemAt(0)->widget(), panel.DiscoveredTab());
        QCOMPARE(pLayout->itemAt(1)->widget(), panel.SimulatorTab());
        QCOMPARE(pLayout->itemAt(0)->alignment(), Qt::AlignBottom);
        QCOMPARE(pLayout->itemAt(1)->alignment(), Qt::AlignBottom);
        QVERIFY(pLayout->itemAt(2)->spacerItem());
        QCOMPARE(pLayout->stretch(2), 0);
        QCOMPARE(pLayout->itemAt(3)->widget(), panel.RefreshButton());
    }

    void theTreesLieOverOneAnotherBothShown()
    {
        CPanelFixture panel;

        QCOMPARE(panel.Stack()->stackingMode(), QStackedLayout::StackAll);
        QCOMPARE(panel.Stack()->count(), 2);
        QCOMPARE(panel.Stack()->currentIndex(), 0);
        QVERIFY(panel.Tree(false)->isVisible());
        QVERIFY(panel.Tree(true)->isVisible());
        QCOMPARE(panel.Tree(false)->geometry(), panel.Tree(true)->geometry());
        QCOMPARE(panel.View()->childAt(panel.Tree(false)->geometry().center()), panel.Tree(false)->viewport());
    }

    void theSearchRowIsHidden()
    {
        CPanelFixture panel;

        QVERIFY(panel.SearchBox()->isHidden());
        QVERIFY(panel.CloseSearchButton()->isHidden());
    }

    void theSearchBoxIsGrayAndWithoutBorder()
    {
        CPanelFixture panel;

        QCOMPARE(panel.SearchBox()->property("Background").toString(), QStringLiteral("gray"));
        QCOMPARE(panel.SearchBox()->property("Border"), QVariant(false));
    }

    void theTextsAreEnglishWithoutATranslation()
    {
        CPanelFixture panel;

        QCOMPARE(panel.DiscoveredTab()->text(), QStringLiteral("Discovered"));
        QCOMPARE(panel.SimulatorTab()->text(), QStringLiteral("Simulator"));
        QCOMPARE(panel.RefreshButton()->toolTip(), QStringLiteral("Refresh"));
        QCOMPARE(panel.CloseSearchButton()->toolTip(), QStringLiteral("Close search box"));
    }

    void aNewLanguageRetextsTabsAndTips()
    {
        CPanelFixture panel;

        const CMapTranslator german({ { "CProcessorTreeView|Discovered", "Gefunden" },
                                      { "CProcessorTreeView|Simulator", "Simulation" },
                                      { "CProcessorTreeView|Refresh", "Erneuern" },
                                      { "CProcessorTreeView|Close search box", "Suche zu" } });

        QTRY_COMPARE(panel.DiscoveredTab()->text(), QStringLiteral("Gefunden"));
        QCOMPARE(panel.SimulatorTab()->text(), QStringLiteral("Simulation"));
        QCOMPARE(panel.RefreshButton()->toolTip(), QStringLiteral("Erneuern"));
        QCOMPARE(panel.CloseSearchButton()->toolTip(), QStringLiteral("Suche zu"));
    }

    void aNewLanguageLeavesTheWindowTitleAlone()
    {
        CPanelFixture panel;
        panel.host.setWindowTitle(QStringLiteral("as it was"));

        const CMapTranslator german({ { "CProcessorTreeView|Discovered", "Gefunden" } });

        QTRY_COMPARE(panel.DiscoveredTab()->text(), QStringLiteral("Gefunden"));
        QCOMPARE(panel.host.windowTitle(), QStringLiteral("as it was"));
    }

    void theWorkerIsSubscribedToSevenObjectsInOrder()
    {
        CPanelFixture panel;

        QCOMPARE(panel.control.Attached(),
                 QStringList({ "g_pPrcBasicControl", "g_pPrcListControl", "g_pRuntimeControl", "g_pPrcRuntimeControl",
                               "g_pProjectManageControl", "g_pProtocalControl", "g_pPreferenceControl" }));
        const auto listCall = panel.control.Journal();
        for (const SCall& call : listCall) {
            QVERIFY(call.kind != CallSubscription || call.strThread == QStringLiteral("gui"));
        }
    }

    void theWorkerRunsOnAThreadOfTheView()
    {
        CPanelFixture panel;
        const auto* pThread = panel.View()->findChild<QThread*>();
        QVERIFY(pThread);

        QCOMPARE(pThread->parent(), panel.View());
        QVERIFY(pThread->isRunning());
        QCOMPARE(pThread->priority(), QThread::InheritPriority);
    }

    void nothingIsReadAtTheStart()
    {
        CPanelFixture panel([](SControlAnswers& answers) { answers.nodeDiscovered = Root({ Group("Stage") }); });

        QCOMPARE(panel.control.CallCount(QStringLiteral("GetDiscoveredTree")), 0);
        QCOMPARE(panel.control.CallCount(QStringLiteral("GetSimulatorTree")), 0);
        QCOMPARE(panel.control.Commands(), QStringList());
        QCOMPARE(panel.Tree()->model()->rowCount(panel.Tree()->model()->index(0, 0)), 0);
    }

    void theFirstMessageFillsThePanel()
    {
        CPanelFixture panel([](SControlAnswers& answers) { answers.nodeDiscovered = Root({ Group("Stage") }); });

        panel.Refresh();

        QCOMPARE(panel.Tree()->model()->rowCount(panel.Tree()->model()->index(0, 0)), 1);
    }

    void theMetaObjectOffersTheHostItsSignalsAndSlots_data()
    {
        QTest::addColumn<QByteArray>("signature");
        QTest::addColumn<int>("type");
        QTest::newRow("selection moved") << QByteArray("NodeSelectChanged()") << int(QMetaMethod::Signal);
        QTest::newRow("refresh done") << QByteArray("RefreshEnable()") << int(QMetaMethod::Signal);
        QTest::newRow("import done") << QByteArray("ImportFinished()") << int(QMetaMethod::Signal);
        QTest::newRow("repaint") << QByteArray("Update()") << int(QMetaMethod::Slot);
        QTest::newRow("tool bar") << QByteArray("UpdateTreeToolbar()") << int(QMetaMethod::Slot);
        QTest::newRow("menu bar") << QByteArray("DealMenuBar(int,QVariant)") << int(QMetaMethod::Slot);
    }

    void theMetaObjectOffersTheHostItsSignalsAndSlots()
    {
        QFETCH(QByteArray, signature);
        const int nMethod = CProcessorTreeView::staticMetaObject.indexOfMethod(signature.constData());

        QVERIFY(nMethod >= CProcessorTreeView::staticMetaObject.methodOffset());
        const QMetaMethod method = CProcessorTreeView::staticMetaObject.method(nMethod);
        QTEST(int(method.methodType()), "type");
        QCOMPARE(method.access(), QMetaMethod::Public);
    }
};

PTV_TEST_MAIN(CViewConstructionTest)
#include "tst_viewconstruction.moc"
