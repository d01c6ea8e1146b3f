#pragma once

class CReplaySource;
class QString;

/// The story of a recording for a reader, who looks for the time of a picture to ask for.
namespace ReplayListing {

/// One line each, with its time by the recording's clock: what the user did and hit, messages with their causes, calls that
/// change something, steps of the devices, refusals, what held the window up. Behind ids stand the names that the nodes
/// had then. In English. Needs no application.
QString GetText(const CReplaySource& source);

} // namespace ReplayListing
