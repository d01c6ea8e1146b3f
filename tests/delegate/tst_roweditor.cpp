#include "CRowView.h"
#include "CStoreFixture.h"
#include "TestMain.h"
#include "model/EnItemRole.h"

#include <QClipboard>
#include <QInputMethodEvent>

namespace
{

const QString strStage = QStringLiteral("Stage");
const QString strAlpha = QStringLiteral("alpha"); // in the group
const QString strGamma = QStringLiteral("gamma"); // in no group

SProcessorAllNode Site()
{
    return Root({ Group(strStage, { Processor(strAlpha) }) }, { Processor(strGamma) });
}

// A processor gamma that bears another name.
SProcessorAllNode SiteWithName(const QString& strName)
{
    return Root({ Group(strStage, { Processor(strAlpha) }) }, { Processor(strName).Id(strGamma) });
}

void Type(QLineEdit* pEditor, const QString& strText)
{
    for (const QChar ch : strText)
        QTest::sendKeyEvent(QTest::Click, pEditor, Qt::Key_unknown, QString(ch), Qt::NoModifier);
}

void Paste(QLineEdit* pEditor, const QString& strText)
{
    QGuiApplication::clipboard()->setText(strText);
    QTest::keySequence(pEditor, QKeySequence::Paste);
}

// As an input method does: shows strText while it is composed, then hands it over.
void Compose(QLineEdit* pEditor, const QString& strText)
{
    QInputMethodEvent composing(strText, {});
    QCoreApplication::sendEvent(pEditor, &composing);
    QInputMethodEvent done;
    done.setCommitString(strText);
    QCoreApplication::sendEvent(pEditor, &done);
}

QString RenameGamma(const QString& strName)
{
    return QStringLiteral("gui: g_pPrcBasicControl.RenameProcessor(gamma, \"%1\")").arg(strName);
}

} // namespace

using EndFunction = std::function<void(CRowView&, QLineEdit*)>;
Q_DECLARE_METATYPE(EndFunction)

class CRowEditorTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void groupsAndProcessorsCanBeEdited_data();
    void groupsAndProcessorsCanBeEdited();
    void otherRowsGetNoEditor_data();
    void otherRowsGetNoEditor();
    void editorLiesOverTheName_data();
    void editorLiesOverTheName();
    void editorStartsWithTheStoredNameAndTheFocus();
    void nameOfANodeThatIsGoneStartsEmpty();
    void nameFollowsTheStoreUntilTheFirstKey();
    void typedTextStaysWhenTheRowChanges();
    void firstKeyEndsTheFirstEdit();

    void refusedCharacterIsNotTyped_data();
    void refusedCharacterIsNotTyped();
    void pasteWithARefusedCharacterIsRefusedWhole();
    void composedTextIsTaken();
    void composedPunctuationIsRefused();
    void nameOf64BytesIsTakenAndNoMore_data();
    void nameOf64BytesIsTakenAndNoMore();
    void tooLongPasteIsTakenBack();
    void refusedKeyInTheMiddleMovesTheCursorOneToTheRight();
    void refusedKeyAtTheEndLeavesTheCursorThere();
    void refusalGivesBackTheTextOfTheOpenEditor();
    void nullEditorIsBorneByAll();

    void endOfEditingCommitsAndClosesOnce_data();
    void endOfEditingCommitsAndClosesOnce();
    void returnRenamesTheKindOfNode_data();
    void returnRenamesTheKindOfNode();
    void unchangedNameIsSentAllTheSame();
    void emptyNameIsNotSent();
    void nameOfAnotherNodeIsSent();
    void refusedRenameLeavesTheRowAsItWas();
    void escapeNeitherCommitsNorCloses();
    void keyTravelsToTheView_data();
    void keyTravelsToTheView();
    void rightClickShowsNoMenu();
    void finishedEditingCommitsWithoutClosing();
    void otherObjectsAreNotFiltered();
    void rowOfAnotherKindIsNotCommitted();

    void storedNameOverTheLimitIsShownAndSentBack();
    void storedNameOverTheLimitCanOnlyBeReplaced();
    void storedNameWithARefusedCharacterIsShownAndSentBack();
    void storedNameWithARefusedCharacterCanOnlyBeReplaced();

    void rowsThatGoTakeTheEditorWithoutACommit();
    void textChangedAfterTheRowIsGoneDoesNothing();
    void heightOfARowComesFromItsItem();
    void classHasTwoSlotsAndNoSignals();

