// The area of the main window in which all other windows live; empty, it tells how to begin.
#pragma once

#include <QMdiArea>

/// Property of a window that may hold what is not saved, and asks before it closes.
inline constexpr const char* AsksToClose = "AsksToClose";

class qWorkArea : public QMdiArea
{
public:
    explicit qWorkArea(QWidget* Parent);

    /// Closes the windows that ask before it. False as soon as one stays.
    bool CloseAsking();

protected:
    void paintEvent(QPaintEvent* Event) override;
};
