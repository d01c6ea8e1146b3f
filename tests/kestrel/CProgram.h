#pragma once

#include <QStringList>
#include <QTemporaryDir>

/// What the program meets when it writes into its folder.
enum EnDisk
{
    DiskUsable,
    DiskReadOnly, ///< nothing can be created or changed; also for root, whose rights the program then lacks
    DiskFull,     ///< no file takes more than a few bytes
};

/// Runs the built program, offscreen, in a folder of its own that goes with the object.
class CProgram
{
public:
    CProgram();

    /// False when it did not end within the time, in milliseconds; it is then killed.
    bool Run(const QStringList& listOption, int nTimeout = 20000);

    /// For the runs to come.
    void SetDisk(EnDisk enNow);

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
    EnDisk enDisk = DiskUsable;
    int nExitCode = -1;
    QString strOutput;
    QStringList listError;
};
