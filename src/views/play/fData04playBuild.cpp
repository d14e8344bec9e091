// The controls of the play window.
#include "platform/qt/qSurface.h"
#include "views/play/fData04play.h"
#include "widgets/qDecimal.h"
#include "widgets/qFlowLayout.h"
#include "widgets/qMnemonics.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

namespace {
constexpr int SliderMax = 10000;
constexpr double CorrStep = 0.01; // s, of a click on cmdCorr
// A control behind its caption, which stays with it when a line is full.
QWidget* Captioned(const char* Caption, QWidget* Control)
{
    auto* Box = new QWidget;
    auto* Row = new QHBoxLayout(Box);
    Row->setContentsMargins(8, 0, 0, 0);
    auto* Label = new QLabel(Caption, Box);
    Label->setBuddy(Control);
    Row->addWidget(Label);
    Row->addWidget(Control);
    return Box;
}
} // namespace

fData04play::fData04play()
    : cDataWindow(ViewTag), Clock([this] { GoCurTime(); }), Session([this](eNotice What) {
          if (What == eNotice::SessionSaved) Renew();
      }),
      picPlay(new qSurface(this)), lbNotes(new QLabel(this))
{
    setObjectName("fData04play");
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::StrongFocus);
    picPlay->setObjectName("picPlay");
    picPlay->OnResize = [this] { DrawAll(); };
    lbNotes->setObjectName("lbNotes");
    lbNotes->setWordWrap(true);
    lbNotes->setTextFormat(Qt::PlainText);
    lbNotes->setContentsMargins(4, 0, 4, 0);
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(6, 6, 6, 6);
    Layout->setSpacing(4);
    Layout->addWidget(picPlay, 1);
    Layout->addLayout(BuildClock());
    Layout->addLayout(BuildOptions());
    Layout->addWidget(lbNotes);
    for (QWidget* Each : std::initializer_list<QWidget*>{picPlay, Slider1, cmdPlay[0], cmdPlay[1], cmdPlay[2]})
        Each->installEventFilter(this);
    Timer1.setTimerType(Qt::PreciseTimer);
    connect(&Timer1, &QTimer::timeout, this, [this] { Tick(); });
    TakeMnemonics(*this);
    setFocus();
}

QPushButton* fData04play::AddButton(const QString& Name, const char* Caption, const char* Tip)
{
    auto* Button = new QPushButton(Caption, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    Button->setFocusPolicy(Qt::TabFocus);
    return Button;
}

QLineEdit* fData04play::AddBox(const char* Name, const char* Widest)
{
    auto* Box = new QLineEdit(this);
    Box->setObjectName(Name);
    Box->setAlignment(Qt::AlignRight);
    Box->setFixedWidth(fontMetrics().horizontalAdvance(Widest) + 16);
    return Box;
}

QLayout* fData04play::BuildClock()
{
    constexpr struct
    {
        const char* Caption;
        const char* Tip;
        int Code;
    } Buttons[] = {{"<<=", "A step back (Left)", PlayPrevious},
                   {"Play/ Pause", "Plays or pauses (Space)", PlayRun},
                   {"=>>", "A step on (Right)", PlayNext}};
    auto* Row = new QHBoxLayout;
    for (std::size_t i = 0; i < cmdPlay.size(); ++i) {
        cmdPlay[i] = AddButton(QString("cmdPlay_%1").arg(i), Buttons[i].Caption, Buttons[i].Tip);
        const int Code = Buttons[i].Code;
        connect(cmdPlay[i], &QPushButton::clicked, this,
                [this, Code] { DoAction(Code == PlayRun && Timer1.isActive() ? PlayPause : Code); });
        Row->addWidget(cmdPlay[i]);
    }
    Slider1 = new QSlider(Qt::Horizontal, this);
    Slider1->setObjectName("Slider1");
    Slider1->setRange(0, SliderMax);
    Slider1->setToolTip("Drag to move the clock; Home and End go to its ends");
    connect(Slider1, &QSlider::valueChanged, this, [this](int Value) {
        Play.SetShare(static_cast<double>(Value) / SliderMax);
        Moved();
    });
    Row->addWidget(Slider1, 1);
    constexpr const char* Boxes[] = {"txtCycle_0", "txtCycle_1"};
    for (std::size_t i = 0; i < txtCycle.size(); ++i) {
        txtCycle[i] = AddBox(Boxes[i], "00000.00");
        txtCycle[i]->setReadOnly(true);
        txtCycle[i]->setFocusPolicy(Qt::NoFocus);
    }
    Row->addWidget(txtCycle[0]);
    Row->addWidget(new QLabel("s", this));
    Row->addWidget(txtCycle[1]);
    return Row;
}

QLayout* fData04play::BuildOptions()
{
    auto* Flow = new qFlowLayout;
    Flow->setSpacing(8);
    chShowVals = new QCheckBox("Show &Values", this);
    chShowVals->setObjectName("chShowVals");
    connect(chShowVals, &QCheckBox::toggled, this, [this] { ShowState(); });
    txtSpeed = new QDoubleSpinBox(this);
    txtSpeed->setObjectName("txtSpeed");
    txtSpeed->setLocale(QLocale::c());
    txtSpeed->setRange(0.1, 2);
    txtSpeed->setSingleStep(0.1);
    txtSpeed->setDecimals(1);
    txtSpeed->setValue(1);
    txtSpeed->setToolTip("1 is as it was rowed");
    BuildCorrection();
    Flow->addWidget(chShowVals);
    Flow->addWidget(Captioned("S&peed", txtSpeed));
    Flow->addWidget(Captioned("C&orrection (s)", txtCorr));
    for (QWidget* Each : {cmdCorr[0], cmdCorr[1], cmdMatch})
        Flow->addWidget(Each);
    return Flow;
}

void fData04play::BuildCorrection()
{
    txtCorr = AddBox("txtCorr", "-0000.00");
    txtCorr->setToolTip("How far the data are ahead of the video's clock");
    TakeDecimalComma(*txtCorr);
    connect(txtCorr, &QLineEdit::textEdited, this, [this](const QString& Text) { Correct(Text.toDouble()); });
    for (std::size_t i = 0; i < cmdCorr.size(); ++i) {
        const double Change = i == 0 ? -CorrStep : CorrStep;
        cmdCorr[i] =
            AddButton(QString("cmdCorr_%1").arg(i), i == 0 ? "- 0.01" : "+ 0.01", "Moves the data against the video");
        connect(cmdCorr[i], &QPushButton::clicked, this, [this, Change] { Correct(Play.Correction() + Change); });
    }
    cmdMatch = AddButton("cmdMatch", "&Match Video",
                         "Finds the correction: press it when the video shows a catch, then click on the catch in a "
                         "curve");
    cmdMatch->setCheckable(true);
    connect(cmdMatch, &QPushButton::clicked, this, [this] { Match(); });
}
