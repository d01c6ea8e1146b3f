#include "contract/attempt/CAttemptProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <csignal>
#include <cstring>

namespace {

constexpr int nPollMs = 100;
constexpr std::chrono::seconds timeSilent{ 10 };    // without a call that returns: it hangs
constexpr std::chrono::seconds timePreparing{ 30 }; // the same while devices are looked for

// A home of its own: what a library keeps for its user stays out of this.
QProcessEnvironment BuildEnvironment(const QString& strFolder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* szHome : { "HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME" }) {
        environment.insert(QLatin1String(szHome), strFolder);
    }
    return environment;
}

} // namespace

SOutcome CAttemptProcess::Run()
{
    QProcess process;
    process.setProcessEnvironment(BuildEnvironment(attempt.strFolder));
    process.setWorkingDirectory(attempt.strFolder);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(),
                  { QStringLiteral("--attempt"), attempt.strCheck, attempt.strControl, attempt.strFolder,
                    Steps::Write(attempt.vecStep), attempt.strFile });
    const auto nGroup = static_cast<pid_t>(process.processId());
    const bool bHung = !Follow(process);
    if (nGroup > 0) {
        kill(-nGroup, SIGKILL); // what the library has started and left behind
    }
    if (!bVerdict) {
        EndWithoutVerdict(process, bHung);
    }
    FinishStory();
    outcome.strAlone = GetTold(QStringLiteral("alone"));
    return outcome;
}

QString CAttemptProcess::GetTold(const QString& strKey) const
{
    return mapTold.value(strKey);
}

// False when it had to be ended.
bool CAttemptProcess::Follow(QProcess& process)
{
    Time timeLast = std::chrono::steady_clock::now();
    while (process.state() != QProcess::NotRunning || process.canReadLine()) {
        if (!process.canReadLine()) {
            process.waitForReadyRead(nPollMs);
        }
        while (process.canReadLine()) {
            TakeLine(QString::fromUtf8(process.readLine().chopped(1)));
            timeLast = std::chrono::steady_clock::now();
        }
        if (std::chrono::steady_clock::now() - timeLast > (bBegun ? timeSilent : timePreparing)) {
            process.kill();
            process.waitForFinished();
            return false;
        }
    }
    return true;
}

void CAttemptProcess::TakeLine(const QString& strLine)
{
    const QString strKey = strLine.section(QLatin1Char(' '), 0, 0);
    const QString strText = strLine.section(QLatin1Char(' '), 1).remove(attempt.strFolder + QLatin1Char('/'));
    strPending.clear();
    bRunning = strKey == QLatin1String("prepare") || strKey == QLatin1String("call") || strKey == QLatin1String("read");
    if (TakeVerdict(strKey, strText)) {
        return;
    }
    TakeCall(strKey, strText);
}

void CAttemptProcess::TakeCall(const QString& strKey, const QString& strText)
{
    if (strKey == QLatin1String("prepare")) {
        listPrepared.append(strText);
    } else if (strKey == QLatin1String("begin")) {
        bBegun = true;
    } else if (strKey == QLatin1String("call")) {
        outcome.listStory.append(strText);
    } else if (strKey == QLatin1String("read")) {
        strPending = strText;
    } else if (strKey == QLatin1String("answer") && bBegun && !outcome.listStory.isEmpty()) {
        outcome.listStory.last() += QStringLiteral(" -> ") + strText;
    } else if (strKey != QLatin1String("returned")) {
        mapTold.insert(strKey, strText);
    }
}

bool CAttemptProcess::TakeVerdict(const QString& strKey, const QString& strText)
{
    static const QMap<QString, SOutcome::EnResult> mapResult{ { QStringLiteral("kept"), SOutcome::Kept },
                                                              { QStringLiteral("broken"), SOutcome::Broken },
                                                              { QStringLiteral("untried"), SOutcome::Untried } };
    if (!mapResult.contains(strKey)) {
        return false;
    }
    bVerdict = true;
    outcome.result = mapResult.value(strKey);
    outcome.strReason = strText;
    return true;
}

void CAttemptProcess::EndWithoutVerdict(QProcess& process, bool bHung)
{
    outcome.result = SOutcome::Broken;
    if (!strPending.isEmpty()) {
        outcome.listStory.append(strPending);
    }
    const QString strWhere = bRunning ? QStringLiteral("in") : QStringLiteral("after");
    if (bHung) {
        outcome.strReason = QStringLiteral("%1 after %2 s")
                                .arg(bRunning ? QStringLiteral("the last call had not returned")
                                              : QStringLiteral("the process did nothing more"))
                                .arg((bBegun ? timeSilent : timePreparing).count());
    } else if (process.exitStatus() == QProcess::CrashExit) {
        const QString strSignal = QString::fromLocal8Bit(strsignal(process.exitCode()));
        outcome.strReason = QStringLiteral("the process ended %1 the last call: %2").arg(strWhere, strSignal);
    } else {
        outcome.strReason
            = QStringLiteral("the process ended %1 the last call with the exit code %2").arg(strWhere).arg(process.exitCode());
    }
}

void CAttemptProcess::FinishStory()
{
    if (!bBegun) {
        outcome.listStory = listPrepared + outcome.listStory;
    } else if (!listPrepared.isEmpty()) {
        outcome.listStory.prepend(QStringLiteral("(the list was made first, by %1 call%2)")
                                      .arg(listPrepared.size())
                                      .arg(listPrepared.size() == 1 ? QString() : QStringLiteral("s")));
    }
}
