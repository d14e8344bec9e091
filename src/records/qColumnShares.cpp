// Shares to widths, and the room that a column needs.
#include "records/qColumnShares.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "records/qGridModel.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace {
constexpr int HeadText = Qt::AlignCenter | Qt::TextWordWrap;

std::string ColumnKey(const std::string& Prefix, std::size_t Column)
{
    return Prefix + "ColW_" + FormatNum(static_cast<double>(Column), "00");
}
} // namespace

qColumnShares::qColumnShares(QTableView& InitView, const qGridModel& InitRows)
    : View(InitView), Rows(InitRows), Shares(static_cast<std::size_t>(InitRows.columnCount()), 0)
{
    QHeaderView* Head = View.horizontalHeader();
    Head->setDefaultAlignment(Qt::Alignment(HeadText));
    Head->setHighlightSections(false);
    Head->setMinimumSectionSize(2 * View.fontMetrics().averageCharWidth());
    QObject::connect(Head, &QHeaderView::sectionResized, &View, [this](int Column, int, int Width) {
        if (!IsApplying) At(Shares, Column) = SafeDiv(Width, View.viewport()->width());
    });
}

void qColumnShares::Restore(const std::string& Section, const std::string& Prefix)
{
    for (std::size_t i = 0; i < Shares.size(); ++i)
        Shares[i] = std::clamp(Val(gHost.Settings->GetSetting(Section, ColumnKey(Prefix, i)).value_or("0")), 0.0, 1.0);
    Apply();
}

void qColumnShares::Keep(const std::string& Section, const std::string& Prefix) const
{
    for (std::size_t i = 0; i < Shares.size(); ++i)
        if (Shares[i] > 0) gHost.Settings->SaveSetting(Section, ColumnKey(Prefix, i), FormatNum(Shares[i], "0.0000"));
}

// Room for the longest text of the column, as far as one line of it is to be read at once, and for the head's words.
int qColumnShares::NeededWidth(int Column) const
{
    constexpr qsizetype MostLetters = 32;
    const GridColumn& Texts = At(std::as_const(Rows).Table().Columns(), Column);
    const std::string* Longest = &Texts.Head;
    std::size_t Length = 0;
    for (const GridRow& Row : Rows.Table().Rows())
        if (const std::string& Text = At(Row.Cells, Column); Text.size() > Length) {
            Longest = &Text;
            Length = Text.size();
        }
    const int Letter = View.fontMetrics().averageCharWidth();
    const int Text = Length > 0 ? View.fontMetrics().horizontalAdvance(Shown(*Longest).left(MostLetters)) : 0;
    const int Swatch = Texts.Kind == eCell::Colour ? View.iconSize().width() : 0;
    return std::max(Text + Swatch + 2 * Letter, HeadRoom(Shown(Texts.Head), 0).width());
}

// The place of a head that is broken into lines where it is wider than Width; none gives its longest word's.
QSize qColumnShares::HeadRoom(const QString& Head, int Width) const
{
    const int Margin = 3 * View.fontMetrics().averageCharWidth();
    const QRect Place(0, 0, std::max(1, Width - Margin), 0);
    return View.horizontalHeader()->fontMetrics().boundingRect(Place, HeadText, Head).size() + QSize(Margin, Margin);
}

// A width that is not kept is what the column needs and its part of what the grid has to spare. The right edges are
// rounded, not the widths, so that the last column ends where the shares do.
void qColumnShares::Apply()
{
    IsApplying = true;
    const double Width = View.viewport()->width();
    std::vector<double> Widths;
    double Spare = Width;
    for (std::size_t i = 0; i < Shares.size(); ++i) {
        Widths.push_back(Shares[i] > 0 ? Shares[i] * Width : NeededWidth(static_cast<int>(i)));
        Spare -= Widths.back();
    }
    const auto Own = static_cast<double>(std::count(Shares.begin(), Shares.end(), 0.0));
    double Edge = 0;
    int Height = 0;
    for (std::size_t i = 0; i < Shares.size(); ++i) {
        const int Column = static_cast<int>(i);
        if (Shares[i] == 0.0) Widths[i] += std::max(0.0, Spare) / Own;
        const double Left = Edge;
        Edge += Widths[i];
        View.setColumnWidth(Column, static_cast<int>(RoundHalfEven(Edge) - RoundHalfEven(Left)));
        const QString Head = Rows.headerData(Column, Qt::Horizontal, Qt::DisplayRole).toString();
        Height = std::max(Height, HeadRoom(Head, View.columnWidth(Column)).height());
    }
    View.horizontalHeader()->setFixedHeight(std::max(Height, View.fontMetrics().height()));
    IsApplying = false;
}
