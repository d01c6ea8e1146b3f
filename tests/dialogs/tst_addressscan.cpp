#include "TestMain.h"
#include "dialogs/CAddressScan.h"

#include <QHostAddress>

namespace {

quint32 Ip(const char* szAddress)
{
    return QHostAddress(QString::fromLatin1(szAddress)).toIPv4Address();
}

QString Text(quint32 nIP)
{
    return QHostAddress(nIP).toString();
}

bool HasPlaceOf255(quint32 nIP)
{
    return (nIP >> 24) == 0xFFu || ((nIP >> 16) & 0xFFu) == 0xFFu || ((nIP >> 8) & 0xFFu) == 0xFFu || (nIP & 0xFFu) == 0xFFu;
}

/// All addresses from nFrom to nTo, in numeric order, both included.
QSet<quint32> Range(quint32 nFrom, quint32 nTo)
{
    QSet<quint32> setIP;
    for (quint32 nIP = nFrom; nIP <= nTo; ++nIP) {
        setIP.insert(nIP);
    }
    return setIP;
}

} // namespace

/// Which address is proposed for a new processor.
class CAddressScanTest : public QObject
{
    Q_OBJECT

private slots:
    void theWalkStartsAtTen()
    {
        QCOMPARE(Text(CAddressScan().GetAddress()), QStringLiteral("192.168.1.10"));
        QCOMPARE(CAddressScan().GetAddress(), 0xC0A8010Au);
    }

    void aPlaceThatIsFullCarriesToTheOneBeforeIt_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::newRow("within a subnet") << "192.168.1.10"
                                         << "192.168.1.11";
        QTest::newRow("last place, up to 254") << "192.168.1.253"
                                               << "192.168.1.254";
        QTest::newRow("last place full") << "192.168.1.254"
                                         << "192.168.2.0";
        QTest::newRow("later subnets start at 0") << "192.168.2.0"
                                                  << "192.168.2.1";
        QTest::newRow("third place, up to 254") << "192.168.253.254"
                                                << "192.168.254.0";
        QTest::newRow("third place full") << "192.168.254.254"
                                          << "192.169.0.0";
        QTest::newRow("second place, up to 254") << "192.253.254.254"
                                                 << "192.254.0.0";
        QTest::newRow("second place full") << "192.254.254.254"
                                           << "193.0.0.0";
        QTest::newRow("first place, up to 254") << "253.254.254.254"
                                                << "254.0.0.0";
        QTest::newRow("last step") << "254.254.254.253"
                                   << "254.254.254.254";
    }

    void aPlaceThatIsFullCarriesToTheOneBeforeIt()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        CAddressScan scan(QHostAddress(from).toIPv4Address());

        QVERIFY(scan.Next());

        QCOMPARE(Text(scan.GetAddress()), to);
    }

    void theWalkEndsOnItsLastAddress()
    {
        CAddressScan scan(Ip("254.254.254.254"));

        QVERIFY(!scan.Next());
        QVERIFY(!scan.Next());

        QCOMPARE(Text(scan.GetAddress()), QStringLiteral("254.254.254.254"));
    }

    void theFirstAddressThatIsNotTakenIsFound_data()
    {
        QTest::addColumn<QString>("takenFrom");
        QTest::addColumn<QString>("takenTo");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("free");
        QTest::newRow("nothing taken") << "10.0.0.1"
                                       << "10.0.0.1"
                                       << "192.168.1.10"
                                       << "192.168.1.10";
        QTest::newRow("first taken") << "192.168.1.10"
                                     << "192.168.1.10"
                                     << "192.168.1.10"
                                     << "192.168.1.11";
        QTest::newRow("below the first taken") << "192.168.1.0"
                                               << "192.168.1.9"
                                               << "192.168.1.10"
                                               << "192.168.1.10";
        QTest::newRow("first subnet taken") << "192.168.1.10"
                                            << "192.168.1.254"
                                            << "192.168.1.10"
                                            << "192.168.2.0";
        QTest::newRow("two subnets taken") << "192.168.1.10"
                                           << "192.168.2.255"
                                           << "192.168.1.10"
                                           << "192.168.3.0";
        QTest::newRow("all of 192.168 taken") << "192.168.1.10"
                                              << "192.168.255.255"
                                              << "192.168.1.10"
                                              << "192.169.0.0";
        QTest::newRow("end of a second place") << "192.254.254.250"
                                               << "192.254.254.254"
                                               << "192.254.254.250"
                                               << "193.0.0.0";
    }

    void theFirstAddressThatIsNotTakenIsFound()
    {
        QFETCH(QString, takenFrom);
        QFETCH(QString, takenTo);
        QFETCH(QString, start);
        QFETCH(QString, free);
        const auto nStart = QHostAddress(start).toIPv4Address();
        const QSet<quint32> setTaken = Range(QHostAddress(takenFrom).toIPv4Address(), QHostAddress(takenTo).toIPv4Address());

        QCOMPARE(Text(CAddressScan::FindFree(setTaken, nStart)), free);
    }

    void aGapIsFilledFirst()
    {
        QSet<quint32> setTaken = Range(Ip("192.168.1.10"), Ip("192.168.1.200"));
        setTaken.remove(Ip("192.168.1.77"));

        QCOMPARE(Text(CAddressScan::FindFree(setTaken)), QStringLiteral("192.168.1.77"));
    }

    void takenAddressesOffTheWalkDoNotCount()
    {
        const QSet<quint32> setTaken = { Ip("0.0.0.0"), Ip("192.168.1.255"), Ip("255.255.255.255"), Ip("192.168.0.10") };

        QCOMPARE(Text(CAddressScan::FindFree(setTaken)), QStringLiteral("192.168.1.10"));
    }

    void whenAllAreTakenTheLastOneIsGiven()
    {
        const QSet<quint32> setTaken = Range(Ip("254.254.254.200"), Ip("254.254.254.254"));

        QCOMPARE(Text(CAddressScan::FindFree(setTaken, Ip("254.254.254.200"))), QStringLiteral("254.254.254.254"));
    }

    void noAddressWithAPlaceOf255IsEverTried()
    {
        CAddressScan scan;
        int nSubnets = 0;
        while (scan.GetAddress() < Ip("193.0.1.0")) {
            if (HasPlaceOf255(scan.GetAddress())) {
                QFAIL(qPrintable(Text(scan.GetAddress())));
            }
            nSubnets += (scan.GetAddress() & 0xFFu) == 254 ? 1 : 0;
            scan.Next();
        }
        // 254 of 192.168, 86 times 255 of 192.169 to 192.254, and 193.0.0.
        QCOMPARE(nSubnets, 254 + 86 * 255 + 1);
    }
};

PTV_TEST_MAIN_CORE(CAddressScanTest)
#include "tst_addressscan.moc"
