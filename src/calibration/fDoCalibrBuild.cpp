// The controls of the calibration workbench.
#include "calibration/fDoCalibr.h"
#include "calibration/mChanGrid.h"
#include "platform/qt/qText.h"
#include "widgets/qMnemonics.h"
#include "widgets/qWorkArea.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {
struct CommandShape
{
    const char* Caption;
    const char* Tip;
};

constexpr CommandShape CommandShapes[] = {
    {"St&art Data   ( \"a\")", "Begins to take frames for the channel (Enter while the link is closed)"},
    {"St&op Data", "Ends the taking and closes the link (o, Escape)"},
    {"&Put Point (Space)", "Takes the present count with the physical value as a point (Enter)"},
    {"&Save", "Saves the points in a file of their own and the calibration in the session; s saves the session alone"},
    {"E&xit", "Closes the window; points that are not saved are lost"},
    {"Store...", "Saves the points in a file"},
    {"Load...", "Takes the points from a file"},
    {"Analysis", "Computes the curves of the use chosen under \"Apply\""},
    {"Set as Auto-Calibr", "Makes this channel with Q0 and Q1 the calibrator of automatic calibration"},
    {"Save Ref.Table", "Makes a reference table from Min to Max; points outside are dropped"},
    {"Find Limits", "Takes Min and Max from the points, 4 units within them"},
    {"&Delete data", "Deletes all points (d)"},
    {"&Undo", "Brings back the points that were deleted, dropped or replaced last"},
};

} // namespace

fDoCalibr::fDoCalibr()
    : qDataWindow("fDoCalibr", "Calibration Process"), CalGr(new qSurface(this)), Graph(*CalGr, Calibr),
      State(new QLabel(this)), Apply(new QButtonGroup(this))
{
    Tag.clear();
    setProperty(AsksToClose, true);
    CalGr->setObjectName("CalGr");
    CalGr->setMouseTracking(true);
    CalGr->installEventFilter(this);
    CalGr->OnResize = [this] { Graph.Draw(); };
    State->setObjectName("lbState");
    State->setStyleSheet("font-weight: bold; padding: 2px 4px");
    auto* Controls = new QHBoxLayout;
    Controls->setSpacing(16);
    Controls->addWidget(Texts = new fCalTexts(this, Calibr), 1);
    Controls->addLayout(BuildButtons());
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(6, 6, 6, 6);
    Layout->addWidget(CalGr, 1);
    Layout->addWidget(State);
    Layout->addLayout(BuildChoices());
    Layout->addLayout(Controls);
    QLineEdit& Chan = Texts->Box(BoxChan);
    Chan.setToolTip(Chan.toolTip() + ":\n" + Shown(ChanList()));
    TakeMnemonics(*this);
    setFocusProxy(&Chan);
    connect(&Look, &QTimer::timeout, this, [this] { ShowTexts(); });
    constexpr int LookMs = 250;
    Look.start(LookMs);
    ShowTexts();
}

QLayout* fDoCalibr::BuildChoices()
{
    constexpr struct
    {
        const char* Caption;
        const char* Tip;
    } Shapes[] = {{"A&utomatic", "Physical values come from the calibrator channel"},
                  {"X is Logical", "Counts along the bottom of the graph"},
                  {"Auto Axes", "Axes by the points, otherwise by the channel's Min and Max"},
                  {"Torque", "In automatic calibration the calibrator is multiplied by the lever"}};
    auto* Layout = new QHBoxLayout;
    Layout->setSpacing(10);
    for (std::size_t i = 0; i < Flags.size(); ++i) {
        const auto Number = static_cast<eCalFlag>(i);
        Flags[i] = new QCheckBox(Shapes[i].Caption, this);
        Flags[i]->setObjectName(QString("chArr_%1").arg(i));
        Flags[i]->setToolTip(Shapes[i].Tip);
        Flags[i]->setFocusPolicy(Qt::TabFocus);
        Flags[i]->setChecked(Calibr.Flag(Number));
        connect(Flags[i], &QCheckBox::toggled, this, [this, Number](bool On) {
            Calibr.SetFlag(Number, On);
            DrawAnew();
        });
        Layout->addWidget(Flags[i]);
    }
    Layout->addStretch();
    Layout->addWidget(BuildApply());
    return Layout;
}

QWidget* fDoCalibr::BuildApply()
{
    constexpr const char* Captions[] = {"Linear", "Square one line", "Square two lines", "Absolute", "Ref.Table"};
    auto* Frame = new QWidget(this);
    Frame->setObjectName("Frame1");
    auto* Layout = new QHBoxLayout(Frame);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->setSpacing(10);
    Layout->addWidget(new QLabel("Apply:", Frame));
    for (int i = 0; i < 5; ++i) {
        auto* Button = new QRadioButton(Captions[i], Frame);
        Button->setObjectName(QString("opApply_%1").arg(i));
        Button->setFocusPolicy(Qt::TabFocus);
        Button->setChecked(i == Calibr.Approx());
        Apply->addButton(Button, i);
        Layout->addWidget(Button);
    }
    connect(Apply, &QButtonGroup::idClicked, this, [this](int Index) {
        Calibr.SetApprox(static_cast<eApprox>(Index));
        DrawAnew();
    });
    return Frame;
}

QLayout* fDoCalibr::BuildButtons()
{
    constexpr int Rows = 7;
    auto* Grid = new QGridLayout;
    Grid->setVerticalSpacing(3);
    for (int i = 0; i < CommandCnt; ++i) {
        auto* Button = new QPushButton(CommandShapes[i].Caption, this);
        Button->setObjectName(i == cmdUndo ? QString("cmdUndo") : QString("cmdArr_%1").arg(i));
        Button->setToolTip(CommandShapes[i].Tip);
        Button->setFocusPolicy(Qt::TabFocus);
        Button->installEventFilter(this);
        connect(Button, &QPushButton::clicked, this, [this, i] { Obey(i); });
        Buttons[static_cast<std::size_t>(i)] = Button;
        Grid->addWidget(Button, i % Rows, i / Rows);
    }
    Grid->setRowStretch(Rows, 1);
    return Grid;
}
