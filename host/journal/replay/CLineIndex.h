#pragma once

#include <QVector>

#include <array>

class CRecordedRun;
struct SRecordedLine;

/// Finds the next line of a kind, as each call of a replay asks for it. Any thread.
class CLineIndex
{
public:
    /// Which lines to look for.
    enum EnWanted
    {
        Messages,
        UserSteps,
        Inputs,            ///< messages and steps of the user
        InputsAndGuiCalls, ///< beside them, calls on the GUI thread, but for the questions of the tool bar
    };

    /// run must outlive it.
    explicit CLineIndex(const CRecordedRun& run);

    /// The first such line with that number or a higher one; null for none.
    const SRecordedLine* FindNext(quint64 nNumber, EnWanted wanted) const;

private:
    std::array<QVector<const SRecordedLine*>, InputsAndGuiCalls + 1> listLine; ///< by EnWanted; in their order
};
