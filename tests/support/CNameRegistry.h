#pragma once

#include <QHash>
#include <QMutex>
#include <QString>
#include <QUuid>

#include <vector>

/// Names for ids, so that journals and trees read well. One registry a program; any thread. The
/// builders register what they build.
class CNameRegistry
{
public:
    static CNameRegistry& Instance();

    /// From now on id prints as strName; a later name for the same id wins.
    void Name(const QUuid& id, const QString& strName);

    /// The name of id, "{null}" for the null id, the id itself when it has no name.
    QString Text(const QUuid& id) const;

    /// "[alpha, beta]", in the order given.
    QString Text(const std::vector<QUuid>& vecId) const;

private:
    CNameRegistry() = default;

    mutable QMutex mutex;           ///< guards hashName
    QHash<QUuid, QString> hashName; ///< id to name
};

/// The id that the builders give to a name: always the same for the same name, and registered.
QUuid ProcessorId(const QString& strName);
QUuid GroupId(const QString& strName);
