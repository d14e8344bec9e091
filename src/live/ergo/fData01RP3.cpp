// Layout, labels and link of the ergometer panel.
#include "live/ergo/fData01RP3.h"

#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "ergometer/cMonitorLink.h"
#include "files/mRawLog.h"
#include "platform/qt/qText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace {
constexpr int TimerInterval = 40;      // ms
constexpr double MonitorShare = 0.042; // of the panel's height
constexpr double StateShare = 0.024;
constexpr double ShareByWidth = 0.7; // letters are no higher than this part of their share of the panel's width

constexpr ReadoutShape Shapes[] = {{"lbData_0", "lbLabs_0", "Time (s)", 4},
                                   {"lbData_2", "lbLabs_2", "Stroke rate", 3},
                                   {"lbData_3", "lbLabs_3", "Strokes", 3},
                                   {"lbPower", "lbPower_caption", "Power (W)", 3}};

enum eFigure : std::size_t
{
    Length,
    Work,
    Drive,
    Recovery,
    MaxForce,
    AverForce,
    MaxForceT,
    Catch,
    Style,
    SeatTravel,
    HandleV,
    SeatV
};
constexpr FigureShape FigureShapes[] = {
    {"lbStrokeLength", "Stroke length (m)", "Handle travel of the last drive"},
    {"lbWork", "Work (J)", "Work of the last drive"},
    {"lbDrive", "Drive time (s)", "From the catch to the finish"},
    {"lbRecov", "Recovery (s)", "The rest of the stroke"},
    {"lbMaxForce", "Peak force (N)", "Highest force of the last drive"},
    {"lbAverForce", "Average force (N)", "Work through stroke length"},
    {"lbMaxForceT", "Time to peak (s)", "From the catch to the highest force"},
    {"lbCatch", "Catch Factor (ms)", "The seat's turn at the catch against the handle's: below 0 the seat turns first"},
    {"lbRSF", "Style Factor (%)", "Rowing Style Factor: share of the seat in the first part of the drive"},
    {"lbSeatTravel", "Seat travel (m)", "Travel of the seat behind its turn at the catch"},
    {"lbMaxHandleVel", "Max. handle (m/s)", "Highest speed of the handle"},
    {"lbMaxSeatVel", "Max. seat (m/s)", "Highest speed of the seat"},
};

// Captions in Russian, by the names of their labels; units as they stand there.
constexpr std::pair<const char*, const char*> RussianCaptions[] = {
    {"lbLabs_0", "Время (с)"},
    {"lbLabs_2", "Темп"},
    {"lbLabs_3", "Гребки"},
    {"lbPower_caption", "Мощность (Вт)"},
    {"lbStrokeLength_caption", "Длина гребка (м)"},
    {"lbWork_caption", "Работа (Дж)"},
    {"lbDrive_caption", "Проводка (с)"},
    {"lbRecov_caption", "Подготовка (с)"},
    {"lbMaxForce_caption", "Макс. усилие (Н)"},
    {"lbAverForce_caption", "Сред. усилие (Н)"},
    {"lbMaxForceT_caption", "До максимума (с)"},
    {"lbCatch_caption", "Ф. захвата (мс)"},
    {"lbRSF_caption", "Ф. стиля (%)"},
    {"lbSeatTravel_caption", "Ход банки (м)"},
    {"lbMaxHandleVel_caption", "Рукоятка, макс. (м/с)"},
    {"lbMaxSeatVel_caption", "Банка, макс. (м/с)"},
    {"lbPMI", "Монитор"},
};

// A whole stroke as the comparison with the monitor has it.
PMStroke Compared(const ErgStroke& Stroke)
{
    return {.StrokeN = Stroke.StrokeCnt,
            .Rate = Stroke.Rate,
            .Drive = Stroke.DriveTime,
            .Recov = Stroke.RecovTime,
            .Length = Stroke.Length,
            .Power = Stroke.Power,
            .PeakForce = Stroke.MaxForce,
            .Impulse = Stroke.Impulse,
            .AverForce = Stroke.MeanForce(),
            .Work = Stroke.Work,
            .MaxForceT = Stroke.MaxForceT};
}
} // namespace

