#include "TestMain.h"

#include "CLeftoverGuard.h"
#include "CWarningGuard.h"

#include <QFont>
#include <QStyleFactory>
#include <QTemporaryDir>

#ifdef PTV_TSAN_BRIDGE
#include "tsan/TsanQt.h"
#endif

void ExpectWarning(const QString& strPattern)
{
    CWarningGuard::Instance().Expect(strPattern);
}

// Outside of any namespace: the macro declares a function.
static void InitTestIcons()
{
    Q_INIT_RESOURCE(testicons);
}

void TestMain::PrepareProcess()
{
    qputenv("LC_ALL", "C.UTF-8");
    // Nothing of the user's own settings is read or written.
    static const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    InitTestIcons();
}

void TestMain::PrepareApplication()
{
    QLocale::setDefault(QLocale::c());
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
        return;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(12);
    QApplication::setFont(font);
}

int TestMain::Run(QObject* pTest, int argc, char** argv)
{
    CLeftoverGuard leftovers;
    QTest::qInit(pTest, argc, argv);
    CWarningGuard::Instance().Install();
    int nFailed = QTest::qRun();
    nFailed += leftovers.Report();
    nFailed += CWarningGuard::Instance().Report();
    CWarningGuard::Instance().Uninstall();
    QTest::qCleanup();
    return qMin(nFailed, 125);
}

#ifdef PTV_TSAN_BRIDGE
void TestMain::BeforeDelivery(QObject* pReceiver, QEvent* pEvent)
{
    TsanQt::BeforeDelivery(pReceiver, pEvent);
}

void TestMain::AfterDelivery(QObject* pReceiver)
{
    TsanQt::AfterDelivery(pReceiver);
}
#else
void TestMain::BeforeDelivery(QObject*, QEvent*) { }

void TestMain::AfterDelivery(QObject*) { }
#endif
