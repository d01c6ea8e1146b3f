#pragma once

/// The seven objects that have observers.
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
