// The way between the session dialog's controls and the form, and what its buttons do.
#include "records/fSession.h"

#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "records/qForm.h"
#include "widgets/qPlace.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

#include <filesystem>

void fSession::InitMode(int16_t InitMode)
{
    Mode = static_cast<eSessionMode>(InitMode);
    setWindowTitle(SessionCaption(Mode));
    frTemplates->setVisible(Mode == SessionNew);
    lbTemplate->setVisible(Mode == SessionNew);
    txtDate->setEnabled(Mode != SessionChange);
    txtSessNum->setEnabled(Mode != SessionChange);
    DirLtxt->setEnabled(Mode != SessionChange);
    cmdBrowse->setEnabled(Mode != SessionChange);
    SessionForm Form = LoadSession(Mode);
    Form.Folder = ProposedFolder();
    Proposed.reset();
    ShowForm(Form);
    if (Mode == SessionNew) ListTemplates("");
    (Mode == SessionNew ? static_cast<QWidget*>(lstTemplates) : txtPlace)->setFocus();
}

void fSession::ShowForm(const SessionForm& Form)
{
    IsFilling = true;
    txtDate->setText(Shown(Form.Date));
    txtSessNum->setText(Shown(Form.SessNum));
    txtPlace->setText(Shown(Form.Place));
    txtCoach->setText(Shown(Form.Coach));
    for (std::size_t i = 0; i < SessionParCnt; ++i)
        txtPars[i]->setText(Shown(Form.Pars[i]));
    txtComment->setText(Shown(Form.Comment));
    DirLtxt->setText(Shown(Form.Folder));
    optSex->SetLetter(Form.Sex);
    optWeight->SetLetter(Form.Category);
    optBoatType->SetLetter(Form.BoatType);
    optAge->SetLetter(Form.AgeGroup);
    IsFilling = false;
    ShowName();
}

SessionForm fSession::TypedForm() const
{
    SessionForm Form;
    Form.Date = Plain(txtDate->text());
    Form.SessNum = Plain(txtSessNum->text());
    Form.Place = Plain(txtPlace->text());
    Form.Coach = Plain(txtCoach->text());
    for (std::size_t i = 0; i < SessionParCnt; ++i)
        Form.Pars[i] = Plain(txtPars[i]->text());
    Form.Comment = Plain(txtComment->text());
    Form.Folder = Plain(DirLtxt->text());
    Form.Sex = optSex->Letter();
    Form.Category = optWeight->Letter();
    Form.BoatType = optBoatType->Letter();
    Form.AgeGroup = optAge->Letter();
    return Form;
}

const SessionTemplate* fSession::Chosen() const
{
    const int Row = lstTemplates->currentRow();
    return Mode == SessionNew && Row > 0 ? &Known.Templates[static_cast<std::size_t>(Row - 1)] : nullptr;
}

// With the template of that name chosen, else None.
void fSession::ListTemplates(const std::string& Name)
{
    const QSignalBlocker Quiet(lstTemplates); // the rows do not fit the templates until both are there
    Known = FindTemplates(Folders);
    lstTemplates->clear();
    lstTemplates->addItem("None");
    int Row = 0;
    for (const SessionTemplate& Each : Known.Templates) {
        lstTemplates->addItem(Shown(Each.Name));
        if (Each.Name == Name) Row = lstTemplates->count() - 1;
    }
    lstTemplates->setCurrentRow(Row);
    lstTemplates->setMinimumWidth(lstTemplates->sizeHintForColumn(0) + ColumnGap);
    QString Text = "Your own templates are session files in the folder " + Shown(Folders.back());
    for (const std::string& Path : Known.Unreadable)
        Text += "\nThis is no session file: " + Shown(Path);
    lbOwnTemplates->setText(Text);
    ChooseTemplate();
}

void fSession::KeepOpenSession()
{
    const std::string Name = InputBox("Name of the template", "Add the open session", gFileTitle);
    if (!Name.empty() && KeepTemplate(Folders.back(), Name)) ListTemplates(Name);
}

void fSession::ChooseTemplate()
{
    SessionForm Form = TypedForm();
    const SessionTemplate* Now = Chosen();
    ProposeTemplate(Form, Proposed ? &*Proposed : nullptr, Now);
    Proposed = Now ? std::optional(*Now) : std::nullopt;
    lbTemplate->setText(Now ? Shown(TemplateText(*Now))
                            : "A blank session: no channels and no crew; rig and views stay as they are. A template "
                              "fills all of these.");
    ShowForm(Form);
}

void fSession::ShowName()
{
    if (IsFilling) return;
    const SessionForm Form = TypedForm();
    const auto Faults = CheckSession(Form, Mode);
    MarkFaults(*this, Faults);
    lbSessID->setText("<b>" + Shown(FormTitle(Form, gFile)).toHtmlEscaped() + "</b>");
    lbPath->setText(Shown(FormPath(Form, Mode)));
    lbPlan->setText(FaultOrPlan(Faults, SessionPlan(Form, Mode)));
}

void fSession::Browse()
{
    const std::string File =
        ExecComDlg("Data folder (select any file in it)", "*", eFileMode::In, Plain(DirLtxt->text()));
    if (!File.empty()) DirLtxt->setText(Shown(std::filesystem::path(File).parent_path().string()));
}

bool fSession::Apply()
{
    const SessionForm Form = TypedForm();
    if (Guard("Storing the session", [&] { return ApplySession(Form, Mode, Chosen(), MayReplace); })) return true;
    GoToFault(*this, CheckSession(Form, Mode));
    return false;
}

void fSession::done(int Result)
{
    KeepPlace(*this, Section);
    QDialog::done(Result);
}
