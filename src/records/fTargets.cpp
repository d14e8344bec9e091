// Grid, buttons and the line that says which row is in use.
#include "records/fTargets.h"

#include "core/mIni.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "records/mTargets.h"
#include "widgets/qMnemonics.h"
#include "widgets/qPlace.h"
#include "widgets/qWorkArea.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr const char* Caption = "Targets for immediate feedback";
constexpr const char* Rules =
    "A session takes the last row that has its sex, weight category and age group, and its boat type among the boat "
    "types. The bottom row is never taken: it is the pattern for new rows.";

cGrid LoadedGrid()
{
    return LoadTargets() ? TargetsToGrid() : cGrid();
}
} // namespace

fTargets::fTargets()
    : Table(LoadedGrid()), Model(Table, this), Grid(new qGridView(Model, this)), lbChoice(new QLabel(this))
{
    setObjectName("fTargets");
    setWindowTitle(Caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(AsksToClose, true);
    Model.OnChanged = [this] { ShowChoice(); };
    Grid->setObjectName("DataGrid");
    Grid->SetPatternRows();
    Grid->Widths().Restore(Section, Prefix);
    lbChoice->setObjectName("lbChoice");
    lbChoice->setWordWrap(true);
    auto* Layout = new QGridLayout(this);
    Layout->addWidget(Grid, 0, 0);
    Layout->addWidget(lbChoice, 1, 0);
    Layout->addLayout(BuildButtons(), 0, 1, 2, 1);
    Layout->setColumnStretch(0, 1);
    TakeMnemonics(*this);
    setFocusProxy(Grid);
    ShowChoice();
}

QPushButton* fTargets::AddButton(const char* Name, const char* Text, const char* Tip,
                                 const std::function<void()>& Action)
{
    auto* Button = new QPushButton(Text, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    Button->setEnabled(Model.columnCount() > 0);
    connect(Button, &QPushButton::clicked, this, [this, Action] {
        Action();
        Grid->TakeKeyboard();
    });
    return Button;
}

QLayout* fTargets::BuildButtons()
{
    auto* Column = new QVBoxLayout;
    Column->addWidget(
        AddButton("cmdAdd", "&Add Row", "Appends a copy of the last row (Insert)", [this] { Grid->AddRow(); }));
    Column->addWidget(
        AddButton("cmdDelete", "&Delete Row", "Deletes the marked rows (Delete)", [this] { Grid->DeleteRows(); }));
    Column->addWidget(AddButton("cmdUndo", "&Undo", "Takes the last change back (Ctrl+Z)", [this] { Grid->Undo(); }));
    Column->addWidget(AddButton("cmdRedo", "&Redo", "Does it again (Ctrl+Shift+Z)", [this] { Grid->Redo(); }));
    Column->addStretch();
    Column->addWidget(
        AddButton("cmdOK", "O&K", "Keeps a backup copy, saves the targets and closes the window", [this] { Store(); }));
    QPushButton* Dropping =
        AddButton("cmdCancel", "&Cancel", "Drops what is being typed and goes to the first row", [this] { Cancel(); });
    Grid->SetCancel(*Dropping);
    Column->addWidget(Dropping);
    return Column;
}

void fTargets::ShowChoice()
{
    lbChoice->setText(Model.columnCount() > 0
                          ? QString("<b>%1</b> %2").arg(Shown(TargetChoice(Table)).toHtmlEscaped(), Rules)
                          : "There is no table of targets. It begins with a line Targets and a line of column heads, "
                            "separated by tabs, in the file Targets.ini of the folder " +
                                Shown(gAppDir).toHtmlEscaped());
}

void fTargets::Store()
{
    Guard(Caption, [this] {
        Grid->FinishEdit();
        if (!StoreTargets(Table)) return false;
        Table.SetSaved();
        Leave();
        return true;
    });
}

void fTargets::Cancel()
{
    Grid->CancelEdit();
    Grid->GoToRow(0);
}

void fTargets::Leave()
{
    (parentWidget() ? parentWidget() : this)->close();
}

void fTargets::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape)
        Leave();
    else
        QWidget::keyPressEvent(Event);
}

void fTargets::closeEvent(QCloseEvent* Event)
{
    Grid->FinishEdit();
    if (Table.IsChanged() && !AskYesNo("The targets are changed. Close without saving them?", TitleWarning))
        return Event->ignore();
    KeepPlace(*this, Section, Prefix);
    Grid->Widths().Keep(Section, Prefix);
    QWidget::closeEvent(Event);
}
