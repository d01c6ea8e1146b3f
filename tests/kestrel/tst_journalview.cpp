#include "Kestrel/journal/CJournalDock.h"
#include "Kestrel/journal/CJournalFilter.h"
#include "Kestrel/journal/CJournalModel.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "journal/CCallLog.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QToolButton>
#include <QTreeView>

namespace {

std::vector<SCallRecord> Records(int nFirst, int nCount)
{
    std::vector<SCallRecord> vecRecord;
    for (int n = nFirst; n < nFirst + nCount; ++n) {
        vecRecord.push_back({ static_cast<quint64>(n), 0, n % 2, n % 2 ? RecordRead : RecordCommand, "RuntimeControl",
                              QStringLiteral("Call%1()").arg(n) });
    }
    return vecRecord;
}

QStringList Column(const QAbstractItemModel& model, int nColumn)
{
    QStringList listText;
    for (int n = 0; n < model.rowCount(); ++n) {
        listText.append(model.index(n, nColumn).data().toString());
    }
    return listText;
}

} // namespace

class CJournalViewTest : public QObject
{
    Q_OBJECT

private slots:
    void theOldestRowsGoWhenThereAreTooMany_data()
    {
        QTest::addColumn<QList<int>>("listBatch");
        QTest::addColumn<QStringList>("listLeft");

        QTest::newRow("fits") << QList<int>{ 2, 1 } << QStringList{ "Call0()", "Call1()", "Call2()" };
        QTest::newRow("one too many") << QList<int>{ 3, 1 } << QStringList{ "Call1()", "Call2()", "Call3()" };
        QTest::newRow("all are new") << QList<int>{ 2, 3 } << QStringList{ "Call2()", "Call3()", "Call4()" };
        QTest::newRow("more than fit") << QList<int>{ 1, 9 } << QStringList{ "Call7()", "Call8()", "Call9()" };
        QTest::newRow("none") << QList<int>{ 1, 0 } << QStringList{ "Call0()" };
    }

    void theOldestRowsGoWhenThereAreTooMany()
    {
        QFETCH(QList<int>, listBatch);
        QFETCH(QStringList, listLeft);
        CJournalModel model(3, nullptr);
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        int nNext = 0;
        for (const int nCount : std::as_const(listBatch)) {
            model.Append(Records(nNext, nCount));
            nNext += nCount;
        }
        QCOMPARE(Column(model, CJournalModel::ColumnCall), listLeft);
    }

    void aBatchIsOneInsertion()
    {
        CJournalModel model(100, nullptr);
        QSignalSpy spyInserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy spyRemoved(&model, &QAbstractItemModel::rowsRemoved);
        model.Append(Records(0, 90));
        model.Append(Records(90, 60));
        QCOMPARE(spyInserted.count(), 2);
        QCOMPARE(spyRemoved.count(), 1);
    }

    void readingCallsAreHiddenUntilTheyAreAskedFor()
    {
        CJournalModel model(100, nullptr);
        CJournalFilter filter(nullptr);
        const QAbstractItemModelTester tester(&filter, QAbstractItemModelTester::FailureReportingMode::Fatal);
        filter.setSourceModel(&model);
        model.Append(Records(0, 4));
        QCOMPARE(Column(filter, CJournalModel::ColumnCall), (QStringList{ "Call0()", "Call2()" }));
        filter.SetReadsShown(true);
        QCOMPARE(filter.rowCount(), 4);
        QCOMPARE(Column(filter, CJournalModel::ColumnThread), (QStringList{ "GUI", "1", "GUI", "1" }));
    }

    void theFilterLooksAtObjectAndCallInAnyCase()
    {
        CJournalModel model(100, nullptr);
        CJournalFilter filter(nullptr);
        filter.setSourceModel(&model);
        filter.SetReadsShown(true);
        model.Append(Records(0, 4));
        filter.SetText("call3");
        QCOMPARE(Column(filter, CJournalModel::ColumnCall), QStringList{ "Call3()" });
        filter.SetText("runtime");
        QCOMPARE(filter.rowCount(), 4);
    }

