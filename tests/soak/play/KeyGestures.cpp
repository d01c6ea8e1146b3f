#include "play/KeyGestures.h"

#include "check/KeptExceptions.h"
#include "play/BarGestures.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QTreeView>
#include <QWindow>
#include <QtTest>

namespace {

constexpr Qt::Key arrKey[]
    = { Qt::Key_Down,  Qt::Key_Up,   Qt::Key_Left,  Qt::Key_Right, Qt::Key_Home,   Qt::Key_End,    Qt::Key_PageDown,
        Qt::Key_Space, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_A,     Qt::Key_PageUp, Qt::Key_Return, Qt::Key_Asterisk };
constexpr int nKeys = sizeof(arrKey) / sizeof(arrKey[0]);
constexpr Qt::KeyboardModifiers arrModifier[] = { Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier };
constexpr const char* arrName[] = { "Yard", "new name", "KX-4", "beta", "10.0.1", "zzz" };
constexpr int nNames = sizeof(arrName) / sizeof(arrName[0]);

/// The nodes that Up and Down go along: not the information rows, not the members of folded groups.
QVector<SPictureKey> GetWay(const SPanelPicture& picture)
{
    QVector<SPictureKey> vecKey;
    bool bOpen = false;
    for (const SPictureRow& row : picture.vecRow) {
        bOpen = row.nDepth == 1 ? row.key.nType == NodeGroup && row.bExpanded : bOpen;
        if (row.nDepth < 2 || (row.nDepth == 2 && bOpen && row.key.nType == NodeProcessor)) {
            vecKey.append(row.key);
        }
    }
    return vecKey;
}

// The row before under the same parent, or the parent.
SPictureKey GetAboveFolded(const SPanelPicture& picture, const SPictureKey& key)
{
    int n = PanelPicture::FindRow(picture, key);
    const int nDepth = picture.vecRow.at(n).nDepth;
    do {
        --n;
    } while (picture.vecRow.at(n).nDepth > nDepth);
    return picture.vecRow.at(n).key;
}

void StepBy(SScene& scene, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    const RowKeys setSeen = scene.Expected().GetSeen();
    if (setSeen.size() != 1) {
        return;
    }
    const SPictureKey keyFrom = *setSeen.cbegin();
    const QVector<SPictureKey> vecWay = GetWay(scene.before);
    const int nFrom = vecWay.indexOf(keyFrom);
    if (key == Qt::Key_Down) {
        const int nTo = nFrom < 0 ? 1 : nFrom + 1;
        scene.Expected().StepTo(vecWay.value(nTo, vecWay.first()), modifiers);
    } else if (nFrom != 0) {
        scene.Expected().StepTo(nFrom < 0 ? GetAboveFolded(scene.before, keyFrom) : vecWay.at(nFrom - 1), modifiers);
    }
}

// Left on a folded row and Right on an open one go to the parent widget.
bool ReachesView(const SScene& scene, Qt::Key key, const RowKeys& setSeen)
{
    if (key != Qt::Key_Left && key != Qt::Key_Right) {
        return key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    }
    const int nRow = setSeen.size() == 1 ? PanelPicture::FindRow(scene.before, *setSeen.cbegin()) : -1;
    if (nRow < 0) {
        return false;
    }
    const QVector<SPictureRow>& vecRow = scene.before.vecRow;
    const bool bHasChildren = nRow + 1 < vecRow.size() && vecRow.at(nRow + 1).nDepth > vecRow.at(nRow).nDepth;
    return !bHasChildren || vecRow.at(nRow).bExpanded != (key == Qt::Key_Right);
}

void Press(SScene& scene, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    scene.panel.Tree()->setFocus();
    QTest::keyClick(scene.panel.window.windowHandle(), key, modifiers);
    KeyGestures::LetGo(scene);
}

QLineEdit* FindEditor(const SScene& scene)
{
    return scene.panel.Tree()->viewport()->findChild<QLineEdit*>();
}

void Commit(SScene& scene, QLineEdit* pEditor, bool bByReturn)
{
    scene.Mean(SIntent::Rename);
    scene.Expected().CloseEditor(CSoakPanel::GetKey(scene.panel.Tree()->currentIndex()));
    if (bByReturn) {
        QTest::keyClick(pEditor, Qt::Key_Return);
    } else {
        scene.panel.Tree()->setFocus();
    }
}

void TakeEditorAway(SScene& scene)
{
    const QUuid id = CSoakPanel::GetKey(scene.panel.Tree()->selectionModel()->selectedIndexes().value(0)).id;
    scene.panel.library.processors.RenameNode(id, QUuid::createUuid().toString(QUuid::WithoutBraces), OriginLibrary);
    scene.panel.Settle();
    if (FindEditor(scene)) { // the library has refused
        Commit(scene, FindEditor(scene), true);
    } else {
        scene.Expected().EndSuppression();
    }
}

} // namespace

