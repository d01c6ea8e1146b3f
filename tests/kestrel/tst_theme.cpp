#include "Contrast.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "delegate/RowLook.h"
#include "interfaces/widgets/CScrollBar.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr char szPanelSheet[] = ":/theme/panel.qss";
constexpr char szApplicationSheet[] = ":/theme/kestrel.qss";

QString Read(const QString& strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The theme of that name, without an application that looks like it.
std::unique_ptr<CTheme> MakeTheme(const QString& strName)
{
    auto pTheme = std::make_unique<CTheme>();
    pTheme->Set(strName);
    qApp->setStyleSheet(QString());
    return pTheme;
}

/// The names of a theme's file.
QStringList ColourNames(const QString& strTheme)
{
    QStringList listName;
    auto match = QRegularExpression("^(\\w+) +#", QRegularExpression::MultilineOption)
                     .globalMatch(Read(QStringLiteral(":/theme/%1.txt").arg(strTheme)));
    while (match.hasNext()) {
        listName.append(match.next().captured(1));
    }
    return listName;
}

/// The rules of a sheet that use one of the colours of the focus, as "selectors" without their declarations.
QStringList FocusColouredSelectors(const QString& strSheet)
{
    QString strText = Read(strSheet);
    strText.remove(QRegularExpression("/\\*.*?\\*/", QRegularExpression::DotMatchesEverythingOption));
    QStringList listSelector;
    auto match = QRegularExpression("([^{}]+)\\{([^{}]*)\\}").globalMatch(strText);
    while (match.hasNext()) {
        const QRegularExpressionMatch rule = match.next();
        if (rule.captured(2).contains(QRegularExpression("@(accent|onAccent)"))) {
            for (const QString& strSelector : rule.captured(1).split(',')) {
                listSelector.append(strSelector.simplified());
            }
        }
    }
    return listSelector;
}

/// Files below a folder of the sources whose text matches, by their path below it.
QStringList FilesWith(const QString& strFolder, const QStringList& listFilter, const QRegularExpression& expression)
{
    QStringList listFile;
    const QDir root(SOURCE_FOLDER "/" + strFolder);
    QDirIterator files(root.path(), listFilter, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString strFile = files.next();
        if (Read(strFile).contains(expression)) {
            listFile.append(root.relativeFilePath(strFile));
        }
    }
    listFile.sort();
    return listFile;
}

// A bar at the start of its way, and points on it.
constexpr QRect rcBar(40, 10, 5, 100);
constexpr QPoint ptThumb(2, 5);
constexpr QPoint ptGroove(2, 95);
constexpr QPoint ptOutside(-20, 50);

} // namespace

class CThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void everyThemeHasEachNameOfTheSheets_data()
    {
        AddThemes();
    }

    void everyThemeHasEachNameOfTheSheets()
    {
        QFETCH(QString, strTheme);
        const std::unique_ptr<CTheme> pTheme = MakeTheme(strTheme);
        QCOMPARE(pTheme->GetName(), strTheme);
        QCOMPARE(ColourNames(strTheme), ColourNames("dark"));
        for (const char* szFile : { szPanelSheet, szApplicationSheet }) {
            auto match = QRegularExpression(QStringLiteral("@(\\w+)")).globalMatch(Read(szFile));
            QVERIFY(match.hasNext());
            while (match.hasNext()) {
                const QString strName = match.next().captured(1);
                QVERIFY2(pTheme->GetColour(strName).isValid(), qPrintable(strName));
            }
        }
    }

    void noSheetWritesAColourByItself()
    {
        for (const char* szFile : { szPanelSheet, szApplicationSheet }) {
            QVERIFY(!Read(szFile).contains(QRegularExpression(": [^;]*(#[0-9A-Fa-f]{3}|rgb)")));
        }
    }

    void theColourOfTheFocusStandsForNothingElse()
    {
        // The focus; the default button; an editor or a list of choices, which is there only while it has the focus.
        const QRegularExpression allowed(":focus|\\[Focus=\"true\"\\]|:default|^#ProcessorTree QLineEdit$|^CComboBox:on$");
        for (const char* szFile : { szPanelSheet, szApplicationSheet }) {
            const QStringList listSelector = FocusColouredSelectors(szFile);
            QVERIFY(listSelector.size() > 3);
            for (const QString& strSelector : listSelector) {
                QVERIFY2(strSelector.contains(allowed), qPrintable(strSelector));
            }
        }
    }

    void orangeStandsForFocusDefaultButtonAndChief()
    {
        const QRegularExpression orange("\"accent|#ED811D|0xED, 0x81, 0x1D|#FFAA4D", QRegularExpression::CaseInsensitiveOption);
        // The Chief's crowns, and the program's own picture, which no widget shows.
        QCOMPARE(FilesWith("host/Kestrel/icons", { "*.svg" }, orange),
                 (QStringList{ "kestrel/kestrel.svg", "treeView/chief/chief.svg", "treeView/groupNode/group_hasChief.svg" }));
        QCOMPARE(FilesWith("host", { "*.cpp", "*.h" }, orange), QStringList());
        // The place of a drop, while a drag hovers.
        QCOMPARE(FilesWith("src", { "*.cpp", "*.h" }, orange), QStringList{ "delegate/RowLook.h" });
    }

    void aDragTakesTheGroundOutFromBehindItsRows_data()
    {
        AddThemes();
    }

    void aDragTakesTheGroundOutFromBehindItsRows()
    {
        QFETCH(QString, strTheme);
        QCOMPARE(MakeTheme(strTheme)->GetColour("tree"), QColor(RowLook::rgbTreeGround)); // the colour that a drag takes out
    }

    void textIsReadableOnItsGround_data()
    {
        QTest::addColumn<QString>("strTheme");
        QTest::addColumn<QString>("strText");
        QTest::addColumn<QString>("strGround");
        const auto Add = [](const QString& strText, const QString& strGround) {
            for (const QString& strTheme : CTheme::GetNames()) {
                QTest::addRow("%s: %s on %s", qPrintable(strTheme), qPrintable(strText), qPrintable(strGround))
                    << strTheme << strText << strGround;
            }
        };

        for (const char* szGround : { "tree", "bar", "field" }) {
            for (const char* szText : { "text", "textStrong", "textHint" }) {
                Add(szText, szGround);
            }
        }
        Add("textStrong", "raised");
        Add("textStrong", "hoverFill");
        Add("textSelected", "selectFill");
        Add("textStrong", "troubleFill");
        for (const char* szGround : { "accent", "accentHover", "accentPressed" }) {
            Add("onAccent", szGround);
        }
    }

    void textIsReadableOnItsGround()
    {
        QFETCH(QString, strTheme);
        QFETCH(QString, strText);
        QFETCH(QString, strGround);
        const std::unique_ptr<CTheme> pTheme = MakeTheme(strTheme);
        const double dContrast = Contrast::Get(pTheme->GetColour(strText), pTheme->GetColour(strGround));
        QVERIFY2(dContrast >= 4.5, qPrintable(QString::number(dContrast)));
    }

    void aBorderIsSeenOnBothOfItsSides_data()
    {
        QTest::addColumn<QString>("strTheme");
        QTest::addColumn<QString>("strBorder");
        QTest::addColumn<QString>("strGround");
        QTest::addColumn<double>("dLeast");
        for (const char* szBorder : { "control", "accent", "trouble" }) {
            for (const char* szGround : { "tree", "bar", "field" }) {
                QTest::addRow("dark: %s on %s", szBorder, szGround) << "dark" << szBorder << szGround << 3.0;
            }
        }
        QTest::newRow("dark: a button's") << "dark" << "control" << "raised" << 3.0;
        QTest::newRow("dark: of what is hovered") << "dark" << "text" << "hoverFill" << 3.0;
        for (const char* szBorder : { "control", "accent", "trouble", "line", "lineStrong" }) {
            for (const char* szGround : { "tree", "bar", "field", "raised" }) {
                QTest::addRow("contrast: %s on %s", szBorder, szGround) << "contrast" << szBorder << szGround << 4.5;
            }
        }
    }

    void aBorderIsSeenOnBothOfItsSides()
    {
        QFETCH(QString, strTheme);
        QFETCH(QString, strBorder);
        QFETCH(QString, strGround);
        QFETCH(double, dLeast);
        const std::unique_ptr<CTheme> pTheme = MakeTheme(strTheme);
        const double dContrast = Contrast::Get(pTheme->GetColour(strBorder), pTheme->GetColour(strGround));
        QVERIFY2(dContrast >= dLeast, qPrintable(QString::number(dContrast)));
    }

    void aThemeIsSetAtOnceAndReportedOnce()
    {
        CTheme theme;
        theme.Apply(*qApp);
        QSignalSpy spyChanged(&theme, &CTheme::Changed);
        theme.Set("contrast");
        QCOMPARE(spyChanged.count(), 1);
        QCOMPARE(QApplication::palette().color(QPalette::AlternateBase), QColor(Qt::black));
        QCOMPARE(qApp->styleSheet(), theme.GetApplicationSheet());

        theme.Set("contrast");
        theme.Set("of another program");
        QCOMPARE(spyChanged.count(), 1);
        QCOMPARE(theme.GetName(), QString("contrast"));
        qApp->setStyleSheet(QString());
    }

    void thePanelsSheetGivesTheTreeWhatItNeeds()
    {
        const CTheme theme;
        QCOMPARE(theme.GetColour("tree"), QColor("#1C1E21"));
        const QString strSheet = theme.GetPanelSheet();
        QVERIFY(strSheet.contains("show-decoration-selected: 1"));
        QVERIFY(!strSheet.contains('@'));
    }

    void aButtonShowsItsStates_data()
    {
        QTest::addColumn<bool>("bDefault");
        QTest::newRow("plain") << false;
        QTest::newRow("default") << true;
    }

    void aButtonShowsItsStates()
    {
        QFETCH(bool, bDefault);
        QWidget window;
        window.setStyleSheet(CTheme().GetApplicationSheet());
        auto* pLayout = new QVBoxLayout(&window);
        auto* pOther = new QPushButton("Other", &window);
        auto* pButton = new QPushButton("Button", &window);
        pLayout->addWidget(pOther);
        pLayout->addWidget(pButton);
        pButton->setAutoDefault(false);
        pButton->setDefault(bDefault);
        window.show();
        QApplication::setActiveWindow(&window);
        pOther->setFocus();
        QVector<QImage> vecState{ pButton->grab().toImage() };

        pButton->setDown(true);
        vecState.append(pButton->grab().toImage());
        pButton->setDown(false);
        pButton->setFocus();
        QTRY_VERIFY(pButton->hasFocus());
        vecState.append(pButton->grab().toImage());
        pButton->setEnabled(false);
        vecState.append(pButton->grab().toImage());

        for (int n = 0; n < vecState.size(); ++n) {
            QCOMPARE(vecState.indexOf(vecState[n]), n);
        }
    }

    void theFocusOfAButtonIsItsBorderAlone()
    {
        QWidget window;
        window.setStyleSheet(CTheme().GetApplicationSheet());
        auto* pOther = new QPushButton(&window);
        auto* pButton = new QPushButton("Button", &window);
        pOther->move(0, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        pOther->setFocus();
        const QImage imageWithout = pButton->grab().toImage();
        QTest::keyClick(pOther, Qt::Key_Tab);
        QTRY_VERIFY(pButton->hasFocus());
        const QImage imageWith = pButton->grab().toImage();

        const QRect rcInner = imageWith.rect().adjusted(2, 2, -2, -2);
        QVERIFY(imageWith != imageWithout);
        QCOMPARE(imageWith.copy(rcInner), imageWithout.copy(rcInner));
    }

    void theThumbOverTheRowsStandsOut_data()
    {
        QTest::addColumn<QString>("strGround");
        QTest::addColumn<QString>("strState");
        for (const char* szGround : { "tree", "hoverFill", "selectFill" }) {
            for (const char* szState : { "at rest", "hover", "pressed" }) {
                QTest::addRow("%s on %s", szState, szGround) << szGround << szState;
            }
        }
    }

    void theThumbOverTheRowsStandsOut()
    {
        QFETCH(QString, strGround);
        QFETCH(QString, strState);
        const CTheme theme;
        const QColor colourGround = theme.GetColour(strGround);
        QWidget window;
        window.setObjectName("Ground");
        window.setStyleSheet(theme.GetApplicationSheet() + "#Ground { background: " + colourGround.name() + "; }");
        CScrollBar bar(Qt::Vertical, &window);
        bar.setGeometry(rcBar);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCursor::setPos(bar.mapToGlobal(ptOutside)); // the next move enters the bar, wherever the mouse rested before
        if (strState != "at rest") {
            QCursor::setPos(bar.mapToGlobal(ptThumb));
            QTRY_VERIFY(bar.underMouse());
        }
        if (strState == "pressed") {
            QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, ptThumb);
        }

        const QImage image = window.grab(rcBar).toImage();
        QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, ptThumb);

        QCOMPARE(image.pixelColor(ptGroove), colourGround);
        const double dContrast = Contrast::Get(image.pixelColor(ptThumb), colourGround);
        QVERIFY2(dContrast >= 3, qPrintable(QString::number(dContrast)));
    }

    void theFontForSmallSizesIsInUse()
    {
        QVERIFY(QFontDatabase().families().contains("Inter"));
        CTheme().Apply(*qApp);
        QCOMPARE(QFontInfo(QApplication::font()).family(), QStringLiteral("Inter"));
        QCOMPARE(QApplication::font().pixelSize(), 12);
    }

private:
    static void AddThemes()
    {
        QTest::addColumn<QString>("strTheme");
        for (const QString& strTheme : CTheme::GetNames()) {
            QTest::newRow(qPrintable(strTheme)) << strTheme;
        }
    }
};

PTV_TEST_MAIN(CThemeTest)
#include "tst_theme.moc"
