#pragma once

class CReplaySource;
class QString;
struct SReplayResult;

/// What a replay has found, for a reader.
namespace ReplayReport {

/// A paragraph, in English.
QString GetText(const CReplaySource& source, const SReplayResult& result);

} // namespace ReplayReport
