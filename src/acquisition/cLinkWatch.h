// The state of the link to the logger: lost, silent or live, its wording for the user, and when to retry.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

/// Times are the clock's milliseconds.
class cLinkWatch
{
public:
    enum class eState
    {
        Closed,
        Connecting,
        Open,
        Lost
    };

    /// Opens the link again. Called by Tick while it is lost; Connecting or Opened report the outcome.
    std::function<void()> Reopen;

    /// Tries a second connection beside the one that is open. Called by Tick when no frame has come for four seconds,
    /// and every two seconds from then on.
    std::function<void()> TryBeside;

    /// Changes of the link in plain words: connected, lost, silent, back.
    std::function<void(const std::string& News)> OnChange;

    /// A link called Name is about to be connected.
    void Connecting(const std::string& Name, int64_t Now);

    /// The link called Name is open.
    void Opened(const std::string& Name, int64_t Now);

    /// The link broke or could not be made.
    void Lost(const std::string& Reason, int64_t Now);

    /// An attempt to open a lost link again failed.
    void StillLost(int64_t Now);

    /// A second connection has taken the place of the first.
    void Replaced(int64_t Now);

    /// The logger was restarted: its clock runs from 0 again.
    void Restarted() const;

    /// The link was closed on purpose.
    void Closed();

    /// A frame came over the link.
    void FrameCame(int64_t Now);

    /// Detects silence, gives up attempts without an answer, and retries. To be called a few times a second.
    void Tick(int64_t Now);

    eState State() const { return Stage; }

    /// Whether an open link has brought no frame for two seconds.
    bool IsSilent() const { return Silent; }

    /// What is wrong with a link that is not open, in plain words; empty when it is open or closed on purpose.
    std::string Failure() const;

    /// The state in plain words, empty when closed.
    std::string Words(int64_t Now) const;

private:
    void Begin(const std::string& Name);
    void Enter(eState Next, int64_t Now);
    void Tell(const std::string& Text) const;

    eState Stage = eState::Closed;
    std::string Link;
    std::string Why;
    bool Silent = false;
    bool WasOpen = false;  // since the link was asked for
    int64_t Since = 0;     // when the state was entered
    int64_t LastFrame = 0; // or the opening
    int64_t NextTry = 0;
    int64_t Delay = 0;      // before the next attempt
    int64_t NextBeside = 0; // when a second connection is tried
    int64_t Patience = 0;   // with silence before that
};
