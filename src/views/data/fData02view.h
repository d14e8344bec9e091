// The window of the data view: its controls, and what each passes on to the view.
#pragma once

#include "core/mDataWindow.h"
#include "views/data/cData02view.h"

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
class qSurface;

class fData02view : public QWidget, public cDataWindow
{
public:
    fData02view();

    /// Loads FileName as that kind of data and shows it. False when that fails or is cancelled (reported to the user).
    bool InitData(const std::string& FileName, int16_t Mode);

    /// Called when a report is wanted; as cData02view::OnPlot.
    std::function<void(int Kind, int32_t First, int32_t Last)> OnPlot;

    // A recording takes no frames.
    void DrawData() override {}
    void SetLive(bool) override {}
    bool NeedsLink() const override { return false; }

    /// Closes the window, unless it asks and is to stay.
    void Unload() override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    void BuildPlot();
    QLayout* BuildCommands();
    QLayout* BuildNumbers();
    QLayout* BuildInputs();
    QLayout* BuildHead();
    QPushButton* AddButton(const QString& Name, const char* Caption, const char* Tip, cData02view::Command Action);
    QLineEdit* AddBox(const char* Name, bool IsReadOnly);

    bool MouseOnPlot(QEvent* Event);
    bool MouseOnStrip(QEvent* Event);
    bool MoveByKey(const QKeyEvent& Event);
    void Press(const char* Button);
    void Run(const QString& What, cData02view::Command Action);
    void Arrange();
    void ShowState();
    void ShowFilter();

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
    std::vector<QPushButton*> TableCommands;  // of a recording that was scanned

    cData02view View;
    cListener Options; // which may set another filter
};
