// Layout, captions and colours of the catch training panel.
#include "live/catch/fData01Catch.h"

#include "base/mNumText.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "platform/qt/qText.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace {
constexpr double ValueShare = 0.085; // of the panel's height
constexpr double CaptionShare = 0.030;
constexpr double ShareByWidth = 0.66; // letters are no higher than this part of their share of the panel's width
constexpr double LetterWidth = 0.7;   // of its height
constexpr int LeastPixels = 8;
constexpr int Seconds = 60; // in a minute

struct Caption
{
    const char* Name;
    const char* English;
    const char* Russian;
};
constexpr Caption Captions[] = {
    {"lbTime", "Time", "Время"},
    {"lbMin", "min", "мин"},
    {"lbSec", "sec", "с"},
    {"lbStrokes", "Strokes", "Гребки"},
    {"lbStrRate", "Stroke Rate", "Темп"},
    {"lbLastStr", "Last Stroke", "Последний гребок"},
    {"lbAverage", "Average", "Среднее"},
    {"lbCF", "Catch Factor (ms)", "Фактор захвата (мс)"},
    {"lbLRSF", "Rowing Style Factor (%)", "Фактор стиля гребли (%)"},
    {"lbFinish", "Finish Factor (ms)", "Фактор конца гребка (мс)"},
    {"lbSeat", "Seat", "Банка"},
    {"lbHandle", "Handle", "Рукоятка"},
    {"lbTravel", "Travel (m)", "Ход (м)"},
    {"lbMaxV", "Max. velocity (m/s)", "Макс. скорость (м/с)"},
};

// From early to late, and of the style from too much seat to too little.
constexpr std::array<const char*, 3> TimeZones = {"#8FA8F0", "#8FDC8F", "#F09A9A"};

const char* ColourOf(eVerdict Verdict)
{
    constexpr const char* Colours[] = {"rgb(0,200,0)", "rgb(0,0,255)", "rgb(255,0,0)"};
    return Colours[static_cast<std::size_t>(Verdict)];
}

void SetColour(QLabel& Label, const char* Colour)
{
    const QString Sheet =
        QString("QLabel { font-weight: bold; color: %1 } QLabel:disabled { color: gray }").arg(Colour);
    if (Label.styleSheet() != Sheet) Label.setStyleSheet(Sheet);
}

void SetText(QLabel& Label, double Value, const char* Format)
{
    Label.setText(Shown(FormatNum(Value, Format)));
}
} // namespace

fData01Catch::fData01Catch()
    : fCurvePanel("fData01Catch", "Catch Training", SourceFrames, "PB"), Middle(new QBoxLayout(QBoxLayout::LeftToRight))
{
    Middle->setSpacing(8);
    Middle->addWidget(Surface);
    Middle->addLayout(BuildFigures());
    auto* Layout = new QVBoxLayout(Body);
    Layout->setContentsMargins(6, 2, 6, 6);
    Layout->setSpacing(2);
    Layout->addLayout(BuildTop());
    Layout->addLayout(Middle, 1);
    Body->setToolTip("F11 fills the screen and comes back, Space holds a replay, Esc closes the panel");
    InitLabels();
    Panel.Load();
    cCatch::InitMode();
    SetMargins();
    Begin();
}

QLabel* fData01Catch::AddLabel(const char* Name, double Share)
{
    auto* Label = new QLabel(Body);
    Label->setObjectName(Name);
    Label->setAlignment(Qt::AlignCenter);
    Label->setMinimumWidth(1);
    Label->setWordWrap(Share == CaptionShare);
    Sized.push_back({Label, Share, ValueLetters});
    return Label;
}

QLabel* fData01Catch::AddValue(const QString& Name, int Letters)
{
    QLabel* Label = AddLabel(Plain(Name).c_str(), ValueShare);
    Sized.back().Letters = Letters;
    SetColour(*Label, "black");
    AddFading(*Label);
    return Label;
}

QLayout* fData01Catch::BuildTop()
{
    auto* Row = new QHBoxLayout;
    Row->addWidget(AddLabel("lbTime", CaptionShare), 2);
    for (std::size_t i = 0; i < lbData.size(); ++i) {
        Row->addWidget(lbData[i] = AddValue(QString("lbData_%1").arg(i), 2), 2);
        Row->addWidget(AddLabel(i == 0 ? "lbMin" : "lbSec", CaptionShare), 1);
    }
    Row->addWidget(AddLabel("lbStrokes", CaptionShare), 3);
    Row->addWidget(lbStrokeN = AddValue("lbStrokeN", 3), 3);
    return Row;
}

