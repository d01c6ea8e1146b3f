#include "CRowView.h"
#include "EditorInput.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "model/EnItemRole.h"

#include <QContextMenuEvent>

namespace {

// Why a widget was given the focus, in order.
class CFocusReasons : public QObject
{
public:
    explicit CFocusReasons(QWidget* pWidget) : QObject(pWidget)
    {
        pWidget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            listReason.append(static_cast<QFocusEvent*>(event)->reason());
        }
        return false;
    }

    QList<Qt::FocusReason> listReason;
};

} // namespace

class CRowEditorTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.SetSimulatorPane(false);
        store.Show(Site());
        store.control.ClearJournal();
    }

    void groupsAndProcessorsCanBeEdited_data()
    {
        QTest::addColumn<int>("nType");
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<QString>("strName");
        QTest::newRow("group") << int(NodeGroup) << GroupId(strStage) << strStage;
        QTest::newRow("processor in a group") << int(NodeProcessor) << ProcessorId(strAlpha) << strAlpha;
        QTest::newRow("loose processor") << int(NodeProcessor) << ProcessorId(strGamma) << strGamma;
    }

    void groupsAndProcessorsCanBeEdited()
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

    void otherRowsGetNoEditor_data()
    {
        QTest::addColumn<int>("nType");
        QTest::addColumn<QUuid>("id");
        QTest::newRow("root") << int(NodeAll) << QUuid();
        QTest::newRow("information") << int(NodeInfo) << ProcessorId(strGamma);
    }

    void otherRowsGetNoEditor()
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

    void editorLiesOverTheName_data()
    {
        QTest::addColumn<int>("nType");
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<int>("nIndent");
        QTest::addColumn<int>("nNarrower");
        QTest::newRow("group") << int(NodeGroup) << GroupId(strStage) << 18 << 25;
        QTest::newRow("processor") << int(NodeProcessor) << ProcessorId(strAlpha) << 9 << 15;
    }

    void editorLiesOverTheName()
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

    void editorStartsWithTheStoredNameAndTheFocus()
    {
        CRowView view;
        view.Rows().itemFromIndex(Gamma(view))->setText(QStringLiteral("not this"));
        const QLineEdit* pEditor = view.Edit(Gamma(view));
        QCOMPARE(pEditor->text(), strGamma);
        QVERIFY(pEditor->hasFocus());
    }

    void nameOfANodeThatIsGoneStartsEmpty()
    {
        CRowView view;
        store.Show(Root({}));
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QCOMPARE(pEditor->text(), QString());
        store.control.ClearJournal();
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.Calls(), QStringList());
    }

    void nameFollowsTheStoreUntilTheFirstKey()
    {
        CRowView view;
        const QLineEdit* pEditor = view.Edit(Gamma(view));
        store.Show(SiteWithGammaNamed(QStringLiteral("renamed elsewhere")));
        view.Rows().setData(Gamma(view), QStringLiteral("any change"), RoleToolTip);
        QCOMPARE(pEditor->text(), QStringLiteral("renamed elsewhere"));
    }

    void typedTextStaysWhenTheRowChanges()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QTest::keyClicks(pEditor, QStringLiteral("typed"));
        store.Show(SiteWithGammaNamed(QStringLiteral("renamed elsewhere")));
        for (int i = 0; i < 3; ++i) {
            view.Rows().setData(Gamma(view), i, RoleToolTip);
        }
        QCOMPARE(pEditor->text(), QStringLiteral("typed"));
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCOMPARE(store.control.CommandsWithThread(), QStringList(RenameGamma(QStringLiteral("typed"))));
    }

    void firstKeyEndsTheFirstEdit()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QTest::keyClick(pEditor, Qt::Key_A);
        QCOMPARE(Gamma(view).data(RoleFirstEdit), QVariant(false));
        view.Rows().setData(Gamma(view), true, RoleFirstEdit);
        QTest::keyClick(pEditor, Qt::Key_B);
        QCOMPARE(Gamma(view).data(RoleFirstEdit), QVariant(false));
    }

    void nullEditorIsBorneByAll()
    {
        CRowView view;
        CCountingDelegate& rowDelegate = view.Delegate();
        rowDelegate.setEditorData(nullptr, Gamma(view));
        rowDelegate.setModelData(nullptr, &view.Rows(), Gamma(view));
        rowDelegate.updateEditorGeometry(nullptr, {}, Gamma(view));
        QVERIFY(QMetaObject::invokeMethod(&rowDelegate, "DealTextChange", Q_ARG(QLineEdit*, nullptr),
                                          Q_ARG(QModelIndex, Gamma(view))));
        QVERIFY(QMetaObject::invokeMethod(&rowDelegate, "commitAndCloseEditor"));
        QCOMPARE(store.control.Commands(), QStringList());
    }

    void rightClickShowsNoMenu()
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

    void heightOfARowComesFromItsItem()
    {
        CRowView view;
        QCOMPARE(view.visualRect(Gamma(view)).height(), 32);
        QCOMPARE(view.visualRect(view.Row(NodeInfo, ProcessorId(strGamma))).height(), 92);
        view.Rows().setData(Gamma(view), QSize(0, 50), Qt::SizeHintRole);
        QCOMPARE(view.visualRect(Gamma(view)).height(), 50);
    }

    void classHasTwoSlotsAndNoSignals()
    {
        const QMetaObject& meta = CProcessorTreeDelegate::staticMetaObject;
        QStringList listMethod;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
            listMethod.append(QString::fromLatin1(meta.method(i).methodSignature()));
        }
        QCOMPARE(listMethod, QStringList({ "DealTextChange(QLineEdit*,QModelIndex)", "commitAndCloseEditor()" }));
    }

    void editorAsksForTheFocusForNoSpecialReason()
    {
        CRowView view;
        QLineEdit editor(&view);
        editor.show();
        CFocusReasons reasons(&editor);
        view.Delegate().setEditorData(&editor, Gamma(view));
        QVERIFY(editor.hasFocus());
        QCOMPARE(reasons.listReason, QList<Qt::FocusReason>({ Qt::OtherFocusReason }));
    }

    // The view filters its editors through the delegate as well; this one it does not know.
    void editorIsFilteredByTheDelegateItself()
    {
        CRowView view;
        QLineEdit editor(&view);
        editor.show();
        view.Delegate().setEditorData(&editor, Gamma(view));
        QSignalSpy commits(&view.Delegate(), &QAbstractItemDelegate::commitData);
        QSignalSpy returns(&editor, &QLineEdit::returnPressed);
        QTest::keyClick(&editor, Qt::Key_Return);
        QCOMPARE(commits.size(), 1);
        QCOMPARE(returns.size(), 0);
    }

    void nodeOfTheOtherPaneStartsEmpty()
    {
        CRowView view;
        store.SetSimulatorPane(true);
        const QLineEdit* pEditor = view.Edit(Gamma(view));
        QCOMPARE(pEditor->text(), QString());
    }

    void idThatCannotBeReadStartsEmpty()
    {
        CRowView view;
        const QModelIndex index = Gamma(view);
        view.Rows().setData(index, QVariantList(), RoleNodeId);
        QCOMPARE(view.Edit(index)->text(), QString());
    }

    void menuKeyShowsNoMenuEither()
    {
        CRowView view;
        QLineEdit* pEditor = view.Edit(Gamma(view));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, pEditor->rect().center(), pEditor->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(pEditor, &event);
        QCOMPARE(QApplication::activePopupWidget(), nullptr);
        QCOMPARE(view.nContextMenus, 0);
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CRowEditorTest)
#include "tst_roweditor.moc"
