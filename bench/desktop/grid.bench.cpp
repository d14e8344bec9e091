// Opening the record grid with many rows against a bare table view of the same texts.
#include "recording.h"

#include "core/mGlobData.h"
#include "records/fDataGrid.h"

#include <QApplication>
#include <QTableView>

#include <benchmark/benchmark.h>

namespace {
constexpr int Channels = 300;
constexpr int Samples = 1000;

void MakeRows()
{
    MakeBenchSession();
    gFile.Calibr.Resize(Channels);
    for (int i = 1; i <= Channels; ++i) {
        CalibrRow& Row = gFile.Calibr[i];
        Row.Chan = static_cast<int16_t>(i);
        Row.ParamID = "P" + std::to_string(i);
        Row.SensorID = "SENSOR-" + std::to_string(i);
        Row.Q0 = -145.63 - i;
        Row.Q1 = 0.091912;
    }
    gFile.Desc.Resize(Samples);
    for (int i = 1; i <= Samples; ++i) {
        DescRow& Row = gFile.Desc[i];
        Row.SampleID = "S" + std::to_string(i);
        Row.Rate = 30 + i / 100.0;
        Row.Comment = "Race pace, second piece";
        Row.RawFN = "raw" + std::to_string(i) + ".qvn";
    }
}

void ShowAndPaint(QWidget& Window)
{
    Window.resize(1000, 560);
    Window.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(Window.grab());
}

void Open(benchmark::State& State, const char* Kind)
{
    MakeRows();
    for (auto _ : State) {
        auto Rows = std::make_unique<cDataGrid>(*FindGridKind(Kind));
        Rows->Load();
        auto* Window = new fDataGrid(std::move(Rows));
        ShowAndPaint(*Window);
        State.PauseTiming();
        delete Window;
        State.ResumeTiming();
    }
}

// The texts of a grid, and no more.
class Texts : public QAbstractTableModel
{
public:
    explicit Texts(const cGrid& InitGrid) : Grid(InitGrid) {}
    int rowCount(const QModelIndex&) const override { return Grid.RowCount(); }
    int columnCount(const QModelIndex&) const override { return Grid.ColumnCount(); }
    QVariant data(const QModelIndex& Cell, int Role) const override
    {
        if (Role != Qt::DisplayRole) return {};
        return QString::fromStdString(Grid.Cell(Cell.row(), Cell.column()));
    }

private:
    const cGrid& Grid;
};

void OpenReference(benchmark::State& State, const char* Kind)
{
    MakeRows();
    for (auto _ : State) {
        cGrid Grid;
        FindGridKind(Kind)->Load(gFile, Grid);
        Texts Model(Grid);
        QTableView View;
        View.setModel(&Model);
        ShowAndPaint(View);
    }
}

// From the first row to the last, a page at a time.
void Scroll(benchmark::State& State)
{
    MakeRows();
    auto Rows = std::make_unique<cDataGrid>(*FindGridKind("Desc"));
    Rows->Load();
    fDataGrid Window(std::move(Rows));
    ShowAndPaint(Window);
    auto* Grid = Window.findChild<QTableView*>("DataGrid");
    int Row = 0;
    for (auto _ : State) {
        Row = (Row + 7) % Samples;
        Grid->scrollTo(Grid->model()->index(Row, 1), QAbstractItemView::PositionAtTop);
        benchmark::DoNotOptimize(Grid->grab());
    }
}

void ScrollReference(benchmark::State& State)
{
    MakeRows();
    cGrid Table;
    FindGridKind("Desc")->Load(gFile, Table);
    Texts Model(Table);
    QTableView View;
    View.setModel(&Model);
    ShowAndPaint(View);
    int Row = 0;
    for (auto _ : State) {
        Row = (Row + 7) % Samples;
        View.scrollTo(Model.index(Row, 1), QAbstractItemView::PositionAtTop);
        benchmark::DoNotOptimize(View.grab());
    }
}

BENCHMARK_CAPTURE(Open, channels, "Calibr")->Name("channels")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenReference, channels, "Calibr")->Name("channels/reference")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Open, samples, "Desc")->Name("samples")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenReference, samples, "Desc")->Name("samples/reference")->Unit(benchmark::kMillisecond);
BENCHMARK(Scroll)->Name("scroll")->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollReference)->Name("scroll/reference")->Unit(benchmark::kMillisecond);
} // namespace
