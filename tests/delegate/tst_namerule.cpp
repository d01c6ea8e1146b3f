#include "TestMain.h"
#include "delegate/NameRule.h"

namespace {

const QVector<ushort> vecRefused{ '=',    '}',    0x00B7, '~',    '+',    '{',    0x3010, 0x3011, 0x300A, 0x300B, 0x2018,
                                  0x2019, 0x201C, 0x201D, 0xFF0C, 0x3002, 0x3001, 0xFF1B, 0xFF1A, 0xFF1F, 0x2014 };

} // namespace

class CNameRuleTest : public QObject
{
    Q_OBJECT

private slots:
    void refusedCharacter_data()
    {
        QTest::addColumn<QChar>("ch");
        for (const ushort nCode : vecRefused) {
            QTest::addRow("U+%04X", nCode) << QChar(nCode);
        }
    }

    void refusedCharacter()
    {
        QFETCH(QChar, ch);
        QVERIFY(!NameRule::Characters().exactMatch(QString(ch)));
        QVERIFY(!NameRule::Characters().exactMatch(QStringLiteral("Stage ") + ch + QStringLiteral(" left")));
    }

    void theCharactersAreOneExpression()
    {
        const QRegExp rule = NameRule::Characters();
        QCOMPARE(rule.pattern(), QStringLiteral("^[^=}·~+{【】《》‘’“”，。、；：？——]*$"));
        QCOMPARE(rule.caseSensitivity(), Qt::CaseSensitive);
        QCOMPARE(rule.patternSyntax(), QRegExp::RegExp);
    }

    void refusesExactlyTwentyOneCharacters()
    {
        QVector<ushort> vecFound;
        const QRegExp rule = NameRule::Characters();
        for (uint nCode = 1; nCode <= 0xFFFF; ++nCode) {
            if (!rule.exactMatch(QString(QChar(nCode)))) {
                vecFound.append(static_cast<ushort>(nCode));
            }
        }
        QVector<ushort> vecExpected = vecRefused;
        std::sort(vecExpected.begin(), vecExpected.end());
        QCOMPARE(vecFound.size(), 21);
        QCOMPARE(vecFound, vecExpected);
    }

    void legalText_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << QStringLiteral("  a b ");
        QTest::newRow("ASCII counterparts of the refused punctuation") << QStringLiteral(",.;:?'\"<>[]()!-_");
        QTest::newRow("other ASCII signs") << QStringLiteral("#$%&*/\\@^`|");
        QTest::newRow("CJK") << QStringLiteral("舞台処理機");
        QTest::newRow("beyond the first plane") << QString::fromUcs4(U"\U0001F600\U00020000");
        QTest::newRow("line feed") << QStringLiteral("a\nb");
    }

    void legalText()
    {
        QFETCH(QString, strText);
        QVERIFY(NameRule::Characters().exactMatch(strText));
    }

    void limitCountsBytesNotCharacters_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::addColumn<bool>("bFits");
        const QString strCjk(21, QChar(0x53F0)); // 63 bytes
        QTest::newRow("empty") << QString() << true;
        QTest::newRow("64 ASCII") << QString(64, QLatin1Char('a')) << true;
        QTest::newRow("65 ASCII") << QString(65, QLatin1Char('a')) << false;
        QTest::newRow("21 CJK, 63 bytes") << strCjk << true;
        QTest::newRow("21 CJK and one ASCII, 64 bytes") << strCjk + QLatin1Char('a') << true;
        QTest::newRow("22 CJK, 66 bytes") << strCjk + QChar(0x53F0) << false;
        QTest::newRow("16 pairs of surrogates, 64 bytes") << QString::fromUcs4(U"\U00020000").repeated(16) << true;
        QTest::newRow("21 CJK and two ASCII, 65 bytes") << strCjk + QStringLiteral("ab") << false;
        QTest::newRow("32 two-byte letters, 64 bytes") << QString(32, QChar(0x00E9)) << true;
        QTest::newRow("33 two-byte letters, 66 bytes") << QString(33, QChar(0x00E9)) << false;
    }

    void limitCountsBytesNotCharacters()
    {
        QFETCH(QString, strText);
        QTEST(NameRule::FitsLimit(strText), "bFits");
    }

    void cursorAfterRefusal_data()
    {
        QTest::addColumn<int>("nPosition");
        QTest::addColumn<int>("nRefused");
        QTest::addColumn<int>("nValid");
        QTest::addColumn<int>("nCursor");
        QTest::newRow("one key at the start") << 1 << 65 << 64 << 1;
        QTest::newRow("one key in the middle: one further than before it") << 11 << 65 << 64 << 11;
        QTest::newRow("one key at the end: beyond the end") << 65 << 65 << 64 << 65;
        QTest::newRow("paste of five in the middle") << 15 << 69 << 64 << 11;
        QTest::newRow("paste over a marked text of three") << 15 << 66 << 64 << 14;
    }

    void cursorAfterRefusal()
    {
        QFETCH(int, nPosition);
        QFETCH(int, nRefused);
        QFETCH(int, nValid);
        QTEST(NameRule::CursorAfterRefusal(nPosition, nRefused, nValid), "nCursor");
    }
};

PTV_TEST_MAIN_CORE(CNameRuleTest)
#include "tst_namerule.moc"
