#include "CBackwardClock.h"
#include "CRecording.h"
#include "TestMain.h"
#include "journal/recording/CJournalRecorder.h"

#include <QDateTime>

/// The journal while somebody sets the clock back.
class CClockBackTest : public QObject
{
    Q_OBJECT

private slots:
    void linesStayInTheirOrderThoughTheirDatesGoBack()
    {
        constexpr int nLines = 20;
        const CRecording recording;
        CJournalWriter writer;
        writer.Open(recording.GetFolder(), {}, false);
        CJournalRecorder recorder(writer);
        {
            const CBackwardClock clock;
            for (int n = 1; n <= nLines; ++n) {
                recorder.Write(CRecording::Note(QString::number(n)));
            }
        }
        const QList<QJsonObject> listNote = CRecording::Pick(recording.Read(writer), "note");
        QCOMPARE(listNote.size(), nLines);
        for (int n = 1; n < nLines; ++n) {
            const QJsonObject& before = listNote[n - 1];
            const QJsonObject& line = listNote[n];
            QCOMPARE(line.value("text").toString(), QString::number(n + 1));
            QCOMPARE(line.value("n").toInt(), before.value("n").toInt() + 1);
            QVERIFY(line.value("t").toDouble() >= before.value("t").toDouble());
            QVERIFY(Date(line) < Date(before));
        }
    }

private:
    static QDateTime Date(const QJsonObject& line)
    {
        return QDateTime::fromString(line.value("date").toString(), Qt::ISODateWithMs);
    }
};

PTV_TEST_MAIN_CORE(CClockBackTest)
#include "tst_clockback.moc"
