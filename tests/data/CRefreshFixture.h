#pragma once

#include "CSignalLog.h"
#include "fixtures/CStoreFixture.h"

const QStringList listNothing;
const QStringList listNodeInfo{ "NotifyNodeInfo" };
const QStringList listButton{ "NotifyButton" };
const QStringList listSelection{ "NotifyNodeSelectChanged" };
const QStringList listTitle{ "NotifyWindowTitle" };
const QStringList listChief{ "NotifyChiefChanged" };

/// The signals of a store that has read once: the trees and the selections of a filled store, the project
/// Opera.
class CRefreshFixture : public CStoreFixture
{
public:
    CRefreshFixture();

    /// One refresh, on the caller's thread; its signals in the order of emission.
    QStringList Refresh();
    QStringList RefreshAfter(const FnAnswers& fnChange);

    CSignalLog log{ &store };
};