private:
    QModelIndex Gamma(const CRowView& view) const;

    CStoreFixture store;
};

void CRowEditorTest::init()
{
    store.Show(Site());
    store.Control().ClearJournal();
}

QModelIndex CRowEditorTest::Gamma(const CRowView& view) const
{
    return view.Row(NodeProcessor, ProcessorId(strGamma));
}

void CRowEditorTest::groupsAndProcessorsCanBeEdited_data()
{
    QTest::addColumn<int>("nType");
    QTest::addColumn<QUuid>("id");
    QTest::addColumn<QString>("strName");
    QTest::newRow("group") << int(NodeGroup) << GroupId(strStage) << strStage;
    QTest::newRow("processor in a group") << int(NodeProcessor) << ProcessorId(strAlpha) << strAlpha;
    QTest::newRow("loose processor") << int(NodeProcessor) << ProcessorId(strGamma) << strGamma;
}

void CRowEditorTest::groupsAndProcessorsCanBeEdited()
{
    QFETCH(int, nType);
    QFETCH(QUuid, id);
    QFETCH(QString, strName);
    CRowView view;
    const QModelIndex index = view.Row(nType, id);
    const QLineEdit* pEditor = view.Edit(index);
    QVERIFY(pEditor);
    QCOMPARE(pEditor->metaObject(), &QLineEdit::staticMetaObject);
    QCOMPARE(pEditor->text(), strName);
    QCOMPARE(index.data(RoleFirstEdit), QVariant(true));
}

void CRowEditorTest::otherRowsGetNoEditor_data()
{
    QTest::addColumn<int>("nType");
    QTest::addColumn<QUuid>("id");
    QTest::newRow("root") << int(NodeAll) << QUuid();
    QTest::newRow("information") << int(NodeInfo) << ProcessorId(strGamma);
}

void CRowEditorTest::otherRowsGetNoEditor()
{
    QFETCH(int, nType);
    QFETCH(QUuid, id);
    CRowView view;
    const QModelIndex index = view.Row(nType, id);
    QVERIFY(index.isValid());
    QCOMPARE(view.Delegate().createEditor(view.viewport(), {}, index), nullptr);
    QCOMPARE(view.Delegate().createEditor(view.viewport(), {}, QModelIndex()), nullptr);
    QVERIFY(!index.data(RoleFirstEdit).isValid());
    QCOMPARE(view.Edit(index), nullptr);
}

void CRowEditorTest::editorLiesOverTheName_data()
{
    QTest::addColumn<int>("nType");
    QTest::addColumn<QUuid>("id");
    QTest::addColumn<int>("nIndent");
    QTest::addColumn<int>("nNarrower");
    QTest::newRow("group") << int(NodeGroup) << GroupId(strStage) << 18 << 25;
    QTest::newRow("processor") << int(NodeProcessor) << ProcessorId(strAlpha) << 9 << 15;
}

void CRowEditorTest::editorLiesOverTheName()
{
    QFETCH(int, nType);
    QFETCH(QUuid, id);
    QFETCH(int, nIndent);
    QFETCH(int, nNarrower);
    CRowView view;
    const QModelIndex index = view.Row(nType, id);
    const QLineEdit* pEditor = view.Edit(index);
    const QRect rcRow = view.visualRect(index);
    QCOMPARE(rcRow.height(), 32);
    QCOMPARE(pEditor->geometry(), QRect(rcRow.x() + nIndent, rcRow.y() + 4, rcRow.width() - nNarrower, 24));
    QCOMPARE(pEditor->minimumSize(), pEditor->size());
    QCOMPARE(pEditor->maximumSize(), pEditor->size());
}

