// The video window, the animation control and the MPEG player, clicked and pressed.
#include "video/f1Video.h"
#include "ShellState.h"
#include "core/mGlobData.h"
#include "platform/ffmpeg/mMedia.h"
#include "support/NumberedClip.h"
#include "video/f2Video.h"

#include <QLabel>
#include <QLineEdit>
#include <QSlider>

namespace {
struct Screen : ShellState
{
    Screen()
    {
        gHost.MakeMedia = MakeMedia;
        REQUIRE(WriteClip(Folder.Path("a.avi"), {.Codec = "mpeg4", .BFrames = 2, .Group = 12}, 60) == "");
        Start();
    }
    int Seen() { return NumberShown(*Find<f1Video>("f1Video").Video.Shown()); }
};
} // namespace

TEST_CASE_FIXTURE(Screen, "a video is opened from the menu, stepped, scrubbed, played and closed")
{
    Dialogs.Files = {Folder.Path("a.avi")};
    Choose("mnuVidPlay");
    CHECK(Dialogs.Told == std::vector<std::string>{"Video File to Open: *.avi"});
    auto& Video = Find<f1Video>("f1Video");
    REQUIRE(QTest::qWaitFor([&] { return Video.Video.Frames() == 60 && Video.Video.IndexDone() == 1; }));
    const auto ClickAt = [&](const char* Name) { QTest::mouseClick(Video.findChild<QWidget*>(Name), Qt::LeftButton); };
    ClickAt("cmdVidContr_4");
    ClickAt("cmdVidContr_4");
    CHECK((Seen() == 2 && Plain(Video.findChild<QLineEdit*>("txtElapsed")->text()) == "0.08"));
    for (const auto& [Key, Picture] :
         {std::pair{Qt::Key_End, 59}, {Qt::Key_Left, 59}, {Qt::Key_Left, 58}, {Qt::Key_Home, 0}, {Qt::Key_Right, 1}}) {
        QTest::keyClick(Video.Slider1, Key);
        CHECK(Seen() == Picture);
    }
    Video.Slider1->setValue(33);
    CHECK((Seen() == 33 && gPlayFrame == 33));
    QTest::keyClick(&Video, Qt::Key_Space);
    CHECK(Video.Video.IsRunning());
    CHECK(QTest::qWaitFor([&] { return Seen() > 36; }));
    QTest::keyClick(&Video, Qt::Key_Space);
    CHECK_FALSE(Video.Video.IsRunning());
    auto& Control = Find<QWidget>("f1Control");
    gPlayFrame = 20;
    QTest::mouseClick(Control.findChild<QWidget*>("cmdVidContr_4"), Qt::LeftButton);
    CHECK(Seen() == 21);
    QTest::mouseClick(Control.findChild<QWidget*>("cmdVidContr_6"), Qt::LeftButton);
    QTest::qWait(10);
    CHECK((!Main.findChild<QWidget*>("f1Video") && !Main.findChild<QWidget*>("f1Control")));
    CHECK(Settings.GetSetting("1Video", "Width").has_value());
}

TEST_CASE_FIXTURE(
    Screen,
    "the MPEG player shows positions, runs with the animation control, and a file that is no video opens no window")
{
    Dialogs.Files = {Folder.Path("a.avi"), Folder.Path("settings.ini"), Folder.Path("a.avi")};
    Choose("mnuPlayMPEG");
    Click("cmdNext");
    Click("cmdNext");
    Click("cmdPrev");
    CHECK(Find<QLabel>("lbSetPos").text() == "SetPos=40");
    CHECK(Find<QLabel>("lbRetPos").text() == "RetPos=40");
    Choose("mnuVidPlay");
    CHECK(!Main.findChild<QWidget*>("f1Video"));
    CHECK(Dialogs.Told.back().starts_with("Warning!: Can't open file: "));
    Choose("mnuVidPlay");
    auto& Control = Find<QWidget>("f1Control");
    const auto& Player = Find<f2Video>("f2Video");
    for (const auto& [Button, Runs] : {std::pair{"cmdVidContr_2", true}, {"cmdVidContr_3", false}}) {
        QTest::mouseClick(Control.findChild<QWidget*>(Button), Qt::LeftButton);
        CHECK(Player.Movie.IsRunning() == Runs);
    }
}
