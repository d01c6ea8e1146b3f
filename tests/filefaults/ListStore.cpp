// Runs the list's store over and over, each time in a process of its own. Its input, line by line, each answered by one:
//   run LIST <tab> COMMAND <tab> ...     a new process over that list; it takes the commands of CStoreCommands, here and in
//                                        the lines that follow, until "quit", and answers with ":" and their answers, and
//                                        tabs between them. Besides:
//     begin FOLDER LOG NUMBER ERROR LENGTH FLAGS   the calls on the folder's files fail from now on, see SFilePlan
//     over                                         they do not any more
//   read FILE                            "" when the library's own reader takes the file, else why it does not
// When the process ends, by "quit" or otherwise, the answer is how: "0", or the number of its signal or its exit code.

#include "CStoreCommands.h"
#include "CorvidControl/file/ListFormat.h"
#include "shim/FileFaults.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <dlfcn.h>
#include <iostream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned nPatience = 30; // seconds, until a process that hangs is ended by the system

// False at the end of the input.
bool ReadLine(QString& strLine)
{
    std::string strText;
    const bool bRead = static_cast<bool>(std::getline(std::cin, strText));
    strLine = QString::fromStdString(strText);
    return bRead;
}

void Answer(const QString& strAnswer)
{
    std::printf("%s\n", qUtf8Printable(QString(strAnswer).replace(QLatin1Char('\n'), QLatin1Char(' '))));
    std::fflush(stdout);
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
    return commands.Run(listWord.first(), listWord.mid(1).join(QLatin1Char(' ')));
}

// In the new process, which alone reads the input meanwhile.
void RunCommands(const QString& strListFile, QStringList listCommand)
{
    CStoreCommands commands(strListFile);
    QString strLine;
    while (strLine != QLatin1String("quit")) {
        for (QString& strCommand : listCommand) {
            strCommand = RunCommand(commands, strCommand);
        }
        Answer(QLatin1Char(':') + listCommand.join(QLatin1Char('\t')));
        if (!ReadLine(strLine)) {
            return;
        }
        listCommand = strLine.split(QLatin1Char('\t'));
    }
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
        Answer(bRun ? QString::number(RunApart(strFile, listPart.mid(1))) : ReadFile(strFile));
    }
    return 0;
}
