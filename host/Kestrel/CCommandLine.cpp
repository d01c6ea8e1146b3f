#include "Kestrel/CCommandLine.h"

#include "Kestrel/CLanguage.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

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
constexpr QLatin1String strControl = Literal("control");
constexpr QLatin1String strHelp = Literal("help");
constexpr QLatin1String strJournal = Literal("journal");
constexpr QLatin1String strLang = Literal("lang");
constexpr QLatin1String strList = Literal("list");
constexpr QLatin1String strPace = Literal("pace");
constexpr QLatin1String strPanel = Literal("panel");
constexpr QLatin1String strScale = Literal("scale");
constexpr QLatin1String strScenario = Literal("scenario");
constexpr QLatin1String strShot = Literal("shot");
constexpr QLatin1String strShots = Literal("shots");

void AddOptions(QCommandLineParser& parser)
{
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption(QCommandLineOption(QStringList{ QStringLiteral("h"), strHelp }));
    for (const QLatin1String strName :
         { strAt, strControl, strJournal, strLang, strList, strPace, strPanel, strScale, strScenario, strShot, strShots }) {
        parser.addOption(QCommandLineOption(strName, QString(), QStringLiteral("value")));
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
    if (options.bHelp) {
        return;
    }
    if (!parser.positionalArguments().isEmpty()) {
        Refuse(QStringLiteral("Unexpected argument '%1'").arg(parser.positionalArguments().constFirst()));
    }
    ReadValues(parser);
    CheckFiles();
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
    return QStringLiteral("Usage: kestrel [options]\n"
                          "A host for the panel that manages processors.\n"
                          "\n"
                          "  --list FILE        working list (.kvtl), read at start and saved after each change;\n"
                          "                     default: processors.kvtl in the user's application data\n"
                          "  --scenario FILE    script for the devices; default: a quiet day\n"
                          "  --pace FACTOR      how many times as fast the quiet day goes, 1 to 100\n"
                          "  --shot FILE.png    write a picture of the window, then quit\n"
                          "  --at SECONDS       when to take that picture (default 2)\n"
                          "  --shots FOLDER     write the pictures that the scenario asks for, numbered, then quit\n"
                          "  --lang LANGUAGE    %1\n"
                          "  --scale FACTOR     size of everything, 0.5 to 4\n"
                          "  --journal FILE     write the journal to that file as it grows\n"
                          "  --panel FILE       the panel's library; default: the installed one\n"
                          "  --control FILE     the control library; default: the installed one. One without\n"
                          "                     CorvidControl_CreateHost takes no --list, --scenario or --pace\n"
                          "  --help             this text\n"
                          "\n"
                          "SIGTERM, SIGINT, SIGHUP and the end of the session close the window in order: running\n"
                          "jobs are waited for and the list is saved, without a question.\n"
                          "\n"
                          "Exit codes: 0 done, 1 a library could not be loaded, 2 a bad option or file, 3 the\n"
                          "list could not be saved at its place and nobody could be asked: the error output\n"
                          "says where it is, a dated file beside that place if there was any way.\n")
        .arg(CLanguage::GetCodes().join(QLatin1String(", ")));
}

void CCommandLine::ReadValues(const QCommandLineParser& parser)
{
    options.strListFile = parser.value(strList);
    options.strScenarioFile = parser.value(strScenario);
    options.strShotFile = parser.value(strShot);
    options.strShotFolder = parser.value(strShots);
    options.strJournalFile = parser.value(strJournal);
    options.strControlFile = parser.value(strControl);
    options.strPanelFile = parser.value(strPanel);
    options.strLanguage = parser.value(strLang);
    if (parser.isSet(strAt)) {
        options.dShotAt = ReadNumber(parser, strAt, 0.0, dMostSeconds);
    }
    if (parser.isSet(strPace)) {
        options.dPace = ReadNumber(parser, strPace, dLeastPace, dMostPace);
    }
    if (parser.isSet(strScale)) {
        options.dScale = ReadNumber(parser, strScale, dLeastScale, dMostScale);
    }
    if (parser.isSet(strAt) && !parser.isSet(strShot)) {
        Refuse(QStringLiteral("--at needs --shot"));
    }
    if (parser.isSet(strPace) && parser.isSet(strScenario)) {
        Refuse(QStringLiteral("--pace is for the quiet day, which --scenario replaces"));
    }
    if (parser.isSet(strShots) && !parser.isSet(strScenario)) {
        Refuse(QStringLiteral("--shots needs --scenario"));
    }
    if (parser.isSet(strLang) && !CLanguage::GetCodes().contains(options.strLanguage)) {
        Refuse(QStringLiteral("Unknown language '%1'").arg(options.strLanguage));
    }
}

void CCommandLine::CheckFiles()
{
    if (!options.strScenarioFile.isEmpty() && !QFileInfo(options.strScenarioFile).isFile()) {
        Refuse(QStringLiteral("No scenario file '%1'").arg(options.strScenarioFile));
    }
    for (const QString& strFile : { options.strListFile, options.strShotFile }) {
        if (!strFile.isEmpty() && !QFileInfo(strFile).absoluteDir().exists()) {
            Refuse(QStringLiteral("No folder for '%1'").arg(strFile));
        }
    }
    if (!options.strShotFile.isEmpty() && !options.strShotFile.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        Refuse(QStringLiteral("'%1' does not end in .png").arg(options.strShotFile));
    }
    if (!options.strShotFolder.isEmpty() && !QFileInfo(options.strShotFolder).isDir()) {
        Refuse(QStringLiteral("No folder '%1'").arg(options.strShotFolder));
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
