#pragma once

#include <QString>

#include <vector>

/// One promise of the contract, as its comment in interfaces/ or nodes/ numbers it.
struct SPromise
{
    enum EnClass
    {
        Required,    ///< the panel relies on it
        Recommended, ///< the panel does without, at a price; every good library keeps it
        NotTestable, ///< nothing that can be called shows whether it is kept
    };

    QString strId; ///< "C-list-1"
    EnClass kind = Required;
    QString strSentence; ///< one sentence with its full stop
};

/// The promises of the contract.
namespace Promises {

/// All, in the order of the report. A test holds them against the comments.
const std::vector<SPromise>& GetAll();

/// "required", "recommended", "not testable".
QString GetName(SPromise::EnClass kind);

} // namespace Promises
