// The calibration workbench without its window: points of one channel, their line and curves, and where they are kept.
#pragma once

#include "calibration/mCalFit.h"
#include "calibration/mRawCal.h"
#include "core/mModes.h"
#include "processing/mRefTable.h"

#include <array>
#include <functional>
#include <string>

struct CalibrRow;

/// The text boxes of the window.
enum eCalBox
{
    BoxChan,
    BoxPhys,
    BoxLog,
    BoxQ0,
    BoxQ1,
    BoxR2,
    BoxMinP,
    BoxMaxP,
    BoxMaximal,
    BoxCutOff, // percent
    BoxThreshold,
    CalBoxCnt
};

/// The check boxes of the window.
enum eCalFlag
{
    FlagAutomatic,
    FlagXisLog,
    FlagAutoAxes,
    FlagTorque
};

class cCalibr
{
public:
    /// Reads the settings of the workbench.
    cCalibr();

    /// Writes them, when the window closes.
    void KeepSettings() const;

    // What the window shows.

    const std::string& Box(eCalBox Index) const { return mBoxes[Index]; }
    const std::string& SensID() const { return mSensID; }
    const std::string& ArrMin() const { return mArrMin; }
    const std::string& ArrMax() const { return mArrMax; }
    const std::string& Analys() const { return mAnalys; }
    const std::string& AnalysHint() const { return mHint; } // what to do about it, empty for nothing
    std::string Caption() const;
    bool Flag(eCalFlag Index) const;
    eApprox Approx() const;

    /// The link, the points, and what Enter, Space and Escape will do now.
    std::string State() const;

    const CalPoints& Points() const { return mPoints; }
    const CalLine& Line() const { return mLine; }
    const CalAnalysis& Analysis() const { return mAnalysis; }
    const CalRange& Axes() const { return mAxes; }
    int16_t Chan() const { return mChan; }
    double Phys() const { return mPhys; }
    double Log() const { return mLog; }
    bool IsModified() const { return mModified; }
    bool IsAnalysed() const { return mAnalysis.IsDone; }
    bool IsTaking() const { return mTaking; }
    bool IsAutoRun() const { return mAutoRun; }

    // What the user types and chooses.

    void SetBox(eCalBox Index, const std::string& Text);
    void SetSensID(const std::string& Text) { mSensID = Text; }
    void SetArrMin(const std::string& Text) { mArrMin = Text; }
    void SetArrMax(const std::string& Text) { mArrMax = Text; }
    void SetFlag(eCalFlag Index, bool On);
    void SetApprox(eApprox Mode);

    // Taking points.

    /// Makes a channel of the session the one that is calibrated, with the points as they are. False when there is no
    /// such channel (told).
    bool TakeChan(double Number);

    /// Begins to take frames for the channel in its box; asks what to do with points of another one. False without such
    /// a channel or calibrator (told).
    bool StartData();

    /// Takes the counts of gData. True when that made a point.
    bool DrawData();

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
    bool CanUndo() const { return mHasUndo; }

    // Working on the points.

    /// Takes the limits of the table from the points. False when they leave no range between them (told).
    bool FindLimits();

    /// Takes the ranges of the graph from the points or from the channel's row.
    void SetCalGr();

    /// Runs the analysis of the mode chosen; the text of Analys tells what it came to. False when that is nothing.
    bool AnalyseArr();

    // Keeping the results.

    /// Makes this channel with its line the automatic calibrator. False without a line, or when the ini file cannot be
    /// written (told).
    bool SetAutoCal();

    /// Saves the points under a name of their own, then the session. False when one of it fails (told): the channel's
    /// row is then as it was.
    bool Save();

    /// Puts the results into the channel's row. False without a channel or a line, or with an analysis for another use
    /// than the one chosen (told).
    bool Store();

    /// Store, and writes the session behind a backup copy. False when that fails (told): the row is then as it was.
    bool SaveData();

    /// How the channel is read, in words.
    std::string Reading() const;

    /// What was saved last, and how the channel is read now.
    const std::string& SavedText() const { return mSavedText; }

    /// Makes a reference table between the limits typed. False when there is none to be made: told, or with too few
    /// points in the text of Analys.
    bool MakeRefTable(RefTable& Table);

    /// Makes the channel one that is read by the table of its sensor.
    void StoreRefTable() const;

    /// Makes the table, writes it and the session, and drops the points outside its range. False when told.
    bool CreateRefTable3();

    /// Writes the points; asks for the file when Path is empty. False when cancelled or failed (told).
    bool SaveRawCalData(const std::string& Path);

    /// Replaces the points by those of a file; asks for it when Path is empty. False when cancelled or failed (told).
    bool LoadRawCalData(const std::string& Path);

    /// Whether the window may close: asks when points were added that are not saved.
    bool CheckModified() const;

private:
    CalibrRow* Row() const;
    bool HasChannel() const;
    bool HasCalibrator() const;
    bool HasLever() const;
    bool HasFileName() const;
    void TrimSensID();
    bool FitsUse() const;
    std::string CountText() const;
    void ShowLimits();
    void TakeMode();
    void Analyse0();
    void ShowLine();
    void ShowExtremes();
    void TakeAxes();
    void ReCalculate();
    void RememberPoints();
    void AskReading();
    void TakeHint();
    bool StoreAnd(const std::function<bool()>& Write);
    void AskForPointsOf(int16_t Former);
    double CalibratorValue() const;
    void KeepPointsWithin(double Min, double Max);
    std::string FreeName() const;
    bool WriteStored();

    int16_t mChan = 0;
    double mPhys = 0;
    double mLog = 0;
    double mAutoQ0 = 0;
    double mAutoQ1 = 0;
    double mLever = 0;
    CalPoints mPoints;
    std::size_t mPntCnt = 0; // points that are stored in a file: of those loaded, all but the last
    CalSums mSums;
    CalRange mExtremes; // of all points taken since TakeAxes, dropped ones included
    CalRange mAxes;
    CalLine mLine;
    CalAnalysis mAnalysis; // the last one that came to something
    eApprox mAnalysedFor = ApproxLinear;
    bool mIsOutdated = false; // points came after it
    bool mModified = false;
    bool mAutoRun = false;
    bool mTaking = false;
    bool mHasFrame = false; // since taking began
    CalPoints mUndo;
    int16_t mUndoChan = 0;
    std::string mUndoSensID;
    bool mHasUndo = false;
    std::array<std::string, CalBoxCnt> mBoxes;
    std::string mTypedPhys; // the user's own text of BoxPhys, which automatic mode writes over
    std::string mSensID;
    std::string mArrMin;
    std::string mArrMax;
    std::string mAnalys = "Analysis Data Empty";
    std::string mHint;
    std::string mSavedText;
};
