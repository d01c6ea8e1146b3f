#pragma once

#include "journal/recording/JournalValue.h"

#include <unordered_map>

/// Puts pseudonyms in the place of names and addresses: the same for the same one as long as the mask lives, none of which
/// leads back. One thread.
class CJournalMask
{
public:
    /// bOnIn false: everything passes as it is.
    explicit CJournalMask(bool bOnIn) : bOn(bOnIn) { }

    bool IsOn() const;

    /// "name-1", "path-2.kvtl", "text-3"; an empty text stays empty.
    QString GetText(const SPrivateText& text);
    QString GetName(const QString& strName);

    /// An address of the network 0.0.0.0/8, which no device has; 0 stays 0.
    quint32 GetAddress(quint32 nIP);

private:
    const bool bOn;
    std::unordered_map<QString, QString> mapText; ///< by the kind's first word and the text
    std::unordered_map<quint32, quint32> mapAddress;
};
