#include "TestMain.h"

#include <QDirIterator>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

namespace {

constexpr int nMostBytes = 300;
constexpr int nMostBytesInRow = 230; ///< a row parses up to three of them at every paint

QByteArray Read(const QString& strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString IconPath(const QString& strName)
{
    return QStringLiteral(ICONS_FOLDER "/") + strName;
}

/// What the sources of the panel and of the widget library ask for, without ":/image/".
QStringList AskedIcons()
{
    static const QRegularExpression expression(QStringLiteral(":/image/([\\w/]+\\.svg)"));
    QStringList listName;
    for (const char* szFolder : { SOURCE_FOLDER "/src", SOURCE_FOLDER "/host" }) {
        QDirIterator files(QLatin1String(szFolder), { "*.cpp", "*.h", "*.qss" }, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            auto match = expression.globalMatch(QString::fromUtf8(Read(files.next())));
            while (match.hasNext()) {
                listName.append(match.next().captured(1));
            }
        }
    }
    listName.removeDuplicates();
    return listName;
}

QImage Render(const QString& strName, int nEdge)
{
    QImage image(nEdge, nEdge, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(IconPath(strName)).render(&painter, QRectF(0, 0, nEdge, nEdge));
    return image;
}

QImage Blank(const QImage& image)
{
    QImage blank(image.size(), image.format());
    blank.fill(Qt::transparent);
    return blank;
}

/// Pixels that are clearly one of the two and not of the other, in percent of the drawn ones.
int Difference(const QImage& a, const QImage& b)
{
    int nDifferent = 0;
    int nDrawn = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const bool bA = qAlpha(a.pixel(x, y)) > 127;
            const bool bB = qAlpha(b.pixel(x, y)) > 127;
            nDifferent += bA != bB;
            nDrawn += bA || bB;
        }
    }
    return nDrawn == 0 ? 0 : 100 * nDifferent / nDrawn;
}

} // namespace

class CIconsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyPathThatIsAskedForIsInTheResources()
    {
        const QByteArray resources = Read(IconPath("icons.qrc"));
        const QStringList listAsked = AskedIcons();

        QVERIFY(listAsked.size() >= 25);
        for (const QString& strName : listAsked) {
            QVERIFY2(resources.contains("<file>" + strName.toUtf8() + "</file>"), qPrintable(strName));
        }
    }

    void everyFileOfTheFamilyIsDrawnByItsRules_data()
    {
        QTest::addColumn<QString>("strName");

        QDirIterator files(QStringLiteral(ICONS_FOLDER), { "*.svg" }, QDir::Files, QDirIterator::Subdirectories);
        const QDir root(QStringLiteral(ICONS_FOLDER));
        while (files.hasNext()) {
            const QString strName = root.relativeFilePath(files.next());
            QTest::newRow(qPrintable(strName)) << strName;
        }
    }

    void everyFileOfTheFamilyIsDrawnByItsRules()
    {
        QFETCH(QString, strName);
        const QByteArray text = Read(IconPath(strName));

        // A warning of the parser fails the run.
        QSvgRenderer renderer(IconPath(strName));
        QVERIFY(renderer.isValid());
        const QImage image = Render(strName, 64);

        QVERIFY2(text.size() <= nMostBytes, qPrintable(QString::number(text.size())));
        QVERIFY(image != Blank(image));
        QVERIFY(!text.contains("Gradient"));
        QVERIFY(!text.contains("<text"));
        QVERIFY(text.count("stroke-width") <= 1);
    }

    void theMarksOfARowAreSmallFiles_data()
    {
        QTest::addColumn<QString>("strName");

        for (const char* szName : { "online/online", "online/offline", "failover/primary", "failover/backup", "chief/chief",
                                    "groupNode/group_normal", "groupNode/group_selected", "groupNode/group_hasChief" }) {
            QTest::newRow(szName) << QStringLiteral("treeView/%1.svg").arg(QLatin1String(szName));
        }
    }

    void theMarksOfARowAreSmallFiles()
    {
        QFETCH(QString, strName);

        QVERIFY(Read(IconPath(strName)).size() <= nMostBytesInRow);
    }

    void marksThatStandForDifferentThingsHaveDifferentShapes_data()
    {
        QTest::addColumn<QString>("strFirst");
        QTest::addColumn<QString>("strSecond");
        QTest::addColumn<int>("nEdge");

        QTest::newRow("Primary, Backup") << "failover/primary"
                                         << "failover/backup" << 14;
        QTest::newRow("Primary, Chief") << "failover/primary"
                                        << "chief/chief" << 14;
        QTest::newRow("Backup, Chief") << "failover/backup"
                                       << "chief/chief" << 14;
        QTest::newRow("online, offline") << "online/online"
                                         << "online/offline" << 14;
        QTest::newRow("group, group with a Chief") << "groupNode/group_normal"
                                                   << "groupNode/group_hasChief" << 16;
    }

    void marksThatStandForDifferentThingsHaveDifferentShapes()
    {
        QFETCH(QString, strFirst);
        QFETCH(QString, strSecond);
        QFETCH(int, nEdge);

        const QImage first = Render("treeView/" + strFirst + ".svg", nEdge);
        const QImage second = Render("treeView/" + strSecond + ".svg", nEdge);

        // By shape, not by colour, for those who see few colours.
        QVERIFY2(Difference(first, second) >= 15, qPrintable(QString::number(Difference(first, second))));
    }
};

PTV_TEST_MAIN(CIconsTest)
#include "tst_icons.moc"