    void theDockShowsWhatIsWrittenAndStaysAtTheEnd()
    {
        CCallLog log(4096);
        CJournalDock dock(log, CTheme(), nullptr);
        dock.resize(600, 200);
        dock.show();
        const auto* pView = dock.findChild<QTreeView*>("Journal");

        for (int n = 0; n < 50; ++n) {
            log.Write(RecordCommand, "RuntimeControl", QStringLiteral("SetBusy(true) %1").arg(n));
        }

        QTRY_COMPARE(pView->model()->rowCount(), 50);
        QVERIFY(pView->viewport()->rect().intersects(pView->visualRect(pView->model()->index(49, 0))));
    }

    void whatWasWrittenWhileTheDockWasShutIsSeenFromItsEnd_data()
    {
        QTest::addColumn<bool>("bShownBefore");
        QTest::newRow("never open") << false;
        QTest::newRow("open before") << true;
    }

    void whatWasWrittenWhileTheDockWasShutIsSeenFromItsEnd()
    {
        QFETCH(bool, bShownBefore);
        CCallLog log(4096);
        CJournalDock dock(log, CTheme(), nullptr);
        dock.resize(600, 200);
        dock.setVisible(bShownBefore);
        dock.hide();
        const auto* pView = dock.findChild<QTreeView*>("Journal");

        for (int n = 0; n < 50; ++n) {
            log.Write(RecordCommand, "RuntimeControl", QStringLiteral("SetBusy(true) %1").arg(n));
        }
        QCoreApplication::processEvents(); // the dock has heard of them
        dock.show();

        QTRY_COMPARE(pView->model()->rowCount(), 50);
        QTRY_VERIFY(pView->viewport()->rect().intersects(pView->visualRect(pView->model()->index(49, 0))));
    }

    void aStormLeavesTheDockBoundedAndAtTheNewest()
    {
        CCallLog log(4096);
        CJournalDock dock(log, CTheme(), nullptr);
        dock.show();
        auto* pReads = dock.findChild<QCheckBox*>();
        pReads->setChecked(true);
        const auto* pModel = dock.findChild<QTreeView*>("Journal")->model();

        for (int n = 1; n <= 100000; ++n) {
            log.Write(RecordRead, "RuntimeControl", QString::number(n));
        }

        const auto GetNewest = [&] { return pModel->index(pModel->rowCount() - 1, CJournalModel::ColumnCall).data().toString(); };
        QTRY_COMPARE(GetNewest(), QStringLiteral("100000"));
        QCOMPARE(pModel->rowCount(), 2000);
    }

    void aWideColumnDoesNotWidenTheDock()
    {
        CCallLog log(16);
        CJournalDock dock(log, CTheme(), nullptr);
        dock.show();
        auto* pView = dock.findChild<QTreeView*>("Journal");
        const int nLeast = pView->minimumWidth();
        pView->setColumnWidth(CJournalModel::ColumnObject, 900);
        dock.hide();
        dock.show();
        QCOMPARE(pView->minimumWidth(), nLeast);
        QCOMPARE(pView->columnWidth(CJournalModel::ColumnObject), 900);
    }

    void clearEmptiesTheDock()
    {
        CCallLog log(16);
        CJournalDock dock(log, CTheme(), nullptr);
        dock.show();
        const auto* pModel = dock.findChild<QTreeView*>("Journal")->model();
        log.Write(RecordCommand, "RuntimeControl", "one");
        QTRY_COMPARE(pModel->rowCount(), 1);

        QTest::mouseClick(dock.findChild<QToolButton*>("JournalClear"), Qt::LeftButton);
        QCOMPARE(pModel->rowCount(), 0);

        log.Write(RecordCommand, "RuntimeControl", "two");
        QTRY_COMPARE(Column(*pModel, CJournalModel::ColumnCall), QStringList{ "two" });
    }
};

PTV_TEST_MAIN(CJournalViewTest)
#include "tst_journalview.moc"
