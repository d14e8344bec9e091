// The options as a dialog: its parts, the search, and the end.
#include "records/fOpts.h"

#include "platform/mHost.h"
#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "records/fOptionControls.h"
#include "records/mColourSample.h"
#include "widgets/qPlace.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr const char* Section = "fOpts";
constexpr const char* Caption = "The Main Options";
const QColor FaultColour(192, 0, 0);

constexpr const char* Sheet = R"(
*[help="true"] { color: #55606a; }
*[fault="true"] { color: #c00000; }
*[found="true"] { background-color: #ffef9e; }
)";
} // namespace

fOpts::fOpts(QWidget* Parent)
    : QDialog(Parent), Controls(new fOptionControls(Options, this)), txtSearch(new QLineEdit(this)),
      lbFound(new QLabel(this)), SSTab1(new QTabWidget(this)), lbState(new QLabel(this))
{
    setObjectName(Section);
    setWindowTitle(Caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setStyleSheet(Sheet);
    SSTab1->setObjectName("SSTab1");
    auto* Layout = new QVBoxLayout(this);
    Layout->addLayout(BuildSearch());
    Layout->addWidget(SSTab1, 1);
    for (const OptionPage& Page : OptionPages())
        SSTab1->addTab(BuildPage(Page.Page), Page.Title);
    Layout->addLayout(BuildButtons());
    Controls->ShowAll();
    Controls->OnChange = [this] {
        lbState->clear();
        ShowFaults();
    };
    ShowFaults();
    RestorePlace(*this, Section, {860, 640});
    txtSearch->setFocus();
}

QLayout* fOpts::BuildSearch()
{
    txtSearch->setObjectName("txtSearch");
    txtSearch->setPlaceholderText("A word of a setting; Enter and the arrow keys go through what is found");
    txtSearch->setClearButtonEnabled(true);
    txtSearch->installEventFilter(this);
    lbFound->setObjectName("lbFound");
    lbFound->setMinimumWidth(fontMetrics().horizontalAdvance("00 of 00 found"));
    connect(txtSearch, &QLineEdit::textChanged, this, [this](const QString& Words) { Search(Words); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        txtSearch->setFocus();
        txtSearch->selectAll();
    });
    auto* Label = new QLabel("Fin&d", this);
    Label->setBuddy(txtSearch);
    auto* Row = new QHBoxLayout;
    Row->addWidget(Label);
    Row->addWidget(txtSearch, 1);
    Row->addWidget(lbFound);
    return Row;
}

QWidget* fOpts::BuildPage(eOptionPage Page)
{
    auto* Inner = new QWidget;
    auto* Sides = new QHBoxLayout(Inner);
    auto* Rows = new QVBoxLayout;
    Sides->addLayout(Rows, 1);
    int First = 0;
    for (const OptionGroup& Group : OptionGroups()) {
        if (Group.Page == Page) Rows->addWidget(Controls->BuildGroup(Group, First));
        First += static_cast<int>(Group.Items.size());
    }
    Rows->addStretch();
    if (Page == eOptionPage::Colours) {
        auto* Sample = new qSurface;
        Sample->setObjectName("picColours");
        Sample->setMinimumSize(220, 160);
        Sample->OnResize = [Sample] { DrawColourSample(*Sample); };
        Sides->addWidget(Sample, 1);
    }
    auto* Area = new QScrollArea;
    Area->setWidgetResizable(true);
    Area->setFrameShape(QFrame::NoFrame);
    Area->setWidget(Inner);
    return Area;
}

QLayout* fOpts::BuildButtons()
{
    lbState->setObjectName("lbState");
    lbState->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* Row = new QHBoxLayout;
    Row->addWidget(lbState, 1);
    const auto Add = [&](const char* Name, const char* Text, const char* Tip, auto Action) {
        auto* Button = new QPushButton(Text, this);
        Button->setObjectName(Name);
        Button->setToolTip(Tip);
        Button->setAutoDefault(false);
        connect(Button, &QPushButton::clicked, this, Action);
        Row->addWidget(Button);
        return Button;
    };
    Add("cmdOK", "O&K", "Stores everything and closes (Enter)", [this] { Apply(true); })->setDefault(true);
    Add("cmdApply", "&Apply", "Stores everything", [this] { Apply(false); });
    Add("cmdCancel", "&Cancel", "Closes without storing (Esc); colours and pen width stay as they were chosen",
        [this] { reject(); });
    return Row;
}

void fOpts::ShowFaults()
{
    const std::vector<eOptionPage> Bad = Controls->ShowFaults();
    for (std::size_t i = 0; i < OptionPages().size(); ++i) {
        const auto Count = std::count(Bad.begin(), Bad.end(), OptionPages()[i].Page);
        const auto Tab = static_cast<int>(i);
        SSTab1->tabBar()->setTabTextColor(Tab, Count > 0 ? FaultColour : QColor());
        SSTab1->setTabToolTip(Tab, Count > 0 ? QString("%1 of these settings cannot be used").arg(Count) : QString());
    }
}

void fOpts::Search(const QString& Words)
{
    Found = Options.Search(Plain(Words));
    FoundAt = 0;
    lbFound->setText(Words.trimmed().isEmpty() ? "" : "None found");
    Controls->Mark(-1);
    GoToFound(0);
}

void fOpts::GoToFound(int Step)
{
    if (Found.empty()) return;
    const auto Count = static_cast<int>(Found.size());
    FoundAt = (FoundAt + Step + Count) % Count;
    lbFound->setText(QString("%1 of %2 found").arg(FoundAt + 1).arg(Count));
    ShowItem(Found[static_cast<std::size_t>(FoundAt)]);
}

void fOpts::ShowItem(int Index)
{
    SSTab1->setCurrentIndex(static_cast<int>(Options.Page(Index)));
    constexpr int Beside = 8, Above = 60;
    auto* Area = dynamic_cast<QScrollArea*>(SSTab1->currentWidget());
    Area->widget()->layout()->activate();
    Area->horizontalScrollBar()->setValue(0); // labels stand at the left
    Area->ensureWidgetVisible(Controls->Mark(Index), Beside, Above);
}

bool fOpts::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Watched != txtSearch || Event->type() != QEvent::KeyPress || txtSearch->text().isEmpty())
        return QDialog::eventFilter(Watched, Event);
    const int Key = static_cast<const QKeyEvent*>(Event)->key();
    const bool IsNext = Key == Qt::Key_Return || Key == Qt::Key_Enter || Key == Qt::Key_Down;
    if (!IsNext && Key != Qt::Key_Up) return QDialog::eventFilter(Watched, Event);
    GoToFound(IsNext ? 1 : -1);
    return true;
}

void fOpts::Apply(bool Closes)
{
    const bool IsStored = Guard(Caption, [this] { return Options.SaveMain(); });
    if (IsStored && Closes) return accept();
    if (const int TooLarge = Options.FirstTooLarge(); TooLarge >= 0) return ShowItem(TooLarge);
    Controls->ShowAll();
    ShowFaults();
    lbState->setText(IsStored ? "Stored." : "Not all could be stored.");
}

void fOpts::done(int Result)
{
    KeepPlace(*this, Section);
    QDialog::done(Result);
}
