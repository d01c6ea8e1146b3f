#pragma once

#include <QRect>
#include <QRectF>

#include <array>

/// Where the four lines of text stand on the information row of a processor.
struct SInfoRowGeometry
{
    explicit SInfoRowGeometry(const QRect& rcRow);

    std::array<QRectF, 4> arrLine; ///< type, address, project, id
    int nProjectWidth;             ///< what line 3 leaves for the project behind its label
    int nIdWidth;                  ///< what line 4 leaves for the id behind its label
};
