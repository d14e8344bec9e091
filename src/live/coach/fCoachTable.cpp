// Labels, stretches and letters of the coach's table.
#include "live/coach/fCoachTable.h"

#include "platform/qt/qText.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>
#include <cmath>

namespace {
constexpr int HeadRows = 2; // names of the variables, and their targets
constexpr int LeastPixels = 8;
constexpr int MostHeadPixels = 26;
constexpr int Gap = 3;
constexpr double NameShare = 1.7; // width of the names in columns
constexpr double NotePart = 0.05; // letters of the note in the table's height

// A length of values that the columns always have room for, so that letters keep their size from stroke to stroke.
constexpr int UsualLetters = 6;

// Widths, heights and letters that make the table narrow enough to stand beside two other panels.
constexpr int LeastColumn = 44;
constexpr int LeastRow = 15;

void SetPixels(QLabel& Label, int Pixels)
{
    QFont Letters = Label.font();
    Letters.setPixelSize(std::max(LeastPixels, Pixels));
    Label.setFont(Letters);
}

// The largest letters up to Most in which all labels hold their texts.
void FitAll(const std::vector<QLabel*>& Labels, int Most)
{
    const auto Fits = [](const QLabel& Label, int Pixels) {
        QFont Letters = Label.font();
        Letters.setPixelSize(Pixels);
        const QRect Room = Label.contentsRect();
        const int Flags = static_cast<int>(Label.alignment()) | (Label.wordWrap() ? Qt::TextWordWrap : 0);
        const QSize Need = QFontMetrics(Letters).boundingRect(Room, Flags, Label.text()).size();
        return Need.width() < Room.width() && Need.height() <= Room.height();
    };
    int Pixels = std::max(Most, LeastPixels);
    for (const QLabel* Label : Labels)
        while (Pixels > LeastPixels && !Fits(*Label, Pixels))
            --Pixels;
    for (QLabel* Label : Labels)
        SetPixels(*Label, Pixels);
}
} // namespace

fCoachTable::fCoachTable(QWidget* Parent) : QWidget(Parent)
{
    setObjectName("coachTable");
}

QLabel* fCoachTable::AddLabel(const QString& Name, const QString& Text, int Row, int Column)
{
    auto* Label = new QLabel(Text, this);
    Label->setObjectName(Name);
    Label->setTextFormat(Qt::PlainText);
    Label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    Grid->addWidget(Label, Row, Column);
    return Label;
}

void fCoachTable::Build(const cCoach& Panel)
{
    for (QObject* Part : QObjectList(children()))
        delete Part;
    Names.clear();
    Heads.clear();
    Targets.clear();
    Cells.clear();
    Columns = Panel.ColumnCount();
    Longest = UsualLetters;
    Grid = new QGridLayout(this);
    Grid->setContentsMargins(0, 0, 0, 0);
    Grid->setSpacing(Gap);
    const bool HasRows = Panel.RowCount() > 0;
    if (HasRows) AddHeads(Panel);
    for (int Row = 0; Row < Panel.RowCount(); ++Row)
        AddRow(Panel, Row);
    if (const std::string Note = Panel.Note(); !Note.empty()) AddNote(Note, HasRows);
    setMinimumSize((Columns + static_cast<int>(std::ceil(NameShare))) * LeastColumn,
                   (Panel.RowCount() + HeadRows) * LeastRow);
    for (QWidget* Part : findChildren<QWidget*>())
        Part->show();
    StretchColumns();
    Fit();
}

void fCoachTable::AddHeads(const cCoach& Panel)
{
    for (int Column = 0; Column < Columns; ++Column) {
        Heads.push_back(AddLabel(QString("lbVarName_%1").arg(Column), Shown(Panel.Head(Column)), 0, Column + 1));
        Heads.back()->setAlignment(Qt::AlignCenter);
        Heads.back()->setWordWrap(true);
        Targets.push_back(
            AddLabel(QString("txtTargets_%1").arg(Column), Shown(Panel.TargetText(Column)), 1, Column + 1));
        Targets.back()->setAlignment(Qt::AlignCenter);
        Targets.back()->setToolTip("Target");
    }
    if (Columns == 0 || Panel.TargetText(0).empty()) return;
    Targets.push_back(AddLabel("lbTargets", "Target", 1, 0));
    Targets.back()->setContentsMargins(Gap, 0, Gap, 0);
}

