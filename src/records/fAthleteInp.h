// The dialog "Personal Data of the Athlete": makes the session of one athlete, who is on an ergometer.
#pragma once

#include "records/mAthlete.h"

#include <QDialog>

#include <array>
#include <functional>
#include <string>

class QLabel;
class QLineEdit;
class QListWidget;
class qChoice;

class fAthleteInp : public QDialog
{
public:
    explicit fAthleteInp(QWidget* Parent);

    /// Called before another session takes the place of the open one; false keeps that.
    std::function<bool()> MayReplace;

    void done(int Result) override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    QWidget* BuildForm();
    QWidget* BuildFolders();
    QWidget* BuildBoxes();
    QWidget* BuildChoices();
    QLayout* BuildName();
    QLayout* BuildButtons();
    void ListFolders();
    void EnterFolder(int Row);
    std::string FolderOf(int Row) const;
    AthleteForm TypedForm() const;
    void ShowForm(const AthleteForm& Form);
    void ShowName();
    void Store();

    std::string Base;      // whose folders are listed
    bool HasAbove = false; // the list has a row for the folder above
    bool IsFilling = false;
    QListWidget* DirLB = nullptr;
    QLabel* lbBase = nullptr;
    std::array<QLineEdit*, AthleteBoxCnt> Text1{};
    qChoice* opGender = nullptr;
    qChoice* opWeght = nullptr;
    qChoice* optBoatType = nullptr;
    qChoice* optAge = nullptr;
    QLabel* lbPath = nullptr;
    QLabel* lbPlan = nullptr;
};
