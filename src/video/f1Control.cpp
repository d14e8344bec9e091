// Layout and keys of the animation control.
#include "video/f1Control.h"

#include "platform/qt/qText.h"
#include "video/cVideo.h"
#include "widgets/qDecimal.h"
#include "widgets/qFlowLayout.h"
#include "widgets/qMnemonics.h"
#include "widgets/qPlace.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace {
constexpr std::array<std::pair<const char*, const char*>, 8> Commands = {{
    {"To Start", "All videos and the play view go to their start"},
    {"Prev.", "A picture back"},
    {"Play", "All videos and the play view run"},
    {"Pause", "They stand"},
    {"Next", "A picture on"},
    {"To End", "Shows the present moment again"},
    {"Close All", "Closes the videos, the play view and this window"},
    {"&Bound and Save", "Keeps the video's name with the current sample, and saves the session"},
}};
} // namespace

f1Control::f1Control() : txtSpeed(new QLineEdit("25"))
{
    setObjectName("f1Control");
    setWindowTitle("Animation Control");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* Flow = new qFlowLayout;
    for (std::size_t i = 0; i < Commands.size(); ++i) {
        cmdVidContr[i] = new QPushButton(Commands[i].first, this);
        cmdVidContr[i]->setObjectName(QString("cmdVidContr_%1").arg(i));
        cmdVidContr[i]->setToolTip(Commands[i].second);
        connect(cmdVidContr[i], &QPushButton::clicked, this, [this, i] { Press(static_cast<int>(i)); });
        Flow->addWidget(cmdVidContr[i]);
    }
    auto* frSpeed = new QGroupBox("Speed (fps)", this);
    frSpeed->setObjectName("frSpeed");
    auto* InSpeed = new QHBoxLayout(frSpeed);
    InSpeed->setContentsMargins(6, 2, 6, 2);
    txtSpeed->setObjectName("txtSpeed");
    txtSpeed->setToolTip("Pictures a second");
    txtSpeed->setMaximumWidth(fontMetrics().horizontalAdvance("00000.00") + 16);
    TakeDecimalComma(*txtSpeed);
    connect(txtSpeed, &QLineEdit::textChanged, this, [this](const QString& Text) { Control.SetSpeed(Plain(Text)); });
    InSpeed->addWidget(txtSpeed);
    Flow->addWidget(frSpeed);
    auto* chSync = new QCheckBox("Sync Mode", this);
    chSync->setObjectName("chSync");
    chSync->setToolTip("Has no effect: the windows always move together");
    Flow->addWidget(chSync);
    auto* Layout = new QVBoxLayout(this);
    Layout->addLayout(Flow);
    Layout->addStretch();
    TakeMnemonics(*this);
    cmdVidContr[VideoPause]->setEnabled(false);
}

void f1Control::Press(int Index)
{
    Control.DoCommand(Index);
    cmdVidContr[VideoPlay]->setEnabled(!Control.IsRunning());
    cmdVidContr[VideoPause]->setEnabled(Control.IsRunning());
    if (Index == ControlCloseAll) (parentWidget() ? parentWidget() : this)->close();
}

void f1Control::closeEvent(QCloseEvent* Event)
{
    KeepPlace(*this, Section);
    Control.DoCommand(VideoPause);
    QWidget::closeEvent(Event);
}