void fCoachTable::AddRow(const cCoach& Panel, int Row)
{
    const int At = Row + HeadRows;
    Names.push_back(AddLabel(QString("lbSeatName_%1").arg(Row), Shown(Panel.RowName(Row)), At, 0));
    const int32_t Ink = Panel.RowInk(Row);
    const QColor Colour(Ink & 255, (Ink >> 8) & 255, (Ink >> 16) & 255);
    Names.back()->setStyleSheet(QString("color: %1").arg(Colour.name()));
    Names.back()->setContentsMargins(Gap, 0, Gap, 0);
    Names.back()->setWordWrap(true); // a long one would make all of them small
    Names.back()->setToolTip(Shown(Panel.RowName(Row)));
    QFont Letters = Names.back()->font();
    Letters.setBold(true);
    Names.back()->setFont(Letters);
    for (int Column = 0; Column < Columns; ++Column) {
        auto* Cell = new fCoachCell(this);
        Cell->setObjectName(QString("lbV_%1").arg(Panel.RowCount() * Column + Row));
        Cell->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        Cell->setToolTip(Shown(Panel.Meaning({Row, Column})));
        Cell->Put(Panel.Cell({Row, Column}), Shown(cCoach::Text(Panel.Cell({Row, Column}))));
        Grid->addWidget(Cell, At, Column + 1);
        Cells.push_back(Cell);
    }
}

void fCoachTable::AddNote(const std::string& Words, bool HasRows)
{
    QLabel* Note = AddLabel("lbNote", Shown(Words), 0, HasRows ? 1 : 0);
    Note->setAlignment(Qt::AlignCenter);
    Note->setWordWrap(true);
    if (HasRows) Grid->addWidget(Note, 0, 1, -1, 1);
}

void fCoachTable::StretchColumns()
{
    constexpr int Column = 100;
    for (int i = 0; i <= std::max(Columns, 1); ++i)
        Grid->setColumnStretch(i, i == 0 ? static_cast<int>(NameShare * Column) : Columns > 0 ? Column : 5 * Column);
    Grid->activate();
}

// A line is no higher than its cells are wide, since letters would not grow with it; what is left stays below.
void fCoachTable::StretchLines()
{
    constexpr int Usual = 100;
    constexpr int Head = 90;
    constexpr int Target = 70;
    constexpr int Body = 420; // lines together, at least: one alone would leave most of the room to the heads
    const int Lines = std::max(static_cast<int>(Names.size()), 1);
    const int Most = std::max(Usual, Body / Lines);
    int Line = Most;
    if (!Cells.empty() && height() > 0)
        Line = std::clamp(Cells.back()->width() * (Head + Target + Lines * Most) / height(), 1, Most);
    for (int i = 0; i < HeadRows + Lines; ++i)
        Grid->setRowStretch(i, i == 0 && Columns > 0 ? Head : i == 1 && Columns > 0 ? Target : Line);
    Grid->setRowStretch(HeadRows + Lines, Lines * (Most - Line));
    Grid->activate();
}

void fCoachTable::ShowValues(const cCoach& Panel)
{
    int Letters = Longest;
    for (std::size_t i = 0; i < Cells.size(); ++i) {
        const int Number = static_cast<int>(i);
        const CoachPlace Place{Number / Columns, Number % Columns};
        const CoachCell Now = Panel.Cell(Place);
        if (Now == Cells[i]->Cell()) continue;
        const QString Text = Shown(cCoach::Text(Now));
        Cells[i]->Put(Now, Text);
        Cells[i]->setToolTip(Shown(Panel.Meaning(Place)));
        Letters = std::max(Letters, static_cast<int>(Text.size()));
    }
    if (Letters == Longest) return;
    Longest = Letters;
    FitValues();
}

void fCoachTable::resizeEvent(QResizeEvent* Event)
{
    QWidget::resizeEvent(Event);
    Fit();
}

void fCoachTable::Fit()
{
    StretchLines();
    FitValues();
    const int Value = Cells.empty() ? height() : Cells.front()->font().pixelSize();
    FitAll(Names, Value);
    FitAll(Heads, std::min(Value, MostHeadPixels));
    FitAll(Targets, Value);
    if (auto* Note = findChild<QLabel*>("lbNote")) FitAll({Note}, static_cast<int>(NotePart * height()));
}

void fCoachTable::FitValues()
{
    if (Cells.empty()) return;
    const QSize Room = Cells.back()->size();
    const auto Pixels = [&](fCoachCell::eMark Mark) {
        const QSizeF Need = fCoachCell::NeedOf(font(), QString(Longest - 2, '0') + ".0", Mark);
        return static_cast<int>(std::min(Room.width() / Need.width(), Room.height() / Need.height()));
    };
    const int Beside = Pixels(fCoachCell::eMark::Beside);
    const int Above = Pixels(fCoachCell::eMark::Above);
    for (fCoachCell* Cell : Cells)
        Cell->SetPixels(std::max({LeastPixels, Beside, Above}),
                        Above > Beside ? fCoachCell::eMark::Above : fCoachCell::eMark::Beside);
}
