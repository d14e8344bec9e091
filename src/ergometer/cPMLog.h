// The comparison file: what the logger and the performance monitor say of the same strokes.
#pragma once

#include "ergometer/cPMPoll.h"
#include "files/cRawLog.h"

/// A stroke as the ergometer panel measured it.
struct PMStroke
{
    int32_t StrokeN = 0;
    double Rate = 0;  // strokes per minute
    double Drive = 0; // s
    double Recov = 0; // s
    double Length = 0;
    double Power = 0;     // W
    double PeakForce = 0; // N
    double Impulse = 0;   // N s
    double AverForce = 0; // N
    double Work = 0;      // J of the stroke
    double MaxForceT = 0; // s behind the catch
};

class cPMLog
{
public:
    /// Opens the file of the next sample, whose header it holds alone, and beside it the file of its rows, and counts
    /// the sample in the session. A file that is there is replaced after a question. False when it is not opened
    /// (reported to the user).
    bool PMStartLog();

    bool IsOpen() const { return Rows.IsOpen(); }

    /// A stroke has ended at Now, in milliseconds of the clock of the monitor's snapshots. Its row waits a moment for
    /// the monitor's figures of the same stroke.
    void AddStroke(const PMStroke& Stroke, const PMSnapshot& Monitor, int64_t Now);

    /// Writes the row that waits, once Monitor has its figures or the moment is over. Called often.
    void Look(const PMSnapshot& Monitor, int64_t Now);

    /// Writes what waits and closes both files.
    void Stop(const PMSnapshot& Monitor, int64_t Now);

    /// Path of the file with the header; empty before the first.
    const std::string& Path() const { return Head.Path(); }

private:
    void WriteRow(const PMSnapshot& Monitor, int64_t Now);
    bool Write(cRawLog& File, const std::string& Line);

    cRawLog Head;
    cRawLog Rows;
    std::optional<PMStroke> Waiting;
    int64_t EndedAt = 0; // ms
};
