// Option groups, boxes and marks.
#include "records/qForm.h"

#include "core/mIni.h"
#include "platform/qt/qText.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QStandardPaths>

#include <algorithm>

namespace {
constexpr const char* FaultLook = "QLineEdit, QListWidget { background: #ffe3e3; color: #a00000; }";
}

qChoice::qChoice(QWidget* Parent, const char* Name, const char* Caption, std::span<const LetterChoice> InitChoices,
                 int Columns)
    : QGroupBox(Caption, Parent), Choices(InitChoices), Buttons(new QButtonGroup(this))
{
    setObjectName(Name);
    auto* Grid = new QGridLayout(this);
    const int Count = static_cast<int>(Choices.size());
    const int Rows = (Count + Columns - 1) / Columns;
    for (int i = 0; i < Count; ++i) {
        auto* Button = new QRadioButton(Choices[static_cast<std::size_t>(i)].Caption, this);
        Button->setObjectName(QString("%1_%2").arg(Name).arg(i));
        Buttons->addButton(Button, i);
        Grid->addWidget(Button, i % Rows, i / Rows, Qt::AlignLeft); // only its text can be clicked
    }
    connect(Buttons, &QButtonGroup::idClicked, this, [this] {
        if (OnChosen) OnChosen();
    });
}

std::string qChoice::Letter() const
{
    const int Chosen = Buttons->checkedId();
    return Chosen < 0 ? "" : Choices[static_cast<std::size_t>(Chosen)].Letter;
}

void qChoice::SetLetter(const std::string& Wanted)
{
    Buttons->setExclusive(false); // an exclusive group keeps one button down
    for (QAbstractButton* Button : Buttons->buttons())
        Button->setChecked(Choices[static_cast<std::size_t>(Buttons->id(Button))].Letter == Wanted);
    Buttons->setExclusive(true);
}

QLineEdit* MakeBox(QWidget* Parent, const QString& Name, const std::function<void()>& OnTyped)
{
    auto* Box = new QLineEdit(Parent);
    Box->setObjectName(Name);
    Box->setMinimumWidth(110); // a date, on screens that are too small for the dialog
    QObject::connect(Box, &QLineEdit::textChanged, Parent, [OnTyped] { OnTyped(); });
    return Box;
}

void MarkFaults(QWidget& Window, const std::vector<FormFault>& Faults)
{
    const auto Mark = [&](QWidget* Control) {
        const auto Found = std::find_if(Faults.begin(), Faults.end(), [&](const FormFault& Each) {
            return Shown(Each.Control) == Control->objectName();
        });
        const bool IsBad = Found != Faults.end();
        const QString Look = IsBad ? FaultLook : "";
        if (Control->styleSheet() != Look) Control->setStyleSheet(Look);
        Control->setToolTip(IsBad ? Shown(Found->Why) : QString());
    };
    for (QLineEdit* Box : Window.findChildren<QLineEdit*>())
        Mark(Box);
}

void GoToFault(QWidget& Window, const std::vector<FormFault>& Faults)
{
    if (Faults.empty()) return;
    if (auto* Control = Window.findChild<QWidget*>(Shown(Faults[0].Control))) Control->setFocus();
}

QString FaultOrPlan(const std::vector<FormFault>& Faults, const std::string& Plan)
{
    if (Faults.empty()) return Shown(Plan).toHtmlEscaped();
    QString Why = Shown(Faults[0].Why);
    Why[0] = Why[0].toUpper();
    return "<span style='color:#a00000'>" + Why.toHtmlEscaped() + ".</span>";
}

std::string ProposedFolder()
{
    if (!gBaseFolder.empty()) return gBaseFolder;
    return Plain(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Skarvelin");
}
