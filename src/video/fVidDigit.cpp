// What the window of digitising does and shows.
#include "video/fVidDigit.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mVideoFile.h"
#include "platform/mHost.h"
#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "video/f1Video.h"
#include "video/mAngleSample.h"
#include "video/mDigitDraw.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace {
DigitClip ClipOf(const cVideo& Video)
{
    return {Video.VideoTitle(), Video.Frames(), std::max<int>(Video.Pictures(), 1), Video.Duration()};
}

// Identifier of the sample that is played, empty when there is none.
std::string CurrentSample()
{
    return gCurSample > 0 && gCurSample <= gFile.Desc.UBound() ? gFile.Desc[gCurSample].SampleID : "";
}
} // namespace

fVidDigit::fVidDigit(f1Video& InitOwner, int Index)
    : Owner(&InitOwner), Digit(ClipOf(InitOwner.Video)), BeginIndex(Index)
{
    setObjectName("fVidDigit");
    setAttribute(Qt::WA_DeleteOnClose);
    Digit.Begin(Index, CurrentSample());
    InitControls(Digit.Mode());
    Attach();
    Enter();
}

fVidDigit::~fVidDigit()
{
    Detach();
}

// The video window may be digitised again before this one is gone.
void fVidDigit::Detach()
{
    if (!Still) return;
    Still.reset();
    delete Marks;
    if (!Owner) return;
    Owner->Video.OnLeaveStill = nullptr;
    Owner->Video.OnStill = nullptr;
    Owner->MayClose = nullptr;
    Owner->removeEventFilter(this);
    Owner->Video.SetDigit(!Owner->Video.IsOpen());
    Owner->ShowState();
}

void fVidDigit::Attach()
{
    Still = std::make_unique<fDigitStill>(*Owner->picVideoWindow);
    Still->OnPaint = [this](iSurface& Surface, const std::optional<SurfacePlace>& Pointer) {
        const auto Seen = [this](const VideoPoint& Place) {
            const QPointF At = Owner->picVideoWindow->FromPicture({Place.X, Place.Y});
            return SurfacePlace{At.x(), At.y()};
        };
        DrawFigure(Surface, Digit, Seen, Pointer);
    };
    const auto Take = [this](const auto& Work) {
        Guard("Digitising", [&] {
            Work();
            return true;
        });
        ShowAll();
    };
    Still->OnPress = [this, Take](QPointF At, double Reach) { Take([&] { Digit.Press(At.x(), At.y(), Reach); }); };
    Still->OnMove = [this](QPointF At, double Reach) {
        Digit.Move(At.x(), At.y(), Reach);
        if (Digit.IsDragging()) ShowAll();
    };
    Still->OnRelease = [this, Take] { Take([&] { Digit.Release(); }); };
    Marks = new fSliderMarks(*Owner->Slider1);
    Owner->Video.OnLeaveStill = [this] { Digit.SaveFrame(); };
    Owner->Video.OnStill = [this] { TakeStill(); };
    // Closing the video, or opening another in its window, ends digitising.
    Owner->MayClose = [this] {
        if (!MayEnd()) return false;
        QTimer::singleShot(0, this, [this] { (parentWidget() ? parentWidget() : this)->close(); });
        return true;
    };
    Owner->installEventFilter(this);
}

// The mode's number is the step with which digitising begins.
void fVidDigit::Enter()
{
    Owner->Video.SetDigit(true);
    if (Owner->Video.IsOpen()) Owner->Video.DoStep(Digit.Mode());
    TakeStill();
    Owner->ShowState();
}

bool fVidDigit::Resume(const f1Video& Video, int Index)
{
    if (Owner != &Video || Index != BeginIndex || IsEnded || Digit.Of().Title != Video.Video.VideoTitle()) return false;
    Enter();
    return true;
}

void fVidDigit::TakeStill()
{
    Digit.SetNewFrame(Owner->Video.ShownNumber());
    ShowAll();
}

bool fVidDigit::MayEnd()
{
    if (IsEnded) return true;
    if (Digit.NeedsSaving() && AskYesNo("Save data?", "Warning") && !Digit.SaveRower()) return false;
    IsEnded = true;
    return true;
}

void fVidDigit::ShowAll()
{
    if (!Owner || !Still) return;
    Still->IsOn = Owner->Video.IsDigit();
    ShowCurrent();
    frBody->ShowPoints(Digit);
    Marks->Show(Digit.All().Frames());
    if (Digit.Mode() == DigitBody) DrawAngles(*picAngles, Digit);
    cmdUndo->setEnabled(Digit.CanUndo());
    Owner->picVideoWindow->update();
}

