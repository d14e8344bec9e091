// The window "Correct Vars", in which stored samples are corrected.
#pragma once

#include "core/mNotice.h"
#include "views/samples/cSwap.h"

#include <QWidget>

#include <functional>

class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

class fSwap : public QWidget
{
public:
    fSwap();

protected:
    void closeEvent(QCloseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;

private:
    QLayout* BuildBoxes();
    QLayout* BuildButtons();
    QLineEdit* AddBox(class QFormLayout& Form, const char* Name, const char* Label);
    QPushButton* AddButton(const char* Name, const char* Caption, const char* Tip, const std::function<void()>& Action);
    void Correct(const std::function<std::string()>& Command);
    void Undo();
    void Save();

    cSwap Swap;
    cListener Session; // which may also be saved from elsewhere
    QLineEdit* txtWhat = nullptr;
    QLineEdit* txtWith = nullptr;
    QLineEdit* txtAverTo = nullptr;
    QLineEdit* txtOffset = nullptr;
    QLabel* lbOutput;
};
