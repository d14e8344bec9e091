// Counts, calibrator and lever, and the state of the link in words.
#include "calibration/cCalTaking.h"

#include "acquisition/mComFast.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

bool cCalTaking::HasCalibrator() const
{
    if (!gAutoCalibr || (gAutoCalCh >= 1 && gAutoCalCh <= LastDataChan)) return true;
    MsgBox("There is no automatic calibrator: calibrate a channel and press \"Set as Auto-Calibr\" first.",
           TitleInformation);
    return false;
}

// A lever of 0 would make every physical value 0.
bool cCalTaking::HasLever(double Typed) const
{
    if (!gAutoCalibr || !fTorque || Typed != 0) return true;
    MsgBox("Torque needs the lever: type it as Physical Value before the data are started.", TitleInformation);
    return false;
}

bool cCalTaking::Begin(int16_t Chan, double Typed)
{
    mHasFrame = false;
    if (gAutoCalibr) {
        if (gAutoSwitchCal) SelectCalibrSens(Chan);
        mAutoQ0 = gAutoCalQ0;
        mAutoQ1 = gAutoCalQ1;
    }
    if (fTorque) mLever = Typed;
    return mOn = HasCalibrator() && HasLever(Typed);
}

void cCalTaking::Choose(int16_t Chan, double Typed)
{
    mAutoRun = false;
    if (!mOn) return;
    const bool HadFrame = mHasFrame;
    Begin(Chan, Typed);
    mHasFrame = HadFrame;
}

void cCalTaking::TakeSample(int16_t Chan)
{
    mHasFrame = true;
    mLog = gData[static_cast<std::size_t>(Chan)];
}

double cCalTaking::CalibratorValue() const
{
    return (gData[static_cast<std::size_t>(gAutoCalCh)] * mAutoQ1 + mAutoQ0) * (fTorque ? mLever : 1);
}

bool cCalTaking::CanPut() const
{
    if (gLinkWatch.State() != cLinkWatch::eState::Open || gLinkWatch.IsSilent()) return false;
    const bool IsMissing = gAutoCalibr && mLog == 0; // a missing frame of the calibrator
    return mOn && mHasFrame && !IsMissing;
}

std::string cCalTaking::State(const std::string& Count, bool NeedsChan) const
{
    const cLinkWatch::eState Link = gLinkWatch.State();
    if (Link == cLinkWatch::eState::Closed)
        return std::string("The link is closed; Do Calibration in the menu opens it") +
               (mOn ? ", then data come. " : ". ") + Count + ". " + (mOn ? "" : "Enter takes the channel, ") +
               "Escape leaves.";
    if (Link != cLinkWatch::eState::Open)
        return (Link == cLinkWatch::eState::Lost ? "The link is lost and is being taken up again. "
                                                 : "The link is being made. ") +
               Count + ". " + (mOn ? "" : "Enter starts the data, ") + "Escape stops.";
    if (!mOn)
        return "The link is open. " + Count + ". " + (NeedsChan ? "Type the channel: " : "") +
               "Enter starts the data, Escape stops.";
    if (!mHasFrame || gLinkWatch.IsSilent()) return "No data are coming. " + Count + ". Escape stops.";
    const std::string Space = !gAutoCalibr ? "Enter and Space take a point"
                              : mAutoRun   ? "Each frame is a point: Space ends that"
                                           : "Enter takes a point, Space takes each frame";
    return "Data are coming. " + Count + ". " + Space + ", Escape stops.";
}
