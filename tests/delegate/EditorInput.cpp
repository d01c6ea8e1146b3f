#include "EditorInput.h"

#include "Builders.h"
#include "CNameRegistry.h"
#include "CRowView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QtTest>

const QString strStage = QStringLiteral("Stage");
const QString strAlpha = QStringLiteral("alpha");
const QString strGamma = QStringLiteral("gamma");

SProcessorAllNode Site()
{
    return SiteWithGammaNamed(strGamma);
}

SProcessorAllNode SiteWithGammaNamed(const QString& strName)
{
    return Root({ Group(strStage, { Processor(strAlpha) }) }, { Processor(strName).Id(strGamma) });
}

QModelIndex Gamma(const CRowView& view)
{
    return view.Row(NodeProcessor, ProcessorId(strGamma));
}

QString RenameGamma(const QString& strName)
{
    return QStringLiteral("gui: g_pPrcBasicControl.RenameProcessor(gamma, \"%1\")").arg(strName);
}

void Type(QLineEdit* pEditor, const QString& strText)
{
    for (const QChar ch : strText) {
        QTest::sendKeyEvent(QTest::Click, pEditor, Qt::Key_unknown, QString(ch), Qt::NoModifier);
    }
}

void Paste(QLineEdit* pEditor, const QString& strText)
{
    QGuiApplication::clipboard()->setText(strText);
    QTest::keySequence(pEditor, QKeySequence::Paste);
}

void Compose(QLineEdit* pEditor, const QString& strText)
{
    QInputMethodEvent composing(strText, {});
    QCoreApplication::sendEvent(pEditor, &composing);
    QInputMethodEvent done;
    done.setCommitString(strText);
    QCoreApplication::sendEvent(pEditor, &done);
}
