#include "contract/checks/FileChecks.h"

#include "contract/attempt/CAttemptProcess.h"
#include "contract/checks/CDiskFull.h"
#include "contract/checks/Patience.h"
#include "contract/library/CSite.h"
#include "contract/library/CStory.h"
#include "contract/library/Trees.h"
#include "interfaces/control/IConfigControl.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds timeLate{ 1000 };
constexpr qint32 nInvalid = 2;
constexpr qint32 nTooMany = 5;
constexpr quint32 nFirstOfMany = 0x0A000101; // 10.0.1.1
constexpr quint32 nMany = 300;

const QString strFull = QStringLiteral("full.kvtl");
const QString strMissing = QStringLiteral("missing.kvtl");
const QString strFirst = QStringLiteral("First process");
const QString strSecond = QStringLiteral("Second process");
const QString strThird = QStringLiteral("First process again");

QString WriteFile(const QString& strPath, const QByteArray& bytes)
{
    QFile file(strPath);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? strPath : QString();
}

QByteArray ReadFile(const QString& strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool HasGroup(CSite& site, const QString& strName)
{
    const SReading reading = site.Read();
    const auto& listGroup = reading.root[0].listGroup;
    return std::any_of(listGroup.begin(), listGroup.end(),
                       [&](const SProcessorGroupNode& group) { return group.strName == strName; });
}

bool AwaitNodes(CSite& site, const SProcessorAllNode& root)
{
    return Patience::Await([&] { return Trees::HaveSameNodes(site.Read().root[0], root); }, timeLate);
}

bool IsToTry(const CSite& site, const QString& strName)
{
    return site.GetAttempt().strFile.isEmpty() || site.GetAttempt().strFile == strName;
}

// Files that are no list, one of which could be taken for one, by its first half; and one that is not there.
QStringList WriteInvalidFiles(CSite& site)
{
    const std::pair<QString, QByteArray> listFile[] = { { QStringLiteral("empty.kvtl"), {} },
                                                        { QStringLiteral("text.kvtl"), "This is no list.\n" },
                                                        { QStringLiteral("bytes.kvtl"), QByteArray(4096, '\xff') } };
    QStringList listPath;
    for (const auto& [strName, bytes] : listFile) {
        if (IsToTry(site, strName)) {
            listPath.append(WriteFile(site.GetPath(strName), bytes));
        }
    }
    const QString strGood = site.GetPath(QStringLiteral("good.kvtl"));
    const QString strHalf = QStringLiteral("half.kvtl");
    if (IsToTry(site, strHalf) && site.Export(strGood) == 0) {
        const QByteArray bytes = ReadFile(strGood);
        listPath.append(WriteFile(site.GetPath(strHalf), bytes.left(bytes.size() / 2)));
    }
    if (IsToTry(site, strMissing)) {
        listPath.append(site.GetPath(strMissing));
    }
    return listPath;
}

// Broken by that file: the attempt after this one is at it alone.
SOutcome BreakBy(CSite& site, const QString& strPath, const QString& strFault)
{
    site.GetStory().Tell(QStringLiteral("alone"), QFileInfo(strPath).fileName());
    return Outcome::Break(strFault);
}

// What an export answers 0 to is written, also when the disk is full.
QString FindUnwritten(CSite& site)
{
    const QString strPath = site.GetPath(strFull);
    site.AddGroup(QStringLiteral("Disk full"));
    if (!HasGroup(site, QStringLiteral("Disk full"))) {
        return {};
    }
    qint32 nResult = 0;
    site.GetStory().Call(QStringLiteral("(the disk is full)"));
    {
        const CDiskFull diskFull;
        nResult = site.Export(strPath);
    }
    site.GetStory().Call(QStringLiteral("(the disk has room again)"));
    if (nResult != 0) {
        return {};
    }
    const bool bThere
        = site.Import(strPath) == 0 && Patience::Await([&] { return HasGroup(site, QStringLiteral("Disk full")); }, timeLate);
    return bThere ? QString() : QStringLiteral("ExportList has answered 0, and the file does not have the list");
}

// The failing export, and the answer that it gives.
qint32 FailExport(CSite& site, const QString& strPath, bool bFull)
{
    if (!bFull) {
        return site.Export(strPath);
    }
    site.GetStory().Call(QStringLiteral("(the disk is full)"));
    const CDiskFull diskFull;
    return site.Export(strPath);
}

SOutcome RunPart(CSite& site, const QString& strPart, const QString& strFile = {})
{
    SAttempt attempt = site.GetAttempt();
    attempt.strCheck = strPart;
    attempt.strFile = strFile;
    return CAttemptProcess(attempt).Run();
}

QString FindLost(const QStringList& listAnswered, const QStringList& listFound)
{
    for (const QString& strName : listAnswered) {
        if (!listFound.contains(strName)) {
            return QStringLiteral("the group \"%1\", whose export was answered by 0, is not in the list of a third process")
                .arg(strName);
        }
    }
    return {};
}

} // namespace

