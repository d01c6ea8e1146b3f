#include "Kestrel/CCommandLine.h"
#include "Kestrel/CKestrel.h"
#include "Kestrel/DisplayServer.h"
#include "Kestrel/Fonts.h"
#include "Kestrel/replay/CReplayRun.h"
#include "Kestrel/replay/CReplaySource.h"
#include "Kestrel/replay/ReplayListing.h"

#include <QApplication>
#include <QIcon>

#include <csignal>
#include <cstdio>

namespace {

constexpr int nCodeBadOption = 2;
constexpr int nCodeNoDisplay = 4;
constexpr int nCodeNoFont = 5;

QStringList GetArguments(int argc, char** argv)
{
    QStringList listArgument;
    for (int n = 0; n < argc; ++n) {
        listArgument.append(QString::fromLocal8Bit(argv[n]));
    }
    return listArgument;
}

/// What the command line asks for, or else what the recording had.
double GetScale(const SKestrelOptions& options, const CReplaySource& source)
{
    const double dRecorded = options.strReplayFile.isEmpty() ? 0.0 : source.GetHeaderText(QStringLiteral("scale")).toDouble();
    return options.dScale > 0.0 ? options.dScale : dRecorded;
}

/// What must be set before the application object exists.
void Prepare(double dScale)
{
    // The screen's own factor only where none is asked for: the two would multiply.
    if (dScale > 0.0) {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(dScale));
    } else {
        QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    }
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setApplicationName(QStringLiteral("Kestrel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTREL_VERSION));
}

} // namespace

int main(int argc, char** argv)
{
    // One who read our output and has gone must not cost the list.
    std::signal(SIGPIPE, SIG_IGN);
    const CCommandLine commandLine(GetArguments(argc, argv));
    if (!commandLine.GetError().isEmpty()) {
        CKestrel::Complain(commandLine.GetError());
        return nCodeBadOption;
    }
    if (commandLine.GetOptions().bHelp) {
        std::fputs(qUtf8Printable(CCommandLine::GetHelp()), stdout);
        return 0;
    }
    if (commandLine.GetOptions().bVersion) {
        std::puts("kestrel " KESTREL_VERSION);
        return 0;
    }
    CReplaySource source;
    const QString& strReplayFile = commandLine.GetOptions().strReplayFile;
    if (!strReplayFile.isEmpty() && !source.Open(strReplayFile)) {
        CKestrel::Complain(source.GetError());
        return source.GetErrorCode();
    }
    if (commandLine.GetOptions().bListing) {
        std::puts(qUtf8Printable(ReplayListing::GetText(source)));
        return 0;
    }
    const QString strDisplayFault = DisplayServer::Choose();
    if (!strDisplayFault.isEmpty()) {
        CKestrel::Complain(strDisplayFault);
        return nCodeNoDisplay;
    }
    Prepare(GetScale(commandLine.GetOptions(), source));
    // Only the program's name: everything else has been read, and Qt takes none of it.
    int nCount = 1;
    const QApplication application(nCount, argv);
    const QString strFontFault = Fonts::FindFault();
    if (!strFontFault.isEmpty()) {
        CKestrel::Complain(strFontFault);
        return nCodeNoFont;
    }
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/image/kestrel/kestrel.svg")));
    if (!strReplayFile.isEmpty()) {
        return CReplayRun(commandLine.GetOptions(), source).Run();
    }
    CKestrel kestrel(commandLine.GetOptions());
    return kestrel.Run();
}
