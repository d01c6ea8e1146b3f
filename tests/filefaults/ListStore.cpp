// Runs the list's store over and over, each time in a process of its own. Its input, line by line, each answered by one:
//   run LIST     a new process over that list, which takes the commands of CStoreCommands until "quit", and besides
//     begin FOLDER LOG NUMBER ERROR LENGTH FLAGS   the calls on the folder's files fail from now on, see SFilePlan
//     over                                         they do not any more
//   read FILE    "" when the library's own reader takes the file, else why it does not
// "quit" is answered by how the process has ended: "0", or the number of its signal or its exit code.

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

QStringList ReadWords()
{
    std::string strLine;
    return std::getline(std::cin, strLine) ? QString::fromStdString(strLine).split(QLatin1Char(' ')) : QStringList();
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

QString RunLine(CStoreCommands& commands, const QStringList& listWord)
{
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

// In the new process, which alone reads the input meanwhile. Its library has ended when it returns.
void RunCommands(const QString& strListFile)
{
    CStoreCommands commands(strListFile);
    for (QStringList listWord = ReadWords(); listWord.value(0) != QLatin1String("quit"); listWord = ReadWords()) {
        Answer(RunLine(commands, listWord));
    }
}

int RunApart(const QString& strListFile)
{
    const pid_t nChild = fork();
    if (nChild == 0) {
        RunCommands(strListFile);
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
    for (QStringList listWord = ReadWords(); !listWord.isEmpty(); listWord = ReadWords()) {
        const QString strFile = listWord.mid(1).join(QLatin1Char(' '));
        Answer(listWord.first() == QLatin1String("run") ? QString::number(RunApart(strFile)) : ReadFile(strFile));
    }
    return 0;
}
