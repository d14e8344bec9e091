// One control of each kind.
#include "base/mNumText.h"
#include "core/mSettings.h"
#include "platform/qt/qColour.h"
#include "platform/qt/qText.h"
#include "records/fOptionControls.h"
#include "widgets/qDecimal.h"
#include "widgets/qSwatch.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCompleter>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace {
constexpr int MostPenWidth = 5;
constexpr const char* WidestNumber = "-0000.00000000";
constexpr const char* WidestWhole = "-000000";

QIcon LineIcon(int Width, QSize Size)
{
    QPixmap Picture(Size);
    Picture.fill(Qt::transparent);
    QPainter(&Picture).fillRect(0, (Size.height() - Width) / 2, Size.width(), Width, Qt::black);
    return Picture;
}
} // namespace

QWidget* fOptionControls::Make(int Index, QButtonGroup& Radios)
{
    switch (Options.Item(Index).Kind) {
    case eOption::File:
        return MakeFile(Index);
    case eOption::Check:
        return MakeCheck(Index);
    case eOption::Radio:
        return MakeRadio(Index, Radios);
    case eOption::Choice:
        return MakeChoice(Index);
    case eOption::Shown:
        return MakeShown(Index);
    case eOption::Colour:
        return MakeColour(Index);
    case eOption::PenWidth:
        return MakePenWidth(Index);
    default:
        return MakeBox(Index);
    }
}

// Enters a control under its name, with what shows the setting in it.
QWidget* fOptionControls::Enter(int Index, QWidget* Box, std::function<void()> Show)
{
    const OptionItem& Item = Options.Item(Index);
    Box->setObjectName(Shown(Item.Control));
    Box->setAccessibleName(Shown(Item.Label));
    Box->setAccessibleDescription(Shown(Item.Help));
    All[static_cast<std::size_t>(Index)].Box = Box;
    All[static_cast<std::size_t>(Index)].Show = std::move(Show);
    return Box;
}

QWidget* fOptionControls::MakeBox(int Index)
{
    const eOption Kind = Options.Item(Index).Kind;
    const bool IsWhole = Kind == eOption::Number && Options.Item(Index).Format == "0";
    auto* Box = new QLineEdit;
    const QFontMetrics Letters = Box->fontMetrics();
    const int Width = Letters.horizontalAdvance(IsWhole ? WidestWhole : WidestNumber) + Letters.height();
    if (Kind == eOption::Number) {
        Box->setFixedWidth(Width);
        Box->setAlignment(Qt::AlignRight);
        TakeDecimalComma(*Box);
    } else {
        Box->setMinimumWidth(Width);
        if (Kind != eOption::File) Box->setMaximumWidth(2 * Width);
    }
    if (Options.Item(Index).Proposals) Propose(Index, *Box);
    connect(Box, &QLineEdit::textEdited, this, [this, Index](const QString& Text) { Put(Index, Text); });
    return Enter(Index, Box, [this, Box, Index] { Box->setText(Shown(Options.Text(Index))); });
}

void fOptionControls::Propose(int Index, QLineEdit& Box)
{
    QStringList Words;
    for (const std::string& Text : Options.Item(Index).Proposals())
        Words << Shown(Text);
    auto* Completer = new QCompleter(Words, &Box);
    Completer->setCaseSensitivity(Qt::CaseInsensitive);
    Completer->setFilterMode(Qt::MatchContains);
    connect(Completer, qOverload<const QString&>(&QCompleter::activated), this,
            [this, Index](const QString& Text) { Put(Index, Text); });
    Box.setCompleter(Completer);
}

QWidget* fOptionControls::MakeFile(int Index)
{
    auto* Box = dynamic_cast<QLineEdit*>(MakeBox(Index));
    auto* Button = new QPushButton("Browse...");
    Button->setObjectName(QString("cmdBrowse_%1").arg(Browsers++));
    Button->setAutoDefault(false);
    Button->setAccessibleName("Browse for " + Box->accessibleName());
    connect(Button, &QPushButton::clicked, this, [this, Index] {
        if (!Options.Browse(Index)) return;
        All[static_cast<std::size_t>(Index)].Show();
        if (OnChange) OnChange();
    });
    auto* Both = new QWidget;
    auto* Layout = new QHBoxLayout(Both);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addWidget(Box, 1);
    Layout->addWidget(Button);
    return Both;
}

