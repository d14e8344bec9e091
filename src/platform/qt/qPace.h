// Work that shows something: done soon after it is asked for, and no more often than pictures are shown.
#pragma once

#include "core/cPicturePace.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

class qPace
{
public:
    explicit qPace(std::function<void()> InitWork);

    /// Has the work done once, in a later turn of the event loop: in the next one after a rest.
    void Ask();

private:
    std::function<void()> Work;
    cPicturePace Pace;
    QElapsedTimer Clock;
    QTimer Timer;
};
