#include "CPanelWindow.h"
#include "Contrast.h"
#include "TestMain.h"

#include <QPainter>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QTreeView>

namespace {

/// The file, drawn in the middle of a surface.
QImage Draw(const QString& strIcon, int nEdge, const QImage& image, const QColor& surface)
{
    const int nPixels = qRound(nEdge * image.devicePixelRatioF());
    QImage icon(nPixels, nPixels, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter iconPainter(&icon);
    QSvgRenderer(QStringLiteral(ICONS_FOLDER "/%1.svg").arg(strIcon)).render(&iconPainter);
    iconPainter.end();

    QImage expected(image.size(), image.format());
    expected.fill(surface);
    QPainter painter(&expected);
    painter.drawImage((image.width() - nPixels) / 2, (image.height() - nPixels) / 2, icon);
    painter.end();
    expected.setDevicePixelRatio(image.devicePixelRatioF());
    return expected;
}

/// Whether a pixel of the line between two points of the picture's edge is clearly another one in the second picture. The
/// line goes inwards: a frame may begin or end within a pixel of the screen.
bool IsMarked(const QImage& without, const QImage& with, const QPoint& ptOuter, const QPoint& ptInner)
{
    const auto Contrasts = [&](const QPoint& pt) { return Contrast::Get(with.pixelColor(pt), without.pixelColor(pt)) >= 3; };
    return Contrasts(ptOuter) || Contrasts(ptInner);
}

/// Where the second picture has no line along its edge that the first one has not; empty when it is closed.
QString FindGap(const QImage& without, const QImage& with)
{
    const int nIn = static_cast<int>(std::ceil(with.devicePixelRatioF())) - 1;
    const int nRight = with.width() - 1;
    const int nBottom = with.height() - 1;
    for (int x = 0; x <= nRight; ++x) {
        if (!IsMarked(without, with, { x, 0 }, { x, nIn }) || !IsMarked(without, with, { x, nBottom }, { x, nBottom - nIn })) {
            return QStringLiteral("above or below %1").arg(x);
        }
    }
    for (int y = 0; y <= nBottom; ++y) {
        if (!IsMarked(without, with, { 0, y }, { nIn, y }) || !IsMarked(without, with, { nRight, y }, { nRight - nIn, y })) {
            return QStringLiteral("left or right of %1").arg(y);
        }
    }
    return {};
}

} // namespace

/// The panel as Kestrel dresses it, pixel by pixel. Runs at several sizes of a pixel.
class CPanelLookTest : public QObject
{
    Q_OBJECT

private slots:
    void anIconOfTheToolBarIsPaintedAsItsFileIs_data()
    {
        QTest::addColumn<QString>("strToolTip");
        QTest::addColumn<QString>("strIcon");
        QTest::addColumn<int>("nEdge");
        QTest::addColumn<QString>("strSurface");

        QTest::newRow("menu") << "Menu" << "control/hamburgeMenu/normal" << 28 << "bar";
        QTest::newRow("add group") << "Add group" << "treeView/toolBar/addGroup/normal" << 28 << "bar";
        QTest::newRow("add") << "Add a processor" << "treeView/toolBar/addProc/normal" << 28 << "bar";
        QTest::newRow("delete, disabled") << "Delete" << "treeView/toolBar/delete/disable" << 28 << "bar";
        QTest::newRow("refresh") << "Refresh" << "control/refresh/refresh" << 24 << "bar";
        QTest::newRow("close search") << "Close search box" << "control/close/close" << 20 << "tree";
    }

    void anIconOfTheToolBarIsPaintedAsItsFileIs()
    {
        QFETCH(QString, strToolTip);
        QFETCH(QString, strIcon);
        QFETCH(int, nEdge);
        QFETCH(QString, strSurface);
        CPanelWindow kestrel;
        QAbstractButton* pButton = kestrel.Button(strToolTip);
        pButton->show();
        QTRY_VERIFY(pButton->isVisible() && pButton->width() >= nEdge);
        QCoreApplication::processEvents();
        if (!qFuzzyCompare(pButton->devicePixelRatioF(), qRound(pButton->devicePixelRatioF()))) {
            QSKIP("Half pixels blur every edge");
        }

        const QImage image = kestrel.Grab(pButton);

        QCOMPARE(image, Draw(strIcon, nEdge, image, kestrel.theme.GetColour(strSurface)));
    }

    void theTreeShowsItsFocusAndNoRowMoves_data()
    {
        QTest::addColumn<QString>("strTheme");
        QTest::addColumn<bool>("bAtEnd");
        for (const char* szTheme : { "dark", "contrast" }) {
            QTest::addRow("%s, at the beginning", szTheme) << szTheme << false;
            QTest::addRow("%s, at the end", szTheme) << szTheme << true;
        }
    }

    void theTreeShowsItsFocusAndNoRowMoves()
    {
        QFETCH(QString, strTheme);
        QFETCH(bool, bAtEnd);
        CPanelWindow kestrel(strTheme);
        QTreeView* pTree = kestrel.Tree();
        pTree->verticalScrollBar()->setValue(bAtEnd ? pTree->verticalScrollBar()->maximum() : 0);
        kestrel.Button("Menu")->setFocus();
        QTRY_VERIFY(!pTree->hasFocus());
        const QImage imageWithout = kestrel.Grab(pTree);

        pTree->setFocus();
        QTRY_VERIFY(pTree->hasFocus());
        const QImage imageWith = kestrel.Grab(pTree);

        const int nFrame = static_cast<int>(std::ceil(imageWith.devicePixelRatioF()));
        const QRect rcInner = imageWith.rect().adjusted(nFrame, nFrame, -nFrame, -nFrame);
        QCOMPARE(FindGap(imageWithout, imageWith), QString());
        QCOMPARE(imageWith.pixelColor(0, 0), kestrel.theme.GetColour("accent"));
        QCOMPARE(imageWith.copy(rcInner), imageWithout.copy(rcInner));
    }
};

PTV_TEST_MAIN(CPanelLookTest)
#include "tst_panellook.moc"
