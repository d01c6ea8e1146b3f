// A test program that breaks the rule its argument names; the guards of TestMain.h are to fail it.
#include "TestMain.h"

#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <thread>

class CGuardProbe : public QObject
{
    Q_OBJECT

private slots:
    void probe();
};

namespace {

QString s_strProbe;
QThread* s_pThread = nullptr;

void LeaveThread()
{
    s_pThread = new QThread;
    s_pThread->setObjectName(QStringLiteral("lost thread"));
    s_pThread->start();
}

void Break(const QString& strRule)
{
    if (strRule == QLatin1String("warning")) {
        qWarning("a surprise");
    } else if (strRule == QLatin1String("warningOnAThread")) {
        std::thread([] { qWarning("a surprise"); }).join();
    } else if (strRule == QLatin1String("missingWarning")) {
        ExpectWarning(QStringLiteral("never said"));
    } else if (strRule == QLatin1String("widget")) {
        (new QWidget)->setObjectName(QStringLiteral("lost widget"));
    } else if (strRule == QLatin1String("thread")) {
        LeaveThread();
    }
}

} // namespace

void CGuardProbe::probe()
{
    Break(s_strProbe);
}

int main(int argc, char** argv)
{
    s_strProbe = QString::fromLatin1(argc > 1 ? argv[1] : "nothing");
    argc = 1;
    const int nResult = TestMain::Main<CGuardProbe, QApplication>(argc, argv);
    std::fflush(nullptr);
    // A thread that is left over on purpose cannot be ended in order.
    std::quick_exit(nResult);
}

#include "guard_probe.moc"
