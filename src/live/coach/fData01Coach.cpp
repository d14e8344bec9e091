// Controls, modes and recording of the coach's panel.
#include "live/coach/fData01Coach.h"

#include "acquisition/mSampling.h"
#include "base/mNumText.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "live/coach/fCoachTable.h"
#include "live/panel/cData01real.h"
#include "platform/qt/qText.h"
#include "widgets/qMnemonics.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <utility>

namespace {
constexpr ReadoutShape Shapes[] = {{"lbData_0", "lbLabs_0", "Time (s)", 4},
                                   {"lbData_1", "lbLabs_1", "Strokes", 3},
                                   {"lbData_2", "lbLabs_2", "Rate this stroke", 4},
                                   {"lbData_3", "lbLabs_3", "Rate average", 4}};
constexpr int FirstOfClock = 1; // of the readouts, the first that comes with the clock's strokes

constexpr double ValueShare = 0.085; // of the panel's height
constexpr double CaptionShare = 0.026;
constexpr int WatchMs = 250;

constexpr const char* StartCaption = "St&art logging (Space)";
constexpr const char* StopCaption = "St&op logging (Space)";
} // namespace

fData01Coach::fData01Coach()
    : fPanel("fData01Coach", "Coach's panel", SourceFrames),
      Readouts(new fReadouts(Body, Shapes, ValueShare, CaptionShare)), Table(new fCoachTable(Body))
{
    LoadSetting("mDisplayMode");
    LoadSetting("mScullMode");
    auto* Layout = new QVBoxLayout(Body);
    Layout->setContentsMargins(6, 2, 6, 6);
    Layout->setSpacing(4);
    Layout->addWidget(Readouts);
    Layout->addWidget(Table, 1);
    Layout->addWidget(BuildBar());
    AddReadouts(*Readouts);
    Readouts->setToolTip(
        "F11 fills the screen and comes back, Space starts and ends a recording, Esc closes the panel");
    AddFading(*Table);
    Panel.Load();
    cCoach::InitMode();
    TakeMnemonics(*this);
    connect(&Watch, &QTimer::timeout, this, [this] { ShowLogging(); });
    Watch.start(WatchMs);
    Begin();
}

QWidget* fData01Coach::BuildBar()
{
    auto* Strip = new QWidget(Body);
    Bar = new QGridLayout(Strip);
    Bar->setContentsMargins(0, 0, 0, 0);
    Frame1 = BuildChoice("Frame1", "Display", opDisplay, {"The latest stroke", "Average"});
    frScull = BuildChoice("frScull", "Sculling", opScull, {"Right + Left", "Separate"});
    for (int16_t i = 0; i < 2; ++i) {
        const auto Number = static_cast<std::size_t>(i);
        opDisplay[Number]->setObjectName(QString("opDisplay_%1").arg(i));
        opDisplay[Number]->setChecked((mDisplayMode == DisplayAverage) == (i == DisplayAverage));
        connect(opDisplay[Number], &QRadioButton::clicked, this, [this, i] {
            Panel.SetDisplayMode(mDisplayMode = i);
            ShowLabels();
        });
        opScull[Number]->setObjectName(QString("opScull_%1").arg(i));
        opScull[Number]->setChecked((mScullMode == ScullSeparate) == (i == ScullSeparate));
        connect(opScull[Number], &QRadioButton::clicked, this, [this, i] {
            Panel.SetScullMode(mScullMode = i);
            SaveSetting("mScullMode");
            ShowLabels();
        });
    }
    Bar->addWidget(Frame1, 0, 0);
    Bar->addWidget(frScull, 0, 1);
    Bar->addWidget(TargetBox = BuildTargets(), 0, 2);
    Bar->addWidget(Commands = BuildCommands(), 0, 3);
    Bar->setColumnStretch(2, 1);
    return Strip;
}

QGroupBox* fData01Coach::BuildChoice(const char* Name, const char* Caption, std::array<QRadioButton*, 2>& Buttons,
                                     const std::array<const char*, 2>& Captions)
{
    auto* Box = new QGroupBox(Caption, Body);
    Box->setObjectName(Name);
    auto* Column = new QVBoxLayout(Box);
    Column->setContentsMargins(8, 2, 8, 2);
    Column->setSpacing(2);
    for (std::size_t i = 0; i < Buttons.size(); ++i) {
        Column->addWidget(Buttons[i] = new QRadioButton(Captions[i], Box));
        Buttons[i]->installEventFilter(this);
    }
    return Box;
}

