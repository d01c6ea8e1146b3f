#pragma once

/// All messages of the library. The numbers are the panel's, see CorvidControl.h: it reads everything
/// anew on each of them but MessageSettled. 14 and 15 are EnPostedMessage, which the panel posts itself.
/// Which of them waits while the user is in the middle of something: see CUserActivity.
enum EnControlMessage
{
    MessageListChanged = 1,      ///< nodes came, went, moved, got a name, were folded; a list was imported
    MessageDevicesChanged = 7,   ///< devices: online state, redundancy role, project
    MessageSelectionChanged = 9, ///< the selection of a pane or the current pane
    MessageProjectChanged = 10,  ///< the host opened or closed a project
    MessageChiefChanged = 32,    ///< Chief-Member mode, or the Chief of a group
    MessageCommandsChanged = 53, ///< the list was locked or unlocked, refresh blocked or allowed
    MessageCommandRefused = 54,  ///< a command had no effect: what the sender shows may be ahead
    MessageSettled = 59,         ///< the last of a burst. Wakes an observer that missed the wake-up of it
};
