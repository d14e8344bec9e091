// The windows of digitising, put together.
#include "core/shell/fDigitising.h"

#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "core/shell/fWindows.h"
#include "core/shell/frmMain.h"
#include "platform/mHost.h"
#include "video/f1Video.h"
#include "video/fVidDigit.h"

#include <QPointer>
#include <QTimer>

namespace {
constexpr int LookMs = 50; // at the index while it is made

void BeginDigit(frmMain& Main, const QPointer<f1Video>& Video, int Index)
{
    if (!Video) return;
    if (!Video->Video.IsOpen()) return UpdateStatus("A still picture is measured in the window Anthropometry");
    if (Video->Video.IndexDone() < 1) {
        UpdateStatus("Digitising begins when the pictures are counted");
        QTimer::singleShot(LookMs, &Main, [&Main, Video, Index] { BeginDigit(Main, Video, Index); });
        return;
    }
    Video->Video.TakeIndex();
    UpdateStatus("");
    auto* Open = dynamic_cast<fVidDigit*>(FindOpen(Main, "fVidDigit"));
    if (Open && Open->Resume(*Video, Index)) return;
    WindowArgs Args{.Mode = Index};
    Args.Owner = Video;
    OpenWindow(Main, "fVidDigit", Args);
}
} // namespace

void LinkDigitising(frmMain& Main, f1Video& Video)
{
    Video.SetOnDigit([&Main, Shown = QPointer<f1Video>(&Video)](int Index) { BeginDigit(Main, Shown, Index); });
}

void DigitiseVideo(frmMain& Main)
{
    const std::string Path = ExecComDlg("Video File to Open", "wmv", eFileMode::In, gVideoDir);
    if (Path.empty()) return;
    const QPointer<f1Video> Video = dynamic_cast<f1Video*>(OpenWindow(Main, "f1Video", {.File = Path}));
    if (Video) BeginDigit(Main, Video, gDots.UBound() > 0 ? DigItBody : DigItAngle);
}

void MeasureBody(frmMain& Main)
{
    const std::string Path = ExecComDlg("JPG File to Open", "jpg", eFileMode::In, gVideoDir);
    if (Path.empty()) return;
    auto* Video = dynamic_cast<f1Video*>(OpenWindow(Main, "f1Video"));
    if (!Video || !Video->JPGOpen(Path)) return;
    WindowArgs Args;
    Args.Owner = Video;
    OpenWindow(Main, "fAnthro", Args);
}
