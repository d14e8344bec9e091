// Where the results of a calibration are kept: the channel's row, the session, raw calibration files, reference tables.
#pragma once

#include "calibration/cCalFit.h"
#include "calibration/cCalPoints.h"
#include "processing/mRefTable.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct CalibrRow;
struct RawCal;

/// What there is to keep of a channel of the session.
struct CalWork
{
    CalSource Of;
    CalLine Line;         // as it stands in the boxes
    double Threshold = 0; // physical units
    double Min = 0;       // of the reference table
    double Max = 0;
    double Lever = 0;
    eApprox Use = ApproxLinear;
};

class cCalKeep
{
public:
    cCalKeep(cCalPoints& InitPoints, cCalFit& InitFit) : Points(InitPoints), Fit(InitFit) {}

    /// What was saved last, and how the channel is read now.
    const std::string& SavedText() const { return mSavedText; }

    /// How the channel is read, in words.
    static std::string Reading(int16_t Chan);

    /// Puts the results into the channel's row. False with an analysis for another use than the one chosen (reported to
    /// the user), or when a line without slope is not to be saved.
    bool Store(const CalWork& Work);

    /// Store, keeps a backup copy of the session and writes it. False when that fails (reported to the user): channels
    /// and tables are then as they were.
    bool SaveData(const CalWork& Work);

    /// Saves the points in a file of their own, then as SaveData.
    bool Save(const CalWork& Work);

    /// Makes a reference table between the limits. False when there is none to be made: reported to the user, or with
    /// too few points in the text of the analysis.
    bool MakeRefTable(const CalWork& Work, RefTable& Table);

    /// Makes the channel one that is read by the table of its sensor.
    static void StoreRefTable(const CalWork& Work);

    /// Makes the table, and writes it with the session. False when that fails (reported to the user): files, channels
    /// and tables are then as they were.
    bool SaveRefTable(const CalWork& Work);

    /// Writes the points; asks for the file when Path is empty. False when cancelled or failed (reported to the user).
    bool SaveRaw(const CalWork& Work, const std::string& Path) const;

    /// What a file holds; asks for it when Path is empty. Nothing when cancelled or failed (reported to the user).
    static std::optional<RawCal> LoadRaw(const std::string& Path);

    /// Makes the channel with its line the automatic calibrator. False when the ini file cannot be written (reported to
    /// the user).
    static bool SaveCalibrator(int16_t Chan, const CalLine& Line);

private:
    static bool NamesFile(const CalSource& Of);
    static std::string FreeName(const CalSource& Of);
    void AskReading(const CalWork& Work) const;
    bool StoreAnd(const CalWork& Work, const std::function<bool()>& Write);
    bool WriteStored(const CalWork& Work);

    cCalPoints& Points;
    cCalFit& Fit;
    std::string mSavedText;
};