SOutcome FileChecks::TryRoundTrip(CSite& site)
{
    if (!site.GetAttempt().strFile.isEmpty()) {
        return Outcome::Judge(FindUnwritten(site));
    }
    const QString strPath = site.GetPath(QStringLiteral("export.kvtl"));
    const SReading before = site.Read();
    const qint32 nResult = site.Export(strPath);
    if (nResult != 0) {
        return Outcome::Break(
            QStringLiteral("ExportList answers %1 for a new file in a folder that can be written").arg(nResult));
    }
    if (QFileInfo(strPath).size() == 0) {
        return Outcome::Break(QStringLiteral("ExportList has answered 0 and written nothing"));
    }
    if (before.bListLocked) {
        return Outcome::LeaveUntried(QStringLiteral("the list is locked, so nothing can be imported"));
    }
    site.AddGroup(QStringLiteral("Not exported"));
    const qint32 nImport = site.Import(strPath);
    if (nImport != 0) {
        return Outcome::Break(QStringLiteral("ImportList answers %1 for what ExportList has written").arg(nImport));
    }
    if (!AwaitNodes(site, before.root[0])) {
        return Outcome::Break(QStringLiteral("the imported list is not the one that was exported"));
    }
    const QString strFault = FindUnwritten(site);
    return strFault.isEmpty() ? Outcome::Keep() : BreakBy(site, strFull, strFault);
}

SOutcome FileChecks::TryResultOne(CSite& site)
{
    const QString strPath = site.GetPath(QStringLiteral("earlier.kvtl"));
    if (site.Export(strPath) != 0) {
        return Outcome::LeaveUntried(QStringLiteral("the library writes no list"));
    }
    const QByteArray bytes = ReadFile(strPath);
    if (bytes.isEmpty()) {
        return Outcome::LeaveUntried(QStringLiteral("ExportList has answered 0 and written nothing"));
    }
    site.AddGroup(QStringLiteral("Later"));
    for (const bool bFull : { true, false }) {
        if (FailExport(site, strPath, bFull) == 1 && ReadFile(strPath) == bytes) {
            return Outcome::Break(QStringLiteral("the answer is 1, and the earlier list is still good"));
        }
    }
    return Outcome::Keep();
}

SOutcome FileChecks::TryInvalidFiles(CSite& site)
{
    if (site.Read().bListLocked) {
        return Outcome::LeaveUntried(QStringLiteral("the list is locked"));
    }
    const QStringList listPath = WriteInvalidFiles(site);
    for (const QString& strPath : listPath) {
        const qint32 nResult = site.Import(strPath);
        if (!QFileInfo::exists(strPath) && nResult == 0) {
            return BreakBy(site, strPath, QStringLiteral("a file that is not there was imported"));
        }
        if (QFileInfo::exists(strPath) && nResult != nInvalid) {
            return BreakBy(site, strPath, QStringLiteral("the answer is not 2"));
        }
    }
    return Outcome::Keep();
}

