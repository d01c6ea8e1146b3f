#include "journal/replay/CRunReader.h"

#include "journal/recording/TreeChange.h"
#include "journal/replay/RunStart.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <limits>

namespace {

constexpr int nKnownFormat = 1;
constexpr double dMostNumber = 9007199254740992.0; ///< up to there every whole number is one of JSON

QString GetText(const QJsonObject& object, const char* szKey)
{
    return object.value(QLatin1String(szKey)).toString();
}

QJsonObject Parse(const QByteArray& bytes)
{
    return QJsonDocument::fromJson(bytes).object();
}

// 0 for what is none.
quint64 GetNumber(const QJsonObject& object)
{
    const double dNumber = object.value(QStringLiteral("n")).toDouble();
    return dNumber >= 1 && dNumber <= dMostNumber ? static_cast<quint64>(dNumber) : 0;
}

bool IsTree(const SRecordedLine& line)
{
    return line.strOperation == QLatin1String("GetDiscoveredTree") || line.strOperation == QLatin1String("GetSimulatorTree");
}

bool IsCall(const QString& strKind)
{
    return strKind == QLatin1String("call") || strKind == QLatin1String("begin");
}

// Those that a later version has beside them say nothing to this one.
bool IsKnown(const QString& strKind)
{
    return IsCall(strKind) || strKind == QLatin1String("message") || strKind == QLatin1String("note")
        || strKind == QLatin1String("user") || strKind == QLatin1String("guard");
}

} // namespace

bool CRunReader::Read(const QStringList& listFile)
{
    for (const QString& strNext : listFile) {
        if (!ReadFile(strNext, strNext == listFile.last())) {
            if (mapLine.isEmpty()) {
                return false;
            }
            EndBeforeDamage();
            break;
        }
    }
    return Complete();
}

// What the rest has to do with what was read cannot be known.
void CRunReader::EndBeforeDamage()
{
    bLost = true;
    run.bEnd = false;
    run.listReason.append(strError + QStringLiteral(" It is left out, with all that follows."));
    strError.clear();
}

QString CRunReader::GetError() const
{
    return strError;
}

QJsonObject CRunReader::ReadHeader(const QString& strFile)
{
    QFile file(strFile);
    const QJsonObject object = file.open(QIODevice::ReadOnly) ? Parse(file.readLine()) : QJsonObject();
    return GetText(object, "kind") == QLatin1String("header") ? object : QJsonObject();
}

bool CRunReader::ReadFile(const QString& strNext, bool bLast)
{
    strFile = QFileInfo(strNext).fileName();
    nLine = 1;
    mapTree.clear();
    QFile file(strNext);
    if (!file.open(QIODevice::ReadOnly)) {
        strError = QStringLiteral("Cannot read '%1': %2.").arg(strNext, file.errorString());
        return false;
    }
    if (file.atEnd()) {
        strError = QStringLiteral("'%1' is empty.").arg(strFile);
        return false;
    }
    if (!BeginFile(file.readLine())) {
        return false;
    }
    while (!file.atEnd()) {
        const QByteArray bytes = file.readLine();
        ++nLine;
        if (bytes.endsWith('\n')) {
            if (!ReadLine(bytes)) {
                return false;
            }
        } else { // whoever wrote it was killed
            bLost = bLost || !bLast;
            run.listReason.append(QStringLiteral("The last line of '%1' is cut off.").arg(strFile));
        }
    }
    return true;
}

bool CRunReader::BeginFile(const QByteArray& bytes)
{
    const QJsonObject header = Parse(bytes);
    if (GetText(header, "kind") != QLatin1String("header")) {
        return Fail(QStringLiteral("is not the header of a journal"));
    }
    const int nFormat = header.value(QStringLiteral("format")).toInt();
    if (nFormat != nKnownFormat) {
        return Fail(QStringLiteral("says format %1, and this version reads format %2 alone").arg(nFormat).arg(nKnownFormat));
    }
    const int nNumber = header.value(QStringLiteral("file")).toInt();
    if (nNumber <= nFile) {
        return Fail(QStringLiteral("says file %1 of the run, which came already").arg(nNumber));
    }
    if (nFile == 0) {
        run.header = header;
        run.bBeginning = nNumber == 1;
    } else if (nNumber != nFile + 1) {
        bLost = true;
        run.listReason.append(QStringLiteral("A file of the run before '%1' is gone.").arg(strFile));
    }
    nFile = nNumber;
    return true;
}

