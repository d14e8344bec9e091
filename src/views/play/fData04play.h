// The play window: curves and figures around the play clock, and the controls that move it.
#pragma once

#include "core/mDataWindow.h"
#include "core/mPlayClock.h"
#include "views/play/cPlay.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <array>

class qSurface;
class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QSlider;

class fData04play : public QWidget, public cDataWindow
{
public:
    static constexpr const char* Section = "Data04Play"; // of the settings

    fData04play();

    /// Shows what is played; as cPlay::InitData.
    bool InitData(const PlayData& Data);

    /// Whether the samples that gRaw holds are played.
    bool PlaysSamples() const { return Play.Data().Mode == PlayPrimary; }

    /// Shows the moment of the play clock: another window moved it.
    void GoCurTime();

    /// A button's work, ePlayCode.
    void DoAction(int Code) override;

    // The clock moves the window, not frames.
    void DrawData() override {}
    void SetLive(bool) override {}
    bool NeedsLink() const override { return false; }

    void Unload() override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    QLayout* BuildClock();
    QLayout* BuildOptions();
    void BuildCorrection();
    QPushButton* AddButton(const QString& Name, const char* Caption, const char* Tip);
    QLineEdit* AddBox(const char* Name, const char* Widest);

    void Renew();
    void ShowNotes();
    void ShowState();
    void DrawAll();
    void Moved();
    void Tick();
    void Run(bool On);
    void Correct(double Seconds);
    void KeepCorrection();
    void Match();
    bool PressKey(int Key);
    bool MouseOnPlot(QEvent* Event);

    cPlay Play;
    cPlayFollower Clock;
    cListener Session;
    QTimer Timer1;
    QElapsedTimer Since; // the last tick
    bool IsCorrected = false;

    qSurface* picPlay;
    QSlider* Slider1 = nullptr;
    std::array<QPushButton*, 3> cmdPlay{};
    std::array<QPushButton*, 2> cmdCorr{};
    std::array<QLineEdit*, 2> txtCycle{};
    QLineEdit* txtCorr = nullptr;
    QPushButton* cmdMatch = nullptr;
    QCheckBox* chShowVals = nullptr;
    QDoubleSpinBox* txtSpeed = nullptr;
    QLabel* lbNotes;
};
