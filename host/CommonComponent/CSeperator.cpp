#include "interfaces/widgets/CSeperator.h"

#include <QVariant>

namespace {

constexpr int nLineWidth = 1;
constexpr int nGapWidth = 8;

} // namespace

CSeperator::CSeperator(QWidget* parent, QFrame::Shape shape, EnSeparatorStyle style) : QFrame(parent)
{
    const bool bLine = style == StyleLine;
    const bool bHorizontal = shape != QFrame::VLine;
    const int nWidth = bLine ? nLineWidth : nGapWidth;
    setProperty("SeparatorStyle", bLine ? QStringLiteral("line") : QStringLiteral("gap"));
    setFrameShadow(QFrame::Plain);
    setFrameShape(bLine ? shape : QFrame::NoFrame);
    bHorizontal ? setFixedHeight(nWidth) : setFixedWidth(nWidth);
}

CSeperator::~CSeperator() = default;
