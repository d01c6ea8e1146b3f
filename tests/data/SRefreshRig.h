#pragma once

#include "CSignalLog.h"
#include "data/CProcessorTreeData.h"
#include "double/CControlDouble.h"

#include <functional>

using AnswersChange = std::function<void(SControlAnswers&)>;

const QStringList NOTHING;
const QStringList listNodeInfo{ "NotifyNodeInfo" };
const QStringList listButton{ "NotifyButton" };
const QStringList listSelection{ "NotifyNodeSelectChanged" };
const QStringList listTitle{ "NotifyWindowTitle" };
const QStringList listChief{ "NotifyChiefChanged" };

/// A store of its own in front of a library that can be changed. It has read once: the trees and the
/// selections of a filled store, the project Opera.
struct SRefreshRig
{
    SRefreshRig();

    /// One refresh, on the caller's thread; its signals in the order of emission.
    QStringList Refresh();
    QStringList RefreshAfter(const AnswersChange& fnChange);

    CControlDouble control;
    CProcessorTreeData store;
    CSignalLog log{ &store };
};
