#pragma once

#include "interfaces/control/SProjectInfo.h"
#include "interfaces/control/SSimulatorRequest.h"
#include "nodes/SProcessorAllNode.h"

#include <QStringList>

#include <variant>
#include <vector>

/// What a text may give away, and so how it is masked.
enum EnPrivateText
{
    PrivateName = 0, ///< of a node or a project
    PrivatePath = 1, ///< of a file; its suffix stays
    PrivateText = 2, ///< anything that a user has typed, or that may hold a name
};

/// A text that is masked where that is asked for.
struct SPrivateText
{
    explicit SPrivateText(const QString& strTextIn, EnPrivateText kindIn = PrivateName) : strText(strTextIn), kind(kindIn) { }

    QString strText;
    EnPrivateText kind;
};

/// Several of them, in order.
struct SPrivateTexts
{
    std::vector<SPrivateText> vecText;
};

/// An IPv4 address in host order, masked where that is asked for.
struct SAddress
{
    explicit SAddress(quint32 nIPIn) : nIP(nIPIn) { }

    quint32 nIP;
};

/// Several of them, in order.
struct SAddresses
{
    std::vector<quint32> vecIP;
};

/// One argument or result of a call, whole. Cheap to copy: texts and lists share their data. A plain QString is never
/// masked: it comes from a fixed vocabulary.
using JournalValue
    = std::variant<std::monostate, bool, qint64, QString, SPrivateText, SPrivateTexts, SAddress, SAddresses, QUuid,
                   std::vector<QUuid>, QStringList, SProcessorAllNode, SProcessorGroupNode, SProjectInfo, SSimulatorRequest>;
