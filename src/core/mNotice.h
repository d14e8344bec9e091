// Notices: who shows or keeps what the session or the settings hold hears that these were saved or have changed.
#pragma once

#include <functional>

enum class eNotice
{
    SessionSaved,    // gFile is in gCurFile, whole
    SessionReplaced, // gFile is another session than before
    OptionsSaved,    // any of the settings may have changed
    LookChanged      // the colours or the pen width of curves
};

/// Receives notices from when it is made until it is gone; as a member it subscribes the object that it belongs to.
class cListener
{
public:
    explicit cListener(std::function<void(eNotice)> InitAction);
    ~cListener();
    cListener(const cListener&) = delete;
    cListener& operator=(const cListener&) = delete;

private:
    friend void Notify(eNotice What);
    std::function<void(eNotice)> Action;
};

/// Sends a notice to all listeners, from the last made to the first. A listener may end others meanwhile.
void Notify(eNotice What);
