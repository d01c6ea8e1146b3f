// Random stories with the panel, for as long as one likes. The same seed gives the same stories: piece n of a run with the seed
// s is the first piece of a run with the seed s + n.

#include "CStoryRun.h"
#include "TestMain.h"
#include "play/Verbs.h"
#include "story/StoryMaker.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int nStepsOfPiece = 50; // in one window
constexpr std::chrono::seconds timeShrinking{ 120 };

struct SSoakOptions
{
    quint32 nSeed = 0;
    int nSteps = 2000;
    int nMinutes = 0;
    bool bTell = false;
    QString strStory;
    QStringList listVerb; ///< empty for all
};

void Print(const QString& strLine)
{
    std::printf("%s\n", qPrintable(strLine));
    std::fflush(stdout);
}

// Ends the program, as the parser does, when the option is there and not a number.
int ReadNumber(const QCommandLineParser& parser, const QString& strOption, int nDefault)
{
    bool bIsNumber = true;
    const int nNumber = parser.isSet(strOption) ? parser.value(strOption).toInt(&bIsNumber) : nDefault;
    if (!bIsNumber || nNumber < 0) {
        std::fprintf(stderr, "--%s is to be a number: %s\n", qPrintable(strOption), qPrintable(parser.value(strOption)));
        std::exit(2);
    }
    return nNumber;
}

SSoakOptions ReadOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions(
        { { QStringLiteral("seed"), QStringLiteral("The first seed; a random one without it."), QStringLiteral("n") },
          { QStringLiteral("steps"), QStringLiteral("How many steps, in pieces of 50."), QStringLiteral("n") },
          { QStringLiteral("minutes"), QStringLiteral("For how long, in place of steps."), QStringLiteral("n") },
          { QStringLiteral("story"), QStringLiteral("This story alone: \"click.0.3 delete.0.0\"."), QStringLiteral("steps") },
          { QStringLiteral("verbs"), QStringLiteral("Of these verbs alone: \"click key\"."), QStringLiteral("verbs") },
          { QStringLiteral("tell"), QStringLiteral("Print what each step does.") } });
    parser.process(application);
    SSoakOptions options;
    const int nRandom = static_cast<int>(QRandomGenerator::global()->generate() % 1000000);
    options.nSeed = static_cast<quint32>(ReadNumber(parser, QStringLiteral("seed"), nRandom));
    options.nSteps = ReadNumber(parser, QStringLiteral("steps"), options.nSteps);
    options.nMinutes = ReadNumber(parser, QStringLiteral("minutes"), options.nMinutes);
    options.bTell = parser.isSet(QStringLiteral("tell"));
    options.listVerb = parser.value(QStringLiteral("verbs")).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    options.strStory = parser.value(QStringLiteral("story"));
    return options;
}

int PlayStory(const SSoakOptions& options)
{
    StorySteps vecStep;
    if (!Story::Read(options.strStory, vecStep)) {
        Print(QStringLiteral("that is no story"));
        return 2;
    }
    const QString strWrong = CStoryRun(options.bTell ? CStoryRun::FnTell(&Print) : CStoryRun::FnTell()).Play(vecStep);
    Print(strWrong.isEmpty() ? QStringLiteral("all was well") : strWrong);
    return strWrong.isEmpty() ? 0 : 1;
}

void Report(const StorySteps& vecStep, const QString& strWrong)
{
    Print(QStringLiteral("went wrong: ") + strWrong);
    Print(QStringLiteral("the story: ") + Story::Write(vecStep));
    const StorySteps vecShort = StoryMaker::Shrink(
        vecStep, timeShrinking, [](const StorySteps& vecShorter) { return !CStoryRun().Play(vecShorter).isEmpty(); });
    Print(QStringLiteral("in short: %1\nwhere %2").arg(Story::Write(vecShort), CStoryRun().Play(vecShort)));
}

/// What several runs have come to.
struct SSum
{
    int nSteps = 0;
    QMap<QString, int> mapKept;
};

// What is wrong; empty when nothing is. The story ends where it goes wrong.
QString PlayPiece(StorySteps& vecStep, bool bTell, SSum& sum)
{
    CStoryRun run(bTell ? CStoryRun::FnTell(&Print) : CStoryRun::FnTell());
    const QString strWrong = run.Play(vecStep);
    sum.nSteps += run.GetCount();
    vecStep.resize(static_cast<size_t>(run.GetCount()));
    for (auto it = run.GetKept().cbegin(); it != run.GetKept().cend(); ++it) {
        sum.mapKept[it.key()] += it.value();
    }
    return strWrong;
}

void PrintSum(const SSum& sum, qint64 nMilliseconds)
{
    for (auto it = sum.mapKept.cbegin(); it != sum.mapKept.cend(); ++it) {
        Print(QStringLiteral("%1 times: %2").arg(it.value()).arg(it.key()));
    }
    Print(QStringLiteral("%1 steps in %2 s, all was well").arg(sum.nSteps).arg(nMilliseconds / 1000));
}

std::vector<QString> GetVerbs(const QStringList& listVerb)
{
    std::vector<QString> vecVerb = Verbs::GetWeighted();
    const auto isLeftOut = [&](const QString& strVerb) { return !listVerb.isEmpty() && !listVerb.contains(strVerb); };
    vecVerb.erase(std::remove_if(vecVerb.begin(), vecVerb.end(), isLeftOut), vecVerb.end());
    return vecVerb;
}

int Soak(const SSoakOptions& options)
{
    const std::vector<QString> vecVerb = GetVerbs(options.listVerb);
    if (vecVerb.empty()) {
        Print(QStringLiteral("there are no such verbs"));
        return 2;
    }
    Print(QStringLiteral("seed %1").arg(options.nSeed));
    const qint64 nLongest = 60000LL * options.nMinutes;
    QElapsedTimer timer;
    timer.start();
    SSum sum;
    const auto isOver = [&] { return nLongest > 0 ? timer.elapsed() >= nLongest : sum.nSteps >= options.nSteps; };
    for (quint32 nSeed = options.nSeed; !isOver(); ++nSeed) {
        StorySteps vecStep = StoryMaker::Build(nSeed, nStepsOfPiece, vecVerb);
        const QString strWrong = PlayPiece(vecStep, options.bTell, sum);
        if (!strWrong.isEmpty()) {
            Print(QStringLiteral("seed %1, after %2 steps").arg(nSeed).arg(sum.nSteps));
            Report(vecStep, strWrong);
            return 1;
        }
    }
    PrintSum(sum, timer.elapsed());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    TestMain::PrepareProcess();
    QApplication application(argc, argv);
    TestMain::PrepareApplication();
    const SSoakOptions options = ReadOptions(application);
    return options.strStory.isEmpty() ? Soak(options) : PlayStory(options);
}
