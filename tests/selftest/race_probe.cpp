// One pattern of sharing data between threads a name, right or wrong; the thread sanitizer is to tell
// them apart. Prints nothing; the sanitizer's exit code is the answer.
#include "ContainerPatterns.h"
#include "LockPatterns.h"
#include "TestMain.h"
#include "ThreadEndPatterns.h"
#include "ThreadPatterns.h"

int main(int argc, char** argv)
{
    TestMain::CApplication<QCoreApplication> application(argc, argv);
    RacePatterns mapPattern = LockPatterns::All();
    for (const RacePatterns& mapMore : { ContainerPatterns::All(), ThreadPatterns::All(), ThreadEndPatterns::All() }) {
        mapPattern.insert(mapMore.cbegin(), mapMore.cend());
    }
    const auto it = argc == 2 ? mapPattern.find(argv[1]) : mapPattern.end();
    if (it == mapPattern.end()) {
        return 2;
    }
    it->second();
    return 0;
}
