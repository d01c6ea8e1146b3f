#pragma once

#include "Patience.h"

#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

class QProcess;

/// What the program meets when it writes into its folder.
enum EnDisk
{
    DiskUsable,
    DiskReadOnly, ///< nothing can be created or changed; also for root, whose rights the program then lacks
    DiskFull,     ///< no file takes more than a few bytes
};

/// How the one who starts the program has set up its world.
enum EnStarter
{
    StarterPlain,
    StarterIgnoresHangup, ///< as nohup does
    StarterReadsNoErrors, ///< the standard error output leads to a pipe that nobody reads
};

/// Runs the built program, offscreen, in a folder of its own that goes with the object. What it calls
/// the folder for temporary files is the folder "tmp" in it, which can be written whatever the disk.
class CProgram
{
public:
    CProgram();
    ~CProgram();
    Q_DISABLE_COPY_MOVE(CProgram)

    /// False when it did not end within the time, in milliseconds; it is then killed.
    bool Run(const QStringList& listOption, int nTimeout = nPatience);

    /// The same in steps. WaitForOutput waits until the program has written that on the standard output.
    void Start(const QStringList& listOption);
    bool WaitForOutput(const QString& strText, int nTimeout = nPatience);
    void Send(int nSignal);
    bool WaitForEnd(int nTimeout = nPatience);

    /// For the runs to come.
    void SetVariable(const QString& strName, const QString& strValue);
    void SetDisk(EnDisk enNow);
    void SetStarter(EnStarter enNow);

    int ExitCode() const;
    QString Output() const;

    /// The lines on the standard error output, without those of the platform plug-in.
    QStringList Errors() const;

    /// A path in the folder.
    QString Path(const QString& strName) const;

    /// Writes a file into the folder and returns its path.
    QString Write(const QString& strName, const QByteArray& text) const;

    /// Copies a file of examples/ into the folder and returns its path.
    QString CopyExample(const QString& strName) const;

    static QByteArray Read(const QString& strPath);

private:
    QTemporaryDir folder;
    QMap<QString, QString> mapVariable;
    EnDisk enDisk = DiskUsable;
    EnStarter enStarter = StarterPlain;
    std::unique_ptr<class CClosedFolder> pClosed;
    std::unique_ptr<QProcess> pProcess;
    int nExitCode = -1;
    QString strOutput;
    QStringList listError;
};
