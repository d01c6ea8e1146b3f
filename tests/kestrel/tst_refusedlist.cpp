#include "CDialogDriver.h"
#include "CDoubledWindow.h"
#include "CWindowFixture.h"
#include "TestMain.h"

#include <QAction>
#include <QLabel>

namespace {

QAction* Entry(const CMainWindow& window)
{
    const QList<QAction*> listAction = window.findChildren<QAction*>();
    for (QAction* pAction : listAction) {
        if (pAction->text() == "Use this list &nevertheless…") {
            return pAction;
        }
    }
    return nullptr;
}

void PrepareRefused(CHostDouble& host)
{
    host.strListError = "/lists/own.kvtl: the sum is wrong";
    host.refused.strPath = "/lists/own.kvtl";
    host.refused.bUsable = true;
    host.refused.nGroups = 1;
    host.refused.nProcessors = 12;
    host.refused.listFault = QStringList{ "the sum is wrong", "a name is empty" };
}

} // namespace

/// The list that was refused at the start.
class CRefusedListTest : public QObject
{
    Q_OBJECT

private slots:
    void theEntryIsThereOnlyWhenAListWasRefused()
    {
        const CDoubledWindow good;
        QVERIFY(!Entry(*good.pWindow)->isVisible());
        const CDoubledWindow refused(&PrepareRefused);
        QVERIFY(Entry(*refused.pWindow)->isVisible());
    }

    void aLibraryWithoutListsOfItsOwnHasNoEntry()
    {
        const CDoubledWindow scene([](CHostDouble& host) {
            PrepareRefused(host);
            host.bRestorable = false;
        });
        QVERIFY(!Entry(*scene.pWindow)->isVisible());
    }

    void itSaysWhatIsWrongAndTakesTheList()
    {
        CDoubledWindow scene(&PrepareRefused);
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        Entry(*scene.pWindow)->trigger();
        QTRY_VERIFY(driver.IsDone());

        const QString strShown = driver.Shown().value(0).remove(QChar(0x200B));
        QVERIFY2(strShown.startsWith("Refused list: The list was refused at the start:\n/lists/own.kvtl"), qPrintable(strShown));
        QVERIFY2(!strShown.contains("the sum"), qPrintable(strShown)); // English, in every language: the journal has it
        QVERIFY2(strShown.contains("What can be read: 1 group, 12 processors; 2 faults."), qPrintable(strShown));
        QTRY_COMPARE(scene.host.Calls(), QStringList{ "use refused" });
        QTRY_VERIFY(!Entry(*scene.pWindow)->isVisible());
    }

    void noLeavesItAlone_data()
    {
        QTest::addColumn<QString>("strAnswer");
        QTest::newRow("no") << "ButtonNo";
        QTest::newRow("the default") << "key Return";
        QTest::newRow("Escape") << "key Escape";
    }

    void noLeavesItAlone()
    {
        QFETCH(QString, strAnswer);
        CDoubledWindow scene(&PrepareRefused);
        CDialogDriver driver;
        driver.Answer(strAnswer);
        Entry(*scene.pWindow)->trigger();
        QTRY_VERIFY(driver.IsDone());
        QCOMPARE(scene.host.Calls(), QStringList());
        QVERIFY(Entry(*scene.pWindow)->isVisible());
    }

    void whatCannotBeReadIsNotOffered()
    {
        CDoubledWindow scene([](CHostDouble& host) {
            PrepareRefused(host);
            host.refused.bUsable = false;
        });
        CDialogDriver driver;
        driver.Answer("ButtonOk");
        Entry(*scene.pWindow)->trigger();
        QTRY_VERIFY(driver.IsDone());
        QVERIFY(driver.Shown().value(0).contains("Nothing of it can be read."));
    }

    void theRealLibraryTakesWhatItCanRead()
    {
        const auto prepare = [](const QString& strList) {
            QVERIFY(QFile::copy(EXAMPLES_FOLDER "/studio.kvtl", strList));
            QFile file(strList);
            file.setPermissions(file.permissions() | QFile::WriteOwner);
            QVERIFY(file.open(QIODevice::ReadWrite));
            QByteArray bytes = file.readAll();
            bytes.replace("Floor", "Flood"); // the sum is wrong now
            file.resize(0);
            file.write(bytes);
            ExpectWarning("The list was not read.*");
        };
        CWindowFixture scene(prepare);
        QVERIFY(Entry(scene.window)->isVisible());
        CDialogDriver driver;
        driver.Answer("ButtonYes");
        Entry(scene.window)->trigger();

        QTRY_VERIFY(scene.pHost->GetListError().isEmpty());
        QVERIFY(driver.IsDone());
        QVERIFY(!scene.pHost->GetSnapshot().discovered.listGroup.isEmpty());
        QTRY_VERIFY(!Entry(scene.window)->isVisible());
        QTRY_VERIFY(!scene.window.findChild<QLabel*>("TroubleBadge")->isVisible());
    }
};

PTV_TEST_MAIN(CRefusedListTest)
#include "tst_refusedlist.moc"
