// Controls of the window of anthropometry, and the clicks that it takes.
#include "video/fAnthro.h"

#include "base/mNumText.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "video/f1Video.h"
#include "video/mDigitDraw.h"
#include "widgets/qFlowLayout.h"
#include "widgets/qMnemonics.h"
#include "widgets/qPlace.h"
#include "widgets/qWorkArea.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>

fAnthro::fAnthro(f1Video& InitOwner) : Owner(&InitOwner)
{
    setObjectName("fAnthro");
    setWindowTitle("Anthropometry");
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(AsksToClose, true);
    auto* Layout = new QVBoxLayout(this);
    Layout->addLayout(BuildHead());
    Layout->addWidget(BuildTable(), 1);
    Layout->addLayout(BuildCommands());
    TakeMnemonics(*this);
    Attach();
    ShowAll();
}

fAnthro::~fAnthro()
{
    Detach();
}

// The video window may be measured on again before this one is gone.
void fAnthro::Detach()
{
    if (!Still) return;
    Still.reset();
    if (Owner) Owner->MayClose = nullptr;
}

QLayout* fAnthro::BuildHead()
{
    auto* Grid = new QGridLayout;
    cboRower = new QComboBox(this);
    cboRower->setObjectName("cboRower");
    cboRower->setEditable(true);
    cboRower->setToolTip("Rower ID under which the measurements are kept");
    for (const CrewRow& Row : gFile.Crew)
        if (!Row.RowerID.empty() && cboRower->findText(Shown(Row.RowerID)) < 0) cboRower->addItem(Shown(Row.RowerID));
    txtKnown = new QLineEdit(this);
    txtKnown->setObjectName("txtKnown");
    txtKnown->setToolTip("Length in millimetres of what the first two clicks mark, in the plane of the body");
    lbNext = new QLabel(this);
    lbNext->setObjectName("lbNext");
    lbNext->setWordWrap(true);
    auto* lbRower = new QLabel("&Rower ID", this);
    lbRower->setBuddy(cboRower);
    auto* lbKnown = new QLabel("&Known length (mm)", this);
    lbKnown->setBuddy(txtKnown);
    Grid->addWidget(lbRower, 0, 0);
    Grid->addWidget(cboRower, 0, 1);
    Grid->addWidget(lbKnown, 1, 0);
    Grid->addWidget(txtKnown, 1, 1);
    Grid->addWidget(lbNext, 2, 0, 1, 2);
    Grid->setColumnStretch(1, 1);
    connect(txtKnown, &QLineEdit::textChanged, this, [this](const QString& Text) {
        Body.SetKnown(NumberAlone(Plain(Text.trimmed())).value_or(0));
        ShowAll();
    });
    return Grid;
}

QWidget* fAnthro::BuildTable()
{
    auto* Table = new QWidget(this);
    auto* Grid = new QGridLayout(Table);
    Grid->setVerticalSpacing(2);
    for (int Line = 0; Line <= static_cast<int>(BodyLengths().size()); ++Line) {
        const char* Name = Line == 0 ? "Known length" : BodyLengths()[static_cast<std::size_t>(Line) - 1].Name;
        lbName.push_back(new QLabel(Name, Table));
        lbName.back()->setObjectName(QString("lbName_%1").arg(Line));
        lbName.back()->setToolTip("A click measures this next");
        lbName.back()->setCursor(Qt::PointingHandCursor);
        lbName.back()->installEventFilter(this);
        lbLength.push_back(new QLabel(Table));
        lbLength.back()->setObjectName(QString("lbLength_%1").arg(Line));
        lbLength.back()->setAlignment(Qt::AlignRight);
        lbLength.back()->setMinimumWidth(fontMetrics().horizontalAdvance("00000 mm"));
        Grid->addWidget(lbName.back(), Line, 0);
        Grid->addWidget(lbLength.back(), Line, 1);
    }
    Grid->setColumnStretch(0, 1);
    Grid->setRowStretch(static_cast<int>(lbName.size()), 1);
    auto* Scroll = new QScrollArea(this);
    Scroll->setObjectName("scrLengths");
    Scroll->setWidgetResizable(true);
    Scroll->setWidget(Table);
    return Scroll;
}

QLayout* fAnthro::BuildCommands()
{
    auto* Flow = new qFlowLayout;
    cmdUndo = new QPushButton("&Undo", this);
    cmdUndo->setObjectName("cmdUndo");
    cmdUndo->setToolTip("Takes the last click back");
    connect(cmdUndo, &QPushButton::clicked, this, [this] {
        Body.Undo();
        ShowAll();
    });
    auto* cmdSave = new QPushButton("&Save Data", this);
    cmdSave->setObjectName("cmdSave");
    cmdSave->setToolTip("Puts what is measured into the table of measurements, as today's of the rower");
    connect(cmdSave, &QPushButton::clicked, this, [this] { Save(); });
    Flow->addWidget(cmdUndo);
    Flow->addWidget(cmdSave);
    return Flow;
}

void fAnthro::Attach()
{
    Still = std::make_unique<fDigitStill>(*Owner->picVideoWindow);
    Still->OnPaint = [this](iSurface& Surface, const std::optional<SurfacePlace>& Pointer) {
        const auto Seen = [this](const VideoPoint& Place) {
            const QPointF At = Owner->picVideoWindow->FromPicture({Place.X, Place.Y});
            return SurfacePlace{At.x(), At.y()};
        };
        DrawMeasures(Surface, Body, Seen, Pointer);
    };
    Still->OnPress = [this](QPointF At, double Reach) {
        Body.Press(At.x(), At.y(), Reach);
        IsChanged = true;
        ShowAll();
    };
    Still->OnMove = [this](QPointF At, double) {
        Body.Move(At.x(), At.y());
        ShowAll();
    };
    Still->OnRelease = [this] { Body.Release(); };
    Owner->MayClose = [this] {
        if (!MayEnd()) return false;
        QTimer::singleShot(0, this, [this] { (parentWidget() ? parentWidget() : this)->close(); });
        return true;
    };
}

void fAnthro::ShowAll()
{
    lbNext->setText(Shown("Next: " + Body.NextName()));
    for (std::size_t i = 0; i < lbName.size(); ++i) {
        const auto Length = Body.Length(static_cast<int>(i));
        lbLength[i]->setText(Shown(Length ? FormatNum(*Length, "0") + " mm" : ""));
        QFont Letters = lbName[i]->font();
        Letters.setBold(static_cast<int>(i) == Body.Current());
        lbName[i]->setFont(Letters);
    }
    if (Owner) Owner->picVideoWindow->update();
}

bool fAnthro::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::MouseButtonPress)
        for (std::size_t i = 0; i < lbName.size(); ++i)
            if (Watched == lbName[i]) {
                Body.Select(static_cast<int>(i));
                ShowAll();
            }
    return QWidget::eventFilter(Watched, Event);
}

bool fAnthro::Save()
{
    const std::string RowerID = Plain(cboRower->currentText().trimmed());
    if (!Body.Store(RowerID)) return false;
    IsChanged = false;
    UpdateStatus("Measurements of " + RowerID + " saved");
    return true;
}

bool fAnthro::MayEnd()
{
    if (IsEnded) return true;
    if (IsChanged && Body.HasMeasured() && AskYesNo("Save data?", "Warning") && !Save()) return false;
    IsEnded = true;
    return true;
}

void fAnthro::closeEvent(QCloseEvent* Event)
{
    if (!MayEnd()) return Event->ignore();
    KeepPlace(*this, Section);
    Detach();
    QWidget::closeEvent(Event);
}
