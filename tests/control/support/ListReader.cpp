// Reads the list file named by the first argument as the library does. Prints how it was taken (0 valid,
// 1 invalid, 2 too large) and by how many KiB the memory of this process rose at its highest.

#include "CorvidControl/file/ListFormat.h"

#include <QFile>
#include <QList>

#include <cstdio>

namespace {

int GetPeak()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s", qPrintable(file.errorString()));
    }
    const QByteArray status = file.readAll();
    const QByteArray line = status.mid(status.indexOf("VmHWM:")).split('\n').first();
    return line.simplified().split(' ').value(1).toInt();
}

} // namespace

int main(int argc, char* argv[])
{
    const int nBefore = GetPeak();
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (nBefore <= 0 || !file.open(QIODevice::ReadOnly)) {
        return 1;
    }
    const SListReading reading = ListFormat::Read(file.readAll(), {});
    std::printf("%d %d\n", int(reading.verdict), GetPeak() - nBefore);
    return 0;
}
