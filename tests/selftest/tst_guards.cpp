#include "TestMain.h"

#include <QProcess>

namespace {

int RunProbe(const QString& strRule, QString& strOutput)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(GUARD_PROBE), { strRule });
    const bool bEnded = process.waitForFinished(3 * nPatience) && process.exitStatus() == QProcess::NormalExit;
    strOutput = QString::fromUtf8(process.readAll());
    return bEnded ? process.exitCode() : -1;
}

} // namespace

/// A test program fails when its test leaves something behind or warns, even when all its checks hold.
class CGuardsTest : public QObject
{
    Q_OBJECT

private slots:
    void orderlyTestPasses()
    {
        QString strOutput;
        QVERIFY2(RunProbe(QStringLiteral("nothing"), strOutput) == 0, qPrintable(strOutput));
    }

    void brokenRuleFailsTheProgram_data()
    {
        QTest::addColumn<QString>("strMessage");
        QTest::newRow("warning") << "unexpected message in probe: a surprise";
        QTest::newRow("warningOnAThread") << "unexpected message in the run: a surprise";
        QTest::newRow("missingWarning") << "expected message did not come: never said";
        QTest::newRow("widget") << "left over: widget QWidget lost widget";
        QTest::newRow("thread") << "left over: thread lost thread";
    }

    void brokenRuleFailsTheProgram()
    {
        QFETCH(QString, strMessage);
        QString strOutput;
        const int nResult = RunProbe(QString::fromLatin1(QTest::currentDataTag()), strOutput);
        QVERIFY2(nResult > 0, qPrintable(strOutput));
        QVERIFY2(strOutput.contains(strMessage), qPrintable(strOutput));
    }
};

PTV_TEST_MAIN_CORE(CGuardsTest)
#include "tst_guards.moc"
