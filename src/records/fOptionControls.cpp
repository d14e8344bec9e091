// Groups of controls, and what stands beside these.
#include "records/fOptionControls.h"

#include "platform/qt/qText.h"
#include "records/mOptionParts.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QStyle>

namespace {
constexpr int Spacing = 4;

QLabel* WrappedLabel(const QString& Text, QWidget* Parent)
{
    auto* Label = new QLabel(Text, Parent);
    Label->setWordWrap(true);
    Label->setTextFormat(Qt::PlainText);
    return Label;
}

// A property that the style sheet of the window looks at.
void SetProperty(QWidget& Widget, const char* Name, bool Value)
{
    if (Widget.property(Name).toBool() == Value) return;
    Widget.setProperty(Name, Value);
    const QList<QWidget*> Parts = Widget.findChildren<QWidget*>() << &Widget;
    for (QWidget* Each : Parts) {
        Each->style()->unpolish(Each);
        Each->style()->polish(Each);
    }
}
} // namespace

fOptionControls::fOptionControls(cOptions& InitOptions, QObject* Parent)
    : QObject(Parent), Options(InitOptions), All(static_cast<std::size_t>(InitOptions.Count()))
{
}

QGroupBox* fOptionControls::BuildGroup(const OptionGroup& Group, int First)
{
    auto* Box = new QGroupBox(Shown(Group.Title));
    auto* Grid = new QGridLayout(Box);
    Grid->setVerticalSpacing(Spacing);
    Grid->setHorizontalSpacing(3 * Spacing);
    if (!Group.Note.empty()) {
        QLabel* Note = WrappedLabel(Shown(Group.Note), Box);
        Note->setProperty("help", true);
        Grid->addWidget(Note, 0, 0, 1, -1);
    }
    Group.Layout == eOptionLayout::Table ? BuildTable(*Grid, Group, First) : BuildForm(*Grid, Group, First);
    return Box;
}

QLabel* fOptionControls::MakeNote(const QString& Name)
{
    QLabel* Note = WrappedLabel({}, nullptr);
    Note->setObjectName("lbNote_" + Name);
    Note->setProperty("help", true);
    Note->hide();
    return Note;
}

void fOptionControls::BuildForm(QGridLayout& Grid, const OptionGroup& Group, int First)
{
    auto* Radios = new QButtonGroup(this);
    int Row = Grid.rowCount();
    for (std::size_t i = 0; i < Group.Items.size(); ++i, Row += 2) {
        const OptionItem& Item = Group.Items[i];
        const int Index = First + static_cast<int>(i);
        const bool HasLabel = Item.Kind != eOption::Check;
        QWidget* Made = Make(Index, *Radios);
        Control& Own = All[static_cast<std::size_t>(Index)];
        if (HasLabel) {
            auto* Label = new QLabel(Shown(Item.Label));
            if (!Group.LabelNames.empty()) Label->setObjectName(Shown(Numbered(Group.LabelNames.c_str(), i)));
            Label->setBuddy(Own.Box);
            Grid.addWidget(Label, Row, 0, Item.Kind == eOption::Choice ? Qt::AlignTop : Qt::AlignVCenter);
        }
        Grid.addWidget(Made, Row, HasLabel ? 1 : 0, 1, Item.Unit.empty() ? -1 : 1);
        if (!Item.Unit.empty()) Grid.addWidget(new QLabel(Shown(Item.Unit)), Row, 2);
        Own.Note = MakeNote(Shown(Item.Control));
        if (!HasLabel) Own.Note->setIndent(2 * Own.Note->fontMetrics().height());
        Grid.addWidget(Own.Note, Row + 1, HasLabel ? 1 : 0, 1, -1);
    }
    Grid.setColumnStretch(2, 1);
}

void fOptionControls::BuildTable(QGridLayout& Grid, const OptionGroup& Group, int First)
{
    auto* Radios = new QButtonGroup(this);
    const int Top = Grid.rowCount();
    for (std::size_t i = 0; i < Group.Columns.size(); ++i)
        Grid.addWidget(new QLabel(Shown(Group.Columns[i])), Top, static_cast<int>(i) + 1);
    for (std::size_t i = 0; i < Group.Rows.size(); ++i)
        Grid.addWidget(new QLabel(Shown(Group.Rows[i])), Top + 1 + static_cast<int>(i), 0);
    QLabel* Note = MakeNote(Shown(Group.Items.front().Control));
    int Column = 0, Former = 0;
    for (std::size_t i = 0; i < Group.Items.size(); ++i) {
        const OptionItem& Item = Group.Items[i];
        Column = Item.Row == Former ? Column + 1 : 1;
        Former = Item.Row;
        const int Index = First + static_cast<int>(i);
        Grid.addWidget(Make(Index, *Radios), Top + 1 + Item.Row, Column);
        All[static_cast<std::size_t>(Index)].Note = Note;
    }
    Grid.addWidget(Note, Top + 1 + static_cast<int>(Group.Rows.size()), 0, 1, -1);
    Grid.setColumnStretch(static_cast<int>(Group.Columns.size()) + 1, 1);
}

void fOptionControls::ShowAll()
{
    for (const Control& Each : All)
        if (Each.Show) Each.Show();
}

void fOptionControls::Put(int Index, const QString& Text)
{
    Options.Put(Index, Plain(Text));
    if (OnChange) OnChange();
}

std::vector<eOptionPage> fOptionControls::ShowFaults()
{
    std::vector<eOptionPage> Pages;
    for (int i = 0; i < Options.Count(); ++i) {
        const Control& Each = All[static_cast<std::size_t>(i)];
        const bool HasFault = !Options.Fault(i).empty();
        SetProperty(*Each.Box, "fault", HasFault);
        if (HasFault) Pages.push_back(Options.Page(i));
        // The controls of a table share one note, which the first of them shows.
        if (i == 0 || All[static_cast<std::size_t>(i) - 1].Note != Each.Note) ShowNote(*Each.Note, i);
    }
    return Pages;
}

void fOptionControls::ShowNote(QLabel& Note, int First) const
{
    QStringList Faults;
    for (int i = First; i < Options.Count() && All[static_cast<std::size_t>(i)].Note == &Note; ++i)
        if (const QString Fault = Shown(Options.Fault(i)); !Fault.isEmpty())
            Faults << (Options.RowName(i).empty()
                           ? Fault
                           : Shown(Options.RowName(i) + ", " + Options.Item(i).Label + ": ") + Fault);
    const bool IsTable = !Options.RowName(First).empty();
    const QString Text = !Faults.isEmpty() ? Faults.join('\n') : IsTable ? "" : Shown(Options.Item(First).Help);
    Note.setText(Text);
    Note.setVisible(!Text.isEmpty());
    SetProperty(Note, "fault", !Faults.isEmpty());
}

QWidget* fOptionControls::Mark(int Index)
{
    if (Marked >= 0) SetProperty(*All[static_cast<std::size_t>(Marked)].Box, "found", false);
    Marked = Index;
    if (Index < 0) return nullptr;
    QWidget* Box = All[static_cast<std::size_t>(Index)].Box;
    SetProperty(*Box, "found", true);
    return Box;
}
