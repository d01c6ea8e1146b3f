#include "tree/RowSpeech.h"

#include "delegate/RowText.h"
#include "nodes/SProcessorAllNode.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QStringList>

#include <algorithm>

namespace {

/// Parts that are not there are left out.
QString Join(QStringList listPart)
{
    listPart.removeAll(QString());
    return listPart.join(QCoreApplication::translate("CProcessorTree", ", "));
}

QString Role(const SProcessorNode& node)
{
    if (!node.bOnline || node.nFailover == 0 || node.strProject.isEmpty()) {
        return QString();
    }
    return node.nFailover == 1 ? QCoreApplication::translate("CProcessorTree", "Primary")
                               : QCoreApplication::translate("CProcessorTree", "Backup");
}

QString Project(const SProcessorNode& node)
{
    if (!node.bOnline || node.strProject.isEmpty()) {
        return QString();
    }
    return QCoreApplication::translate("CProcessorTree", "project %1").arg(node.strProject);
}

// One has a text of its own, so that English needs no translation to say it.
QString GroupText(const QString& strName, int nProcessors)
{
    const QString strPattern = nProcessors == 1
        ? QCoreApplication::translate("CProcessorTree", "%1, group, 1 processor")
        : QCoreApplication::translate("CProcessorTree", "%1, group, %n processors", nullptr, nProcessors);
    return strPattern.arg(strName);
}

QString Chief(const SProcessorGroupNode& group)
{
    const auto itChief = std::find_if(group.listProcessor.cbegin(), group.listProcessor.cend(),
                                      [&group](const SProcessorNode& node) { return node.idNode == group.idChief; });
    return itChief == group.listProcessor.cend()
        ? QCoreApplication::translate("CProcessorTree", "has a Chief")
        : QCoreApplication::translate("CProcessorTree", "Chief %1").arg(itChief->strName);
}

} // namespace

RowSpeech::SWords RowSpeech::All(const SProcessorAllNode& node)
{
    int nProcessors = node.listProcessor.size();
    for (const SProcessorGroupNode& group : node.listGroup) {
        nProcessors += group.listProcessor.size();
    }
    return { RowText::All(nProcessors), QString() };
}

RowSpeech::SWords RowSpeech::Group(const SProcessorGroupNode& group, bool bChiefMode)
{
    return { GroupText(group.strName, group.listProcessor.size()),
             bChiefMode && !group.idChief.isNull() ? Chief(group) : QString() };
}

RowSpeech::SWords RowSpeech::Processor(const SProcessorNode& node, const QString& strGroup, bool bChiefMode)
{
    const QString strOnline = node.bOnline ? QCoreApplication::translate("CProcessorTree", "online")
                                           : QCoreApplication::translate("CProcessorTree", "offline");
    const bool bChief = bChiefMode && node.nChief == 1;
    const QString strChief = bChief ? QCoreApplication::translate("CProcessorTree", "Chief") : QString();
    const QString strOfGroup
        = strGroup.isEmpty() ? QString() : QCoreApplication::translate("CProcessorTree", "group %1").arg(strGroup);
    return { Join({ node.strName, strOnline, Role(node), strChief }),
             Join({ Project(node), strOfGroup, QHostAddress(node.nIP).toString() }) };
}

RowSpeech::SWords RowSpeech::Info(const SProcessorNode& node)
{
    return { RowText::InfoLines(node).join(QLatin1Char('\n')), QString() };
}

QString RowSpeech::Tree(bool bDiscovered)
{
    return bDiscovered ? QCoreApplication::translate("CProcessorTree", "Discovered processors")
                       : QCoreApplication::translate("CProcessorTree", "Simulators");
}

QString RowSpeech::Editor(const QString& strName)
{
    return QCoreApplication::translate("CProcessorTree", "Name of %1").arg(strName);
}
