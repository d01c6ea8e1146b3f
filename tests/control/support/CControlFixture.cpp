#include "CControlFixture.h"

#include "CorvidControl/file/ListFormat.h"

#include <QDir>
#include <QFile>

#include <algorithm>

CControlFixture::CControlFixture()
{
    options.strListFile = GetPath();
    options.bQuietDay = false;
    options.nScanMs = 20;
    options.nAnswerMs = 10;
    options.nTimeoutMs = 30;
    options.nReleaseMs = 5;
}

CControlFixture::~CControlFixture()
{
    Stop();
}

void CControlFixture::Start(const SProcessorAllNode& node)
{
    Write(QStringLiteral("list.kvtl"), ListFormat::Write(node));
    StartAsIs();
}

void CControlFixture::StartAsIs()
{
    pHost = CControlHost::Start(options);
    recorder.AttachAll();
    recorder.Clear();
}

void CControlFixture::Stop()
{
    if (!pHost) {
        return;
    }
    recorder.DetachAll();
    pHost.reset();
}

QString CControlFixture::GetPath(const QString& strName) const
{
    return folder.filePath(strName);
}

void CControlFixture::Write(const QString& strName, const QByteArray& bytes) const
{
    QFile file(GetPath(strName));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    }
}

QByteArray CControlFixture::Read(const QString& strName) const
{
    QFile file(GetPath(strName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList CControlFixture::ListFiles(const QStringList& listFilter) const
{
    QStringList listName = QDir(folder.path()).entryList(listFilter, QDir::Files | QDir::Hidden);
    listName.removeAll(QStringLiteral("list.kvtl.lock"));
    return listName;
}

QString CControlFixture::GetText(bool bSimulator)
{
    const std::vector<QUuid> vecSelected = g_pRuntimeControl->GetSelectedNodes(bSimulator);
    const auto mark = [&](const QUuid& id) {
        return std::find(vecSelected.cbegin(), vecSelected.cend(), id) != vecSelected.cend() ? QStringLiteral("*") : QString();
    };
    const SProcessorAllNode node = GetTree(bSimulator);
    QStringList listLine{ QStringLiteral("all") + mark({}) };
    for (const SProcessorGroupNode& group : node.listGroup) {
        listLine.append(QStringLiteral("  ") + group.strName + mark(group.idNode));
        for (const SProcessorNode& processor : group.listProcessor) {
            listLine.append(QStringLiteral("    ") + processor.strName + mark(processor.idNode));
        }
    }
    for (const SProcessorNode& processor : node.listProcessor) {
        listLine.append(QStringLiteral("  ") + processor.strName + mark(processor.idNode));
    }
    return listLine.join(QLatin1Char('\n'));
}

SProcessorAllNode CControlFixture::GetTree(bool bSimulator)
{
    SProcessorAllNode node;
    bSimulator ? g_pPrcListControl->GetSimulatorTree(node) : g_pPrcListControl->GetDiscoveredTree(node);
    return node;
}

SProcessorNode CControlFixture::GetProcessor(const QString& strName, bool bSimulator)
{
    const SProcessorAllNode node = GetTree(bSimulator);
    QList<SProcessorNode> listProcessor = node.listProcessor;
    for (const SProcessorGroupNode& group : node.listGroup) {
        listProcessor += group.listProcessor;
    }
    for (const SProcessorNode& processor : std::as_const(listProcessor)) {
        if (processor.strName == strName) {
            return processor;
        }
    }
    return {};
}
