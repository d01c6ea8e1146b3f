#pragma once

#include "Kestrel/CLanguage.h"
#include "Kestrel/SKestrelOptions.h"
#include "Kestrel/replay/SReplayResult.h"
#include "Kestrel/theme/CTheme.h"

#include <QObject>

class CReplayHost;
class CReplayLibrary;
class CReplaySource;
struct SControlPointers;

/// One run of the program in which a recorded run happens once more, before the same panel or another. The user's settings are
/// neither read nor written, no list is opened, and no journal is kept.
class CReplayRun : public QObject
{
    Q_OBJECT

public:
    static constexpr int nCodeDiffers = 6;

    /// sourceIn is open, and outlives it.
    CReplayRun(const SKestrelOptions& optionsIn, const CReplaySource& sourceIn);

    /// Prints what came of it and returns the exit code: 0 as recorded, 1 no control library or panel, 2 a bad option, 6 it
    /// differs. GUI thread, once.
    int Run();

private:
    void TakeLook();
    int RunWindow(CReplayHost& host, const SControlPointers& pointers, CReplayLibrary& library);

    const SKestrelOptions options;
    const CReplaySource& source;
    CTheme theme;
    CLanguage language;
    SReplayResult result;
};
