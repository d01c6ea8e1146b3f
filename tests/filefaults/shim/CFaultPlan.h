#pragma once

#include "FileFaults.h"

#include <mutex>
#include <string>

/// Counts the calls on the files of one folder and says which of them fail. Writes a line for each: its name, the file,
/// and "failed" when it did; for a file that was not brought to the disk also the line "lost" with its inode. Any thread.
class CFaultPlan
{
public:
    static CFaultPlan& Get();

    void Begin(const SFilePlan& planIn);
    void End();

    /// Returns 0 when the call is to do its work, else how it is to fail. szPath as the call has it.
    int Take(const char* szCall, const char* szPath);

    /// As Take, by an open file.
    int Take(const char* szCall, int nFile);

    /// False where renameat2 does not know flags.
    bool KnowsFlags();

    /// The file was not brought to the disk, whatever can be read of it.
    void Lose(int nFile);

private:
    bool Counts(const char* szPath) const;
    bool Fails(const char* szCall);
    void Log(const std::string& strLine) const;

    std::mutex mutex; ///< guards all below
    SFilePlan plan;
    std::string strFolder;
    std::string strFailed; ///< the name of the call that failed first
    bool bOn = false;
    int nCalls = 0;
    int nLog = -1;
};
