// The controls of the session dialog.
#include "records/fSession.h"

#include "core/mGlobData.h"
#include "records/qForm.h"
#include "widgets/qPlace.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {
QLabel* Words(QWidget* Parent, const char* Name)
{
    auto* Label = new QLabel(Parent);
    Label->setObjectName(Name);
    Label->setWordWrap(true);
    Label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return Label;
}
} // namespace

fSession::fSession(QWidget* Parent, const std::vector<std::string>& InitFolders) : QDialog(Parent), Folders(InitFolders)
{
    setObjectName("fSession");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* Scroll = new QScrollArea(this);
    Scroll->setFrameShape(QFrame::NoFrame);
    Scroll->setWidgetResizable(true);
    Scroll->setWidget(BuildForm());
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(Scroll, 1);
    Layout->addLayout(BuildName());
    Layout->addLayout(BuildButtons());
    InitMode(SessionNew);
    RestorePlace(*this, Section, {940, 660});
}

QWidget* fSession::BuildForm()
{
    auto* Form = new QWidget(this);
    auto* Columns = new QHBoxLayout;
    Columns->setSpacing(ColumnGap);
    Columns->addWidget(BuildTemplates(), 2);
    Columns->addWidget(BuildBoxes(), 3);
    Columns->addWidget(BuildChoices());
    auto* Rows = new QVBoxLayout(Form);
    Rows->setContentsMargins(0, 0, 0, 0);
    Rows->addLayout(Columns, 1);
    Rows->addLayout(BuildFolder());
    return Form;
}

QGroupBox* fSession::BuildTemplates()
{
    frTemplates = new QGroupBox("Template", this);
    frTemplates->setObjectName("frTemplates");
    lstTemplates = new QListWidget(frTemplates);
    lstTemplates->setObjectName("lstTemplates");
    lbOwnTemplates = Words(frTemplates, "lbOwnTemplates");
    auto* Keep = new QPushButton("Add the open session...", frTemplates);
    Keep->setObjectName("cmdKeepTemplate");
    Keep->setToolTip("Keeps the set-up of the open session, without samples and rowers, as a template of your own");
    Keep->setAutoDefault(false);
    Keep->setEnabled(gFile.Calibr.UBound() > 0);
    connect(Keep, &QPushButton::clicked, this, [this] { KeepOpenSession(); });
    auto* Rows = new QVBoxLayout(frTemplates);
    Rows->addWidget(lstTemplates, 1);
    Rows->addWidget(Keep);
    Rows->addWidget(lbOwnTemplates);
    connect(lstTemplates, &QListWidget::currentRowChanged, this, [this] { ChooseTemplate(); });
    return frTemplates;
}

QWidget* fSession::BuildBoxes()
{
    auto* Panel = new QWidget(this);
    auto* Rows = new QFormLayout(Panel);
    Rows->setContentsMargins(0, 0, 0, 0);
    Rows->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    const auto Add = [&](const char* Caption, const QString& Name) {
        QLineEdit* Box = MakeBox(Panel, Name, [this] { ShowName(); });
        Rows->addRow(Caption, Box);
        return Box;
    };
    txtDate = Add("Date (d/m/y)", "txtDate");
    txtSessNum = Add("Session Number", "txtSessNum");
    txtPlace = Add("Place", "txtPlace");
    txtCoach = Add("Coach Name", "txtCoach");
    for (std::size_t i = 0; i < SessionParCnt; ++i)
        txtPars[i] = Add(SessionPars()[i].Caption, QString("txtPars_%1").arg(i));
    lbTemplate = Words(Panel, "lbTemplate"); // beside the list of templates
    Rows->addItem(new QSpacerItem(0, ColumnGap));
    Rows->addRow(lbTemplate);
    return Panel;
}

QWidget* fSession::BuildChoices()
{
    auto* Panel = new QWidget(this);
    auto* Rows = new QVBoxLayout(Panel);
    Rows->setContentsMargins(0, 0, 0, 0);
    const auto Add = [&](const char* Name, const char* Caption, std::span<const LetterChoice> Choices, int Columns) {
        auto* Group = new qChoice(Panel, Name, Caption, Choices, Columns);
        Group->OnChosen = [this] { ShowName(); };
        Rows->addWidget(Group);
        return Group;
    };
    optSex = Add("optSex", "Athlet's Gender", SexChoices(), 2);
    optWeight = Add("optWeight", "Category", CategoryChoices(), 1);
    optBoatType = Add("optBoatType", "Boat Type", BoatTypeChoices(), 2);
    optAge = Add("optAge", "Age Group", AgeGroupChoices(), 2);
    Rows->addStretch();
    return Panel;
}

QFormLayout* fSession::BuildFolder()
{
    auto* Rows = new QFormLayout;
    txtComment = MakeBox(this, "txtComment", [this] { ShowName(); });
    Rows->addRow("Comment", txtComment);
    DirLtxt = MakeBox(this, "DirLtxt", [this] { ShowName(); });
    auto* Browsing = new QPushButton("Browse", this);
    Browsing->setObjectName("cmdBrowse");
    Browsing->setAutoDefault(false);
    connect(Browsing, &QPushButton::clicked, this, [this] { Browse(); });
    cmdBrowse = Browsing;
    auto* Line = new QHBoxLayout;
    Line->addWidget(DirLtxt, 1);
    Line->addWidget(Browsing);
    Rows->addRow("Base Data Directory:", Line);
    return Rows;
}

QFormLayout* fSession::BuildName()
{
    auto* Rows = new QFormLayout;
    lbSessID = Words(this, "lbSessID");
    lbPath = Words(this, "lbPath");
    lbPlan = Words(this, "lbPlan");
    Rows->addRow("Identifier:", lbSessID);
    Rows->addRow("File:", lbPath);
    Rows->addRow(lbPlan);
    return Rows;
}

QLayout* fSession::BuildButtons()
{
    auto* Line = new QHBoxLayout;
    Line->addStretch();
    const auto Add = [&](const char* Name, const char* Caption, const std::function<void()>& Action) {
        auto* Button = new QPushButton(Caption, this);
        Button->setObjectName(Name);
        connect(Button, &QPushButton::clicked, this, Action);
        Line->addWidget(Button);
        return Button;
    };
    Add("cmdOK", "O&K", [this] {
        if (Apply()) accept();
    })->setDefault(true);
    Add("cmdApply", "&Apply", [this] {
        if (Apply()) InitMode(SessionChange);
    });
    Add("cmdCancel", "&Cancel", [this] { reject(); });
    return Line;
}
