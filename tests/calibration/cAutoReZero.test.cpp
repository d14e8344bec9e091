// Automatic re-zeroing without its window: which groups it zeroes, and where it ends.
#include "calibration/cAutoReZero.h"

#include "acquisition/mComFast.h"
#include "files/mTextIO.h"
#include "support/ScriptedLink.h"

#include <doctest/doctest.h>

#include <optional>

namespace {
// A session with an angle, a force and a seat, and a pass whose counts come while the second is awaited.
struct Passes : LinkState, cAutoReZero::iView
{
    TempFolder Folder;
    std::optional<cReZero> Pass;
    std::vector<int> Begun;
    double Angle = 100; // its count
    int ClosedIn = -1;  // the group in whose second the window is closed

    Passes()
    {
        for (const char* Name : {"A1", "H1", "S1"}) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Row.ParamID = Name;
            Row.Q1 = 0.5;
        }
        gFile.ChanCnt = 3;
        gConnection = 1;
        Clock.StartOnce(100, [this] { Socket.Answer(); });
        SetCurFile(Folder.Path("s.txt"));
    }

    void Begin(eReZeroGroup Group) override
    {
        Begun.push_back(Group);
        Pass.emplace(false);
        Pass->ChooseGroup(Group);
        Pass->StartData();
        Clock.StartOnce(900, [this, Group] {
            gData = {0, Angle, 200, 300};
            gLinkWatch.FrameCame(Clock.Milliseconds());
            Pass->TakeSample();
            if (Group == ClosedIn) Pass.reset();
        });
    }
    cReZero* Rows() override { return Pass ? &*Pass : nullptr; }
    void Show() override {}
    void End() override { Pass.reset(); }
};
} // namespace

TEST_CASE_FIXTURE(Passes, "angles and forces are zeroed one after the other, each saved, and nothing else")
{
    cAutoReZero Zeroing(*this);
    REQUIRE(Zeroing.Run());
    CHECK(Zeroing.Names() == "A1, H1");
    CHECK(Begun == std::vector{0, 2});
    CHECK(Dialogs.Told.empty());
    gFile.Calibr.Clear();
    REQUIRE(ReadDataFile(gCurFile, gFile, SectionFilter::Any));
    CHECK(gFile.Calibr[1].Q0 == -50);
    CHECK(gFile.Calibr[2].Log0 == 200);
    CHECK(gFile.Calibr[3].Q0 == 0);
}

TEST_CASE_FIXTURE(Passes, "a window that is closed, or a session that cannot be saved, ends it with what is saved")
{
    cAutoReZero Zeroing(*this);
    ClosedIn = 2;
    CHECK_FALSE(Zeroing.Run());
    CHECK(Zeroing.Names() == "A1");
    CHECK(gFile.Calibr[2].Q0 == 0);
    ClosedIn = -1;
    Angle = 120;
    SetCurFile(Folder.Path("gone/s.txt"));
    CHECK_FALSE(Zeroing.Run());
    CHECK(Zeroing.Names().empty());
    CHECK(gFile.Calibr[1].Q0 == -50);
    CHECK(Dialogs.Told.size() == 1);
}

TEST_CASE_FIXTURE(Passes, "a group without channels is passed over")
{
    gFile.Calibr[1].ParamID = "Z1";
    cAutoReZero Zeroing(*this);
    CHECK(Zeroing.Run());
    CHECK(Zeroing.Names() == "H1");
}
