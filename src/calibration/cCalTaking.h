// How the workbench takes frames: the count, the physical value that a calibrator gives it, and the state of the link.
#pragma once

#include <cstdint>
#include <string>

class cCalTaking
{
public:
    bool IsOn() const { return mOn; }

    /// Present count of the channel.
    double Log() const { return mLog; }

    /// Lever of a torque calibration, as it was when the data were started.
    double Lever() const { return mLever; }

    /// Begins to take the counts of a channel. Typed is the lever, which torque needs. False without a calibrator or a
    /// lever where one is needed (reported to the user).
    bool Begin(int16_t Chan, double Typed);

    /// Goes on with Chan, and with the calibrator and torque that are chosen now; ends when one is missing (reported to
    /// the user).
    void Choose(int16_t Chan, double Typed);

    void Stop() { mOn = mAutoRun = false; }

    /// Space in automatic mode: from now on each frame is a point, or no longer.
    void ToggleAutoRun() { mAutoRun = mOn && !mAutoRun; }
    bool IsAutoRun() const { return mAutoRun; }

    /// Takes the count of Chan from gData.
    void TakeSample(int16_t Chan);

    /// Physical value by the calibrator's count in gData.
    double CalibratorValue() const;

    /// Whether the present count can be a point: not without frames, in automatic mode not when it is 0.
    bool CanPut() const;

    /// The link, the text Count, and what Enter, Space and Escape will do now. NeedsChan: no channel is typed.
    std::string State(const std::string& Count, bool NeedsChan) const;

private:
    bool HasCalibrator() const;
    bool HasLever(double Typed) const;

    double mLog = 0;
    double mAutoQ0 = 0;
    double mAutoQ1 = 0;
    double mLever = 0;
    bool mAutoRun = false;
    bool mOn = false;
    bool mHasFrame = false; // since taking began
};
