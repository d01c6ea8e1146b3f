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
    return listPart.join(QCoreApplication::translate("RowSpeech", ", "));
}

QString Role(const SProcessorNode& node)
{
    if (!node.bOnline || node.nFailover == 0 || node.strProject.isEmpty()) {
        return QString();
    }
    return node.nFailover == 1 ? QCoreApplication::translate("RowSpeech", "Primary")
                               : QCoreApplication::translate("RowSpeech", "Backup");
}

QString Project(const SProcessorNode& node)
{
    if (!node.bOnline || node.strProject.isEmpty()) {
        return QString();
    }
    return QCoreApplication::translate("RowSpeech", "project %1").arg(node.strProject);
}

QString Count(int nProcessors)
{
    return nProcessors == 1 ? QCoreApplication::translate("RowSpeech", "1 processor")
                            : QCoreApplication::translate("RowSpeech", "%1 processors").arg(nProcessors);
}

QString Chief(const SProcessorGroupNode& group)
{
    const auto itChief = std::find_if(group.listProcessor.cbegin(), group.listProcessor.cend(),
                                      [&group](const SProcessorNode& node) { return node.idNode == group.idChief; });
    return itChief == group.listProcessor.cend() ? QCoreApplication::translate("RowSpeech", "has a Chief")
                                                 : QCoreApplication::translate("RowSpeech", "Chief %1").arg(itChief->strName);
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
    const QStringList listText{ group.strName, QCoreApplication::translate("RowSpeech", "group"),
                                Count(group.listProcessor.size()) };
    return { Join(listText), bChiefMode && !group.idChief.isNull() ? Chief(group) : QString() };
}

RowSpeech::SWords RowSpeech::Processor(const SProcessorNode& node, const QString& strGroup, bool bChiefMode)
{
    const QString strOnline
        = node.bOnline ? QCoreApplication::translate("RowSpeech", "online") : QCoreApplication::translate("RowSpeech", "offline");
    const bool bChief = bChiefMode && node.nChief == 1;
    const QString strChief = bChief ? QCoreApplication::translate("RowSpeech", "Chief") : QString();
    const QString strOfGroup
        = strGroup.isEmpty() ? QString() : QCoreApplication::translate("RowSpeech", "group %1").arg(strGroup);
    return { Join({ node.strName, strOnline, Role(node), strChief }),
             Join({ Project(node), strOfGroup, QHostAddress(node.nIP).toString() }) };
}

RowSpeech::SWords RowSpeech::Info(const SProcessorNode& node)
{
    return { RowText::InfoLines(node).join(QLatin1Char('\n')), QString() };
}

QString RowSpeech::Tree(bool bDiscovered)
{
    return bDiscovered ? QCoreApplication::translate("RowSpeech", "Discovered processors")
                       : QCoreApplication::translate("RowSpeech", "Simulators");
}

QString RowSpeech::Editor(const QString& strName)
{
    return QCoreApplication::translate("RowSpeech", "Name of %1").arg(strName);
}
