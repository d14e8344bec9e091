// Building of the dialog, the list of folders, and the way between its controls and the form.
#include "records/fAthleteInp.h"

#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "records/qForm.h"
#include "widgets/qPlace.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <filesystem>

namespace {
constexpr const char* Section = "fAthleteInp";
} // namespace

fAthleteInp::fAthleteInp(QWidget* Parent) : QDialog(Parent)
{
    setObjectName("fAthleteInp");
    setWindowTitle("Personal Data of the Athlete");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* Scroll = new QScrollArea(this);
    Scroll->setFrameShape(QFrame::NoFrame);
    Scroll->setWidgetResizable(true);
    Scroll->setWidget(BuildForm());
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(Scroll, 1);
    Layout->addLayout(BuildName());
    Layout->addLayout(BuildButtons());
    ShowForm(LoadAthlete());
    Text1[AthleteName]->setFocus();
    RestorePlace(*this, Section, {780, 560});
}

QWidget* fAthleteInp::BuildForm()
{
    auto* Form = new QWidget(this);
    auto* Columns = new QHBoxLayout(Form);
    Columns->setContentsMargins(0, 0, 0, 0);
    Columns->setSpacing(ColumnGap);
    Columns->addWidget(BuildFolders(), 2);
    Columns->addWidget(BuildBoxes(), 3);
    Columns->addWidget(BuildChoices());
    return Form;
}

QWidget* fAthleteInp::BuildFolders()
{
    auto* Panel = new QWidget(this);
    auto* Rows = new QVBoxLayout(Panel);
    Rows->setContentsMargins(0, 0, 0, 0);
    lbBase = new QLabel(Panel);
    lbBase->setObjectName("lbBase");
    lbBase->setWordWrap(true);
    DirLB = new QListWidget(Panel);
    DirLB->setObjectName("DirLB");
    DirLB->setToolTip("The folder that the session goes to; a double click opens it");
    Rows->addWidget(lbBase);
    Rows->addWidget(DirLB, 1);
    connect(DirLB, &QListWidget::currentRowChanged, this, [this] { ShowName(); });
    connect(DirLB, &QListWidget::itemDoubleClicked, this, [this] { EnterFolder(DirLB->currentRow()); });
    return Panel;
}

QWidget* fAthleteInp::BuildBoxes()
{
    auto* Panel = new QWidget(this);
    auto* Rows = new QFormLayout(Panel);
    Rows->setContentsMargins(0, 0, 0, 0);
    Rows->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    for (std::size_t i = 0; i < AthleteBoxCnt; ++i) {
        Text1[i] = MakeBox(Panel, QString("Text1_%1").arg(i), [this] { ShowName(); });
        Text1[i]->installEventFilter(this);
        Rows->addRow(AthleteCaptions()[i], Text1[i]);
    }
    return Panel;
}

QWidget* fAthleteInp::BuildChoices()
{
    auto* Panel = new QWidget(this);
    auto* Rows = new QVBoxLayout(Panel);
    Rows->setContentsMargins(0, 0, 0, 0);
    const auto Add = [&](const char* Name, const char* Caption, std::span<const LetterChoice> Choices, int Columns) {
        auto* Group = new qChoice(Panel, Name, Caption, Choices, Columns);
        Rows->addWidget(Group);
        return Group;
    };
    opGender = Add("opGender", "Gender", GenderChoices(), 2);
    opWeght = Add("opWeght", "Weght Group", WeightGroupChoices(), 1);
    optBoatType = Add("optBoatType", "Boat Type", BoatTypeChoices(), 2);
    optAge = Add("optAge", "Age Group", AthleteAgeChoices(), 1);
    Rows->addStretch();
    return Panel;
}

