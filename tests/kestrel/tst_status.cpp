#include "CWindowFixture.h"
#include "Kestrel/SKestrelOptions.h"
#include "Kestrel/journal/CJournalField.h"
#include "Kestrel/journal/CRunJournal.h"
#include "Kestrel/status/CElidedLabel.h"
#include "TestMain.h"

#include <QAccessible>
#include <QStatusBar>

namespace {

/// A window with what a test asks of its status bar.
class CStatusWindow : public CWindowFixture
{
public:
    /// The list's place holds these bytes; nothing when there are none.
    explicit CStatusWindow(const QByteArray& bytes = {})
        : CWindowFixture([bytes](const QString& strList) { Write(strList, bytes); })
    { }

    /// A folder stands where the list belongs while a change of it is saved.
    void FailToSave()
    {
        QVERIFY(QFile::remove(ListPath()) || !QFile::exists(ListPath()));
        QVERIFY(QDir().mkdir(ListPath()));
        AddGroup("Night shift");
        ExpectWarning("The list is not being saved.*");
        QVERIFY(!pHost->SaveList().isEmpty());
    }

    CElidedLabel* Trouble() const
    {
        return window.findChild<CElidedLabel*>("TroubleBadge");
    }

private:
    static void Write(const QString& strList, const QByteArray& bytes)
    {
        QFile file(strList);
        if (!bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) > 0) {
            ExpectWarning("The list was not read.*");
        }
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
        const CStatusWindow scene;
        QVERIFY(!scene.Trouble()->isVisible());
    }

    void aListThatWasNotReadIsShownWithTheReason()
    {
        const CStatusWindow scene("hello");

        QVERIFY(scene.Trouble()->isVisible());
        const QString strText = scene.Trouble()->text();
        QVERIFY2(strText.startsWith("List not read: " + scene.ListPath()), qPrintable(strText));
        QVERIFY2(strText.endsWith("not a list file"), qPrintable(strText));
        QVERIFY(scene.Trouble()->toolTip().contains("not a list file"));
    }

    void aListThatIsNotSavedIsShownForAsLongAsItIsSo()
    {
        CStatusWindow scene;
        scene.FailToSave();

        QTRY_VERIFY(scene.Trouble()->isVisible());
        QVERIFY2(scene.Trouble()->text().startsWith("List not saved: "), qPrintable(scene.Trouble()->text()));
        scene.window.statusBar()->showMessage("Something else");
        QVERIFY(scene.Trouble()->isVisible());

        QVERIFY(QDir().rmdir(scene.ListPath()));
        QCOMPARE(scene.pHost->SaveList(), QString());
        QTRY_VERIFY(!scene.Trouble()->isVisible());
    }

    void aJournalThatIsNotWrittenIsShownForAsLongAsItIsSo()
    {
        CStatusWindow scene;
        QWidget panel;
        scene.window.SetPanel(&panel);
        const SKestrelOptions options;
        CRunJournal journal(options);
        journal.Listen(scene.log);
        QFile file(scene.ListPath() + ".journal");
        QVERIFY(file.open(QIODevice::WriteOnly));
        journal.Open(scene.pointers, scene.language, scene.theme);
        journal.Follow(scene.window, scene.language, scene.theme);
        auto* pField = scene.window.findChild<CJournalField*>();

        QTRY_VERIFY(pField->isVisible());
        QVERIFY2(pField->text().startsWith("Journal not written: ") && pField->text().contains(file.fileName()),
                 qPrintable(pField->text()));
        scene.language.Set("de");
        QTRY_VERIFY(pField->text().startsWith("Journal wird nicht geschrieben: "));
        scene.language.Set("en");
        QVERIFY(file.remove());
        scene.log.Write(RecordNote, "Library", "another line, another attempt");
        QTRY_VERIFY(!pField->isVisible());
        journal.Leave();
        scene.log.SetRecorder(nullptr);
    }

    void theReasonFollowsTheLanguage()
    {
        CStatusWindow scene("hello");

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
};

PTV_TEST_MAIN(CStatusTest)
#include "tst_status.moc"
