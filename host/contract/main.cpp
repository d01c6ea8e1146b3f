#include "contract/CContractLine.h"
#include "contract/attempt/AttemptMain.h"
#include "contract/report/CContractRun.h"
#include "contract/report/Reports.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int nCodeBroken = 1;
constexpr int nCodeNothing = 2;

int Complain(const QString& strReason)
{
    std::fprintf(stderr, "ptv-contract: %s\n", qUtf8Printable(strReason));
    return nCodeNothing;
}

void PrintPromises()
{
    for (const SPromise& promise : Promises::GetAll()) {
        std::printf("%s\t%s\t%s\n", qUtf8Printable(promise.strId), qUtf8Printable(Promises::GetName(promise.kind)),
                    qUtf8Printable(promise.strSentence));
    }
}

int Print(const SContractOptions& options)
{
    if (options.bHelp) {
        std::fputs(qUtf8Printable(CContractLine::GetHelp()), stdout);
    } else if (options.bVersion) {
        std::puts("ptv-contract " CONTRACT_VERSION);
    } else {
        PrintPromises();
    }
    return 0;
}

int Try(const SContractOptions& options)
{
    CContractRun run(options);
    const QString strFault = run.Prepare();
    if (!strFault.isEmpty()) {
        return Complain(strFault);
    }
    QFile file(options.strJUnitFile);
    if (!options.strJUnitFile.isEmpty() && !file.open(QIODevice::WriteOnly)) {
        return Complain(QStringLiteral("%1: %2").arg(options.strJUnitFile, file.errorString()));
    }
    const std::vector<SResult> vecResult = run.Run();
    std::fputs(qUtf8Printable(Reports::BuildText(options, vecResult)), stdout);
    if (file.isOpen()) {
        Reports::WriteJUnit(file, options, vecResult);
        if (!file.flush()) {
            return Complain(QStringLiteral("%1: %2").arg(options.strJUnitFile, file.errorString()));
        }
    }
    return std::any_of(vecResult.begin(), vecResult.end(), [](const SResult& result) { return result.IsBroken(); }) ? nCodeBroken
                                                                                                                    : 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList listArgument = QCoreApplication::arguments();
    if (listArgument.value(1) == QLatin1String("--attempt")) {
        return AttemptMain::Run(listArgument.mid(2));
    }
    const CContractLine line(listArgument);
    if (!line.GetError().isEmpty()) {
        return Complain(line.GetError());
    }
    const SContractOptions& options = line.GetOptions();
    return options.bHelp || options.bVersion || options.bPromises ? Print(options) : Try(options);
}