void CRowEditorTest::editorStartsWithTheStoredNameAndTheFocus()
{
    CRowView view;
    view.Rows().itemFromIndex(Gamma(view))->setText(QStringLiteral("not this"));
    const QLineEdit* pEditor = view.Edit(Gamma(view));
    QCOMPARE(pEditor->text(), strGamma);
    QVERIFY(pEditor->hasFocus());
}

void CRowEditorTest::nameOfANodeThatIsGoneStartsEmpty()
{
    CRowView view;
    store.Show(Root({}));
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QCOMPARE(pEditor->text(), QString());
    store.Control().ClearJournal();
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().Calls(), QStringList());
}

void CRowEditorTest::nameFollowsTheStoreUntilTheFirstKey()
{
    CRowView view;
    const QLineEdit* pEditor = view.Edit(Gamma(view));
    store.Show(SiteWithName(QStringLiteral("renamed elsewhere")));
    view.Rows().setData(Gamma(view), QStringLiteral("any change"), RoleToolTip);
    QCOMPARE(pEditor->text(), QStringLiteral("renamed elsewhere"));
}

void CRowEditorTest::typedTextStaysWhenTheRowChanges()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QTest::keyClicks(pEditor, QStringLiteral("typed"));
    store.Show(SiteWithName(QStringLiteral("renamed elsewhere")));
    for (int i = 0; i < 3; ++i)
        view.Rows().setData(Gamma(view), i, RoleToolTip);
    QCOMPARE(pEditor->text(), QStringLiteral("typed"));
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("typed"))));
}

void CRowEditorTest::firstKeyEndsTheFirstEdit()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QTest::keyClick(pEditor, Qt::Key_A);
    QCOMPARE(Gamma(view).data(RoleFirstEdit), QVariant(false));
    view.Rows().setData(Gamma(view), true, RoleFirstEdit);
    QTest::keyClick(pEditor, Qt::Key_B);
    QCOMPARE(Gamma(view).data(RoleFirstEdit), QVariant(false));
}

void CRowEditorTest::refusedCharacterIsNotTyped_data()
{
    QTest::addColumn<QString>("strKey");
    for (const QChar ch : QStringLiteral("=}·~+{【】《》‘’“”，。、；：？—"))
        QTest::addRow("U+%04X", ch.unicode()) << QString(ch);
}

void CRowEditorTest::refusedCharacterIsNotTyped()
{
    QFETCH(QString, strKey);
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    pEditor->setCursorPosition(2);
    Type(pEditor, strKey);
    QCOMPARE(pEditor->text(), strGamma);
    QCOMPARE(pEditor->cursorPosition(), 2);
    Type(pEditor, QStringLiteral(" ,"));
    QCOMPARE(pEditor->text(), QStringLiteral("ga ,mma"));
}

void CRowEditorTest::pasteWithARefusedCharacterIsRefusedWhole()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    Paste(pEditor, QStringLiteral("a+b"));
    QCOMPARE(pEditor->text(), strGamma);
    Paste(pEditor, QStringLiteral("a-b"));
    QCOMPARE(pEditor->text(), QStringLiteral("a-b"));
}

void CRowEditorTest::composedTextIsTaken()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    Compose(pEditor, QStringLiteral("舞台"));
    Compose(pEditor, QStringLiteral("左"));
    QCOMPARE(pEditor->text(), QStringLiteral("舞台左"));
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("舞台左"))));
}

void CRowEditorTest::composedPunctuationIsRefused()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    Compose(pEditor, QStringLiteral("舞台"));
    Compose(pEditor, QStringLiteral("，左"));
    QCOMPARE(pEditor->text(), QStringLiteral("舞台"));
}

