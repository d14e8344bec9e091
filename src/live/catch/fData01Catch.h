// The window "Catch Training": the curves of View1, and beside them the three factors of the last stroke and their
// averages, legible from three metres.
#pragma once

#include "live/catch/cCatch.h"
#include "live/catch/fFactorBar.h"
#include "live/panel/fCurvePanel.h"

#include <array>
#include <vector>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QLayout;

class fData01Catch : public fCurvePanel<cCatch>
{
public:
    /// The targets are those that InitTargets has chosen.
    fData01Catch();

protected:
    void ShowLabels() override;
    void LoadSession() override;
    void OptionsChanged() override;
    void FitLabels(QSize Size) override;
    void Closing() override { cCatch::Unload(); }

private:
    static constexpr int ValueLetters = 6; // "-199.9"

    // A factor's row: last stroke, average, and the bar below them.
    struct FactorRow
    {
        QLabel* Last;
        QLabel* Average;
        fFactorBar* Bar;
    };

    QLayout* BuildTop();
    QGridLayout* BuildFigures();
    FactorRow AddFactor(QGridLayout& Grid, const char* Caption, const char* Value, const char* Bar,
                        const std::array<const char*, 3>& Colours);
    QLabel* AddLabel(const char* Name, double Share);
    QLabel* AddValue(const QString& Name, int Letters = ValueLetters);
    void Arrange(QSize Size);
    void InitLabels();
    void SetMargins();
    static void ShowFactor(const FactorRow& Row, const std::optional<FactorShown>& Factor, const char* AverageFormat,
                           const char* LastFormat);

    // A label with the height of its letters in the panel's height.
    struct SizedLabel
    {
        QLabel* Label;
        double Share;
        int Letters; // that a value has, at most
    };

    QBoxLayout* Middle; // curves and figures
    std::vector<SizedLabel> Sized;
    std::array<QLabel*, 2> lbData{}; // minutes, seconds
    QLabel* lbStrokeN = nullptr;
    std::array<QLabel*, 2> lbRate{};
    QLabel* lbStrokeLength = nullptr;
    QLabel* lbSeatTravel = nullptr;
    QLabel* lbMaxHandleVel = nullptr;
    QLabel* lbMaxSeatVel = nullptr;
    FactorRow Catch{};
    FactorRow Style{};
    FactorRow Finish{};
};
