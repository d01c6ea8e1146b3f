#include "CProgram.h"
#include "Kestrel/CKestrel.h"
#include "Kestrel/CSettings.h"
#include "Kestrel/WindowPlace.h"
#include "TestMain.h"

#include <QAction>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMainWindow>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

const QRect rcPlace(40, 30, 700, 500);
constexpr int nJournalWidth = 320;

/// The user's file in the folder of this program.
QString FilePath()
{
    return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Kestrel/Kestrel.ini");
}

void WriteFile(const QString& strPath, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(strPath).path());
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// A window as Kestrel's: with a dock, which is shut.
struct SWindow
{
    SWindow()
    {
        auto* pCentral = new QWidget(&window);
        pCentral->setMinimumWidth(100);
        window.setCentralWidget(pCentral);
        pDock->setWidget(new QWidget(pDock));
        pDock->setObjectName("JournalDock");
        window.addDockWidget(Qt::RightDockWidgetArea, pDock);
        pDock->hide();
        window.resize(640, 480);
    }

    QMainWindow window;
    QDockWidget* pDock = new QDockWidget(&window);
};

QRect Place(const QMainWindow& window)
{
    return QRect(window.pos(), window.size());
}

/// The line of the file that begins so.
QByteArray LineOf(const CProgram& program, const QByteArray& strKey)
{
    const QList<QByteArray> listLine = CProgram::Read(program.Path("tmp/Kestrel/Kestrel.ini")).split('\n');
    for (const QByteArray& line : listLine) {
        if (line.startsWith(strKey + '=')) {
            return line.mid(strKey.size() + 1);
        }
    }
    return {};
}

/// Runs the program until its picture is taken, which is returned.
QImage RunForPicture(CProgram& program, const QStringList& listOption)
{
    const QString strPicture = program.Path("a.png");
    const QStringList listAll{ "--list", program.Path("a.kvtl"), "--shot", strPicture, "--at", "0.3" };
    return program.Run(listAll + listOption) && program.ExitCode() == 0 ? QImage(strPicture) : QImage();
}

/// Runs Kestrel in this process, as a user does: fnLook gets its window and its journal, then the window is closed.
void RunKestrel(const QString& strScenario, const std::function<void(QMainWindow&, QDockWidget&)>& fnLook)
{
    const QTemporaryDir folder;
    SKestrelOptions options;
    options.strListFile = folder.filePath("a.kvtl");
    options.strScenarioFile = strScenario;
    QTimer::singleShot(0, qApp, [&fnLook] {
        for (QWidget* pWidget : QApplication::topLevelWidgets()) {
            if (auto* pWindow = qobject_cast<QMainWindow*>(pWidget)) {
                fnLook(*pWindow, *pWindow->findChild<QDockWidget*>());
            }
        }
        QApplication::closeAllWindows();
    });
    QCOMPARE(CKestrel(options).Run(), 0);
    qApp->setStyleSheet(QString());
}

QAction* FindAction(const QVariant& data)
{
    for (const QWidget* pWidget : QApplication::topLevelWidgets()) {
        for (QAction* pAction : pWidget->findChildren<QAction*>()) {
            if (pAction->data() == data) {
                return pAction;
            }
        }
    }
    return nullptr;
}

} // namespace

