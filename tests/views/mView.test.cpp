// Loading, cutting, saving and processing of what the data view shows, on recordings in files.
#include "views/data/cDataNav.h"
#include "views/data/mViewEdit.h"
#include "views/data/mViewLoad.h"
#include "views/data/mViewProc.h"
#include "views/data/mViewSave.h"

#include "files/mQVN.h"
#include "files/mRawLog.h"
#include "platform/plain/sSurface.h"
#include "support/Case.h"
#include "support/Hex.h"

#include <fstream>
#include <optional>

namespace {
constexpr int FrameSize = 33;
constexpr int Frames = 600;

std::string Word(int X)
{
    return {static_cast<char>(X % 128), static_cast<char>(X / 128 % 128)};
}

// A short frame each 40 ms; channel 2 rises from 0 to 99 once in four seconds.
std::string FrameAt(int i)
{
    return HexText("80 00 1C 00") + Word(40 * (i + 1)) + Word(40 * (i + 1) / 16384) + std::string(8, '\0') + Word(i) +
           Word(i % 100) + Word(0) + std::string(11, '\0');
}

std::string FramesFrom(int First, int Count)
{
    std::string Bytes;
    for (int i = First; i < First + Count; ++i)
        Bytes += FrameAt(i);
    return Bytes;
}

// A session with one sample and a recording of six strokes in its folder.
struct Outing : FreshState
{
    std::string Raw = Folder.Path("a.qvn");
    ViewData Data;
    ViewUndo Undo;

    Outing()
    {
        gFile = DataFile{};
        gFile.Model = 67;
        gFile.ChanCnt = 3;
        gFile.Calibr.Resize(3);
        for (int Chan = 1; Chan <= 3; ++Chan) {
            gFile.Calibr[Chan].Chan = static_cast<int16_t>(Chan);
            gFile.Calibr[Chan].Q1 = 1;
        }
        gFile.Calibr[2].ParamID = gFile.KeyChanID = "A1";
        gFile.KeyThres = 49.5F;
        gKeyMode = 1;
        ResolveChannels();
        gFile.SampleCnt = 2;
        DescRow& Row = gFile.Desc.Grow();
        Row.SampleID = "S01";
        Row.RawFN = "a.qvn";
        Row.DistReal = 500;
        Row.TimeReal = 99.5;
        SetCurFile(Folder.Path("session.txt"));
        std::ofstream(Raw, std::ios::binary) << "xy" << FramesFrom(0, Frames) << "z";
    }

    void Set(const std::string& Key, const std::string& Value)
    {
        Settings.SaveSetting(FindSetting(Key)->Section, Key, Value);
    }

    // Channel 1, which counts the frames, with dots for runs.
    static std::string Numbers()
    {
        std::string Text;
        for (int i = 0; i <= gRaw.UBound(); ++i)
            if (i == 0 || i == gRaw.UBound() || gRaw(1, i) != gRaw(1, i - 1) + 1 || gRaw(1, i) + 1 != gRaw(1, i + 1))
                Text += FormatNum(gRaw(1, i), "0") + " ";
        return Text;
    }
};
} // namespace

TEST_CASE_FIXTURE(Outing, "of a broken recording a mended copy is offered, and shown in its place")
{
    // A slave's frame that holds a sync byte, and one of another size that the decoder refuses.
    const std::string Broken = FramesFrom(0, 200) + HexText("80 00 02 00 01 80 01") + FramesFrom(200, 400);
    const std::string Question =
        "Warning!: " + Raw +
        ": stopped at byte 6601 of 19807 (frame 200, 8.0 s): the rest was not read.\n\nWrite a "
        "copy without the broken bytes and open it? The recording stays as it is.";
    std::ofstream(Raw, std::ios::binary) << Broken;
    Dialogs.AnswerYes = false;
    REQUIRE(LoadView(Raw, DataRaw, Data));
    CHECK((Numbers() == "0 199 " && gRawFN == Raw));
    CHECK(Dialogs.Told == Texts{Question});
    Dialogs.AnswerYes = true;
    for (const char* Name : {"a_mended.qvn", "a_mended_2.qvn"}) {
        Dialogs.Told.clear();
        REQUIRE(LoadView(Raw, DataRaw, Data));
        CHECK((Numbers() == "0 599 " && gRawFN == Folder.Path(Name) && Data.FileName == Name));
        CHECK(Data.Caption == std::string("Raw Data in ") + Name);
        CHECK(Dialogs.Told == Texts{Question, "Information: 1 frame (7 bytes) left out, the first at byte 6601; 600 "
                                              "frames kept: " +
                                                  Folder.Path(Name)});
    }
    CHECK(ReadWhole(Raw) == Broken);
    CHECK(ReadWhole(Folder.Path("a_mended.qvn")) == FramesFrom(0, 600));
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK((gScanRows.UBound() == 6 && gRawFN == Folder.Path("a_mended_3.qvn")));
    // Nothing of the rest could be mended.
    Dialogs.Told.clear();
    std::ofstream(Raw, std::ios::binary) << FramesFrom(0, 200) << "\x80 half";
    REQUIRE(LoadView(Raw, DataRaw, Data));
    CHECK(Dialogs.Told ==
          Texts{"Warning!: " + Raw + ": stopped at byte 6601 of 6606 (frame 200, 8.0 s): the rest was not read"});
}

TEST_CASE_FIXTURE(Outing, "a rate other than the setting is asked about once ahead of a search, and the answer is kept")
{
    Set("gDataFreq", "100");
    const std::string Question = "Sampling frequency: The frames of a.qvn come at 25 Hz, but the setting gDataFreq is "
                                 "100 Hz, by which times are counted. Which rate is meant (Hz)? [25]";
    REQUIRE(LoadView(Raw, DataRaw, Data)); // whose times are the frames' own
    CHECK(Dialogs.Told.empty());
    Dialogs.Answers = {"100"};
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK(gScanRows[1].Time == 51 * 0.01);
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK(Dialogs.Told == Texts{Question});
    Set("gDataFreq", "50");
    for (const auto& Answer : {std::optional<std::string>(), std::optional<std::string>("fast")}) {
        Set("gDataFreq", Answer ? "40" : "50");
        Dialogs.Answers = {Answer};
        REQUIRE(LoadView(Raw, DataScanned, Data));
        CHECK(gDataFreq == (Answer ? 40 : 50));
    }
    Set("gDataFreq", "12.5");
    REQUIRE(LoadView(Raw, DataScanned, Data)); // the proposed answer
    CHECK((gScanRows[1].Time == 51 * 0.04 && gDataFreq == 25));
    CHECK(Settings.GetSetting("Options", "gDataFreq") == "25");
    Dialogs.Told.clear();
    Set("gDataFreq", "24.6");
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK(Dialogs.Told.empty());
}
