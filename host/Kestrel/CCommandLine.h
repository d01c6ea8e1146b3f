#pragma once

#include "Kestrel/SKestrelOptions.h"

/// Reads the command line. Needs no application object, since the scale must be known before there is one.
class CCommandLine
{
public:
    /// listArgument begins with the program's name. On a fault GetError is not empty.
    explicit CCommandLine(const QStringList& listArgument);

    const SKestrelOptions& GetOptions() const;

    /// One line that says what is wrong, or empty.
    QString GetError() const;

    /// What --help prints.
    static QString GetHelp();

private:
    void ReadTexts(const class QCommandLineParser& parser);
    void CheckChoice(const QString& strValue, const QString& strWhat, const QStringList& listChoice);
    void ReadNumbers(const QCommandLineParser& parser);
    void CheckCompany(const QCommandLineParser& parser);
    void ReadReplay(const QCommandLineParser& parser);
    void CheckReplayPictures();
    double ReadNumber(const QCommandLineParser& parser, const QString& strOption, double dLeast, double dMost);
    void Refuse(const QString& strReason);

    SKestrelOptions options;
    QString strError;
};
