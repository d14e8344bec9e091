// Option buttons from the table of slaves.
#include "acquisition/fSlaveBox.h"

#include "acquisition/fSettingBox.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

fSlaveBox::fSlaveBox(cLoggerSetUp& InitSetUp)
    : QGroupBox("Slave Cfg"), SetUp(InitSetUp), Kinds(new QButtonGroup(this)), opHR(new QCheckBox("Heart Rate", this)),
      Has(new QLabel(this)), Session(new QLabel(this))
{
    auto* Layout = new QGridLayout(this);
    int Index = 0;
    for (const SlaveKind& Each : SlaveKinds()) {
        auto* Button = new QRadioButton(Each.Caption, this);
        Button->setObjectName(QString("opChanSlave_%1").arg(Index));
        Kinds->addButton(Button, Index);
        Layout->addWidget(Button, 0, Index++);
    }
    opHR->setObjectName("opHR");
    opHR->setToolTip("Each slave sends two more channels");
    opHR->setChecked(gFile.SlaveChans % 4 != 0);
    Layout->addWidget(opHR, 0, Index);
    if (const auto Kind = SlaveKindOf(gFile.SlaveChans, gFile.Signed))
        Kinds->button(static_cast<int>(*Kind))->setChecked(true);
    auto* Set = new QPushButton("Set S&lave", this);
    Set->setObjectName("cmdSetChannels");
    Set->setToolTip("Sets the channels of the slaves in the session, saves it, and sends them to the logger");
    Set->setAutoDefault(false);
    Session->setObjectName("lbSession");
    Session->setTextFormat(Qt::PlainText);
    Has->setObjectName("lbHas_CHMSK");
    Has->setTextFormat(Qt::PlainText);
    Layout->addWidget(Session, 1, 0, 1, Index + 1);
    Layout->addWidget(Has, 2, 0, 1, Index);
    Layout->addWidget(Set, 2, Index);
    connect(Set, &QPushButton::clicked, this, [this] { SetSlave(); });
    connect(Kinds, &QButtonGroup::idToggled, this, [this] { ShowState(); });
    connect(opHR, &QCheckBox::toggled, this, [this] { ShowState(); });
    ShowState();
}

void fSlaveBox::ShowState()
{
    Session->setText(gCurFile.empty() ? "Session: none is open"
                                      : Shown("Session: " + FormatNum(gFile.SlaveCnt, "0") + " slaves of " +
                                              FormatNum(gFile.SlaveChans, "0") + " channels, " +
                                              FormatNum(gFile.ChanCnt, "0") + " with the master's"));
    const std::string Mask = SetUp.Value("CHMSK");
    const std::string Words = MaskWords(Mask);
    const int Kind = Kinds->checkedId();
    const std::string Next = Kind < 0 ? "" : ChannelMask(static_cast<std::size_t>(Kind), opHR->isChecked());
    const bool IsSame = Kind >= 0 && MaskWords(Next) == Words && !Words.empty();
    ShowHas(*Has,
            Mask.empty() ? eHas::Unknown
            : IsSame     ? eHas::Same
                         : eHas::Other,
            Shown(Words.empty() ? Mask : Words), Kind < 0 ? "nothing is chosen" : Shown(Next));
}

void fSlaveBox::SetSlave()
{
    const int Kind = Kinds->checkedId();
    if (Kind < 0) return MsgBox("Choose the slaves first.", TitleInformation);
    Guard("Set Slave", [&] {
        SetUp.SetSlave(static_cast<std::size_t>(Kind), opHR->isChecked());
        return true;
    });
    ShowState();
}
