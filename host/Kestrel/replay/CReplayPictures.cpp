#include "Kestrel/replay/CReplayPictures.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/SKestrelOptions.h"
#include "Kestrel/player/WindowPicture.h"
#include "Kestrel/replay/CReplaySource.h"
#include "Kestrel/replay/ReplayTime.h"
#include "Kestrel/replay/WindowInput.h"

#include <QDir>
#include <QElapsedTimer>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

namespace {

constexpr qint64 nRestMs = 150; ///< two pictures that are alike, that far apart: nothing moves

qint64 GetNowMs()
{
    QElapsedTimer timer;
    timer.start();
    return timer.msecsSinceReference();
}

QString GetName(const QString& strAt)
{
    return QString(strAt).replace(QLatin1Char(':'), QLatin1Char('-')) + QStringLiteral(".png");
}

} // namespace

CReplayPictures::CReplayPictures(QWidget& windowIn, const SKestrelOptions& options, const CReplaySource& source)
    : window(windowIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    AddAll(options, source);
}

QString CReplayPictures::GetFault() const
{
    return strFault;
}

bool CReplayPictures::IsDue(const QDateTime& time) const
{
    return nDone < vecPicture.size() && vecPicture[nDone].time.isValid() && vecPicture[nDone].time < time;
}

bool CReplayPictures::IsDueAtEnd() const
{
    return nDone < vecPicture.size();
}

bool CReplayPictures::Take()
{
    const qint64 nNowMs = GetNowMs();
    if (nNowMs - nLastMs < nRestMs) {
        return false;
    }
    WindowInput::Leave(); // where the user's was meanwhile is not recorded
    const QImage image = WindowPicture::Take(window).toImage();
    const bool bRests = image == imageLast;
    imageLast = image;
    nLastMs = nNowMs;
    if (bRests) {
        Write(image);
    }
    return bRests;
}

void CReplayPictures::TakeLast()
{
    if (IsDueAtEnd() && !vecPicture[nDone].time.isValid()) {
        Write(WindowPicture::Take(window).toImage());
    }
}

void CReplayPictures::ReportMissing()
{
    for (; nDone < vecPicture.size(); ++nDone) {
        emit Failed(QStringLiteral("The picture '%1' was not taken: the window closed before").arg(vecPicture[nDone].strFile));
    }
}

void CReplayPictures::Write(const QImage& image)
{
    const QString strFile = vecPicture[nDone++].strFile;
    imageLast = QImage();
    if (image.save(strFile, "PNG")) {
        emit Taken(strFile);
    } else {
        emit Failed(QStringLiteral("Cannot write the picture '%1'").arg(strFile));
    }
}

void CReplayPictures::AddAll(const SKestrelOptions& options, const CReplaySource& source)
{
    for (const QString& strAt : options.listReplayAt) {
        Add(strAt, options, source);
    }
    std::sort(vecPicture.begin(), vecPicture.end(),
              [](const SPicture& first, const SPicture& second) { return first.time < second.time; });
    if (options.listReplayAt.isEmpty() && !options.strShotFile.isEmpty()) {
        vecPicture.push_back({ QDateTime(), options.strShotFile });
    }
}

void CReplayPictures::Add(const QString& strAt, const SKestrelOptions& options, const CReplaySource& source)
{
    const QDateTime timeStart = source.GetStart();
    const QDateTime timeEnd = source.GetRun().GetLines().constLast().date;
    const QDateTime time = ReplayTime::FindMoment(timeStart, ReplayTime::Read(strAt).value_or(QTime()));
    if (time > timeEnd) {
        strFault = QStringLiteral("--at %1 is not in the recording, which goes from %2 to %3")
                       .arg(strAt, ReplayTime::GetText(timeStart, timeStart), ReplayTime::GetText(timeStart, timeEnd));
    }
    const bool bFolder = options.strShotFile.isEmpty();
    vecPicture.push_back({ time, bFolder ? QDir(options.strShotFolder).filePath(GetName(strAt)) : options.strShotFile });
}
