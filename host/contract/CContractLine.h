#pragma once

#include "contract/SContractOptions.h"

class QCommandLineParser;

/// The command line of ptv-contract, read and checked.
class CContractLine
{
public:
    /// listArgument begins with the program's name.
    explicit CContractLine(const QStringList& listArgument);

    /// One sentence without a full stop; empty when all is well.
    QString GetError() const
    {
        return strError;
    }

    const SContractOptions& GetOptions() const
    {
        return options;
    }

    static QString GetHelp();

private:
    void ReadValues(const QCommandLineParser& parser);
    void Check();
    void Refuse(const QString& strReason);

    SContractOptions options;
    QString strError;
};
