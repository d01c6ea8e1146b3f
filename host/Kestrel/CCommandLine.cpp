#include "Kestrel/CCommandLine.h"

#include "Kestrel/CLanguage.h"
#include "Kestrel/OptionFiles.h"
#include "Kestrel/replay/ReplayTime.h"
#include "Kestrel/theme/CTheme.h"

#include <QCommandLineParser>
#include <QFile>

#include <array>

namespace {

template <int nSize> constexpr QLatin1String Literal(const char (&szText)[nSize])
{
    return QLatin1String(szText, nSize - 1);
}

constexpr double dMostSeconds = 3600.0;
constexpr double dLeastPace = 1.0;
constexpr double dMostPace = 100.0;
constexpr double dLeastScale = 0.5;
constexpr double dMostScale = 4.0;

constexpr QLatin1String strAt = Literal("at");
constexpr QLatin1String strHelp = Literal("help");
constexpr QLatin1String strLang = Literal("lang");
constexpr QLatin1String strListing = Literal("listing");
constexpr QLatin1String strMask = Literal("mask-journal");
constexpr QLatin1String strPace = Literal("pace");
constexpr QLatin1String strReplay = Literal("replay");
constexpr QLatin1String strScale = Literal("scale");
constexpr QLatin1String strScenario = Literal("scenario");
constexpr QLatin1String strShot = Literal("shot");
constexpr QLatin1String strShots = Literal("shots");
constexpr QLatin1String strSpeed = Literal("speed");
constexpr QLatin1String strTheme = Literal("theme");
constexpr QLatin1String strVersion = Literal("version");

/// An option whose value is taken as it stands, and where it goes.
struct STextOption
{
    QLatin1String strName;
    QString SKestrelOptions::* pValue;
};

constexpr std::array<STextOption, 10> listText{ {
    { Literal("control"), &SKestrelOptions::strControlFile },
    { Literal("journal"), &SKestrelOptions::strJournalFile },
    { strLang, &SKestrelOptions::strLanguage },
    { Literal("list"), &SKestrelOptions::strListFile },
    { Literal("panel"), &SKestrelOptions::strPanelFile },
    { strReplay, &SKestrelOptions::strReplayFile },
    { strScenario, &SKestrelOptions::strScenarioFile },
    { strShot, &SKestrelOptions::strShotFile },
    { strShots, &SKestrelOptions::strShotFolder },
    { strTheme, &SKestrelOptions::strTheme },
} };

void AddOption(QCommandLineParser& parser, QLatin1String strName)
{
    parser.addOption(QCommandLineOption(strName, QString(), QStringLiteral("value")));
}

void AddOptions(QCommandLineParser& parser)
{
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption(QCommandLineOption(QStringList{ QStringLiteral("h"), strHelp }));
    parser.addOption(QCommandLineOption(strVersion));
    parser.addOption(QCommandLineOption(strListing));
    parser.addOption(QCommandLineOption(strMask));
    for (const STextOption& option : listText) {
        AddOption(parser, option.strName);
    }
    for (const QLatin1String strName : { strAt, strPace, strScale, strSpeed }) {
        AddOption(parser, strName);
    }
}

} // namespace

CCommandLine::CCommandLine(const QStringList& listArgument)
{
    options.listArgument = listArgument.mid(1);
    QCommandLineParser parser;
    AddOptions(parser);
    if (!parser.parse(listArgument)) {
        QString strReason = parser.errorText();
        strReason.chop(strReason.endsWith(QLatin1Char('.')) ? 1 : 0);
        Refuse(strReason);
        return;
    }
    options.bHelp = parser.isSet(strHelp);
    options.bVersion = parser.isSet(strVersion);
    if (options.bHelp || options.bVersion) {
        return;
    }
    if (!parser.positionalArguments().isEmpty()) {
        Refuse(QStringLiteral("Unexpected argument '%1'").arg(parser.positionalArguments().constFirst()));
    }
    options.bMaskJournal = parser.isSet(strMask);
    const QStringList listGiven = parser.optionNames();
    for (const QString& strName : listGiven) {
        options.listName.append(QStringLiteral("--") + strName);
    }
    ReadTexts(parser);
    ReadNumbers(parser);
    options.strReplayFile.isEmpty() ? CheckCompany(parser) : ReadReplay(parser);
    const QString strFault = OptionFiles::FindFault(options);
    if (!strFault.isEmpty()) {
        Refuse(strFault);
    }
}

const SKestrelOptions& CCommandLine::GetOptions() const
{
    return options;
}

QString CCommandLine::GetError() const
{
    return strError;
}

