#pragma once

#include "CorvidControl/objects/CHostEvents.h"
#include "controlhost/IControlHost.h"

#include <QVector>

#include <mutex>

/// Writes down the edits and refusals of a library, on whichever thread they come.
class CEditRecorder
{
public:
    /// source must outlive the recorder.
    template <typename Source> explicit CEditRecorder(const Source* pSource)
    {
        QObject::connect(
            pSource, &Source::ListEdited, &context, [this](const SListEdit& edit) { Add(vecEdit, edit); }, Qt::DirectConnection);
        QObject::connect(
            pSource, &Source::CommandRefused, &context, [this](const SRefusal& refusal) { Add(vecRefusal, refusal); },
            Qt::DirectConnection);
    }

    QVector<SListEdit> GetEdits() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return vecEdit;
    }

    QVector<SRefusal> GetRefusals() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return vecRefusal;
    }

private:
    template <typename Record> void Add(QVector<Record>& vecRecord, const Record& record)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        vecRecord.append(record);
    }

    mutable std::mutex mutex; ///< guards all below
    QVector<SListEdit> vecEdit;
    QVector<SRefusal> vecRefusal;
    QObject context;
};
