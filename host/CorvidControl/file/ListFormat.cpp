#include "CorvidControl/file/ListFormat.h"

#include "CorvidControl/file/CListReader.h"
#include "CorvidControl/file/CListWriter.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QRegularExpression>

namespace {

// Far above what the largest list needs; they bound the memory that a hostile file can claim.
constexpr int nMaxDepth = 8;
constexpr int nMaxContainers = 65536;

SListReading Refuse(SListReading::EnVerdict verdict, const QString& strReason)
{
    SListReading reading;
    reading.verdict = verdict;
    reading.strReason = strReason;
    return reading;
}

QByteArray GetCheckSum(const QByteArray& body)
{
    return QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex();
}

// What can be seen outside the strings. Whether brackets match is up to the parser.
struct SOutline
{
    bool bWithinBounds = true;
    int nKeys = 0; ///< one for each colon
};

SOutline FindOutline(const QByteArray& body)
{
    SOutline outline;
    int nDepth = 0;
    int nContainers = 0;
    bool bString = false;
    for (int n = 0; n < body.size() && outline.bWithinBounds; ++n) {
        const char ch = body.at(n);
        if (ch == '"') {
            bString = !bString;
        } else if (bString) {
            n += ch == '\\' ? 1 : 0;
        } else if (ch == '{' || ch == '[') {
            ++nDepth;
            ++nContainers;
        } else if (ch == '}' || ch == ']') {
            --nDepth;
        } else if (ch == ':') {
            ++outline.nKeys;
        }
        outline.bWithinBounds = nDepth <= nMaxDepth && nContainers <= nMaxContainers;
    }
    return outline;
}

// What follows the first line, without a copy: valid as long as bytes.
QByteArray GetBody(const QByteArray& bytes, int nEnd)
{
    return QByteArray::fromRawData(bytes.constData() + nEnd + 1, bytes.size() - nEnd - 1);
}

QString FindHeaderFault(const QByteArray& line, const QByteArray& body)
{
    static const QRegularExpression expression(QStringLiteral("^kvtl ([1-9][0-9]{0,8})( sha256:([0-9a-f]{64}))?(?: .*)?$"));
    const QRegularExpressionMatch match = expression.match(QString::fromLatin1(line));
    if (!match.hasMatch()) {
        return QStringLiteral("it is not a list file");
    }
    const int nFileVersion = match.captured(1).toInt();
    if (nFileVersion != ListFormat::nVersion) {
        return QStringLiteral("it is of version %1, this library reads version %2").arg(nFileVersion).arg(ListFormat::nVersion);
    }
    if (match.captured(3).toLatin1() != GetCheckSum(body) || line.size() != match.capturedEnd(3)) {
        return QStringLiteral("it is damaged or cut short: the check sum does not fit");
    }
    return {};
}

} // namespace

QByteArray ListFormat::Write(const SProcessorAllNode& node)
{
    const QByteArray body = CListWriter::WriteRoot(node);
    return "kvtl " + QByteArray::number(nVersion) + " sha256:" + GetCheckSum(body) + '\n' + body;
}

SListReading ListFormat::Read(const QByteArray& bytes, const SListLimits& limits, EnNames names)
{
    if (bytes.size() > limits.nBytes) {
        return Refuse(SListReading::Invalid, QStringLiteral("it is longer than any list (%1 bytes)").arg(bytes.size()));
    }
    const int nEnd = bytes.left(256).indexOf('\n');
    const QByteArray body = GetBody(bytes, nEnd);
    const QString strFault = nEnd < 0 ? QStringLiteral("it is not a list file") : FindHeaderFault(bytes.left(nEnd), body);
    return strFault.isEmpty() ? ReadBody(body, limits, names) : Refuse(SListReading::Invalid, strFault);
}

SListReading ListFormat::ReadBody(const QByteArray& bytes, const SListLimits& limits, EnNames names)
{
    const SOutline outline = FindOutline(bytes);
    if (!outline.bWithinBounds) {
        return Refuse(SListReading::Invalid, QStringLiteral("it has more parts or levels than any list"));
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        return Refuse(SListReading::Invalid,
                      QStringLiteral("its text is no JSON object (%1 at byte %2)").arg(error.errorString()).arg(error.offset));
    }
    CListReader reader(limits, names == NamesMended);
    SListReading reading;
    reading.node = reader.ReadRoot(document.object());
    if (!reader.GetFault().isEmpty()) {
        return Refuse(reader.IsTooLarge() ? SListReading::TooLarge : SListReading::Invalid, reader.GetFault());
    }
    // The parser silently keeps the last of two equal keys; every object that was read had each of its keys once.
    if (outline.nKeys != reader.GetKeyCount()) {
        return Refuse(SListReading::Invalid, QStringLiteral("a key is there twice"));
    }
    reading.verdict = SListReading::Valid;
    reading.listMended = reader.GetMended();
    return reading;
}

QString ListFormat::FindProofFault(const QByteArray& bytes, const SListLimits& limits)
{
    if (bytes.size() > limits.nBytes) {
        return QStringLiteral("it is longer than any list (%1 bytes)").arg(bytes.size());
    }
    // Without the check sum: it was made of this very text.
    const SListReading proof = ReadBody(GetBody(bytes, bytes.indexOf('\n')), limits);
    return proof.verdict == SListReading::Valid ? QString() : QStringLiteral("it could not be read again, ") + proof.strReason;
}