QString CCommandLine::GetHelp()
{
    // A file, so that scripts show it without the program.
    QFile file(QStringLiteral(":/kestrel/help.txt"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void CCommandLine::ReadTexts(const QCommandLineParser& parser)
{
    for (const STextOption& option : listText) {
        options.*option.pValue = parser.value(option.strName);
        if (parser.isSet(option.strName) && parser.value(option.strName).isEmpty()) {
            Refuse(QStringLiteral("--%1 is empty").arg(option.strName));
        }
    }
    CheckChoice(options.strLanguage, QStringLiteral("language"), CLanguage::GetCodes() << CLanguage::GetPseudoCode());
    CheckChoice(options.strTheme, QStringLiteral("theme"), CTheme::GetNames());
}

void CCommandLine::CheckChoice(const QString& strValue, const QString& strWhat, const QStringList& listChoice)
{
    if (!strValue.isEmpty() && !listChoice.contains(strValue)) {
        Refuse(QStringLiteral("Unknown %1 '%2': there are %3").arg(strWhat, strValue, listChoice.join(QLatin1String(", "))));
    }
}

void CCommandLine::ReadNumbers(const QCommandLineParser& parser)
{
    if (parser.isSet(strAt) && options.strReplayFile.isEmpty()) {
        options.dShotAt = ReadNumber(parser, strAt, 0.0, dMostSeconds);
    }
    if (parser.isSet(strPace)) {
        options.dPace = ReadNumber(parser, strPace, dLeastPace, dMostPace);
    }
    if (parser.isSet(strScale)) {
        options.dScale = ReadNumber(parser, strScale, dLeastScale, dMostScale);
    }
}

// What only makes sense with or without another option.
void CCommandLine::CheckCompany(const QCommandLineParser& parser)
{
    if (parser.isSet(strAt) && !parser.isSet(strShot)) {
        Refuse(QStringLiteral("--at needs --shot"));
    }
    if (parser.isSet(strPace) && parser.isSet(strScenario)) {
        Refuse(QStringLiteral("--pace is for the quiet day, which --scenario replaces"));
    }
    for (const QLatin1String strOfReplay : { strListing, strSpeed }) {
        if (parser.isSet(strOfReplay)) {
            Refuse(QStringLiteral("--%1 needs --replay").arg(strOfReplay));
        }
    }
    if (parser.isSet(strShots) && !parser.isSet(strScenario)) {
        Refuse(QStringLiteral("--shots needs --scenario"));
    }
}

void CCommandLine::ReadReplay(const QCommandLineParser& parser)
{
    for (const QLatin1String strOther :
         { Literal("control"), Literal("journal"), Literal("list"), strMask, strPace, strScenario }) {
        if (parser.isSet(strOther)) {
            Refuse(QStringLiteral("--%1 does not go with --replay").arg(strOther));
        }
    }
    const QString strSpeedAsked = parser.isSet(strSpeed) ? parser.value(strSpeed) : QStringLiteral("fast");
    CheckChoice(strSpeedAsked, strSpeed, { QStringLiteral("fast"), QStringLiteral("real") });
    options.bReplayReal = strSpeedAsked == QLatin1String("real");
    options.listReplayAt = parser.values(strAt);
    options.bListing = parser.isSet(strListing);
    for (const QLatin1String strOfPlaying : { strAt, strShot, strShots, strSpeed }) {
        if (options.bListing && parser.isSet(strOfPlaying)) {
            Refuse(QStringLiteral("--listing plays nothing and does not go with --%1").arg(strOfPlaying));
        }
    }
    CheckReplayPictures();
}

void CCommandLine::CheckReplayPictures()
{
    const int nTimes = options.listReplayAt.size();
    for (const QString& strTime : qAsConst(options.listReplayAt)) {
        if (!ReplayTime::Read(strTime)) {
            Refuse(QStringLiteral("--at takes a time of the recording such as 14:03:12.345, not '%1'").arg(strTime));
        }
    }
    const bool bFile = !options.strShotFile.isEmpty();
    const bool bFolder = !options.strShotFolder.isEmpty();
    if (bFile && (bFolder || nTimes > 1)) {
        Refuse(QStringLiteral("--shot takes one picture; --shots and --at take more"));
    }
    if (bFolder != (nTimes > 0 && !bFile)) {
        Refuse(bFolder ? QStringLiteral("--shots needs --at") : QStringLiteral("--at needs --shot or --shots"));
    }
}

double CCommandLine::ReadNumber(const QCommandLineParser& parser, const QString& strOption, double dLeast, double dMost)
{
    bool bNumber = false;
    const double dValue = parser.value(strOption).toDouble(&bNumber);
    const bool bGood = bNumber && dValue >= dLeast && dValue <= dMost;
    if (!bGood) {
        Refuse(QStringLiteral("--%1 takes a number from %2 to %3, not '%4'")
                   .arg(strOption, QString::number(dLeast), QString::number(dMost), parser.value(strOption)));
    }
    return bGood ? dValue : dLeast;
}

void CCommandLine::Refuse(const QString& strReason)
{
    if (strError.isEmpty()) {
        strError = strReason + QStringLiteral("; see --help");
    }
}
