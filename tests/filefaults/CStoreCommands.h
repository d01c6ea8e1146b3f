#pragma once

#include "CorvidControl/objects/CControlLibrary.h"

#include <QStringList>

#include <memory>

/// The control library by lines of text: each is one command, each answer says what the library believes. It saves
/// nothing by itself.
class CStoreCommands
{
public:
    /// Starts nothing yet. strListFile: the list's own place.
    explicit CStoreCommands(const QString& strListFile);

    /// start             why the list is not being saved; empty when it is
    /// rename NAME       the first group gets that name
    /// add NAME          a new group
    /// save, leave       the result of ExportList at the own place; what an application is told that saves when it ends
    /// export PATH, import PATH    their results
    /// earlier, refused  takes the latest generation back; uses what was refused: "1" when that was done
    /// delete            the first group goes with its processors, as one job
    /// aside             the path of the dated file
    /// list              the check sum of the file that the list would be
    /// warnings          what was logged since, in one line
    /// end               saves as the library does by itself, and ends it
    QString Run(const QString& strCommand, const QString& strArgument);

private:
    QString Start();
    QString Change(const QString& strCommand, const QString& strArgument);
    QString Save(const QString& strCommand, const QString& strArgument);
    QString TakeEarlier();
    QString TakeWarnings();
    QString End();

    SControlOptions options;
    std::unique_ptr<CControlLibrary> pLibrary;
    QStringList listWarning;
};
