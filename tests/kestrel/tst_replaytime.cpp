#include "Kestrel/replay/ReplayTime.h"
#include "TestMain.h"

namespace {

constexpr int nOffset = 2 * 3600;

/// A recording that begins late on an evening, two hours east of Greenwich.
QDateTime Start()
{
    return QDateTime(QDate(2026, 11, 22), QTime(23, 30), Qt::OffsetFromUTC, nOffset);
}

} // namespace

/// Times of a recording.
class CReplayTimeTest : public QObject
{
    Q_OBJECT

private slots:
    void aTimeIsReadWithAndWithoutMilliseconds_data()
    {
        QTest::addColumn<QString>("strTime");
        QTest::addColumn<QTime>("time");
        QTest::newRow("milliseconds") << "14:03:12.345" << QTime(14, 3, 12, 345);
        QTest::newRow("seconds") << "14:03:12" << QTime(14, 3, 12);
        QTest::newRow("no such time") << "25:00:00" << QTime();
        QTest::newRow("seconds from the start") << "2.5" << QTime();
        QTest::newRow("nothing") << "" << QTime();
    }

    void aTimeIsReadWithAndWithoutMilliseconds()
    {
        QFETCH(QString, strTime);
        QFETCH(QTime, time);
        QCOMPARE(ReplayTime::Read(strTime).has_value(), time.isValid());
        QCOMPARE(ReplayTime::Read(strTime).value_or(QTime()), time);
    }

    void aTimeIsTheFirstOneOnTheClockOfTheRecording()
    {
        QCOMPARE(ReplayTime::FindMoment(Start(), QTime(23, 45)).toUTC(), QDateTime({ 2026, 11, 22 }, { 21, 45 }, Qt::UTC));
        QCOMPARE(ReplayTime::FindMoment(Start(), QTime(0, 15)).toUTC(), QDateTime({ 2026, 11, 22 }, { 22, 15 }, Qt::UTC));
    }

    void aMomentIsShownByTheClockOfTheRecording()
    {
        QCOMPARE(ReplayTime::GetText(Start(), QDateTime({ 2026, 11, 22 }, { 22, 15, 1, 5 }, Qt::UTC)), QString("00:15:01.005"));
    }
};

PTV_TEST_MAIN(CReplayTimeTest)
#include "tst_replaytime.moc"
