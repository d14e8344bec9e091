// The controls of the options, made from their table and kept in step with it.
#pragma once

#include "records/cOptions.h"

#include <QObject>

#include <functional>
#include <vector>

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QWidget;

class fOptionControls : public QObject
{
public:
    fOptionControls(cOptions& InitOptions, QObject* Parent);

    /// Makes the box of a group with its controls, of which First is the first.
    QGroupBox* BuildGroup(const OptionGroup& Group, int First);

    /// Shows the texts of the options in all controls.
    void ShowAll();

    /// Shows beside each control why the program cannot use what it shows. Gives the pages that have such controls.
    std::vector<eOptionPage> ShowFaults();

    /// Marks a control, and no other one; none when Index is -1. Gives it.
    QWidget* Mark(int Index);

    /// Called behind each change of a setting.
    std::function<void()> OnChange;

private:
    // What belongs to a setting.
    struct Control
    {
        QWidget* Box = nullptr;
        QLabel* Note = nullptr; // of the setting, or of all in its table
        std::function<void()> Show;
    };

    void BuildForm(QGridLayout& Grid, const OptionGroup& Group, int First);
    void BuildTable(QGridLayout& Grid, const OptionGroup& Group, int First);
    QWidget* Make(int Index, QButtonGroup& Radios);
    QWidget* Enter(int Index, QWidget* Box, std::function<void()> Show);
    QWidget* MakeBox(int Index);
    void Propose(int Index, QLineEdit& Box);
    QWidget* MakeFile(int Index);
    QWidget* MakeCheck(int Index);
    QWidget* MakeRadio(int Index, QButtonGroup& Radios);
    QWidget* MakeChoice(int Index);
    QWidget* MakeShown(int Index);
    QWidget* MakeColour(int Index);
    QWidget* MakePenWidth(int Index);
    static QLabel* MakeNote(const QString& Name);
    void Put(int Index, const QString& Text);
    void ShowNote(QLabel& Note, int First) const;

    cOptions& Options;
    std::vector<Control> All;
    int Marked = -1;
    int Browsers = 0; // buttons that ask for a file
};
