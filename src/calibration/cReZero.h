// Re-zeroing without its window: the present counts of unloaded channels become their zeros, the gains stay.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A channel of the window, with the texts of its controls.
struct ReZeroRow
{
    std::string Name; // ParamID
    int16_t Chan = 0; // 0 as long as the row has no channel
    int32_t Log = 0;  // present count
    double Phys = 0;  // its physical value
    double Prev = 0;  // count before it, for channels with hysteresis
    double NewQ0 = 0; // what Save Data stores
    double LogZero = 0;
    bool HasData = false;  // a count has come
    bool IsZeroed = false; // NewQ0 and LogZero are results that are not saved
    std::string ChanText;
    std::string LogText;
    std::string PhysText;
    std::string OldQ0Text;
    std::string NewQ0Text;
    std::string LZeroText;
    std::string Q1Text;
};

/// Groups of channels that are zeroed together.
enum eReZeroGroup
{
    GroupHorizontal, // oar angles
    GroupVertical,
    GroupForces, // at the handle
    GroupSeats,
    GroupGates,
    ReZeroGroupCnt
};

class cReZero
{
public:
    static constexpr int MaxRows = 9;

    /// CalibratorMode: the one row is the automatic calibrator, whose zero is kept in the ini file.
    explicit cReZero(bool CalibratorMode);

    bool IsCalibrMode() const { return mCalibrMode; }

    /// Whether there are results that were not saved.
    bool IsDirty() const { return mDirty; }

    std::span<const ReZeroRow> Rows() const { return mRows; }

    /// The rows, the data, unsaved zeros, and what is to be done now. IsTaking: the window takes frames.
    std::string State(bool IsTaking) const;

    /// Names of the rows that are read by curves, which a zero does not move; empty when there are none.
    std::string Unmoved() const;

    /// Shows a group: of its eight names those that are channels of the session. Asks before it discards unsaved
    /// results; false when they are kept.
    bool ChooseGroup(int Group);

    /// Adds the channel of a name; one that is unknown, shown already or too many gives no row and false.
    bool AddChannel(const std::string& Name);

    /// Takes channels and calibration of the rows, by number or else by name.
    void StartData();

    /// The user's text in the column "Channel". A row that does not exist takes none.
    void SetChan(int Row, const std::string& Text);

    /// The user's text in the column "Q1": written to the channel at once, in a row that exists.
    void SetQ1(int Row, const std::string& Text);

    /// Takes the counts of gData.
    void TakeSample();

    /// Makes the present counts the zeros. False when no count has come (reported to the user).
    bool ReZero();

    /// Makes the last counts of a raw file the zeros. False when the file cannot be read or holds no frame (reported to
    /// the user).
    bool GetFromFile(const std::string& Path);

    /// Puts the results into the session, or the calibrator's into the ini file's globals.
    void Store();

    /// Store, then writes the session after a backup copy, or the ini file. False when that fails (reported to the
    /// user): what was stored is then as it was.
    bool SaveData();

private:
    bool IsRow(int Row) const;
    void Fill(ReZeroRow& Row);
    void TakeZero(ReZeroRow& Row, double Count);
    void ShowCount(ReZeroRow& Row);

    const bool mCalibrMode;
    bool mDirty = false;
    bool mGainTyped = false; // since the zeros were taken
    bool mSaved = false;     // what the rows show
    bool mChosen = false;    // a group
    std::vector<ReZeroRow> mRows;
};
