#include "CPanelWindow.h"
#include "Contrast.h"
#include "Kestrel/journal/CJournalModel.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/widgets/CMenu.h"

#include <QHeaderView>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QSvgRenderer>
#include <QTreeView>

#include <array>

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

/// Where a mark stands in its row, which is given without its indentation.
enum EnMark
{
    MarkBranch,
    MarkDot,
    MarkGroup,
    MarkChief,
    MarkFailover,
};

QRect MarkRect(const QRect& rcRow, EnMark mark)
{
    const int nMiddle = rcRow.center().y() + 1;
    switch (mark) {
    case MarkBranch:
        return { rcRow.left() - 15, nMiddle - 8, 15, 16 };
    case MarkDot:
        return { rcRow.left() + 1, nMiddle - 4, 7, 8 };
    case MarkGroup:
        return { rcRow.left(), nMiddle - 8, 16, 16 };
    case MarkChief:
        return { rcRow.right() - 40, nMiddle - 7, 14, 14 };
    default:
        return { rcRow.right() - 22, nMiddle - 7, 14, 14 };
    }
}

struct SMark
{
    const char* szWhat;
    const char* szRow;
    EnMark place;
};

constexpr std::array<SMark, 9> listMark{ {
    { "Chief", "Wall centre", MarkChief },
    { "Primary", "Wall centre", MarkFailover },
    { "Backup", "Wall left spare", MarkFailover },
    { "online", "Wall left", MarkDot },
    { "offline", "Stage monitor", MarkDot },
    { "group", "Side screens", MarkGroup },
    { "group with a Chief", "Main stage", MarkGroup },
    { "unfolded", "Main stage", MarkBranch },
    { "folded", "Wall left", MarkBranch },
} };

/// How many pixels of a picture stand out from their ground.
int CountPixels(const QImage& image, const QColor& ground, double dContrast)
{
    int nCount = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            nCount += Contrast::Get(image.pixelColor(x, y), ground) >= dContrast;
        }
    }
    return nCount;
}

int CountColour(const QImage& image, const QColor& colour)
{
    int nCount = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            nCount += image.pixelColor(x, y) == colour;
        }
    }
    return nCount;
}

bool IsSeen(const QImage& image, const QColor& ground)
{
    const int nDrawn = CountPixels(image, ground, 1.2);
    return nDrawn > 0 && 3 * CountPixels(image, ground, 3) >= nDrawn;
}

/// A place of the row where nothing is drawn over its shape.
QPoint Middle(const CPanelWindow& kestrel, const QRect& rcRow)
{
    return { kestrel.Tree()->width() / 2, rcRow.center().y() };
}

void BringToState(CPanelWindow& kestrel, const QString& strRow, const QString& strState)
{
    QTreeView* pTree = kestrel.Tree();
    const QModelIndex index = kestrel.Row(strRow);
    if (strState == "selected") {
        PanelAccess::ClickRow(pTree, index, Qt::NoModifier);
    } else if (strState == "hover") {
        // Through the window: the pointer itself does not leave a screen that is smaller than the window.
        const QPoint pt = pTree->viewport()->mapTo(&kestrel.window, Middle(kestrel, pTree->visualRect(index)));
        QTest::mouseMove(kestrel.window.windowHandle(), pt + QPoint(1, 0));
        QTest::mouseMove(kestrel.window.windowHandle(), pt);
    }
}

