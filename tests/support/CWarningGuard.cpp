#include "CWarningGuard.h"

#include <QCoreApplication>
#include <QThread>
#include <QtTest>

#include <cstdio>

namespace {

/// What the offscreen platform and a bare machine say, whatever the program does.
bool IsOfThePlatform(const QString& strText)
{
    return strText.startsWith(QLatin1String("This plugin does not support "))
        || strText.startsWith(QLatin1String("QStandardPaths: "));
}

bool IsOnGuiThread()
{
    const QCoreApplication* pApplication = QCoreApplication::instance();
    return pApplication != nullptr && QThread::currentThread() == pApplication->thread();
}

} // namespace

CWarningGuard& CWarningGuard::Instance()
{
    static CWarningGuard guard;
    return guard;
}

void CWarningGuard::Install()
{
    pNext = qInstallMessageHandler(&CWarningGuard::Handle);
}

void CWarningGuard::Uninstall()
{
    qInstallMessageHandler(pNext);
}

void CWarningGuard::Expect(const QString& strPattern)
{
    const QMutexLocker locker(&mutex);
    listExpected.append(QRegularExpression(strPattern));
}

int CWarningGuard::Report()
{
    const QMutexLocker locker(&mutex);
    for (const QString& strText : std::as_const(listUnexpected)) {
        std::fprintf(stderr, "FAIL!  : unexpected message in %s\n", qPrintable(strText));
    }
    for (const QRegularExpression& pattern : std::as_const(listExpected)) {
        std::fprintf(stderr, "FAIL!  : expected message did not come: %s\n", qPrintable(pattern.pattern()));
    }
    return listUnexpected.size() + listExpected.size();
}

void CWarningGuard::Handle(QtMsgType type, const QMessageLogContext& context, const QString& strText)
{
    CWarningGuard& guard = Instance();
    const bool bWarning = type == QtWarningMsg || type == QtCriticalMsg;
    if (bWarning && guard.TakeExpected(strText)) {
        return;
    }
    if (bWarning && !IsOfThePlatform(strText)) {
        guard.NoteUnexpected(strText);
    }
    guard.pNext(type, context, strText);
}

bool CWarningGuard::TakeExpected(const QString& strText)
{
    const QMutexLocker locker(&mutex);
    const auto fnMatches = [&strText](const QRegularExpression& pattern) { return pattern.match(strText).hasMatch(); };
    const auto it = std::find_if(listExpected.begin(), listExpected.end(), fnMatches);
    if (it == listExpected.end()) {
        return false;
    }
    listExpected.erase(it);
    return true;
}

void CWarningGuard::NoteUnexpected(const QString& strText)
{
    const bool bInTest = IsOnGuiThread() && QTest::currentTestFunction() != nullptr;
    {
        const QMutexLocker locker(&mutex);
        const QString strWhere = QLatin1String(bInTest ? QTest::currentTestFunction() : "the run");
        listUnexpected.append(strWhere + QStringLiteral(": ") + strText);
    }
    // QTest's verdicts belong to the GUI thread; what other threads say counts at the end of the run.
    if (bInTest) {
        QTest::qFail("unexpected warning", __FILE__, __LINE__);
    }
}
