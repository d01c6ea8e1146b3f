#include "CorvidControl/file/ListFormat.h"

#include "nodes/SProcessorAllNode.h"

#include <QByteArray>

#include <cstdio>
#include <cstdlib>

namespace {

void Expect(bool bHolds, const char* szPromise)
{
    if (!bHolds) {
        std::fprintf(stderr, "broken promise: %s\n", szPromise);
        std::abort();
    }
}

bool IsEmpty(const SProcessorAllNode& node)
{
    return node.listGroup.isEmpty() && node.listProcessor.isEmpty();
}

/// What holds of every reading: a refusal has a reason and no list, and a list that was taken is written
/// and read again to the same bytes.
void Check(const SListReading& reading)
{
    if (reading.verdict != SListReading::Valid) {
        Expect(!reading.strReason.isEmpty(), "a refusal has a reason");
        Expect(IsEmpty(reading.node), "a refusal holds no list");
        return;
    }
    const QByteArray written = ListFormat::Write(reading.node);
    const SListReading again = ListFormat::Read(written, SListLimits());
    Expect(again.verdict == SListReading::Valid, "what was written is read");
    Expect(ListFormat::Write(again.node) == written, "a list that comes back is written to the same bytes");
}

} // namespace

/// Any bytes as a whole file, where the check sum refuses nearly all, and as what stands behind it.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* pData, size_t nSize)
{
    const QByteArray bytes(reinterpret_cast<const char*>(pData), static_cast<int>(nSize));
    Check(ListFormat::Read(bytes, SListLimits()));
    Check(ListFormat::ReadBody(bytes, SListLimits()));
    Check(ListFormat::ReadBody(bytes, SListLimits(), ListFormat::NamesMended));
    return 0;
}