SOutcome FileChecks::TryFailedImport(CSite& site)
{
    bool bTried = false;
    const QStringList listPath = WriteInvalidFiles(site);
    for (const QString& strPath : listPath) {
        const SReading before = site.Read();
        const bool bFailed = site.Import(strPath) != 0;
        if (bFailed && !Trees::HaveSameNodes(site.Read().root[0], before.root[0])) {
            return BreakBy(site, strPath, QStringLiteral("the import has failed, and the list is another"));
        }
        bTried = bTried || bFailed;
    }
    return bTried ? Outcome::Keep() : Outcome::LeaveUntried(QStringLiteral("no import has failed"));
}

SOutcome FileChecks::TryTooMany(CSite& site)
{
    const QString strPath = site.GetPath(QStringLiteral("many.kvtl"));
    const SReading before = site.Read();
    if (before.bListLocked || !site.GetLibrary().GetHost()) {
        return Outcome::LeaveUntried(QStringLiteral("nothing lifts the limits of the library, so there is no such file"));
    }
    const int nCount = RunPart(site, QStringLiteral("part-many"), strPath).strReason.toInt();
    const qint32 nResult = nCount < static_cast<int>(nMany) ? 0 : site.Import(strPath);
    if (nResult == 0) {
        return Outcome::LeaveUntried(QStringLiteral("%1 processors are not too many, or the library lists no more").arg(nMany));
    }
    return Outcome::Judge(nResult == nTooMany ? QString()
                                              : QStringLiteral("%1 processors are too many: the answer is not 5").arg(nCount));
}

SOutcome FileChecks::ExportMany(CSite& site)
{
    for (quint32 n = 0; n < nMany; ++n) {
        site.AddProcessor(nFirstOfMany + n);
    }
    const int nCount = Trees::GetProcessors(site.Read().root[0]).size();
    const bool bDone = site.Export(site.GetAttempt().strFile) == 0;
    return { SOutcome::Kept, QString::number(bDone ? nCount : 0), {}, {}, {} };
}

SOutcome FileChecks::TrySecondProcess(CSite& site)
{
    const QString strPath = site.GetLibrary().GetConfig().GetListFilePath();
    site.SetPane(false);
    site.AddGroup(strFirst);
    if (strPath.isEmpty() || site.Export(strPath) != 0 || !HasGroup(site, strFirst)) {
        return Outcome::LeaveUntried(QStringLiteral("the library saves no list"));
    }
    QStringList listAnswered{ strFirst };
    const QString strAnswer = RunPart(site, QStringLiteral("part-second")).strReason;
    site.Call(QStringLiteral("(a second process adds the group \"%1\", exports, and ends)").arg(strSecond), [] { });
    site.GetStory().Answer(strAnswer);
    if (strAnswer == QLatin1String("0")) {
        listAnswered.append(strSecond);
    }
    site.AddGroup(strThird);
    if (site.Export(strPath) == 0) {
        listAnswered.append(strThird);
    }
    site.End();
    return Outcome::Judge(FindLost(listAnswered, RunPart(site, QStringLiteral("part-third")).strReason.split(QLatin1Char('\t'))));
}

SOutcome FileChecks::BeSecondProcess(CSite& site)
{
    site.SetPane(false);
    site.AddGroup(strSecond);
    const qint32 nResult = site.Export(site.GetLibrary().GetConfig().GetListFilePath());
    site.End();
    return { SOutcome::Kept, QString::number(nResult), {}, {}, {} };
}

SOutcome FileChecks::BeThirdProcess(CSite& site)
{
    QStringList listName;
    const SReading reading = site.Read();
    for (const SProcessorGroupNode& group : reading.root[0].listGroup) {
        listName.append(group.strName);
    }
    return { SOutcome::Kept, listName.join(QLatin1Char('\t')), {}, {}, {} };
}
