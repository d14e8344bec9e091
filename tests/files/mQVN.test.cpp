#include "files/mQVN.h"

#include "support/Case.h"
#include "support/Hex.h"

#include <fstream>

namespace {
// A program with a session of one slave of 8 channels; channel 2 drives the strokes, channel 3 is the speed.
class Outing : public FreshState
{
public:
    Outing()
    {
        gFile = DataFile{};
        gFile.Model = 67;
        gFile.ChanCnt = 8;
        gFile.Calibr.Resize(8);
        gFile.Calibr[2].Q0 = -50;
        gFile.Calibr[2].Q1 = 1;
        gFile.Calibr[3].Q0 = 1;
        gFile.Calibr[3].Q1 = 0.5;
        gFile.KeyThres = 10;
        gKeyChan = 2;
        SetSetting("gVChan", "3");
    }

    void SetSetting(const std::string& Key, const std::string& Value)
    {
        Settings.SaveSetting(FindSetting(Key)->Section, Key, Value);
    }

    std::size_t Restart = 9999; // the frame from which the logger's clock counts anew

    // Scans frames a second apart with these values of the key channel and speeds of 2, 4, 6, ...
    bool Scan(const std::vector<int>& Keys, const std::string& Tail = "")
    {
        std::string Bytes;
        for (std::size_t i = 0; i < Keys.size(); ++i) {
            const auto Stamp = 1000 * (i >= Restart ? i - Restart : i + 1);
            Bytes += HexText("01 80 00 1C 00") + static_cast<char>(Stamp % 128) + static_cast<char>(Stamp / 128 % 128) +
                     static_cast<char>(Stamp / 16384) + std::string(9, '\0');
            for (const std::size_t Word : {std::size_t{0}, static_cast<std::size_t>(Keys[i] + 50), 4 * i + 2})
                Bytes += std::string{static_cast<char>(Word % 128), static_cast<char>(Word / 128)};
            Bytes += std::string(11, '\0');
        }
        std::ofstream(Folder.Path("a.qvn"), std::ios::binary) << Bytes << Tail;
        return ScanRawFile(Folder.Path("a.qvn"));
    }

    static std::string Rows()
    {
        std::string Text;
        for (const ScanRow& Row : gScanRows) {
            for (const double X : {static_cast<double>(Row.Pos), Row.Time, Row.Rate, Row.Speed, Row.Dist})
                Text += FormatShortest(X) + " ";
            Text += "| ";
        }
        return Text;
    }

    std::string Positions()
    {
        std::string Text;
        for (const ScanRow& Row : gScanRows)
            Text += FormatNum((Row.Pos - 1) / 34, "0") + " ";
        return Text;
    }
};
} // namespace

TEST_CASE_FIXTURE(Outing, "a stroke begins where the key value does what the key mode says")
{
    const std::vector<int> Keys = {11, 9, 12, 10, 11, 10, 10, 3, 5, 8, 2, 20, 25, 11, 20};
    // The frames in which a stroke begins, from 0.
    const std::tuple<int16_t, const char*> Modes[] = {{0, "1 3 5 "},  {1, "2 11 "}, {2, "2 8 11 "},
                                                      {3, "3 5 13 "}, {4, ""},      {-1, ""}};
    for (const auto& [Mode, Frames] : Modes) {
        CAPTURE(Mode);
        gKeyMode = Mode;
        CHECK(Scan(Keys));
        CHECK(Positions() == Frames);
    }
}

TEST_CASE_FIXTURE(Outing, "no stroke is found before the earlier key values exist")
{
    // Values that a window of zeros ahead of the first frame would take for strokes.
    const std::vector<std::pair<int16_t, std::vector<int>>> Starts = {
        {0, {5, 5}}, {1, {20, 20}}, {2, {-5, 3}}, {2, {5, -5}}, {3, {30, 15}}};
    for (const auto& [Mode, Keys] : Starts) {
        gKeyMode = Mode;
        gFile.KeyThres = Mode == 0 ? -1 : 10;
        CHECK(Scan(Keys));
        CHECK(Rows() == "");
    }
}

TEST_CASE_FIXTURE(Outing, "strokes have position, time by the nominal frequency, rate by the stamps and mean speed")
{
    gKeyMode = 1;
    CHECK(Scan({0, 0, 20, 0, 20, 0, 0, 20}));
    CHECK(gTimeStep == 0.04);
    CHECK(gFromFile);
    CHECK(Rows() == "69 0.12 20 4 0 | 137 0.2 30 9 0 | 239 0.32 20 14 0 | ");
    SetSetting("gDataFreq", "50");
    SetSetting("gVChan", "8"); // not below the number of channels: no speed
    CHECK(Scan({0, 20}));
    CHECK(Rows() == "35 0.04 30 0 0 | ");
}

TEST_CASE_FIXTURE(Outing,
                  "a stroke over which the logger's clock is set back has no row, and the next ones have theirs")
{
    gKeyMode = 1;
    Restart = 5;
    CHECK(Scan({0, 20, 0, 20, 0, 0, 20, 0, 20}));
    CHECK(Rows() == "35 0.08 30 3 0 | 103 0.16 30 7 0 | 273 0.36 30 17 0 | ");
}

TEST_CASE_FIXTURE(Outing, "a scan ends with the frame that failed, and a frame cut off is left out")
{
    gKeyMode = 1;
    CHECK(Scan({0, 20, 0}, HexText("80 00 1C 00 7F 7F 7F")));
    CHECK(Rows() == "35 0.08 30 3 0 | ");
    // A long frame that the decoder refuses, then one that would be a stroke.
    CHECK(Scan({0, 20, 0}, HexText("80 00 02 00 01 80 01 80 00 1C 00") + std::string(12, '\0') +
                               HexText("00 00 7F 7F") + std::string(13, '\0')));
    CHECK(Rows() == "35 0.08 30 3 0 | ");
}

TEST_CASE_FIXTURE(Outing, "what cannot be scanned is reported and leaves the strokes as they were")
{
    gKeyMode = 1;
    CHECK(Scan({0, 20}));
    const std::string Before = Rows();
    CHECK_FALSE(ScanRawFile(Folder.Path("missing.qvn")));
    CHECK_FALSE(ScanRawFile(Folder.Path("")));
    gFile.KeyChanID = "A9";
    gKeyChan = -1;
    CHECK_FALSE(Scan({0, 20}));
    CHECK(Dialogs.Told.size() == 3);
    gKeyChan = 85;
    CHECK_THROWS_AS(Scan({0, 20}), RunError);
    gKeyChan = 2;
    SetSetting("gDataFreq", "0");
    CHECK_THROWS_AS(Scan({0, 20}), RunError);
    CHECK(Rows() == Before);
}
