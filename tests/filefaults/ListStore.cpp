// Runs the list's store over and over, each time in a process of its own. Its input, line by line, each answered by one:
//   run LIST <tab> COMMAND <tab> ...     over that list, the commands of CStoreCommands; their answers, with a tab behind
//                                        each, and how the process has ended: "0", or its signal or exit code. Besides:
//     begin FOLDER LOG NUMBER ERROR LENGTH FLAGS   the calls on the folder's files fail from now on, see SFilePlan
//     over                                         they do not any more
//     look FOLDER OTHER                            the files of the folder get a second name in the other, which is new
//   read FILE                            "" when the library's own reader takes the file, else why it does not

#include "CStoreCommands.h"
#include "CorvidControl/file/ListFormat.h"
#include "shim/FileFaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <dlfcn.h>
#include <iostream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned nPatience = 40; // seconds, until a process that hangs is ended by the system

// False at the end of the input.
bool ReadLine(QString& strLine)
{
    std::string strText;
    const bool bRead = static_cast<bool>(std::getline(std::cin, strText));
    strLine = QString::fromStdString(strText);
    return bRead;
}

QString GetLine(QString strText)
{
    return strText.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

template <typename Function> Function FindFaults(Function /*declared*/, const char* szName)
{
    const auto function = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, szName));
    if (!function) {
        qFatal("the library of faults is not preloaded");
    }
    return function;
}

void BeginFaults(const QStringList& listWord)
{
    const QByteArray folder = listWord.value(1).toUtf8();
    const QByteArray log = listWord.value(2).toUtf8();
    SFilePlan plan;
    plan.szFolder = folder.constData();
    plan.szLog = log.constData();
    plan.nCall = listWord.value(3).toInt();
    plan.nError = listWord.value(4).toInt();
    plan.length = static_cast<SFilePlan::EnLength>(listWord.value(5).toInt());
    plan.bWithoutFlags = listWord.value(6) == QLatin1String("0");
    FindFaults(&FileFaults_Begin, "FileFaults_Begin")(plan);
}

// Links of links too. What is put in place of a file later has its name there alone.
void Look(const QString& strFolder, const QString& strOther)
{
    QDir().mkpath(strOther);
    const QStringList listName = QDir(strFolder).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& strName : listName) {
        if (link(QFile::encodeName(QDir(strFolder).filePath(strName)).constData(),
                 QFile::encodeName(QDir(strOther).filePath(strName)).constData())
            != 0) {
            qFatal("%s cannot be looked at", qUtf8Printable(strName));
        }
    }
}

QString RunCommand(CStoreCommands& commands, const QString& strCommand)
{
    const QStringList listWord = strCommand.split(QLatin1Char(' '));
    if (listWord.first() == QLatin1String("begin")) {
        BeginFaults(listWord);
        return {};
    }
    if (listWord.first() == QLatin1String("over")) {
        FindFaults(&FileFaults_End, "FileFaults_End")();
        return {};
    }
    if (listWord.first() == QLatin1String("look")) {
        Look(listWord.value(1), listWord.value(2));
        return {};
    }
    return commands.Run(listWord.first(), listWord.mid(1).join(QLatin1Char(' ')));
}

// In the new process. The library is left as it is, unless a command has ended it.
void RunCommands(const QString& strListFile, const QStringList& listCommand)
{
    auto* pCommands = new CStoreCommands(strListFile);
    QString strAnswers;
    for (const QString& strCommand : listCommand) {
        strAnswers += GetLine(RunCommand(*pCommands, strCommand)) + QLatin1Char('\t');
    }
    std::printf("%s", qUtf8Printable(strAnswers));
    std::fflush(stdout);
}

int RunApart(const QString& strListFile, const QStringList& listCommand)
{
    const pid_t nChild = fork();
    if (nChild == 0) {
        alarm(nPatience);
        RunCommands(strListFile, listCommand);
        std::_Exit(0);
    }
    int nStatus = 0;
    if (nChild < 0 || waitpid(nChild, &nStatus, 0) != nChild) {
        qFatal("no process could be made");
    }
    return WIFSIGNALED(nStatus) ? WTERMSIG(nStatus) : WEXITSTATUS(nStatus);
}

QString ReadFile(const QString& strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return file.errorString();
    }
    return ListFormat::Read(file.readAll(), SListLimits()).strReason;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    for (QString strLine; ReadLine(strLine);) {
        const QStringList listPart = strLine.split(QLatin1Char('\t'));
        const QString strFile = listPart.first().section(QLatin1Char(' '), 1);
        const bool bRun = listPart.first().startsWith(QLatin1String("run "));
        const QString strAnswer = bRun ? QString::number(RunApart(strFile, listPart.mid(1))) : GetLine(ReadFile(strFile));
        std::printf("%s\n", qUtf8Printable(strAnswer));
        std::fflush(stdout);
    }
    return 0;
}
