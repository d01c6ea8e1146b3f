#include "delegate/CRowIcons.h"

#include "data/GuiThread.h"

#include <QResource>
#include <QXmlStreamReader>

namespace {

// A file with anything before its root goes by its path: a document type would leave its entities in the parser.
constexpr char szRoot[] = "<svg";

// The whole of it and nothing else, as by a path: given a parser the renderer leaves off behind the first end of an <svg>.
bool LoadWhole(QSvgRenderer& renderer, QXmlStreamReader& parser)
{
    return renderer.load(&parser) && parser.readNext() == QXmlStreamReader::EndDocument;
}

// Kept empty from file to file, since to set a parser up takes as long as to parse a small icon.
bool LoadByKeptParser(QSvgRenderer& renderer, const QString& strPath)
{
    static QXmlStreamReader parser;
    const QByteArray bytes = QResource(strPath).uncompressedData();
    if (!bytes.startsWith(szRoot)) {
        return false;
    }
    parser.addData(bytes);
    const bool bLoaded = LoadWhole(renderer, parser);
    parser.clear();
    return bLoaded;
}

} // namespace

CRowIcons::CRowIcons(QPainter* pPainterIn) : pPainter(pPainterIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
}

void CRowIcons::Draw(const QString& strPath, const QRectF& rcIcon)
{
    if (!LoadByKeptParser(renderer, strPath)) {
        renderer.load(strPath); // for Qt's warning, and for what else a path can name
    }
    renderer.render(pPainter, rcIcon);
}
