// The dialog "Test Session Info": describes a session, makes a new one, or saves the set-up as another.
#pragma once

#include "records/mSession.h"
#include "records/mTemplates.h"

#include <QDialog>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class qChoice;

class fSession : public QDialog
{
public:
    /// Where its place is kept: a section of the settings.
    static constexpr const char* Section = "fSession";

    /// InitFolders hold the templates; the last one is the user's own.
    fSession(QWidget* Parent, const std::vector<std::string>& InitFolders);

    /// Sets the mode, an eSessionMode, with its caption and contents. Called before the dialog is shown.
    void InitMode(int16_t InitMode);

    /// Called before another session takes the place of the open one; false keeps that.
    std::function<bool()> MayReplace;

    void done(int Result) override;

private:
    QWidget* BuildForm();
    QGroupBox* BuildTemplates();
    QWidget* BuildBoxes();
    QWidget* BuildChoices();
    QFormLayout* BuildFolder();
    QFormLayout* BuildName();
    QLayout* BuildButtons();
    void ShowForm(const SessionForm& Form);
    SessionForm TypedForm() const;
    const SessionTemplate* Chosen() const;
    void ListTemplates(const std::string& Name);
    void ChooseTemplate();
    void KeepOpenSession();
    void ShowName();
    void Browse();
    bool Apply();

    eSessionMode Mode = SessionNew;
    std::vector<std::string> Folders;
    TemplateList Known;
    std::optional<SessionTemplate> Proposed; // whose values stand in the boxes
    bool IsFilling = false;
    std::array<QLineEdit*, SessionParCnt> txtPars{};
    QLineEdit* txtDate = nullptr;
    QLineEdit* txtSessNum = nullptr;
    QLineEdit* txtPlace = nullptr;
    QLineEdit* txtCoach = nullptr;
    QLineEdit* txtComment = nullptr;
    QLineEdit* DirLtxt = nullptr;
    qChoice* optSex = nullptr;
    qChoice* optWeight = nullptr;
    qChoice* optBoatType = nullptr;
    qChoice* optAge = nullptr;
    QGroupBox* frTemplates = nullptr;
    QListWidget* lstTemplates = nullptr;
    QLabel* lbTemplate = nullptr;
    QLabel* lbOwnTemplates = nullptr;
    QLabel* lbSessID = nullptr;
    QLabel* lbPath = nullptr;
    QLabel* lbPlan = nullptr;
    QWidget* cmdBrowse = nullptr;
};
