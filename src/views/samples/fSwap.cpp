// Boxes, commands and the result line of the sample corrections.
#include "views/samples/fSwap.h"

#include "base/mNumText.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qDecimal.h"
#include "widgets/qMnemonics.h"
#include "widgets/qPlace.h"
#include "widgets/qWorkArea.h"

#include <QCloseEvent>
#include <QCompleter>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr const char* Caption = "Correct Vars";

QStringList ParamIDs()
{
    QStringList Names;
    for (const CalibrRow& Row : gFile.Calibr)
        Names << Shown(Row.ParamID);
    return Names;
}
} // namespace

fSwap::fSwap()
    : Session([this](eNotice What) {
          if (What == eNotice::SessionSaved) Swap.SetSaved();
      }),
      lbOutput(new QLabel(this))
{
    setObjectName("fSwap");
    setWindowTitle(Caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(AsksToClose, true);
    lbOutput->setObjectName("lbOutput");
    lbOutput->setWordWrap(true);
    lbOutput->setMinimumHeight(3 * fontMetrics().height());
    lbOutput->setText("Corrections work on all samples of the session. They stay in memory until Save.");
    auto* Layout = new QVBoxLayout(this);
    Layout->addLayout(BuildBoxes());
    Layout->addLayout(BuildButtons());
    Layout->addWidget(lbOutput);
    Layout->addStretch();
    TakeKey(*this, QKeySequence::Undo, [this] { Undo(); });
    TakeKey(*this, QKeySequence::Save, [this] { Save(); });
    TakeMnemonics(*this);
    setFocusProxy(txtWhat);
}

QLineEdit* fSwap::AddBox(QFormLayout& Form, const char* Name, const char* Label)
{
    auto* Box = new QLineEdit(this);
    Box->setObjectName(Name);
    Form.addRow(Label, Box);
    return Box;
}

QLayout* fSwap::BuildBoxes()
{
    auto* Form = new QFormLayout;
    txtWhat = AddBox(*Form, "txtWhat", "&What (parameter or seat)");
    txtWith = AddBox(*Form, "txtWith", "W&ith (parameter or seat)");
    txtAverTo = AddBox(*Form, "txtAverTo", "Average &to (parameter)");
    txtOffset = AddBox(*Form, "txtOffset", "&Number (offset or factor)");
    TakeDecimalComma(*txtOffset);
    for (QLineEdit* Box : {txtWhat, txtWith, txtAverTo})
        Box->setCompleter(new QCompleter(ParamIDs(), Box));
    return Form;
}

QPushButton* fSwap::AddButton(const char* Name, const char* Text, const char* Tip, const std::function<void()>& Action)
{
    auto* Button = new QPushButton(Text, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    connect(Button, &QPushButton::clicked, this, Action);
    return Button;
}

QLayout* fSwap::BuildButtons()
{
    const auto Number = [this] { return Val(Plain(txtOffset->text())); };
    QPushButton* const Buttons[] = {
        AddButton("cmdOffset", "Offset", "Adds the number to the parameter in each sample",
                  [=, this] { Correct([=, this] { return Swap.OffScale('O', Number()); }); }),
        AddButton("cmdScale", "Scale", "Multiplies the parameter by the number in each sample",
                  [=, this] { Correct([=, this] { return Swap.OffScale('S', Number()); }); }),
        AddButton("cmdSwap", "Swap Seats", "Exchanges the two seat numbers in channels and samples",
                  [this] { Correct([this] { return Swap.Swap(); }); }),
        AddButton("cmdRename", "Rename", "Gives the parameter What the name With",
                  [this] { Correct([this] { return Swap.Rename(); }); }),
        AddButton("cmdReplace", "Replace", "Copies the curve of With over that of What in each sample",
                  [this] { Correct([this] { return Swap.Replace(); }); }),
        AddButton("cmdAverage", "Average", "Puts the mean of What and With into the third parameter",
                  [this] { Correct([this] { return Swap.Average(); }); }),
        AddButton("cmdUndo", "Undo", "Takes the last correction back (Ctrl+Z)", [this] { Undo(); }),
        AddButton("cmdSave", "Save", "Writes the session data file behind a backup copy (Ctrl+S)", [this] { Save(); }),
    };
    auto* Grid = new QGridLayout;
    int Place = 0;
    for (QPushButton* Button : Buttons) {
        Grid->addWidget(Button, Place / 2, Place % 2);
        ++Place;
    }
    return Grid;
}

void fSwap::Correct(const std::function<std::string()>& Command)
{
    Swap.What = Plain(txtWhat->text());
    Swap.With = Plain(txtWith->text());
    Swap.AverTo = Plain(txtAverTo->text());
    Guard(Caption, [&] {
        lbOutput->setText(Shown(Command()));
        return true;
    });
}

void fSwap::Undo()
{
    lbOutput->setText(Swap.Undo() ? "The last correction was taken back."
                                  : "There is no correction to take back: none was made, or the samples were "
                                    "changed by another window since.");
}

void fSwap::Save()
{
    Guard(Caption, [this] {
        if (Swap.Save()) lbOutput->setText("Saved: " + Shown(gCurFile));
        return true;
    });
}

void fSwap::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape)
        (parentWidget() ? parentWidget() : this)->close();
    else
        QWidget::keyPressEvent(Event);
}

void fSwap::closeEvent(QCloseEvent* Event)
{
    if (Swap.IsChanged() &&
        !AskYesNo("The corrections are in memory only: the session data file does not have them. Close without saving?",
                  TitleWarning))
        return Event->ignore();
    KeepPlace(*this, "fSwap");
    QWidget::closeEvent(Event);
}
