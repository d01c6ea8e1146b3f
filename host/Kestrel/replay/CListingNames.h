#pragma once

#include <QHash>
#include <QString>

struct SRecordedLine;

/// The names that the nodes of a recording have as it goes on. One thread.
class CListingNames
{
public:
    /// In the order of the lines.
    void Follow(const SRecordedLine& line);

    /// "alpha (1c0ffee0-…)"; the id alone where there is no name, and the root's name for the null id.
    QString GetNode(const QString& strId) const;

    /// The text with the name behind each id in it.
    QString AddNames(const QString& strText) const;

private:
    QHash<QString, QString> mapName; ///< by id, without braces
    QString strRoot;
};
