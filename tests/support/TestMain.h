#pragma once

#include "Patience.h"

#include <QApplication>
#include <QtTest>

// Qt's own five seconds are too short on an overloaded machine.
#undef QTRY_VERIFY
#define QTRY_VERIFY(expr) QTRY_VERIFY_WITH_TIMEOUT((expr), nPatience)
#undef QTRY_COMPARE
#define QTRY_COMPARE(expr, expected) QTRY_COMPARE_WITH_TIMEOUT((expr), expected, nPatience)

/// The main function of every test program:
///
///     PTV_TEST_MAIN(CStoreTest)       widgets allowed
///     PTV_TEST_MAIN_CORE(CQueueTest)  QCoreApplication only
///
/// It gives each run the same surroundings (Fusion style, Inter at 12 pixels, C locale, no native
/// dialogs, the test icons under ":/image/"), and it fails the run
///  - on any warning or critical message that no ExpectWarning() announced, from any thread,
///  - on an announced warning that did not come,
///  - when at the end a top-level widget, a thread or a job of the global pool is left over.

/// The next message that matches strPattern is expected and is not printed. Use this in place of
/// QTest::ignoreMessage, which does not know the rule above.
void ExpectWarning(const QString& strPattern);

namespace TestMain {

/// Runs pTest between the guards; returns the program's exit code.
int Run(QObject* pTest, int argc, char** argv);

/// Before the application exists, and after.
void PrepareProcess();
void PrepareApplication();

/// Tells the thread sanitizer that pReceiver has taken what pEvent's sender did before. Nothing in
/// other builds.
void BeforeDelivery(QObject* pReceiver, QEvent* pEvent);
void AfterDelivery(QObject* pReceiver);

/// The application of a test program.
template <class Base> class CApplication : public Base
{
public:
    using Base::Base;

    bool notify(QObject* receiver, QEvent* event) override
    {
        BeforeDelivery(receiver, event);
        const bool bTaken = Base::notify(receiver, event);
        AfterDelivery(receiver);
        return bTaken;
    }
};

template <class Test, class Base> int Main(int argc, char** argv)
{
    PrepareProcess();
    CApplication<Base> application(argc, argv);
    PrepareApplication();
    Test test;
    return Run(&test, argc, argv);
}

} // namespace TestMain

#define PTV_TEST_MAIN(Class)                                                                                                     \
    int main(int argc, char** argv)                                                                                              \
    {                                                                                                                            \
        return TestMain::Main<Class, QApplication>(argc, argv);                                                                  \
    }

#define PTV_TEST_MAIN_CORE(Class)                                                                                                \
    int main(int argc, char** argv)                                                                                              \
    {                                                                                                                            \
        return TestMain::Main<Class, QCoreApplication>(argc, argv);                                                              \
    }