void fVidDigit::ShowCurrent()
{
    txtFrameN->setText(Shown(FormatNum(Digit.Frame(), "0")));
    const std::string Next = Digit.NextName();
    lbNext->setText(Shown(!Next.empty()               ? "Next: " + Next
                          : Digit.Mode() == DigitBody ? "The session has no points: Play, Setup Points"
                                                      : ""));
    const bool IsBody = Digit.Mode() == DigitBody;
    const int Dot = IsBody ? Digit.LastDot() : 0;
    const auto& Corners = Digit.Corners();
    const VideoPoint Place = Dot > 0                     ? Digit.Marks()[Dot].Place
                             : IsBody || Corners.empty() ? VideoPoint()
                                                         : Corners.back();
    const auto Angle = Dot > 0 ? Digit.ShownAngle(Dot) : IsBody ? std::nullopt : Digit.CornerAngle();
    lbCurPt->setText(Shown(Dot > 0 ? gDots[Dot].PointName : "Point"));
    txtCoords[0]->setText(Shown(Place.IsPlaced() ? FormatNum(Place.X, "0") : ""));
    txtCoords[1]->setText(Shown(Place.IsPlaced() ? FormatNum(Place.Y, "0") : ""));
    txtCoords[2]->setText(Shown(Angle ? FormatNum(*Angle, "0.0") : ""));
}

// Ctrl with an arrow skips, Ctrl+Z undoes in both windows.
bool fVidDigit::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::KeyPress) {
        const auto& Key = dynamic_cast<QKeyEvent&>(*Event);
        const bool IsArrow = Key.key() == Qt::Key_Left || Key.key() == Qt::Key_Right;
        if (Key.matches(QKeySequence::Undo)) {
            UndoLast();
            return true;
        }
        if (IsArrow && (Key.modifiers() & Qt::ControlModifier)) {
            Skip(Key.key() == Qt::Key_Left ? -1 : 1);
            return true;
        }
    }
    return QWidget::eventFilter(Watched, Event);
}

void fVidDigit::Skip(int Direction)
{
    if (!Owner || !Owner->Video.IsDigit() || !Owner->Video.IsOpen()) return;
    const int Wanted = Digit.Frame() + Direction * cboSkip->currentText().toInt();
    Owner->Video.GoFrame(std::clamp(Wanted, 0, Digit.Of().Pictures - 1));
}

void fVidDigit::UndoLast()
{
    const int Before = Digit.Frame();
    if (!Digit.Undo()) return;
    if (Owner && Digit.Frame() != Before) Owner->Video.GoFrame(Digit.Frame());
    ShowAll();
}

void fVidDigit::DeleteFrame()
{
    if (!Digit.DeleteFrame()) return UpdateStatus("This frame has no points.");
    ShowAll();
}

void fVidDigit::ExportTable()
{
    Digit.SaveFrame();
    std::string Path = ExecComDlg("Table of Points to Save", "csv", eFileMode::Out, gCurDir);
    if (Path.empty()) return;
    WholeFile New(Path);
    New.Append(Digit.All().Table());
    if (!New.Commit())
        FileFailed(CantWrite, Path, TitleError, New.Failure());
    else
        UpdateStatus("Written: " + Path);
}

void fVidDigit::SaveData()
{
    if (gCurFile.empty()) return MsgBox("Points are kept with a session: open one first.", TitleWarning);
    if (Digit.SaveData()) UpdateStatus("Saved: " + gCurFile);
    ShowAll();
}

void fVidDigit::TakeAngles()
{
    Digit.SaveFrame();
    const auto Courses = AngleCourses(Digit.All(), [this](int Frame) { return Owner->Video.TimeOf(Frame); });
    if (!Owner || Courses.empty()) return MsgBox("No frame has an angle yet.", TitleInformation);
    const std::string Proposed = CurrentSample().empty() ? Digit.Video().SampleID : CurrentSample();
    const std::string Sample = InputBox("Sample that takes the angles:", "Angles of the video", Proposed);
    if (Sample.empty()) return;
    const int Desc = FindDesc(gFile, Sample, DescKey::TestID);
    if (Desc < 1) return MsgBox("There is no sample " + Sample + " in the session.", TitleWarning);
    const int Likely = StrokesIn(Courses[0], gFile.Desc[Desc].Rate);
    const std::string Strokes = InputBox(
        "Whole strokes from the first frame with angles to the last:", "Angles of the video", FormatNum(Likely, "0"));
    if (Strokes.empty()) return;
    if (StoreAngles(Courses, Desc, RoundWithin(Val(Strokes), 0, 1000)))
        UpdateStatus("The angles are curves of the sample " + Sample + " now");
}
