// A second program on the list named by the first argument. Does what its input says, line by line, and
// answers each with one line:
//   rename NAME    the first group gets that name; "done"
//   save           the result of saving at the list's own place
//   trouble        why the list is not being saved
//   run NAME N     renames to "NAME 1" to "NAME N" and saves each, with delays; how many were saved there
// Its end is that of its input.

#include "CorvidControl/objects/CControlHost.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "nodes/SProcessorAllNode.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTextStream>
#include <QThread>

#include <cstdio>

namespace {

void Rename(const QString& strName)
{
    SProcessorAllNode node;
    g_pPrcListControl->GetDiscoveredTree(node);
    if (node.listGroup.isEmpty()) {
        qFatal("the list has no group");
    }
    g_pPrcListControl->RenameGroup(node.listGroup.first().idNode, strName);
}

QString Run(const QString& strListFile, const QString& strName, int nSaves)
{
    int nSaved = 0;
    for (int n = 1; n <= nSaves; ++n) {
        Rename(QStringLiteral("%1 %2").arg(strName).arg(n));
        nSaved += g_pPrcListControl->ExportList(strListFile, 0) == 0 ? 1 : 0;
        QThread::usleep(QRandomGenerator::global()->bounded(5000U)); // paced: two programs that meet at any moment
    }
    return QString::number(nSaved);
}

QString Answer(CControlHost& host, const QString& strListFile, const QStringList& listWord)
{
    if (listWord.first() == QLatin1String("rename")) {
        Rename(listWord.mid(1).join(QLatin1Char(' ')));
        return QStringLiteral("done");
    }
    if (listWord.first() == QLatin1String("save")) {
        return QString::number(g_pPrcListControl->ExportList(strListFile, 0));
    }
    if (listWord.first() == QLatin1String("run")) {
        return Run(strListFile, listWord.value(1), listWord.value(2).toInt());
    }
    return host.GetListTrouble();
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    SControlOptions options;
    options.strListFile = QCoreApplication::arguments().value(1);
    options.bQuietDay = false;
    const std::unique_ptr<CControlHost> pHost = CControlHost::Start(options);
    QTextStream input(stdin);
    for (QString strLine = input.readLine(); !strLine.isNull(); strLine = input.readLine()) {
        std::printf("%s\n", qUtf8Printable(Answer(*pHost, options.strListFile, strLine.split(QLatin1Char(' ')))));
        std::fflush(stdout);
    }
    return 0;
}
