// Option buttons from the table of settings.
#include "acquisition/fSettingBox.h"

#include "platform/mHost.h"
#include "platform/qt/qText.h"

#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

void ShowHas(QLabel& Label, eHas How, const QString& Text, const QString& Next)
{
    const char* Style = How == eHas::Same    ? "color: #14602a"
                        : How == eHas::Other ? "background: #ffe2a8; border-radius: 3px"
                                             : "color: #5a646e";
    const QString Words = How == eHas::Unknown ? "Logger: not read" : "Logger: " + Text;
    const QString Shown = How == eHas::Other ? Words + "\nto send: " + Next : Words;
    if (Label.text() == Shown) return;
    Label.setStyleSheet(QString("QLabel { padding: 2px 4px; %1 }").arg(Style));
    Label.setText(Shown);
}

fSettingBox::fSettingBox(cLoggerSetUp& InitSetUp, eLoggerSetting InitWhich, const char* Title, const char* Name,
                         const char* Caption)
    : QGroupBox(Title), SetUp(InitSetUp), Which(InitWhich), Choices(new QButtonGroup(this)), Has(new QLabel(this))
{
    auto* Layout = new QVBoxLayout(this);
    int Index = 0;
    for (const LoggerChoice& Each : SettingOf(Which).Choices) {
        auto* Button = new QRadioButton(Each.Caption, this);
        Button->setObjectName(Each.Control);
        Button->setToolTip(Shown(CommandFor(Which, Index)));
        Choices->addButton(Button, Index++);
        Layout->addWidget(Button);
    }
    if (QAbstractButton* Stored = Choices->button(StoredChoice(Which))) Stored->setChecked(true);
    Has->setObjectName(QString("lbHas_%1").arg(SettingOf(Which).Key));
    Has->setTextFormat(Qt::PlainText);
    Has->setWordWrap(true);
    Layout->addStretch();
    Layout->addWidget(Has);
    auto* Apply = new QPushButton(Caption, this);
    Apply->setObjectName(Name);
    Apply->setAutoDefault(false);
    Layout->addWidget(Apply);
    connect(Apply, &QPushButton::clicked, this, [this] {
        const int Chosen = Choices->checkedId();
        if (Chosen < 0) return MsgBox("Choose a value first.", TitleInformation);
        SetUp.Apply(Which, Chosen);
    });
    connect(Choices, &QButtonGroup::idToggled, this, [this] { ShowState(); });
    ShowState();
}

void fSettingBox::ShowState()
{
    const QString Text = Shown(SetUp.HasText(Which));
    const int Chosen = Choices->checkedId();
    const eHas How = Text.isEmpty() ? eHas::Unknown : SetUp.Has(Which) == Chosen ? eHas::Same : eHas::Other;
    ShowHas(*Has, How, Text, Chosen < 0 ? "nothing is chosen" : Shown(CommandFor(Which, Chosen)));
}
