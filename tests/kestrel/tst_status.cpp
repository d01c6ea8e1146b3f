#include "CorvidControl/objects/CControlHost.h"
#include "Kestrel/CElidedLabel.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "journal/CCallLog.h"
#include "nodes/SProcessorGroupNode.h"

#include <QAccessible>
#include <QStatusBar>
#include <QTemporaryDir>

namespace {

constexpr char szList[] = "list.kvtl";

SControlOptions Options(const QTemporaryDir& folder)
{
    SControlOptions options;
    options.strListFile = folder.filePath(szList);
    options.bQuietDay = false;
    return options;
}

/// A shown window on a real control library.
class CScene
{
public:
    /// The list's place holds these bytes; nothing when there are none.
    explicit CScene(const QByteArray& bytes = {}) : pHost(Start(bytes))
    {
        window.show();
    }

    /// A folder stands where the list belongs while a change of it is saved.
    void FailToSave()
    {
        QVERIFY(QFile::remove(folder.filePath(szList)) || !QFile::exists(folder.filePath(szList)));
        QVERIFY(QDir(folder.path()).mkdir(szList));
        SProcessorGroupNode group;
        group.idNode = QUuid::createUuid();
        group.strName = "Night shift";
        g_pPrcListControl->AddGroup(group, true);
        ExpectWarning("The list is not being saved.*");
        QVERIFY(!pHost->SaveList().isEmpty());
    }

    CElidedLabel* Trouble() const
    {
        return window.findChild<CElidedLabel*>();
    }

    QTemporaryDir folder;
    std::unique_ptr<CControlHost> pHost;
    CCallLog log{ 64 };
    CLanguage language;
    CTheme theme;
    CMainWindow window{ *pHost, log, language, theme };

private:
    std::unique_ptr<CControlHost> Start(const QByteArray& bytes) const
    {
        QFile file(folder.filePath(szList));
        if (!bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) > 0) {
            file.close();
            ExpectWarning("The list was not read.*");
        }
        return CControlHost::Start(Options(folder));
    }
};

} // namespace

/// What the status bar says about the list's file.
class CStatusTest : public QObject
{
    Q_OBJECT

private slots:
    void aGoodListIsNotTalkedAbout()
    {
        const CScene scene;
        QVERIFY(!scene.Trouble()->isVisible());
    }

    void aListThatWasNotReadIsShownWithTheReason()
    {
        const CScene scene("hello");

        QVERIFY(scene.Trouble()->isVisible());
        const QString strText = scene.Trouble()->text();
        QVERIFY2(strText.startsWith("List not read: " + scene.folder.filePath(szList)), qPrintable(strText));
        QVERIFY2(strText.endsWith("not a list file"), qPrintable(strText));
        QVERIFY(scene.Trouble()->toolTip().contains("not a list file"));
    }

    void aListThatIsNotSavedIsShownForAsLongAsItIsSo()
    {
        CScene scene;
        scene.FailToSave();

        QTRY_VERIFY(scene.Trouble()->isVisible());
        QVERIFY2(scene.Trouble()->text().startsWith("List not saved: "), qPrintable(scene.Trouble()->text()));
        scene.window.statusBar()->showMessage("Something else");
        QVERIFY(scene.Trouble()->isVisible());

        QVERIFY(QDir(scene.folder.path()).rmdir(szList));
        QCOMPARE(scene.pHost->SaveList(), QString());
        QTRY_VERIFY(!scene.Trouble()->isVisible());
    }

    void theReasonFollowsTheLanguage()
    {
        CScene scene("hello");

        scene.language.Set("de");
        QTRY_VERIFY(scene.Trouble()->text().startsWith("Liste nicht gelesen: "));

        scene.language.Set("en");
        QTRY_VERIFY(scene.Trouble()->text().startsWith("List not read: "));
    }

    void aReasonThatDoesNotFitIsElidedInItsMiddle()
    {
        const QString strWhole = "List not saved: /a/rather/long/way/to/the/list/of/the/studio.kvtl: Permission denied";
        CElidedLabel label;
        label.setText(strWhole);
        label.resize(label.minimumSizeHint());
        QLabel shown(label.fontMetrics().elidedText(strWhole, Qt::ElideMiddle, label.contentsRect().width()));
        shown.resize(label.size());

        QVERIFY(label.width() < label.sizeHint().width() / 2);
        QVERIFY(shown.text().startsWith("List ") && shown.text().endsWith("denied"));
        QCOMPARE(label.grab().toImage(), shown.grab().toImage());
        QCOMPARE(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), strWhole);
    }

    void nothingInTheSmallestWindowIsClipped()
    {
        CScene scene("hello");
        scene.pHost->SetChiefMode(true);
        scene.pHost->SetListLocked(true);
        scene.pHost->SetRefreshBlocked(true);
        const QStatusBar* pBar = scene.window.statusBar();
        QTRY_COMPARE(pBar->findChildren<QLabel*>("Badge").size(), 4);
        scene.window.resize(scene.window.minimumSizeHint());
        QCoreApplication::processEvents();

        for (const QLabel* pLabel : pBar->findChildren<QLabel*>()) {
            const QRect rect(pLabel->mapTo(pBar, QPoint()), pLabel->size());
            QVERIFY2(pBar->rect().contains(rect), qPrintable(pLabel->text()));
            QVERIFY2(pLabel->width() >= pLabel->minimumSizeHint().width(), qPrintable(pLabel->text()));
        }
    }
};

PTV_TEST_MAIN(CStatusTest)
#include "tst_status.moc"
