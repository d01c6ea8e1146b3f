#pragma once

#include <QRect>
#include <QRectF>

#include <array>

/// Where the four lines of text are on the information row of a processor.
struct SInfoRowGeometry
{
    explicit SInfoRowGeometry(const QRect& rcRow);

    std::array<QRectF, 4> arrLine; ///< type, address, project, id
    int nProjectWidth;             ///< room for the project after its label on line 3
    int nIdWidth;                  ///< room for the id after its label on line 4
};
