#include "CRowView.h"
#include "EditorInput.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "model/EnItemRole.h"

using EndFunction = std::function<void(CRowView&, QLineEdit*)>;
Q_DECLARE_METATYPE(EndFunction)

class CRowCommitTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.Show(Site());
        store.control.ClearJournal();
    }

    void endOfEditingCommitsAndClosesOnce_data()
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

    void endOfEditingCommitsAndClosesOnce()
    {
        QFETCH(EndFunction, fnEnd);
        CRowView view;
        QPointer<QLineEdit> pEditor = view.Edit(Gamma(view));
        QTest::keyClicks(pEditor, QStringLiteral("new"));
        fnEnd(view, pEditor);
        QCOMPARE(store.control.CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("new"))));
        QCOMPARE(view.listClose, QList<QAbstractItemDelegate::EndEditHint>({ QAbstractItemDelegate::NoHint }));
        QTRY_VERIFY(pEditor.isNull());
        QCOMPARE(store.control.Commands().size(), 1);
    }

    void returnRenamesTheKindOfNode_data()
    {
        QTest::addColumn<int>("nType");
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<QString>("strCall");
        QTest::newRow("group") << int(NodeGroup) << GroupId(strStage) << "gui: g_pPrcListControl.RenameGroup(Stage, \"new\")";
        QTest::newRow("processor in a group")
            << int(NodeProcessor) << ProcessorId(strAlpha) << "gui: g_pPrcBasicControl.RenameProcessor(alpha, \"new\")";
        QTest::newRow("loose processor") << int(NodeProcessor) << ProcessorId(strGamma)
                                         << "gui: g_pPrcBasicControl.RenameProcessor(gamma, \"new\")";
    }

    void returnRenamesTheKindOfNode()
    {
        QFETCH(int, nType);
        QFETCH(QUuid, id);
        QFETCH(QString, strCall);
        CRowView view;
        QLineEdit* pEditor = view.Edit(view.Row(nType, id));
        QTest::keyClicks(pEditor, QStringLiteral("new"));
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CallsWithThread(), QStringList(strCall));
    }

    void unchangedNameIsSentAllTheSame()
    {
        CRowView view;
        QTest::keyClick(view.Edit(Gamma(view)), Qt::Key_Return);
        QTest::keyClick(view.Edit(view.Row(NodeGroup, GroupId(strStage))), Qt::Key_Return);
        QCOMPARE(store.control.CommandsWithThread(),
                 QStringList({ RenameGamma(strGamma), "gui: g_pPrcListControl.RenameGroup(Stage, \"Stage\")" }));
    }

    void emptyNameIsNotSent()
    {
        CRowView view;
        for (const QModelIndex& index : { Gamma(view), view.Row(NodeGroup, GroupId(strStage)) }) {
            QLineEdit* pEditor = view.Edit(index);
            QTest::keyClick(pEditor, Qt::Key_Delete);
            QCOMPARE(pEditor->text(), QString());
            QTest::keyClick(pEditor, Qt::Key_Return);
            QCOMPARE(view.Editor(), nullptr);
        }
        QCOMPARE(store.control.Calls(), QStringList());
    }

    void nameOfBlanksIsSentAsTyped()
    {
        CRowView view;
        for (const QModelIndex& index : { Gamma(view), view.Row(NodeGroup, GroupId(strStage)) }) {
            QLineEdit* pEditor = view.Edit(index);
            QTest::keyClicks(pEditor, QStringLiteral("  "));
            QTest::keyClick(pEditor, Qt::Key_Return);
        }
        QCOMPARE(store.control.CommandsWithThread(),
                 QStringList({ RenameGamma(QStringLiteral("  ")), "gui: g_pPrcListControl.RenameGroup(Stage, \"  \")" }));
    }

    void nameOfAnotherNodeIsSent()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QTest::keyClicks(pEditor, strAlpha);
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CommandsWithThread(), QStringList(RenameGamma(strAlpha)));
    }

    // The double carries out no rename, as a library that refuses.
    void refusedRenameLeavesTheRowAsItWas()
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

    void escapeNeitherCommitsNorCloses()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QTest::keyClicks(pEditor, QStringLiteral("new"));
        QTest::keyClick(pEditor, Qt::Key_Escape);
        QCOMPARE(view.Editor(), pEditor);
        QCOMPARE(pEditor->text(), QStringLiteral("new"));
        QVERIFY(pEditor->hasFocus());
        QVERIFY(view.listClose.isEmpty());
        QCOMPARE(store.control.Calls(), QStringList());
    }

    void keyTravelsToTheView_data()
    {
        QTest::addColumn<int>("nKey");
        QTest::newRow("Escape") << int(Qt::Key_Escape);
        QTest::newRow("F2") << int(Qt::Key_F2);
        QTest::newRow("Page Down") << int(Qt::Key_PageDown);
        QTest::newRow("Down") << int(Qt::Key_Down);
    }

    void keyTravelsToTheView()
    {
        QFETCH(int, nKey);
        CRowView view;
        QTest::keyClick(view.Edit(Gamma(view)), Qt::Key(nKey));
        QCOMPARE(view.listKey, QList<int>({ nKey }));
    }

    void finishedEditingCommitsWithoutClosing()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QSignalSpy commits(&view.Delegate(), &QAbstractItemDelegate::commitData);
        emit pEditor->editingFinished();
        QCOMPARE(commits.size(), 1);
        QCOMPARE(commits.first().first().value<QWidget*>(), pEditor);
        QVERIFY(view.listClose.isEmpty());
        QCOMPARE(view.Editor(), pEditor);
    }

    void otherObjectsAreNotFiltered()
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
        QCOMPARE(store.control.Commands(), QStringList());
        QVERIFY(view.Delegate().eventFilter(view.Editor(), &keyReturn));
        QCOMPARE(store.control.Commands().size(), 1);
    }

    void rowOfAnotherKindIsNotCommitted()
    {
        CRowView view;
        QLineEdit editor(QStringLiteral("new"));
        for (const QModelIndex& index :
             { view.Row(NodeAll, QUuid()), view.Row(NodeInfo, ProcessorId(strGamma)), QModelIndex() }) {
            view.Delegate().setModelData(&editor, &view.Rows(), index);
            view.Delegate().updateEditorGeometry(&editor, {}, index);
        }
        QCOMPARE(store.control.Calls(), QStringList());
        QVERIFY(editor.maximumWidth() == QWIDGETSIZE_MAX);
    }

    void rowsThatGoTakeTheEditorWithoutACommit()
    {
        CRowView view;
        QPointer<QLineEdit> pEditor = view.Edit(Gamma(view));
        QTest::keyClicks(pEditor, QStringLiteral("new"));
        view.Rows().item(0)->removeRows(0, 2);
        QTRY_VERIFY(pEditor.isNull());
        QVERIFY(view.listClose.isEmpty());
        QCOMPARE(store.control.Commands(), QStringList());
    }

    void textChangedAfterTheRowIsGoneDoesNothing_data()
    {
        QTest::addColumn<QString>("strName");
        QTest::newRow("processor whose group went too") << strAlpha;
        QTest::newRow("loose processor") << strGamma;
    }

    void textChangedAfterTheRowIsGoneDoesNothing()
    {
        QFETCH(QString, strName);
        CRowView view;
        const QPointer<QLineEdit> pEditor = view.Edit(view.Row(NodeProcessor, ProcessorId(strName)));
        view.Rows().item(0)->removeRows(0, 2);
        QVERIFY(pEditor);
        pEditor->setText(QStringLiteral("late"));
        QCOMPARE(view.Rows().item(0)->rowCount(), 0);
        QCOMPARE(store.control.Commands(), QStringList());
    }

    void nodeThatGoesWhileItsNameIsTypedIsSentAllTheSame()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QTest::keyClicks(pEditor, QStringLiteral("new"));
        store.Show(Root({}));
        store.control.ClearJournal();
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CallsWithThread(), QStringList(RenameGamma(QStringLiteral("new"))));
    }

    void idGivenAsTextIsUnderstood()
    {
        CRowView view;
        const QModelIndex index = Gamma(view);
        view.Rows().setData(index, ProcessorId(strGamma).toString(), RoleNodeId);
        QLineEdit* pEditor = view.Edit(index);
        QCOMPARE(pEditor->text(), strGamma);
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CallsWithThread(), QStringList(RenameGamma(strGamma)));
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CRowCommitTest)
#include "tst_rowcommit.moc"
