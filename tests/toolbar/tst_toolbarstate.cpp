#include "Builders.h"
#include "TestMain.h"
#include "toolbar/SToolBarState.h"

namespace {

/// nGroups groups, the first of which holds nInside processors, and nOutside processors in none.
SProcessorAllNode Tree(int nGroups, int nInside, int nOutside)
{
    SProcessorAllNode tree;
    for (int i = 0; i < nGroups; ++i) {
        tree.listGroup.append(SProcessorGroupNode());
    }
    for (int i = 0; i < nInside; ++i) {
        tree.listGroup[i % nGroups].listProcessor.append(SProcessorNode());
    }
    for (int i = 0; i < nOutside; ++i) {
        tree.listProcessor.append(SProcessorNode());
    }
    return tree;
}

} // namespace

/// Which commands a pane offers, by what it holds.
class CToolBarStateTest : public QObject
{
    Q_OBJECT

private slots:
    void aPaneOffersAddGroupAddImportAndExportByWhatItHolds_data()
    {
        QTest::addColumn<int>("groups");
        QTest::addColumn<int>("inside");
        QTest::addColumn<int>("outside");
        QTest::addColumn<bool>("simulator");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<bool>("addGroup");
        QTest::addColumn<bool>("add");
        QTest::addColumn<bool>("import");
        QTest::addColumn<bool>("export_");

        const bool s = true, d = false, lock = true, free = false, on = true, off = false;
        QTest::newRow("Discovered, empty") << 0 << 0 << 0 << d << free << on << on << on << off;
        QTest::newRow("Discovered, empty, locked") << 0 << 0 << 0 << d << lock << on << on << off << off;
        QTest::newRow("Discovered, one empty group") << 1 << 0 << 0 << d << free << on << on << on << on;
        QTest::newRow("Discovered, one processor") << 0 << 0 << 1 << d << free << on << on << on << on;
        QTest::newRow("Discovered, one in a group, locked") << 1 << 1 << 0 << d << lock << on << on << off << on;
        QTest::newRow("Discovered, 255 outside") << 0 << 0 << 255 << d << free << on << on << on << on;
        QTest::newRow("Discovered, 256 outside") << 0 << 0 << 256 << d << free << on << off << on << on;
        QTest::newRow("Discovered, 257 outside") << 0 << 0 << 257 << d << free << on << off << on << on;
        QTest::newRow("Discovered, 200 inside, 55 outside") << 9 << 200 << 55 << d << free << on << on << on << on;
        QTest::newRow("Discovered, 200 inside, 56 outside") << 9 << 200 << 56 << d << free << on << off << on << on;
        QTest::newRow("Discovered, 256 inside") << 1 << 256 << 0 << d << free << on << off << on << on;
        QTest::newRow("Discovered, 255 groups") << 255 << 0 << 0 << d << free << on << on << on << on;
        QTest::newRow("Discovered, 256 groups") << 256 << 0 << 0 << d << free << off << on << on << on;
        QTest::newRow("Discovered, 256 of 256") << 256 << 256 << 0 << d << free << off << off << on << on;
        QTest::newRow("Discovered, 2560 of 2560") << 2560 << 2560 << 0 << d << free << off << off << on << on;
        QTest::newRow("Simulator, empty") << 0 << 0 << 0 << s << free << on << on << off << off;
        QTest::newRow("Simulator, empty, locked") << 0 << 0 << 0 << s << lock << on << on << off << off;
        QTest::newRow("Simulator, one") << 0 << 0 << 1 << s << free << on << on << off << off;
        QTest::newRow("Simulator, two") << 0 << 0 << 2 << s << free << on << off << off << off;
        QTest::newRow("Simulator, one inside, one outside") << 1 << 1 << 1 << s << free << on << off << off << off;
        QTest::newRow("Simulator, two, locked") << 0 << 0 << 2 << s << lock << on << off << off << off;
        QTest::newRow("Simulator, 255 groups") << 255 << 0 << 0 << s << free << on << on << off << off;
        QTest::newRow("Simulator, 256 groups") << 256 << 0 << 0 << s << free << off << on << off << off;
    }

    void aPaneOffersAddGroupAddImportAndExportByWhatItHolds()
    {
        QFETCH(int, groups);
        QFETCH(int, inside);
        QFETCH(int, outside);
        QFETCH(bool, simulator);
        QFETCH(bool, locked);

        const SToolBarState state = SToolBarState::Compute(Tree(groups, inside, outside), simulator, locked);

        QTEST(state.bAddGroup, "addGroup");
        QTEST(state.bAddProcessor, "add");
        QTEST(state.bImport, "import");
        QTEST(state.bExport, "export_");
    }
};

PTV_TEST_MAIN_CORE(CToolBarStateTest)
#include "tst_toolbarstate.moc"
