#pragma once

#include <QHash>
#include <QJsonArray>
#include <QSet>
#include <QUuid>

class CRecordedRun;
struct SProcessorAllNode;

/// Tells which id of this panel stands for which of the recorded one, as panels make ids of their own, and compares arguments
/// under that. Ids are texts without braces. One thread at a time.
class CReplayIds
{
public:
    explicit CReplayIds(const CRecordedRun& run);

    /// The arguments are the same but for ids that the panels made: the first time that such a one is met, its counterpart is
    /// noted. Of a masked run, texts that are no ids are not compared.
    bool Match(const QJsonArray& argsMade, const QJsonArray& argsRecorded);
    bool WouldMatch(const QJsonArray& argsMade, const QJsonArray& argsRecorded) const;

    /// With the ids of the recorded panel.
    QJsonArray GetRecorded(const QJsonArray& args) const;

    /// With the ids of this panel.
    QJsonValue GetPanelValue(const QJsonValue& value) const;
    void Translate(SProcessorAllNode& node) const;
    QString GetPanelId(const QString& idRecorded) const;

    /// There is anything to translate.
    bool HasAny() const;

    /// The recording has the node in a selection somewhere, or its tool bar asked about it.
    bool WasSelected(const QString& idPanel) const;

    /// strOwn stands for strRecorded in arguments.
    void SetPath(const QString& strOwn, const QString& strRecorded);

private:
    void Collect(const CRecordedRun& run);
    bool IsSame(const QJsonValue& made, const QJsonValue& recorded, QHash<QString, QString>& mapNew) const;
    bool IsSameText(const QString& strMade, const QString& strRecorded, QHash<QString, QString>& mapNew) const;
    bool IsSameObject(const QJsonObject& made, const QJsonObject& recorded, QHash<QString, QString>& mapNew) const;
    bool IsSameArray(const QJsonArray& made, const QJsonArray& recorded, QHash<QString, QString>& mapNew) const;

    const bool bMasked;
    QSet<QString> setAnswered; ///< the library gave them
    QSet<QString> setMade;     ///< the recorded panel made them
    QSet<QString> setSelected;
    QHash<QString, QString> mapRecorded; ///< of this panel to recorded
    QHash<QString, QString> mapPanel;    ///< the other way
    QString strOwnPath;
    QString strRecordedPath;
};