QLayout* fAthleteInp::BuildName()
{
    auto* Rows = new QFormLayout;
    const auto Words = [this](const char* Name) {
        auto* Label = new QLabel(this);
        Label->setObjectName(Name);
        Label->setWordWrap(true);
        Label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        return Label;
    };
    lbPath = Words("lbPath");
    lbPlan = Words("lbPlan");
    Rows->addRow("File:", lbPath);
    Rows->addRow(lbPlan);
    return Rows;
}

QLayout* fAthleteInp::BuildButtons()
{
    auto* Line = new QHBoxLayout;
    auto* Ok = new QPushButton("O&K", this);
    Ok->setObjectName("cmdOK");
    Ok->setDefault(true);
    connect(Ok, &QPushButton::clicked, this, [this] { Store(); });
    auto* Cancel = new QPushButton("&Cancel", this);
    Cancel->setObjectName("cmdCancel");
    connect(Cancel, &QPushButton::clicked, this, [this] { reject(); });
    Line->addStretch();
    Line->addWidget(Ok);
    Line->addWidget(Cancel);
    return Line;
}

// The folder itself, the one above, and those in it.
void fAthleteInp::ListFolders()
{
    DirLB->clear();
    DirLB->addItem("(this folder)");
    HasAbove = !FolderAbove(Base).empty();
    if (HasAbove) DirLB->addItem("..");
    for (const std::string& Name : FoldersIn(Base))
        DirLB->addItem(Shown(Name));
    lbBase->setText("Folder: " + Shown(Base));
    DirLB->setCurrentRow(0);
}

std::string fAthleteInp::FolderOf(int Row) const
{
    if (Row <= 0) return Base;
    if (HasAbove && Row == 1) return FolderAbove(Base);
    return (std::filesystem::path(Base) / Plain(DirLB->item(Row)->text())).string();
}

void fAthleteInp::EnterFolder(int Row)
{
    Base = FolderOf(Row);
    ListFolders();
}

AthleteForm fAthleteInp::TypedForm() const
{
    AthleteForm Form;
    for (std::size_t i = 0; i < AthleteBoxCnt; ++i)
        Form.Text[i] = Plain(Text1[i]->text());
    Form.Gender = opGender->Letter();
    Form.WeightGroup = opWeght->Letter();
    Form.BoatType = optBoatType->Letter();
    Form.AgeGroup = optAge->Letter();
    Form.Folder = FolderOf(DirLB->currentRow());
    return Form;
}

void fAthleteInp::ShowForm(const AthleteForm& Form)
{
    IsFilling = true;
    for (std::size_t i = 0; i < AthleteBoxCnt; ++i)
        Text1[i]->setText(Shown(Form.Text[i]));
    opGender->SetLetter(Form.Gender);
    opWeght->SetLetter(Form.WeightGroup);
    optBoatType->SetLetter(Form.BoatType);
    optAge->SetLetter(Form.AgeGroup);
    Base = ProposedFolder();
    ListFolders();
    IsFilling = false;
    ShowName();
}

void fAthleteInp::ShowName()
{
    if (IsFilling) return;
    const AthleteForm Form = TypedForm();
    const auto Faults = CheckAthlete(Form);
    MarkFaults(*this, Faults);
    lbPath->setText(Shown(AthletePath(Form)));
    lbPlan->setText(FaultOrPlan(Faults, AthletePlan(Form)));
}

void fAthleteInp::Store()
{
    const AthleteForm Form = TypedForm();
    if (Guard("Making the athlete's session", [&] { return CreateDataFile(Form, MayReplace); })) return accept();
    GoToFault(*this, CheckAthlete(Form));
}

// A click into a box selects all of it.
bool fAthleteInp::eventFilter(QObject* Watched, QEvent* Event)
{
    if (auto* Box = qobject_cast<QLineEdit*>(Watched); Box && Event->type() == QEvent::MouseButtonRelease)
        Box->selectAll();
    return QDialog::eventFilter(Watched, Event);
}

void fAthleteInp::done(int Result)
{
    KeepPlace(*this, Section);
    QDialog::done(Result);
}
