#pragma once

#include "check/CExpectedSelection.h"
#include "panel/SPanelPicture.h"

/// What holds whenever the panel has settled, whatever was done. Each answers with what is wrong, empty when nothing is.
namespace Invariants {

/// The rows are those of the library's tree, in its order, and open as it says. The root and groups without members are left
/// out of the latter: a rebuild always opens the root, and there is nothing to see of the others.
QString CheckRows(const SPanelPicture& picture);

/// The map of ids leads to each row but the information rows, and to nothing else.
QString CheckIdMap(const SPanelPicture& picture);

/// The filter hides what neither matches nor stands in a group whose name does, and groups of which nothing is left.
QString CheckFilter(const SPanelPicture& picture);

/// Each SetBusy(true) had its SetBusy(false).
QString CheckBusy(const SPanelPicture& picture);

/// No message box, dialog or menu stays open.
QString CheckNothingOpen(const SPanelPicture& picture);

/// The pane on the screen is the library's.
QString CheckPane(const SPanelPicture& picture);

/// Neither the model tester nor Qt complains, but for what KeptExceptions names.
QString CheckComplaints(const SPanelPicture& picture);

/// The panel came to rest.
QString CheckSettled(const SPanelPicture& picture);

/// What the rows and the library have selected is what it has come to, Discovered first.
QString CheckSelection(const SPanelPicture& picture, const std::array<CExpectedSelection, 2>& arrExpected);

/// Two sets that have to be the same, in words.
QString Compare(const QString& strWhat, const NodeIds& setFound, const NodeIds& setWanted);

/// Those that hold under any fault of the library, and then all. The first that is broken.
QString CheckUnderFault(const SPanelPicture& picture);
QString CheckAll(const SPanelPicture& picture); ///< as above

} // namespace Invariants
