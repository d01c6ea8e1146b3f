#include "CProgram.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
constexpr uid_t nNobody = 65534;
constexpr rlim_t nFullDiskBytes = 64;

/// The program, with what its disk allows set between fork and exec.
class CChild final : public QProcess
{
public:
    explicit CChild(EnDisk enOfProgram) : enDisk(enOfProgram) { }

protected:
    void setupChildProcess() override
    {
        if (enDisk == DiskReadOnly && geteuid() == 0 && setuid(nNobody) != 0)
            _exit(1);
        if (enDisk == DiskFull) {
            const rlimit limit{ nFullDiskBytes, nFullDiskBytes };
            std::signal(SIGXFSZ, SIG_IGN);
            setrlimit(RLIMIT_FSIZE, &limit);
        }
    }

private:
    const EnDisk enDisk;
};

/// While it lives, the folder takes no files.
class CClosedFolder
{
public:
    explicit CClosedFolder(const QString& strFolder) : strPath(strFolder)
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
}

bool CProgram::Run(const QStringList& listOption, int nTimeout)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.path());
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    const QScopedPointer<CClosedFolder> pClosed(enDisk == DiskReadOnly ? new CClosedFolder(folder.path()) : nullptr);
    CChild process(enDisk);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(KESTREL_PROGRAM), listOption);
    const bool bEnded = process.waitForFinished(nTimeout);
    if (!bEnded) {
        process.kill();
        process.waitForFinished();
    }
    nExitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    strOutput = QString::fromUtf8(process.readAllStandardOutput());
    listError = QString::fromUtf8(process.readAllStandardError()).split(QLatin1Char('\n'));
    listError.erase(std::remove_if(listError.begin(), listError.end(), IsOfPlatform), listError.end());
    return bEnded;
}

void CProgram::SetDisk(EnDisk enNow)
{
    enDisk = enNow;
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
