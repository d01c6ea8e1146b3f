#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "interfaces/widgets/CScrollBar.h"

#include <QFontDatabase>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <cmath>

namespace {

/// The contrast of two colours, 1 to 21, as the rules for readable web pages define it.
double Luminance(const QColor& colour)
{
    const auto Linear = [](double dPart) { return dPart <= 0.03928 ? dPart / 12.92 : std::pow((dPart + 0.055) / 1.055, 2.4); };
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const double dA = Luminance(a) + 0.05;
    const double dB = Luminance(b) + 0.05;
    return std::max(dA, dB) / std::min(dA, dB);
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
    void everyNameInTheSheetsIsAColour_data()
    {
        QTest::addColumn<QString>("strFile");
        QTest::newRow("panel") << ":/theme/panel.qss";
        QTest::newRow("application") << ":/theme/kestrel.qss";
    }

    void everyNameInTheSheetsIsAColour()
    {
        QFETCH(QString, strFile);
        QFile file(strFile);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const CTheme theme;
        auto match = QRegularExpression(QStringLiteral("@(\\w+)")).globalMatch(QString::fromUtf8(file.readAll()));
        QVERIFY(match.hasNext());
        while (match.hasNext()) {
            const QString strName = match.next().captured(1);
            QVERIFY2(theme.GetColour(strName).isValid(), qPrintable(strName));
        }
    }

    void noSheetWritesAColourByItself()
    {
        for (const char* szFile : { ":/theme/panel.qss", ":/theme/kestrel.qss" }) {
            QFile file(szFile);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY(!QString::fromUtf8(file.readAll()).contains(QRegularExpression(": [^;]*(#[0-9A-Fa-f]{3}|rgb)")));
        }
    }

    void textIsReadableOnItsGround_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::addColumn<QString>("strGround");

        for (const char* szGround : { "tree", "bar", "field" }) {
            for (const char* szText : { "text", "textStrong", "textHint" }) {
                QTest::addRow("%s on %s", szText, szGround) << szText << szGround;
            }
        }
        QTest::newRow("hover") << "textStrong"
                               << "hoverFill";
        QTest::newRow("selected") << "textSelected"
                                  << "selectFill";
        QTest::newRow("default button") << "onAccent"
                                        << "accent";
        QTest::newRow("default button, hover") << "onAccent"
                                               << "accentHover";
        QTest::newRow("default button, pressed") << "onAccent"
                                                 << "accentPressed";
        QTest::newRow("badge") << "accent"
                               << "field";
        QTest::newRow("journal's notes") << "accent"
                                         << "tree";
    }

    void textIsReadableOnItsGround()
    {
        QFETCH(QString, strText);
        QFETCH(QString, strGround);
        const CTheme theme;
        const double dContrast = Contrast(theme.GetColour(strText), theme.GetColour(strGround));
        QVERIFY2(dContrast >= 4.5, qPrintable(QString::number(dContrast)));
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
        const double dContrast = Contrast(image.pixelColor(ptThumb), colourGround);
        QVERIFY2(dContrast >= 3, qPrintable(QString::number(dContrast)));
    }

    void theFontForSmallSizesIsInUse()
    {
        QVERIFY(QFontDatabase().families().contains("Inter"));
        CTheme().Apply(*qApp);
        QCOMPARE(QFontInfo(QApplication::font()).family(), QStringLiteral("Inter"));
        QCOMPARE(QApplication::font().pixelSize(), 12);
    }
};

PTV_TEST_MAIN(CThemeTest)
#include "tst_theme.moc"
