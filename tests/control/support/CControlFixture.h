#pragma once

#include "CMessageRecorder.h"
#include "CorvidControl/objects/CControlHost.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "nodes/SProcessorAllNode.h"

#include <QMetaType>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(SProcessorNode)

/// A running library over a list of the test's choice in a folder of its own, without a life and with
/// quick devices, and an observer that has read the beginning already.
class CControlFixture
{
public:
    CControlFixture();
    ~CControlFixture();

    /// Writes node as the list file and starts. Once, or again after Stop.
    void Start(const SProcessorAllNode& node = {});

    /// Starts over the list file as it is.
    void StartAsIs();
    void Stop();

    QString GetPath(const QString& strName = QStringLiteral("list.kvtl")) const;
    void Write(const QString& strName, const QByteArray& bytes) const;
    QByteArray Read(const QString& strName) const;

    /// The names of the files in the folder that fit, but for the lock.
    QStringList ListFiles(const QStringList& listFilter = {}) const;

    /// A pane as text, one node a line, members indented; "*" marks the selected nodes, in their order.
    static QString GetText(bool bSimulator = false);
    static SProcessorAllNode GetTree(bool bSimulator = false);
    static SProcessorNode GetProcessor(const QString& strName, bool bSimulator = false);

    QTemporaryDir folder;
    SControlOptions options;
    CMessageRecorder recorder;
    std::unique_ptr<CControlHost> pHost;
};
