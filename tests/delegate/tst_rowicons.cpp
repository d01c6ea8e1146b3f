#include "TestMain.h"
#include "delegate/CRowIcons.h"

#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QResource>

#include <private/qabstractfileengine_p.h>

namespace {

const QRectF rcIcon(4, 4, 16, 16);

QStringList listWarning;

void KeepWarning(QtMsgType, const QMessageLogContext&, const QString& strText)
{
    listWarning.append(strText);
}

// What a drawing leaves: the picture, and what Qt has said of the file.
struct SDrawn
{
    template <typename Draw> explicit SDrawn(Draw fnDraw) : image(24, 24, QImage::Format_ARGB32_Premultiplied)
    {
        image.fill(Qt::black);
        listWarning.clear();
        const QtMessageHandler pBefore = qInstallMessageHandler(KeepWarning);
        QPainter painter(&image);
        fnDraw(&painter);
        painter.end();
        qInstallMessageHandler(pBefore);
        listSaid = listWarning;
    }

    QImage image;
    QStringList listSaid;
};

QString Path(const QString& strName)
{
    return QStringLiteral(":/rowicons/") + strName;
}

SDrawn Drawn(const QString& strName)
{
    return SDrawn([&strName](QPainter* pPainter) { CRowIcons(pPainter).Draw(Path(strName), rcIcon); });
}

SDrawn DrawnByPath(const QString& strName)
{
    return SDrawn([&strName](QPainter* pPainter) {
        QSvgRenderer renderer;
        renderer.load(Path(strName));
        renderer.render(pPainter, rcIcon);
    });
}

// Sees the paths that are opened as files, and leaves them to Qt.
class CPathWatch : public QAbstractFileEngineHandler
{
public:
    QAbstractFileEngine* create(const QString& fileName) const override
    {
        listPath.append(fileName);
        return nullptr;
    }

    mutable QStringList listPath;
};

QImage Blank()
{
    return SDrawn([](QPainter*) { }).image;
}

} // namespace

class CRowIconsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
    }

    void fileIsDrawnAsByItsPath_data()
    {
        QTest::addColumn<QString>("strName");
        QTest::addColumn<bool>("bDrawn");
        QTest::addColumn<int>("nWarnings");
        QTest::newRow("plain") << "plain.svg" << true << 0;
        QTest::newRow("compressed in the resources") << "long.svg" << true << 0;
        QTest::newRow("image within the image") << "nested.svg" << true << 0;
        QTest::newRow("comment at the end") << "commented.svg" << true << 0;
        QTest::newRow("with a declaration") << "declared.svg" << true << 0;
        QTest::newRow("with an entity") << "entity.svg" << true << 0;
        QTest::newRow("packed, by name") << "packed.svgz" << true << 0;
        QTest::newRow("packed, not by name") << "packed.svg" << false << 1;
        QTest::newRow("missing") << "missing.svg" << false << 1;
        QTest::newRow("empty") << "empty.svg" << false << 1;
        QTest::newRow("no image") << "text.svg" << false << 1;
        QTest::newRow("cut off") << "cut.svg" << false << 1;
        QTest::newRow("two images") << "two.svg" << false << 1;
        QTest::newRow("text at the end") << "tail.svg" << false << 1;
        QTest::newRow("unknown entity") << "unknownentity.svg" << false << 1;
    }

    void fileIsDrawnAsByItsPath()
    {
        QFETCH(QString, strName);
        QFETCH(bool, bDrawn);
        QFETCH(int, nWarnings);
        const SDrawn drawn = Drawn(strName);
        const SDrawn byPath = DrawnByPath(strName);
        QCOMPARE(drawn.image, byPath.image);
        QCOMPARE(drawn.listSaid, byPath.listSaid);
        QCOMPARE(drawn.image != Blank(), bDrawn);
        QCOMPARE(drawn.listSaid.size(), nWarnings);
    }

    void compressedResourceIsOne()
    {
        QVERIFY(QResource(Path(QStringLiteral("long.svg"))).compressionAlgorithm() != QResource::NoCompression);
    }

    void fileLeavesNothingToTheNext_data()
    {
        QTest::addColumn<QString>("strFirst");
        QTest::newRow("entity") << "entity.svg";
        QTest::newRow("cut off") << "cut.svg";
        QTest::newRow("two images") << "two.svg";
        QTest::newRow("missing") << "missing.svg";
    }

    void fileLeavesNothingToTheNext()
    {
        QFETCH(QString, strFirst);
        Drawn(strFirst);
        QCOMPARE(Drawn(QStringLiteral("unknownentity.svg")).listSaid.size(), 1);
        Drawn(strFirst);
        QCOMPARE(Drawn(QStringLiteral("plain.svg")).image, DrawnByPath(QStringLiteral("plain.svg")).image);
    }

    // What goes by its path makes a parser of its own.
    void keptParserIsReadyForEachFile()
    {
        const CPathWatch watch;
        Drawn(QStringLiteral("plain.svg"));
        Drawn(QStringLiteral("long.svg"));
        QCOMPARE(watch.listPath, QStringList());
        Drawn(QStringLiteral("cut.svg"));
        QVERIFY(watch.listPath.contains(Path(QStringLiteral("cut.svg"))));
        watch.listPath.clear();
        Drawn(QStringLiteral("plain.svg"));
        QCOMPARE(watch.listPath, QStringList());
    }

    void fileIsReadAnewAtEachDrawing()
    {
        const SDrawn drawn = Drawn(QStringLiteral("plain.svg"));
        QLocale::setDefault(QLocale(QLocale::German));
        const SDrawn drawnGerman = Drawn(QStringLiteral("plain.svg"));
        QVERIFY(drawnGerman.image != drawn.image);
        QCOMPARE(drawnGerman.image, DrawnByPath(QStringLiteral("plain.svg")).image);
    }

    void iconOfARowThatFailsDrawsNothingOfTheLast()
    {
        const SDrawn drawn([](QPainter* pPainter) {
            CRowIcons icons(pPainter);
            icons.Draw(Path(QStringLiteral("plain.svg")), rcIcon);
            pPainter->fillRect(rcIcon, Qt::black);
            icons.Draw(Path(QStringLiteral("missing.svg")), rcIcon);
        });
        QCOMPARE(drawn.image, Blank());
    }
};

PTV_TEST_MAIN(CRowIconsTest)
#include "tst_rowicons.moc"
