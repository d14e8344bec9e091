// What the dialogs of sessions and athletes share: groups of letters to choose from, boxes, and the marks of faults.
#pragma once

#include "records/mSession.h"

#include <QGroupBox>

#include <functional>
#include <span>
#include <string>
#include <vector>

class QButtonGroup;
class QLineEdit;

inline constexpr int ColumnGap = 18; // between the columns of a dialog

/// A group of option buttons, each for a letter. Button i has the name of the group, "_" and i.
class qChoice : public QGroupBox
{
public:
    qChoice(QWidget* Parent, const char* Name, const char* Caption, std::span<const LetterChoice> InitChoices,
            int Columns);

    /// The letter chosen, empty when none is.
    std::string Letter() const;

    /// Chooses a letter; one that is not in the group chooses none.
    void SetLetter(const std::string& Wanted);

    /// Called when the user has chosen.
    std::function<void()> OnChosen;

private:
    std::span<const LetterChoice> Choices;
    QButtonGroup* Buttons;
};

/// A box to type into that calls OnTyped, with that name.
QLineEdit* MakeBox(QWidget* Parent, const QString& Name, const std::function<void()>& OnTyped);

/// Shows the controls of faults in red with the reason as tool tip, and all other boxes of Window plain.
void MarkFaults(QWidget& Window, const std::vector<FormFault>& Faults);

/// Moves the keyboard to the control of the first fault, if there is one.
void GoToFault(QWidget& Window, const std::vector<FormFault>& Faults);

/// The first fault as red words, or else Plan.
QString FaultOrPlan(const std::vector<FormFault>& Faults, const std::string& Plan);

/// The root of the data folders: the one in use, or one in the user's documents when none was chosen yet.
std::string ProposedFolder();
