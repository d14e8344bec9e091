// The data view: a recording as stacked curves, a selection on it, its numbers, and all that is made of it.
#pragma once

#include "platform/qt/qSurface.h"
#include "views/data/cDataNav.h"
#include "views/data/cDataView.h"
#include "views/data/mSelNumbers.h"
#include "views/data/mViewEdit.h"
#include "views/data/mViewLoad.h"
#include "views/data/mViewProc.h"

#include <QWidget>

#include <array>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QScrollBar;
class QWheelEvent;

class fData02view : public QWidget
{
public:
    fData02view();

    /// Loads FileName as that kind of data and shows it. False when that fails or is cancelled (told).
    bool InitData(const std::string& FileName, int16_t Mode);

    /// Called when a report is wanted: of the typical pattern that was just made (ReportTypical), or of the samples
    /// First to Last as they are (ReportPrimary).
    std::function<void(int Kind, int32_t First, int32_t Last)> OnPlot;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    using Command = void (fData02view::*)();

    void BuildPlot();
    QLayout* BuildCommands();
    QLayout* BuildNumbers();
    QLayout* BuildInputs();
    QLayout* BuildHead();
    QPushButton* AddButton(const QString& Name, const char* Caption, const char* Tip, Command Action);
    QLineEdit* AddBox(const char* Name, bool IsReadOnly);

    bool MouseOnPlot(QEvent* Event);
    bool MouseOnStrip(QEvent* Event);
    void Turn(const QWheelEvent& Wheel);

    void Run(const char* What, Command Action);
    void Show();
    void ShowStrip();
    void ShowNumbers();
    void ShowCursor();
    bool IsStrip() const;
    void Changed();
    ProcStretch Stretch() const;

    void SaveData();
    void Export();
    void ZoomOut();
    void ZoomIn();
    void ShowDist();
    void ShowRate();
    void Filter();
    void Delete();
    void SetStartSel();
    void SetStopSel();
    void SelAllStrokes();
    void ProcStrokes();
    void ProcAll();
    void ProcSelection();
    void ProcessSplits();
    void ProcessStart();
    void Plot();
    void PlotSamples();
    void Trim();
    void GetData();
    void SaveStrokeTable();
    void AccVel();
    void Undo();

    qSurface* Surface;
    qSurface* Strip;
    QScrollBar* Bar;
    QLabel* lbStrip;
    QLabel* lbPointer;
    QLabel* lbCurDist;
    std::array<QLabel*, 13> txtSel{};
    std::array<QLineEdit*, 2> txtInps{};
    std::array<QLineEdit*, 2> txtCur{};
    QLineEdit* txtFilter;
    std::vector<QPushButton*> SampleCommands; // for which there have to be samples
    QPushButton* cmdTrim = nullptr;
    QPushButton* cmdGetRawData = nullptr;
    QPushButton* cmdSaveStrokes = nullptr;

    cDataView View;
    cDataNav Nav;
    ViewData Data;
    ViewUndo LastChange;
    double DragFrom = 0;     // where the mouse button went down
    int WheelTurn = 0;       // of the mouse wheel towards its next notch, eighths of a degree
    bool IsEdited = false;   // distance or time was typed
    bool IsChanged = false;  // samples differ from those of the file
    bool WasChanged = false; // and did before the last change
};
