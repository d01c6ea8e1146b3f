#include "CProgram.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <array>
#include <csignal>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr rlim_t nFullDiskBytes = 64;

/// The program, with what its disk allows and its starter does set between fork and exec.
class CChild final : public QProcess
{
public:
    CChild(EnDisk enDiskIn, EnStarter enStarterIn) : enDisk(enDiskIn), enStarter(enStarterIn) { }

protected:
    void setupChildProcess() override
    {
        // A test that itself runs in the background would hand down an ignored SIGINT.
        for (const int nSignal : { SIGTERM, SIGINT, SIGHUP }) {
            std::signal(nSignal, SIG_DFL);
        }
        if (enStarter == StarterIgnoresHangup) {
            std::signal(SIGHUP, SIG_IGN);
        }
        std::array<int, 2> listPipe;
        if (enStarter == StarterReadsNoErrors && pipe(listPipe.data()) == 0) {
            ::close(listPipe[0]);
            dup2(listPipe[1], STDERR_FILENO);
        }
        // Root keeps its files, which may be of a checkout that no other user can read, and loses the right to write
        // against their permissions.
        if (enDisk == DiskReadOnly && geteuid() == 0 && prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) != 0) {
            _exit(1);
        }
        if (enDisk == DiskFull) {
            const rlimit limit{ nFullDiskBytes, nFullDiskBytes };
            std::signal(SIGXFSZ, SIG_IGN);
            setrlimit(RLIMIT_FSIZE, &limit);
        }
    }

private:
    const EnDisk enDisk;
    const EnStarter enStarter;
};

} // namespace

/// While it lives, the folder takes no files.
class CClosedFolder
{
public:
    explicit CClosedFolder(const QString& strPathIn) : strPath(strPathIn)
    {
        QFile::setPermissions(strPath,
                              QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther
                                  | QFile::ExeOther);
    }
    ~CClosedFolder()
    {
        QFile::setPermissions(strPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    Q_DISABLE_COPY_MOVE(CClosedFolder)

private:
    const QString strPath;
};

namespace {

/// The offscreen platform comments on each thing that it cannot do.
bool IsOfPlatform(const QString& strLine)
{
    return strLine.contains(QLatin1String("This plugin does not support")) || strLine.contains(QLatin1String("XDG_RUNTIME_DIR"))
        || strLine.isEmpty();
}

} // namespace

CProgram::CProgram()
{
    Q_ASSERT(folder.isValid());
    QDir(folder.path()).mkdir(QStringLiteral("tmp"));
}

CProgram::~CProgram()
{
    if (pProcess) {
        WaitForEnd(0);
    }
}

bool CProgram::Run(const QStringList& listOption, int nTimeout)
{
    Start(listOption);
    return WaitForEnd(nTimeout);
}

void CProgram::Start(const QStringList& listOption)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), Path(QStringLiteral("tmp")));
    environment.insert(QStringLiteral("TMPDIR"), Path(QStringLiteral("tmp")));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    for (auto it = mapVariable.cbegin(); it != mapVariable.cend(); ++it) {
        environment.insert(it.key(), it.value());
    }
    pClosed.reset(enDisk == DiskReadOnly ? new CClosedFolder(folder.path()) : nullptr);
    strOutput.clear();
    pProcess = std::make_unique<CChild>(enDisk, enStarter);
    pProcess->setProcessEnvironment(environment);
    pProcess->start(QStringLiteral(KESTREL_PROGRAM), listOption);
}

bool CProgram::WaitForOutput(const QString& strText, int nTimeout)
{
    const QDeadlineTimer deadline(nTimeout);
    while (!strOutput.contains(strText) && pProcess->waitForReadyRead(int(deadline.remainingTime()))) {
        strOutput += QString::fromUtf8(pProcess->readAllStandardOutput());
    }
    return strOutput.contains(strText);
}

void CProgram::Send(int nSignal)
{
    kill(pid_t(pProcess->processId()), nSignal);
}

bool CProgram::WaitForEnd(int nTimeout)
{
    const bool bEnded = pProcess->state() == QProcess::NotRunning || pProcess->waitForFinished(nTimeout);
    if (!bEnded) {
        pProcess->kill();
        pProcess->waitForFinished();
    }
    nExitCode = pProcess->exitStatus() == QProcess::NormalExit ? pProcess->exitCode() : -1;
    strOutput += QString::fromUtf8(pProcess->readAllStandardOutput());
    listError = QString::fromUtf8(pProcess->readAllStandardError()).split(QLatin1Char('\n'));
    listError.erase(std::remove_if(listError.begin(), listError.end(), IsOfPlatform), listError.end());
    pProcess.reset();
    pClosed.reset();
    return bEnded;
}

void CProgram::SetVariable(const QString& strName, const QString& strValue)
{
    mapVariable.insert(strName, strValue);
}

void CProgram::SetDisk(EnDisk enNow)
{
    enDisk = enNow;
}

void CProgram::SetStarter(EnStarter enNow)
{
    enStarter = enNow;
}

int CProgram::ExitCode() const
{
    return nExitCode;
}

QString CProgram::Output() const
{
    return strOutput;
}

QStringList CProgram::Errors() const
{
    return listError;
}

QString CProgram::Path(const QString& strName) const
{
    return folder.filePath(strName);
}

QString CProgram::Write(const QString& strName, const QByteArray& text) const
{
    QFile file(Path(strName));
    const bool bWritten = file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
    return bWritten ? file.fileName() : QString();
}

QString CProgram::CopyExample(const QString& strName) const
{
    const QByteArray text = Read(QStringLiteral(EXAMPLES_FOLDER "/") + strName);
    return text.isEmpty() ? QString() : Write(strName, text);
}

QByteArray CProgram::Read(const QString& strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
