#include "CRowView.h"
#include "EditorInput.h"
#include "TestMain.h"
#include "delegate/NameRule.h"
#include "fixtures/CStoreFixture.h"

#include <QRegExpValidator>

class CRowNamingTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.Show(Site());
        store.control.ClearJournal();
    }

    void refusedCharacterIsNotTyped()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        pEditor->setCursorPosition(2);
        Type(pEditor, QStringLiteral("，"));
        QCOMPARE(pEditor->text(), strGamma);
        QCOMPARE(pEditor->cursorPosition(), 2);
        Type(pEditor, QStringLiteral(" ,"));
        QCOMPARE(pEditor->text(), QStringLiteral("ga ,mma"));
    }

    void pasteWithARefusedCharacterIsRefusedWhole()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        Paste(pEditor, QStringLiteral("a+b"));
        QCOMPARE(pEditor->text(), strGamma);
        Paste(pEditor, QStringLiteral("a-b"));
        QCOMPARE(pEditor->text(), QStringLiteral("a-b"));
    }

    void composedTextIsTaken()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        Compose(pEditor, QStringLiteral("舞台"));
        Compose(pEditor, QStringLiteral("左"));
        QCOMPARE(pEditor->text(), QStringLiteral("舞台左"));
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("舞台左"))));
    }

    void composedPunctuationIsRefused()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        Compose(pEditor, QStringLiteral("舞台"));
        Compose(pEditor, QStringLiteral("，左"));
        QCOMPARE(pEditor->text(), QStringLiteral("舞台"));
    }

    void nameOf64BytesIsTakenAndNoMore_data()
    {
        QTest::addColumn<QString>("strTyped");
        QTest::addColumn<QString>("strTaken");
        const QString strAscii(64, QLatin1Char('a'));
        const QString strCjk(21, QChar(0x53F0)); // 63 bytes
        QTest::newRow("65 ASCII") << strAscii + QLatin1Char('b') << strAscii;
        QTest::newRow("refused, then one that fits") << strCjk + QChar(0x53F1) + QLatin1Char('b') << strCjk + QLatin1Char('b');
    }

    void nameOf64BytesIsTakenAndNoMore()
    {
        QFETCH(QString, strTyped);
        QFETCH(QString, strTaken);
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        pEditor->selectAll();
        Type(pEditor, strTyped);
        QCOMPARE(pEditor->text(), strTaken);
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CommandsWithThread(), QStringList(RenameGamma(strTaken)));
    }

    void tooLongPasteIsTakenBack()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        Paste(pEditor, QString(65, QLatin1Char('p')));
        QCOMPARE(pEditor->text(), strGamma);
        Paste(pEditor, QString(64, QLatin1Char('p')));
        QVERIFY(pEditor->text() != QString(64, QLatin1Char('p'))); // nothing is marked any more
        pEditor->selectAll();
        Paste(pEditor, QString(64, QLatin1Char('p')));
        QCOMPARE(pEditor->text(), QString(64, QLatin1Char('p')));
    }

    void refusedKeyInTheMiddleMovesTheCursorOneToTheRight()
    {
        const QString strFull(64, QLatin1Char('n'));
        store.Show(SiteWithGammaNamed(strFull));
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        pEditor->setCursorPosition(10);
        QTest::keyClick(pEditor, Qt::Key_X);
        QCOMPARE(pEditor->text(), strFull);
        QCOMPARE(pEditor->cursorPosition(), 11);
    }

    void refusedKeyAtTheEndLeavesTheCursorThere()
    {
        store.Show(SiteWithGammaNamed(QString(64, QLatin1Char('n'))));
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        pEditor->setCursorPosition(64);
        QTest::keyClick(pEditor, Qt::Key_X);
        QCOMPARE(pEditor->cursorPosition(), 64);
    }

    void refusalGivesBackTheTextOfTheOpenEditor()
    {
        CRowView view;
        QLineEdit* pFirst = view.Edit(Gamma(view));
        QTest::keyClicks(pFirst, QStringLiteral("first"));
        QTest::keyClick(pFirst, Qt::Key_Return);
        QLineEdit* pSecond = view.Edit(view.Row(NodeGroup, GroupId(strStage)));
        Paste(pSecond, QString(65, QLatin1Char('p')));
        QCOMPARE(pSecond->text(), strStage);
    }

    void storedNameOverTheLimitIsShownAndSentBack()
    {
        const QString strLong(70, QLatin1Char('n'));
        store.Show(SiteWithGammaNamed(strLong));
        store.control.ClearJournal();
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QCOMPARE(pEditor->text(), strLong);
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CommandsWithThread(), QStringList(RenameGamma(strLong)));
    }

    void storedNameOverTheLimitCanOnlyBeReplaced()
    {
        const QString strLong(70, QLatin1Char('n'));
        store.Show(SiteWithGammaNamed(strLong));
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        pEditor->setCursorPosition(10);
        QTest::keyClick(pEditor, Qt::Key_Backspace);
        QCOMPARE(pEditor->text(), strLong);
        QTest::keyClick(pEditor, Qt::Key_X);
        QCOMPARE(pEditor->text(), strLong);
        pEditor->selectAll();
        QTest::keyClick(pEditor, Qt::Key_X);
        QCOMPARE(pEditor->text(), QStringLiteral("x"));
    }

    void storedNameWithARefusedCharacterIsShownAndSentBack()
    {
        store.Show(SiteWithGammaNamed(QStringLiteral("a+b")));
        store.control.ClearJournal();
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QCOMPARE(pEditor->text(), QStringLiteral("a+b"));
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("a+b"))));
    }

    void storedNameWithARefusedCharacterCanOnlyBeReplaced()
    {
        store.Show(SiteWithGammaNamed(QStringLiteral("a+b")));
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        pEditor->setCursorPosition(0);
        QTest::keyClick(pEditor, Qt::Key_X);
        QCOMPARE(pEditor->text(), QStringLiteral("a+b"));
        pEditor->selectAll();
        QTest::keyClick(pEditor, Qt::Key_X);
        QCOMPARE(pEditor->text(), QStringLiteral("x"));
    }

    void editorChecksCharactersByTheRule()
    {
        CRowView view;
        const QLineEdit* pEditor = view.Edit(Gamma(view));
        const auto* pValidator = qobject_cast<const QRegExpValidator*>(pEditor->validator());
        QVERIFY(pValidator);
        QCOMPARE(pValidator->parent(), pEditor);
        QCOMPARE(pValidator->regExp(), NameRule::Characters());
    }

    void refusalBeforeAnyEditingGivesBackNothing()
    {
        CProcessorTreeDelegate rowDelegate(nullptr);
        QLineEdit editor(QString(65, QLatin1Char('n')));
        QMetaObject::invokeMethod(&rowDelegate, "DealTextChange", Q_ARG(QLineEdit*, &editor), Q_ARG(QModelIndex, QModelIndex()));
        QCOMPARE(editor.text(), QString());
    }

    void refusalIsSilent()
    {
        store.Show(SiteWithGammaNamed(QString(64, QLatin1Char('n'))));
        CRowView view;
        QTest::keyClick(view.Edit(Gamma(view)), Qt::Key_End);
        QTest::keyClick(view.Editor(), Qt::Key_X);
        QCOMPARE(QApplication::topLevelWidgets().size(), 1);
        QVERIFY(view.Editor()->hasFocus());
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CRowNamingTest)
#include "tst_rownaming.moc"