bool CRunReader::ReadLine(const QByteArray& bytes)
{
    const QJsonObject object = Parse(bytes);
    return object.isEmpty() ? Fail(QStringLiteral("is not a line of a journal")) : TakeLine(object);
}

bool CRunReader::TakeLine(const QJsonObject& object)
{
    const QString strKind = GetText(object, "kind");
    if (strKind == QLatin1String("lost")) {
        bLost = true;
        run.listReason.append(QStringLiteral("Lines are lost before line %1 of '%2': %3.")
                                  .arg(nLine)
                                  .arg(strFile)
                                  .arg(object.value(QStringLiteral("count")).toInt()));
    }
    run.bEnd = run.bEnd || strKind == QLatin1String("end");
    return !IsKnown(strKind) || TakeNumbered(object);
}

bool CRunReader::TakeNumbered(const QJsonObject& object)
{
    SRecordedLine line;
    line.nNumber = GetNumber(object);
    line.nMicroseconds = static_cast<qint64>(object.value(QStringLiteral("t")).toDouble());
    line.date = QDateTime::fromString(GetText(object, "date"), Qt::ISODateWithMs);
    line.strKind = GetText(object, "kind");
    line.strThread = GetText(object, "thread");
    line.strObject = GetText(object, "object");
    line.strOperation = GetText(object, "operation");
    line.fields = object;
    if (line.nNumber == 0 || line.strThread.isEmpty()) {
        return Fail(QStringLiteral("has no number or no thread"));
    }
    if (IsCall(line.strKind) && !TakeCall(line)) {
        return false;
    }
    const auto it = mapLine.constFind(line.nNumber);
    if (it != mapLine.constEnd() && (it->strKind != QLatin1String("begin") || line.strKind != QLatin1String("call"))) {
        return Fail(QStringLiteral("has the number %1, which came already").arg(line.nNumber));
    }
    mapLine.insert(line.nNumber, line);
    return true;
}

bool CRunReader::TakeCall(SRecordedLine& line)
{
    if (line.strOperation.isEmpty() || !line.fields.value(QStringLiteral("args")).isArray()) {
        return Fail(QStringLiteral("is a call without an operation or arguments"));
    }
    return !IsTree(line) || !line.fields.contains(QStringLiteral("result")) || TakeTree(line);
}

// Readings that are the same share their tree.
bool CRunReader::TakeTree(SRecordedLine& line)
{
    const QJsonObject result = line.fields.value(QStringLiteral("result")).toObject();
    auto& pLast = mapTree[line.strOperation];
    if (!pLast && !result.contains(QStringLiteral("whole"))) {
        return Fail(QStringLiteral("has the difference to a tree that is not there"));
    }
    if (!result.contains(QStringLiteral("same"))) {
        const auto pTree
            = pLast ? QSharedPointer<SProcessorAllNode>::create(*pLast) : QSharedPointer<SProcessorAllNode>::create();
        TreeChange::Apply(result, *pTree);
        pLast = pTree;
    }
    line.pTree = pLast;
    return true;
}

bool CRunReader::Complete()
{
    if (mapLine.isEmpty()) {
        strError = QStringLiteral("'%1' has no lines that could be replayed.").arg(strFile);
        return false;
    }
    if (!run.bBeginning) {
        run.listReason.prepend(QStringLiteral("The first files of the run are gone."));
    }
    for (const SRecordedLine& line : qAsConst(mapLine)) {
        run.vecLine.append(line);
    }
    FindGaps();
    run.nStart = run.bBeginning ? 0 : RunStart::Find(run.vecLine);
    return true;
}

// A number may be missing although no line is lost: its call never came back.
void CRunReader::FindGaps()
{
    run.nCompleteTo = std::numeric_limits<quint64>::max();
    if (!bLost) {
        return;
    }
    quint64 nNext = run.bBeginning ? 1 : run.vecLine.constFirst().nNumber;
    for (const SRecordedLine& line : qAsConst(run.vecLine)) {
        if (line.nNumber != nNext) {
            break;
        }
        ++nNext;
    }
    run.nCompleteTo = nNext - 1;
}

bool CRunReader::Fail(const QString& strFault)
{
    strError = QStringLiteral("Line %1 of '%2' %3.").arg(nLine).arg(strFile, strFault);
    return false;
}