void CRowEditorTest::nameOf64BytesIsTakenAndNoMore_data()
{
    QTest::addColumn<QString>("strTyped");
    QTest::addColumn<QString>("strTaken");
    const QString strAscii(64, QLatin1Char('a'));
    const QString strCjk(21, QChar(0x53F0)); // 63 bytes
    QTest::newRow("64 ASCII") << strAscii << strAscii;
    QTest::newRow("65 ASCII") << strAscii + QLatin1Char('b') << strAscii;
    QTest::newRow("21 CJK") << strCjk << strCjk;
    QTest::newRow("22 CJK") << strCjk + QChar(0x53F1) << strCjk;
    QTest::newRow("21 CJK and an ASCII") << strCjk + QLatin1Char('b') << strCjk + QLatin1Char('b');
    QTest::newRow("refused, then one that fits") << strCjk + QChar(0x53F1) + QLatin1Char('b') << strCjk + QLatin1Char('b');
}

void CRowEditorTest::nameOf64BytesIsTakenAndNoMore()
{
    QFETCH(QString, strTyped);
    QFETCH(QString, strTaken);
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    pEditor->selectAll();
    Type(pEditor, strTyped);
    QCOMPARE(pEditor->text(), strTaken);
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().CommandsWithThread(), QStringList(RenameGamma(strTaken)));
}

void CRowEditorTest::tooLongPasteIsTakenBack()
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

void CRowEditorTest::refusedKeyInTheMiddleMovesTheCursorOneToTheRight()
{
    const QString strFull(64, QLatin1Char('n'));
    store.Show(SiteWithName(strFull));
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    for (int nPosition = 0; nPosition < 64; nPosition += 9) {
        pEditor->setCursorPosition(nPosition);
        QTest::keyClick(pEditor, Qt::Key_X);
        QCOMPARE(pEditor->text(), strFull);
        QCOMPARE(pEditor->cursorPosition(), nPosition + 1);
    }
}

void CRowEditorTest::refusedKeyAtTheEndLeavesTheCursorThere()
{
    store.Show(SiteWithName(QString(64, QLatin1Char('n'))));
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    pEditor->setCursorPosition(64);
    QTest::keyClick(pEditor, Qt::Key_X);
    QCOMPARE(pEditor->cursorPosition(), 64);
}

void CRowEditorTest::refusalGivesBackTheTextOfTheOpenEditor()
{
    CRowView view;
    QLineEdit* pFirst = view.Edit(Gamma(view));
    QTest::keyClicks(pFirst, QStringLiteral("first"));
    QTest::keyClick(pFirst, Qt::Key_Return);
    QLineEdit* pSecond = view.Edit(view.Row(NodeGroup, GroupId(strStage)));
    Paste(pSecond, QString(65, QLatin1Char('p')));
    QCOMPARE(pSecond->text(), strStage);
}

void CRowEditorTest::nullEditorIsBorneByAll()
{
    CRowView view;
    CCountingDelegate& rowDelegate = view.Delegate();
    rowDelegate.setEditorData(nullptr, Gamma(view));
    rowDelegate.setModelData(nullptr, &view.Rows(), Gamma(view));
    rowDelegate.updateEditorGeometry(nullptr, {}, Gamma(view));
    QVERIFY(
        QMetaObject::invokeMethod(&rowDelegate, "DealTextChange", Q_ARG(QLineEdit*, nullptr), Q_ARG(QModelIndex, Gamma(view))));
    QVERIFY(QMetaObject::invokeMethod(&rowDelegate, "commitAndCloseEditor"));
    QCOMPARE(store.Control().Commands(), QStringList());
}

