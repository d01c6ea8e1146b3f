#pragma once

#include "CWindowFixture.h"
#include "Kestrel/CPanelLoader.h"
#include "interfaces/host/ICorvidWidget.h"

#include <QAbstractButton>
#include <QImage>
#include <QModelIndex>

class QTreeView;

/// Kestrel's window in its own look, with the real panel and the list of the examples in it.
class CPanelWindow : public CWindowFixture
{
public:
    /// Returns when the rows are there. strTheme is one of CTheme::GetNames().
    explicit CPanelWindow(const QString& strTheme = CTheme::GetNames().constFirst());

    QTreeView* Tree() const;
    QModelIndex Row(const QString& strName) const;

    /// A button of the panel by its tool tip.
    QAbstractButton* Button(const QString& strToolTip) const;

    /// The part of the window that the widget has, as it is on the screen, in the screen's own pixels.
    QImage Grab(const QWidget* pWidget);

    /// Of the tree's viewport.
    QImage Grab(const QRect& rcViewport);

private:
    CPanelLoader loader;
    std::unique_ptr<ICorvidWidget> pPanel;
};
