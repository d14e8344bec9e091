// Buttons, figures and text boxes of the performance monitor's window.
#include "ergometer/fPMI.h"

#include "base/mNumText.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qPlace.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr const char* Section = "fPMI";
constexpr const char* StartCaption = "Start Polling";
constexpr const char* StopCaption = "Stop Polling";

// A figure shown large: object name, caption and its text.
struct Figure
{
    const char* Name;
    const char* Caption;
    const char* Longest; // it has room for this
    std::string (*Text)(const PMFigures& From);
};

constexpr Figure Shapes[] = {
    {"lbPace", "Pace / 500 m", "00:00.0", [](const PMFigures& From) { return From.Pace500Text(); }},
    {"lbCadence", "Rate", "000", [](const PMFigures& From) { return FormatNum(From.Cadence, "0"); }},
    {"lbPower", "Power (W)", "0000", [](const PMFigures& From) { return FormatNum(From.Power, "0"); }},
    {"lbWorkTime", "Time", "0:00:00.00", [](const PMFigures& From) { return From.WorkTimeText(); }},
    {"lbWorkDist", "Distance (m)", "00000.0", [](const PMFigures& From) { return From.WorkDistText(); }},
    {"lbDriveCount", "Strokes", "0000", [](const PMFigures& From) { return FormatNum(From.DriveCount, "0"); }},
    {"lbStrokeState", "State", "recovery", [](const PMFigures& From) { return StrokeStateName(From.StrokeState); }},
};

constexpr const char* Columns = "Pace, Rate, Power, State, Time, Distance, Stroke distance, Drive, Recovery, Length, "
                                "Strokes";

void SetText(QLabel& Label, const std::string& Text)
{
    if (const QString New = Shown(Text); Label.text() != New) Label.setText(New);
}

// A line of what a unit says of itself, with what it does not say left out.
std::string UnitText(const PMUnitInfo& Unit)
{
    std::string Text = Unit.Product;
    const std::pair<const char*, const std::string*> Parts[] = {
        {"serial number ", &Unit.PMSerial}, {"hardware ", &Unit.PMHWVersion}, {"firmware ", &Unit.PMFWVersion}};
    for (const auto& [Name, Value] : Parts)
        if (!Value->empty()) Text += ", " + std::string(Name) + *Value;
    return Text;
}
} // namespace

fPMI::fPMI()
    : Command1(AddButton("Command1", "Discover", "Looks for a performance monitor on USB and opens it")),
      Command2(AddButton("Command2", StartCaption, "Asks the monitor for its figures 50 times a second, or ends that")),
      Command3(AddButton("Command3", "Shutdown", "Closes the link to the monitor")), lbUnit(AddLabel("lbUnit")),
      lbState(AddLabel("lbState")), lbReport(AddLabel("lbReport"))
{
    setObjectName("fPMI");
    setWindowTitle("Form1");
    setAttribute(Qt::WA_DeleteOnClose);
    lbState->setStyleSheet("font-weight: bold");
    for (QLabel* Label : {lbUnit, lbState, lbReport})
        Label->setWordWrap(true);
    auto* Layout = new QVBoxLayout(this);
    Layout->addLayout(BuildCommands());
    Layout->addWidget(lbState);
    Layout->addWidget(lbReport);
    Layout->addLayout(BuildFigures());
    Layout->addLayout(BuildBox(0, "At each change of the stroke's state"), 1);
    Layout->addLayout(BuildBox(1, "At each change of the stroke's figures"), 1);
    setFocusProxy(Command1);
    gMonitorLink.Attach();
    gMonitorLink.KeepNews(true);
    connect(Command1, &QPushButton::clicked, this, [this] {
        lbReport->clear();
        gMonitorLink.Discover();
    });
    connect(Command2, &QPushButton::clicked, this, [] { gMonitorLink.SetPolling(!gMonitorLink.Snapshot().IsPolling); });
    connect(Command3, &QPushButton::clicked, this, [] { gMonitorLink.Shutdown(); });
    connect(&Timer1, &QTimer::timeout, this, [this] { ShowNews(); });
    Timer1.start(PollMs);
    ShowNews();
}

fPMI::~fPMI()
{
    gMonitorLink.KeepNews(false);
    gMonitorLink.Detach();
}