void CRowEditorTest::endOfEditingCommitsAndClosesOnce_data()
{
    QTest::addColumn<EndFunction>("fnEnd");
    const auto key
        = [](Qt::Key nKey) { return EndFunction([nKey](CRowView&, QLineEdit* pEditor) { QTest::keyClick(pEditor, nKey); }); };
    QTest::newRow("Return") << key(Qt::Key_Return);
    QTest::newRow("Enter") << key(Qt::Key_Enter);
    QTest::newRow("Tab") << key(Qt::Key_Tab);
    QTest::newRow("Backtab") << key(Qt::Key_Backtab);
    QTest::newRow("click on another row") << EndFunction([](CRowView& view, QLineEdit*) {
        const QRect rcRow = view.visualRect(view.Row(NodeGroup, GroupId(strStage)));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, rcRow.center());
    });
    QTest::newRow("focus moved") << EndFunction([](CRowView& view, QLineEdit*) { view.setFocus(); });
    QTest::newRow("window deactivated") << EndFunction([](CRowView& view, QLineEdit*) {
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!view.isActiveWindow());
    });
}

void CRowEditorTest::endOfEditingCommitsAndClosesOnce()
{
    QFETCH(EndFunction, fnEnd);
    CRowView view;
    QPointer<QLineEdit> pEditor = view.Edit(Gamma(view));
    QTest::keyClicks(pEditor, QStringLiteral("new"));
    fnEnd(view, pEditor);
    QCOMPARE(store.Control().CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("new"))));
    QCOMPARE(view.nClosed, 1);
    QTRY_VERIFY(pEditor.isNull());
    QCOMPARE(store.Control().Commands().size(), 1);
}

void CRowEditorTest::returnRenamesTheKindOfNode_data()
{
    QTest::addColumn<int>("nType");
    QTest::addColumn<QUuid>("id");
    QTest::addColumn<QString>("strCall");
    QTest::newRow("group") << int(NodeGroup) << GroupId(strStage) << "gui: g_pPrcListControl.RenameGroup(Stage, \"new\")";
    QTest::newRow("processor in a group") << int(NodeProcessor) << ProcessorId(strAlpha)
                                          << "gui: g_pPrcBasicControl.RenameProcessor(alpha, \"new\")";
    QTest::newRow("loose processor") << int(NodeProcessor) << ProcessorId(strGamma)
                                     << "gui: g_pPrcBasicControl.RenameProcessor(gamma, \"new\")";
}

void CRowEditorTest::returnRenamesTheKindOfNode()
{
    QFETCH(int, nType);
    QFETCH(QUuid, id);
    QFETCH(QString, strCall);
    CRowView view;
    QLineEdit* pEditor = view.Edit(view.Row(nType, id));
    QTest::keyClicks(pEditor, QStringLiteral("new"));
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().CallsWithThread(), QStringList(strCall));
}

void CRowEditorTest::unchangedNameIsSentAllTheSame()
{
    CRowView view;
    QTest::keyClick(view.Edit(Gamma(view)), Qt::Key_Return);
    QTest::keyClick(view.Edit(view.Row(NodeGroup, GroupId(strStage))), Qt::Key_Return);
    QCOMPARE(store.Control().CommandsWithThread(),
             QStringList({ RenameGamma(strGamma), "gui: g_pPrcListControl.RenameGroup(Stage, \"Stage\")" }));
}

void CRowEditorTest::emptyNameIsNotSent()
{
    CRowView view;
    for (const QModelIndex& index : { Gamma(view), view.Row(NodeGroup, GroupId(strStage)) }) {
        QLineEdit* pEditor = view.Edit(index);
        QTest::keyClick(pEditor, Qt::Key_Delete);
        QCOMPARE(pEditor->text(), QString());
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(view.Editor(), nullptr);
    }
    QCOMPARE(store.Control().Calls(), QStringList());
}

void CRowEditorTest::nameOfAnotherNodeIsSent()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QTest::keyClicks(pEditor, strAlpha);
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().CommandsWithThread(), QStringList(RenameGamma(strAlpha)));
}

