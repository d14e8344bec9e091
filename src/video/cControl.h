// The clock of the animation control: one timer that drives several video windows and the play view.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// The buttons of the animation control besides those of a video window.
enum eControlAction
{
    ControlCloseAll = 6,
    ControlBound = 7
};

/// A window that shows the moment of gPlayFrame.
struct Played
{
    const void* Window = nullptr;
    std::function<void()> GoCurTime{};
    std::function<void()> Close{};
};

class cControl
{
public:
    cControl();
    ~cControl();
    cControl(const cControl&) = delete;
    cControl& operator=(const cControl&) = delete;

    /// The play view that is open now; without one, or when it gives no GoCurTime, only videos are driven.
    std::function<Played()> PlayView;

    /// Has the MPEG player's movie that is open run or stand; may be empty.
    std::function<void(bool Runs)> PlayMovie;

    /// Adds a window behind the others.
    void AddVideo(Played Video);

    /// Forgets a window that was closed.
    void RemoveVideo(const void* Window);

    /// A button by its number: 0 to 5 as eVideoAction, 6 closes all windows, 7 binds the video.
    void DoCommand(int Index);

    /// Pictures a second at which the timer ticks, 25 being one tick in gVidMs. Text that is no number above 0 changes
    /// nothing.
    void SetSpeed(const std::string& Text);

    /// Ticks at gVidMs / speed.
    void SetFormsSpeed();

    /// Puts the name of gVideoFN and gVideoStrokes into the current sample and saves the session. False when that fails
    /// (reported to the user).
    static bool BaundAndSave();

    bool IsRunning() const { return Timer != 0; }
    int Interval() const { return TickMs; }
    int VideoCnt() const { return static_cast<int>(mVideos.size()) - 1; } // upper index, -1 without videos
    double Speed() const { return mSpeed; }

private:
    void Tick();
    void GoCurTime();
    void CloseAll();
    void Run();
    void Stop();
    void Play(bool On);

    std::vector<Played> mVideos;
    double mSpeed = 1;
    int TickMs;
    int Timer = 0;
};
