// The controls of the video window.
#include "video/f1Video.h"

#include "platform/mHost.h"
#include "widgets/qFlowLayout.h"
#include "widgets/qMnemonics.h"
#include "widgets/qWorkArea.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

#include <utility>

namespace {
constexpr std::array<std::pair<const char*, const char*>, 7> Commands = {{
    {"To Start", "Home"},
    {"Prev.", "A picture back: Left"},
    {"Play", "Space"},
    {"Pause", "Space"},
    {"Next", "A picture on: Right"},
    {"To End", "End"},
    {"Close", "Closes the window"},
}};

constexpr std::array<std::pair<const char*, const char*>, 3> Digits = {{
    {"Dig. Angle", "Three clicks on the picture give an angle"},
    {"Dig. Body", "The rower's points are set picture by picture"},
    {"Play+ Body", "The points that are kept for the chosen sample go on"},
}};

struct SizeOption
{
    const char* Caption;
    const char* Tip;
    double Scale;
};
constexpr std::array<SizeOption, 3> Sizes = {
    {{"50%", "Half Speed", 0.5}, {"100%", "Normal Speed", 1}, {"200%", "Double Speed", 2}}};

std::unique_ptr<iMedia> MakeClip()
{
    return gHost.MakeMedia ? gHost.MakeMedia() : nullptr;
}
} // namespace

f1Video::f1Video()
    : cDataWindow(ViewTag), Video(MakeClip()), picVideoWindow(new fVideoPicture(this)), Clock([this] { GoCurTime(); })
{
    setObjectName("f1Video");
    setWindowTitle("Video");
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(AsksToClose, true);
    setFocusPolicy(Qt::StrongFocus);
    picVideoWindow->setObjectName("picVideoWindow");
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(4, 4, 4, 4);
    Layout->setSpacing(4);
    Layout->addWidget(picVideoWindow, 1);
    Layout->addWidget(BuildControls());
    for (QWidget* Each : findChildren<QWidget*>())
        Each->installEventFilter(this);
    TakeMnemonics(*this);
    Video.OnShow = [this] { Moved(); };
    connect(&IndexLook, &QTimer::timeout, this, [this] { TakeIndex(); });
    ShowState();
}

QPushButton* f1Video::AddButton(const QString& Name, const char* Caption, const char* Tip, std::function<void()> Work)
{
    auto* Button = new QPushButton(Caption, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    connect(Button, &QPushButton::clicked, this, std::move(Work));
    return Button;
}

QWidget* f1Video::BuildControls()
{
    auto* picControl = new QWidget(this);
    picControl->setObjectName("picControl");
    auto* Layout = new QVBoxLayout(picControl);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addLayout(BuildSlider());
    Layout->addLayout(BuildButtons());
    return picControl;
}

QLayout* f1Video::BuildSlider()
{
    Slider1 = new QSlider(Qt::Horizontal, this);
    Slider1->setObjectName("Slider1");
    connect(Slider1, &QSlider::valueChanged, this, [this](int Value) {
        Video.GoFrame(Value);
        ShowState();
    });
    auto* lbElapsed = new QLabel("Elapsed Time (s):", this);
    lbElapsed->setObjectName("lbElapsed");
    txtElapsed = new QLineEdit(this);
    txtElapsed->setObjectName("txtElapsed");
    txtElapsed->setReadOnly(true);
    txtElapsed->setFixedWidth(fontMetrics().horizontalAdvance("00000.000") + 16);
    auto* Row = new QHBoxLayout;
    Row->addWidget(Slider1, 1);
    Row->addWidget(lbElapsed);
    Row->addWidget(txtElapsed);
    return Row;
}

QLayout* f1Video::BuildButtons()
{
    auto* Flow = new qFlowLayout;
    for (std::size_t i = 0; i < Commands.size(); ++i) {
        const int Code = static_cast<int>(i);
        cmdVidContr[i] = AddButton(QString("cmdVidContr_%1").arg(i), Commands[i].first, Commands[i].second,
                                   [this, Code] { DoAction(Code); });
        Flow->addWidget(cmdVidContr[i]);
    }
    Flow->addWidget(
        AddButton("cmdChangeFile", "File...", "Opens another video in this window", [this] { ChangeFile(); }));
    for (std::size_t i = 0; i < Digits.size(); ++i) {
        const int Index = static_cast<int>(i);
        cmdDigIt[i] = AddButton(QString("cmdDigIt_%1").arg(i), Digits[i].first, Digits[i].second, [this, Index] {
            if (OnDigit) OnDigit(Index);
        });
        Flow->addWidget(cmdDigIt[i]);
    }
    Flow->addWidget(BuildSize());
    lbClip = new QLabel(this);
    lbClip->setObjectName("lbClip");
    Flow->addWidget(lbClip);
    return Flow;
}

QWidget* f1Video::BuildSize()
{
    auto* frSize = new QGroupBox("Size", this);
    frSize->setObjectName("frSize");
    auto* Row = new QHBoxLayout(frSize);
    Row->setContentsMargins(6, 2, 6, 2);
    auto* Group = new QButtonGroup(frSize);
    for (std::size_t i = 0; i < Sizes.size(); ++i) {
        optSize[i] = new QRadioButton(Sizes[i].Caption, frSize);
        optSize[i]->setObjectName(QString("optSize_%1").arg(i));
        optSize[i]->setToolTip(Sizes[i].Tip);
        optSize[i]->setChecked(Sizes[i].Scale == mSize);
        Group->addButton(optSize[i]);
        Row->addWidget(optSize[i]);
        connect(optSize[i], &QRadioButton::toggled, this, [this, Scale = Sizes[i].Scale](bool IsOn) {
            if (!IsOn) return;
            mSize = Scale;
            SetWinSize();
        });
    }
    chAspect = new QCheckBox("Lock Aspect Ratio", frSize);
    chAspect->setObjectName("chAspect");
    chAspect->setToolTip("Off: the picture is stretched over the whole surface");
    chAspect->setChecked(true);
    connect(chAspect, &QCheckBox::toggled, this, [this] { SetWinSize(); });
    Row->addWidget(chAspect);
    return frSize;
}
