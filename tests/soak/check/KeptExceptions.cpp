#include "check/KeptExceptions.h"

bool KeptExceptions::IsComplaint(const QString& strComplaint)
{
    // The rows of the root are set one by one with setChild(), as the contract has it; the first one under a root without rows
    // makes QStandardItemModel announce a row that the tester does not find yet.
    const bool bFirstRow = strComplaint.startsWith(QLatin1String("FAIL! childIndex.isValid() "));
    // F2 on a selected row in a folded group: its editor gets the width of the row, which is nothing, less the margins.
    const bool bNoWidth = strComplaint.contains(QLatin1String("(/QLineEdit) Negative sizes"));
    return bFirstRow || bNoWidth;
}

QString KeptExceptions::GetReasonToHitOthers(EnApart apart)
{
    switch (apart) {
    case ApartNot:
        break;
    case ApartSuppressed:
        return QStringLiteral("F2 sets the suppression before an editor opens; where none does it stays until one has closed");
    case ApartEmptied:
        return QStringLiteral("an emptied selection is not reported: store and library keep the last one");
    case ApartFilter:
        return QStringLiteral("the filter only hides: a hidden row stays selected, and a report leaves it out");
    case ApartEditor:
        return QStringLiteral("the end of a rename selects the current row without a report");
    }
    return {};
}

// The view takes "+", "-" and "*" on a row without children for a fold of it, wherever that row is hidden, and Left once it
// passes for open. An information row has the id of its processor, and a fold is passed on by the id of its row, whatever its
// kind; End is how it becomes the current one.
bool KeptExceptions::IsFoldApart(Qt::Key key, const SPictureKey& keyCurrent)
{
    const bool bFolds = key == Qt::Key_Plus || key == Qt::Key_Minus || key == Qt::Key_Asterisk || key == Qt::Key_Left;
    return bFolds && keyCurrent.nType == NodeInfo;
}
