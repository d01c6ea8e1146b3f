#include "Builders.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "TestMain.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryFile>

namespace {

SProcessorAllNode BuildList()
{
    SProcessorAllNode node = Root({ Group("Stage",
                                          { Processor("alpha").Online().Primary().Chief().Project("Aurora"),
                                            Processor("beta").Backup().Expanded(false).Type(22, "C22") })
                                        .Chief("alpha")
                                        .Aux({ 7, -1, 300 })
                                        .Expanded(false),
                                    Group("Hall") },
                                  { Processor("loose").Ip("10.0.0.255").Ports(0, 4294967295U).Aux(ProcessorId("aux")) });
    node.bExpanded = false;
    return node;
}

QByteArray Seal(const QByteArray& body)
{
    return "kvtl 1 sha256:" + QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex() + '\n' + body;
}

/// The bytes of the list with one text replaced and the check sum mended.
QByteArray BuildChanged(const QByteArray& from, const QByteArray& to)
{
    QByteArray body = ListFormat::Write(BuildList());
    body.remove(0, body.indexOf('\n') + 1);
    const int nAt = body.indexOf(from);
    if (nAt < 0) {
        qFatal("%s is not in the list", from.constData());
    }
    return Seal(body.replace(nAt, from.size(), to));
}

QByteArray BuildNumbers(int nCount)
{
    QByteArray text = "1000";
    for (int n = 1; n < nCount; ++n) {
        text += ',' + QByteArray::number(1000 + n);
    }
    return text;
}

void AddNameRows()
{
    QTest::newRow("an empty name") << BuildChanged("\"beta\"", "\"\"") << "must not be empty";
    QTest::newRow("a name over 64 bytes") << BuildChanged("\"beta\"", '"' + QByteArray(65, 'x') + '"') << "64 bytes";
    QTest::newRow("a refused character") << BuildChanged("\"beta\"", "\"a=b\"") << "must not hold";
    QTest::newRow("half a character") << BuildChanged("\"beta\"", "\"a\\ud800b\"") << "";
    QTest::newRow("a control character") << BuildChanged("\"beta\"", "\"a\\u0007b\"") << "control characters";
    QTest::newRow("a bad group name") << BuildChanged("\"Hall\"", "\"{\"") << "must not hold";
    QTest::newRow("a name that is no text") << BuildChanged("\"beta\"", "7") << "must not be empty";
    QTest::newRow("a blank at the end") << BuildChanged("\"beta\"", "\"beta \"") << "begin or end with a blank";
    QTest::newRow("a name of joiners") << BuildChanged("\"beta\"", "\"\xe2\x80\x8d\"") << "invisible";
    QTest::newRow("a name that turns round") << BuildChanged("\"beta\"", "\"a\xe2\x80\xae\"") << "direction";
    QTest::newRow("a line separator") << BuildChanged("\"beta\"", "\"a\\u2028b\"") << "control characters";
}

} // namespace

/// List files as bytes.
class CListFormatTest : public QObject
{
    Q_OBJECT

private slots:
    void aListComesBackWithAllItsFields()
    {
        const SProcessorAllNode node = BuildList();
        const SListReading reading = ListFormat::Read(ListFormat::Write(node), {});
        QCOMPARE(reading.strReason, QString());
        QCOMPARE(reading.verdict, SListReading::Valid);
        QCOMPARE(reading.node.listGroup, node.listGroup);
        QCOMPARE(reading.node.listProcessor, node.listProcessor);
        QCOMPARE(reading.node.bExpanded, false);
        QCOMPARE(reading.node.strName, node.strName);
    }

    void writingWhatWasReadGivesTheSameBytes()
    {
        const QByteArray bytes = ListFormat::Write(BuildList());
        QCOMPARE(ListFormat::Write(ListFormat::Read(bytes, {}).node), bytes);
    }

    void aListWrittenByAnotherToolIsReadAlike()
    {
        const QByteArray body = R"({"processors":[],"name":"All processors","groups":[],"expanded":true})";
        const SListReading reading = ListFormat::Read(Seal(body), {});
        QCOMPARE(reading.verdict, SListReading::Valid);
        QCOMPARE(ListFormat::Write(reading.node), ListFormat::Write(Root({})));
    }