QLabel* fPMI::AddLabel(const char* Name)
{
    auto* Label = new QLabel(this);
    Label->setObjectName(Name);
    return Label;
}

QPushButton* fPMI::AddButton(const char* Name, const char* Caption, const char* Tip)
{
    auto* Button = new QPushButton(Caption, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    return Button;
}

QLayout* fPMI::BuildCommands()
{
    auto* Layout = new QHBoxLayout;
    for (QPushButton* Button : {Command1, Command2, Command3})
        Layout->addWidget(Button);
    Layout->addSpacing(12);
    Layout->addWidget(lbUnit, 1);
    return Layout;
}

QLayout* fPMI::BuildFigures()
{
    auto* Grid = new QGridLayout;
    Grid->setHorizontalSpacing(16);
    for (int i = 0; i < Figures; ++i) {
        const Figure& Shape = Shapes[i];
        auto* Value = AddLabel(Shape.Name);
        QFont Letters = Value->font();
        Letters.setPointSizeF(Letters.pointSizeF() * 1.7);
        Letters.setBold(true);
        Value->setFont(Letters);
        const QFontMetrics Metrics(Letters);
        Value->setMinimumSize(Metrics.horizontalAdvance(Shape.Longest) + 2, Metrics.height());
        auto* Caption = new QLabel(Shape.Caption, this);
        Caption->setBuddy(Value);
        Grid->addWidget(Caption, 0, i, Qt::AlignLeft);
        Grid->addWidget(Value, 1, i, Qt::AlignLeft);
        Grid->setColumnStretch(i, 1);
        lbFigures[static_cast<std::size_t>(i)] = Value;
    }
    return Grid;
}

QLayout* fPMI::BuildBox(int Number, const char* Caption)
{
    auto* Box = new QPlainTextEdit(this);
    Box->setObjectName(QString("Text%1").arg(Number + 1));
    Box->setReadOnly(true);
    Box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    Box->setToolTip(Columns);
    auto* Label = new QLabel(QString("%1: %2").arg(Caption, Columns), this);
    Label->setWordWrap(true);
    Label->setBuddy(Box);
    auto* Layout = new QVBoxLayout;
    Layout->setSpacing(2);
    Layout->addWidget(Label);
    Layout->addWidget(Box, 1);
    Texts[static_cast<std::size_t>(Number)] = Box;
    return Layout;
}

void fPMI::ShowNews()
{
    const PMNews News = gMonitorLink.Take();
    for (const PMLine& Line : News.Lines)
        for (int Box = 1; Box <= Boxes; ++Box)
            if (Line.Box == 0 || Line.Box == Box)
                Texts[static_cast<std::size_t>(Box - 1)]->appendPlainText(Shown(Line.Text));
    for (const std::string& Report : News.Reports)
        UpdateStatus(Report);
    if (!News.Reports.empty()) SetText(*lbReport, News.Reports.back());
    ShowState(gMonitorLink.Snapshot(), cMonitorLink::Now());
}

void fPMI::ShowState(const PMSnapshot& Monitor, int64_t Now)
{
    SetText(*lbState, Monitor.Text(Now));
    SetText(*lbUnit, UnitText(Monitor.Unit));
    const QString Caption = Monitor.IsPolling ? StopCaption : StartCaption;
    if (Command2->text() != Caption) Command2->setText(Caption);
    Command2->setEnabled(Monitor.IsPolling || Monitor.State == ePMState::Open);
    ShowFigures(Monitor, Monitor.IsConnected(Now));
}

void fPMI::ShowFigures(const PMSnapshot& Monitor, bool IsConnected)
{
    for (std::size_t i = 0; i < lbFigures.size(); ++i) {
        lbFigures[i]->setEnabled(IsConnected);
        if (Monitor.Figures) SetText(*lbFigures[i], Shapes[i].Text(*Monitor.Figures));
    }
}

void fPMI::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape)
        (parentWidget() ? parentWidget() : this)->close();
    else
        QWidget::keyPressEvent(Event);
}

void fPMI::closeEvent(QCloseEvent* Event)
{
    KeepPlace(*this, Section);
    QWidget::closeEvent(Event);
}
