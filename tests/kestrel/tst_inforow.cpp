#include "Builders.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "delegate/CProcessorTreeDelegate.h"
#include "fixtures/CTreeFixture.h"

#include <QTextOption>

namespace {

constexpr int nLeastPanel = 200;
constexpr int nMostPanel = 600;
constexpr int nTreeMargin = 1; ///< of the panel, at the right of its trees
constexpr int nTreeHeight = 900;
constexpr int nRowHeight = 92;
constexpr int nRightMargin = 14;
constexpr int nFirstLine = 5;
constexpr int nLineStep = 22;
constexpr int nProjectRoom = 45;
constexpr int nIdRoom = 32;
constexpr int nMargin = 60; ///< beside the row, for what would not fit

const QString strLongProject
    = QStringLiteral("Aurora, the whole house and all stages of it, for the winter and the summer season of the coming year");

QString Tr(const char* szText)
{
    return QCoreApplication::translate("CProcessorTreeDelegate", szText);
}

QString Shortened(const QString& strText, int nWidth)
{
    return QFontMetrics(QApplication::font()).elidedText(strText, Qt::ElideMiddle, nWidth, Qt::TextWrapAnywhere);
}

/// The lines of a processor that is online, in a row that leaves them nWidth pixels.
QStringList OnlineLines(const SProcessorNode& node, int nWidth)
{
    return { Tr("Type: ") + node.strType, Tr("IP: %1").arg(QStringLiteral("255.255.255.255")),
             Tr("Project: ") + Shortened(node.strProject, nWidth - nProjectRoom),
             Tr("UID: ") + Shortened(node.idNode.toString(QUuid::WithoutBraces), nWidth - nIdRoom) };
}

QStringList OfflineLines()
{
    return { Tr("Type: --"), Tr("IP: %1").arg(QStringLiteral("255.255.255.255")), Tr("Project: --"), Tr("UID: --") };
}

/// What the panel has beside the row at that width: the indentation and its own margin.
int WidthBesideRow(const CTreeFixture& fixture, const QModelIndex& index, int nPanel)
{
    fixture.pTree->resize(nPanel - nTreeMargin, nTreeHeight);
    return nPanel - fixture.pTree->visualRect(index).width();
}

QImage Ground(const QRect& rcRow)
{
    QImage image(rcRow.right() + nMargin, rcRow.bottom() + nLineStep, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(0x1C, 0x1E, 0x21));
    return image;
}

/// The row as the delegate paints it, with the application's font.
QImage Painted(const QModelIndex& index, const QRect& rcRow)
{
    QImage image = Ground(rcRow);
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    QStyleOptionViewItem option;
    option.rect = rcRow;
    option.state = QStyle::State_Enabled;
    CProcessorTreeDelegate(nullptr).paint(&painter, option, index);
    return image;
}

/// The same lines with all the room that they may want, to the right and downwards.
QImage Unhindered(const QStringList& listLine, const QRect& rcRow)
{
    QImage image = Ground(rcRow);
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    painter.setPen(QColor(186, 190, 196));
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    for (int n = 0; n < listLine.size(); ++n) {
        const QRectF rcLine(rcRow.left(), rcRow.top() + nFirstLine + n * nLineStep, rcRow.width() + nMargin, nLineStep);
        painter.drawText(rcLine, listLine.at(n), option);
    }
    return image;
}

SProcessorNode Wide(const QString& strName, const QString& strProject, bool bOnline)
{
    return Processor(strName)
        .Ip(QStringLiteral("255.255.255.255"))
        .Type(41, QStringLiteral("C41 Portable"))
        .Project(strProject)
        .Online(bOnline)
        .Expanded();
}

SProcessorAllNode List()
{
    return Root({ Group("Stage", { Wide("in a group", strLongProject, true), Wide("offline", strLongProject, false) }) },
                { Wide("short", QStringLiteral("Aurora"), true),
                  // Letters that reach out of their own width at the end of a line.
                  Wide("slanted", QStringLiteral("Fly To Tavern AV Wall VAT LT, Wij. To/Ta Yo Pe 11.11.17 A-V A/"), true),
                  Wide("Chinese", QStringLiteral("冬季演出全部舞台照明控制系统项目名称很长很长很长很长很长"), true) });
}

} // namespace

/// The information row in the font of the application and in each of its languages.
class CInfoRowTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        theme.Apply(*qApp);
    }

    void cleanup()
    {
        language.Set("en");
        qApp->setStyleSheet(QString());
    }

    void theLabelsFitTheirRooms_data()
    {
        QTest::addColumn<QString>("strLanguage");
        const QStringList listCode = CLanguage::GetCodes() << CLanguage::GetPseudoCode();
        for (const QString& strCode : listCode) {
            QTest::newRow(qPrintable(strCode)) << strCode;
        }
    }

    void theLabelsFitTheirRooms()
    {
        QFETCH(QString, strLanguage);
        language.Set(strLanguage);

        const QFontMetricsF metrics(QApplication::font());

        QVERIFY2(metrics.horizontalAdvance(Tr("Project: ")) <= nProjectRoom, qPrintable(Tr("Project: ")));
        QVERIFY2(metrics.horizontalAdvance(Tr("UID: ")) <= nIdRoom, qPrintable(Tr("UID: ")));
    }

    void nothingIsLostAtAnyWidth_data()
    {
        theLabelsFitTheirRooms_data();
    }

    void nothingIsLostAtAnyWidth()
    {
        QFETCH(QString, strLanguage);
        language.Set(strLanguage);
        const SProcessorAllNode root = List();
        CTreeFixture fixture(root);

        for (const SProcessorNode& node : root.listGroup.constFirst().listProcessor + root.listProcessor) {
            const QModelIndex index = fixture.Info(node.strName);
            const int nBeside = WidthBesideRow(fixture, index, nLeastPanel);
            QCOMPARE(WidthBesideRow(fixture, index, nMostPanel), nBeside);
            for (int nPanel = nLeastPanel; nPanel <= nMostPanel; ++nPanel) {
                const QRect rcRow(0, 0, nPanel - nBeside, nRowHeight);
                const QStringList listLine = node.bOnline ? OnlineLines(node, rcRow.width() - 1 - nRightMargin) : OfflineLines();
                const bool bWhole = Painted(index, rcRow) == Unhindered(listLine, rcRow);
                QVERIFY2(bWhole,
                         qPrintable(QStringLiteral("%1, panel of %2: %3")
                                        .arg(node.strName, QString::number(nPanel), listLine.join(QLatin1String(" | ")))));
            }
        }
    }

    void whatIsShortenedKeepsItsStartAndItsEnd()
    {
        CTreeFixture fixture(List());
        const int nWidth = nLeastPanel - WidthBesideRow(fixture, fixture.Info("in a group"), nLeastPanel) - 1 - nRightMargin;

        const QString strProject = Shortened(strLongProject, nWidth - nProjectRoom);

        QVERIFY2(strProject.startsWith("Auro") && strProject.contains(QChar(0x2026)) && strProject.endsWith("year"),
                 qPrintable(strProject));
    }

private:
    CTheme theme;
    CLanguage language;
};

PTV_TEST_MAIN(CInfoRowTest)
#include "tst_inforow.moc"