fData01RP3::fData01RP3()
    : fPanel("fData01RP3", "Skarvo Erg data", SourceFrames), Readouts(new fReadouts(Body, Shapes, 0.1, 0.026)),
      Picture1(new qSurface(Body)), Figures(new fFigures(Body, FigureShapes, 2)), Panel(*Picture1),
      Link("The ergometer panel", MSComm1, Wireless)
{
    Picture1->setObjectName("Picture1");
    auto* Middle = new QHBoxLayout;
    Middle->addWidget(Picture1, 3);
    Middle->addWidget(Figures, 2);
    auto* Layout = new QVBoxLayout(Body);
    Layout->setContentsMargins(6, 2, 6, 4);
    Layout->setSpacing(3);
    Layout->addWidget(Readouts);
    Layout->addLayout(BuildMonitor());
    Layout->addLayout(Middle, 1);
    Layout->addLayout(BuildBottom());
    AddReadouts(*Readouts);
    AddFading(*Picture1);
    for (std::size_t i = 0; i < Figures->Count(); ++i)
        AddFading(Figures->Value(i));
    Picture1->SetBackground(gBackground);
    InitLabels();
    Panel.Load();
    cErg::InitMode();
    Picture1->OnResize = [this] { Panel.Resize(); };
    Begin();
    Link.Open();
    gMonitorLink.Attach();
    if (!gMonitorLink.Snapshot().IsPolling) gMonitorLink.SetPolling(true); // looks for one that is not there
    connect(&Timer1, &QTimer::timeout, this, [this] {
        Link.Tick();
        ShowState();
    });
    Timer1.start(TimerInterval);
    ShowState();
}

fData01RP3::~fData01RP3()
{
    gMonitorLink.Detach();
}

void fData01RP3::TakeSample()
{
    Panel.TakeSample();
    if (Panel.Newest().Stroke && Panel.Stroke().IsWhole)
        PMLog.AddStroke(Compared(Panel.Stroke()), gMonitorLink.Snapshot(), cMonitorLink::Now());
}

void fData01RP3::InitLabels()
{
    if (gLanguage != LanguageRussian) return;
    for (const auto& [Name, Caption] : RussianCaptions)
        Body->findChild<QLabel*>(Name)->setText(Caption);
}

QLabel* fData01RP3::AddLabel(const char* Name)
{
    auto* Label = new QLabel(Body);
    Label->setObjectName(Name);
    return Label;
}

// Its keys are those of the panel, unless somebody has come to it with Tab.
QPushButton* fData01RP3::AddButton(const char* Name, const char* Tip)
{
    auto* Button = new QPushButton(Body);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    Button->setFocusPolicy(Qt::TabFocus);
    return Button;
}

QLayout* fData01RP3::BuildMonitor()
{
    lbPMI = AddLabel("lbPMI");
    lbPMI->setText("Monitor");
    txtPMI = new QLineEdit(Body);
    txtPMI->setObjectName("txtPMI");
    txtPMI->setReadOnly(true);
    txtPMI->setFocusPolicy(Qt::NoFocus);
    txtPMI->setToolTip("Pace for 500 m, stroke rate, power and stroke state of the performance monitor");
    auto* Row = new QHBoxLayout;
    Row->addWidget(lbPMI);
    Row->addWidget(txtPMI, 1);
    return Row;
}

QLayout* fData01RP3::BuildBottom()
{
    lbPrompt = AddLabel("lbPrompt");
    lbLink = AddLabel("lbLink");
    lbLink->setWordWrap(true);
    lbLink->setAlignment(Qt::AlignCenter);
    cmdDamp = AddButton("cmdDamp", "Opens or closes the dump file of this panel; nothing is written to it");
    cmdLog = AddButton("cmdLog", "Opens or closes the files that compare this panel's strokes with the monitor's");
    connect(cmdLog, &QPushButton::clicked, this, [this] { ToggleLog(); });
    connect(cmdDamp, &QPushButton::clicked, this, [this] {
        Damp.Toggle();
        ShowState();
    });
    auto* Row = new QHBoxLayout;
    Row->addWidget(lbPrompt);
    Row->addWidget(lbLink, 1);
    Row->addWidget(cmdDamp);
    Row->addWidget(cmdLog);
    return Row;
}

void fData01RP3::ToggleLog()
{
    if (PMLog.IsOpen())
        PMLog.Stop(gMonitorLink.Snapshot(), cMonitorLink::Now());
    else
        PMLog.PMStartLog();
    ShowState();
}

