#pragma once

#include "controlhost/SRefusedList.h"

#include <QObject>

class CDiskWork;
class IControlHost;
class QWidget;

/// Offers the list that was refused at the start: says what is wrong with it and what can be read, and takes it when
/// the user wants it nevertheless. GUI thread.
class CRefusedList : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    CRefusedList(IControlHost& hostIn, CDiskWork& workIn, QWidget& windowIn);

    /// Returns at once; the question follows when the file was read.
    void Offer();

    /// Whether one was refused and not taken yet.
    bool IsThere() const;

signals:
    void Changed(); ///< IsThere has another answer

private:
    void Ask(const SRefusedList& refused);
    static QString GetFaultText(const SRefusedList& refused);
    static QString GetContentText(const SRefusedList& refused);

    IControlHost& host;
    CDiskWork& work;
    QWidget& window;
    bool bOffering = false;
};
