#include "CDialogDriver.h"
#include "TestMain.h"
#include "interfaces/widgets/CBaseDialog.h"
#include "interfaces/widgets/CIconButton.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int nFixedWidth = 247;
constexpr int nMargin = 16;

/// A dialog with one line to fill in.
class CNameDialog : public CBaseDialog
{
    Q_OBJECT

public:
    explicit CNameDialog(QWidget* parent, EnButton buttons = ButtonsOkCancel)
        : CBaseDialog(parent, QStringLiteral("Name"), false, buttons), pName(new QLineEdit(this))
    {
        GetContentLayout()->setContentsMargins(nMargin, nMargin, nMargin, nMargin);
        GetContentLayout()->addWidget(pName);
    }

    using CBaseDialog::GetContentLayout;
    using CBaseDialog::mapButton;

    QLineEdit* pName;
};

} // namespace

class CDialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pParent = std::make_unique<QWidget>();
        pParent->setGeometry(100, 100, 400, 300);
        pParent->show();
        QVERIFY(QTest::qWaitForWindowActive(pParent.get()));
    }

    void cleanup()
    {
        pParent.reset();
    }

    void dialogAnswers_data()
    {
        QTest::addColumn<QString>("strHow");
        QTest::addColumn<int>("nResult");
        QTest::newRow("return") << "key Return" << int(QDialog::Accepted);
        QTest::newRow("enter") << "key Enter" << int(QDialog::Accepted);
        QTest::newRow("escape") << "key Escape" << int(QDialog::Rejected);
        QTest::newRow("mnemonic of OK") << "key Alt+O" << int(QDialog::Accepted);
        QTest::newRow("mnemonic of Cancel") << "key Alt+C" << int(QDialog::Rejected);
        QTest::newRow("click on OK") << "DialogAccept" << int(QDialog::Accepted);
        QTest::newRow("click on Cancel") << "DialogReject" << int(QDialog::Rejected);
        QTest::newRow("cross") << "DialogClose" << int(QDialog::Rejected);
        QTest::newRow("closed by the window manager") << "window closed" << int(QDialog::Rejected);
        QTest::newRow("tab to OK") << "tab space" << int(QDialog::Accepted);
    }

    void dialogAnswers()
    {
        QFETCH(QString, strHow);
        QFETCH(int, nResult);
        CNameDialog dialog(pParent.get());
        CDialogDriver driver;
        driver.Answer(strHow);
        QCOMPARE(dialog.exec(), nResult);
        QVERIFY(!dialog.isVisible());
    }

    void disabledAcceptButtonStopsReturn()
    {
        CNameDialog dialog(pParent.get());
        dialog.mapButton[CBaseDialog::KeyAccept]->setEnabled(false);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(dialog.pName, Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        dialog.mapButton[CBaseDialog::KeyAccept]->setEnabled(true);
        QTest::keyClick(dialog.pName, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    }

    void buttonsStandInTheTableByTheirKeys_data()
    {
        QTest::addColumn<CBaseDialog::EnButton>("buttons");
        QTest::addColumn<QList<int>>("listKey");
        QTest::newRow("none") << CBaseDialog::ButtonsNone << QList<int>();
        QTest::newRow("ok and cancel") << CBaseDialog::ButtonsOkCancel << QList<int>{ 1, 2 };
        QTest::newRow("ok") << CBaseDialog::ButtonsOk << QList<int>{ 1 };
    }

    void buttonsStandInTheTableByTheirKeys()
    {
        QFETCH(CBaseDialog::EnButton, buttons);
        QFETCH(QList<int>, listKey);
        CNameDialog dialog(pParent.get(), buttons);
        QCOMPARE(dialog.mapButton.keys(), listKey);
        if (!listKey.isEmpty()) {
            QVERIFY(dialog.mapButton[CBaseDialog::KeyAccept]->isDefault());
        }
    }

    void firstFieldHasTheFocusAndTabGoesDownToTheButtons()
    {
        CNameDialog dialog(pParent.get());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(dialog.pName->hasFocus());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QVERIFY(dialog.mapButton[CBaseDialog::KeyAccept]->hasFocus());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QVERIFY(dialog.mapButton[CBaseDialog::KeyReject]->hasFocus());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QVERIFY(dialog.pName->hasFocus());
    }

    void titleStandsInTheBarAndInTheWindow()
    {
        CNameDialog dialog(pParent.get());
        const auto* pTitle = dialog.findChild<QLabel*>(QStringLiteral("DialogTitle"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Name"));
        QCOMPARE(pTitle->text(), QStringLiteral("Name"));
        dialog.setWindowTitle(QStringLiteral("Other"));
        QCOMPARE(pTitle->text(), QStringLiteral("Other"));
        QCOMPARE(dialog.findChild<CIconButton*>(QStringLiteral("DialogClose"))->accessibleName(), QStringLiteral("Close"));
    }

    void titleBarDragsTheWindow()
    {
        CNameDialog dialog(pParent.get());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QWindow* pWindow = dialog.windowHandle();
        const QPoint ptBefore = dialog.pos();
        QTest::mousePress(pWindow, Qt::LeftButton, Qt::NoModifier, QPoint(60, 10));
        QTest::mouseMove(pWindow, QPoint(90, 50));
        QTRY_COMPARE(dialog.pos(), ptBefore + QPoint(30, 40));
        QTest::mouseRelease(pWindow, Qt::LeftButton, Qt::NoModifier, QPoint(60, 10));
        QTest::mouseMove(pWindow, QPoint(10, 10));
        QCOMPARE(dialog.pos(), ptBefore + QPoint(30, 40));
    }

    void otherButtonsDoNotDrag()
    {
        CNameDialog dialog(pParent.get());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        const QPoint ptBefore = dialog.pos();
        auto* pBar = dialog.findChild<QWidget*>(QStringLiteral("DialogTitleBar"));
        QTest::mousePress(pBar, Qt::RightButton, Qt::NoModifier, QPoint(60, 10));
        QMouseEvent event(QEvent::MouseMove, QPoint(90, 50), pBar->mapToGlobal(QPoint(90, 50)), Qt::NoButton, Qt::RightButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(pBar, &event);
        QCOMPARE(dialog.pos(), ptBefore);
    }

    void fixedSizeIsThatOfTheContents()
    {
        CNameDialog dialog(pParent.get());
        dialog.SetCanResize(false);
        dialog.show();
        QCOMPARE(dialog.minimumSize(), dialog.maximumSize());
        QCOMPARE(dialog.size(), dialog.layout()->totalSizeHint());
        const int nHeight = dialog.height();
        dialog.pName->setFixedHeight(dialog.pName->height() + 20);
        QTRY_COMPARE(dialog.height(), nHeight + 20);
    }

    void fixedWidthStaysAndHeightFollowsTheContents()
    {
        CNameDialog dialog(pParent.get());
        dialog.setFixedWidth(nFixedWidth);
        dialog.SetCanResize(false);
        auto* pText = new QLabel(QStringLiteral("one two three four five six seven eight nine ten eleven twelve"), &dialog);
        pText->setWordWrap(true);
        dialog.GetContentLayout()->addWidget(pText);
        dialog.show();
        QCOMPARE(dialog.width(), nFixedWidth);
        QCOMPARE(dialog.height(), dialog.layout()->totalHeightForWidth(nFixedWidth));
        QCOMPARE(dialog.minimumHeight(), dialog.maximumHeight());
        QVERIFY(pText->height() > pText->fontMetrics().lineSpacing());
    }

    void resizableDialogKeepsTheUsersSize()
    {
        CNameDialog dialog(pParent.get());
        dialog.SetCanResize(true);
        dialog.resize(500, 400);
        dialog.show();
        QCOMPARE(dialog.size(), QSize(500, 400));
        QVERIFY(dialog.isSizeGripEnabled());
    }

    void maskLiesOverTheParentsWindowWhileOpen()
    {
        QWidget child(pParent.get());
        CNameDialog dialog(&child);
        dialog.SetTransparentMask();
        QVERIFY(!pParent->findChild<QWidget*>(QStringLiteral("DialogMask")));
        dialog.show();
        const auto* pMask = pParent->findChild<QWidget*>(QStringLiteral("DialogMask"));
        QVERIFY(pMask);
        QVERIFY(pMask->isVisible());
        QCOMPARE(pMask->geometry(), pParent->rect());
        dialog.reject();
        QVERIFY(!pParent->findChild<QWidget*>(QStringLiteral("DialogMask")));
    }

    void maskFollowsTheWindowsSize()
    {
        CNameDialog dialog(pParent.get());
        dialog.SetTransparentMask();
        dialog.show();
        pParent->resize(640, 480);
        QTRY_COMPARE(pParent->findChild<QWidget*>(QStringLiteral("DialogMask"))->geometry(), QRect(0, 0, 640, 480));
    }

    void stayOnTopIsAWindowFlag()
    {
        CBaseDialog plain(pParent.get(), QString(), false, CBaseDialog::ButtonsOk);
        CBaseDialog top(pParent.get(), QString(), true, CBaseDialog::ButtonsOk);
        QVERIFY(!(plain.windowFlags() & Qt::WindowStaysOnTopHint));
        QVERIFY(top.windowFlags() & Qt::WindowStaysOnTopHint);
    }

    void dialogIsModalAndFadesInReadyToUse()
    {
        CNameDialog dialog(pParent.get());
        dialog.SetTransitionAnimate();
        dialog.show();
        QVERIFY(dialog.isModal());
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClicks(dialog.pName, QStringLiteral("abc"));
        QCOMPARE(dialog.pName->text(), QStringLiteral("abc"));
        QTRY_COMPARE(dialog.windowOpacity(), 1.0);
    }

private:
    std::unique_ptr<QWidget> pParent;
};

PTV_TEST_MAIN(CDialogsTest)
#include "tst_dialogs.moc"
