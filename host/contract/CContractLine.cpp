#include "contract/CContractLine.h"

#include "contract/Promises.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr char szHelp[] = R"(Usage: ptv-contract --control FILE [options]
Tries a control library by the promises of the contract and prints one line a promise.

  --control FILE      the library: a file, or a name that the loader looks for
  --seed N            of the random sequences; 1 by default
  --sequences N       how many for each promise, 1 to 1000; 8 by default
  --only PROMISE      this promise alone, such as C-list-15; may be repeated
  --junit FILE        write the report as JUnit XML too
  --list-may-change   try a library that works on a list of its own, and change that list
  --promises          print the promises with their classes and quit
  --help              print this and quit
  --version           print the version and quit

Exit code: 0 when no required promise is broken, 1 when one is, 2 when nothing was tried or the report could not be
written.
)";

constexpr int nMostSequences = 1000;

QString AsFound(const QString& strFile)
{
    return QFileInfo::exists(strFile) ? QFileInfo(strFile).absoluteFilePath() : strFile;
}

void AddOptions(QCommandLineParser& parser)
{
    for (const char* szName : { "control", "seed", "sequences", "only", "junit" }) {
        parser.addOption(QCommandLineOption(QLatin1String(szName), QString(), QStringLiteral("value")));
    }
    for (const char* szName : { "list-may-change", "promises", "help", "version" }) {
        parser.addOption(QCommandLineOption(QLatin1String(szName)));
    }
}

} // namespace

CContractLine::CContractLine(const QStringList& listArgument)
{
    QCommandLineParser parser;
    AddOptions(parser);
    if (!parser.parse(listArgument)) {
        QString strReason = parser.errorText();
        strReason.chop(strReason.endsWith(QLatin1Char('.')) ? 1 : 0);
        Refuse(strReason);
        return;
    }
    ReadValues(parser);
    options.bListMayChange = parser.isSet(QStringLiteral("list-may-change"));
    options.bHelp = parser.isSet(QStringLiteral("help"));
    options.bVersion = parser.isSet(QStringLiteral("version"));
    options.bPromises = parser.isSet(QStringLiteral("promises"));
    if (!parser.positionalArguments().isEmpty()) {
        Refuse(QStringLiteral("Unexpected argument '%1'").arg(parser.positionalArguments().constFirst()));
    }
    Check();
}

void CContractLine::ReadValues(const QCommandLineParser& parser)
{
    options.strControl = AsFound(parser.value(QStringLiteral("control")));
    options.strJUnitFile = parser.value(QStringLiteral("junit"));
    options.listOnly = parser.values(QStringLiteral("only"));
    const auto number = [&](const QString& strName, qint64 nDefault, qint64 nLeast, qint64 nMost) {
        const QString strValue = parser.value(strName);
        bool bGood = true;
        const qint64 nValue = strValue.isEmpty() ? nDefault : strValue.toLongLong(&bGood);
        if (!bGood || nValue < nLeast || nValue > nMost) {
            Refuse(QStringLiteral("--%1 takes a number from %2 to %3").arg(strName).arg(nLeast).arg(nMost));
        }
        return nValue;
    };
    options.nSeed = static_cast<quint32>(number(QStringLiteral("seed"), options.nSeed, 0, UINT32_MAX));
    options.nSequences = static_cast<int>(number(QStringLiteral("sequences"), options.nSequences, 1, nMostSequences));
}

QString CContractLine::GetHelp()
{
    return QString::fromLatin1(szHelp);
}

void CContractLine::Check()
{
    if (options.strControl.isEmpty() && !options.bHelp && !options.bVersion && !options.bPromises) {
        Refuse(QStringLiteral("--control FILE is missing: name the library to try"));
    }
    const std::vector<SPromise>& vecAll = Promises::GetAll();
    for (const QString& strOnly : qAsConst(options.listOnly)) {
        if (std::none_of(vecAll.begin(), vecAll.end(), [&](const SPromise& promise) { return promise.strId == strOnly; })) {
            Refuse(QStringLiteral("There is no promise '%1'; --promises prints all").arg(strOnly));
        }
    }
}

void CContractLine::Refuse(const QString& strReason)
{
    if (strError.isEmpty()) {
        strError = strReason;
    }
}