QWidget* fOptionControls::MakeCheck(int Index)
{
    auto* Box = new QCheckBox(Shown(Options.Item(Index).Label));
    connect(Box, &QCheckBox::clicked, this, [this, Index](bool IsOn) { Put(Index, IsOn ? "1" : "0"); });
    return Enter(Index, Box, [this, Box, Index] { Box->setChecked(Options.Text(Index) == "1"); });
}

QWidget* fOptionControls::MakeRadio(int Index, QButtonGroup& Radios)
{
    auto* Box = new QRadioButton;
    Radios.addButton(Box);
    connect(Box, &QRadioButton::clicked, this, [this, Index] { Put(Index, "1"); });
    return Enter(Index, Box, [this, Box, Index] {
        if (Options.Text(Index) == "1") Box->setChecked(true);
    });
}

QWidget* fOptionControls::MakeChoice(int Index)
{
    const OptionItem& Item = Options.Item(Index);
    auto* Box = new QWidget;
    auto* Layout = new QVBoxLayout(Box);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->setSpacing(2);
    auto* Group = new QButtonGroup(Box);
    for (std::size_t i = 0; i < Item.Choices.size(); ++i) {
        auto* Choice = new QRadioButton(Shown(Item.Choices[i].Text));
        Choice->setObjectName(Shown(Item.Control) + QString("_%1").arg(i));
        Group->addButton(Choice, static_cast<int>(i));
        Layout->addWidget(Choice);
    }
    connect(Group, &QButtonGroup::idClicked, this, [this, Index](int Chosen) { Put(Index, QString::number(Chosen)); });
    return Enter(Index, Box, [this, Group, Index] {
        if (const std::string& Text = Options.Text(Index); !Text.empty())
            Group->button(static_cast<int>(Val(Text)))->setChecked(true);
    });
}

QWidget* fOptionControls::MakeShown(int Index)
{
    auto* Label = new QLabel;
    Label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Label->setStyleSheet("font-weight: bold");
    return Enter(Index, Label, [this, Label, Index] { Label->setText(Shown(Options.Text(Index))); });
}

QWidget* fOptionControls::MakeColour(int Index)
{
    auto* Box = new qSwatch;
    Box->setToolTip("Double-click, Enter or Space: another colour");
    Box->OnChoose = [this, Index] {
        if (!Options.ChooseColour(Index)) return;
        All[static_cast<std::size_t>(Index)].Show();
        if (OnChange) OnChange();
    };
    return Enter(Index, Box,
                 [this, Box, Index] { Box->SetColour(ToQColor(static_cast<int32_t>(Val(Options.Text(Index))))); });
}

QWidget* fOptionControls::MakePenWidth(int Index)
{
    auto* Box = new QWidget;
    auto* Layout = new QHBoxLayout(Box);
    Layout->setContentsMargins(0, 0, 0, 0);
    auto* Group = new QButtonGroup(Box);
    for (int i = 0; i < MostPenWidth; ++i) {
        auto* Line = new QToolButton;
        Line->setObjectName(QString("lbLineWd_%1").arg(i));
        Line->setCheckable(true);
        Line->setIconSize({32, 16});
        Line->setIcon(LineIcon(i + 1, Line->iconSize()));
        Line->setFocusPolicy(Qt::StrongFocus);
        Line->setToolTip(QString("Lines of width %1").arg(i + 1));
        Line->setAccessibleName(Line->toolTip());
        Group->addButton(Line, i);
        Layout->addWidget(Line);
    }
    Layout->addStretch();
    connect(Group, &QButtonGroup::idClicked, this,
            [](int Chosen) { cOptions::SetPenWidth(static_cast<int16_t>(Chosen + 1)); });
    return Enter(Index, Box, [Group] {
        if (QAbstractButton* Line = Group->button(gDrawWidth - 1)) Line->setChecked(true);
    });
}
