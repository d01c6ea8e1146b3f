#include "play/BarGestures.h"

#include "Builders.h"
#include "CorvidControl/file/ListFormat.h"
#include "interfaces/widgets/CSearchBox.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

#include <algorithm>

namespace {

constexpr const char* arrText[] = { "", "a", "KX-4", "10.0.1", "Stage", "zzz", "Hall", "loose" };
constexpr int nTexts = sizeof(arrText) / sizeof(arrText[0]);
constexpr int nSelectAll = 18;

template <typename Part, typename FnIs> Part* Find(const SScene& scene, FnIs fnIs)
{
    const QList<Part*> listPart = scene.panel.View()->findChildren<Part*>();
    const auto it = std::find_if(listPart.begin(), listPart.end(), fnIs);
    return it == listPart.end() ? nullptr : *it;
}

void TriggerEntry(SScene& scene, const QString& strText)
{
    QAction* const pAction = Find<QAction>(scene, [&](const QAction* pThis) { return pThis->text() == strText; });
    pAction->trigger(); // does nothing while it is disabled
}

void ClickPart(SScene& scene, const QString& strName)
{
    QTest::mouseClick(scene.panel.View()->findChild<QToolButton*>(strName), Qt::LeftButton);
}

void Search(SScene& scene, int nFirst, int)
{
    const QString strText = QString::fromLatin1(arrText[nFirst % nTexts]);
    if (strText.isEmpty()) {
        ClickPart(scene, QStringLiteral("CloseSearchBox"));
        return;
    }
    TriggerEntry(scene, QStringLiteral("Search"));
    auto* const pEdit = scene.panel.SearchBox()->findChild<QLineEdit*>();
    pEdit->selectAll();
    QTest::keyClicks(pEdit, strText);
}

void ChooseTab(SScene& scene, int nFirst, int)
{
    const bool bSimulator = nFirst % 2 == 1;
    const QString strPosition = bSimulator ? QStringLiteral("middle") : QStringLiteral("first");
    const auto isTab = [&](const QPushButton* pThis) {
        return pThis->objectName() == QLatin1String("Tab") && pThis->property("Position") == strPosition;
    };
    if (bSimulator != scene.before.bSimulator) {
        scene.arrExpected[bSimulator ? 1 : 0].Rebuild();
    }
    QTest::mouseClick(Find<QPushButton>(scene, isTab), Qt::LeftButton);
}

// A group, or what the pane takes: accepted or not.
void Add(SScene& scene, int nFirst, int)
{
    if (nFirst % 3 == 0) {
        BarGestures::PressButton(scene, QStringLiteral("Add group"));
        return;
    }
    const QString strPart = nFirst % 3 == 1 ? QStringLiteral("DialogAccept") : QStringLiteral("DialogReject");
    scene.panel.dialogs.Expect([strPart](QDialog* pDialog) {
        if (auto* const pButton = pDialog->findChild<QAbstractButton*>(strPart)) {
            QTest::mouseClick(pButton, Qt::LeftButton);
        }
    });
    BarGestures::PressButton(scene,
                             scene.before.bSimulator ? QStringLiteral("Add simulators") : QStringLiteral("Add a processor"));
}

QString WriteList(const SScene& scene, bool bGood)
{
    const QString strPath = scene.panel.GetPath(QStringLiteral("import.kvtl"));
    const SProcessorAllNode node
        = Root({ Group("Stage", { Processor("alpha").Ip("10.0.0.1").Type(12, "KX-4").Online(), Processor("new").Ip("10.0.3.1") }),
                 Group("Loft", { Processor("epsilon").Ip("10.0.3.2") }).Expanded(false) },
               { Processor("loose").Ip("10.0.1.5").Expanded(false) });
    QFile file(strPath);
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("%s", qPrintable(file.errorString()));
    }
    file.write(bGood ? ListFormat::Write(node) : QByteArray("no list"));
    return strPath;
}

void ChooseFile(QDialog* pDialog, const QString& strPath)
{
    if (auto* const pName = pDialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        pName->setText(strPath);
        QTest::keyClick(pName, Qt::Key_Return);
    }
}

void AgreeToAll(QDialog* pDialog)
{
    if (auto* const pYes = pDialog->findChild<QAbstractButton*>(QStringLiteral("ButtonYes"))) {
        QTest::mouseClick(pYes, Qt::LeftButton);
    }
}

void Import(SScene& scene, int nFirst, int)
{
    const SProcessorAllNode& node = scene.before.arrTree[0];
    const QString strPath = WriteList(scene, nFirst % 3 != 0);
    if (!node.listGroup.isEmpty() || !node.listProcessor.isEmpty()) {
        scene.panel.dialogs.Expect(&AgreeToAll);
    }
    scene.panel.dialogs.Expect([strPath](QDialog* pDialog) { ChooseFile(pDialog, strPath); });
    TriggerEntry(scene, QStringLiteral("Import"));
}

void Export(SScene& scene, int nFirst, int)
{
    QFile::remove(scene.panel.GetPath(QStringLiteral("export.kvtl")));
    const QString strPath = nFirst % 3 == 0 ? QString() : scene.panel.GetPath(QStringLiteral("export.kvtl"));
    scene.panel.dialogs.Expect([strPath](QDialog* pDialog) { ChooseFile(pDialog, strPath); });
    TriggerEntry(scene, QStringLiteral("Export"));
}

void Refresh(SScene& scene, int, int)
{
    ClickPart(scene, QStringLiteral("IconButtonTitle"));
}

void SelectAll(SScene& scene, int, int)
{
    scene.panel.Tree()->setFocus();
    if (scene.panel.Tree()->hasFocus()) { // the host's menu means who has the keys
        scene.Expected().SelectAll();
    }
    QMetaObject::invokeMethod(scene.panel.View(), "DealMenuBar", Q_ARG(int, nSelectAll), Q_ARG(QVariant, true));
}

// A screen reader begins to listen, or ends.
void SwitchReader(SScene& scene, int nFirst, int)
{
    scene.pReader.reset();
    if (nFirst % 2 == 0) {
        scene.pReader = std::make_unique<CScreenReader>();
    }
}

} // namespace

std::vector<SVerb> BarGestures::GetVerbs()
{
    return {
        { "search", 5, &Search }, { "tab", 4, &ChooseTab },   { "add", 4, &Add },       { "import", 1, &Import },
        { "export", 1, &Export }, { "refresh", 2, &Refresh }, { "all", 1, &SelectAll }, { "reader", 1, &SwitchReader },
    };
}

bool BarGestures::PressButton(SScene& scene, const QString& strToolTip)
{
    QToolButton* const pButton
        = Find<QToolButton>(scene, [&](const QToolButton* pThis) { return pThis->toolTip() == strToolTip; });
    if (!pButton || !pButton->isEnabled()) {
        return false;
    }
    QTest::mouseClick(pButton, Qt::LeftButton);
    return true;
}
