// The window of anthropometry: body segments measured on the still picture of a video window.
#pragma once

#include "video/cAnthro.h"
#include "video/fDigitStill.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class f1Video;

class fAnthro : public QWidget
{
public:
    static constexpr const char* Section = "fAnthro"; // of the settings

    explicit fAnthro(f1Video& InitOwner);
    ~fAnthro() override;
    fAnthro(const fAnthro&) = delete;
    fAnthro& operator=(const fAnthro&) = delete;

protected:
    void closeEvent(QCloseEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    QLayout* BuildHead();
    QWidget* BuildTable();
    QLayout* BuildCommands();
    void Attach();
    void Detach();
    void ShowAll();
    bool MayEnd();
    bool Save();

    QPointer<f1Video> Owner;
    cAnthro Body;
    std::unique_ptr<fDigitStill> Still;
    QComboBox* cboRower = nullptr;
    QLineEdit* txtKnown = nullptr;
    QLabel* lbNext = nullptr;
    std::vector<QLabel*> lbName;
    std::vector<QLabel*> lbLength;
    QPushButton* cmdUndo = nullptr;
    bool IsChanged = false;
    bool IsEnded = false;
};
