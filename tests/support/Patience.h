#pragma once

/// How long a test waits for what must come, in milliseconds: enough on a machine with ten times more to do
/// than it can. A run that passes waits only as long as it takes.
constexpr int nPatience = 20000;