QGridLayout* fData01Catch::BuildFigures()
{
    auto* Grid = new QGridLayout;
    Grid->setSpacing(2);
    for (const auto& [Column, Stretch] : {std::pair{0, 4}, {1, 5}, {2, 5}})
        Grid->setColumnStretch(Column, Stretch);
    const auto AddRow = [&](QLabel* First, QLabel* Second, QLabel* Third) {
        const int Row = Grid->rowCount();
        if (First) Grid->addWidget(First, Row, 0);
        Grid->addWidget(Second, Row, 1);
        Grid->addWidget(Third, Row, 2);
    };
    AddRow(nullptr, AddLabel("lbLastStr", CaptionShare), AddLabel("lbAverage", CaptionShare));
    for (std::size_t i = 0; i < lbRate.size(); ++i)
        lbRate[i] = AddValue(QString("lbRate_%1").arg(i));
    AddRow(AddLabel("lbStrRate", CaptionShare), lbRate[0], lbRate[1]);
    Catch = AddFactor(*Grid, "lbCF", "lbCatch", "CF", TimeZones);
    Style = AddFactor(*Grid, "lbLRSF", "lbRSF", "RSF", TimeZones);
    Finish = AddFactor(*Grid, "lbFinish", "lbFF", "FF", TimeZones);
    AddRow(nullptr, AddLabel("lbHandle", CaptionShare), AddLabel("lbSeat", CaptionShare));
    lbStrokeLength = AddValue("lbStrokeLength");
    lbSeatTravel = AddValue("lbSeatTravel");
    AddRow(AddLabel("lbTravel", CaptionShare), lbStrokeLength, lbSeatTravel);
    lbMaxHandleVel = AddValue("lbMaxHandleVel");
    lbMaxSeatVel = AddValue("lbMaxSeatVel");
    AddRow(AddLabel("lbMaxV", CaptionShare), lbMaxHandleVel, lbMaxSeatVel);
    return Grid;
}

fData01Catch::FactorRow fData01Catch::AddFactor(QGridLayout& Grid, const char* Caption, const char* Value,
                                                const char* Bar, const std::array<const char*, 3>& Colours)
{
    const int Row = Grid.rowCount();
    const FactorRow Made{AddValue(QString("%1_0").arg(Value)), AddValue(QString("%1_1").arg(Value)),
                         new fFactorBar(Body, Bar, Colours)};
    Grid.addWidget(AddLabel(Caption, CaptionShare), Row, 0);
    Grid.addWidget(Made.Last, Row, 1);
    Grid.addWidget(Made.Average, Row, 2);
    Grid.addWidget(Made.Bar, Row + 1, 0, 1, 3);
    Grid.setRowStretch(Row + 1, 1);
    AddFading(*Made.Bar);
    return Made;
}

void fData01Catch::InitLabels()
{
    for (const Caption& Each : Captions)
        Body->findChild<QLabel*>(Each.Name)->setText(gLanguage == LanguageRussian ? Each.Russian : Each.English);
}

void fData01Catch::OptionsChanged()
{
    fCurvePanel::OptionsChanged();
    Panel.LoadRanges();
    SetMargins();
    ShowLabels();
}

void fData01Catch::SetMargins()
{
    Catch.Bar->SetMargin(gCFmarg);
    Style.Bar->SetMargin(gRSFmarg);
    Finish.Bar->SetMargin(gFFmarg);
}

// In a high and narrow panel, as beside others, the figures stand below the curves.
void fData01Catch::Arrange(QSize Size)
{
    const bool IsHigh = Size.height() > Size.width();
    Middle->setDirection(IsHigh ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    Middle->setStretch(0, IsHigh ? 2 : 9);
    Middle->setStretch(1, IsHigh ? 3 : 11);
    Body->layout()->activate();
}

void fData01Catch::FitLabels(QSize Size)
{
    Arrange(Size);
    for (const auto& [Label, Share, Count] : Sized) {
        QFont Letters = Label->font();
        double Height = std::min(Size.height() * Share, Size.width() * Share * ShareByWidth);
        if (Share == ValueShare) Height = std::min(Height, Label->width() / (LetterWidth * Count));
        Letters.setPixelSize(std::max(LeastPixels, static_cast<int>(Height)));
        Label->setFont(Letters);
        // That of the letters, since a value may still be empty; rounding may cost the label a pixel.
        if (Share == ValueShare) Label->setFixedHeight(QFontMetrics(Letters).height() + 1);
    }
}

void fData01Catch::ShowFactor(const FactorRow& Row, const std::optional<FactorShown>& Factor, const char* AverageFormat,
                              const char* LastFormat)
{
    Row.Bar->SetMark(Factor ? std::optional(Factor->Mark) : std::nullopt);
    if (!Factor) {
        Row.Last->clear();
        Row.Average->clear();
        return;
    }
    SetText(*Row.Last, Factor->Last, LastFormat);
    SetColour(*Row.Last, ColourOf(Factor->LastVerdict));
    if (!Factor->Average) return;
    SetText(*Row.Average, *Factor->Average, AverageFormat);
    SetColour(*Row.Average, ColourOf(Factor->AverageVerdict));
}

void fData01Catch::ShowLabels()
{
    const int Minutes = Panel.Elapsed() / Seconds;
    SetText(*lbData[0], Minutes, "0");
    SetText(*lbData[1], Panel.Elapsed() % Seconds, "0");
    const CatchStroke& Stroke = Panel.Stroke();
    SetText(*lbStrokeN, Stroke.StrokeN, "000");
    SetText(*lbRate[0], Stroke.Rate, "00.0");
    SetText(*lbRate[1], Stroke.RateAver, "00.0");
    SetText(*lbStrokeLength, Stroke.Length, "0.00");
    SetText(*lbSeatTravel, Stroke.SeatTravel, "0.00");
    SetText(*lbMaxHandleVel, Stroke.MaxHandleV, "0.00");
    SetText(*lbMaxSeatVel, Stroke.MaxSeatV, "0.00");
    ShowFactor(Catch, Panel.CatchFactor(), "0.0", "0");
    ShowFactor(Style, Panel.StyleFactor(), "0.0", "0.0");
    ShowFactor(Finish, Panel.FinishFactor(), "0.0", "0");
}

void fData01Catch::LoadSession()
{
    Panel.Load();
    SetMargins();
    Panel.Resize();
}
