#include "TestMain.h"
#include "interfaces/widgets/CIconButton.h"
#include "interfaces/widgets/CSearchBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

/// Answers each text of the library by the text in brackets.
class CBracketTranslator : public QTranslator
{
public:
    QString translate(const char*, const char* sourceText, const char*, int) const override
    {
        return QStringLiteral("[%1]").arg(QLatin1String(sourceText));
    }
    bool isEmpty() const override
    {
        return false;
    }
};

/// Each test has a box in an active window of its own, with the caret in it.
class CSearchBoxTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pWindow = std::make_unique<QWidget>();
        nEscapes = 0;
        new QHBoxLayout(pWindow.get());
        MakeBox(true);
        pWindow->installEventFilter(this);
        pWindow->show();
        pWindow->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pWindow.get()));
        pBox->setFocus();
        QTRY_VERIFY(Edit()->hasFocus());
    }

    void cleanup()
    {
        pWindow.reset();
    }

    void eachKeyStrokeSearchesOnce()
    {
        QSignalSpy spy(pBox, &CSearchBox::SignalSearch);
        QTest::keyClicks(Edit(), QStringLiteral("ab"));
        QTest::keyClick(Edit(), Qt::Key_Backspace);
        QTest::keyClick(Edit(), Qt::Key_Left);
        const QList<QVariantList> listExpected{ { QStringLiteral("a") }, { QStringLiteral("ab") }, { QStringLiteral("a") } };
        QCOMPARE(QList<QVariantList>(spy), listExpected);
        QCOMPARE(pBox->GetText(), QStringLiteral("a"));
    }

    void whatWasClearedIsForgotten()
    {
        QTest::keyClicks(Edit(), QStringLiteral("ab"));
        QVERIFY(Edit()->isUndoAvailable());
        pBox->ClearText();
        QVERIFY(!Edit()->isUndoAvailable());
    }

    void clearTextSearchesForNothingExactlyOnce_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::newRow("with a text") << "abc";
        QTest::newRow("already empty") << "";
    }

    void clearTextSearchesForNothingExactlyOnce()
    {
        QFETCH(QString, strText);
        QTest::keyClicks(Edit(), strText);
        QSignalSpy spy(pBox, &CSearchBox::SignalSearch);
        pBox->ClearText();
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { QString() } });
        QVERIFY(pBox->GetText().isEmpty());
    }

    void clearButtonEmptiesTheBox()
    {
        QTest::keyClicks(Edit(), QStringLiteral("abc"));
        QSignalSpy spy(pBox, &CSearchBox::SignalSearch);
        QTest::mouseClick(pBox->findChild<CIconButton*>(QStringLiteral("SearchClear")), Qt::LeftButton);
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { QString() } });
        QVERIFY(Edit()->hasFocus());
    }

    void clearButtonIsThereOnlyWithAText()
    {
        const auto* pClear = pBox->findChild<CIconButton*>(QStringLiteral("SearchClear"));
        QVERIFY(!pClear->isVisible());
        QTest::keyClicks(Edit(), QStringLiteral("a"));
        QVERIFY(pClear->isVisible());
        QTest::keyClick(Edit(), Qt::Key_Backspace);
        QVERIFY(!pClear->isVisible());
    }

    void escapeEmptiesTheBox()
    {
        QTest::keyClicks(Edit(), QStringLiteral("abc"));
        QSignalSpy spy(pBox, &CSearchBox::SignalSearch);
        QTest::keyClick(Edit(), Qt::Key_Escape);
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { QString() } });
        QCOMPARE(nEscapes, 0);
    }

    void escapeInAnEmptyBoxIsLeftToTheParent()
    {
        QSignalSpy spy(pBox, &CSearchBox::SignalSearch);
        QTest::keyClick(Edit(), Qt::Key_Escape);
        QCOMPARE(nEscapes, 1);
        QVERIFY(spy.isEmpty());
    }

    void otherKeysReachTheParent()
    {
        QTest::keyClicks(Edit(), QStringLiteral("a"));
        QKeyEvent event(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
        QCoreApplication::sendEvent(Edit(), &event);
        QVERIFY(!event.isAccepted());
        QCOMPARE(pBox->GetText(), QStringLiteral("a"));
    }

    void bordersAndBackgroundAreProperties_data()
    {
        QTest::addColumn<bool>("bBorder");
        QTest::addColumn<bool>("bGray");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("border, plain") << true << false << QColor(10, 20, 30);
        QTest::newRow("border, gray") << true << true << QColor(40, 50, 60);
        QTest::newRow("no border, gray") << false << true << QColor(70, 80, 90);
    }

    void bordersAndBackgroundAreProperties()
    {
        QFETCH(bool, bBorder);
        QFETCH(bool, bGray);
        QFETCH(QColor, colour);
        pWindow->setStyleSheet(QStringLiteral("CSearchBox{background:rgb(10,20,30)}"
                                              "CSearchBox[Background=\"gray\"]{background:rgb(40,50,60)}"
                                              "CSearchBox[Background=\"gray\"][Border=\"false\"]{background:rgb(70,80,90)}"));
        delete pBox;
        MakeBox(bBorder);
        if (bGray) {
            pBox->SetBackgroudGray();
        }
        pBox->resize(200, 24);
        QCOMPARE(pBox->grab().toImage().pixelColor(2, 12), colour);
    }

    void focusGoesToTheTextAndShows()
    {
        QVERIFY(pBox->property("Focus").toBool());
        Edit()->clearFocus();
        QVERIFY(!pBox->property("Focus").toBool());
        pBox->setFocus();
        QVERIFY(Edit()->hasFocus());
    }

    void partsHaveNamesForEyesAndEars()
    {
        QCOMPARE(Edit()->placeholderText(), QStringLiteral("Search"));
        QCOMPARE(Edit()->accessibleName(), QStringLiteral("Search"));
        const auto* pClear = pBox->findChild<CIconButton*>(QStringLiteral("SearchClear"));
        QCOMPARE(pClear->toolTip(), QStringLiteral("Clear"));
        QCOMPARE(pClear->accessibleName(), QStringLiteral("Clear"));
        QVERIFY(!pClear->icon().isNull());
        QVERIFY(!pBox->findChild<QLabel*>(QStringLiteral("SearchIcon"))->pixmap(Qt::ReturnByValue).isNull());
    }

    void languageChangeTranslatesTheHints()
    {
        CBracketTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QTRY_COMPARE(Edit()->placeholderText(), QStringLiteral("[Search]"));
        QCOMPARE(pBox->findChild<CIconButton*>(QStringLiteral("SearchClear"))->accessibleName(), QStringLiteral("[Clear]"));
        QCoreApplication::removeTranslator(&translator);
        QTRY_COMPARE(Edit()->placeholderText(), QStringLiteral("Search"));
    }

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            ++nEscapes;
        }
        return QObject::eventFilter(watched, event);
    }

    void MakeBox(bool bBorder)
    {
        pBox = new CSearchBox(pWindow.get(), bBorder);
        pWindow->layout()->addWidget(pBox);
    }

    QLineEdit* Edit() const
    {
        return pBox->findChild<QLineEdit*>(QStringLiteral("SearchEdit"));
    }

    std::unique_ptr<QWidget> pWindow;
    CSearchBox* pBox = nullptr;
    int nEscapes = 0; ///< Escapes that the window got
};

PTV_TEST_MAIN(CSearchBoxTest)
#include "tst_searchbox.moc"