// The group of the targets, and what the marks mean.
QWidget* fData01Coach::BuildTargets()
{
    auto* Box = new QWidget(Body);
    auto* Column = new QVBoxLayout(Box);
    Column->setContentsMargins(8, 0, 8, 0);
    auto* Top = new QHBoxLayout;
    auto* Caption = new QLabel("Targets for:", Box);
    Caption->setObjectName("Label1");
    lbTargGroup = new QLabel(Box);
    lbTargGroup->setObjectName("lbTargGroup");
    lbTargGroup->setStyleSheet("font-weight: bold");
    Top->addWidget(Caption);
    Top->addWidget(lbTargGroup, 1);
    Column->addLayout(Top);
    Legend = new QWidget(Box);
    auto* Row = new QHBoxLayout(Legend);
    Row->setContentsMargins(0, 0, 0, 0);
    constexpr std::pair<eVerdict, const char*> Marks[] = {
        {eVerdict::Green, "reached"}, {eVerdict::Blue, "within 3 %"}, {eVerdict::Red, "below"}};
    for (const auto& [Verdict, Words] : Marks) {
        auto* Mark = new fCoachCell(Legend);
        Mark->SetPixels(Body->fontInfo().pixelSize());
        Mark->Put({.HasValue = true, .Verdict = Verdict}, Words);
        Row->addWidget(Mark);
    }
    Row->addStretch(1);
    Column->addWidget(Legend);
    return Box;
}

QWidget* fData01Coach::BuildCommands()
{
    auto* Box = new QWidget(Body);
    auto* Column = new QVBoxLayout(Box);
    Column->setContentsMargins(0, 0, 0, 0);
    Column->addWidget(cmdStart = AddCommand("cmdStart", StartCaption));
    QPushButton* cmdExit = AddCommand("cmdExit", "Exit (ESC)");
    Column->addWidget(cmdExit);
    connect(cmdStart, &QPushButton::clicked, this, [this] {
        LogPressed();
        ShowLogging();
    });
    connect(cmdExit, &QPushButton::clicked, this, [this] { Obey(ePanelWish::Close); });
    return Box;
}

QPushButton* fData01Coach::AddCommand(const char* Name, const char* Caption)
{
    auto* Button = new QPushButton(Caption, Body);
    Button->setObjectName(Name);
    Button->setAutoDefault(false);
    Button->installEventFilter(this);
    return Button;
}

void fData01Coach::ShowTable()
{
    lbTargGroup->setText(Shown(Panel.TargetGroup()));
    frScull->setVisible(Panel.IsScull());
    Legend->setVisible(Panel.ColumnCount() > 0);
    // The targets go below the rest where there is no room beside it.
    const int Aside = Panel.IsScull() ? frScull->minimumSizeHint().width() + Bar->horizontalSpacing() : 0;
    Bar->parentWidget()->setMinimumWidth(Frame1->minimumSizeHint().width() + Aside + 2 * Bar->horizontalSpacing() +
                                         Commands->minimumSizeHint().width());
    Table->Build(Panel);
    TableNumber = Panel.TableNumber();
}

void fData01Coach::ShowLogging()
{
    const QString Caption = gLogging ? StopCaption : StartCaption;
    if (cmdStart->text() != Caption) cmdStart->setText(Caption);
}

void fData01Coach::ShowLabels()
{
    const cCoachClock& Clock = Panel.Clock();
    Readouts->SetText(0, FormatNum(Clock.Elapsed(), "00.0"));
    Readouts->SetText(1, FormatNum(Clock.StrokeN(), "0"));
    Readouts->SetText(2, FormatNum(Clock.RateNow(), "00.0"));
    Readouts->SetText(3, FormatNum(Clock.RateAver(), "00.0"));
    const bool IsCurrent = Readouts->Value(0).isEnabled() && !Panel.IsClockStale();
    for (std::size_t i = FirstOfClock; i < Readouts->Count(); ++i)
        Readouts->Value(i).setEnabled(IsCurrent);
    if (TableNumber != Panel.TableNumber()) ShowTable();
    Table->ShowValues(Panel);
    ShowLogging();
}

// Where there is little room, as beside two other panels, the targets stand below the choices.
void fData01Coach::FitLabels(QSize Size)
{
    constexpr int LettersAside = 100; // of text that the whole bar holds side by side
    const bool WasNarrow =
        std::exchange(IsNarrow, Size.width() < LettersAside * Body->fontMetrics().averageCharWidth());
    if (IsNarrow == WasNarrow) return;
    if (IsNarrow)
        Bar->addWidget(TargetBox, 1, 0, 1, -1);
    else
        Bar->addWidget(TargetBox, 0, 2);
}

ePanelWish fData01Coach::KeyWish(int Key) const
{
    return Key == Qt::Key_Space ? cPanelFrame::PressLog() : fPanel::KeyWish(Key);
}

// The session holds the number of the recorded sample, and what the panel has zeroed.
void fData01Coach::Closing()
{
    SaveSetting("mDisplayMode");
    cCoach::Unload();
    if (!gLogging) return;
    StopAll();
    if (!gCurFile.empty()) WriteSession();
}

// Space starts and ends a recording wherever the keyboard is; the controls are used by other keys.
bool fData01Coach::eventFilter(QObject* Watched, QEvent* Event)
{
    const bool IsKey = Event->type() == QEvent::KeyPress && Watched != Body;
    if (IsKey && static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Space) {
        keyPressEvent(static_cast<QKeyEvent*>(Event));
        return true;
    }
    return fPanel::eventFilter(Watched, Event);
}
