#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QUuid>

class CControlLibrary;

/// What goes wrong in the library at present: every fault that a scenario can ask for, for a step or a few.
class CFaultPlan
{
public:
    /// The scenario's step that Arm takes.
    static QJsonObject BuildStep(int nFault, int nDetail, const QString& strNode, const QString& strOther);

    /// The number chooses the fault, the detail what it is about and for how many steps. The nodes are ids as text.
    void Arm(CControlLibrary& library, int nFault, int nDetail, const QString& strNode, const QString& strOther);

    /// A step is over. True when that was the last one under a fault; nothing goes wrong any more then, but for messages that
    /// are still to be lost, to come twice or to change places.
    bool EndStep(CControlLibrary& library);

    bool IsArmed() const
    {
        return nStepsLeft > 0;
    }

    /// Whether ids collide: commands for a row may go to another.
    bool IsBlind() const
    {
        return !listCollided.isEmpty();
    }

    /// Whether the panel may not have heard what the library has selected: Delete, which takes what it has heard, may hit that.
    bool IsDeaf() const
    {
        return bDeaf;
    }

    /// Whether the library may have refused what the panel has selected.
    bool IsRefusing() const
    {
        return bRefusing;
    }

private:
    void End(CControlLibrary& library);
    void EndMisreading(CControlLibrary& library);

    int nStepsLeft = 0;
    bool bDeaf = false;
    bool bRefusing = false;
    QList<QUuid> listFlickering; ///< that are read with other values
    QList<QUuid> listCollided;   ///< that are read with the id of another
    QList<QJsonObject> listEnd;  ///< the steps that end what has no end of its own
};
