#include "play/RowGestures.h"

#include "CMenuDriver.h"
#include "play/KeyGestures.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTreeView>
#include <QWindow>
#include <QtTest>

namespace {

constexpr Qt::KeyboardModifiers arrModifier[]
    = { Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier, Qt::ControlModifier | Qt::ShiftModifier };

QPoint Reach(SScene& scene, int nRow)
{
    const QModelIndex index = scene.panel.GetRow(nRow);
    scene.panel.Tree()->scrollTo(index);
    return scene.panel.Tree()->visualRect(index).center();
}

bool HasMark(const SPanelPicture& picture, int nRow)
{
    const int nNext = nRow + 1;
    const int nDepth = picture.vecRow.at(nRow).nDepth;
    for (int n = nNext; n < picture.vecRow.size() && picture.vecRow.at(n).nDepth > nDepth; ++n) {
        if (!picture.vecRow.at(n).bHidden) {
            return true;
        }
    }
    return false;
}

void Click(SScene& scene, int nFirst, int nSecond)
{
    const int nRow = scene.PickRow(nSecond);
    const Qt::KeyboardModifiers modifiers = arrModifier[nFirst % 4];
    scene.Expected().Press(scene.before.vecRow.at(nRow).key, modifiers);
    QTest::mouseClick(scene.panel.Tree()->viewport(), Qt::LeftButton, modifiers, Reach(scene, nRow));
}

// Two processors, or one.
void ClickProcessors(SScene& scene, int nFirst, int nSecond)
{
    QVector<int> vecRow = PanelPicture::GetLaidOut(scene.before);
    const auto isOther = [&](int n) { return scene.before.vecRow.at(n).key.nType != NodeProcessor; };
    vecRow.erase(std::remove_if(vecRow.begin(), vecRow.end(), isOther), vecRow.end());
    if (vecRow.isEmpty()) {
        return;
    }
    for (const int nNumber : { nFirst, nSecond }) {
        const int nRow = vecRow.at(nNumber % vecRow.size());
        const Qt::KeyboardModifiers modifiers = nNumber == nFirst ? Qt::NoModifier : Qt::ControlModifier;
        scene.Expected().Press(scene.before.vecRow.at(nRow).key, modifiers);
        QTest::mouseClick(scene.panel.Tree()->viewport(), Qt::LeftButton, modifiers, Reach(scene, nRow));
    }
}

// By its mark, or by a double click.
void Fold(SScene& scene, int nFirst, int nSecond)
{
    const int nRow = scene.PickRow(nSecond);
    QTreeView* const pTree = scene.panel.Tree();
    QPoint pos = Reach(scene, nRow);
    const bool bByMark = nFirst % 2 == 0;
    if (bByMark) {
        pos.setX(pTree->visualRect(scene.panel.GetRow(nRow)).left() - pTree->indentation() / 2);
    }
    if (!bByMark || !HasMark(scene.before, nRow)) {
        scene.Expected().Press(scene.before.vecRow.at(nRow).key, Qt::NoModifier);
    }
    QTest::mouseClick(pTree->viewport(), Qt::LeftButton, {}, pos);
    if (!bByMark) {
        QTest::mouseDClick(pTree->viewport(), Qt::LeftButton, {}, pos);
        QTest::mouseRelease(pTree->viewport(), Qt::LeftButton, {}, pos);
    }
}

SIntent::EnKind GetIntent(const QString& strEntry)
{
    static const QHash<QString, SIntent::EnKind> hashKind{
        { QStringLiteral("Delete"), SIntent::Delete },
        { QStringLiteral("Group"), SIntent::Group },
        { QStringLiteral("Ungroup"), SIntent::Ungroup },
        { QStringLiteral("Move to group"), SIntent::Group },
        { QStringLiteral("Remove from group"), SIntent::RemoveFromGroup },
    };
    return hashKind.value(strEntry, SIntent::Nothing);
}

void CloseMenus()
{
    while (QWidget* const pMenu = QApplication::activePopupWidget()) {
        pMenu->close();
    }
}

// Of the entries that can be chosen; one choice more is none of them.
void Choose(SScene& scene, QMenu* pMenu, int nChoice)
{
    QStringList listEntry;
    for (const QAction* const pAction : pMenu->actions()) {
        if (pAction->isEnabled() && pAction->text() != QLatin1String("Rename")) {
            listEntry.append(pAction->text());
        }
    }
    const QString strEntry = listEntry.value(nChoice % (listEntry.size() + 1));
    scene.Mean(GetIntent(strEntry));
    QStringList listPath{ strEntry };
    for (const QAction* const pAction : pMenu->actions()) {
        if (pAction->text() == strEntry && pAction->menu()) {
            const QList<QAction*> listGroup = pAction->menu()->actions();
            listPath.append(listGroup.at(nChoice % listGroup.size())->text());
        }
    }
    if (strEntry == QLatin1String("Group")) {
        scene.Expected().EndSuppression();
    }
    if (!strEntry.isEmpty()) {
        CMenuDriver::Choose(pMenu, listPath);
    }
    CloseMenus();
}

int PickSelected(const SScene& scene, int nNumber)
{
    QVector<int> vecRow = PanelPicture::GetLaidOut(scene.before);
    const auto isOther = [&](int n) { return !scene.before.vecRow.at(n).bSelected; };
    vecRow.erase(std::remove_if(vecRow.begin(), vecRow.end(), isOther), vecRow.end());
    return vecRow.isEmpty() ? scene.PickRow(nNumber) : vecRow.at(nNumber % vecRow.size());
}

// A right click, and what its menu offers. Deleting is agreed to.
void ChooseInMenu(SScene& scene, int nFirst, int nSecond)
{
    const int nRow = nFirst % 2 == 0 ? scene.PickRow(nSecond) : PickSelected(scene, nSecond);
    const Qt::KeyboardModifiers modifiers = nFirst % 5 == 0 ? Qt::ControlModifier : Qt::NoModifier;
    scene.Expected().PressRight(scene.before.vecRow.at(nRow).key, modifiers);
    scene.panel.dialogs.Expect([](QDialog* pDialog) { KeyGestures::Agree(pDialog, 0); });
    const CMenuDriver menuDriver([&](QMenu* pMenu) { Choose(scene, pMenu, nFirst); });
    const QPoint pos = scene.panel.Tree()->viewport()->mapTo(&scene.panel.window, Reach(scene, nRow));
    QTest::mouseClick(scene.panel.window.windowHandle(), Qt::RightButton, modifiers, pos);
    KeyGestures::LetGo(scene);
}

QMimeData* PackRows(bool bAllow)
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << bAllow;
    auto* const pMime = new QMimeData;
    pMime->setData(QStringLiteral("PROCESSOR DATA"), bytes);
    return pMime;
}

