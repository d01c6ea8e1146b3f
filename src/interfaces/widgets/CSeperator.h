#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QFrame>

/// A line between two parts of a panel.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CSeperator : public QFrame
{
    Q_OBJECT

public:
    /// What it shows between its neighbours.
    enum EnSeparatorStyle
    {
        StyleGap = 0,  ///< the background shows through: distance only
        StyleLine = 1, ///< a line of one pixel over the whole length
    };
    Q_ENUM(EnSeparatorStyle)

    /// shape is QFrame::HLine or QFrame::VLine.
    CSeperator(QWidget* parent, QFrame::Shape shape, EnSeparatorStyle style);
    ~CSeperator() override;
};