void KeyGestures::PressKey(SScene& scene, int nFirst, int nSecond)
{
    const Qt::Key key = arrKey[nFirst % nKeys];
    scene.panel.Tree()->setFocus();
    scene.Expected().NoteCurrent(CSoakPanel::GetKey(scene.panel.Tree()->currentIndex()));
    const Qt::KeyboardModifiers modifiers = key == Qt::Key_A ? Qt::ControlModifier : arrModifier[nSecond % 3];
    if (key == Qt::Key_A) {
        scene.Expected().SelectAll();
    } else if (key == Qt::Key_Space) {
        scene.Expected().PressSpace(modifiers & Qt::ControlModifier);
    } else if (key == Qt::Key_Up || key == Qt::Key_Down) {
        StepBy(scene, key, modifiers);
    }
    if (modifiers & Qt::ShiftModifier && ReachesView(scene, key, scene.Expected().GetSeen())) {
        scene.Expected().PrepareMove();
    }
    const SPictureKey keyBefore = scene.Expected().GetCurrent();
    if (KeptExceptions::IsFoldApart(key, keyBefore)) {
        scene.setFoldApart.insert(keyBefore.id);
    }
    const bool bMoves = key != Qt::Key_Up && key != Qt::Key_Down;
    Press(scene, key, modifiers);
    const SPictureKey keyCurrent = CSoakPanel::GetKey(scene.panel.Tree()->currentIndex());
    if (bMoves && !(keyCurrent == keyBefore)) {
        scene.Expected().MoveTo(keyCurrent, modifiers); // how far depends on the view's size
    }
}

void KeyGestures::Rename(SScene& scene, int nFirst, int nSecond)
{
    const RowKeys setSeen = scene.panel.GetSeen();
    if (setSeen.size() == 1) {
        scene.Expected().OpenEditor();
    }
    Press(scene, Qt::Key_F2);
    QLineEdit* const pEditor = FindEditor(scene);
    if (!pEditor) {
        const int nType = setSeen.size() == 1 ? setSeen.cbegin()->nType : 0;
        if (nType == NodeGroup || nType == NodeProcessor) { // on a row that is folded away it has opened and closed
            scene.Mean(SIntent::Rename);
            scene.Expected().CloseEditor(CSoakPanel::GetKey(scene.panel.Tree()->currentIndex()));
        }
        return;
    }
    pEditor->selectAll();
    QTest::keyClicks(pEditor, QString::fromLatin1(arrName[nFirst % nNames]));
    if (nSecond % 3 == 2) {
        TakeEditorAway(scene);
    } else {
        Commit(scene, pEditor, nSecond % 3 == 0);
    }
}

void KeyGestures::Delete(SScene& scene, int nFirst, int)
{
    scene.Mean(SIntent::Delete);
    if (nFirst % 4 == 0) {
        const QList<QAction*> listAction = scene.panel.Tree()->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly);
        const auto isDelete = [](const QAction* pAction) { return pAction->text() == QLatin1String("Delete"); };
        if ((*std::find_if(listAction.cbegin(), listAction.cend(), isDelete))->isEnabled()) {
            scene.Expected().Rebuild();
        }
        Press(scene, Qt::Key_Delete);
    } else {
        scene.panel.dialogs.Expect([nFirst](QDialog* pDialog) {
            if (nFirst % 4 < 3) {
                Agree(pDialog, nFirst % 4 - 1);
            }
        });
        if (BarGestures::PressButton(scene, QStringLiteral("Delete"))) {
            scene.Expected().Rebuild();
        }
    }
}

void KeyGestures::Agree(QDialog* pDialog, int nOption)
{
    const QList<QAbstractButton*> listOption = pDialog->findChildren<QAbstractButton*>(QStringLiteral("OptionButton"));
    auto* const pYes = pDialog->findChild<QAbstractButton*>(QStringLiteral("ButtonYes"));
    if (QAbstractButton* const pButton = pYes ? pYes : listOption.value(nOption)) {
        QTest::mouseClick(pButton, Qt::LeftButton);
    }
}

void KeyGestures::LetGo(SScene& scene)
{
    QTest::keyRelease(scene.panel.window.windowHandle(), Qt::Key_Shift, Qt::NoModifier);
}