    void whatIsNoSoundListIsRefusedWithTheReason_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("strReason");
        const QByteArray good = ListFormat::Write(BuildList());
        const auto id = [](const QUuid& idNode) { return idNode.toString(QUuid::WithoutBraces).toLatin1(); };
        QTest::newRow("nothing") << QByteArray() << "not a list file";
        QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n") << "not a list file";
        QTest::newRow("plain JSON") << QByteArray("{}\n") << "not a list file";
        QTest::newRow("a newer version") << QByteArray("kvtl 2 whatever it holds\nx") << "of version 2";
        QTest::newRow("no check sum") << QByteArray("kvtl 1\n{}") << "check sum";
        QTest::newRow("something behind the sum") << Seal("{}").replace("\n", " x\n") << "check sum";
        QTest::newRow("cut in half") << good.left(good.size() / 2) << "check sum";
        QTest::newRow("a byte more") << good + 'x' << "check sum";
        QTest::newRow("no JSON") << Seal("{ list }") << "no JSON object";
        QTest::newRow("bad UTF-8") << BuildChanged("\"beta\"", "\"\xff\xfe\"") << "";
        QTest::newRow("an array") << Seal("[]") << "no JSON object";
        QTest::newRow("no keys") << Seal("{}") << "keys";
        QTest::newRow("a key too many") << BuildChanged("\"portA\"", "\"a\": 1, \"portA\"") << "keys";
        QTest::newRow("a key too few") << BuildChanged("\"expanded\": false,", "") << "keys";
        QTest::newRow("an id twice") << BuildChanged(id(ProcessorId("loose")), id(GroupId("Hall"))) << "there twice";
        QTest::newRow("no id") << BuildChanged(id(ProcessorId("loose")), "") << "it has no id";
        QTest::newRow("half an id") << BuildChanged(id(ProcessorId("loose")), "0f5d") << "is no id";
        QTest::newRow("an id in braces") << BuildChanged(id(ProcessorId("loose")), '{' + id(ProcessorId("loose")) + '}')
                                         << "is no id";
        AddNameRows();
        QTest::newRow("text for a flag") << BuildChanged("\"online\": true", "\"online\": \"yes\"") << "neither true nor false";
        QTest::newRow("a role that is not there") << BuildChanged("\"failover\": 2", "\"failover\": 3") << "0 to 2";
        QTest::newRow("half a number") << BuildChanged("\"failover\": 2", "\"failover\": 1.5") << "whole number";
        QTest::newRow("a port too large") << BuildChanged("4294967295", "4294967296") << "\"portB\"";
        QTest::newRow("a port below 0") << BuildChanged("4294967295", "-1") << "\"portB\"";
        QTest::newRow("a short address") << BuildChanged("10.0.0.255", "10.255") << "no IPv4 address";
        QTest::newRow("an IPv6 address") << BuildChanged("10.0.0.255", "::1") << "no IPv4 address";
        QTest::newRow("a number twice") << BuildChanged("300", "7") << "twice";
        QTest::newRow("groups that are no list")
            << Seal(R"({"expanded":true,"groups":{},"name":"a","processors":[]})") << "is no list";
        QTest::newRow("a group that is no object")
            << Seal(R"({"expanded":true,"groups":[1],"name":"a","processors":[]})") << "no object";
        QTest::newRow("a key twice") << BuildChanged("\"portA\"", "\"model\": 12, \"portA\"") << "a key is there twice";
        QTest::newRow("a key twice, in escapes")
            << BuildChanged("\"portA\"", "\"mode\\u006c\": 12, \"portA\"") << "a key is there twice";
        QTest::newRow("all groups twice") << BuildChanged("\"groups\"", "\"groups\": [], \"groups\"") << "a key is there twice";
        QTest::newRow("too many numbers") << BuildChanged("300", BuildNumbers(31)) << "more than 32 numbers";
        QTest::newRow("longer than any list") << Seal("{}" + QByteArray(2 * 1024 * 1024, ' ')) << "longer than any list";
        QTest::newRow("a long project") << BuildChanged("\"Aurora\"", '"' + QByteArray(257, 'x') + '"') << "256 bytes";
    }

    void whatIsNoSoundListIsRefusedWithTheReason()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, strReason);
        const SListReading reading = ListFormat::Read(bytes, {});
        QCOMPARE(reading.verdict, SListReading::Invalid);
        QVERIFY(!reading.strReason.isEmpty());
        QVERIFY2(reading.strReason.contains(strReason), qPrintable(reading.strReason));
        QVERIFY(reading.node.listGroup.isEmpty() && reading.node.listProcessor.isEmpty());
    }

    void namesOfAListThatIsLoadedAreMended_data()
    {
        QTest::addColumn<QByteArray>("written");
        QTest::addColumn<QString>("strName");
        QTest::newRow("blanks around") << QByteArray("  beta ") << "beta";
        QTest::newRow("a control character") << QByteArray("be\\u0007ta") << "be ta";
        QTest::newRow("a line end") << QByteArray("be\\r\\nta") << "be ta";
        QTest::newRow("turned round") << QByteArray("be\\u202eta") << "beta";
        QTest::newRow("invisible") << QByteArray("\\u200b\\u2060") << "127.0.0.1";
        QTest::newRow("blanks alone") << QByteArray("   ") << "127.0.0.1";
        QTest::newRow("empty") << QByteArray() << "127.0.0.1";
    }

    void namesOfAListThatIsLoadedAreMended()
    {
        QFETCH(QByteArray, written);
        QFETCH(QString, strName);
        const QByteArray bytes = BuildChanged("\"beta\"", '"' + written + '"');
        const SListReading reading = ListFormat::Read(bytes, {}, ListFormat::NamesMended);
        QCOMPARE(reading.strReason, QString());
        QCOMPARE(reading.node.listGroup.at(0).listProcessor.at(1).strName, strName);
        QCOMPARE(reading.listMended.size(), 1);
        QVERIFY2(reading.listMended.at(0).contains("processor 2 of group 1: it is \"" + strName + '"'),
                 qPrintable(reading.listMended.at(0)));
        QCOMPARE(ListFormat::Read(ListFormat::Write(reading.node), {}).verdict, SListReading::Valid);
        QCOMPARE(ListFormat::Read(bytes, {}).verdict, SListReading::Invalid);
    }

    void aNameThatIsBadOtherwiseIsRefusedOnLoadingToo()
    {
        const QByteArray character = BuildChanged("\"beta\"", "\"a=b\"");
        QCOMPARE(ListFormat::Read(character, {}, ListFormat::NamesMended).verdict, SListReading::Invalid);
        const QByteArray number = BuildChanged("\"beta\"", "7");
        QCOMPARE(ListFormat::Read(number, {}, ListFormat::NamesMended).verdict, SListReading::Invalid);
    }

    void theLongestListPossibleIsTaken()
    {
        const QByteArray bytes = ListFormat::Write(BuildLongestList());
        QVERIFY2(bytes.size() > 700 * 1000, qPrintable(QString::number(bytes.size())));
        QCOMPARE(ListFormat::Read(bytes, {}).strReason, QString());
    }

    void everyCutAndEveryFlippedByteIsRefused()
    {
        const QByteArray good = ListFormat::Write(BuildList());
        for (int n = 0; n < good.size(); ++n) {
            QByteArray flipped = good;
            flipped[n] = static_cast<char>(flipped.at(n) ^ 0x10);
            QCOMPARE(ListFormat::Read(good.left(n), {}).verdict, SListReading::Invalid);
            QCOMPARE(ListFormat::Read(flipped, {}).verdict, SListReading::Invalid);
        }
    }

    void aListAtTheLimitsIsTaken()
    {
        SProcessorAllNode node;
        for (int n = 0; n < 256; ++n) {
            node.listGroup.append(Group(QStringLiteral("g%1").arg(n), { Processor(QStringLiteral("p%1").arg(n)) }));
        }
        QCOMPARE(ListFormat::Read(ListFormat::Write(node), {}).verdict, SListReading::Valid);
    }

    void aListOverTheLimitIsTooLarge_data()
    {
        QTest::addColumn<int>("nProcessors");
        QTest::addColumn<int>("nGroups");
        QTest::newRow("257 processors") << 257 << 0;
        QTest::newRow("257 groups") << 0 << 257;
        QTest::newRow("ten times both") << 2560 << 2560;
    }

    void aListOverTheLimitIsTooLarge()
    {
        QFETCH(int, nProcessors);
        QFETCH(int, nGroups);
        SProcessorAllNode node;
        for (int n = 0; n < nProcessors; ++n) {
            node.listProcessor.append(Processor(QStringLiteral("p%1").arg(n)));
        }
        for (int n = 0; n < nGroups; ++n) {
            node.listGroup.append(Group(QStringLiteral("g%1").arg(n)));
        }
        const QByteArray bytes = ListFormat::Write(node);
        QCOMPARE(ListFormat::Read(bytes, {}).verdict, SListReading::TooLarge);
        QCOMPARE(ListFormat::Read(bytes, SListLimits::Lifted()).verdict, SListReading::Valid);
    }

    void hostileTextIsRefusedQuickly_data()
    {
        QTest::addColumn<QByteArray>("body");
        constexpr int nBytes = 1024 * 1024;
        const auto repeat = [](const QByteArray& part) { // with a number of its own each
            QByteArray text;
            for (int n = 0; text.size() < nBytes - 64; ++n) {
                text += (n ? "," : "") + QByteArray(part).replace('#', QByteArray::number(n));
            }
            return text;
        };
        QTest::newRow("distinct numbers") << "{\"groups\":[{\"aux\":[" + repeat("#") + "]}]}";
        QTest::newRow("distinct keys") << '{' + repeat("\"#\":0") + '}';
        QTest::newRow("processors that are texts") << "{\"processors\":[" + repeat("\"\"") + "]}";
        QTest::newRow("wide texts") << "{\"groups\":[{\"name\":\"" + QByteArray("\xe4\xb8\x80").repeated(nBytes / 3 - 9)
                + "\"}]}";
        QTest::newRow("deep") << QByteArray(nBytes, '[');
        QTest::newRow("wide") << '[' + QByteArray("[],").repeated(nBytes / 3) + "[]]";
        QTest::newRow("numbers") << "{\"aux\":[" + QByteArray("1,").repeated(nBytes / 2) + "1]}";
        QTest::newRow("quotes") << QByteArray(nBytes, '"');
        QTest::newRow("escapes") << "{\"name\":\"" + QByteArray("\\u0000").repeated(nBytes / 6) + "\"}";
        QTest::newRow("a long key") << "{\"" + QByteArray(nBytes, 'k') + "\":1}";
    }

    void hostileTextIsRefusedQuickly()
    {
        QFETCH(QByteArray, body);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(ListFormat::Read(Seal(body), {}).verdict, SListReading::Invalid);
        QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    }

    void hostileTextTakesLessThan64MiB_data()
    {
        hostileTextIsRefusedQuickly_data();
    }

    void hostileTextTakesLessThan64MiB()
    {
        QFETCH(QByteArray, body);
        if (!qEnvironmentVariableIsEmpty("PTV_SANITIZE")) {
            QSKIP("the sanitizers take memory of their own");
        }
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(Seal(body));
        file.close();
        QProcess reader; // of its own, so that nothing else counts
        reader.start(QCoreApplication::applicationDirPath() + "/list_reader", { file.fileName() });
        QVERIFY(reader.waitForFinished());
        const QList<QByteArray> listAnswer = reader.readAllStandardOutput().simplified().split(' ');
        QCOMPARE(listAnswer.value(0).toInt(), int(SListReading::Invalid));
        const int nKiB = listAnswer.value(1).toInt();
        QVERIFY2(nKiB > 0 && nKiB < 64 * 1024, qPrintable(QStringLiteral("%1 KiB").arg(nKiB)));
    }
};

PTV_TEST_MAIN_CORE(CListFormatTest)
#include "tst_listformat.moc"
