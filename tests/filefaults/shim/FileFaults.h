#pragma once

/// What the preloaded library of faults offers to the program that it is loaded into, which asks for it by name.

/// How a call falls short that does not fail: as a value of SFilePlan::nError.
constexpr int nHalfDone = -1; ///< a read or write does half of its work

/// Which calls on the files of a folder fail.
struct SFilePlan
{
    enum EnLength
    {
        Once,
        SameCall, ///< and each later call of the same kind too
        AllCalls  ///< and each later call of any kind too
    };

    const char* szFolder = "";  ///< absolute; what lies below it counts
    const char* szLog = "";     ///< a file outside the folder, which gets a line for each call
    int nCall = 0;              ///< the number of the call that fails, from 1; 0 for none
    int nError = 0;             ///< of errno, or nHalfDone
    EnLength length = Once;     ///< what fails besides
    bool bWithoutFlags = false; ///< renameat2 does not know flags, as on old file systems
};

extern "C" {

/// Calls count from now on, from 1 again.
void FileFaults_Begin(const SFilePlan& plan);

/// Calls do their work again, and do not count.
void FileFaults_End();

} // extern "C"
