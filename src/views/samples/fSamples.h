// The dialog through which a stored sample is picked for a view, by its name, its crew and the look of its strokes.
#pragma once

#include <QDialog>

#include <cstdint>
#include <functional>

class qSurface;
class QLabel;
class QListWidget;

/// Row of gFile.Desc chosen last, 0 when the choice was cancelled.
extern int16_t gChosenSample;

class dSamples : public QDialog
{
public:
    explicit dSamples(QWidget* Parent);

    /// Called with the row of gFile.Desc when a sample was chosen.
    std::function<void(int16_t)> OnChosen;

    void done(int Result) override;

private:
    void FillTestList();
    void FillSeats();
    void ShowSample();
    void DrawPicture();

    QListWidget* lstTests;
    QListWidget* lstSeats;
    QLabel* lbSample;
    qSurface* Picture;
};