// What is selected is dropped on a row.
void Drag(SScene& scene, int, int nSecond)
{
    const RowKeys setSeen = scene.panel.GetSeen();
    const bool bAllow = std::none_of(setSeen.cbegin(), setSeen.cend(),
                                     [](const SPictureKey& key) { return key.nType == NodeGroup || key.nType == NodeAll; });
    const QScopedPointer<QMimeData> pMime(PackRows(bAllow));
    const int nRow = scene.PickRow(nSecond);
    const QPoint pos = Reach(scene, nRow);
    QWidget* const pViewport = scene.panel.Tree()->viewport();
    QDragEnterEvent enter(pos, Qt::MoveAction, pMime.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pViewport, &enter);
    if (!enter.isAccepted() || setSeen.isEmpty()) {
        return;
    }
    if (scene.before.vecRow.at(nRow).key.nType != NodeInfo) { // which takes no drop
        scene.Mean(SIntent::Group);
    }
    QDragMoveEvent move(pos, Qt::MoveAction, pMime.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pViewport, &move);
    QDropEvent drop(pos, Qt::MoveAction, pMime.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pViewport, &drop);
}

} // namespace

std::vector<SVerb> RowGestures::GetVerbs()
{
    return {
        { "click", 16, &Click },
        { "pick", 6, &ClickProcessors },
        { "fold", 8, &Fold },
        { "menu", 10, &ChooseInMenu },
        { "drag", 6, &Drag },
        { "key", 12, &KeyGestures::PressKey },
        { "rename", 4, &KeyGestures::Rename },
        { "delete", 3, &KeyGestures::Delete },
    };
}
