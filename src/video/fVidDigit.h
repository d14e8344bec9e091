// The window of digitising: the points of the frame in numbers, the angles of the clip, and what is done with them.
#pragma once

#include "video/cDigit.h"
#include "video/fDigitStill.h"
#include "video/fPointTable.h"

#include <QPointer>
#include <QWidget>

#include <array>
#include <memory>

class QComboBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class f1Video;
class qSurface;

class fVidDigit : public QWidget
{
public:
    static constexpr const char* Section = "VidDigit"; // of the settings

    /// Begins digitising in a video window as its button Index does.
    fVidDigit(f1Video& InitOwner, int Index);
    ~fVidDigit() override;
    fVidDigit(const fVidDigit&) = delete;
    fVidDigit& operator=(const fVidDigit&) = delete;

    /// Goes on after the clip was played. False when this window digitises another clip, or in another mode.
    bool Resume(const f1Video& Video, int Index);

protected:
    void closeEvent(QCloseEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void InitControls(int Mode);
    QLayout* BuildFrame();
    QWidget* BuildCurrent();
    QLayout* BuildCommands();
    QPushButton* AddButton(const char* Name, const char* Caption, const char* Tip, void (fVidDigit::*Work)());
    void Attach();
    void Detach();
    void Enter();
    bool MayEnd();
    void TakeStill();
    void ShowAll();
    void ShowCurrent();
    void Skip(int Direction);
    void UndoLast();
    void DeleteFrame();
    void ExportTable();
    void SaveData();
    void TakeAngles();

    QPointer<f1Video> Owner;
    cDigit Digit;
    int BeginIndex;
    bool IsEnded = false;
    std::unique_ptr<fDigitStill> Still;
    QPointer<fSliderMarks> Marks;

    QLineEdit* txtFrameN = nullptr;
    QLabel* lbCurPt = nullptr;
    QLabel* lbNext = nullptr; // what the next click places
    std::array<QLineEdit*, 3> txtCoords{};
    fPointTable* frBody = nullptr;
    qSurface* picAngles = nullptr;
    QComboBox* cboSkip = nullptr;
    QPushButton* cmdUndo = nullptr;
};
