#include "Builders.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/objects/CControlHost.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

// In memory, where there is one of that kind: what the disk takes is not ours.
QString GetFolder()
{
    const QString strMemory = QStringLiteral("/dev/shm");
    return (QFileInfo(strMemory).isWritable() ? strMemory : QDir::tempPath()) + QStringLiteral("/ptv_lists-XXXXXX");
}

/// The longest list that is legal as the library writes it, or in the longest file that is: filled up with
/// blanks, in the way of another tool.
QByteArray WriteLongest(bool bExpanded, bool bFilled)
{
    SProcessorAllNode node = BuildLongestList();
    node.bExpanded = bExpanded;
    QByteArray bytes = ListFormat::Write(node);
    if (bFilled) {
        QByteArray body = bytes.mid(bytes.indexOf('\n') + 1);
        body.append(SListLimits().nBytes - bytes.size(), ' ');
        bytes = "kvtl 1 sha256:" + QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex() + '\n' + body;
    }
    return bytes;
}

/// The text, which is read on the GUI thread.
void BM_ReadTheLongestList(benchmark::State& state)
{
    const QByteArray bytes = WriteLongest(true, state.range(0));
    for (auto _ : state) {
        if (ListFormat::Read(bytes, {}).verdict != SListReading::Valid) {
            state.SkipWithError("the longest list is refused");
        }
    }
    state.counters["bytes"] = bytes.size();
}

/// The whole of an import of the longest list over another of that length: reading and proving, the
/// generation of the list before, and taking it in. The GUI thread waits for it.
void BM_ImportTheLongestList(benchmark::State& state)
{
    const QTemporaryDir folder(GetFolder());
    const auto write = [&](const QString& strName, bool bExpanded) {
        QFile file(folder.filePath(strName));
        const QByteArray bytes = WriteLongest(bExpanded, state.range(0));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            state.SkipWithError("the lists cannot be written");
        }
        return folder.filePath(strName);
    };
    const QString listFile[]{ write(QStringLiteral("one.kvtl"), true), write(QStringLiteral("two.kvtl"), false) };
    SControlOptions options;
    options.strListFile = write(QStringLiteral("list.kvtl"), true);
    options.bQuietDay = false;
    const std::unique_ptr<CControlHost> pHost = CControlHost::Start(options);
    int n = 0;
    for (auto _ : state) {
        if (g_pPrcListControl->ImportList(listFile[++n % 2]) != 0) {
            state.SkipWithError("the longest list is not imported");
        }
    }
}

} // namespace

BENCHMARK(BM_ReadTheLongestList)->ArgName("filled")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportTheLongestList)->ArgName("filled")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
