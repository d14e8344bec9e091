// The controls of the record grid.
#include "records/fDataGrid.h"

#include "core/mFields.h"
#include "platform/qt/qText.h"
#include "processing/mViewRow.h"
#include "records/fCrewDB.h"
#include "widgets/qFlowLayout.h"
#include "widgets/qMnemonics.h"
#include "widgets/qWorkArea.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
int32_t ColourOf(const std::string& Number)
{
    ViewRow Row;
    StoreText(Row.Color, {}, Number);
    return RowColour(Row);
}
} // namespace

fDataGrid::fDataGrid(std::unique_ptr<cDataGrid> InitRows)
    : Rows(std::move(InitRows)), Model(Rows->Grid, this), Grid(new qGridView(Model, this)),
      txtFilter(new QLineEdit(this)), lblStatus(new QLabel(this)), lbWords(new QLabel(this)),
      Session([this](eNotice What) { Hear(What); })
{
    setWindowTitle(Rows->Kind.Caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(AsksToClose, true);
    auto* Tips = new QLabel(Rows->Kind.Tips, this);
    Tips->setObjectName("lbTips1");
    Tips->setWordWrap(true);
    Tips->setVisible(!Tips->text().isEmpty());
    lbWords->setObjectName("lbWords");
    lbWords->setWordWrap(true);
    lbWords->setTextFormat(Qt::PlainText);
    BuildGrid();
    auto* Middle = new QHBoxLayout;
    Middle->addWidget(Grid, 1);
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(Tips);
    Layout->addWidget(BuildFilter());
    Layout->addLayout(Middle, 1);
    Layout->addWidget(lbWords);
    Layout->addLayout(BuildButtons());
    if (IsKind("Crew")) {
        RowersDB = new fCrewDB(Rows->Crew, this);
        RowersDB->hide();
        Middle->addWidget(RowersDB);
        AddRowersDB();
    }
    TakeKey(*this, QKeySequence::Save, [this] {
        if (Save()) ShowWords("Saved.");
    });
    TakeMnemonics(*this);
    setFocusProxy(Grid);
    ShowPosition();
}

void fDataGrid::BuildGrid()
{
    Grid->setObjectName("DataGrid");
    Model.Colour = ColourOf;
    Model.Remark = [this](int Row, int Column) { return Rows->Remark(Row, Column); };
    Model.OnRefused = [this](const std::string& Reason) { ShowWords(Reason); };
    Model.OnChanged = [this] {
        Grid->viewport()->update();
        ShowPosition();
    };
    Grid->OnWords = [this](const std::string& Words) { ShowWords(Words); };
    Grid->Widths().Restore(Section, Prefix());
    if (Rows->Kind.Frozen) Grid->Freeze(Rows->Grid.FindColumn(Rows->Kind.Frozen) + 1);
    Grid->installEventFilter(this);
    connect(Grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { ShowPosition(); });
    if (!IsKind("Desc")) return;
    Grid->setEditTriggers(Grid->editTriggers() & ~QAbstractItemView::DoubleClicked);
    connect(Grid, &QTableView::doubleClicked, this, [this](const QModelIndex& Cell) { OpenSample(Cell); });
}

QWidget* fDataGrid::BuildFilter()
{
    Filter = new QWidget(this);
    auto* Label = new QLabel("Sho&w rows with", Filter);
    Label->setBuddy(txtFilter);
    txtFilter->setObjectName("txtFilter");
    txtFilter->setClearButtonEnabled(true);
    txtFilter->setPlaceholderText("a part of any of their texts");
    connect(txtFilter, &QLineEdit::textChanged, this, [this](const QString& Words) { Grid->SetFilter(Words); });
    auto* Line = new QHBoxLayout(Filter);
    Line->setContentsMargins(0, 0, 0, 0);
    Line->addWidget(Label);
    Line->addWidget(txtFilter, 1);
    return Filter;
}

QPushButton* fDataGrid::AddButton(const Button& Made)
{
    auto* New = new QPushButton(Made.Caption, this);
    New->setObjectName(Made.Name);
    New->setToolTip(Made.Tip);
    New->setAutoDefault(false);
    connect(New, &QPushButton::clicked, this, [this, Action = Made.Action] {
        ShowWords("");
        Action();
        Grid->TakeKeyboard();
    });
    return New;
}

QLayout* fDataGrid::BuildMoves()
{
    const Button Moves[] = {
        {"cmdFirst", "|<", "First row (Home)", [this] { GoToEnd(0, 1); }},
        {"cmdPrevious", "<", "Row before (Up)", [this] { Move(Grid->Step(-1)); }},
        {"cmdNext", ">", "Next row (Down)", [this] { Move(Grid->Step(1)); }},
        {"cmdLast", ">|", "Last row (End)", [this] { GoToEnd(Model.rowCount() - 1, -1); }},
    };
    auto* Line = new QHBoxLayout;
    for (const Button& Each : Moves) {
        QPushButton* Made = AddButton(Each);
        Made->setFixedWidth(Made->fontMetrics().horizontalAdvance("00000"));
        Line->addWidget(Made);
        if (Each.Name == std::string("cmdPrevious")) Line->addWidget(lblStatus);
    }
    lblStatus->setObjectName("lblStatus");
    lblStatus->setMinimumWidth(lblStatus->fontMetrics().horizontalAdvance("   #0000 "));
    return Line;
}

std::vector<fDataGrid::Button> fDataGrid::Buttons()
{
    return {
        {"cmdAdd", "&Add Row", "Adds a copy of the current row behind it (Insert)", [this] { Grid->AddRow(); }},
        {"cmdDelete", "&Delete Row", "Deletes the marked rows (Ctrl+Delete)", [this] { Grid->DeleteRows(); }},
        {"cmdCopyPrev", "Copy &Prev. Ctrl.F2", "Copies the cell above into the current one",
         [this] { Grid->CopyPrevious(); }},
        {"cmdFill", "Fi&ll Down", "Copies the top cells of the marked block to those below (Ctrl+D)",
         [this] { Grid->FillDown(); }},
        {"cmdUndo", "&Undo", "Takes the last change back (Ctrl+Z)", [this] { Move(Grid->Undo()); }},
        {"cmdRedo", "R&edo", "Does it again (Ctrl+Shift+Z)", [this] { Move(Grid->Redo()); }},
        {"cmdRead", "Read...", "Takes the rows of another session in place of these",
         [this] { Import("File to Load Data From", "txt"); }},
        {"cmdImport", "I&mport CSV...", "Takes rows from a comma-separated table in place of these",
         [this] { Import("Table to Load Data From", "csv"); }},
        {"cmdExport", "E&xport CSV...", "Writes the rows as a comma-separated table", [this] { Export(); }},
    };
}

// What single kinds have in addition.
std::vector<fDataGrid::Button> fDataGrid::OwnButtons()
{
    if (IsKind("Calibr"))
        return {{"cmdAppend", "Read &IDs", "Takes Q0 and Q1 of the same sensors from another session",
                 [this] { ReadIDs(); }},
                {"cmdSaveAs", "&Save As...",
                 "Saves the session with these channels under another name, without samples", [this] { SaveAs(); }}};
    if (IsKind("Crew"))
        return {{"cmdDataBase", "&DataBase", "Shows the rowers' database", [this] { ShowRowersDB(); }},
                {"cmdAntro", "&Newest Anthropometry",
                 "Puts the newest measurements of their rowers into the marked rows", [this] { TakeAntro(); }}};
    if (Rows->Grid.FindColumn("Color") >= 0)
        return {{"cmdColour", "Colou&r...", "Changes the colour that stands for the current row's number",
                 [this] { ChangeColour(); }}};
    return {};
}

QLayout* fDataGrid::BuildButtons()
{
    auto* Flow = new qFlowLayout;
    auto* Moves = new QWidget(this);
    Moves->setLayout(BuildMoves());
    Moves->layout()->setContentsMargins(0, 0, 0, 0);
    Flow->addWidget(Moves);
    for (const auto& List : {Buttons(), OwnButtons()})
        for (const Button& Each : List)
            Flow->addWidget(AddButton(Each));
    Flow->addWidget(
        AddButton({"cmdOK", "O&K", "Saves the session with these rows and closes the window", [this] { Store(); }}));
    QPushButton* Dropping =
        AddButton({"cmdCancel", "&Cancel", "Closes the window and leaves the session as it is", [this] {
                       IsLeaving = true;
                       Leave();
                   }});
    Grid->SetCancel(*Dropping);
    Flow->addWidget(Dropping);
    return Flow;
}