/// The first column of a picture that has a part of a letter in it.
int FirstInk(const QImage& image)
{
    const QColor ground = image.pixelColor(1, 1);
    for (int x = 0; x < image.width(); ++x) {
        if (CountPixels(image.copy(x, 0, 1, image.height() - 2), ground, 3) > 0) {
            return x;
        }
    }
    return -1;
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

    void aThemeSetAtRunTimeLooksAsOneSetAtTheStart_data()
    {
        QTest::addColumn<QString>("strBefore");
        QTest::addColumn<QString>("strAfter");
        QTest::newRow("to high contrast") << "dark" << "contrast";
        QTest::newRow("to dark") << "contrast" << "dark";
    }

    void aThemeSetAtRunTimeLooksAsOneSetAtTheStart()
    {
        QFETCH(QString, strBefore);
        QFETCH(QString, strAfter);
        const auto Show = [](CPanelWindow& kestrel) {
            QTest::keyClick(&kestrel.window, Qt::Key_J, Qt::ControlModifier);
            kestrel.Button("Close search box")->show();
            QCoreApplication::processEvents();
        };
        QImage expected;
        {
            CPanelWindow kestrel(strAfter);
            Show(kestrel);
            expected = kestrel.window.grab().toImage();
        }
        CPanelWindow kestrel(strBefore);
        Show(kestrel);
        QVERIFY(kestrel.window.grab().toImage() != expected);

        kestrel.theme.Set(strAfter);

        QTRY_COMPARE(kestrel.window.grab().toImage(), expected);
    }

    void theLinesOfTheWindowAreOnAGridOfFourPixels()
    {
        CPanelWindow kestrel;
        QTest::keyClick(&kestrel.window, Qt::Key_J, Qt::ControlModifier);
        kestrel.log.Write(RecordCommand, "RuntimeControl", "Call");
        auto* pView = kestrel.window.findChild<QTreeView*>("Journal");
        QTRY_VERIFY(pView->model()->rowCount() > 0);

        const auto Top = [&](const QWidget* pWidget) { return pWidget->mapTo(&kestrel.window, QPoint()).y(); };
        QCOMPARE(kestrel.window.menuBar()->height(), 28);
        QCOMPARE(Top(kestrel.window.statusBar()) % 4, 0);
        QCOMPARE(kestrel.window.statusBar()->height() % 4, 0);
        const auto* pBar = kestrel.window.findChild<QWidget*>("JournalBar");
        QCOMPARE(pBar->height(), kestrel.window.findChild<QWidget*>("Header")->height());
        QCOMPARE(Top(pBar) % 4, 0);
        QCOMPARE(Top(pView) % 4, 0);
        QCOMPARE(pView->header()->height(), 24);
        QCOMPARE(pView->visualRect(pView->model()->index(0, 0)).height(), 20);
    }

    void theJournalsHeaderStandsOverItsColumns()
    {
        CPanelWindow kestrel;
        QTest::keyClick(&kestrel.window, Qt::Key_J, Qt::ControlModifier);
        kestrel.log.Write(RecordCommand, "Object", "Call or message");
        auto* pView = kestrel.window.findChild<QTreeView*>("Journal");
        const auto* pModel = pView->model();
        const auto Newest = [&] { return pModel->index(pModel->rowCount() - 1, CJournalModel::ColumnCall); };
        QTRY_COMPARE(Newest().data().toString(), QString("Call or message"));

        for (const int nColumn : { CJournalModel::ColumnObject, CJournalModel::ColumnCall }) {
            const QRect rcCell = pView->visualRect(Newest().sibling(Newest().row(), nColumn));
            const QRect rcHeader(pView->header()->sectionViewportPosition(nColumn), 0, rcCell.width(), pView->header()->height());
            QVERIFY(rcCell.width() > 100);
            QCOMPARE(FirstInk(pView->header()->viewport()->grab(rcHeader).toImage()),
                     FirstInk(pView->viewport()->grab(rcCell).toImage()));
        }
    }

    void whatHasTheFocusHasALineAroundIt_data()
    {
        QTest::addColumn<QString>("strClass");
        QTest::addColumn<QString>("strName");
        QTest::newRow("tab") << "QPushButton" << "Tab";
        QTest::newRow("refresh") << "QToolButton" << "IconButtonTitle";
        QTest::newRow("close search") << "QToolButton" << "CloseSearchBox";
        QTest::newRow("tool bar") << "CIconButton" << "";
        QTest::newRow("search box") << "QLineEdit" << "SearchEdit";
        QTest::newRow("field of the journal") << "QLineEdit" << "";
        QTest::newRow("check box of the journal") << "QCheckBox" << "";
        QTest::newRow("button of the journal") << "QToolButton" << "JournalClear";
        QTest::newRow("lines of the journal") << "QTreeView" << "Journal";
    }

    void whatHasTheFocusHasALineAroundIt()
    {
        QFETCH(QString, strClass);
        QFETCH(QString, strName);
        CPanelWindow kestrel;
        QTest::keyClick(&kestrel.window, Qt::Key_J, Qt::ControlModifier);
        PanelAccess::FindAction(kestrel.window.GetPanel(), "CProcessorTreeToolBar", "Search")->trigger();
        QWidget* pWidget = nullptr;
        const QList<QWidget*> listFound = kestrel.window.findChildren<QWidget*>(strName);
        for (QWidget* pFound : listFound) {
            const bool bOther = strName.isEmpty() && pFound->objectName() == "SearchEdit";
            pWidget = pFound->inherits(qPrintable(strClass)) && pFound->isVisible() && pFound->isEnabled() && !bOther ? pFound
                                                                                                                      : pWidget;
        }
        QVERIFY(pWidget);
        const QColor colour = kestrel.theme.GetColour("accent");
        kestrel.Tree()->setFocus();
        // Of a search box the line is around the whole of it.
        QWidget* pFrame = strName == "SearchEdit" ? pWidget->parentWidget() : pWidget;
        QTRY_COMPARE(CountColour(kestrel.Grab(pFrame), colour), 0);

        pWidget->setFocus(Qt::TabFocusReason);

        QTRY_VERIFY(CountColour(kestrel.Grab(pFrame), colour) >= 40);
    }

    void aMenuOf255LongNamesFitsTheScreenAndScrolls()
    {
        CTheme theme;
        theme.Apply(*qApp);
        CMenu menu(nullptr);
        for (int n = 1; n <= 255; ++n) {
            menu.addAction(QStringLiteral("%1 %2").arg(n, 3, 10, QLatin1Char('0')).arg(QString(60, 'W')));
        }
        QString strChosen;
        connect(&menu, &QMenu::triggered, this, [&](const QAction* pAction) { strChosen = pAction->text(); });
        const QRect rcScreen = QApplication::primaryScreen()->availableGeometry();

        menu.popup(rcScreen.center());
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        // Qt lets the border of a menu that is too large hang out by one pixel.
        QCOMPARE(menu.geometry() & rcScreen.adjusted(0, 0, 1, 1), menu.geometry());

        const QAction* pFirst = menu.actions().constFirst();
        const QAction* pLast = menu.actions().constLast();
        const auto IsShown = [&](const QAction* pAction) {
            return menu.rect().contains(menu.actionGeometry(const_cast<QAction*>(pAction)).center());
        };
        QVERIFY(IsShown(pFirst) && !IsShown(pLast));
        const QPointF pt = menu.rect().center();
        for (int n = 0; n < 300 && !IsShown(pLast); ++n) {
            QWheelEvent event(pt, menu.mapToGlobal(pt.toPoint()), {}, { 0, -120 }, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&menu, &event);
        }
        QVERIFY(IsShown(pLast));

        QTest::keyClick(&menu, Qt::Key_Home);
        QTRY_VERIFY(IsShown(pFirst));
        QTest::keyClick(&menu, Qt::Key_End);
        QTRY_VERIFY(IsShown(pLast));
        QTest::keyClick(&menu, Qt::Key_Return);
        QCOMPARE(strChosen, pLast->text());
    }

    void theMarksOfARowAreSeenInEveryState_data()
    {
        QTest::addColumn<QString>("strTheme");
        QTest::addColumn<QString>("strState");
        QTest::addColumn<QColor>("ground");
        for (const QString& strTheme : CTheme::GetNames()) {
            QTest::addRow("%s, at rest", qPrintable(strTheme)) << strTheme << "at rest" << QColor();
            QTest::addRow("%s, hover", qPrintable(strTheme)) << strTheme << "hover" << QColor("#42464D");
            QTest::addRow("%s, selected", qPrintable(strTheme)) << strTheme << "selected" << QColor("#5F646D");
        }
    }

    void theMarksOfARowAreSeenInEveryState()
    {
        QFETCH(QString, strTheme);
        QFETCH(QString, strState);
        QFETCH(QColor, ground);
        CPanelWindow kestrel(strTheme);
        kestrel.pHost->SetChiefMode(true);
        ground = ground.isValid() ? ground : kestrel.theme.GetColour("tree");
        for (const SMark& mark : listMark) {
            BringToState(kestrel, mark.szRow, strState);
            const QRect rcRow = kestrel.Tree()->visualRect(kestrel.Row(mark.szRow));
            QTRY_COMPARE(kestrel.Grab(QRect(Middle(kestrel, rcRow), QSize(1, 1))).pixelColor(0, 0), ground);
            // A third of what is drawn: the rest are soft edges, and the glow around the state.
            QTRY_VERIFY2(IsSeen(kestrel.Grab(MarkRect(rcRow, mark.place)), ground), mark.szWhat);
        }
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
        const auto Grab = [&](bool bFocus) {
            bFocus ? pTree->setFocus() : kestrel.Button("Menu")->setFocus();
            return kestrel.Grab(pTree);
        };
        const auto Inner = [](const QImage& image) {
            const int nFrame = static_cast<int>(std::ceil(image.devicePixelRatioF()));
            return image.copy(image.rect().adjusted(nFrame, nFrame, -nFrame, -nFrame));
        };

        QImage imageFocus;
        QImage image;
        bool bEqual = false;
        const auto IsEveryRowInItsPlace = [&] {
            if (!bEqual) {
                imageFocus = Grab(true);
                image = Grab(false);
                bEqual = Inner(imageFocus) == Inner(image);
            }
            return bEqual;
        };

        QTRY_VERIFY(IsEveryRowInItsPlace()); // what an earlier window did may come between the two
        QCOMPARE(FindGap(image, imageFocus), QString());
        QCOMPARE(imageFocus.pixelColor(0, 0), kestrel.theme.GetColour("accent"));
    }
};

PTV_TEST_MAIN(CPanelLookTest)
#include "tst_panellook.moc"
