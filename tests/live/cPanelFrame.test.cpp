// What live panels decide alike.
#include "live/panel/cPanelFrame.h"

#include "files/mRawLog.h"
#include "live/panel/cData01real.h"
#include "support/Case.h"
#include "support/ScriptedLink.h"

TEST_CASE_FIXTURE(FreshState, "the space bar asks for what the source can do, and a table's values hold without frames")
{
    const std::tuple<int16_t, ePanelWish, bool> Cases[] = {{SourceTimer, ePanelWish::StartLog, false},
                                                           {SourceFrames, ePanelWish::ToggleReplay, false},
                                                           {SourceTable, ePanelWish::None, true},
                                                           {SourceDots, ePanelWish::None, true}};
    for (const auto& [Source, Wish, Holds] : Cases) {
        const cPanelFrame Frame(Source);
        CHECK(Frame.PressSpace() == Wish);
        CHECK(Frame.Holds(false) == Holds);
        CHECK(Frame.Holds(true));
    }
}

TEST_CASE_FIXTURE(FreshState, "playback moves the play row to the play clock, and closes the panel")
{
    gRaw.Create(1, 3);
    for (int i = 0; i <= 3; ++i)
        gRaw(0, i) = i;
    gPlayTime = 2.5;
    const std::tuple<int, ePanelWish, int32_t> Codes[] = {
        {0, ePanelWish::ShowSample, 2}, {1, ePanelWish::ShowSample, 2}, {2, ePanelWish::ShowSample, 2},
        {3, ePanelWish::None, 0},       {4, ePanelWish::ShowSample, 2}, {5, ePanelWish::ShowSample, 2},
        {6, ePanelWish::Close, 0},      {7, ePanelWish::None, 0},       {-1, ePanelWish::None, 0}};
    for (const auto& [Code, Wish, Row] : Codes) {
        CAPTURE(Code);
        gPlayIdx = 0;
        CHECK(cPanelFrame::DoAction(Code) == Wish);
        CHECK(gPlayIdx == Row);
    }
}

TEST_CASE_FIXTURE(LinkState, "a recording ends with its panel and is handed on, but of sources without a view")
{
    const std::string Path = Folder.Path("a.qvn");
    const std::pair<int16_t, std::string> Cases[] = {{SourceTimer, Path}, {SourceDots, Path}, {SourceNoView, ""}};
    for (const auto& [Source, Shown] : Cases) {
        cPanelFrame Frame(Source);
        CHECK((Frame.AskToClose() && Frame.EndLogging().empty()));
        REQUIRE(OpenLog(Path, OldBytes::Kept));
        Dialogs.AnswerYes = false;
        CHECK_FALSE(Frame.AskToClose());
        CHECK(gLogging);
        Dialogs.AnswerYes = true;
        CHECK(Frame.AskToClose());
        CHECK(Frame.EndLogging() == Shown);
        CHECK_FALSE(gLogging);
    }
    CHECK(Dialogs.Told.size() == 6);
}
