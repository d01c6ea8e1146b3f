#pragma once

#include <QDateTime>

#include <optional>

/// Times of a recording, as its user's clock showed them.
namespace ReplayTime {

/// Of "14:03:12.345" or "14:03:12"; none for everything else.
std::optional<QTime> Read(const QString& strTime);

/// The first moment from timeStart on at which a clock of timeStart's own zone shows that time.
QDateTime FindMoment(const QDateTime& timeStart, const QTime& time);

/// "14:03:12.345" by the clock of timeStart's zone.
QString GetText(const QDateTime& timeStart, const QDateTime& time);

} // namespace ReplayTime
