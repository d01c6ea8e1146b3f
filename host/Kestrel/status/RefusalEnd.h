#pragma once

class IControlHost;
struct SRefusal;

/// When the reason of a refusal is no longer news.
namespace RefusalEnd {

/// Whether what stood in the way has gone, or the command has been carried out since, as far as the library knows: a
/// lock, a job, a scan that runs, a list that is saved. False for what only another command can mend.
bool IsOver(const SRefusal& refusal, const IControlHost& host);

} // namespace RefusalEnd
