#include "panel/CComplaints.h"

#include <utility>

namespace {

/// What the offscreen platform and a bare machine say, whatever the program does.
bool IsOfThePlatform(const QString& strText)
{
    return strText.startsWith(QLatin1String("This plugin does not support "))
        || strText.startsWith(QLatin1String("QStandardPaths: "));
}

} // namespace

CComplaints* CComplaints::pListening = nullptr;

CComplaints::CComplaints()
{
    Q_ASSERT(!pListening);
    pListening = this;
    pBefore = qInstallMessageHandler(&CComplaints::Handle);
}

CComplaints::~CComplaints()
{
    qInstallMessageHandler(pBefore);
    pListening = nullptr;
}

QStringList CComplaints::Take()
{
    const QMutexLocker locker(&mutex);
    return std::exchange(listComplaint, {});
}

void CComplaints::Handle(QtMsgType type, const QMessageLogContext& context, const QString& strText)
{
    if (IsOfThePlatform(strText) || type == QtInfoMsg) {
        return;
    }
    if (type != QtWarningMsg && type != QtCriticalMsg) {
        pListening->pBefore(type, context, strText);
        return;
    }
    const QMutexLocker locker(&pListening->mutex);
    pListening->listComplaint.append(strText);
}
