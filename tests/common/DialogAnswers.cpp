#include "DialogAnswers.h"

#include <QApplication>
#include <QTimer>
#include <QtTest>

namespace {

void ClickPart(QWidget* pDialog, const QString& strName)
{
    auto* pPart = pDialog->findChild<QWidget*>(strName);
    QVERIFY2(pPart, qPrintable(strName));
    QTest::mouseClick(pPart, Qt::LeftButton);
}

} // namespace

void AnswerNext(QObject* pContext, const std::function<void(QWidget*)>& fnAnswer)
{
    auto* pTimer = new QTimer(pContext);
    QObject::connect(pTimer, &QTimer::timeout, pContext, [pTimer, fnAnswer] {
        QWidget* pDialog = QApplication::activeModalWidget();
        if (pDialog && pDialog->isActiveWindow()) {
            pTimer->deleteLater();
            pTimer->stop();
            fnAnswer(pDialog);
        }
    });
    pTimer->start(0);
}

void Answer(QWidget* pDialog, const QString& strHow)
{
    const QKeySequence sequence = strHow.startsWith(QLatin1String("key ")) ? QKeySequence(strHow.mid(4)) : QKeySequence();
    QWidget* pFocus = pDialog->focusWidget() ? pDialog->focusWidget() : pDialog;
    if (strHow == QLatin1String("tab space")) {
        QTest::keyClick(pFocus, Qt::Key_Tab);
        QTest::keyClick(pDialog->focusWidget(), Qt::Key_Space);
    } else if (strHow == QLatin1String("window closed")) {
        pDialog->close();
    } else if (sequence.isEmpty()) {
        ClickPart(pDialog, strHow);
    } else {
        QTest::keySequence(pFocus, sequence);
    }
}