// The double carries out no rename, as a library that refuses.
void CRowEditorTest::refusedRenameLeavesTheRowAsItWas()
{
    CRowView view;
    const QImage before = view.viewport()->grab(view.visualRect(Gamma(view))).toImage();
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QTest::keyClicks(pEditor, QStringLiteral("new"));
    QTest::keyClick(pEditor, Qt::Key_Return);
    view.clearSelection();
    view.setCurrentIndex(view.Row(NodeAll, QUuid()));
    QCOMPARE(view.viewport()->grab(view.visualRect(Gamma(view))).toImage(), before);
    QVERIFY(!Gamma(view).data(Qt::DisplayRole).isValid());
    QCOMPARE(QApplication::topLevelWidgets().size(), 1);
}

void CRowEditorTest::escapeNeitherCommitsNorCloses()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QTest::keyClicks(pEditor, QStringLiteral("new"));
    QTest::keyClick(pEditor, Qt::Key_Escape);
    QCOMPARE(view.Editor(), pEditor);
    QCOMPARE(pEditor->text(), QStringLiteral("new"));
    QVERIFY(pEditor->hasFocus());
    QCOMPARE(view.nClosed, 0);
    QCOMPARE(store.Control().Calls(), QStringList());
}

void CRowEditorTest::keyTravelsToTheView_data()
{
    QTest::addColumn<int>("nKey");
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("F2") << int(Qt::Key_F2);
    QTest::newRow("Page Down") << int(Qt::Key_PageDown);
    QTest::newRow("Down") << int(Qt::Key_Down);
}

void CRowEditorTest::keyTravelsToTheView()
{
    QFETCH(int, nKey);
    CRowView view;
    QTest::keyClick(view.Edit(Gamma(view)), Qt::Key(nKey));
    QCOMPARE(view.listKey, QList<int>({ nKey }));
}

void CRowEditorTest::rightClickShowsNoMenu()
{
    CRowView view;
    const QLineEdit* pEditor = view.Edit(Gamma(view));
    const QPoint pos = pEditor->mapTo(&view, pEditor->rect().center());
    QTest::mouseClick(view.windowHandle(), Qt::RightButton, Qt::NoModifier, pos);
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
    QCOMPARE(view.nContextMenus, 0);
    QCOMPARE(view.Editor(), pEditor);

    const QPoint posRow = view.viewport()->mapTo(&view, view.visualRect(view.Row(NodeAll, QUuid())).center());
    QTest::mouseClick(view.windowHandle(), Qt::RightButton, Qt::NoModifier, posRow);
    QCOMPARE(view.nContextMenus, 1);
}

void CRowEditorTest::finishedEditingCommitsWithoutClosing()
{
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QSignalSpy commits(&view.Delegate(), &QAbstractItemDelegate::commitData);
    emit pEditor->editingFinished();
    QCOMPARE(commits.size(), 1);
    QCOMPARE(commits.first().first().value<QWidget*>(), pEditor);
    QCOMPARE(view.nClosed, 0);
    QCOMPARE(view.Editor(), pEditor);
}