void fData01RP3::FitLabels(QSize Size)
{
    Figures->Fit(Size);
    const auto SetPixels = [&](QWidget& Part, double Share) {
        QFont Letters = Part.font();
        const double Height = std::min(Size.height() * Share, Size.width() * Share * ShareByWidth);
        Letters.setPixelSize(std::max(11, static_cast<int>(Height)));
        Part.setFont(Letters);
    };
    SetPixels(*lbPMI, MonitorShare);
    SetPixels(*txtPMI, MonitorShare);
    SetPixels(*lbPrompt, StateShare);
    SetPixels(*lbLink, StateShare);
}

ePanelWish fData01RP3::KeyWish(int Key) const
{
    const bool IsEnter = Key == Qt::Key_Return || Key == Qt::Key_Enter;
    if (IsEnter) return gLogging ? ePanelWish::None : ePanelWish::StartLog;
    return fPanel::KeyWish(Key);
}

void fData01RP3::ShowLabels()
{
    Readouts->SetText(0, Panel.TimeText());
    Readouts->SetText(2, FormatNum(Panel.Stroke().StrokeCnt, "000"));
    ShowStroke();
    ShowTiming();
}

// A stroke that was not rowed whole has no figures; without a force channel there are none of forces.
void fData01RP3::ShowStroke()
{
    const auto& Stroke = Panel.WholeStroke();
    const auto Text = [&](double Value, const char* Format, bool Has = true) {
        return Stroke && Has ? FormatNum(Value, Format) : "";
    };
    const ErgStroke Last = Stroke.value_or(ErgStroke{});
    const bool HasForce = Panel.HasForce();
    Readouts->SetText(1, FormatNum(Last.Rate, "00.0"));
    Readouts->SetText(3, Text(Last.Power, "0", HasForce));
    Figures->SetText(Length, Text(Last.Length, "0.00"));
    Figures->SetText(Drive, Text(Last.DriveTime, "0.00"));
    Figures->SetText(Recovery, Text(Last.RecovTime, "0.00"));
    Figures->SetText(MaxForce, Text(Last.MaxForce, "0", HasForce));
    Figures->SetText(MaxForceT, Text(Last.MaxForceT, "0.00", HasForce));
    Figures->SetText(AverForce, Text(Last.MeanForce(), "0", HasForce));
    Figures->SetText(Work, Text(Last.Work, "0", HasForce));
}

void fData01RP3::ShowTiming()
{
    const auto& Factor = Panel.CatchFactor();
    Figures->SetText(Catch, Factor ? FormatNum(*Factor, "0") : "");
    const auto& StyleFactor = Panel.HandleTiming().StyleFactor();
    Figures->SetText(Style, StyleFactor ? FormatNum(StyleFactor->Last, "0.0") : "");
    const CatchStroke& Stroke = Panel.HandleTiming().Stroke();
    const auto Text = [&](double Value) { return Stroke.StrokeN > 0 ? FormatNum(Value, "0.00") : ""; };
    Figures->SetText(SeatTravel, Text(Stroke.SeatTravel));
    Figures->SetText(HandleV, Text(Stroke.MaxHandleV));
    Figures->SetText(SeatV, Text(Stroke.MaxSeatV));
}

void fData01RP3::ShowState()
{
    lbPrompt->setText(gLogging ? "Press ESC to finish sampling" : "Press ENTER to start data sampling");
    lbLink->setText(Shown(Link.Words()));
    cmdDamp->setText(Damp.IsOpen() ? "Stop Damp" : "Start Damp");
    cmdLog->setText(PMLog.IsOpen() ? "Stop Log" : "Start Log");
    ShowMonitor();
}

void fData01RP3::ShowMonitor()
{
    const PMSnapshot Monitor = gMonitorLink.Snapshot();
    const int64_t Now = cMonitorLink::Now();
    PMLog.Look(Monitor, Now);
    const QString Text = Shown(Monitor.FiguresText(Now));
    if (txtPMI->text() != Text) txtPMI->setText(Text);
}

void fData01RP3::LoadSession()
{
    Panel.Load();
    Panel.Resize();
}

void fData01RP3::Closing()
{
    Timer1.stop();
    if (PMLog.IsOpen()) PMLog.Stop(gMonitorLink.Snapshot(), cMonitorLink::Now());
    Link.Close();
    cErg::Unload();
}
