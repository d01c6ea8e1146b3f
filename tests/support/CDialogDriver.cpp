#include "CDialogDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

constexpr int nLookMilliseconds = 1;

QString Describe(const QDialog* pDialog)
{
    const auto* pText = pDialog->findChild<QLabel*>(QStringLiteral("MessageText"));
    return pText ? pDialog->windowTitle() + QStringLiteral(": ") + pText->text() : pDialog->windowTitle();
}

QString Plain(QString strText)
{
    return strText.remove(QLatin1Char('&'));
}

QWidget* FindPart(const QDialog* pDialog, const QString& strPart)
{
    for (QAbstractButton* pButton : pDialog->findChildren<QAbstractButton*>()) {
        if (Plain(pButton->text()) == strPart) {
            return pButton;
        }
    }
    return pDialog->findChild<QWidget*>(strPart);
}

void ClickPart(const QDialog* pDialog, const QString& strPart)
{
    QWidget* pPart = FindPart(pDialog, strPart);
    QVERIFY2(pPart, qPrintable("nothing to click: " + strPart));
    QTest::mouseClick(pPart, Qt::LeftButton);
}

void ChooseFile(QDialog* pDialog, const QString& strPath)
{
    QVERIFY(qobject_cast<QFileDialog*>(pDialog));
    auto* pName = pDialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    pName->setText(strPath);
    QTest::keyClick(pName, Qt::Key_Return);
}

} // namespace

CDialogDriver::CDialogDriver()
{
    timer.setInterval(nLookMilliseconds);
    connect(&timer, &QTimer::timeout, this, &CDialogDriver::Look);
    timer.start();
}

void CDialogDriver::Answer(const FnAnswer& fnAnswer)
{
    queueAnswer.enqueue(fnAnswer);
}

void CDialogDriver::Answer(const QString& strHow)
{
    Answer([strHow](QDialog* pDialog) { Press(pDialog, strHow); });
}

void CDialogDriver::AnswerByFile(const QString& strPath)
{
    Answer([strPath](QDialog* pDialog) { ChooseFile(pDialog, strPath); });
}

QStringList CDialogDriver::Shown() const
{
    return listShown;
}

bool CDialogDriver::IsDone() const
{
    return queueAnswer.isEmpty() && nSurprises == 0;
}

void CDialogDriver::Press(QDialog* pDialog, const QString& strHow)
{
    QWidget* pFocus = pDialog->focusWidget() ? pDialog->focusWidget() : pDialog;
    if (strHow.startsWith(QLatin1String("key "))) {
        QTest::keySequence(pFocus, QKeySequence(strHow.mid(4)));
    } else if (strHow == QLatin1String("tab space")) {
        QTest::keyClick(pFocus, Qt::Key_Tab);
        QTest::keyClick(pDialog->focusWidget(), Qt::Key_Space);
    } else if (strHow == QLatin1String("window closed")) {
        pDialog->close();
    } else {
        ClickPart(pDialog, strHow);
    }
}

QStringList CDialogDriver::Buttons(const QDialog* pDialog)
{
    QStringList listText;
    for (const QPushButton* pButton : pDialog->findChildren<QPushButton*>()) {
        listText.append(Plain(pButton->text()));
    }
    return listText;
}

void CDialogDriver::Look()
{
    auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (pDialog && pDialog->isActiveWindow() && pDialog != pLast) {
        pLast = pDialog;
        // From a call of its own: a timer does not fire again inside its own timeout, where an answer may open
        // the next dialog.
        QMetaObject::invokeMethod(this, &CDialogDriver::Deal, Qt::QueuedConnection);
    }
}

void CDialogDriver::Deal()
{
    if (!pLast) {
        return;
    }
    listShown.append(Describe(pLast));
    if (queueAnswer.isEmpty()) {
        ++nSurprises;
        pLast->reject();
        return;
    }
    queueAnswer.dequeue()(pLast);
}