void CRowEditorTest::otherObjectsAreNotFiltered()
{
    CRowView view;
    QSignalSpy commits(&view.Delegate(), &QAbstractItemDelegate::commitData);
    QWidget other;
    QKeyEvent keyReturn(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QVERIFY(!view.Delegate().eventFilter(&other, &keyReturn));
    QVERIFY(!view.Delegate().eventFilter(nullptr, &keyReturn));
    QKeyEvent keyRelease(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent keyTab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QVERIFY(!view.Delegate().eventFilter(view.Edit(Gamma(view)), &keyRelease));
    QVERIFY(!view.Delegate().eventFilter(view.Editor(), &keyTab));
    QCOMPARE(commits.size(), 0);
    QCOMPARE(store.Control().Commands(), QStringList());
    QVERIFY(view.Delegate().eventFilter(view.Editor(), &keyReturn));
    QCOMPARE(store.Control().Commands().size(), 1);
}

void CRowEditorTest::rowOfAnotherKindIsNotCommitted()
{
    CRowView view;
    QLineEdit editor(QStringLiteral("new"));
    for (const QModelIndex& index : { view.Row(NodeAll, QUuid()), view.Row(NodeInfo, ProcessorId(strGamma)), QModelIndex() }) {
        view.Delegate().setModelData(&editor, &view.Rows(), index);
        view.Delegate().updateEditorGeometry(&editor, {}, index);
    }
    QCOMPARE(store.Control().Calls(), QStringList());
    QVERIFY(editor.maximumWidth() == QWIDGETSIZE_MAX);
}

void CRowEditorTest::storedNameOverTheLimitIsShownAndSentBack()
{
    const QString strLong(70, QLatin1Char('n'));
    store.Show(SiteWithName(strLong));
    store.Control().ClearJournal();
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QCOMPARE(pEditor->text(), strLong);
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().CommandsWithThread(), QStringList(RenameGamma(strLong)));
}

void CRowEditorTest::storedNameOverTheLimitCanOnlyBeReplaced()
{
    const QString strLong(70, QLatin1Char('n'));
    store.Show(SiteWithName(strLong));
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

void CRowEditorTest::storedNameWithARefusedCharacterIsShownAndSentBack()
{
    store.Show(SiteWithName(QStringLiteral("a+b")));
    store.Control().ClearJournal();
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    QCOMPARE(pEditor->text(), QStringLiteral("a+b"));
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCOMPARE(store.Control().CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("a+b"))));
}

void CRowEditorTest::storedNameWithARefusedCharacterCanOnlyBeReplaced()
{
    store.Show(SiteWithName(QStringLiteral("a+b")));
    CRowView view;
    QLineEdit* pEditor = view.Edit(Gamma(view));
    pEditor->setCursorPosition(0);
    QTest::keyClick(pEditor, Qt::Key_X);
    QCOMPARE(pEditor->text(), QStringLiteral("a+b"));
    pEditor->selectAll();
    QTest::keyClick(pEditor, Qt::Key_X);
    QCOMPARE(pEditor->text(), QStringLiteral("x"));
}

void CRowEditorTest::rowsThatGoTakeTheEditorWithoutACommit()
{
    CRowView view;
    QPointer<QLineEdit> pEditor = view.Edit(Gamma(view));
    QTest::keyClicks(pEditor, QStringLiteral("new"));
    view.Rows().item(0)->removeRows(0, 2);
    QTRY_VERIFY(pEditor.isNull());
    QCOMPARE(view.nClosed, 0);
    QCOMPARE(store.Control().Commands(), QStringList());
}

void CRowEditorTest::textChangedAfterTheRowIsGoneDoesNothing()
{
    CRowView view;
    QPointer<QLineEdit> pEditor = view.Edit(Gamma(view));
    view.Rows().item(0)->removeRows(0, 2);
    QVERIFY(pEditor);
    pEditor->setText(QStringLiteral("late"));
    QVERIFY(!pEditor || pEditor->text() == QStringLiteral("late"));
    QCOMPARE(store.Control().Commands(), QStringList());
}

void CRowEditorTest::heightOfARowComesFromItsItem()
{
    CRowView view;
    QCOMPARE(view.visualRect(Gamma(view)).height(), 32);
    QCOMPARE(view.visualRect(view.Row(NodeInfo, ProcessorId(strGamma))).height(), 92);
    view.Rows().setData(Gamma(view), QSize(0, 50), Qt::SizeHintRole);
    QCOMPARE(view.visualRect(Gamma(view)).height(), 50);
}

void CRowEditorTest::classHasTwoSlotsAndNoSignals()
{
    const QMetaObject& meta = CProcessorTreeDelegate::staticMetaObject;
    QStringList listMethod;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        listMethod.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(listMethod, QStringList({ "DealTextChange(QLineEdit*,QModelIndex)", "commitAndCloseEditor()" }));
}

PTV_TEST_MAIN(CRowEditorTest)
#include "tst_roweditor.moc"
