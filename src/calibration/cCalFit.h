// The analysis of a calibration: the curves for the chosen use of the points, and texts about them.
#pragma once

#include "calibration/cCalPoints.h"
#include "calibration/mCalFit.h"
#include "core/mModes.h"

#include <cstdint>
#include <string>

struct CalibrRow;

/// Whether this use reads a channel by one or two curves.
bool IsCurve(int16_t Use);

class cCalFit
{
public:
    /// The last analysis that had a result.
    const CalAnalysis& Result() const { return mResult; }
    bool IsDone() const { return mResult.IsDone; }

    /// Result of the last analysis, or why it had none.
    const std::string& Text() const { return mText; }
    void SetText(const std::string& Text) { mText = Text; }

    /// What the user can do about it, empty for nothing.
    const std::string& Hint() const { return mHint; }
    void SetHint(const std::string& Hint) { mHint = Hint; }

    /// Whether points came after the analysis.
    bool IsOutdated() const { return mResult.IsDone && mOutdated; }
    void SetOutdated() { mOutdated = true; }

    /// Forgets the analysis, since the points have changed.
    void Drop() { mResult = {}; }

    /// Analyses the points for Use; CutOff is a fraction of the range taken. False without a result: Text and
    /// Hint say why.
    bool Analyse(eApprox Use, const cCalPoints& Points, const CalibrRow& Channel, double CutOff);

    /// Whether the analysis, where there is one, serves Use; asks when points came after it. False when it does not
    /// (reported to the user) or the answer is no.
    bool Fits(eApprox Use, const CalibrRow& Channel) const;

private:
    void TakeHint(eApprox Use, const CalibrRow& Channel);

    CalAnalysis mResult;
    eApprox mMadeFor = ApproxLinear;
    bool mOutdated = false;
    std::string mText = "Analysis Data Empty";
    std::string mHint;
};
