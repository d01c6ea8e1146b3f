#pragma once

/// The seven objects that have observers. An observer hears only those that it is attached to.
enum EnMessageSender
{
    SenderPrcBasic,
    SenderPrcList,
    SenderRuntime,
    SenderPrcRuntime,
    SenderProjectManage,
    SenderProtocal,
    SenderPreference,
};
