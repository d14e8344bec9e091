// Which analysis a use asks for, and whether its result may be saved for it.
#include "calibration/cCalFit.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"

#include <utility>

bool IsCurve(int16_t Use)
{
    return Use == ApproxOneLine || Use == ApproxTwoLines;
}

bool cCalFit::Analyse(eApprox Use, const cCalPoints& Points, const CalibrRow& Channel, double CutOff)
{
    mHint.clear();
    if (Use == ApproxAbsolute || Use == ApproxRefTable) {
        mHint = Use == ApproxAbsolute ? "Absolute takes the line: there is nothing to analyse."
                                      : "Save Ref.Table makes the table: there is nothing to analyse.";
        return true;
    }
    CalAnalysis New;
    if (Points.All().size() < 2)
        New.Text = TooFewPoints;
    else if (Use == ApproxOneLine)
        New = AnalyseOneLine(Points.All(), Channel.Min, Channel.Max, CutOff);
    else if (Use == ApproxTwoLines)
        New = AnalyseTwoLines(Points.All(), CutOff);
    else if (Points.Line().Q1 == 0)
        New.Text = NoSolution;
    else
        return true;
    mText = New.Text;
    if (!New.IsDone) {
        TakeHint(Use, Channel);
        return false;
    }
    mResult = std::move(New);
    mMadeFor = Use;
    mOutdated = false;
    return true;
}

// The window does not show which points count.
void cCalFit::TakeHint(eApprox Use, const CalibrRow& Channel)
{
    if (mText != TooFewPoints || !IsCurve(Use)) return;
    if (Use == ApproxTwoLines)
        mHint = "Points count whose load lies inside the range taken, less the cut-off at either end: 4 with rising "
                "and 4 with falling load are needed.";
    else
        mHint = "Points count whose load lies from " + FormatNum(Channel.Min, "0.0") + " to " +
                FormatNum(Channel.Max, "0.0") +
                ", Min and Max of the channel, less the cut-off at either end: 5 are needed.";
}

// Coefficients made for one use are meaningless for another.
bool cCalFit::Fits(eApprox Use, const CalibrRow& Channel) const
{
    if (!mResult.IsDone) return true;
    if (IsCurve(Use) && Use != mMadeFor) {
        const std::string One = "\"Square one line\"", Two = "\"Square two lines\"";
        const bool IsOne = Use == ApproxOneLine;
        MsgBox((IsOne ? One : Two) + " is chosen, but the analysis is that of " + (IsOne ? Two : One) +
                   ": press Analysis, then save.",
               TitleInformation);
        return false;
    }
    if (IsCurve(Use) && mOutdated &&
        !AskYesNo("Points were taken after the analysis, and the curves know nothing of them. Do you want to save "
                  "nevertheless?",
                  TitleWarning))
        return false;
    if (Use == ApproxRefTable && Channel.ProcMode != ApproxRefTable) {
        MsgBox("The channel has no reference table yet: press Save Ref.Table, then save.", TitleInformation);
        return false;
    }
    return true;
}
