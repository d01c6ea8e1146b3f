#include "CDialogDriver.h"

#include <QApplication>
#include <QDialogButtonBox>
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

void ClickButton(const QDialog* pDialog, const QString& strButton)
{
    auto* pButton = pDialog->findChild<QAbstractButton*>(strButton);
    QVERIFY2(pButton, qPrintable(strButton));
    QTest::mouseClick(pButton, Qt::LeftButton);
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

void CDialogDriver::AnswerByButton(const QString& strButton)
{
    Answer([strButton](QDialog* pDialog) { ClickButton(pDialog, strButton); });
}

void CDialogDriver::AnswerByEscape()
{
    Answer([](QDialog* pDialog) { QTest::keyClick(pDialog, Qt::Key_Escape); });
}

void CDialogDriver::AnswerYes()
{
    AnswerByButton(QStringLiteral("ButtonYes"));
}

void CDialogDriver::AnswerNo()
{
    AnswerByButton(QStringLiteral("ButtonNo"));
}

void CDialogDriver::AnswerOk()
{
    AnswerByButton(QStringLiteral("ButtonOk"));
}

void CDialogDriver::AnswerByCross()
{
    AnswerByButton(QStringLiteral("DialogClose"));
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

void CDialogDriver::Look()
{
    auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (pDialog && pDialog->isVisible() && pDialog != pLast) {
        Deal(pDialog);
    }
}

void CDialogDriver::Deal(QDialog* pDialog)
{
    pLast = pDialog;
    listShown.append(Describe(pDialog));
    if (queueAnswer.isEmpty()) {
        ++nSurprises;
        pDialog->reject();
        return;
    }
    queueAnswer.dequeue()(pDialog);
}
