#include "contract/report/Reports.h"

#include <QMap>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

constexpr int nStateWidth = 28;
constexpr int nIdWidth = 16;

bool IsTried(const SResult& result)
{
    return result.promise.kind != SPromise::NotTestable && result.outcome.result != SOutcome::Untried;
}

QString GetState(const SResult& result)
{
    if (result.promise.kind == SPromise::NotTestable) {
        return QStringLiteral("not testable");
    }
    if (!IsTried(result)) {
        return QStringLiteral("not tried");
    }
    if (result.outcome.result == SOutcome::Kept) {
        return QStringLiteral("kept");
    }
    return result.IsBroken() ? QStringLiteral("broken") : QStringLiteral("recommended and not kept");
}

bool IsStory(const SResult& result)
{
    return IsTried(result) && result.outcome.result == SOutcome::Broken;
}

QStringList BuildStory(const SOutcome& outcome)
{
    QStringList listLine;
    for (int n = 0; n < outcome.listStory.size(); ++n) {
        listLine.append(QStringLiteral("%1. %2").arg(n + 1).arg(outcome.listStory[n]));
    }
    listLine.append(QStringLiteral("then: %1.").arg(outcome.strReason));
    return listLine;
}

QStringList BuildLines(const SResult& result)
{
    QStringList listLine{ GetState(result).leftJustified(nStateWidth) + result.promise.strId.leftJustified(nIdWidth)
                          + result.promise.strSentence };
    if (IsStory(result)) {
        const QStringList listStory = BuildStory(result.outcome);
        for (const QString& strLine : listStory) {
            listLine.append(QStringLiteral("    ") + strLine);
        }
    } else if (!result.outcome.strReason.isEmpty() && result.promise.kind != SPromise::NotTestable) {
        listLine.append(QStringLiteral("    ") + result.outcome.strReason + QLatin1Char('.'));
    }
    return listLine;
}

QString BuildSums(const std::vector<SResult>& vecResult)
{
    QMap<QString, int> mapSum;
    for (const SResult& result : vecResult) {
        ++mapSum[GetState(result)];
    }
    QStringList listSum;
    for (const char* szState : { "kept", "broken", "recommended and not kept", "not tried", "not testable" }) {
        listSum.append(QStringLiteral("%1 %2").arg(mapSum.value(QLatin1String(szState))).arg(QLatin1String(szState)));
    }
    return listSum.join(QStringLiteral(", "));
}

// XML has no way to say the other control characters.
QString Clean(QString strText)
{
    const auto isBad
        = [](QChar letter) { return letter.unicode() < 0x20 && letter != QLatin1Char('\n') && letter != QLatin1Char('\t'); };
    std::replace_if(strText.begin(), strText.end(), isBad, QLatin1Char('?'));
    return strText;
}

int Count(const std::vector<SResult>& vecResult, bool (*isCounted)(const SResult&))
{
    return static_cast<int>(std::count_if(vecResult.begin(), vecResult.end(), isCounted));
}

bool IsSkipped(const SResult& result)
{
    return !result.IsBroken() && GetState(result) != QLatin1String("kept");
}

void WriteCase(QXmlStreamWriter& xml, const SResult& result)
{
    const QString strObject = result.promise.strId.section(QLatin1Char('-'), 1, 1);
    const QString strStory = Clean(BuildStory(result.outcome).join(QLatin1Char('\n')));
    xml.writeStartElement(QStringLiteral("testcase"));
    xml.writeAttribute(QStringLiteral("classname"), QStringLiteral("contract.") + strObject);
    xml.writeAttribute(QStringLiteral("name"), result.promise.strId + QLatin1Char(' ') + result.promise.strSentence);
    xml.writeAttribute(QStringLiteral("time"),
                       QString::number(static_cast<double>(result.outcome.time.count()) / 1000.0, 'f', 3));
    if (result.IsBroken()) {
        xml.writeStartElement(QStringLiteral("failure"));
        xml.writeAttribute(QStringLiteral("type"), Promises::GetName(result.promise.kind));
        xml.writeAttribute(QStringLiteral("message"), Clean(result.outcome.strReason));
        xml.writeCharacters(strStory);
        xml.writeEndElement();
    } else if (IsSkipped(result)) {
        const QString strReason
            = result.outcome.strReason.isEmpty() ? QString() : QStringLiteral(": ") + result.outcome.strReason;
        xml.writeEmptyElement(QStringLiteral("skipped"));
        xml.writeAttribute(QStringLiteral("message"), Clean(GetState(result) + strReason));
        if (IsStory(result)) {
            xml.writeTextElement(QStringLiteral("system-out"), strStory);
        }
    }
    xml.writeEndElement();
}

} // namespace

QString Reports::BuildText(const SContractOptions& options, const std::vector<SResult>& vecResult)
{
    QStringList listLine{
        QStringLiteral("%1, seed %2, %3 sequences").arg(options.strControl).arg(options.nSeed).arg(options.nSequences)
    };
    for (const SResult& result : vecResult) {
        listLine += BuildLines(result);
    }
    listLine.append(BuildSums(vecResult));
    return listLine.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

void Reports::WriteJUnit(QIODevice& device, const SContractOptions& options, const std::vector<SResult>& vecResult)
{
    QXmlStreamWriter xml(&device);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("testsuite"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("ptv-contract"));
    xml.writeAttribute(QStringLiteral("tests"), QString::number(vecResult.size()));
    xml.writeAttribute(QStringLiteral("failures"),
                       QString::number(Count(vecResult, [](const SResult& result) { return result.IsBroken(); })));
    xml.writeAttribute(QStringLiteral("errors"), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("skipped"), QString::number(Count(vecResult, IsSkipped)));
    xml.writeStartElement(QStringLiteral("properties"));
    for (const auto& property : { std::pair<QString, QString>{ QStringLiteral("control"), options.strControl },
                                  { QStringLiteral("seed"), QString::number(options.nSeed) },
                                  { QStringLiteral("sequences"), QString::number(options.nSequences) } }) {
        xml.writeEmptyElement(QStringLiteral("property"));
        xml.writeAttribute(QStringLiteral("name"), property.first);
        xml.writeAttribute(QStringLiteral("value"), Clean(property.second));
    }
    xml.writeEndElement();
    for (const SResult& result : vecResult) {
        WriteCase(xml, result);
    }
    xml.writeEndDocument();
}
