// The area of the main window that holds all other windows; while it is empty it says how to begin.
#pragma once

#include <QMdiArea>

/// Property of a window that may hold what is not saved, and asks before it closes.
inline constexpr const char* AsksToClose = "AsksToClose";

/// Property of such a window while it is closed for what happens elsewhere, not by its own close button.
inline constexpr const char* IsClosedFor = "IsClosedFor";

class qWorkArea : public QMdiArea
{
public:
    explicit qWorkArea(QWidget* Parent);

    /// Closes the windows that ask before it. False as soon as one stays.
    bool CloseAsking();

    /// Puts the windows beside one another, or below one another with Qt::Horizontal. One that needs more room than its
    /// share gets it: of the shares of the others, or, where these have none to spare, lying over them.
    void Tile(Qt::Orientation Direction);

    /// The same for some of the windows, in that order.
    void Tile(Qt::Orientation Direction, const QList<QMdiSubWindow*>& Frames);

protected:
    void paintEvent(QPaintEvent* Event) override;
};
