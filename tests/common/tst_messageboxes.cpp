#include "CDialogDriver.h"
#include "TestMain.h"
#include "interfaces/widgets/CCommonOptionDlg.h"
#include "interfaces/widgets/CMessageBox.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>

namespace {

/// Opens the table of buttons.
class COptionDialog : public CCommonOptionDlg
{
    Q_OBJECT

public:
    using CCommonOptionDlg::CCommonOptionDlg;
    using CCommonOptionDlg::mapButton;
};

} // namespace

/// CMessageBox and CCommonOptionDlg, answered as a user would.
class CMessageBoxesTest : public QObject
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

    void messageBoxAnswers_data()
    {
        QTest::addColumn<int>("nButtons");
        QTest::addColumn<int>("nDefault");
        QTest::addColumn<QString>("strHow");
        QTest::addColumn<int>("nAnswer");
        QTest::newRow("return takes the default no") << 6 << 4 << "key Return" << 4;
        QTest::newRow("return takes the default yes") << 6 << 2 << "key Return" << 2;
        QTest::newRow("click on yes") << 6 << 4 << "ButtonYes" << 2;
        QTest::newRow("click on no") << 6 << 2 << "ButtonNo" << 4;
        QTest::newRow("mnemonic of yes") << 6 << 4 << "key Alt+Y" << 2;
        QTest::newRow("mnemonic of no") << 6 << 2 << "key Alt+N" << 4;
        QTest::newRow("tab from yes to no") << 6 << 2 << "tab space" << 4;
        QTest::newRow("tab from no to yes") << 6 << 4 << "tab space" << 2;
        QTest::newRow("escape is no") << 6 << 2 << "key Escape" << 4;
        QTest::newRow("cross is no") << 6 << 2 << "DialogClose" << 4;
        QTest::newRow("closed window is no") << 6 << 2 << "window closed" << 4;
        QTest::newRow("click on ok") << 1 << 1 << "ButtonOk" << 1;
        QTest::newRow("return on ok") << 1 << 1 << "key Return" << 1;
        QTest::newRow("mnemonic of ok") << 1 << 1 << "key Alt+O" << 1;
        QTest::newRow("escape without a no is nothing") << 1 << 1 << "key Escape" << 0;
        QTest::newRow("cross without a no is nothing") << 3 << 1 << "DialogClose" << 0;
        QTest::newRow("no buttons asked for gives an ok") << 0 << 0 << "key Return" << 1;
    }

    void messageBoxAnswers()
    {
        QFETCH(int, nButtons);
        QFETCH(int, nDefault);
        QFETCH(QString, strHow);
        QFETCH(int, nAnswer);
        const auto buttons = CMessageBox::StandardButtons(nButtons);
        const auto defaultButton = CMessageBox::StandardButton(nDefault);
        for (auto* fnAsk : { &CMessageBox::question, &CMessageBox::information }) {
            CDialogDriver driver;
            driver.Answer(strHow);
            QCOMPARE(int(fnAsk(pParent.get(), QStringLiteral("T"), QStringLiteral("Text"), buttons, defaultButton)), nAnswer);
        }
    }

    void defaultButtonIsTheOneAskedFor_data()
    {
        QTest::addColumn<int>("nDefault");
        QTest::addColumn<QString>("strName");
        QTest::newRow("yes") << 2 << "ButtonYes";
        QTest::newRow("no") << 4 << "ButtonNo";
        QTest::newRow("none asked for: the first") << 0 << "ButtonYes";
    }

    void defaultButtonIsTheOneAskedFor()
    {
        QFETCH(int, nDefault);
        QFETCH(QString, strName);
        QString strFocus;
        QString strDefault;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            strFocus = pDialog->focusWidget()->objectName();
            for (const auto* pButton : pDialog->findChildren<QPushButton*>()) {
                strDefault += pButton->isDefault() ? pButton->objectName() : QString();
            }
            pDialog->close();
        });
        CMessageBox::question(pParent.get(), QString(), QStringLiteral("Text"), CMessageBox::ButtonYes | CMessageBox::ButtonNo,
                              CMessageBox::StandardButton(nDefault));
        QCOMPARE(strFocus, strName);
        QCOMPARE(strDefault, strName);
    }

    void boxShowsTitleTextAndIcon()
    {
        QStringList listSeen;
        bool bIcon = false;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            listSeen << pDialog->windowTitle() << pDialog->findChild<QLabel*>(QStringLiteral("MessageText"))->text()
                     << pDialog->accessibleDescription();
            bIcon = !pDialog->findChild<QLabel*>(QStringLiteral("MessageIcon"))->pixmap(Qt::ReturnByValue).isNull();
            pDialog->close();
        });
        CMessageBox::information(pParent.get(), QStringLiteral("Import"), QStringLiteral("Import sucessfully."),
                                 CMessageBox::ButtonOk, CMessageBox::ButtonOk);
        const QString strText = QStringLiteral("Import sucessfully.");
        QCOMPARE(listSeen, QStringList({ QStringLiteral("Import"), strText, strText }));
        QVERIFY(bIcon);
    }

    void boxOffersOnlyWhatWasAskedFor()
    {
        QStringList listText;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            for (const auto* pButton : pDialog->findChildren<QPushButton*>()) {
                listText << pButton->text();
            }
            pDialog->close();
        });
        CMessageBox::question(pParent.get(), QString(), QString(), CMessageBox::ButtonYes | CMessageBox::ButtonNo,
                              CMessageBox::ButtonNo);
        QCOMPARE(listText, QStringList({ QStringLiteral("&Yes"), QStringLiteral("&No") }));
    }

    void markupInATextIsNotFollowed()
    {
        int nHeight = 0;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            nHeight = pDialog->findChild<QLabel*>(QStringLiteral("MessageText"))->heightForWidth(2000);
            pDialog->close();
        });
        CMessageBox::information(pParent.get(), QString(),
                                 QStringLiteral("<h1>big</h1><br><br><br>") + QString(90, QLatin1Char('x')),
                                 CMessageBox::ButtonOk, CMessageBox::ButtonOk);
        QVERIFY(nHeight > 0 && nHeight < 2 * QFontMetrics(QApplication::font()).lineSpacing());
    }

    void longTextsWrap()
    {
        QSize sizeText;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            const auto* pText = pDialog->findChild<QLabel*>(QStringLiteral("MessageText"));
            sizeText = pText->size();
            QVERIFY(pText->height() >= pText->heightForWidth(pText->width()));
            pDialog->close();
        });
        CMessageBox::information(pParent.get(), QString(), QStringLiteral("word ").repeated(60), CMessageBox::ButtonOk,
                                 CMessageBox::ButtonOk);
        QCOMPARE(sizeText.width(), 400);
        QVERIFY(sizeText.height() > 3 * QFontMetrics(QApplication::font()).lineSpacing());
    }

    void theTextStandsBesideItsIconAlsoUnderALongTitle_data()
    {
        QTest::addColumn<QString>("strTitle");
        QTest::newRow("short title") << "Import";
        QTest::newRow("title wider than the text") << QStringLiteral("title ").repeated(12);
    }

    void theTextStandsBesideItsIconAlsoUnderALongTitle()
    {
        QFETCH(QString, strTitle);
        int nGap = 0;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            const auto* pIcon = pDialog->findChild<QLabel*>(QStringLiteral("MessageIcon"));
            const int nIconEnd = pIcon->x() + pIcon->pixmap(Qt::ReturnByValue).width();
            nGap = pDialog->findChild<QLabel*>(QStringLiteral("MessageText"))->x() - nIconEnd;
            pDialog->close();
        });
        CMessageBox::information(pParent.get(), strTitle, QStringLiteral("Invalid."), CMessageBox::ButtonOk,
                                 CMessageBox::ButtonOk);
        QCOMPARE(nGap, 12);
    }

    void boxWhoseParentDiesAgreesToNothing()
    {
        auto* pShortLived = new QWidget;
        pShortLived->show();
        CDialogDriver driver;
        driver.Answer([pShortLived](QDialog*) { delete pShortLived; });
        const CMessageBox::StandardButton answer
            = CMessageBox::question(pShortLived, QString(), QStringLiteral("Sure?"),
                                    CMessageBox::ButtonYes | CMessageBox::ButtonNo, CMessageBox::ButtonYes);
        QVERIFY(answer != CMessageBox::ButtonYes);
    }

    void boxLeavesNothingBehind()
    {
        const int nBefore = QApplication::allWidgets().size();
        CDialogDriver driver;
        driver.Answer("window closed");
        CMessageBox::information(pParent.get(), QString(), QStringLiteral("Text"), CMessageBox::ButtonOk, CMessageBox::ButtonOk);
        QCOMPARE(QApplication::allWidgets().size(), nBefore);
    }

    void optionDialogAnswers_data()
    {
        QTest::addColumn<QString>("strHow");
        QTest::addColumn<int>("nResult");
        QTest::newRow("return cancels") << "key Return" << 0;
        QTest::newRow("space cancels") << "key Space" << 0;
        QTest::newRow("tab goes to the first") << "tab space" << 1;
        QTest::newRow("mnemonic of the second") << "key Alt+G" << 2;
        QTest::newRow("mnemonic of cancel") << "key Alt+C" << 0;
        QTest::newRow("click on the first") << "OptionButton" << 1;
        QTest::newRow("click on cancel") << "DialogReject" << 0;
        QTest::newRow("escape") << "key Escape" << 0;
        QTest::newRow("cross") << "DialogClose" << 0;
        QTest::newRow("closed window") << "window closed" << 0;
    }

    void optionDialogAnswers()
    {
        QFETCH(QString, strHow);
        QFETCH(int, nResult);
        CCommonOptionDlg dialog(pParent.get(), QStringLiteral("Delete"));
        QVERIFY(dialog.AddOption(QIcon(), QStringLiteral("Delete group and processors")));
        QVERIFY(dialog.AddOption(QIcon(), QStringLiteral("Delete &group only")));
        CDialogDriver driver;
        driver.Answer(strHow);
        QCOMPARE(dialog.exec(), nResult);
    }

    void optionWithoutATextIsRefused()
    {
        CCommonOptionDlg dialog(pParent.get(), QStringLiteral("Delete"));
        QVERIFY(!dialog.AddOption(QIcon(), QString()));
        QVERIFY(dialog.findChildren<QPushButton*>(QStringLiteral("OptionButton")).isEmpty());
        QVERIFY(dialog.AddOption(QIcon(), QStringLiteral("only")));
        CDialogDriver driver;
        driver.Answer("OptionButton");
        QCOMPARE(dialog.exec(), 1);
    }

    void keysWalkTheOptionsAndChoose_data()
    {
        QTest::addColumn<QList<Qt::Key>>("listKey");
        QTest::addColumn<int>("nResult");
        QTest::newRow("tab to the first") << QList{ Qt::Key_Tab, Qt::Key_Return } << 1;
        QTest::newRow("tab to the second") << QList{ Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space } << 2;
        QTest::newRow("tab round to cancel") << QList{ Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return } << 0;
        QTest::newRow("back to the last") << QList{ Qt::Key_Backtab, Qt::Key_Return } << 3;
        QTest::newRow("up to the last") << QList{ Qt::Key_Up, Qt::Key_Return } << 3;
        QTest::newRow("up to the second") << QList{ Qt::Key_Up, Qt::Key_Up, Qt::Key_Enter } << 2;
        QTest::newRow("down to the first") << QList{ Qt::Key_Down, Qt::Key_Space } << 1;
        QTest::newRow("down and up again") << QList{ Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return } << 1;
        QTest::newRow("down to cancel") << QList{ Qt::Key_Up, Qt::Key_Down, Qt::Key_Return } << 0;
    }

    void keysWalkTheOptionsAndChoose()
    {
        QFETCH(QList<Qt::Key>, listKey);
        QFETCH(int, nResult);
        CCommonOptionDlg dialog(pParent.get(), QStringLiteral("Delete"));
        for (const char* szText : { "one", "two", "three" }) {
            dialog.AddOption(QIcon(), QLatin1String(szText));
        }
        CDialogDriver driver;
        driver.Answer([listKey](QDialog* pDialog) {
            for (const Qt::Key key : listKey) {
                QTest::keyClick(pDialog->focusWidget(), key);
            }
        });
        QCOMPARE(dialog.exec(), nResult);
    }

    void cancelHasTheFocusEachTimeTheDialogOpens()
    {
        COptionDialog dialog(pParent.get(), QStringLiteral("Delete"));
        dialog.AddOption(QIcon(), QStringLiteral("one"));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QPushButton* pCancel = dialog.mapButton.value(0);
        QTRY_VERIFY(pCancel->hasFocus());
        QVERIFY(pCancel->isDefault());
        CDialogDriver::Press(&dialog, "tab space");
        QCOMPARE(dialog.result(), 1);
        dialog.show();
        QCOMPARE(dialog.focusWidget(), pCancel);
    }

    void cancelStandsBelowTheOptions()
    {
        CCommonOptionDlg dialog(pParent.get(), QStringLiteral("Delete"));
        dialog.AddOption(QIcon(), QStringLiteral("one"));
        dialog.AddOption(QIcon(), QStringLiteral("two"));
        dialog.show();
        QStringList listText;
        int nBottom = 0;
        for (const auto* pButton : dialog.findChildren<QPushButton*>()) {
            listText.append(QStringLiteral("%1 %2").arg(pButton->y(), 3).arg(pButton->text()));
            nBottom = qMax(nBottom, pButton->geometry().bottom());
        }
        listText.sort();
        listText.replaceInStrings(QRegularExpression("^ *\\d+ "), QString());
        QCOMPARE(listText, QStringList({ "one", "two", "&Cancel" }));
        QVERIFY(nBottom < dialog.height());
    }

    void optionsAreReadByTheirTexts()
    {
        CCommonOptionDlg dialog(pParent.get(), QStringLiteral("Delete"));
        dialog.AddOption(QIcon(), QStringLiteral("Delete &group && processors"));
        auto* pButton = dialog.findChild<QPushButton*>(QStringLiteral("OptionButton"));
        QCOMPARE(pButton->accessibleName(), QStringLiteral("Delete group & processors"));
        QCOMPARE(QAccessible::queryAccessibleInterface(pButton)->role(), QAccessible::Button);
    }

private:
    std::unique_ptr<QWidget> pParent;
};

PTV_TEST_MAIN(CMessageBoxesTest)
#include "tst_messageboxes.moc"