/// What is remembered from one start to the next.
class CSettingsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QFile::remove(FilePath());
    }

    void withoutAFileTheDefaultsHold()
    {
        SWindow scene;
        const QRect rcBefore = Place(scene.window);
        const CSettings settings;

        settings.RestoreWindow(scene.window);

        QCOMPARE(settings.GetFault() + settings.GetTheme() + settings.GetLanguage(), QString());
        QCOMPARE(Place(scene.window), rcBefore);
        QVERIFY(scene.pDock->isHidden() && !QFile::exists(FilePath()));
    }

    void choicesAreBackAtTheNextStart()
    {
        CSettings settings;
        settings.SetTheme("contrast");
        settings.SetLanguage("zh_CN");

        QCOMPARE(CSettings().GetTheme(), QStringLiteral("contrast"));
        QCOMPARE(CSettings().GetLanguage(), QStringLiteral("zh_CN"));
    }

    void theWindowIsBackAsItWas_data()
    {
        QTest::addColumn<bool>("bMaximised");
        QTest::addColumn<bool>("bJournal");
        QTest::newRow("journal shut") << false << false;
        QTest::newRow("journal shown") << false << true;
        QTest::newRow("maximised") << true << true;
    }

    void theWindowIsBackAsItWas()
    {
        QFETCH(bool, bMaximised);
        QFETCH(bool, bJournal);
        {
            SWindow scene;
            scene.window.move(rcPlace.topLeft());
            scene.window.resize(rcPlace.size());
            scene.pDock->setVisible(bJournal);
            scene.window.resizeDocks({ scene.pDock }, { nJournalWidth }, Qt::Horizontal);
            scene.window.show();
            QCOMPARE(scene.pDock->isVisible() ? scene.pDock->width() : nJournalWidth, nJournalWidth);
            scene.window.setWindowState(bMaximised ? Qt::WindowMaximized : Qt::WindowNoState);
            scene.window.close();
            CSettings().SaveWindow(scene.window, true);
        }
        SWindow scene;
        CSettings().RestoreWindow(scene.window);
        scene.window.show();

        QCOMPARE(scene.window.isMaximized(), bMaximised);
        scene.window.showNormal();
        QCOMPARE(Place(scene.window), rcPlace);
        QCOMPARE(scene.pDock->isVisible(), bJournal);
    }

    void theWidthOfTheJournalOutlivesItsClosing()
    {
        SWindow first;
        first.pDock->show();
        first.window.setGeometry(rcPlace);
        first.window.resizeDocks({ first.pDock }, { nJournalWidth }, Qt::Horizontal);
        first.window.show();
        QCOMPARE(first.pDock->width(), nJournalWidth);
        CSettings().SaveWindow(first.window, true);
        first.pDock->hide();
        CSettings().SaveWindow(first.window, true);
        SWindow second; // in which it is never opened
        CSettings().RestoreWindow(second.window);
        second.window.show();
        second.pDock->resize(99, 99); // what a dock that is shut holds is no width of the user's
        CSettings().SaveWindow(second.window, true);

        SWindow third;
        CSettings().RestoreWindow(third.window);
        third.window.show();
        third.pDock->show();

        QTRY_COMPARE(third.pDock->width(), nJournalWidth);
    }

    void aWindowIsNeverLost_data()
    {
        QTest::addColumn<QRect>("rcStored");
        QTest::newRow("far to the right") << QRect(5000, 100, 700, 500);
        QTest::newRow("far above") << QRect(100, -4000, 700, 500);
        QTest::newRow("larger than the screen") << QRect(0, 0, 3840, 2160);
        QTest::newRow("partly outside") << QRect(600, 700, 700, 500);
    }

    void aWindowIsNeverLost()
    {
        QFETCH(QRect, rcStored);
        SWindow first;
        first.window.setGeometry(rcStored);
        CSettings().SaveWindow(first.window, true);
        SWindow second;

        CSettings().RestoreWindow(second.window);

        const QRect rcScreen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(rcScreen.contains(Place(second.window)));
    }

    void aPlaceIsFoundOnTheScreenThatHasMostOfIt_data()
    {
        QTest::addColumn<QRect>("rcWindow");
        QTest::addColumn<QRect>("rcExpected");
        QTest::newRow("as it was") << QRect(10, 20, 300, 200) << QRect(10, 20, 300, 200);
        QTest::newRow("on the second") << QRect(900, 20, 300, 200) << QRect(1000, 20, 300, 200);
        QTest::newRow("on neither") << QRect(5000, 5000, 300, 200) << QRect(700, 600, 300, 200);
        QTest::newRow("too large") << QRect(-50, -50, 3000, 3000) << QRect(1000, 0, 1600, 1200);
    }

    void aPlaceIsFoundOnTheScreenThatHasMostOfIt()
    {
        QFETCH(QRect, rcWindow);
        const QList<QRect> listScreen{ QRect(0, 0, 1000, 800), QRect(1000, 0, 1600, 1200) };
        QTEST(WindowPlace::Fit(rcWindow, listScreen), "rcExpected");
        QCOMPARE(WindowPlace::Fit(rcWindow, {}), rcWindow);
    }

    void whatCannotBeUnderstoodIsLeftOutWithOneLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("strTheme");
        QTest::addColumn<QString>("strLanguage");
        QTest::newRow("no settings at all") << QByteArray("\x7f"
                                                          "ELF\1\2\3 no settings\n")
                                            << QString() << QString();
        QTest::newRow("cut off") << QByteArray("[General]\ntheme=contrast\nlangua") << "contrast" << QString();
        QTest::newRow("a theme that there is not") << QByteArray("[General]\nlanguage=de\ntheme=pink\n") << QString() << "de";
        QTest::newRow("a language that there is not")
            << QByteArray("[General]\nlanguage=xx\ntheme=contrast\n") << "contrast" << QString();
        const QByteArray strGood("[General]\nlanguage=de\ntheme=contrast\n");
        QTest::newRow("a place that is none") << strGood + "[window]\nplace=hello\n" << "contrast" << "de";
        QTest::newRow("an empty place") << strGood + "[window]\nplace=@Rect(1 2 0 0)\n" << "contrast" << "de";
        QTest::newRow("a width that is none") << strGood + "[journal]\nwidth=-7\n" << "contrast" << "de";
        QTest::newRow("a switch that is none") << strGood + "[journal]\nshown=maybe\n" << "contrast" << "de";
    }

    void whatCannotBeUnderstoodIsLeftOutWithOneLine()
    {
        QFETCH(QByteArray, bytes);
        WriteFile(FilePath(), bytes);
        SWindow scene;
        const QRect rcBefore = Place(scene.window);
        const CSettings settings;
        settings.RestoreWindow(scene.window);

        QVERIFY2(settings.GetFault().contains(FilePath()) && !settings.GetFault().contains('\n'),
                 qPrintable(settings.GetFault()));
        QTEST(settings.GetTheme(), "strTheme");
        QTEST(settings.GetLanguage(), "strLanguage");
        QCOMPARE(Place(scene.window), rcBefore);
        QCOMPARE(CProgram::Read(FilePath()), bytes); // until something is chosen
    }

    void whatANewerProgramHasWrittenStays()
    {
        WriteFile(FilePath(), "[General]\ntheme=pink\nsound=loud\n\n[window]\nplace=@Rect(40 30 700 500)\n");
        SWindow scene;
        CSettings settings;
        settings.RestoreWindow(scene.window);
        QCOMPARE(Place(scene.window), rcPlace);

        settings.SetLanguage("de");

        const QByteArray strWritten = CProgram::Read(FilePath());
        QVERIFY2(strWritten.contains("theme=pink\n") && strWritten.contains("sound=loud\n"), strWritten.constData());
        QCOMPARE(CSettings().GetLanguage(), QStringLiteral("de"));
    }

    void aFileThatIsNoneIsWrittenAnew()
    {
        WriteFile(FilePath(), "no settings\n");
        SWindow scene;
        CSettings settings;
        settings.SetLanguage("de");
        settings.SaveWindow(scene.window, true);
        QCOMPARE(CSettings().GetFault(), QString());
        QCOMPARE(CSettings().GetLanguage(), QStringLiteral("de"));
    }

    void aJournalThatWasNotTheUsersIsNotKept()
    {
        SWindow scene;
        CSettings().SaveWindow(scene.window, true);
        scene.pDock->show();
        CSettings().SaveWindow(scene.window, false);
        SWindow next;
        CSettings().RestoreWindow(next.window);
        QVERIFY(next.pDock->isHidden());
    }

    void theFileIsReplacedAsAWhole()
    {
        CSettings settings;
        settings.SetTheme("dark");
        struct stat before = {};
        struct stat after = {};
        stat(QFile::encodeName(FilePath()).constData(), &before);
        settings.SetTheme("contrast");
        stat(QFile::encodeName(FilePath()).constData(), &after);

        QVERIFY(before.st_ino != 0 && after.st_ino != before.st_ino);
    }

    void aChoiceInTheMenuIsWrittenAtOnce()
    {
        const QTemporaryDir folder;
        SKestrelOptions options;
        options.strListFile = folder.filePath("a.kvtl");
        options.strLanguage = "en";
        QString strTheme;
        QString strLanguage;
        QTimer::singleShot(0, qApp, [&] {
            FindAction("contrast")->trigger();
            FindAction("de")->trigger();
            strTheme = CSettings().GetTheme();
            strLanguage = CSettings().GetLanguage();
            QApplication::closeAllWindows();
        });

        QCOMPARE(CKestrel(options).Run(), 0);

        QCOMPARE(strTheme, QStringLiteral("contrast"));
        QCOMPARE(strLanguage, QStringLiteral("de"));
        qApp->setStyleSheet(QString());
    }

    void theProgramComesBackAsItWas()
    {
        WriteFile(FilePath(), "[General]\ntheme=contrast\nlanguage=de\n[window]\nplace=@Rect(20 10 780 560)\n");
        int nWidth = 0;
        RunKestrel({}, [&nWidth](QMainWindow& window, QDockWidget& dock) {
            QCOMPARE(Place(window), QRect(20, 10, 780, 560));
            QVERIFY(!dock.isVisible());
            dock.show();
            nWidth = dock.width();
        });
        RunKestrel({}, [&nWidth](QMainWindow& window, QDockWidget& dock) {
            QCOMPARE(Place(window), QRect(20, 10, 780, 560));
            QVERIFY(dock.isVisible());
            QCOMPARE(dock.width(), nWidth);
            QVERIFY(FindAction("contrast")->isChecked() && FindAction("de")->isChecked());
        });
    }

    void aJournalThatAScenarioHasOpenedIsShutAtTheNextStart()
    {
        const QTemporaryDir folder;
        const QString strScenario = folder.filePath("a.json");
        WriteFile(strScenario, R"({"steps": [], "ui": [{"at": 0, "journal": true}]})");
        RunKestrel(strScenario, [](QMainWindow&, QDockWidget& dock) { QTRY_VERIFY(dock.isVisible()); });
        RunKestrel({}, [](QMainWindow&, QDockWidget& dock) { QVERIFY(!dock.isVisible()); });
    }

    void aRunForPicturesLeavesTheUsersWindowAlone_data()
    {
        QTest::addColumn<bool>("bMany");
        QTest::newRow("one picture") << false;
        QTest::newRow("those of a scenario") << true;
    }

    void aRunForPicturesLeavesTheUsersWindowAlone()
    {
        QFETCH(bool, bMany);
        CProgram program;
        const QByteArray strFile = "[General]\nlanguage=de\n\n[window]\nplace=@Rect(20 10 780 560)\n";
        WriteFile(program.Path("tmp/Kestrel/Kestrel.ini"), strFile);
        const QString strScenario
            = program.Write("a.json", R"({"steps": [], "ui": [{"at": 0, "journal": true}, {"at": 0.1, "shot": "all"}]})");
        QVERIFY(QDir().mkpath(program.Path("shots")));
        const QStringList listMany{
            "--list", program.Path("a.kvtl"), "--scenario", strScenario, "--shots", program.Path("shots")
        };
        const QString strPicture = program.Path(bMany ? "shots/01-all.png" : "a.png");
        if (bMany) {
            QVERIFY(program.Run(listMany) && program.ExitCode() == 0);
        } else {
            RunForPicture(program, { "--scenario", strScenario });
        }

        QCOMPARE(QImage(strPicture).size(), QSize(1040, 720));
        QCOMPARE(CProgram::Read(program.Path("tmp/Kestrel/Kestrel.ini")), strFile);
    }

    void optionsHoldForOneRunAlone()
    {
        CProgram program;
        WriteFile(program.Path("tmp/Kestrel/Kestrel.ini"), "[General]\ntheme=contrast\nlanguage=de\n");
        const QImage kept = RunForPicture(program, {});

        const QImage asked = RunForPicture(program, { "--theme", "dark", "--lang", "zh_CN" });
        QCOMPARE(LineOf(program, "theme"), QByteArray("contrast"));
        QCOMPARE(LineOf(program, "language"), QByteArray("de"));
        const QImage again = RunForPicture(program, {});

        const QRect rcMenus(0, 0, 300, 20);
        QVERIFY(!kept.isNull() && kept.copy(rcMenus) != asked.copy(rcMenus));
        QCOMPARE(again.copy(rcMenus), kept.copy(rcMenus));
    }

    void theFirstStartHasNoJournalAndRemembersNoChoice()
    {
        RunKestrel({}, [](QMainWindow&, QDockWidget& dock) { QVERIFY(!dock.isVisible()); });

        const QByteArray strFile = CProgram::Read(FilePath());
        QVERIFY(strFile.contains("shown=false") && !strFile.contains("theme=") && !strFile.contains("language="));
    }

    void theProgramReportsADamagedFileInOneLine()
    {
        CProgram program;
        WriteFile(program.Path("tmp/Kestrel/Kestrel.ini"), "[General]\ntheme=pink\n");

        QVERIFY(!RunForPicture(program, {}).isNull());

        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().startsWith("kestrel: The settings in " + program.Path("tmp")),
                 qPrintable(program.Errors().constFirst()));
    }
};

PTV_TEST_MAIN(CSettingsTest)
#include "tst_settings.moc"
