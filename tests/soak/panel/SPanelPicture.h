#pragma once

#include "nodes/EnNodeType.h"
#include "nodes/SProcessorAllNode.h"

#include <QSet>
#include <QStringList>
#include <QVector>

#include <array>
#include <vector>

using NodeIds = QSet<QUuid>;

/// A row by its kind and id, which outlast a rebuild.
struct SPictureKey
{
    int nType = 0; ///< EnNodeType; 0 for no row
    QUuid id;

    bool operator==(const SPictureKey& other) const
    {
        return nType == other.nType && id == other.id;
    }
};

inline uint qHash(const SPictureKey& key, uint nSeed = 0)
{
    return qHash(key.id, nSeed) ^ static_cast<uint>(key.nType);
}

using RowKeys = QSet<SPictureKey>;

/// A row of the tree as it stands.
struct SPictureRow
{
    SPictureKey key;
    int nDepth = 0;         ///< 0 for the root
    bool bExpanded = false; ///< whether or not it has children
    bool bHidden = false;   ///< by the filter: it, or what it stands under
    bool bLaidOut = false;  ///< neither hidden nor in something that is folded
    bool bSelected = false;
    bool bMapped = false; ///< the map of ids leads to it
};

/// All that is looked at when the panel has settled: a value without a widget, so that checks can be tried on any.
struct SPanelPicture
{
    bool bSimulator = false;                       ///< the pane on the screen
    bool bLibrarySimulator = false;                ///< the library's current pane
    QVector<SPictureRow> vecRow;                   ///< of the tree of that pane, from the top, folded and hidden ones too
    SPictureKey keyCurrent;                        ///< the current row of the view
    int nMapped = 0;                               ///< entries of the map of ids
    bool bRebuilt = false;                         ///< rows have come or gone since the picture before
    QString strSearch;                             ///< in the search box
    int nBusy = 0;                                 ///< SetBusy(true) without their SetBusy(false)
    QStringList listOpen;                          ///< dialogs, menus and editors that are on the screen
    QStringList listComplaint;                     ///< of the model tester and of Qt, since the picture before
    NodeIds setFoldApart;                          ///< processors that need not be open as the library says, see KeptExceptions
    bool bSettled = true;                          ///< false: messages came without an end
    std::array<SProcessorAllNode, 2> arrTree;      ///< the library's, Discovered first
    std::array<std::vector<QUuid>, 2> arrSelected; ///< as arrTree

    const SProcessorAllNode& Tree() const
    {
        return arrTree[bSimulator ? 1 : 0];
    }
};

/// Questions to a picture.
namespace PanelPicture {

/// Rows that are neither hidden nor folded away, from the top, by their numbers in vecRow.
QVector<int> GetLaidOut(const SPanelPicture& picture);

/// The number of the row; -1 when it is not there.
int FindRow(const SPanelPicture& picture, const SPictureKey& key);

RowKeys GetSelected(const SPanelPicture& picture);

/// Without the hidden ones: as it looks to the user. Members of folded groups count, they show as soon as it opens.
RowKeys GetSeen(const SPanelPicture& picture);

/// Groups and processors, and the null id for the root.
NodeIds GetIds(const RowKeys& setRow);

/// Those of a tree, with the null id.
NodeIds GetIds(const SProcessorAllNode& node);

QString GetText(const NodeIds& setId);

} // namespace PanelPicture
