#include "contract/report/CContractRun.h"

#include "contract/attempt/CAttemptProcess.h"
#include "contract/checks/Checks.h"
#include "contract/report/CTrial.h"

#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <numeric>
#include <thread>

namespace {

const QString strLoading = QStringLiteral("C-library-1");
const QString strMaking = QStringLiteral("part-list");

// The promise of the call at which no list could be made.
QString FindCulprit(const QString& strCall)
{
    static const QMap<QString, QString> mapPromise{ { QStringLiteral("SetSimulatorPane"), QStringLiteral("C-runtime-3") },
                                                    { QStringLiteral("RefreshProcessors"), QStringLiteral("C-basic-3") },
                                                    { QStringLiteral("AddProcessor"), QStringLiteral("C-basic-5") },
                                                    { QStringLiteral("AddSimulators"), QStringLiteral("C-basic-4") },
                                                    { QStringLiteral("AddGroup"), QStringLiteral("C-list-8") },
                                                    { QStringLiteral("MoveProcessor"), QStringLiteral("C-list-12") } };
    return mapPromise.value(strCall.section(QLatin1Char('('), 0, 0), QStringLiteral("C-library-4"));
}

SOutcome TryPart(const SContractOptions& options, const QString& strCheck, QString* pPath)
{
    const QTemporaryDir folder;
    SAttempt attempt;
    attempt.strControl = options.strControl;
    attempt.strFolder = QFileInfo(folder.path()).canonicalFilePath();
    attempt.strCheck = strCheck;
    CAttemptProcess process(attempt);
    const SOutcome outcome = process.Run();
    if (pPath) {
        *pPath = process.GetTold(QStringLiteral("path"));
    }
    return outcome;
}

} // namespace

QString CContractRun::Prepare()
{
    // Inside the attempt's folder a path has lost it.
    QString strPath;
    loading = TryPart(options, strLoading, &strPath);
    bShared = strPath.startsWith(QLatin1Char('/'));
    if (!bShared || options.bListMayChange) {
        making = loading.result == SOutcome::Kept ? TryPart(options, strMaking, nullptr) : SOutcome();
        strCulprit
            = making.result == SOutcome::Kept ? QString() : FindCulprit(making.listStory.value(making.listStory.size() - 1));
        return {};
    }
    return QStringLiteral(
               "the library works on %1, which trying it changes; save that list elsewhere and give --list-may-change, or "
               "let the library take its list from CorvidControl_CreateHost")
        .arg(strPath);
}

// Most of the time of most attempts is waiting.
std::vector<SResult> CContractRun::Run()
{
    std::vector<SResult> vecResult;
    for (const SPromise& promise : Promises::GetAll()) {
        if (options.listOnly.isEmpty() || options.listOnly.contains(promise.strId)) {
            vecResult.push_back({ promise, {} });
        }
    }
    SortSlowFirst(vecResult);
    const int nThreads = bShared ? 1 : QThread::idealThreadCount() + 2;
    std::vector<std::thread> vecThread;
    vecThread.reserve(static_cast<size_t>(nThreads));
    for (int n = 0; n < nThreads; ++n) {
        vecThread.emplace_back([this, &vecResult] { Work(vecResult); });
    }
    for (std::thread& thread : vecThread) {
        thread.join();
    }
    return vecResult;
}

// So that the last of them does not run alone at the end.
void CContractRun::SortSlowFirst(const std::vector<SResult>& vecResult)
{
    vecOrder.resize(vecResult.size());
    std::iota(vecOrder.begin(), vecOrder.end(), 0);
    std::stable_partition(vecOrder.begin(), vecOrder.end(), [&](size_t n) {
        const SCheck* pCheck = Checks::Find(vecResult[n].promise.strId);
        return pCheck && (pCheck->nMode & SCheck::Slow) != 0;
    });
}

void CContractRun::Work(std::vector<SResult>& vecResult)
{
    for (size_t n = nNext++; n < vecResult.size(); n = nNext++) {
        Try(vecResult[vecOrder[n]]);
    }
}

void CContractRun::Try(SResult& result) const
{
    if (result.promise.kind == SPromise::NotTestable) {
        return;
    }
    if (result.promise.strId == strLoading) {
        result.outcome = loading;
    } else if (loading.result == SOutcome::Broken) {
        result.outcome = Outcome::LeaveUntried(QStringLiteral("the library cannot be loaded, see %1").arg(strLoading));
    } else if (result.promise.strId == strCulprit) {
        result.outcome = making;
    } else if (!strCulprit.isEmpty() && (Checks::Find(result.promise.strId)->nMode & SCheck::Bare) == 0) {
        result.outcome = Outcome::LeaveUntried(QStringLiteral("there is no list to try it on, see %1").arg(strCulprit));
    } else {
        result.outcome = CTrial(options, result.promise.strId).Run();
    }
}
