#include "CScreenReader.h"

#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace {

void SetListening(bool bListening)
{
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(bListening);
}

QString WhatItIs(const QAccessibleInterface& source)
{
    QStringList listPart{ source.text(QAccessible::Name), source.text(QAccessible::Description) };
    listPart.removeAll(QString());
    listPart.removeDuplicates(); // a tool tip may repeat the name
    return listPart.join(QStringLiteral(" / "));
}

} // namespace

CScreenReader* CScreenReader::pListening = nullptr;

CScreenReader::CScreenReader() : handlerBefore(QAccessible::installUpdateHandler(&CScreenReader::Hear))
{
    Q_ASSERT(!pListening);
    pListening = this;
    SetListening(true);
}

CScreenReader::~CScreenReader()
{
    SetListening(false);
    QAccessible::installUpdateHandler(handlerBefore);
    pListening = nullptr;
}

QStringList CScreenReader::Heard() const
{
    return listHeard;
}

void CScreenReader::Forget()
{
    listHeard.clear();
}

void CScreenReader::Hear(QAccessibleEvent* pEvent)
{
    const QAccessibleInterface* const pSource = pEvent->accessibleInterface();
    if (!pSource) {
        return;
    }
    if (pEvent->type() == QAccessible::Focus) {
        pListening->listHeard.append(QStringLiteral("focus: ") + WhatItIs(*pSource));
    } else if (pEvent->type() == QAccessible::NameChanged) {
        pListening->listHeard.append(QStringLiteral("name: ") + pSource->text(QAccessible::Name));
    } else if (pEvent->type() == QAccessible::DescriptionChanged) {
        pListening->listHeard.append(QStringLiteral("description: ") + pSource->text(QAccessible::Description));
    }
}
