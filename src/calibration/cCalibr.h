// The calibration workbench without its window: what is typed and chosen, the frames taken, and what the commands do.
#pragma once

#include "calibration/cCalFit.h"
#include "calibration/cCalKeep.h"
#include "calibration/cCalPoints.h"
#include "calibration/cCalTaking.h"
#include "calibration/mCalBoxes.h"

#include <array>
#include <string>

struct CalibrRow;
struct RawCal;

class cCalibr
{
public:
    /// Reads the settings of the workbench.
    cCalibr();
    cCalibr(const cCalibr&) = delete;
    cCalibr& operator=(const cCalibr&) = delete;

    /// Writes them, when the window closes.
    void KeepSettings() const;

    // What the window shows.

    const std::string& Box(eCalBox Index) const { return mBoxes[Index]; }
    const std::string& SensID() const { return mSensID; }
    const std::string& ArrMin() const { return mArrMin; }
    const std::string& ArrMax() const { return mArrMax; }
    const std::string& Analys() const { return mFit.Text(); }
    const std::string& AnalysHint() const { return mFit.Hint(); }
    const std::string& SavedText() const { return mKeep.SavedText(); }
    std::string Caption() const;
    bool Flag(eCalFlag Index) const;
    eApprox Approx() const;

    /// The link, the points, and what Enter, Space and Escape will do now.
    std::string State() const;

    /// How the channel is read, in words.
    std::string Reading() const { return cCalKeep::Reading(mChan); }

    const CalPoints& Points() const { return mPoints.All(); }
    const CalLine& Line() const { return mPoints.Line(); }
    const CalRange& Axes() const { return mPoints.Axes(); }
    const CalAnalysis& Analysis() const { return mFit.Result(); }
    int16_t Chan() const { return mChan; }
    bool IsAnalysed() const { return mFit.IsDone(); }
    bool IsTaking() const { return mTaking.IsOn(); }

    // What the user types and chooses.

    void SetBox(eCalBox Index, const std::string& Text);
    void SetSensID(const std::string& Text) { mSensID = Text; }
    void SetArrMin(const std::string& Text) { mArrMin = Text; }
    void SetArrMax(const std::string& Text) { mArrMax = Text; }
    void SetFlag(eCalFlag Index, bool On);
    void SetApprox(eApprox Mode);

    // Taking points.

    /// Makes a channel of the session the one that is calibrated, with the points as they are. False when there is no
    /// such channel (reported to the user).
    bool TakeChan(double Number);

    /// Begins to take frames for the channel in its box; asks what to do with points of another one. False without such
    /// a channel or calibrator (reported to the user).
    bool StartData();

    /// Takes the counts of gData. True when that made a point.
    bool TakeSample();

    /// Takes the present count with the physical value as a point. False without a link whose frames come, and in
    /// automatic mode for a count of 0.
    bool PutDataPoint();

    /// Space: takes a point, or in automatic mode begins or ends to take each frame. True when it made a point.
    bool Space();

    /// Ends the taking of frames and closes the link.
    void StopData();

    /// Drops all points; the extremes stay as they were shown.
    void DelAllPoints();

    /// Brings back the points as they were before they were last dropped, replaced or cut, with their channel.
    void UndoPoints();
    bool CanUndo() const { return mPoints.CanUndo(); }

    // Working on the points.

    /// Takes the limits of the table from the points. False when they leave no range between them (reported to the
    /// user).
    bool FindLimits();

    /// Takes the ranges of the graph from the points or from the channel's row.
    void SetCalGr() { mPoints.TakeAxes(Row()); }

    /// Runs the analysis of the mode chosen; Analys gives its text. False without a result.
    bool AnalyseArr();

    // Keeping the results: as cCalKeep has it, and false without a channel (reported to the user).

    /// False without a line, too (reported to the user).
    bool SetAutoCal();

    bool Save();
    bool Store();
    bool SaveData();
    bool MakeRefTable(RefTable& Table);
    void StoreRefTable();

    /// Makes the table, saves it with the session, and drops the points outside its range.
    bool CreateRefTable3();

    bool SaveRawCalData(const std::string& Path);

    /// Replaces the points by those of a file; asks for it when Path is empty. False when cancelled or failed (reported
    /// to the user).
    bool LoadRawCalData(const std::string& Path);

    /// Takes channel, line, sensor and points of a raw calibration file in place of those here.
    void TakeRawCal(RawCal Data);

    /// Whether the window may close: asks when points were added that are not saved.
    bool CheckModified() const;

private:
    CalibrRow* Row() const;
    bool HasChannel() const;
    CalSource Source() const { return {mChan, mSensID}; }
    CalWork Work();
    std::string CountText() const;
    void ShowChannel();
    void ShowLimits();
    void ShowNumbers();
    void Analyse0();
    void AskForPointsOf(int16_t Former);

    int16_t mChan = 0;
    cCalTaking mTaking;
    cCalPoints mPoints;
    cCalFit mFit;
    cCalKeep mKeep{mPoints, mFit};
    std::array<std::string, CalBoxCnt> mBoxes;
    std::string mTypedPhys; // the user's own text of BoxPhys, which automatic mode writes over
    std::string mSensID;
    std::string mArrMin;
    std::string mArrMax;
};
