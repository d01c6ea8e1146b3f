#pragma once

#include <QUuid>

#include <string>

/// The open project. The caller builds the record with its defaults, the control library overwrites
/// what it knows.
///
/// The caller sets the time fields to its local time at the moment of the call.
///
/// @since 0.1
struct SProjectInfo
{
    QUuid idProject;        ///< of the open project; the panel does not read it
    std::string strName;    ///< UTF-8; empty when no project is open
    quint64 nReserved1 = 0; ///< of the control library
    qint32 nYear = 0;       ///< full year, 2026
    qint32 nMonth = 0;      ///< 1 to 12
    qint32 nDay = 0;        ///< 1 to 31
    qint32 nHour = 0;       ///< 0 to 23
    qint32 nMinute = 0;     ///< 0 to 59
    qint32 nSecond = 0;     ///< 0 to 60
    quint64 nReserved2 = 0; ///< of the control library
    quint64 nReserved3 = 0; ///< of the control library
};
